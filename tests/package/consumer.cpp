#include "framework/system/exceptions.h"
#include "framework/system/types.h"

#include <cstdio>

// Needs the installed headers, the compiled library and the property notation that the package must pass on.
namespace {
class Holder {
public:
    int GetValue() const { return FValue; }
    void SetValue(int value) { FValue = value; }
    FRAMEWORK_PROPERTY(int, Value, GetValue, SetValue);

private:
    int FValue = 0;
};
} // namespace

int main() {
    Holder holder;
    holder.Value = 3;
    const framework::Exception exception(u"found");
    std::puts(exception.what());
    return holder.Value == 3 ? 0 : 1;
}
