#pragma once

// What a form designer decides without a window: the grips of a selection, where things land on the grid, names for new
// components, the steps that can be undone, and pieces of text forms for the clipboard.

#include "framework/system/types.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace gallery {
using namespace framework;

inline constexpr int DesignGrid = 8;     ///< pixels
inline constexpr int DesignGripSize = 7; ///< pixels, odd, so that a grip sits on the middle of an edge
inline constexpr int LeastDesignSize = 4;

/// The edges that a grip moves.
struct TGrip {
    int Horizontal = 0; ///< -1 the left edge, 1 the right one, 0 none
    int Vertical = 0;   ///< -1 the upper edge, 1 the lower one, 0 none
    friend bool operator==(const TGrip&, const TGrip&) = default;
};

/// The eight grips from the upper left one on, row by row.
const std::vector<TGrip>& DesignGrips();
/// The square of a grip on the outline of a component.
TRect GripRect(const TRect& component, TGrip grip);
std::optional<TGrip> GripAt(const TRect& component, TPoint point);

/// The frame that a drag from one point to another spans, in whichever direction.
TRect FrameBetween(TPoint from, TPoint to);

/// The nearest place on the grid.
int SnappedToGrid(int value);
/// How far a drag moves a component: until its left upper corner is on the grid, along each axis that was dragged at
/// all.
TPoint SnappedMove(const TRect& component, TPoint drag);
/// The component with the edges of a grip dragged to the grid; never smaller than LeastDesignSize.
TRect SnappedSize(const TRect& component, TGrip grip, TPoint drag);

/// "Edit1" for a TEdit, "ZOREdit2" for a second TZOREdit. Letter case of `taken` does not count.
String FreeComponentName(StringView className, const std::set<String>& taken);

/// The texts of a form, step by step.
class TDesignHistory {
public:
    static constexpr std::size_t MostSteps = 200;

    /// Forgets everything and begins with this text.
    void Begin(std::string text);
    /// The form has become this text. What was undone is forgotten; the same text is no step.
    void Add(std::string text);
    bool CanUndo() const { return FPresent > 0; }
    bool CanRedo() const { return FPresent + 1 < FTexts.size(); }
    /// The text a step back or forth; the present one at the end of the way.
    const std::string& Undo();
    const std::string& Redo();
    const std::string& Present() const { return FTexts[FPresent]; }

private:
    std::vector<std::string> FTexts{std::string()};
    std::size_t FPresent = 0;
};

// Pieces of text forms. All work on forms as WriteTextForm lays them out, with lines that end in LF.

/// The text of the objects with these names, those inside them included, as it is put on the clipboard. Names that
/// stand inside another one of them, and unknown ones, are left out.
std::string ObjectTexts(const std::string& form, const std::vector<std::string>& names);

struct TPastedObjects {
    std::string Form;
    std::vector<std::string> Names; ///< the outermost objects, as they are called now
};
/// The form with `objects`, a text that ObjectTexts gave, as the last children of the object `parent`, or of the form
/// where there is none of that name. Names that are taken already become free ones, in references among the objects as
/// well; the objects then move a step down to the right, so that they do not hide the old ones.
TPastedObjects WithObjects(const std::string& form, const std::string& objects, const std::string& parent);

} // namespace gallery
