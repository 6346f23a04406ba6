// The published rows and enumerations that controls share.

#include "framework/system/identifiers.h"
#include "framework/windows/wincontrol.h"

namespace framework {

const TEnumInfo& DescribeEnum(TAlign) {
    static const TEnumInfo info{u"TAlign",
                                {u"alNone", u"alTop", u"alBottom", u"alLeft", u"alRight", u"alClient", u"alCustom"}};
    return info;
}

const TEnumInfo& DescribeEnum(TAnchorKind) {
    static const TEnumInfo info{u"TAnchorKind", {u"akLeft", u"akTop", u"akRight", u"akBottom"}};
    return info;
}

const TEnumInfo& DescribeEnum(TBiDiMode) {
    static const TEnumInfo info{
        u"TBiDiMode", {u"bdLeftToRight", u"bdRightToLeft", u"bdRightToLeftNoAlign", u"bdRightToLeftReadingOnly"}};
    return info;
}

const TEnumInfo& DescribeEnum(TFormBorderStyle) {
    static const TEnumInfo info{
        u"TFormBorderStyle", {u"bsNone", u"bsSingle", u"bsSizeable", u"bsDialog", u"bsToolWindow", u"bsSizeToolWin"}};
    return info;
}

namespace {

constexpr TIdentifier kCursors[] = {
    {crDefault, u"crDefault"},   {crNone, u"crNone"},           {crArrow, u"crArrow"},
    {crCross, u"crCross"},       {crIBeam, u"crIBeam"},         {crSizeNESW, u"crSizeNESW"},
    {crSizeNS, u"crSizeNS"},     {crSizeNWSE, u"crSizeNWSE"},   {crSizeWE, u"crSizeWE"},
    {crUpArrow, u"crUpArrow"},   {crHourGlass, u"crHourGlass"}, {crNo, u"crNo"},
    {crAppStart, u"crAppStart"}, {crHelp, u"crHelp"},           {crHandPoint, u"crHandPoint"},
    {crSizeAll, u"crSizeAll"},
};

} // namespace

const TIdentifiers& CursorIdentifiers() {
    return IdentifiersOf<kCursors>();
}

namespace controlrows {

TPropInfo ControlBorder(TPropInfo row) {
    static const TEnumInfo info{u"TBorderStyle", {u"bsNone", u"bsSingle"}};
    row.Enum = &info;
    return row;
}

TPropInfo Align(TAlign defaultValue) {
    return Property<&TControl::GetAlign, &TControl::SetAlign>(u"Align", defaultValue);
}

TPropInfo Anchors() {
    return Property<&TControl::GetAnchors, &TControl::SetAnchors>(u"Anchors").StoredWhen<&TControl::AnchorsStored>();
}

TPropInfo AutoSize(bool defaultValue) {
    return Property<&TControl::GetAutoSize, &TControl::SetAutoSize>(u"AutoSize", defaultValue);
}

TPropInfo BiDiMode() {
    return Property<&TControl::GetBiDiMode, &TControl::SetBiDiMode>(u"BiDiMode")
        .StoredWhen<&TControl::BiDiModeStored>();
}

TPropInfo Caption() {
    return Property<&TControl::GetText, &TControl::SetText>(u"Caption").StoredWhen<&TControl::TextStored>();
}

TPropInfo Color(TColor defaultValue) {
    return Property<&TControl::GetColor, &TControl::SetColor>(u"Color", defaultValue)
        .Named(ColorIdentifiers())
        .StoredWhen<&TControl::ColorStored>();
}

TPropInfo Constraints() {
    return Property<&TControl::GetConstraints, &TControl::SetConstraints>(u"Constraints");
}

TPropInfo Enabled() {
    return Property<&TControl::GetEnabled, &TControl::SetEnabled>(u"Enabled", true);
}

TPropInfo Font() {
    return Property<&TControl::GetFont, &TControl::SetFont>(u"Font").StoredWhen<&TControl::FontStored>();
}

TPropInfo ParentBiDiMode() {
    return Property<&TControl::GetParentBiDiMode, &TControl::SetParentBiDiMode>(u"ParentBiDiMode", true);
}

TPropInfo ParentColor(bool defaultValue) {
    return Property<&TControl::GetParentColor, &TControl::SetParentColor>(u"ParentColor", defaultValue);
}

TPropInfo ParentFont() {
    return Property<&TControl::GetParentFont, &TControl::SetParentFont>(u"ParentFont", true);
}

TPropInfo ParentShowHint() {
    return Property<&TControl::GetParentShowHint, &TControl::SetParentShowHint>(u"ParentShowHint", true);
}

TPropInfo ShowHint() {
    return Property<&TControl::GetShowHint, &TControl::SetShowHint>(u"ShowHint")
        .StoredWhen<&TControl::ShowHintStored>();
}

TPropInfo Text() {
    return Property<&TControl::GetText, &TControl::SetText>(u"Text").StoredWhen<&TControl::TextStored>();
}

TPropInfo Visible() {
    return Property<&TControl::GetVisible, &TControl::SetVisible>(u"Visible", true);
}

TPropInfo OnClick() {
    return Event<&TControl::OnClick>(u"OnClick");
}

TPropInfo OnDblClick() {
    return Event<&TControl::OnDblClick>(u"OnDblClick");
}

TPropInfo OnMouseDown() {
    return Event<&TControl::OnMouseDown>(u"OnMouseDown");
}

TPropInfo OnMouseEnter() {
    return Event<&TControl::OnMouseEnter>(u"OnMouseEnter");
}

TPropInfo OnMouseLeave() {
    return Event<&TControl::OnMouseLeave>(u"OnMouseLeave");
}

TPropInfo OnMouseMove() {
    return Event<&TControl::OnMouseMove>(u"OnMouseMove");
}

TPropInfo OnMouseUp() {
    return Event<&TControl::OnMouseUp>(u"OnMouseUp");
}

TPropInfo OnMouseWheel() {
    return Event<&TControl::OnMouseWheel>(u"OnMouseWheel");
}

TPropInfo OnResize() {
    return Event<&TControl::OnResize>(u"OnResize");
}

TPropInfo Ctl3D() {
    return Property<&TWinControl::GetCtl3D, &TWinControl::SetCtl3D>(u"Ctl3D").StoredWhen<&TWinControl::Ctl3DStored>();
}

TPropInfo DoubleBuffered() {
    return Property<&TWinControl::GetDoubleBuffered, &TWinControl::SetDoubleBuffered>(u"DoubleBuffered", false);
}

TPropInfo ParentCtl3D() {
    return Property<&TWinControl::GetParentCtl3D, &TWinControl::SetParentCtl3D>(u"ParentCtl3D", true);
}

TPropInfo TabOrder() {
    return Property<&TWinControl::GetTabOrder, &TWinControl::SetTabOrder>(u"TabOrder", -1);
}

TPropInfo TabStop(bool defaultValue) {
    return Property<&TWinControl::GetTabStop, &TWinControl::SetTabStop>(u"TabStop", defaultValue);
}

TPropInfo OnEnter() {
    return Event<&TWinControl::OnEnter>(u"OnEnter");
}

TPropInfo OnExit() {
    return Event<&TWinControl::OnExit>(u"OnExit");
}

TPropInfo OnKeyDown() {
    return Event<&TWinControl::OnKeyDown>(u"OnKeyDown");
}

TPropInfo OnKeyPress() {
    return Event<&TWinControl::OnKeyPress>(u"OnKeyPress");
}

TPropInfo OnKeyUp() {
    return Event<&TWinControl::OnKeyUp>(u"OnKeyUp");
}

TPropRows MouseEvents() {
    return {OnMouseDown(), OnMouseEnter(), OnMouseLeave(), OnMouseMove(), OnMouseUp()};
}

TPropRows FocusEvents() {
    return {OnEnter(), OnExit()};
}

TPropRows KeyEvents() {
    return {OnKeyDown(), OnKeyPress(), OnKeyUp()};
}

TPropRows InputEvents() {
    return {OnClick(), OnDblClick(), FocusEvents(), KeyEvents(), MouseEvents()};
}

TPropRows ParentLinks(bool parentColor) {
    return {ParentBiDiMode(), ParentColor(parentColor), ParentCtl3D(), ParentFont(), ParentShowHint()};
}

} // namespace controlrows

} // namespace framework
