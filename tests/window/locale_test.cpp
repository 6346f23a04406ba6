// The user's format settings: that dates, times and names come out as Windows itself writes them.

#include "framework/graphics/win32.h"
#include "framework/system/dates.h"
#include "framework/system/strings.h"
#include "framework/windows/locale.h"

#include <gtest/gtest.h>

using namespace framework;

namespace {

SYSTEMTIME SystemTime(TDateTime value) {
    const TCalendarDate date = DecodeDate(value);
    const TClockTime time = DecodeTime(value);
    return {static_cast<WORD>(date.Year),
            static_cast<WORD>(date.Month),
            static_cast<WORD>(DayOfWeek(value) - 1),
            static_cast<WORD>(date.Day),
            static_cast<WORD>(time.Hour),
            static_cast<WORD>(time.Minute),
            static_cast<WORD>(time.Second),
            0};
}

std::string SystemDate(const SYSTEMTIME& time, DWORD flags, const wchar_t* format = nullptr) {
    wchar_t text[128];
    const int length = GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, flags, &time, format, text, ARRAYSIZE(text), nullptr);
    return length > 0 ? Utf8Encode(FromWide(text, static_cast<std::size_t>(length) - 1)) : "none";
}

std::string SystemClock(const SYSTEMTIME& time, DWORD flags) {
    wchar_t text[128];
    const int length = GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, flags, &time, nullptr, text, ARRAYSIZE(text));
    return length > 0 ? Utf8Encode(FromWide(text, static_cast<std::size_t>(length) - 1)) : "none";
}

TEST(Locale, DatesAreWrittenAsTheSystemWritesThem) {
    const TFormatSettings settings = UserFormatSettings();
    for (int i = 0; i < 800; ++i) {
        const TDateTime value = EncodeDate(1999, 12, 1) + i * 5 + EncodeTime(i % 24, i * 7 % 60, i * 11 % 60, 0);
        const SYSTEMTIME time = SystemTime(value);
        ASSERT_EQ(Utf8Encode(DateToStr(value, settings)), SystemDate(time, DATE_SHORTDATE));
        ASSERT_EQ(Utf8Encode(TimeToStr(value, settings)), SystemClock(time, 0));
        ASSERT_EQ(Utf8Encode(FormatDateTime(u"t", value, settings)), SystemClock(time, TIME_NOSECONDS));
        ASSERT_EQ(Utf8Encode(FormatDateTime(u"dddd, ddd", value, settings)), SystemDate(time, 0, L"dddd, ddd"));
        ASSERT_EQ(Utf8Encode(FormatDateTime(u"mmmm mmm yyyy", value, settings)), SystemDate(time, 0, L"MMMM MMM yyyy"));
        TDateTime read = 0;
        ASSERT_TRUE(TryStrToDateTime(DateTimeToStr(value, settings), read, settings));
        ASSERT_DOUBLE_EQ(read, value);
    }
}

TEST(Locale, FormatsSpeakTheFrameworksLetters) {
    const TFormatSettings settings = UserFormatSettings();
    for (const String& format : {settings.ShortTimeFormat, settings.LongTimeFormat}) {
        EXPECT_EQ(format.find_first_of(u"Ht"), String::npos) << Utf8Encode(format);
        EXPECT_EQ(format[0], u'h');
    }
    wchar_t marker[16] = {};
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_STIMEFORMAT, marker, ARRAYSIZE(marker));
    EXPECT_EQ(settings.LongTimeFormat.find(u"AMPM") != String::npos,
              std::wstring(marker).find(L't') != std::string::npos);
    EXPECT_NE(settings.ShortDateFormat.find(settings.DateSeparator), String::npos);
}

TEST(Locale, NowIsTheLocalTimeOfTheSystem) {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    const TDateTime system =
        EncodeDateTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond, 0);
    EXPECT_NEAR(Now(), system, EncodeTime(0, 1, 0, 0));
}

} // namespace
