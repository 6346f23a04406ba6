#pragma once

// The choices that virtual trees and their headers offer. Sets of them are published; forms name the elements.

#include "framework/system/published.h"
#include "framework/vtree/virtualnode_rules.h"

namespace framework {

enum TVTPaintOption {
    toHideFocusRect,       ///< no dotted rectangle around the focused row or cell
    toHideSelection,       ///< the selection does not show while another control has the focus
    toHotTrack,            ///< the row under the pointer shows in another colour
    toShowButtons,         ///< buttons that expand and collapse
    toShowHorzGridLines,   ///< a line below each row
    toShowRoot,            ///< nodes of the first level are indented and have buttons, too
    toShowTreeLines,       ///< dotted lines from parents to children
    toShowVertGridLines,   ///< a line behind each column
    toThemeAware,          ///< looks like the system's own trees and headers where the system has themes
    toFullVertGridLines,   ///< lines between columns go on below the last row
    toAlwaysHideSelection, ///< the selection never shows
    toUseBlendedSelection, ///< the selection shines through, and texts keep their colour
};
using TVTPaintOptions = Set<TVTPaintOption>;
inline constexpr TVTPaintOptions DefaultPaintOptions{toShowButtons, toShowRoot, toShowTreeLines, toThemeAware};

enum TVTMiscOption {
    toCheckSupport,       ///< nodes with a check type show boxes
    toGridExtensions,     ///< arrow keys go from cell to cell, Home and End to the first and the last one of a row
    toReadOnly,           ///< a person cannot change check states
    toToggleOnDblClick,   ///< a double click expands and collapses
    toVariableNodeHeight, ///< each node's height is measured (OnMeasureItem) before it shows first
};
using TVTMiscOptions = Set<TVTMiscOption>;
inline constexpr TVTMiscOptions DefaultMiscOptions{toToggleOnDblClick};

enum TVTSelectionOption {
    toExtendedFocus,        ///< any column can have the focus, not the main one alone
    toFullRowSelect,        ///< a row is selected by a click anywhere in it, and shows so as a whole
    toMultiSelect,          ///< several nodes can be selected
    toRightClickSelect,     ///< the right button selects, too
    toCenterScrollIntoView, ///< a node that is scrolled to comes to the middle
};
using TVTSelectionOptions = Set<TVTSelectionOption>;

enum TVTAutoOption {
    toAutoScrollOnExpand,      ///< the children of an expanded node come into view
    toAutoSort,                ///< the order follows the header's sort column by itself
    toAutoTristateTracking,    ///< boxes of parents and children follow each other
    toDisableAutoscrollOnFocus ///< a cell that gets the focus is not scrolled to sideways
};
using TVTAutoOptions = Set<TVTAutoOption>;
inline constexpr TVTAutoOptions DefaultAutoOptions{toAutoScrollOnExpand, toAutoTristateTracking};

enum TVTHeaderOption {
    hoAutoResize,     ///< the auto-size column fills what the others leave of the tree's width
    hoColumnResize,   ///< dividers can be dragged
    hoDblClickResize, ///< a double click on a divider fits the column to its texts
    hoDrag,           ///< columns can be dragged to other positions
    hoHotTrack,       ///< the column under the pointer is lit
    hoShowHint,       ///< columns show their hints
    hoShowImages,     ///< check boxes of columns show
    hoShowSortGlyphs, ///< an arrow marks the sort column
    hoVisible,
    hoHeaderClickAutoSort, ///< a click makes a column the sort column or turns its direction round
};
using TVTHeaderOptions = Set<TVTHeaderOption>;
inline constexpr TVTHeaderOptions DefaultHeaderOptions{hoColumnResize, hoDblClickResize, hoDrag, hoShowSortGlyphs};

enum TVTHeaderStyle {
    hsThickButtons, ///< raised by two pixels
    hsFlatButtons,  ///< raised by one
    hsPlates,       ///< raised by one, not pressed in by clicks
};

enum TVTColumnOption {
    coAllowClick,
    coDraggable,
    coEnabled,
    coParentColor, ///< the column's background is the tree's
    coResizable,
    coVisible,
    coAllowFocus, ///< with toExtendedFocus the column can have the focus
};
using TVTColumnOptions = Set<TVTColumnOption>;
inline constexpr TVTColumnOptions DefaultColumnOptions{coAllowClick, coDraggable, coEnabled,   coParentColor,
                                                       coResizable,  coVisible,   coAllowFocus};

enum TVirtualTreeColumnStyle {
    vsText,
    vsOwnerDraw, ///< OnHeaderDraw paints the column's header
};

enum TSortDirection { sdAscending, sdDescending };

enum TVTHintMode {
    hmDefault, ///< the tree's own hint
    hmHint,    ///< what OnGetHint answers for the cell
    hmTooltip, ///< the text of a cell that is cut off
};

enum TVTIncrementalSearch {
    isNone,
    isAll,         ///< all nodes, those of collapsed branches, too, which then expand
    isVisibleOnly, ///< the nodes that show
};

const TEnumInfo& DescribeEnum(TCheckType);
const TEnumInfo& DescribeEnum(TCheckState);
const TEnumInfo& DescribeEnum(TVTPaintOption);
const TEnumInfo& DescribeEnum(TVTMiscOption);
const TEnumInfo& DescribeEnum(TVTSelectionOption);
const TEnumInfo& DescribeEnum(TVTAutoOption);
const TEnumInfo& DescribeEnum(TVTHeaderOption);
const TEnumInfo& DescribeEnum(TVTHeaderStyle);
const TEnumInfo& DescribeEnum(TVTColumnOption);
const TEnumInfo& DescribeEnum(TVirtualTreeColumnStyle);
const TEnumInfo& DescribeEnum(TSortDirection);
const TEnumInfo& DescribeEnum(TVTHintMode);
const TEnumInfo& DescribeEnum(TVTIncrementalSearch);

/// The place of a column in the header's collection.
using TColumnIndex = int;
/// No column: beside all of them, or a tree without columns.
inline constexpr TColumnIndex NoColumn = -1;

/// Which part of a cell a point lies on.
enum THitPosition {
    hiNowhere,        ///< below the last row
    hiOnItem,         ///< somewhere on a row
    hiOnItemButton,   ///< on the button that expands
    hiOnItemCheckbox, ///< on the check box
    hiOnItemIndent,   ///< before the text of the main column
    hiOnItemLabel,    ///< on the text
};
using THitPositions = Set<THitPosition>;

enum TVTHeaderHitPosition { hhiNoWhere, hhiOnColumn, hhiOnCheckbox };
using TVTHeaderHitPositions = Set<TVTHeaderHitPosition>;

} // namespace framework
