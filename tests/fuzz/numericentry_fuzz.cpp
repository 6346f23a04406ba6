// The bytes set up a numeric field and then act on it: keys, selections, the native Delete, pastes, texts that slip in
// past the keys, values from the program, steps, leaving. Whatever happens, the selection lies within the text, the
// text can be read, keys do not lengthen decimals that are full, and a field that was left shows a value in its range.

#include "framework/system/exceptions.h"
#include "numeric/Zorspinedit_rules.h"
#include "numeric/Zorspinfloatedit_rules.h"
#include "tests/support/entrystory.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>

using namespace ZOR;

namespace {

void Demand(bool holds, const char* what, const TEntryState& state) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: \"%s\", selected %d at %d\n", what, Utf8Encode(state.Text).c_str(),
                 state.Selection.Length, state.Selection.Start);
    std::abort();
}

class TBytes {
public:
    TBytes(const std::uint8_t* data, std::size_t size) : FNext(data), FEnd(data + size) {}

    bool AtEnd() const { return FNext == FEnd; }
    unsigned Byte() { return AtEnd() ? 0 : *FNext++; }
    unsigned Below(unsigned count) { return Byte() % count; }
    bool Flag() { return Byte() % 2 != 0; }

    template <typename T, std::size_t Count>
    T OneOf(const T (&values)[Count]) {
        return values[Below(Count)];
    }

    template <typename T>
    T Raw() {
        T value{};
        for (std::size_t i = 0; i < sizeof value; ++i)
            reinterpret_cast<std::uint8_t*>(&value)[i] = static_cast<std::uint8_t>(Byte());
        return value;
    }

    String Text() {
        constexpr char16_t units[] = {u'0', u'1', u'2', u'5', u'9', u'5', u',', u'.', u':',
                                      u'-', u'+', u'e', u'E', u' ', u'N', u'x', u'0', u'\u0661'};
        String text;
        for (unsigned length = Below(24); length > 0; --length)
            text += OneOf(units);
        return text;
    }

    Extended Number() {
        using Limits = std::numeric_limits<Extended>;
        constexpr Extended known[] = {0,
                                      1,
                                      -1,
                                      0.005L,
                                      12.345L,
                                      59,
                                      60,
                                      -0.0L,
                                      599999,
                                      600000,
                                      1e17L,
                                      1e18L,
                                      -1e19L,
                                      1e300L,
                                      Limits::denorm_min(),
                                      Limits::max(),
                                      Limits::infinity(),
                                      Limits::quiet_NaN()};
        const unsigned which = Below(std::size(known) + 4);
        if (which < std::size(known))
            return known[which];
        return which % 2 != 0 ? static_cast<Extended>(Raw<double>()) : static_cast<Extended>(Raw<std::int32_t>()) / 100;
    }

private:
    const std::uint8_t* FNext;
    const std::uint8_t* FEnd;
};

struct TField {
    TSpinFloatEntry Entry;
    TFormatSettings Settings;
    bool IsFloatEdit = false;
    /// The range is off, or wide enough that every bound has a shown value beside it.
    bool RangeIsSane = false;
    TSimulatedEdit Edit;

    TNumberReading Read() const {
        return IsFloatEdit ? ReadNumber(Edit.State.Text, Settings) : ReadSpinFloat(Edit.State.Text, Entry, Settings);
    }
};

void SetUp(TField& field, TBytes& bytes) {
    struct TRange {
        Extended Min, Max;
        bool IsSane;
    };
    constexpr TRange ranges[] = {{0, 0, true},    {0, 100, true},          {-100, 100, true},     {10, 0, false},
                                 {10, 5, false},  {1.005L, 90.005L, true}, {-1e18L, 1e18L, true}, {5, 5, true},
                                 {-5, -1, false}, {1.001L, 1.002L, false}};
    constexpr int decimals[] = {2, 0, 1, 3, 18, -1, 40};
    constexpr float increments[] = {1, 0.01F, 0.1F, 15, 0, -1, 0.25F, 3e38F, 1e-40F};
    constexpr char16_t timeSeparators[] = {u':', u'.', u'\0'};
    field.IsFloatEdit = bytes.Flag();
    field.Entry.Tryb = field.IsFloatEdit ? tStandard : static_cast<TTryb>(bytes.Below(3));
    const TRange range = bytes.OneOf(ranges);
    field.Entry.MinValue = range.Min;
    field.Entry.MaxValue = range.Max;
    field.Entry.Decimals = bytes.OneOf(decimals);
    // A minute, or a whole number, lies within every sane range; 18 decimals of 1e18 do not fit into 18 digits.
    field.RangeIsSane = range.IsSane;
    field.Entry.Increment = bytes.OneOf(increments);
    const unsigned flags = bytes.Byte();
    field.Entry.SeparatorFollowsLocale = (flags & 1) != 0;
    field.Entry.Zaokraglaj = (flags & 2) != 0;
    field.Entry.EditorEnabled = (flags & 4) == 0;
    field.Entry.ReadOnly = (flags & 8) != 0;
    field.Settings = (flags & 16) != 0 ? American : Polish;
    field.Settings.TimeSeparator = bytes.OneOf(timeSeparators);
    field.Edit.LastValidText = bytes.Flag() ? bytes.Text() : String();
    field.Edit.Judge = [&field](const TEntryState& state, const TEntryMemory& memory) {
        return field.IsFloatEdit ? FloatChange(state, memory, field.Entry, field.Settings)
                                 : SpinFloatChange(state, memory, field.Entry, field.Settings);
    };
    field.Edit.SetText(bytes.Text());
}

