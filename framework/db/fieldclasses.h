#pragma once

// The kinds of fields. Each knows which columns it can read, how its value is written, and which values it takes.

#include "framework/db/fields.h"

namespace framework {

struct TWrittenNumber;

/// Texts of limited length: a longer one is EDatabaseError. Size counts characters, of which some take two of the
/// UTF-16 units that texts have in both classes.
class TStringField : public TField {
    FRAMEWORK_CLASS(TStringField)

public:
    explicit TStringField(TComponent* owner);

protected:
    bool Accepts(TFieldType columnType) const override;
    int GetDefaultWidth() const override;
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;
    bool KeepsEmptyText() const override { return true; }
};

class TWideStringField : public TStringField {
    FRAMEWORK_CLASS(TWideStringField)

public:
    explicit TWideStringField(TComponent* owner);
};

/// Base of all numbers. The formats are those of FormatFloat; an empty EditFormat means plain digits in editors.
class TNumericField : public TField {
    FRAMEWORK_CLASS(TNumericField)

public:
    FRAMEWORK_PROPERTY(String, DisplayFormat, GetDisplayFormat, SetDisplayFormat);
    FRAMEWORK_PROPERTY(String, EditFormat, GetEditFormat, SetEditFormat);

    const String& GetDisplayFormat() const { return FDisplayFormat; }
    void SetDisplayFormat(const String& value);
    const String& GetEditFormat() const { return FEditFormat; }
    void SetEditFormat(const String& value);

protected:
    explicit TNumericField(TComponent* owner);
    const String& FormatFor(bool display) const { return display ? FDisplayFormat : FEditFormat; }
    TAlignment GetDefaultAlignment() const override { return taRightJustify; }
    bool Accepts(TFieldType columnType) const override;

private:
    String FDisplayFormat;
    String FEditFormat;
};

/// Whole numbers; each class has the range of its type. MinValue and MaxValue narrow it unless both are 0.
class TLargeintField : public TNumericField {
    FRAMEWORK_CLASS(TLargeintField)

public:
    FRAMEWORK_PROPERTY(std::int64_t, MinValue, GetMinValue, SetMinValue);
    FRAMEWORK_PROPERTY(std::int64_t, MaxValue, GetMaxValue, SetMaxValue);

    explicit TLargeintField(TComponent* owner) : TLargeintField(owner, ftLargeint, INT64_MIN, INT64_MAX) {}

    std::int64_t GetMinValue() const { return FMinValue; }
    void SetMinValue(std::int64_t value) { FMinValue = value; }
    std::int64_t GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(std::int64_t value) { FMaxValue = value; }
    bool IsValidChar(char16_t unit) const override;

protected:
    TLargeintField(TComponent* owner, TFieldType type, std::int64_t least, std::int64_t greatest);
    bool Accepts(TFieldType columnType) const override;
    int GetDefaultWidth() const override;
    String TextOf(const TFieldValue& value, bool display) const override;
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;
    bool TryConvertKey(const TFieldValue& value, OleVariant& converted) const override;

private:
    std::int64_t FLeast; // of the type
    std::int64_t FGreatest;
    std::int64_t FMinValue = 0;
    std::int64_t FMaxValue = 0;
};

class TIntegerField : public TLargeintField {
    FRAMEWORK_CLASS(TIntegerField)

public:
    explicit TIntegerField(TComponent* owner) : TIntegerField(owner, ftInteger) {}

protected:
    TIntegerField(TComponent* owner, TFieldType type) : TLargeintField(owner, type, INT32_MIN, INT32_MAX) {}
    TIntegerField(TComponent* owner, TFieldType type, std::int64_t least, std::int64_t greatest)
        : TLargeintField(owner, type, least, greatest) {}
};

class TSmallintField : public TIntegerField {
    FRAMEWORK_CLASS(TSmallintField)
public:
    explicit TSmallintField(TComponent* owner) : TIntegerField(owner, ftSmallint, INT16_MIN, INT16_MAX) {}
};

class TShortintField : public TIntegerField {
    FRAMEWORK_CLASS(TShortintField)
public:
    explicit TShortintField(TComponent* owner) : TIntegerField(owner, ftShortint, INT8_MIN, INT8_MAX) {}
};

class TByteField : public TIntegerField {
    FRAMEWORK_CLASS(TByteField)
public:
    explicit TByteField(TComponent* owner) : TIntegerField(owner, ftByte, 0, UINT8_MAX) {}
};

class TWordField : public TIntegerField {
    FRAMEWORK_CLASS(TWordField)
public:
    explicit TWordField(TComponent* owner) : TIntegerField(owner, ftWord, 0, UINT16_MAX) {}
};

class TLongWordField : public TIntegerField {
    FRAMEWORK_CLASS(TLongWordField)
public:
    explicit TLongWordField(TComponent* owner) : TIntegerField(owner, ftLongWord, 0, UINT32_MAX) {}
};

/// Whole numbers that the database gives.
class TAutoIncField : public TIntegerField {
    FRAMEWORK_CLASS(TAutoIncField)
public:
    explicit TAutoIncField(TComponent* owner) : TIntegerField(owner, ftAutoInc) {}
};

/// Floats of 64 bits. MinValue and MaxValue are the range unless both are 0.
class TFloatField : public TNumericField {
    FRAMEWORK_CLASS(TFloatField)

public:
    FRAMEWORK_PROPERTY(bool, Currency, GetCurrency, SetCurrency);
    FRAMEWORK_PROPERTY(double, MinValue, GetMinValue, SetMinValue);
    FRAMEWORK_PROPERTY(double, MaxValue, GetMaxValue, SetMaxValue);
    FRAMEWORK_PROPERTY(int, Precision, GetPrecision, SetPrecision);

