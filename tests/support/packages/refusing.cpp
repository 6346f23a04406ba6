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

void RegisterAndRefuse() {
    framework::RegisterComponents(u"Refused", {&TRefusingComponent::StaticClass()});
    throw ENoLicence(u"no licence");
}

} // namespace

const framework::TClassInfo& TRefusingComponent::StaticClass() {
    static const framework::TClassInfo info =
        framework::DescribeClass<TRefusingComponent>(u"TRefusingComponent", TComponent::StaticClass());
    return info;
}

FRAMEWORK_PACKAGE(RegisterAndRefuse);
