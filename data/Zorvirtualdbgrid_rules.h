#pragma once

// What the virtual data grid decides without a window: the totals of its columns, which row has which key, where the
// cells of the footer and their texts lie, the colours of the rows, and which columns may be dragged where.

#include "framework/db/bookmarks.h"
#include "framework/vtree/treeoptions_rules.h"

#include <array>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace ZOR {
using namespace framework;

// Totals

/// Whether columns that show fields of this type have a total. Truth values have one: how many are true.
bool HasTotal(TFieldType type);

/// The sum of the values of one column. Whole numbers, money and decimal numbers are summed up to their last digit,
/// whatever they sum up to; decimals behind the eighteenth are rounded away. Floats are summed with the error of each
/// step kept and added at the end.
class TColumnTotal {
public:
    /// Null adds nothing, true adds 1.
    void Add(const TFieldValue& value);
    /// False until a value came that was not Null.
    bool IsEmpty() const { return FKind == TKind::Unassigned; }
    /// The total as a field keeps it; digits that fit in no number come as a text, which `keeper` holds.
    TFieldValue Value(OleVariant& keeper) const;
    /// The same as programs add values up: whole numbers beyond 64 bits become floats, and so do decimals that money
    /// does not hold. Null while nothing was added.
    Variant AsVariant() const;
    /// All digits, as a person reads them in plain: the decimals of the values, no grouping.
    String AsText(const TFormatSettings& settings = FormatSettings()) const;
    /// The Variant as a text, and all digits where no Variant has them.
    String AsToldText(const TFormatSettings& settings = FormatSettings()) const;

private:
    using TKind = TFieldValue::TKind;

    void AddExact(std::int64_t units, int scale);
    void AddUnits(std::int64_t units, int scale);
    TColumnTotal Settled() const;
    void AddDigits(StringView digits);
    void AddFloat(Extended value);
    void Carry();
    /// Sign, whole digits and FScale decimals behind a point.
    String Digits() const;
    Extended AsFloat() const;

    // What came last is summed up as it is, as long as it fits and its scale stays; the rest of the exact part is
    // FBillions * 10^9 + FOnes + FFraction * 10^-18, whose signs may differ until the digits are asked for.
    std::int64_t FUnits = 0;
    int FUnitsScale = 0;
    std::int64_t FBillions = 0;
    std::int64_t FOnes = 0;
    std::int64_t FFraction = 0;
    Extended FFloat = 0;
    Extended FFloatError = 0;
    int FScale = 0; // the most decimals that a value had
    TKind FKind = TKind::Unassigned;
};

// Rows and their keys

/// What identifies a row to the program: a number above 0, or where that is 0 the GUID. A GUID of nothing but zeros is
/// none.
using TRowId = std::pair<int, TGUID>;

/// Whether a row with the first key is one that a program means by the second one. Rows with a negative number have no
/// key.
bool IsRow(const TRowId& row, const TRowId& wanted);

/// Any number of wanted keys, each found at once.
class TRowIds {
public:
    explicit TRowIds(const std::vector<TRowId>& wanted);
    /// Whether it is the row of one of them.
    bool Contains(const TRowId& row) const;

    struct THash {
        std::size_t operator()(const TGUID& value) const;
        std::size_t operator()(const TRowId& value) const;
    };

private:
    std::unordered_set<int> FNumbers;
    std::unordered_set<TGUID, THash> FGuids;
};

/// Rows that are to be found again after all were made anew: by their bookmarks, as long as these lead to the records
/// that they led to, and otherwise by their keys. Each is found once, and without either not at all.
class TRowsToFind {
public:
    explicit TRowsToFind(bool byKey) : FByKey(byKey) {}
    /// Quickest in the order of the bookmarks.
    void Add(const TBookmark& bookmark, const TRowId& key);
    /// Whether this is one of them; then it is no more.
    bool Take(const TBookmark& bookmark, const TRowId& key);
    /// Of those that have not been found.
    std::size_t Count() const { return FCount; }

private:
    bool FByKey;
    bool FSorted = true;
    std::size_t FCount = 0;
    std::vector<OleVariant> FBookmarks;
    std::unordered_map<TRowId, int, TRowIds::THash> FKeys;
};

/// The background of a row by its place among its siblings: white, and for each second one a colour that is the lighter
/// the deeper the row lies, each part of it modulo 256.
TColor RowColor(unsigned index, int level);
/// Letters of a colour scheme on that ground, which is none of the scheme's: black where they would hardly show.
TColor LettersOn(TColor ground, TColor letters);

// Columns

struct TGridColumn {
    int Left = 0; ///< pixels, with the scrolled ones counted
    int Width = 0;
    bool Visible = true;
};
/// The first of the columns, in the order of their indexes, that ends behind `x`; -1 when none does. Columns that were
/// moved lie in another order, so it need not be the one under x. Hidden ones are passed over.
int ColumnByX(const std::vector<TGridColumn>& columns, int x);

/// Whether a column may be dragged at all: in check mode not the column of the boxes, and nothing beside the columns.
bool MayDragColumn(bool checkMode, TColumnIndex column, TColumnIndex mainColumn);
/// Whether a column that was dragged goes to the new position; in check mode the column of the boxes keeps its place.
bool MayDropColumn(bool checkMode, TColumnIndex column, int newPosition, TColumnIndex mainColumn);
/// Where the item at `index` is after the item at `from` has been moved to `to`.
int IndexAfterMove(int index, int from, int to);

// Footer

/// The footer's band at the bottom of a control that is `height` pixels high, inside of the edges of `frame`. Without
/// height when it does not show, or `frame` has none.
TRect FooterBand(const TRect& frame, int height, int footerHeight, bool visible);

struct TFooterColumn {
    TColumnIndex Index = NoColumn;
    int Width = 0;
    bool Visible = true;
};
struct TFooterCell {
    TColumnIndex Column = NoColumn;
    TRect Place;
};
/// The cells that show in the band, for columns in the order of their positions. The first one begins `offset` pixels
/// from the near edge of the band, at its right when `mirrored`.
std::vector<TFooterCell> FooterCells(const std::vector<TFooterColumn>& columns, const TRect& band, int offset,
                                     bool mirrored);

/// Where a text of this size goes in a cell: not nearer to its sides than `margin`, and cut off at the right one.
TRect FooterTextPlace(TAlignment alignment, TSize text, const TRect& cell, int margin);

} // namespace ZOR