    explicit TFloatField(TComponent* owner) : TFloatField(owner, ftFloat) {}

    /// Without formats, the value is shown as money.
    bool GetCurrency() const { return FIsMoney; }
    void SetCurrency(bool value);
    double GetMinValue() const { return FMinValue; }
    void SetMinValue(double value) { FMinValue = value; }
    double GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(double value) { FMaxValue = value; }
    /// Significant digits that are shown, 2 to 15.
    int GetPrecision() const { return FPrecision; }
    void SetPrecision(int value);
    bool IsValidChar(char16_t unit) const override;

protected:
    TFloatField(TComponent* owner, TFieldType type);
    String TextOf(const TFieldValue& value, bool display) const override;
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;

private:
    static constexpr int DefaultPrecision = 15;

    double FMinValue = 0;
    double FMaxValue = 0;
    int FPrecision = DefaultPrecision;
    bool FIsMoney = false;
};

/// Floats of 32 bits.
class TSingleField : public TFloatField {
    FRAMEWORK_CLASS(TSingleField)
public:
    explicit TSingleField(TComponent* owner);

protected:
    String PlainText(const TFieldValue& value) const override;
    String TextOf(const TFieldValue& value, bool display) const override;

private:
    static constexpr int SingleDigits = 7;
};

/// Floats that are money.
class TCurrencyField : public TFloatField {
    FRAMEWORK_CLASS(TCurrencyField)
public:
    explicit TCurrencyField(TComponent* owner);
};

/// Exact decimal numbers of up to 18 digits. Size is the number of decimals; a value with more is rounded, a half away
/// from zero. MinValue and MaxValue are the range unless both are 0.
class TFMTBCDField : public TNumericField {
    FRAMEWORK_CLASS(TFMTBCDField)

public:
    FRAMEWORK_PROPERTY(bool, Currency, GetCurrency, SetCurrency);
    FRAMEWORK_PROPERTY(framework::Currency, MinValue, GetMinValue, SetMinValue);
    FRAMEWORK_PROPERTY(framework::Currency, MaxValue, GetMaxValue, SetMaxValue);
    FRAMEWORK_PROPERTY(int, Precision, GetPrecision, SetPrecision);

    explicit TFMTBCDField(TComponent* owner) : TFMTBCDField(owner, ftFMTBcd) {}

    bool GetCurrency() const { return FIsMoney; }
    void SetCurrency(bool value);
    framework::Currency GetMinValue() const { return FMinValue; }
    void SetMinValue(framework::Currency value) { FMinValue = value; }
    framework::Currency GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(framework::Currency value) { FMaxValue = value; }
    /// Digits in all; 0 where nothing limits them.
    int GetPrecision() const { return FPrecision; }
    void SetPrecision(int value) { FPrecision = value; }
    String GetAsString() const override;
    bool IsValidChar(char16_t unit) const override;

protected:
    TFMTBCDField(TComponent* owner, TFieldType type);
    String PlainText(const TFieldValue& value) const override;
    String TextOf(const TFieldValue& value, bool display) const override;
    TFieldValue Readable(const TFieldValue& value) const override;
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;
    bool TryConvertKey(const TFieldValue& value, OleVariant& converted) const override;

private:
    /// The digits of any number, and the text that they were read from.
    TWrittenNumber Written(const TFieldValue& value, String& text) const;

    framework::Currency FMinValue;
    framework::Currency FMaxValue;
    int FPrecision = 0;
    bool FIsMoney = false;
};

/// Exact decimal numbers of up to four decimals, as money.
class TBCDField : public TFMTBCDField {
    FRAMEWORK_CLASS(TBCDField)
public:
    explicit TBCDField(TComponent* owner);
};

/// True or false; DisplayValues are the texts for both, as in "yes;no".
class TBooleanField : public TField {
    FRAMEWORK_CLASS(TBooleanField)

public:
    FRAMEWORK_PROPERTY(String, DisplayValues, GetDisplayValues, SetDisplayValues);

