#include "framework/system/decimal.h"
#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

namespace framework {
namespace {

constexpr bool hasWideExtended = std::numeric_limits<Extended>::digits >= 64;

TFormatSettings Polish() {
    TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.ThousandSeparator = u'\u00A0';
    settings.CurrencyString = u"z\u0142";
    settings.CurrencyFormat = 3;
    settings.NegCurrFormat = 8;
    return settings;
}

const TFormatSettings invariant;
const TFormatSettings polish = Polish();

/// The message of the conversion error that `convert` raises, empty without one.
template <typename Convert>
std::string ErrorOf(Convert convert) {
    try {
        convert();
    } catch (const EConvertError& error) {
        return error.what();
    }
    return {};
}

TEST(Integers, ReadDecimalAndHexadecimal) {
    const struct {
        StringView Text;
        std::int64_t Value;
    } rows[] = {
        {u"0", 0},
        {u"  42", 42},
        {u"-7", -7},
        {u"+7", 7},
        {u"007", 7},
        {u"2147483647", INT32_MAX},
        {u"-2147483648", INT32_MIN},
        {u"$1F", 31},
        {u"0x1f", 31},
        {u"x1F", 31},
        {u"X0", 0},
        {u"-$1F", -31},
        {u" $7fffffff", INT32_MAX},
        {u"-$80000000", INT32_MIN},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(Utf8Encode(row.Text));
        EXPECT_EQ(StrToInt(row.Text), row.Value);
        EXPECT_EQ(StrToInt64(row.Text), row.Value);
    }
    EXPECT_EQ(StrToInt(u"$FFFFFFFF"), -1);
    EXPECT_EQ(StrToInt64(u"$FFFFFFFF"), 0xFFFFFFFF);
    EXPECT_EQ(StrToInt64(u"$FFFFFFFFFFFFFFFF"), -1);
    EXPECT_EQ(StrToInt64(u"9223372036854775807"), INT64_MAX);
    EXPECT_EQ(StrToInt64(u"-9223372036854775808"), INT64_MIN);
}

TEST(Integers, RefuseAnythingElse) {
    const StringView texts[] = {u"",   u" ",   u"-",     u"+",      u"--1",    u"+-1",
                                u"1 ", u"1.0", u"1,000", u"1e3",    u"abc",    u"$",
                                u"0x", u"$G",  u"- 1",   u"\u0661", u"\uFF11", StringView(u"1\0", 2)};
    for (const StringView text : texts) {
        std::int32_t kept = 99;
        EXPECT_FALSE(TryStrToInt(text, kept)) << Utf8Encode(text);
        EXPECT_EQ(kept, 99);
    }
    for (const StringView text : {u"2147483648", u"-2147483649", u"$100000000", u"+$80000000", u"-$80000001"}) {
        std::int32_t narrow = 0;
        std::int64_t wide = 0;
        EXPECT_FALSE(TryStrToInt(text, narrow)) << Utf8Encode(text);
        EXPECT_TRUE(TryStrToInt64(text, wide)) << Utf8Encode(text);
    }
    for (const StringView text : {u"9223372036854775808", u"-9223372036854775809", u"$10000000000000000",
                                  u"18446744073709551616", u"99999999999999999999999999"}) {
        std::int64_t wide = 0;
        EXPECT_FALSE(TryStrToInt64(text, wide)) << Utf8Encode(text);
    }
    EXPECT_EQ(ErrorOf([] { StrToInt(u"abc"); }), "'abc' is not a valid integer value");
    EXPECT_EQ(ErrorOf([] { StrToInt64(u""); }), "'' is not a valid integer value");
    EXPECT_EQ(StrToIntDef(u"12a", -5), -5);
    EXPECT_EQ(StrToInt64Def(u"12", -5), 12);
}

TEST(Integers, Write) {
    EXPECT_TRUE(IntToStr(0) == u"0");
    EXPECT_TRUE(IntToStr(INT_MIN) == u"-2147483648");
    EXPECT_TRUE(IntToStr(INT64_MIN) == u"-9223372036854775808");
    EXPECT_TRUE(IntToStr(UINT64_MAX) == u"18446744073709551615");
    EXPECT_TRUE(IntToStr(std::uint32_t{4000000000}) == u"4000000000");
}

TEST(Floats, ReadExactly) {
    const struct {
        StringView Text;
        Extended Value;
        const TFormatSettings& Settings;
    } rows[] = {
        {u"0", 0.0L, invariant},
        {u"-0", 0.0L, invariant},
        {u" \t1.5 \r\n", 1.5L, invariant},
        {u"+.5", 0.5L, invariant},
        {u"5.", 5.0L, invariant},
        {u"1,5", 1.5L, polish},
        {u"-1,5E-3", -0.0015L, polish},
        {u"1e10", 1e10L, invariant},
        {u"1E+2", 100.0L, invariant},
        {u"0.1", 0.1L, invariant},
        {u"123456789012345678", 123456789012345678.0L, invariant},
        {u"0.123456789012345678", 0.123456789012345678L, invariant},
        {u"000000000000000000000000000000.25", 0.25L, invariant},
        {u"0.000000000000000000000000000000000000000000001", 1e-45L, invariant},
        {u"99999999999999999999999999999999999999", 99999999999999999999999999999999999999.0L, invariant},
        {u"1e-40", 1e-40L, invariant},
        {u"2.2250738585072014e-308", 2.2250738585072014e-308L, invariant},
        {u"0e99999999999999", 0.0L, invariant},
        {u"1e-99999999999999", 0.0L, invariant},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(Utf8Encode(row.Text));
        EXPECT_EQ(StrToFloat(row.Text, row.Settings), row.Value);
    }
    EXPECT_EQ(StrToFloat(u"inf", invariant), std::numeric_limits<Extended>::infinity());
    EXPECT_EQ(StrToFloat(u"-INF", invariant), -std::numeric_limits<Extended>::infinity());
    EXPECT_TRUE(std::isnan(StrToFloat(u" NaN", invariant)));
}

TEST(Floats, ReadToTheEndsOfTheRange) {
    double narrow = 0;
    EXPECT_TRUE(TryStrToFloat(u"1.7976931348623157e308", narrow, invariant));
    EXPECT_EQ(narrow, std::numeric_limits<double>::max());
    EXPECT_FALSE(TryStrToFloat(u"1.8e308", narrow, invariant));
    EXPECT_EQ(narrow, std::numeric_limits<double>::max()) << "a failing conversion changes nothing";
    EXPECT_TRUE(TryStrToFloat(u"5e-324", narrow, invariant));
    EXPECT_EQ(narrow, std::numeric_limits<double>::denorm_min());
    EXPECT_TRUE(TryStrToFloat(u"2e-324", narrow, invariant));
    EXPECT_EQ(narrow, 0);
    EXPECT_TRUE(TryStrToFloat(u"9007199254740993", narrow, invariant));
    EXPECT_EQ(narrow, 9007199254740992.0) << "half way goes to the even mantissa";

    Extended wide = 0;
    EXPECT_EQ(TryStrToFloat(u"1e400", wide, invariant), hasWideExtended);
    EXPECT_FALSE(TryStrToFloat(u"1e5000", wide, invariant));
    EXPECT_FALSE(TryStrToFloat(u"1e99999999999", wide, invariant));
    if (hasWideExtended) {
        EXPECT_TRUE(TryStrToFloat(u"3.6452e-4951", wide, invariant));
        EXPECT_EQ(wide, std::numeric_limits<Extended>::denorm_min());
        EXPECT_FALSE(TryStrToFloat(u"1.19e4932", wide, invariant));
    }

    // The quick answer is that of the conversion, on both sides of the greatest number too.
    const int last = std::numeric_limits<Extended>::max_exponent10;
    const String greatest = FloatToStrF(std::numeric_limits<Extended>::max(), ffExponent, 18, 0, invariant);
    for (const String& digits : {String(u"1"), String(u"1.1"), String(u"2"), String(u"9.999"), greatest.substr(0, 15),
                                 greatest.substr(0, 18), greatest.substr(0, greatest.find(u'E')) + u"9"}) {
        for (int exponent = last - 1; exponent <= last + 1; ++exponent) {
            const String text = digits + u"e" + IntToStr(exponent);
            TWrittenNumber number;
            ASSERT_TRUE(TryParseNumber(text, u'.', number));
            EXPECT_EQ(FitsExtended(number), TryMakeFloat(number, wide)) << Utf8Encode(text);
        }
    }
}

TEST(Floats, DecideTiesByEveryDigit) {
    // 1 + 2^-53 and 1 + 2^-64 lie half way between two neighbours of double and of the wide Extended.
    const StringView doubleTie = u"1.00000000000000011102230246251565404236316680908203125";
    const StringView wideTie = u"1.0000000000000000000542101086242752217003726400434970855712890625";
    const String longTail = String(100'000, u'0') + u"1";
    double narrow = 0;
    EXPECT_TRUE(TryStrToFloat(doubleTie, narrow, invariant));
    EXPECT_EQ(narrow, 1.0);
    EXPECT_TRUE(TryStrToFloat(String(doubleTie) + longTail, narrow, invariant));
    EXPECT_EQ(narrow, 1.0 + std::numeric_limits<double>::epsilon());
    EXPECT_EQ(StrToFloat(wideTie, invariant), 1.0L);
    if (hasWideExtended) {
        EXPECT_EQ(StrToFloat(String(wideTie) + longTail, invariant), 1.0L + std::numeric_limits<Extended>::epsilon());
    }
}

TEST(Floats, RefuseAnythingElse) {
    for (const StringView text :
         {u"",       u" ",       u".",       u"-",          u"+",      u"--1",       u"-+1",   u"- 1",
          u"1,5",    u"1,000.0", u"1 000",   u"1.5.",       u"1..5",   u"1e",        u"1e+",   u"e5",
          u".e5",    u"1e5.0",   u"1.5x",    u"x1",         u"0x10",   u"$10",       u"1.5 2", u"INFINITY",
          u"nan(1)", u"+nan",    u"\u22121", u"1\u00A0000", u"\u0661", u"1.5\u20AC", u"1d5"}) {
        Extended kept = 99;
        EXPECT_FALSE(TryStrToFloat(text, kept, invariant)) << Utf8Encode(text);
        EXPECT_EQ(kept, 99.0L);
    }
    for (const StringView text : {u"1.5", u"1\u00A0000,5", u"1,5,0"}) {
        Extended value = 0;
        EXPECT_FALSE(TryStrToFloat(text, value, polish)) << Utf8Encode(text);
    }
    EXPECT_EQ(ErrorOf([] { StrToFloat(u"1,5", invariant); }), "'1,5' is not a valid floating point value");
    EXPECT_EQ(StrToFloatDef(u"?", 2.5L, invariant), 2.5L);
}

// The C library's own conversion is the judge, on numbers of all sizes and lengths.
TEST(Floats, AgreeWithTheLibraryOnRandomTexts) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
    std::mt19937 random(randomSeed);
    for (int i = 0; i < 20000; ++i) {
        std::string text = random() % 2 ? "-" : "";
        const auto appendDigits = [&](unsigned count) {
            for (; count > 0; --count)
                text += static_cast<char>('0' + random() % 10);
        };
        appendDigits(1 + random() % 22);
        text += '.';
        appendDigits(random() % 12);
        if (random() % 2) {
            const int reach = i % 50 == 0 ? 5000 : 340;
            text += 'e' + std::to_string(static_cast<int>(random() % (2 * reach)) - reach);
        }
        const Extended expected = std::strtold(text.c_str(), nullptr);
        Extended wide = 0;
        ASSERT_EQ(TryStrToFloat(AsciiToString(text), wide, invariant), !std::isinf(expected)) << text;
        if (!std::isinf(expected)) {
            ASSERT_EQ(wide, expected) << text;
        }
        const double expectedNarrow = std::strtod(text.c_str(), nullptr);
        double narrow = 0;
        ASSERT_EQ(TryStrToFloat(AsciiToString(text), narrow, invariant), !std::isinf(expectedNarrow)) << text;
        if (!std::isinf(expectedNarrow)) {
            ASSERT_EQ(narrow, expectedNarrow) << text;
        }
    }
}

struct FloatRow {
    Extended Value;
    TFloatFormat Format;
    int Precision;
    int Digits;
    StringView Expected;
};

void ExpectFormats(std::initializer_list<FloatRow> rows, const TFormatSettings& settings) {
    for (const FloatRow& row : rows) {
        const String text = FloatToStrF(row.Value, row.Format, row.Precision, row.Digits, settings);
        EXPECT_TRUE(text == row.Expected) << "got " << Utf8Encode(text) << ", wanted " << Utf8Encode(row.Expected);
    }
}

TEST(FloatToStr, WritesTheShortestText) {
    ExpectFormats(
        {
            {0, ffGeneral, 15, 0, u"0"},
            {-0.0L, ffGeneral, 15, 0, u"0"},
            {1, ffGeneral, 15, 0, u"1"},
            {-1.25L, ffGeneral, 15, 0, u"-1.25"},
            {0.1L, ffGeneral, 15, 0, u"0.1"},
            {static_cast<Extended>(0.1), ffGeneral, 15, 0, u"0.1"},
            {1.0L / 3, ffGeneral, 15, 0, u"0.333333333333333"},
            {2.0L / 3, ffGeneral, 15, 0, u"0.666666666666667"},
            {123456789012345.0L, ffGeneral, 15, 0, u"123456789012345"},
            {1234567890123456.0L, ffGeneral, 15, 0, u"1.23456789012346E15"},
            {1e15L, ffGeneral, 15, 0, u"1E15"},
            {1e14L, ffGeneral, 15, 0, u"100000000000000"},
            {0.00001L, ffGeneral, 15, 0, u"0.00001"},
            {0.0000099L, ffGeneral, 15, 0, u"9.9E-6"},
            {1e-300L, ffGeneral, 15, 4, u"1E-0300"},
            {1e20L, ffGeneral, 15, 3, u"1E020"},
            {999.96L, ffGeneral, 4, 0, u"1000"},
            {9999.6L, ffGeneral, 4, 0, u"1E4"},
            {std::numeric_limits<Extended>::infinity(), ffGeneral, 15, 0, u"INF"},
            {-std::numeric_limits<Extended>::infinity(), ffFixed, 18, 2, u"-INF"},
            {std::numeric_limits<Extended>::quiet_NaN(), ffCurrency, 18, 2, u"NAN"},
        },
        invariant);
    EXPECT_TRUE(FloatToStr(-1234.5L, polish) == u"-1234,5");
}

TEST(FloatToStrF, RoundsDecimalDigits) {
    ExpectFormats(
        {
            {2.675L, ffFixed, 18, 2, u"2.68"},
            {-2.675L, ffFixed, 18, 2, u"-2.68"},
            {1.005L, ffFixed, 18, 2, u"1.01"},
            {0.5L, ffFixed, 18, 0, u"1"},
            {1.5L, ffFixed, 18, 0, u"2"},
            {2.5L, ffFixed, 18, 0, u"3"},
            {0.49L, ffFixed, 18, 0, u"0"},
            {-0.004L, ffFixed, 18, 2, u"0.00"},
            {-0.005L, ffFixed, 18, 2, u"-0.01"},
            {-0.0L, ffFixed, 18, 2, u"0.00"},
            {99.995L, ffFixed, 18, 2, u"100.00"},
            {0.0999L, ffFixed, 18, 3, u"0.100"},
            {1234.5L, ffFixed, 18, 2, u"1234.50"},
            {0.000001L, ffFixed, 18, 2, u"0.00"},
            {1e17L, ffFixed, 18, 2, u"100000000000000000.00"},
            {1e18L, ffFixed, 18, 2, u"1E18"},
            {-1e18L, ffFixed, 18, 2, u"-1E18"},
            {123456.0L, ffFixed, 3, 2, u"1.23E5"},
            {123.456L, ffFixed, 4, 3, u"123.500"},
            {1.5L, ffFixed, 18, 99, u"1.500000000000000000"},
            {1.5L, ffFixed, 0, -1, u"2"},
        },
        invariant);
}

TEST(FloatToStrF, WritesExponentsGroupsAndMoney) {
    ExpectFormats(
        {
            {1234.5L, ffExponent, 3, 2, u"1.23E+03"},
            {0.00123L, ffExponent, 5, 4, u"1.2300E-0003"},
            {0, ffExponent, 3, 0, u"0.00E+0"},
            {9.99L, ffExponent, 2, 0, u"1.0E+1"},
            {5, ffExponent, 1, 0, u"5E+0"},
            {1234567.891L, ffNumber, 18, 2, u"1,234,567.89"},
            {-123456, ffNumber, 18, 0, u"-123,456"},
            {999.5L, ffNumber, 18, 0, u"1,000"},
            {100, ffNumber, 18, 1, u"100.0"},
            {-0.001L, ffNumber, 18, 2, u"0.00"},
            {-1234.5L, ffCurrency, 18, 2, u"(\u00A41,234.50)"},
            {-0.001L, ffCurrency, 18, 2, u"\u00A40.00"},
        },
        invariant);
    ExpectFormats(
        {
            {1234567.891L, ffNumber, 18, 2, u"1\u00A0234\u00A0567,89"},
            {1234.5L, ffCurrency, 18, 2, u"1\u00A0234,50 z\u0142"},
            {-1234.5L, ffCurrency, 18, 2, u"-1\u00A0234,50 z\u0142"},
        },
        polish);
    TFormatSettings ungrouped;
    ungrouped.ThousandSeparator = u'\0';
    ungrouped.CurrencyString = u"EUR";
    ungrouped.NegCurrFormat = 200;
    ExpectFormats({{1234567, ffNumber, 18, 0, u"1234567"}, {-5, ffCurrency, 18, 0, u"(EUR5)"}}, ungrouped);
}

TEST(FloatToStrF, ShowsAHundredAfterAThousandTenths) {
    Extended sum = 0;
    for (int i = 0; i < 1000; ++i)
        sum += 0.1L;
    EXPECT_TRUE(FloatToStrF(sum, ffGeneral, 15, 0, invariant) == (hasWideExtended ? u"100" : u"99.9999999999986"));
}

TEST(Floats, KeepTheirDigitsThroughTextAndBack) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
    std::mt19937_64 random(randomSeed);
    constexpr int digits = std::numeric_limits<Extended>::digits10;
    for (int i = 0; i < 20000; ++i) {
        String text(1, static_cast<char16_t>(u'1' + random() % 9));
        const int whole = 1 + static_cast<int>(random() % digits);
        for (int k = 1; k < digits; ++k) {
            if (k == whole)
                text += u'.';
            text += static_cast<char16_t>(u'0' + random() % (k + 1 == digits ? 9 : 10) + (k + 1 == digits));
        }
        const Extended value = StrToFloat(text, invariant);
        ASSERT_TRUE(FloatToStrF(value, ffGeneral, digits, 0, invariant) == text) << Utf8Encode(text);
    }
}

// The C library rounds the exact binary value. Ours has 18 digits at this point, so the two may differ where these come
// close to a half.
TEST(FloatToStrF, AgreesWithTheLibraryAwayFromHalves) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
    std::mt19937_64 random(randomSeed);
    for (int i = 0; i < 20000; ++i) {
        const Extended scale = std::pow(10.0L, static_cast<int>(random() % 16) - 4);
        const Extended value = (static_cast<Extended>(random()) / 1.8446744073709551616e19L - 0.5L) * scale;
        const int decimals = static_cast<int>(random() % 5);
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.*Lf", decimals, value);
        const Extended tail = std::fabs(value) * std::pow(10.0L, decimals);
        if (std::fabs(tail - std::floor(tail) - 0.5L) <= tail * 1e-17L ||
            std::fabs(std::strtold(expected, nullptr)) == 0)
            continue;
        ASSERT_EQ(Utf8Encode(FloatToStrF(value, ffFixed, 18, decimals, invariant)), expected);
    }
}

