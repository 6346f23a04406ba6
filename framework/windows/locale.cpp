#include "framework/windows/locale.h"

#include "framework/graphics/win32.h"
#include "framework/system/dates.h"

namespace framework {

namespace {

String LocaleText(LCTYPE type, const String& fallback) {
    wchar_t buffer[128];
    const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, type, buffer, ARRAYSIZE(buffer));
    return length > 0 ? FromWide(buffer, static_cast<std::size_t>(length) - 1) : fallback;
}

char16_t LocaleChar(LCTYPE type, char16_t fallback) {
    const String text = LocaleText(type, {});
    return text.empty() ? fallback : text[0];
}

int LocaleNumber(LCTYPE type, int fallback) {
    DWORD value = 0;
    return GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, type | LOCALE_RETURN_NUMBER, reinterpret_cast<wchar_t*>(&value),
                           sizeof(value) / sizeof(wchar_t)) > 0
               ? static_cast<int>(value)
               : fallback;
}

/// The first character of a system format that is neither one of its letters nor quoted.
char16_t SeparatorIn(const String& systemFormat, StringView letters, char16_t fallback) {
    bool isQuoted = false;
    for (const char16_t unit : systemFormat) {
        if (unit == u'\'')
            isQuoted = !isQuoted;
        else if (!isQuoted && letters.find(unit) == StringView::npos)
            return unit;
    }
    return fallback;
}

void ReadDateFormats(TFormatSettings& settings) {
    const String shortDate = LocaleText(LOCALE_SSHORTDATE, settings.ShortDateFormat);
    settings.DateSeparator = SeparatorIn(shortDate, u"dMyg", settings.DateSeparator);
    settings.ShortDateFormat = FromSystemFormat(shortDate);
    settings.LongDateFormat = FromSystemFormat(LocaleText(LOCALE_SLONGDATE, settings.LongDateFormat));
    const String longTime = LocaleText(LOCALE_STIMEFORMAT, settings.LongTimeFormat);
    settings.TimeSeparator = SeparatorIn(longTime, u"hHmst", settings.TimeSeparator);
    settings.LongTimeFormat = FromSystemFormat(longTime, settings.TimeSeparator);
    settings.ShortTimeFormat =
        FromSystemFormat(LocaleText(LOCALE_SSHORTTIME, settings.ShortTimeFormat), settings.TimeSeparator);
}

} // namespace

TFormatSettings UserFormatSettings() {
    TFormatSettings settings;
    settings.DecimalSeparator = LocaleChar(LOCALE_SDECIMAL, settings.DecimalSeparator);
    settings.ThousandSeparator = LocaleChar(LOCALE_STHOUSAND, u'\0');
    settings.ListSeparator = LocaleChar(LOCALE_SLIST, settings.ListSeparator);
    settings.TimeAMString = LocaleText(LOCALE_S1159, settings.TimeAMString);
    settings.TimePMString = LocaleText(LOCALE_S2359, settings.TimePMString);
    settings.CurrencyString = LocaleText(LOCALE_SCURRENCY, settings.CurrencyString);
    settings.CurrencyFormat = static_cast<std::uint8_t>(LocaleNumber(LOCALE_ICURRENCY, settings.CurrencyFormat));
    settings.NegCurrFormat = static_cast<std::uint8_t>(LocaleNumber(LOCALE_INEGCURR, settings.NegCurrFormat));
    settings.CurrencyDecimals = static_cast<std::uint8_t>(LocaleNumber(LOCALE_ICURRDIGITS, settings.CurrencyDecimals));
    ReadDateFormats(settings);
    for (std::size_t i = 0; i < 12; ++i) {
        const auto month = static_cast<LCTYPE>(i);
        settings.ShortMonthNames[i] = LocaleText(LOCALE_SABBREVMONTHNAME1 + month, settings.ShortMonthNames[i]);
        settings.LongMonthNames[i] = LocaleText(LOCALE_SMONTHNAME1 + month, settings.LongMonthNames[i]);
    }
    for (std::size_t i = 0; i < 7; ++i) {
        // The system counts days from Monday, the settings from Sunday.
        const auto day = static_cast<LCTYPE>((i + 6) % 7);
        settings.ShortDayNames[i] = LocaleText(LOCALE_SABBREVDAYNAME1 + day, settings.ShortDayNames[i]);
        settings.LongDayNames[i] = LocaleText(LOCALE_SDAYNAME1 + day, settings.LongDayNames[i]);
    }
    return settings;
}

} // namespace framework
