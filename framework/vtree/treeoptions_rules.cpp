#include "framework/vtree/treeoptions_rules.h"

namespace framework {

const TEnumInfo& DescribeEnum(TVTPaintOption) {
    static const TEnumInfo info{u"TVTPaintOption",
                                {u"toHideFocusRect", u"toHideSelection", u"toHotTrack", u"toShowButtons",
                                 u"toShowHorzGridLines", u"toShowRoot", u"toShowTreeLines", u"toShowVertGridLines",
                                 u"toThemeAware", u"toFullVertGridLines", u"toAlwaysHideSelection",
                                 u"toUseBlendedSelection"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVTMiscOption) {
    static const TEnumInfo info{
        u"TVTMiscOption",
        {u"toCheckSupport", u"toGridExtensions", u"toReadOnly", u"toToggleOnDblClick", u"toVariableNodeHeight"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVTSelectionOption) {
    static const TEnumInfo info{
        u"TVTSelectionOption",
        {u"toExtendedFocus", u"toFullRowSelect", u"toMultiSelect", u"toRightClickSelect", u"toCenterScrollIntoView"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVTAutoOption) {
    static const TEnumInfo info{
        u"TVTAutoOption",
        {u"toAutoScrollOnExpand", u"toAutoSort", u"toAutoTristateTracking", u"toDisableAutoscrollOnFocus"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVTHeaderOption) {
    static const TEnumInfo info{u"TVTHeaderOption",
                                {u"hoAutoResize", u"hoColumnResize", u"hoDblClickResize", u"hoDrag", u"hoHotTrack",
                                 u"hoShowHint", u"hoShowImages", u"hoShowSortGlyphs", u"hoVisible",
                                 u"hoHeaderClickAutoSort"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVTHeaderStyle) {
    static const TEnumInfo info{u"TVTHeaderStyle", {u"hsThickButtons", u"hsFlatButtons", u"hsPlates"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVTColumnOption) {
    static const TEnumInfo info{u"TVTColumnOption",
                                {u"coAllowClick", u"coDraggable", u"coEnabled", u"coParentColor", u"coResizable",
                                 u"coVisible", u"coAllowFocus"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVirtualTreeColumnStyle) {
    static const TEnumInfo info{u"TVirtualTreeColumnStyle", {u"vsText", u"vsOwnerDraw"}};
    return info;
}

const TEnumInfo& DescribeEnum(TSortDirection) {
    static const TEnumInfo info{u"TSortDirection", {u"sdAscending", u"sdDescending"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVTHintMode) {
    static const TEnumInfo info{u"TVTHintMode", {u"hmDefault", u"hmHint", u"hmTooltip"}};
    return info;
}

const TEnumInfo& DescribeEnum(TVTIncrementalSearch) {
    static const TEnumInfo info{u"TVTIncrementalSearch", {u"isNone", u"isAll", u"isVisibleOnly"}};
    return info;
}

const TEnumInfo& DescribeEnum(TCheckType) {
    static const TEnumInfo info{u"TCheckType", {u"ctNone", u"ctTriStateCheckBox", u"ctCheckBox", u"ctRadioButton"}};
    return info;
}

const TEnumInfo& DescribeEnum(TCheckState) {
    static const TEnumInfo info{u"TCheckState",
                                {u"csUncheckedNormal", u"csUncheckedPressed", u"csCheckedNormal", u"csCheckedPressed",
                                 u"csMixedNormal", u"csMixedPressed"}};
    return info;
}

} // namespace framework