TEST(FormatFloat, FollowsTheMask) {
    const struct {
        StringView Mask;
        Extended Value;
        StringView Expected;
    } rows[] = {
        {u"0", 1234.5L, u"1235"},
        {u"0", -0.4L, u"0"},
        {u"0.00", 1234.5L, u"1234.50"},
        {u"0.00", 0.005L, u"0.01"},
        {u"#.##", 0.5L, u".5"},
        {u"#.##", 0, u""},
        {u"#.##", 12, u"12"},
        {u"0.##", 1, u"1"},
        {u"0.0#", 1.25L, u"1.25"},
        {u"0.#0", 1, u"1.00"},
        {u"00000", 42, u"00042"},
        {u"#0#0", 7, u"007"},
        {u"#,##0.00", 1234567.891L, u"1,234,567.89"},
        {u"#,##0.00", -0.001L, u"0.00"},
        {u"0,000", 5, u"0,005"},
        {u".00", 12.3L, u"12.30"},
        {u".00", 0.25L, u".25"},
        {u"(000) 000-0000", 1234567890, u"(123) 456-7890"},
        {u"(000) 000-0000", 99123456789.0L, u"(9912) 345-6789"},
        {u"0.00 'z\u0142'", 1.5L, u"1.50 z\u0142"},
        {u"0 \"0;#.\"", 3, u"3 0;#."},
        {u"0.0 kg", 2, u"2.0 kg"},
        {u"0.0 EUR", 2, u"2.0 EUR"},
        {u"$0.00", -2, u"-$2.00"},
        {u"0.00;(0.00)", -2, u"(2.00)"},
        {u"0.00;(0.00)", -0.001L, u"0.00"},
        {u"0.00;(0.00);'none'", 0, u"none"},
        {u"0.00;(0.00);'none'", 0.004L, u"none"},
        {u"0.00;;'none'", -3, u"-3.00"},
        {u"0.00;(0.00);", 0, u"0.00"},
        {u"'up';'down';'level'", 0.25L, u"up"},
        {u"'up';'down';'level'", -0.25L, u"down"},
        {u"", 1234.5L, u"1234.5"},
        {u";(0)", 1234.5L, u"1234.5"},
        {u"0.00", 1e18L, u"1E18"},
        {u"0", 123456789012345678.0L, hasWideExtended ? u"123456789012345678" : u"123456789012345680"},
        {u"0.00E+00", 12345, u"1.23E+04"},
        {u"0.00E-00", 12345, u"1.23E04"},
        {u"0.###e+0", 0.00012L, u"1.2e-4"},
        {u"00.0E+0", 9.996e7L, u"10.0E+7"},
        {u"#.##E+", 0, u"E+0"},
        {u"0E+0", -5e10L, u"-5E+10"},
        {u"0.00000000000000000000", 1.5L, u"1.500000000000000000"},
        {u"'open", 5, u"open"},
    };
    for (const auto& row : rows) {
        const String text = FormatFloat(row.Mask, row.Value, invariant);
        EXPECT_TRUE(text == row.Expected)
            << Utf8Encode(row.Mask) << " gave " << Utf8Encode(text) << ", wanted " << Utf8Encode(row.Expected);
    }
    EXPECT_TRUE(FormatFloat(u"#,##0.00", -1234.5L, polish) == u"-1\u00A0234,50");
    EXPECT_TRUE(FormatFloat(u"0.00", std::numeric_limits<Extended>::quiet_NaN(), invariant) == u"NAN");
}

