#include "framework/windows/windowclasses.h"

#include <vector>

namespace framework {

namespace {

struct TWindowClass {
    String Name;
    HINSTANCE Instance;
    const TClassInfo* Owner;
};

std::vector<TWindowClass>& WindowClasses() {
    static std::vector<TWindowClass> classes;
    return classes;
}

} // namespace

void RegisterWindowClass(const WNDCLASSW& windowClass, const String& name, const TClassInfo& owner) {
    if (!RegisterClassW(&windowClass))
        throw EInvalidOperation(u"Windows could not register the window class " + name);
    WindowClasses().push_back({name, windowClass.hInstance, &owner});
}

void UnregisterWindowClasses(const std::function<bool(const TClassInfo&)>& isOwner) {
    std::erase_if(WindowClasses(), [&](const TWindowClass& each) {
        return isOwner(*each.Owner) && UnregisterClassW(WideChars(each.Name), each.Instance);
    });
}

} // namespace framework