    explicit TBooleanField(TComponent* owner);

    const String& GetDisplayValues() const { return FDisplayValues; }
    void SetDisplayValues(const String& value);

protected:
    bool Accepts(TFieldType columnType) const override;
    int GetDefaultWidth() const override;
    String PlainText(const TFieldValue& value) const override;
    String TextOf(const TFieldValue& value, bool display) const override;
    /// Texts are the display values, or the first letters of one of them.
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;

private:
    String TextFor(bool value) const;

    String FDisplayValues;
};

/// Dates with a time. DisplayFormat is that of FormatDateTime; editors get the format of the settings.
class TDateTimeField : public TField {
    FRAMEWORK_CLASS(TDateTimeField)

public:
    FRAMEWORK_PROPERTY(String, DisplayFormat, GetDisplayFormat, SetDisplayFormat);

    explicit TDateTimeField(TComponent* owner) : TDateTimeField(owner, ftDateTime) {}

    const String& GetDisplayFormat() const { return FDisplayFormat; }
    void SetDisplayFormat(const String& value);

protected:
    TDateTimeField(TComponent* owner, TFieldType type);
    bool Accepts(TFieldType columnType) const override;
    int GetDefaultWidth() const override;
    String PlainText(const TFieldValue& value) const override;
    String TextOf(const TFieldValue& value, bool display) const override;
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;

private:
    String FDisplayFormat;
};

class TDateField : public TDateTimeField {
    FRAMEWORK_CLASS(TDateField)
public:
    explicit TDateField(TComponent* owner) : TDateTimeField(owner, ftDate) {}
};

class TTimeField : public TDateTimeField {
    FRAMEWORK_CLASS(TTimeField)
public:
    explicit TTimeField(TComponent* owner) : TDateTimeField(owner, ftTime) {}
};

/// Blocks of bytes of any length. As text, each byte is a character of its own.
class TBlobField : public TField {
    FRAMEWORK_CLASS(TBlobField)

public:
    FRAMEWORK_READ_PROPERTY(int, BlobSize, GetBlobSize);

    explicit TBlobField(TComponent* owner) : TBlobField(owner, ftBlob) {}

    /// In bytes, or for texts in UTF-16 units.
    int GetBlobSize() const;
    bool IsBlob() const override { return true; }

protected:
    TBlobField(TComponent* owner, TFieldType type);
    bool Accepts(TFieldType columnType) const override;
    /// What stands for the content where it is shown, such as (Memo); in capitals when there is one.
    String TextOf(const TFieldValue& value, bool display) const override;
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;
    bool KeepsEmptyText() const override { return true; }
};

class TGraphicField : public TBlobField {
    FRAMEWORK_CLASS(TGraphicField)
public:
    explicit TGraphicField(TComponent* owner) : TBlobField(owner, ftGraphic) {}
};

/// Texts of any length.
class TMemoField : public TBlobField {
    FRAMEWORK_CLASS(TMemoField)

public:
    explicit TMemoField(TComponent* owner) : TMemoField(owner, ftMemo) {}

protected:
    TMemoField(TComponent* owner, TFieldType type) : TBlobField(owner, type) {}
    bool Accepts(TFieldType columnType) const override;
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;
};

class TWideMemoField : public TMemoField {
    FRAMEWORK_CLASS(TWideMemoField)
public:
    explicit TWideMemoField(TComponent* owner) : TMemoField(owner, ftWideMemo) {}
};

/// Blocks of bytes of limited length.
class TVarBytesField : public TBlobField {
    FRAMEWORK_CLASS(TVarBytesField)
public:
    explicit TVarBytesField(TComponent* owner) : TVarBytesField(owner, ftVarBytes) {}
    bool IsBlob() const override { return false; }

protected:
    TVarBytesField(TComponent* owner, TFieldType type) : TBlobField(owner, type) {}
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;
};

class TBytesField : public TVarBytesField {
    FRAMEWORK_CLASS(TBytesField)
public:
    explicit TBytesField(TComponent* owner) : TVarBytesField(owner, ftBytes) {}
};

/// Globally unique identifiers, shown in braces and read with or without them.
class TGuidField : public TField {
    FRAMEWORK_CLASS(TGuidField)

public:
    FRAMEWORK_PROPERTY(TGUID, AsGuid, GetAsGuid, SetAsGuid);

    explicit TGuidField(TComponent* owner);

    /// All zeros for Null. Also reads identifiers that the database keeps as text.
    TGUID GetAsGuid() const;
    void SetAsGuid(const TGUID& value);

protected:
    bool Accepts(TFieldType columnType) const override;
    int GetDefaultWidth() const override { return 38; }
    TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const override;
};

/// A new field for a column of the given kind; null when there is none.
TField* CreateFieldOf(TFieldType type, TComponent* owner);
/// Makes all classes of fields known to text forms.
void RegisterFieldClasses();

} // namespace framework