TEST(CurrencyValue, CalculatesExactly) {
    Currency sum;
    for (int i = 0; i < 1000; ++i)
        sum += StrToCurr(u"0.1", invariant);
    EXPECT_EQ(sum, Currency(100));
    EXPECT_EQ(Currency(2.675L).GetUnits(), 26750);
    EXPECT_EQ(Currency(1.00005L).GetUnits(), 10001);
    EXPECT_EQ(Currency(-1.00005).GetUnits(), -10001);
    EXPECT_EQ(Currency(19.99L) * Currency(3), Currency(59.97L));
    EXPECT_EQ(Currency(-1) / Currency(3), Currency::FromUnits(-3333));
    EXPECT_EQ(Currency(2) / Currency(-3), Currency::FromUnits(-6667));
    EXPECT_EQ(Currency::FromUnits(1) * Currency(0.5L), Currency::FromUnits(1)) << "a half goes away from zero";
    EXPECT_EQ(Currency(900000000000000) * Currency(1.0001L), Currency(900090000000000));
    EXPECT_LT(Currency(-1), Currency::FromUnits(-9999));
    EXPECT_EQ(Currency(12.34L).AsFloat(), 12.34L);
}

TEST(CurrencyValue, StaysInItsRange) {
    const Currency highest = Currency::FromUnits(INT64_MAX);
    const Currency lowest = Currency::FromUnits(INT64_MIN);
    EXPECT_EQ(lowest / Currency(1), lowest);
    EXPECT_EQ(highest - highest, Currency());
    EXPECT_EQ(StrToCurr(u"922337203685477.5807", invariant), highest);
    EXPECT_EQ(StrToCurr(u"-922337203685477.5808", invariant), lowest);
    if (hasWideExtended) {
        EXPECT_EQ(Currency(highest.AsFloat()), highest);
    }
    const std::function<void()> rows[] = {
        [&] { highest + Currency::FromUnits(1); },
        [&] { lowest - Currency::FromUnits(1); },
        [&] { -lowest; },
        [&] { lowest / Currency(-1); },
        [&] { highest* Currency(2); },
        [&] { highest* highest; },
        [&] { Currency(1) / Currency(); },
        [] { Currency(INT64_MAX); },
        [] { Currency(UINT64_MAX); },
        [] { Currency(1e15L); },
        [] { Currency{std::numeric_limits<Extended>::infinity()}; },
        [] { Currency{std::numeric_limits<double>::quiet_NaN()}; },
        [] { StrToCurr(u"922337203685477.5808", invariant); },
        [] { StrToCurr(u"1e30", invariant); },
        [] { StrToCurr(u"INF", invariant); },
        [] { StrToCurr(u"1,5", invariant); },
    };
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_THROW(rows[i](), EConvertError) << "row " << i;
}

