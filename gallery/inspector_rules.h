#pragma once

// What the inspector shows and how its rows are written back: everything but the window. The rows come from the
// published tables alone, so every class that publishes something can be inspected.

#include "framework/system/collections.h"
#include "framework/system/components.h"

#include <map>
#include <optional>
#include <set>

namespace gallery {
using namespace framework;

/// How a person changes the value of a row.
enum class TRowEditor {
    None,         ///< not at all: read-only, or a heading
    Text,         ///< by typing
    Choice,       ///< from a list
    TextOrChoice, ///< either way
    Lines,        ///< in a window that shows a text of several lines
    Items,        ///< in a window that shows the items of a collection
};

/// One line of the inspector: a property, an element of a set, or the heading of the events.
struct TInspectorRow {
    String Name;
    String Path; ///< "BoundLabel.Font.Size": tells the row from all others, also after it was built anew
    int Level = 0;
    bool Expandable = false;
    bool Expanded = false;
    TPersistent* Object = nullptr;       ///< whose property it is; null for a heading
    const TPropInfo* Property = nullptr; ///< null for a heading
    int Element = -1;                    ///< ordinal of the element that a row below a set stands for
};

/// The value as the row shows it.
String RowText(const TInspectorRow& row);
/// What an edit begins with: the value, or the usual name of a handler where an event has none and may get a new one.
String ProposedText(const TInspectorRow& row);
TRowEditor RowEditor(const TInspectorRow& row);
/// The whole of a text, or of a list with CR LF between its lines, and behind the last one if that is empty. Nothing
/// for rows that hold no text that can be written.
std::optional<String> RowLines(const TInspectorRow& row);
/// Null for a row that holds no collection that a form keeps.
TCollection* RowItems(const TInspectorRow& row);
/// The texts to choose from, in the order in which they are offered: names of an enumeration, components that fit a
/// reference, methods that fit an event.
std::vector<String> RowChoices(const TInspectorRow& row);
/// Takes the text of a person for the value, that of a list line by line. Raises what the property raises:
/// EPropertyError, EConvertError, ...
void WriteRow(const TInspectorRow& row, StringView text);
/// True when the value differs from the one that the table gives as default and a form would keep it; such a value is
/// shown bold.
bool RowModified(const TInspectorRow& row);
/// The colour of a row that holds one.
std::optional<TColor> RowColor(const TInspectorRow& row);
/// The choice after the present one, going round; what a double click writes. Empty when there is nothing to choose.
String NextChoice(const TInspectorRow& row);

/// The row of a property path such as "BoundLabel.Layout" or "Anchors.akLeft"; nothing when there is no such property.
std::optional<TInspectorRow> FindRow(TPersistent& object, StringView path);

/// The rows of one object in alphabetical order, its events under a heading of their own. What was opened stays open,
/// by its path, also when another object is shown.
class TInspectorTree {
public:
    void SetRoot(TPersistent* root);
    TPersistent* Root() const { return FRoot; }
    const std::vector<TInspectorRow>& Rows() const { return FRows; }
    /// Opens or closes a row; false when it cannot be opened.
    bool Toggle(std::size_t row);
    bool SetExpanded(std::size_t row, bool expanded);
    /// Builds the rows anew: sub-objects may have come or gone. True when the lines are not the same as before.
    bool Rebuild();
    /// The row of that path; nothing when it is not there or lies in something closed.
    std::optional<std::size_t> IndexOf(StringView path) const;

private:
    void AddObject(TPersistent& object, const String& prefix, int level);
    void AddProperty(TPersistent& object, const TPropInfo& property, const String& prefix, int level);
    void AddElements(const TInspectorRow& set);

    TPersistent* FRoot = nullptr;
    std::vector<TInspectorRow> FRows;
    std::set<String> FOpen; // paths
};

/// "1 line", "2 lines".
String CountText(std::size_t count, StringView what);

/// The heading above the events.
inline constexpr char16_t EventsHeading[] = u"Events";
/// The path of the heading under which a row of that path stands if it is an event.
String EventsPath(StringView path);

} // namespace gallery