/// How many units stand behind the separator; -1 without one.
int DecimalsOf(const String& text, char16_t separator) {
    const std::size_t place = text.find(separator);
    return place == String::npos ? -1 : static_cast<int>(text.size() - place) - 1;
}

void PressKey(TField& field, TBytes& bytes) {
    constexpr char16_t keys[] = {u'0', u'1', u'4', u'5', u'9', u'\b', u',',
                                 u'.', u':', u'-', u'+', u'e', u'x',  u'\x16'};
    TSimulatedEdit& edit = field.Edit;
    const TEntryState before = edit.State;
    const char16_t key = bytes.OneOf(keys);
    const TKeyAction action = field.IsFloatEdit ? FloatKeyPress(key, edit.State, field.Entry, field.Settings)
                                                : SpinFloatKeyPress(key, edit.State, field.Entry, field.Settings);
    if (field.Entry.ReadOnly) {
        // The native edit refuses what gets that far.
        Demand(!action.Text && !action.Selection, "writes into a read-only field", edit.State);
        return;
    }
    edit.Repaired = false;
    edit.Apply(action);
    if (!field.Entry.EditorEnabled)
        Demand(edit.State == before, "types into a disabled editor", edit.State);
    const char16_t separator = field.Settings.DecimalSeparator;
    const int had = DecimalsOf(before.Text, separator);
    const bool rulesSeeIt = OwnSeparator(field.Entry, field.Settings) == separator;
    if (field.Entry.Tryb == tStandard && rulesSeeIt && had >= 0 && !edit.Repaired)
        Demand(DecimalsOf(edit.State.Text, separator) <= std::max(had, UsedDecimals(field.Entry.Decimals)),
               "too many decimals", edit.State);
}

void PressCaretKey(TField& field, TBytes& bytes) {
    const auto key = static_cast<TCaretKey>(bytes.Below(3));
    TSimulatedEdit& edit = field.Edit;
    const std::optional<TKeyAction> action =
        field.IsFloatEdit ? std::nullopt : SpinFloatKeyDown(key, edit.State, field.Entry, field.Settings);
    if (action)
        edit.Apply(*action);
    else if (key == TCaretKey::Delete && !field.Entry.ReadOnly)
        edit.Erase(1);
}

void Paste(TField& field, const String& clipboard) {
    field.Edit.SetText(field.IsFloatEdit ? PasteFloat(clipboard, field.Settings)
                                         : PasteSpinFloat(clipboard, field.Entry, field.Settings));
}

void WriteValue(TField& field, Extended value) {
    if (field.IsFloatEdit) {
        if (const auto text = WriteFloatValue(field.Edit.State.Text, value, field.Entry, field.Settings))
            field.Edit.SetText(*text);
        return;
    }
    const TSpinFloatWrite write = WriteSpinFloat(field.Edit.State.Text, value, field.Entry, field.Settings);
    if (write.Text)
        field.Edit.SetText(*write.Text);
}

void Step(TField& field, int steps) {
    if (field.IsFloatEdit)
        return;
    const TEntryState after = StepSpinFloat(field.Edit.State, steps, field.Entry, field.Settings);
    const bool isStepped = after != field.Edit.State;
    field.Edit.SetText(after.Text);
    field.Edit.Select(after.Selection);
    Demand(field.Edit.State == after, "a step is repaired", after);
    if (isStepped && field.RangeIsSane)
        Demand(CheckSpinFloatValueEx(field.Read().Value, field.Entry) == 0, "steps out of the range", after);
}

