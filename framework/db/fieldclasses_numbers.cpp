// Fields of numbers, and of truth values, which are numbers in many databases.

#include "framework/db/fieldclasses.h"

#include "framework/db/olevariant.h"
#include "framework/system/decimal.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <cmath>

namespace framework {

using TKind = TFieldValue::TKind;

namespace {

bool IsWholeType(TFieldType type) {
    switch (type) {
    case ftSmallint:
    case ftInteger:
    case ftWord:
    case ftAutoInc:
    case ftLargeint:
    case ftLongWord:
    case ftShortint:
    case ftByte:
        return true;
    default:
        return false;
    }
}

bool IsNumericType(TFieldType type) {
    switch (type) {
    case ftFloat:
    case ftCurrency:
    case ftBCD:
    case ftFMTBcd:
    case ftExtended:
    case ftSingle:
        return true;
    default:
        return IsWholeType(type);
    }
}

int DecimalsOf(const TWrittenNumber& number) {
    return std::max(0, static_cast<int>(number.Digits.size()) - number.Exponent);
}

/// The digits of an exact number too wide for 64 bits, as recordsets take them.
String WideDigits(const TWrittenNumber& number, int decimals) {
    const auto digits = static_cast<int>(number.Digits.size());
    String text = number.Negative ? u"-" : u"";
    const auto digitAt = [&](int place) {
        return place >= 0 && place < digits ? static_cast<char16_t>(number.Digits[static_cast<std::size_t>(place)])
                                            : u'0';
    };
    for (int place = std::min(0, number.Exponent - 1); place < number.Exponent; ++place)
        text += digitAt(place);
    if (decimals > 0)
        text += u'.';
    for (int i = 0; i < decimals; ++i)
        text += digitAt(number.Exponent + i);
    return text;
}

/// With so many decimals; `keeper` holds what is too wide for 64 bits.
TFieldValue ExactValue(const TWrittenNumber& number, int decimals, OleVariant& keeper) {
    TNumeric exact{0, decimals};
    if (decimals <= TNumeric::maximumScale && TryMakeScaled(number, decimals, exact.Units))
        return TFieldValue::Decimal(exact);
    keeper = OleVariant(TFieldValue::Text(WideDigits(number, decimals)));
    return keeper.View();
}

} // namespace

// Numbers.

const TClassInfo& TNumericField::StaticClass() {
    static const TClassInfo info = DescribeClass<TNumericField>(
        u"TNumericField", TField::StaticClass(),
        {Property<&TNumericField::GetDisplayFormat, &TNumericField::SetDisplayFormat>(u"DisplayFormat"),
         Property<&TNumericField::GetEditFormat, &TNumericField::SetEditFormat>(u"EditFormat")});
    return info;
}

TNumericField::TNumericField(TComponent* owner) : TField(owner) {
    SetAlignment(taRightJustify);
}

bool TNumericField::Accepts(TFieldType columnType) const {
    return IsNumericType(columnType);
}

void TNumericField::SetDisplayFormat(const String& value) {
    if (FDisplayFormat == value)
        return;
    FDisplayFormat = value;
    PropertyChanged(false);
}

void TNumericField::SetEditFormat(const String& value) {
    if (FEditFormat == value)
        return;
    FEditFormat = value;
    PropertyChanged(false);
}

// Whole numbers.

const TClassInfo& TLargeintField::StaticClass() {
    static const TClassInfo info = DescribeClass<TLargeintField>(
        u"TLargeintField", TNumericField::StaticClass(),
        {Property<&TLargeintField::FMaxValue, &TLargeintField::FMaxValue>(u"MaxValue", 0),
         Property<&TLargeintField::FMinValue, &TLargeintField::FMinValue>(u"MinValue", 0)});
    return info;
}

TLargeintField::TLargeintField(TComponent* owner, TFieldType type, std::int64_t least, std::int64_t greatest)
    : TNumericField(owner), FLeast(least), FGreatest(greatest) {
    SetDataType(type);
}

bool TLargeintField::Accepts(TFieldType columnType) const {
    return IsWholeType(columnType);
}

int TLargeintField::GetDefaultWidth() const {
    return GetDataType() == ftLargeint ? 15 : 10;
}

bool TLargeintField::IsValidChar(char16_t unit) const {
    return unit == u'+' || unit == u'-' || (unit >= u'0' && unit <= u'9');
}

String TLargeintField::TextOf(const TFieldValue& value, bool display) const {
    const String& format = FormatFor(display);
    return format.empty() ? PlainText(value) : FormatFloat(format, static_cast<Extended>(value.AsInteger()));
}

TFieldValue TLargeintField::Converted(const TFieldValue& value, OleVariant&) const {
    std::int64_t whole = 0;
    if (value.Kind() == TKind::Text) {
        if (!TryStrToInt64(value.Units(), whole))
            RaiseConversion(value, u"integer value");
    } else {
        whole = value.Kind() == TKind::Boolean ? value.Whole() : value.AsInteger();
    }
    const bool isNarrowed = FMinValue != 0 || FMaxValue != 0;
    const std::int64_t least = isNarrowed ? std::max(FLeast, FMinValue) : FLeast;
    const std::int64_t greatest = isNarrowed ? std::min(FGreatest, FMaxValue) : FGreatest;
    if (whole < least || whole > greatest)
        RaiseRange(IntToStr(whole), IntToStr(least), IntToStr(greatest));
    return TFieldValue::Integer(whole);
}

bool TLargeintField::TryConvertKey(const TFieldValue& value, OleVariant& converted) const {
    TNumericField::TryConvertKey(value, converted);
    const bool mayBeRounded =
        value.Kind() == TKind::Float || value.Kind() == TKind::Money || value.Kind() == TKind::Decimal;
    return !mayBeRounded || OleVariant(value) == converted;
}

const TClassInfo& TIntegerField::StaticClass() {
    static const TClassInfo info = DescribeClass<TIntegerField>(u"TIntegerField", TLargeintField::StaticClass());
    return info;
}

const TClassInfo& TSmallintField::StaticClass() {
    static const TClassInfo info = DescribeClass<TSmallintField>(u"TSmallintField", TIntegerField::StaticClass());
    return info;
}

const TClassInfo& TShortintField::StaticClass() {
    static const TClassInfo info = DescribeClass<TShortintField>(u"TShortintField", TIntegerField::StaticClass());
    return info;
}

const TClassInfo& TByteField::StaticClass() {
    static const TClassInfo info = DescribeClass<TByteField>(u"TByteField", TIntegerField::StaticClass());
    return info;
}

const TClassInfo& TWordField::StaticClass() {
    static const TClassInfo info = DescribeClass<TWordField>(u"TWordField", TIntegerField::StaticClass());
    return info;
}

const TClassInfo& TLongWordField::StaticClass() {
    static const TClassInfo info = DescribeClass<TLongWordField>(u"TLongWordField", TIntegerField::StaticClass());
    return info;
}

const TClassInfo& TAutoIncField::StaticClass() {
    static const TClassInfo info = DescribeClass<TAutoIncField>(u"TAutoIncField", TIntegerField::StaticClass());
    return info;
}

// Floats.

const TClassInfo& TFloatField::StaticClass() {
    static const TClassInfo info = DescribeClass<TFloatField>(
        u"TFloatField", TNumericField::StaticClass(),
        {Property<&TFloatField::GetCurrency, &TFloatField::SetCurrency>(u"Currency", false),
         Property<&TFloatField::FMaxValue, &TFloatField::FMaxValue>(u"MaxValue"),
         Property<&TFloatField::FMinValue, &TFloatField::FMinValue>(u"MinValue"),
         Property<&TFloatField::GetPrecision, &TFloatField::SetPrecision>(u"Precision", DefaultPrecision)});
    return info;
}

TFloatField::TFloatField(TComponent* owner, TFieldType type) : TNumericField(owner) {
    SetDataType(type);
}

void TFloatField::SetCurrency(bool value) {
    if (FIsMoney == value)
        return;
    FIsMoney = value;
    PropertyChanged(false);
}

void TFloatField::SetPrecision(int value) {
    value = std::clamp(value, 2, DefaultPrecision);
    if (FPrecision == value)
        return;
    FPrecision = value;
    PropertyChanged(false);
}

bool TFloatField::IsValidChar(char16_t unit) const {
    return unit == u'+' || unit == u'-' || unit == u'E' || unit == u'e' || (unit >= u'0' && unit <= u'9') ||
           unit == FormatSettings().DecimalSeparator;
}

String TFloatField::TextOf(const TFieldValue& value, bool display) const {
    const double number = value.AsFloat();
    if (const String& format = FormatFor(display); !format.empty())
        return FormatFloat(format, number);
    if (!FIsMoney)
        return FloatToStrF(number, ffGeneral, FPrecision, 0);
    return FloatToStrF(number, display ? ffCurrency : ffFixed, FPrecision, FormatSettings().CurrencyDecimals);
}

TFieldValue TFloatField::Converted(const TFieldValue& value, OleVariant&) const {
    double number = 0;
    if (value.Kind() == TKind::Text) {
        if (!TryStrToFloat(value.Units(), number))
            RaiseConversion(value, u"floating point value");
    } else {
        number = value.Kind() == TKind::Boolean ? static_cast<double>(value.Whole()) : value.AsFloat();
    }
    if ((FMinValue != 0 || FMaxValue != 0) && !(number >= FMinValue && number <= FMaxValue))
        RaiseRange(FloatToStr(number), FloatToStr(FMinValue), FloatToStr(FMaxValue));
    return TFieldValue::Float(number);
}

const TClassInfo& TSingleField::StaticClass() {
    static const TClassInfo info = DescribeClass<TSingleField>(u"TSingleField", TFloatField::StaticClass());
    return info;
}

TSingleField::TSingleField(TComponent* owner) : TFloatField(owner, ftSingle) {
}

String TSingleField::PlainText(const TFieldValue& value) const {
    return FloatToStrF(value.AsFloat(), ffGeneral, SingleDigits, 0);
}

String TSingleField::TextOf(const TFieldValue& value, bool display) const {
    return FormatFor(display).empty() && !GetCurrency() ? PlainText(value) : TFloatField::TextOf(value, display);
}

const TClassInfo& TCurrencyField::StaticClass() {
    static const TClassInfo info = DescribeClass<TCurrencyField>(
        u"TCurrencyField", TFloatField::StaticClass(),
        {Property<&TCurrencyField::GetCurrency, &TCurrencyField::SetCurrency>(u"Currency", true)});
    return info;
}

TCurrencyField::TCurrencyField(TComponent* owner) : TFloatField(owner, ftCurrency) {
    SetCurrency(true);
}

// Exact decimal numbers.

const TClassInfo& TFMTBCDField::StaticClass() {
    static const TClassInfo info = DescribeClass<TFMTBCDField>(
        u"TFMTBCDField", TNumericField::StaticClass(),
        {Property<&TFMTBCDField::GetCurrency, &TFMTBCDField::SetCurrency>(u"Currency", false),
         Property<&TFMTBCDField::FMaxValue, &TFMTBCDField::FMaxValue>(u"MaxValue"),
         Property<&TFMTBCDField::FMinValue, &TFMTBCDField::FMinValue>(u"MinValue"),
         Property<&TFMTBCDField::FPrecision, &TFMTBCDField::FPrecision>(u"Precision", 0)});
    return info;
}

TFMTBCDField::TFMTBCDField(TComponent* owner, TFieldType type) : TNumericField(owner) {
    SetDataType(type);
}

void TFMTBCDField::SetCurrency(bool value) {
    if (FIsMoney == value)
        return;
    FIsMoney = value;
    PropertyChanged(false);
}

bool TFMTBCDField::IsValidChar(char16_t unit) const {
    return unit == u'+' || unit == u'-' || (unit >= u'0' && unit <= u'9') || unit == FormatSettings().DecimalSeparator;
}

/// A number that is too wide travels as digits with a point, which is not what the settings know as separator.
TFieldValue TFMTBCDField::Readable(const TFieldValue& value) const {
    double number = 0;
    if (value.Kind() == TKind::Text && TryStrToFloat(value.Units(), number, TFormatSettings::Invariant()))
        return TFieldValue::Float(number);
    return value;
}

String TFMTBCDField::GetAsString() const {
    const TFieldValue value = GetData();
    return value.IsNull() ? String() : PlainText(value);
}

String TFMTBCDField::PlainText(const TFieldValue& value) const {
    String text = value.AsString();
    if (value.Kind() == TKind::Text)
        std::replace(text.begin(), text.end(), u'.', FormatSettings().DecimalSeparator);
    return text;
}

String TFMTBCDField::TextOf(const TFieldValue& value, bool display) const {
    constexpr int wholeDigits = 14; // with four decimals, all that a float shows
    const String& format = FormatFor(display);
    if (format.empty() && !FIsMoney)
        return PlainText(value);
    Extended number = 0;
    TWrittenNumber written;
    if (value.Kind() == TKind::Text) {
        if (!TryParseNumber(value.Units(), u'.', written) || written.Exponent > wholeDigits ||
            !TryMakeFloat(written, number))
            return PlainText(value);
    } else {
        number = value.Kind() == TKind::Decimal
                     ? static_cast<Extended>(value.Whole()) / std::pow(Extended(10), value.Scale())
                     : value.AsFloat();
    }
    if (!format.empty())
        return FormatFloat(format, number);
    return FloatToStrF(number, display ? ffCurrency : ffFixed, 18, FormatSettings().CurrencyDecimals);
}

TWrittenNumber TFMTBCDField::Written(const TFieldValue& value, String& text) const {
    const bool isText = value.Kind() == TKind::Text;
    const bool isFloat = value.Kind() == TKind::Float || value.Kind() == TKind::Date;
    // The digits of a float are those that a person sees, so that 0.1 becomes 0.1.
    text = isText                           ? String(value.Units())
           : value.Kind() == TKind::Boolean ? IntToStr(value.Whole())
           : isFloat                        ? FloatToStr(value.AsFloat())
                                            : value.AsString();
    constexpr int mostDigits = 1000; // on either side of the point, which no database has
    TWrittenNumber number;
    if (!TryParseNumber(text, FormatSettings().DecimalSeparator, number) || number.Exponent > mostDigits ||
        DecimalsOf(number) > mostDigits)
        RaiseConversion(value, u"decimal value");
    return number;
}

TFieldValue TFMTBCDField::Converted(const TFieldValue& value, OleVariant& keeper) const {
    String text;
    const TWrittenNumber number = Written(value, text);
    const int decimals = GetSize() < 0 ? DecimalsOf(number) : GetSize();
    const TFieldValue result = ExactValue(number, decimals, keeper);
    const auto wholeDigits = number.Digits.empty() ? 0 : number.Exponent;
    if (FPrecision > 0 && wholeDigits > FPrecision - decimals)
        DatabaseError(text + u" has more digits than field '" + GetDisplayName() + u"' can hold");
    if (FMinValue != framework::Currency() || FMaxValue != framework::Currency()) {
        const bool fits = result.Kind() == TKind::Decimal;
        const double asFloat = fits ? result.AsFloat() : 0;
        if (!fits || asFloat < FMinValue.AsFloat() || asFloat > FMaxValue.AsFloat())
            RaiseRange(text, CurrToStr(FMinValue), CurrToStr(FMaxValue));
    }
    return result;
}

bool TFMTBCDField::TryConvertKey(const TFieldValue& value, OleVariant& converted) const {
    String text;
    OleVariant keeper;
    const TWrittenNumber number = Written(value, text);
    converted = OleVariant(ExactValue(number, std::max(DecimalsOf(number), GetSize()), keeper));
    return true;
}

const TClassInfo& TBCDField::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TBCDField>(u"TBCDField", TFMTBCDField::StaticClass(),
                                 {Property<&TBCDField::GetSize, &TBCDField::SetSize>(u"Size", Currency::decimals)});
    return info;
}

