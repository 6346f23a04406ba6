// A package of a host's own: a control that descends from one of the library, whose package it needs.

#include "controls/Zoredit.h"
#include "framework/windows/packages.h"
#include "numeric/Zorfloatedit.h"

namespace {

class TCodeEdit : public ZOR::TZOREdit {
    FRAMEWORK_CLASS(TCodeEdit)

public:
    FRAMEWORK_PROPERTY(bool, LocalComma, GetLocalComma, SetLocalComma);

    using TZOREdit::TZOREdit;

    /// A switch of the library, which has to be the same one in every module.
    bool GetLocalComma() const { return ZOR::TZORFloatEdit::SeparatorFollowsLocale; }
    void SetLocalComma(bool value) { ZOR::TZORFloatEdit::SeparatorFollowsLocale = value; }
};

void RegisterCodes() {
    framework::RegisterComponents(u"Codes", {&TCodeEdit::StaticClass()});
}

} // namespace

const framework::TClassInfo& TCodeEdit::StaticClass() {
    using namespace framework;
    static const TClassInfo info = DescribeClass<TCodeEdit>(
        u"TCodeEdit", ZOR::TZOREdit::StaticClass(),
        {Property<&TCodeEdit::GetLocalComma, &TCodeEdit::SetLocalComma>(u"LocalComma", false)});
    return info;
}

FRAMEWORK_PACKAGE(RegisterCodes);
