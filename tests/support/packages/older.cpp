// A package of an older framework: it must not get so far as to register anything.

#include "framework/windows/packages.h"

extern "C" __declspec(dllexport) const framework::TPackageEntry FrameworkPackageEntry;
const framework::TPackageEntry FrameworkPackageEntry{
    "0.1.0", FRAMEWORK_HEADERS, &framework::TComponent::StaticClass,
    [] { framework::RegisterClasses({&framework::TComponent::StaticClass()}); }};