TBCDField::TBCDField(TComponent* owner) : TFMTBCDField(owner, ftBCD) {
    SetSize(framework::Currency::decimals);
}

// Truth values.

const TClassInfo& TBooleanField::StaticClass() {
    static const TClassInfo info = DescribeClass<TBooleanField>(
        u"TBooleanField", TField::StaticClass(),
        {Property<&TBooleanField::GetDisplayValues, &TBooleanField::SetDisplayValues>(u"DisplayValues")});
    return info;
}

TBooleanField::TBooleanField(TComponent* owner) : TField(owner) {
    SetDataType(ftBoolean);
}

bool TBooleanField::Accepts(TFieldType columnType) const {
    return columnType == ftBoolean || IsWholeType(columnType);
}

void TBooleanField::SetDisplayValues(const String& value) {
    if (FDisplayValues == value)
        return;
    FDisplayValues = value;
    PropertyChanged(true);
}

String TBooleanField::TextFor(bool value) const {
    if (FDisplayValues.empty())
        return value ? u"True" : u"False";
    const std::size_t split = FDisplayValues.find(u';');
    if (value)
        return FDisplayValues.substr(0, split);
    return split == String::npos ? String() : FDisplayValues.substr(split + 1);
}

int TBooleanField::GetDefaultWidth() const {
    return static_cast<int>(std::max(TextFor(true).size(), TextFor(false).size()));
}

String TBooleanField::TextOf(const TFieldValue& value, bool) const {
    return TextFor(value.AsBoolean());
}

String TBooleanField::PlainText(const TFieldValue& value) const {
    return TextFor(value.AsBoolean());
}

TFieldValue TBooleanField::Converted(const TFieldValue& value, OleVariant&) const {
    if (value.Kind() != TKind::Text)
        return TFieldValue::Boolean(value.AsBoolean());
    const auto begins = [&](const String& text) {
        return !text.empty() && AnsiSameText(StringView(text).substr(0, value.Units().size()), value.Units());
    };
    if (begins(TextFor(true)))
        return TFieldValue::Boolean(true);
    if (!begins(TextFor(false)) && !(TextFor(false).empty() && value.Units().empty()))
        RaiseConversion(value, u"boolean value");
    return TFieldValue::Boolean(false);
}

} // namespace framework