/// The text that stands in a field after it was left.
void CheckLeft(const TField& field) {
    const TEntryState& state = field.Edit.State;
    const TNumberReading reading = field.Read();
    Demand(reading.Kind == TNumberText::Number || reading.Kind == TNumberText::NotFinite, "leaves no number", state);
    Demand(reading.Value != 0 || state.Text.front() != u'-', "shows a zero with a minus", state);
    const bool isPlain = reading.Kind == TNumberText::Number && state.Text.find(u'E') == String::npos;
    const char16_t separator = TrybSeparator(field.Entry.Tryb, field.Settings);
    const int expected = field.Entry.Tryb == tStandard ? UsedDecimals(field.Entry.Decimals) : 2;
    if (isPlain)
        Demand(std::max(DecimalsOf(state.Text, separator), 0) == expected, "leaves other decimals", state);
    if (!field.RangeIsSane || std::isnan(reading.Value))
        return;
    if (!field.IsFloatEdit) {
        Demand(CheckSpinFloatValueEx(reading.Value, field.Entry) == 0, "leaves the range", state);
    } else if (field.Entry.MinValue != field.Entry.MaxValue) {
        const Extended value = ReadFloatValue(state.Text, field.Entry, field.Settings);
        Demand(value >= field.Entry.MinValue && value <= field.Entry.MaxValue, "leaves the range", state);
    }
}

void Leave(TField& field) {
    TSimulatedEdit& edit = field.Edit;
    std::optional<String> text;
    bool isAccepted = true;
    if (field.IsFloatEdit) {
        text = LeaveFloat(edit.State.Text, field.Entry, field.Settings);
    } else {
        TSpinFloatLeave leave = LeaveSpinFloat(edit.State.Text, field.Entry, field.Settings);
        text = std::move(leave.Text);
        isAccepted = leave.Accepted;
    }
    if (text)
        edit.SetText(*text);
    Demand(!text || edit.State.Text == *text, "what leaving writes is repaired", edit.State);
    if (!isAccepted)
        return;
    CheckLeft(field);
    if (!field.RangeIsSane)
        return;
    const bool staysSame = field.IsFloatEdit ? !LeaveFloat(edit.State.Text, field.Entry, field.Settings)
                                             : LeaveSpinFloat(edit.State.Text, field.Entry, field.Settings).Accepted;
    Demand(staysSame, "cannot be left again", edit.State);
}

void Act(TField& field, TBytes& bytes) {
    switch (bytes.Below(12)) {
    case 0: {
        const auto start = static_cast<int>(bytes.Below(30));
        field.Edit.Select({start, static_cast<int>(bytes.Below(6))});
        break;
    }
    case 1:
        field.Edit.Select({0, static_cast<int>(field.Edit.State.Text.size())});
        break;
    case 2:
        PressCaretKey(field, bytes);
        break;
    case 3:
        Paste(field, bytes.Text());
        break;
    case 4:
        field.Edit.ReplaceSelection(bytes.Text());
        break;
    case 5:
        WriteValue(field, bytes.Number());
        break;
    case 6:
        Step(field, static_cast<int>(bytes.Below(7)) - 3);
        break;
    case 7:
        Leave(field);
        break;
    default:
        PressKey(field, bytes);
    }
}

void CheckField(const TField& field) {
    const TEntryState& state = field.Edit.State;
    Demand(field.Edit.RepairsSettle, "a repair needs repair", state);
    Demand(SelectionWithin(state.Selection, state.Text.size()) == state.Selection, "selects beyond the text", state);
    Demand(field.Read().Kind != TNumberText::Unreadable, "cannot be read", state);
    const auto count = [&](char16_t unit) { return std::count(state.Text.begin(), state.Text.end(), unit); };
    Demand(count(u',') <= 1 && count(u'.') <= 1 && count(u':') <= 1, "has a separator twice", state);
}

void SpinFarAndWide(TBytes& bytes) {
    const TSpinEntry entry{bytes.Raw<int>(), bytes.Raw<int>(), bytes.Raw<int>()};
    const int value = bytes.Raw<int>();
    const bool hasRange = entry.MinValue < entry.MaxValue && entry.MaxValue > 0;
    for (const TStepDirection direction : {TStepDirection::None, TStepDirection::Up, TStepDirection::Down}) {
        const int stepped = StepSpinValue(value, direction, entry);
        const TEntryState state{IntToStr(stepped), {}};
        Demand(!hasRange || (stepped >= entry.MinValue && stepped <= entry.MaxValue), "leaves the range", state);
        PositionBeforeStep(stepped, direction);
        Demand(!hasRange || !LeaveSpin(state.Text, entry), "cannot be left as it is", state);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TBytes bytes(data, size);
    if (bytes.Below(16) == 0) {
        SpinFarAndWide(bytes);
        return 0;
    }
    TField field;
    SetUp(field, bytes);
    CheckField(field);
    while (!bytes.AtEnd()) {
        Act(field, bytes);
        CheckField(field);
    }
    Leave(field);
    CheckField(field);
    return 0;
}
