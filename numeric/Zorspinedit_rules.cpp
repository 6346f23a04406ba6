#include "numeric/Zorspinedit_rules.h"

#include <algorithm>
#include <limits>

namespace ZOR {

namespace {

constexpr int OpenEndPosition = 2000000000;

int WithinInt(std::int64_t value) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

int Sign(TStepDirection direction) {
    if (direction == TStepDirection::None)
        return 0;
    return direction == TStepDirection::Up ? 1 : -1;
}

} // namespace

bool IsValidSpinChar(char16_t key, bool editorEnabled) {
    const bool isDigit = key >= u'0' && key <= u'9';
    if (!isDigit && key != u'+' && key != u'-' && !IsCommandChar(key))
        return false;
    return editorEnabled || !ChangesText(key);
}

int CheckSpinValue(int value, const TSpinEntry& entry) {
    if (entry.MinValue == entry.MaxValue)
        return value;
    if (value < entry.MinValue)
        return entry.MinValue;
    return value > entry.MaxValue && entry.MaxValue > 0 ? entry.MaxValue : value;
}

TSpinRange SpinRange(const TSpinEntry& entry) {
    return {entry.MinValue, entry.MaxValue == 0 ? OpenEndPosition : entry.MaxValue};
}

int StepSpinValue(int value, TStepDirection direction, const TSpinEntry& entry) {
    const std::int64_t step = std::int64_t{entry.Increment} * Sign(direction);
    return CheckSpinValue(WithinInt(value + step), entry);
}

int PositionBeforeStep(int value, TStepDirection direction) {
    return WithinInt(std::int64_t{value} - Sign(direction));
}

String SpinText(int value, const TSpinEntry& entry) {
    return IntToStr(CheckSpinValue(value, entry));
}

std::optional<String> LeaveSpin(StringView text, const TSpinEntry& entry) {
    const int value = StrToInt(text);
    const bool isMinusZero = value == 0 && text.find(u'-') != StringView::npos;
    if (CheckSpinValue(value, entry) == value && !isMinusZero)
        return std::nullopt;
    return SpinText(value, entry);
}

} // namespace ZOR
