// The first byte chooses the locale and the field, the second the caret, the third the key; the rest is a text, up to
// the first line end, and behind it a format and then keys as they are typed. Whatever they are, the rules of the date
// field answer, invent no digit and keep the length of a complete text; what reads as a date is written so that it
// reads as the same date again.

#include "datetime/Zordatetimepickeredit_rules.h"
#include "framework/system/exceptions.h"
#include "framework/system/strings.h"
#include "tests/support/datelocales.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace ZOR;

namespace {

void Demand(bool holds, const char* what, const String& text) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: %s\n", what, Utf8Encode(text).c_str());
    std::abort();
}

std::ptrdiff_t Count(const String& text, char16_t unit) {
    return std::count(text.begin(), text.end(), unit);
}

/// Zeros fill gaps, and behind "-" they become the first month or day, or the default year; everything else was typed.
void DemandNoDigitInvented(const String& text, const String& typed) {
    std::ptrdiff_t defaults = 0;
    for (std::size_t at = text.find(u'-'); at != String::npos; at = text.find(u'-', at + 1))
        ++defaults;
    for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
        const std::ptrdiff_t allowed = digit == u'1' || digit == u'9' ? defaults : 0;
        Demand(Count(text, digit) <= Count(typed, digit) + allowed, "a digit that nobody typed", text);
    }
}

void CheckRewriting(const TDateField& field, const String& text, int caret, int key) {
    String rewritten = text;
    const int adjustment = zamienNaDate(rewritten, key, caret, field);
    Demand(adjustment >= -1 && adjustment <= 1, "an adjustment that is none", rewritten);
    DemandNoDigitInvented(rewritten, text);
    const bool isShort = static_cast<std::size_t>(Count(EntryMask(field), u'9')) >= text.size();
    Demand(!isShort || rewritten.size() == EntryMask(field).size(), "not the length of the mask", rewritten);
}

TEntryText NativeEdit(TEntryText state, int key) {
    state.Text.erase(static_cast<std::size_t>(state.SelStart), static_cast<std::size_t>(state.SelLength));
    if ((key >= u'0' && key <= u'9') || key == SeparatorKey)
        state.Text.insert(static_cast<std::size_t>(state.SelStart++), 1, static_cast<char16_t>(key));
    else if (state.SelLength == 0 && key == DeleteKey)
        Delete(state.Text, state.SelStart + 1, 1);
    else if (state.SelLength == 0 && key == BackspaceKey && state.SelStart > 0)
        Delete(state.Text, state.SelStart--, 1);
    state.SelLength = 0;
    return state;
}

/// Keys one after another, with places and selections between them, from a complete text on.
void CheckTyping(const TDateField& field, const String& keys) {
    const std::size_t length = EntryMask(field).size();
    TEntryText state{double_to_text(45351.75, field), 0, 0};
    for (const char16_t unit : keys) {
        const int size = static_cast<int>(state.Text.size());
        if (unit >= 0x100) {
            state.SelStart = unit % (size + 1);
            state.SelLength = unit / 64 % (size - state.SelStart + 1);
            continue;
        }
        constexpr int others[] = {SeparatorKey, DeleteKey, BackspaceKey};
        const int choice = unit % 13;
        const int key = choice < 10 ? u'0' + choice : others[choice - 10];
        const TEntryText after = NativeEdit(state, key);
        const TEntryText result = RewriteTypedDate(state, after, key, field);
        Demand(result.Text.empty() || result.Text.size() == length, "a text that lost its length", result.Text);
        Demand(result.SelStart >= 0 && result.SelStart <= static_cast<int>(result.Text.size()), "a caret outside",
               result.Text);
        DemandNoDigitInvented(result.Text, state.Text + after.Text);
        state = result;
    }
}

void CheckReading(const TFormatSettings& settings, const String& text) {
    TDateTime value = 0;
    if (TryStrToDateTime(text, value, settings)) {
        const String written = DateTimeToStr(value, settings);
        TDateTime again = 0;
        Demand(TryStrToDateTime(written, again, settings), "does not read back", written);
        Demand(DateTimeToStr(again, settings) == written, "is another date", written);
    }
    TryStrToTime(text, value, settings);
}

void CheckField(const TDateField& field, const String& text) {
    CompletedOnExit(text, field);
    AcceptsCharacter(u'5', {text, static_cast<int>(text.size()), 0}, false, field);
    const TDateCheck check = sprawdz_combosa(text, field);
    if (!check.Valid)
        return;
    const String shown = double_to_text(check.Value, field);
    const TDateCheck again = sprawdz_combosa(shown, field);
    Demand(again.Valid && double_to_text(again.Value, field) == shown, "is not accepted again", shown);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3)
        return 0;
    static const std::vector<TFormatSettings> locales = datelocales::All();
    const TFormatSettings& locale = locales[data[0] % 4];
    TDateField field{EntrySettings(locale), data[0] & 4 ? dfLong : dfShort, static_cast<TDateTimeView>(data[0] / 8 % 3),
                     0};
    const String rest = Utf8Decode({reinterpret_cast<const char*>(data) + 3, size - 3});
    const std::size_t textEnd = std::min(rest.find(u'\n'), rest.size());
    const String text = rest.substr(0, textEnd);
    const String tail = rest.substr(std::min(textEnd + 1, rest.size()));

    CheckReading(locale, text);
    CheckField(field, text);
    FormatDateTime(tail, 45351.75, locale);
    field.View = dtvDay;
    CheckRewriting(field, text, data[1], data[2]);
    CheckTyping(field, tail);

    // Formats and limits of any kind, which only have to do no harm.
    TFormatSettings odd = locale;
    odd.ShortDateFormat = FromSystemFormat(tail, locale.TimeSeparator);
    TDateField oddField{odd, field.Format, dtvDay, data[1] % 20};
    String rewritten = text;
    zamienNaDate(rewritten, data[2], data[1], oddField);
    sprawdz_combosa(double_to_text(45351.75, oddField), oddField);
    MarkedPart(data[1], 45351.75, oddField);
    oddField.Settings = EntrySettings(odd);
    oddField.MaxLength = 0;
    CheckField(oddField, double_to_text(45351.75, oddField));
    return 0;
}