TEST(CurrencyValue, GoesToTextAndBack) {
    for (const StringView text : {u"0", u"0.1", u"-0.0001", u"12.5", u"922337203685477.5807", u"-922337203685477.5808"})
        EXPECT_TRUE(CurrToStr(StrToCurr(text, invariant), invariant) == text) << Utf8Encode(text);
    EXPECT_EQ(StrToCurr(u" 1.23455 ", invariant).GetUnits(), 12346);
    EXPECT_EQ(StrToCurr(u"1.5E-2", invariant).GetUnits(), 150);
    EXPECT_EQ(StrToCurrDef(u"?", Currency(7), invariant), Currency(7));
    EXPECT_TRUE(CurrToStrF(Currency(-1234.5L), ffCurrency, 2, polish) == u"-1\u00A0234,50 z\u0142");
    EXPECT_TRUE(FormatCurr(u"#,##0.00", Currency::FromUnits(INT64_MAX), invariant) == u"922,337,203,685,477.58");
}

TEST(CurrencyValue, IsPlacedAsTheSettingsSay) {
    const StringView positive[] = {u"$1", u"1$", u"$ 1", u"1 $"};
    const StringView negative[] = {u"($1)", u"-$1",  u"$-1",  u"$1-",  u"(1$)", u"-1$",  u"1-$",   u"1$-",
                                   u"-1 $", u"-$ 1", u"1 $-", u"$ 1-", u"$ -1", u"1- $", u"($ 1)", u"(1 $)"};
    TFormatSettings settings;
    settings.CurrencyString = u"$";
    for (std::size_t i = 0; i < std::size(positive); ++i) {
        settings.CurrencyFormat = static_cast<std::uint8_t>(i);
        EXPECT_TRUE(FloatToStrF(1, ffCurrency, 18, 0, settings) == positive[i]) << i;
    }
    for (std::size_t i = 0; i < std::size(negative); ++i) {
        settings.NegCurrFormat = static_cast<std::uint8_t>(i);
        EXPECT_TRUE(FloatToStrF(-1, ffCurrency, 18, 0, settings) == negative[i]) << i;
    }
}

TEST(CompareValue, ForgivesTheRoundingOfSums) {
    EXPECT_TRUE(SameValue(0.1L + 0.2L, 0.3L));
    EXPECT_FALSE(SameValue(0.3L, 0.3000001L));
    EXPECT_TRUE(SameValue(1, 1.25L, 0.25L));
    EXPECT_EQ(CompareValue(1, 2), -1);
    EXPECT_EQ(CompareValue(2, 1), 1);
    EXPECT_EQ(CompareValue(1e18L, 1e18L + 16), 0);
    EXPECT_TRUE(SameValue(std::numeric_limits<Extended>::infinity(), std::numeric_limits<Extended>::infinity()));
    EXPECT_FALSE(SameValue(std::numeric_limits<Extended>::quiet_NaN(), 0));
}

TEST(ProcessSettings, ApplyWhenNoneAreGiven) {
    const TFormatSettings before = FormatSettings();
    FormatSettings() = polish;
    EXPECT_TRUE(FloatToStr(1.5L) == u"1,5");
    EXPECT_EQ(StrToFloat(u"1,5"), 1.5L);
    EXPECT_TRUE(FormatFloat(u"0.0", 1.5L) == u"1,5");
    FormatSettings() = before;
}

} // namespace
} // namespace framework
