#include "data/Zorvirtualdbgrid_rules.h"

#include "framework/system/decimal.h"
#include "framework/system/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace ZOR {

// Totals

namespace {

constexpr std::int64_t kBillion = 1'000'000'000;
constexpr std::int64_t kFractionOne = kBillion * kBillion;
constexpr int kFractionDigits = 18;
constexpr int kWholeDigits = 27; // that FBillions and FOnes take from a text

/// 10^0 to 10^18.
constexpr std::array<std::int64_t, 19> kPowersOfTen = [] {
    std::array<std::int64_t, 19> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

constexpr std::int64_t PowerOfTen(int exponent) {
    return kPowersOfTen[static_cast<std::size_t>(exponent)];
}

/// `digits` of a text, or zeros behind its end, as a number.
std::int64_t Taken(std::string_view digits, int first, int count) {
    std::int64_t number = 0;
    for (int i = first; i < first + count; ++i)
        number = number * 10 +
                 (i >= 0 && i < static_cast<int>(digits.size()) ? digits[static_cast<std::size_t>(i)] - '0' : 0);
    return number;
}

} // namespace

bool HasTotal(TFieldType type) {
    switch (type) {
    case ftSmallint:
    case ftInteger:
    case ftWord:
    case ftBoolean:
    case ftFloat:
    case ftCurrency:
    case ftBCD:
    case ftLargeint:
    case ftFMTBcd:
    case ftLongWord:
    case ftShortint:
    case ftSingle:
        return true;
    default:
        return false;
    }
}

void TColumnTotal::Add(const TFieldValue& value) {
    TKind kind = value.Kind();
    switch (kind) {
    case TKind::Boolean:
        kind = TKind::Integer;
        AddExact(value.Whole() != 0 ? 1 : 0, 0);
        break;
    case TKind::Integer:
        AddExact(value.Whole(), 0);
        break;
    case TKind::Money:
        AddExact(value.Whole(), Currency::decimals);
        break;
    case TKind::Decimal:
        AddExact(value.Whole(), value.Scale());
        break;
    case TKind::Text:
        kind = TKind::Decimal; // one that is too wide for a number
        AddDigits(value.Units());
        break;
    case TKind::Float:
        AddFloat(value.Floating());
        break;
    default:
        return;
    }
    // What takes in more wins: a float once one was added, then decimals, money and whole numbers.
    const auto rank = [](TKind each) {
        return each == TKind::Float     ? 4
               : each == TKind::Decimal ? 3
               : each == TKind::Money   ? 2
                                        : each == TKind::Integer;
    };
    if (rank(kind) > rank(FKind))
        FKind = kind;
}

void TColumnTotal::AddExact(std::int64_t units, int scale) {
    const bool fits = units >= 0 ? FUnits <= INT64_MAX - units : FUnits >= INT64_MIN - units;
    if (scale != FUnitsScale || !fits) {
        AddUnits(std::exchange(FUnits, 0), FUnitsScale);
        FUnitsScale = scale;
        FScale = std::max(FScale, scale);
    }
    FUnits += units;
}

void TColumnTotal::AddUnits(std::int64_t units, int scale) {
    const std::int64_t one = PowerOfTen(scale);
    const std::int64_t whole = scale == 0 ? units : units / one;
    FBillions += whole / kBillion;
    FOnes += whole % kBillion;
    if (scale > 0)
        FFraction += units % one * PowerOfTen(kFractionDigits - scale);
    Carry();
}

/// The same total without anything to be added up.
TColumnTotal TColumnTotal::Settled() const {
    TColumnTotal same = *this;
    same.FUnits = 0;
    same.AddUnits(FUnits, FUnitsScale);
    return same;
}

void TColumnTotal::AddDigits(StringView digits) {
    TWrittenNumber number;
    if (!TryParseNumber(digits, u'.', number))
        return;
    const int decimals = static_cast<int>(number.Digits.size()) - number.Exponent;
    if (number.Exponent > kWholeDigits) {
        Extended value = 0;
        if (TryMakeFloat(number, value))
            AddFloat(value);
        FKind = TKind::Float;
        return;
    }
    const std::int64_t sign = number.Negative ? -1 : 1;
    const int whole = number.Exponent;
    const std::size_t next = static_cast<std::size_t>(std::max(whole + kFractionDigits, 0));
    const bool roundsUp = whole + kFractionDigits >= 0 && next < number.Digits.size() && number.Digits[next] >= '5';
    FBillions += sign * Taken(number.Digits, whole - kWholeDigits, kWholeDigits - 9);
    FOnes += sign * Taken(number.Digits, whole - 9, 9);
    FFraction += sign * (Taken(number.Digits, whole, kFractionDigits) + (roundsUp ? 1 : 0));
    FScale = std::max(FScale, std::clamp(decimals, 0, kFractionDigits));
    Carry();
}

void TColumnTotal::Carry() {
    constexpr std::int64_t kMost = INT64_MAX / 4;
    FOnes += FFraction / kFractionOne;
    FFraction %= kFractionOne;
    FBillions += FOnes / kBillion;
    FOnes %= kBillion;
    if (FBillions > kMost || FBillions < -kMost) {
        AddFloat(static_cast<Extended>(std::exchange(FBillions, 0)) * kBillion);
        FKind = TKind::Float;
    }
}

void TColumnTotal::AddFloat(Extended value) {
    const Extended sum = FFloat + value;
    const bool isLesser = std::fabs(FFloat) < std::fabs(value);
    const Extended error = isLesser ? value - sum + FFloat : FFloat - sum + value;
    if (std::isfinite(error))
        FFloatError += error;
    FFloat = sum;
}

String TColumnTotal::Digits() const {
    TColumnTotal same = Settled();
    // All parts get the sign of the whole.
    const bool isNegative =
        same.FBillions < 0 || (same.FBillions == 0 && (same.FOnes < 0 || (same.FOnes == 0 && same.FFraction < 0)));
    if (isNegative) {
        same.FBillions = -same.FBillions;
        same.FOnes = -same.FOnes;
        same.FFraction = -same.FFraction;
    }
    if (same.FFraction < 0) {
        same.FFraction += kFractionOne;
        --same.FOnes;
    }
    if (same.FOnes < 0) {
        same.FOnes += kBillion;
        --same.FBillions;
    }
    const auto padded = [](std::int64_t number, int width) {
        const String digits = IntToStr(number);
        return String(static_cast<std::size_t>(std::max(width - static_cast<int>(digits.size()), 0)), u'0') + digits;
    };
    String text = isNegative ? u"-" : u"";
    text += same.FBillions > 0 ? IntToStr(same.FBillions) + padded(same.FOnes, 9) : IntToStr(same.FOnes);
    if (FScale > 0)
        text += u"." + padded(same.FFraction, kFractionDigits).substr(0, static_cast<std::size_t>(FScale));
    return text;
}

Extended TColumnTotal::AsFloat() const {
    const TColumnTotal same = Settled();
    const Extended exact = static_cast<Extended>(same.FBillions) * kBillion + static_cast<Extended>(same.FOnes) +
                           static_cast<Extended>(same.FFraction) / kFractionOne;
    return same.FFloat + (same.FFloatError + exact);
}

TFieldValue TColumnTotal::Value(OleVariant& keeper) const {
    if (IsEmpty())
        return TFieldValue::Null();
    if (FKind == TKind::Float)
        return TFieldValue::Float(static_cast<double>(AsFloat()));
    const String digits = Digits();
    TNumeric number;
    if (FKind == TKind::Decimal) {
        if (TryParseNumeric(StringView(digits), number))
            return TFieldValue::Decimal(number);
    } else {
        String units = digits; // without a point for whole numbers, with four decimals for money
        std::erase(units, u'.');
        if (std::int64_t value = 0; TryStrToInt64(units, value))
            return FKind == TKind::Money ? TFieldValue::Money(Currency::FromUnits(value)) : TFieldValue::Integer(value);
    }
    keeper = OleVariant(TFieldValue::Text(digits));
    return keeper.View();
}

Variant TColumnTotal::AsVariant() const {
    if (IsEmpty())
        return Null();
    if (FKind == TKind::Float)
        return AsFloat();
    OleVariant keeper;
    const TFieldValue value = Value(keeper);
    return value.Kind() == TKind::Text ? Variant(AsFloat()) : value.AsVariant();
}

String TColumnTotal::AsText(const TFormatSettings& settings) const {
    if (IsEmpty())
        return {};
    if (FKind == TKind::Float)
        return VarToStr(AsVariant(), settings);
    String text = Digits();
    std::replace(text.begin(), text.end(), u'.', settings.DecimalSeparator);
    return text;
}

String TColumnTotal::AsToldText(const TFormatSettings& settings) const {
    OleVariant keeper;
    return Value(keeper).Kind() == TKind::Text ? AsText(settings)
           : IsEmpty()                         ? String()
                                               : VarToStr(AsVariant(), settings);
}

// Rows and their keys

bool IsRow(const TRowId& row, const TRowId& wanted) {
    if (row.first != 0)
        return row.first > 0 && row.first == wanted.first;
    return row.second != TGUID() && row.second == wanted.second;
}

TRowIds::TRowIds(const std::vector<TRowId>& wanted) {
    for (const TRowId& each : wanted) {
        if (each.first > 0)
            FNumbers.insert(each.first);
        if (each.second != TGUID())
            FGuids.insert(each.second);
    }
}

bool TRowIds::Contains(const TRowId& row) const {
    return row.first > 0 ? FNumbers.count(row.first) > 0 : row.first == 0 && FGuids.count(row.second) > 0;
}

std::size_t TRowIds::THash::operator()(const TGUID& value) const {
    std::uint64_t halves[2];
    static_assert(sizeof halves == sizeof value);
    std::memcpy(halves, &value, sizeof halves);
    return std::hash<std::uint64_t>()(halves[0] * 0x9E3779B97F4A7C15u ^ halves[1]);
}

std::size_t TRowIds::THash::operator()(const TRowId& value) const {
    return operator()(value.second) * 31 + static_cast<std::size_t>(value.first);
}

void TRowsToFind::Add(const TBookmark& bookmark, const TRowId& key) {
    ++FCount;
    if (FByKey) {
        if (key != TRowId())
            ++FKeys[key];
    } else if (!bookmark.IsEmpty()) {
        FSorted = FSorted && (FBookmarks.empty() || std::is_lteq(FBookmarks.back() <=> bookmark.Value()));
        FBookmarks.push_back(bookmark.Value());
    }
}

bool TRowsToFind::Take(const TBookmark& bookmark, const TRowId& key) {
    if (FCount == 0)
        return false;
    if (FByKey) {
        const auto found = FKeys.find(key);
        if (found == FKeys.end() || found->second == 0)
            return false;
        --found->second;
    } else {
        if (!std::exchange(FSorted, true))
            std::sort(FBookmarks.begin(), FBookmarks.end());
        if (!std::binary_search(FBookmarks.begin(), FBookmarks.end(), bookmark.Value()))
            return false;
    }
    --FCount;
    return true;
}

TColor RowColor(unsigned index, int level) {
    if (index % 2 == 0)
        return 0xFFFFFF;
    const auto part = [level](int base) { return static_cast<TColor>(static_cast<std::uint8_t>(base + 10 * level)); };
    return part(225) | part(228) << 8 | part(234) << 16;
}

TColor LettersOn(TColor ground, TColor letters) {
    constexpr int kLeastContrast = 96; // of 255
    const auto brightness = [](TColor color) {
        const auto part = [color](int shift) { return static_cast<int>(color >> shift & 0xFF); };
        return (299 * part(0) + 587 * part(8) + 114 * part(16)) / 1000;
    };
    return std::abs(brightness(ground) - brightness(letters)) < kLeastContrast ? 0 : letters;
}

// Columns

int ColumnByX(const std::vector<TGridColumn>& columns, int x) {
    const auto found = std::find_if(columns.begin(), columns.end(), [x](const TGridColumn& column) {
        return column.Visible && column.Left + column.Width > x;
    });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

bool MayDragColumn(bool checkMode, TColumnIndex column, TColumnIndex mainColumn) {
    return !checkMode || (column != NoColumn && column != mainColumn);
}

bool MayDropColumn(bool checkMode, TColumnIndex column, int newPosition, TColumnIndex mainColumn) {
    return !checkMode || (column != mainColumn && IndexAfterMove(mainColumn, column, newPosition) == mainColumn);
}

int IndexAfterMove(int index, int from, int to) {
    if (index == from)
        return to;
    if (from < index && index <= to)
        return index - 1;
    return to <= index && index < from ? index + 1 : index;
}

// Footer

TRect FooterBand(const TRect& frame, int height, int footerHeight, bool visible) {
    const int bottom = height - frame.Top;
    if (!visible || frame.Height() <= 0)
        return {frame.Left, bottom, frame.Right, bottom};
    return {frame.Left, bottom - footerHeight, frame.Right, bottom};
}

std::vector<TFooterCell> FooterCells(const std::vector<TFooterColumn>& columns, const TRect& band, int offset,
                                     bool mirrored) {
    std::vector<TFooterCell> cells;
    int start = offset;
    for (const TFooterColumn& column : columns) {
        if (!column.Visible)
            continue;
        if (start >= band.Width())
            break;
        const int end = start + column.Width;
        if (end > 0 && end > start) {
            const int left = mirrored ? band.Right - end : band.Left + start;
            cells.push_back({column.Index, {left, band.Top, left + column.Width, band.Bottom}});
        }
        start = end;
    }
    return cells;
}

TRect FooterTextPlace(TAlignment alignment, TSize text, const TRect& cell, int margin) {
    int left = margin;
    if (alignment == taRightJustify)
        left = cell.Width() - margin - text.Width;
    else if (alignment == taCenter)
        left = (cell.Width() - text.Width) / 2;
    left = std::max(left, margin);
    const int top = (cell.Height() - text.Height) / 2;
    const int right = std::min(left + text.Width, cell.Width() - margin);
    return TRect{left, top, std::max(right, left), top + text.Height}.Offset(cell.Left, cell.Top);
}

} // namespace ZOR
