// A package that gives up when it has registered one of its classes, with an exception of its own.

#include "framework/windows/packages.h"

namespace {

class TRefusingComponent : public framework::TComponent {
    FRAMEWORK_CLASS(TRefusingComponent)

public:
    using TComponent::TComponent;
};

class ENoLicence : public framework::Exception {
public:
    using Exception::Exception;
};

/// Refuses in another way each time.
void RegisterAndRefuse() {
    framework::RegisterComponents(u"Refused", {&TRefusingComponent::StaticClass()});
    wchar_t way[8] = {};
    GetEnvironmentVariableW(L"REFUSAL", way, 8);
    if (way[0] == L'2')
        throw ENoLicence(u"");
    if (way[0] == L'3')
        throw 3;
    throw ENoLicence(u"no licence");
}

} // namespace

const framework::TClassInfo& TRefusingComponent::StaticClass() {
    static const framework::TClassInfo info =
        framework::DescribeClass<TRefusingComponent>(u"TRefusingComponent", TComponent::StaticClass());
    return info;
}

FRAMEWORK_PACKAGE(RegisterAndRefuse);
