#pragma once

// Fields: the columns of a dataset as programs and forms see them. A field has no value of its own; it reads and writes
// that of the dataset's active record, converts it, and knows how it is shown and what may be entered. Fields come
// from the form (persistent ones) or are made by the dataset when it opens.

#include "framework/db/datatypes.h"
#include "framework/system/components.h"

namespace framework {

class OleVariant;
class TDataSet;
class TField;
class TFields;
class TFieldDef;

using TFieldNotifyEvent = std::function<void(TField* Sender)>;
/// `DisplayText`: the text is shown; otherwise it is put into an editor.
using TFieldGetTextEvent = std::function<void(TField* Sender, String& Text, bool DisplayText)>;
using TFieldSetTextEvent = std::function<void(TField* Sender, const String& Text)>;

class TField : public TComponent {
    FRAMEWORK_CLASS(TField)

public:
    FRAMEWORK_PROPERTY(TDataSet*, DataSet, GetDataSet, SetDataSet);
    FRAMEWORK_READ_PROPERTY(TFieldType, DataType, GetDataType);
    FRAMEWORK_PROPERTY(String, FieldName, GetFieldName, SetFieldName);
    FRAMEWORK_PROPERTY(TFieldKind, FieldKind, GetFieldKind, SetFieldKind);
    FRAMEWORK_READ_PROPERTY(int, FieldNo, GetFieldNo);
    FRAMEWORK_PROPERTY(int, Index, GetIndex, SetIndex);
    FRAMEWORK_PROPERTY(int, Size, GetSize, SetSize);
    FRAMEWORK_PROPERTY(TAlignment, Alignment, GetAlignment, SetAlignment);
    FRAMEWORK_PROPERTY(String, DefaultExpression, GetDefaultExpression, SetDefaultExpression);
    FRAMEWORK_PROPERTY(String, DisplayLabel, GetDisplayLabel, SetDisplayLabel);
    FRAMEWORK_READ_PROPERTY(String, DisplayName, GetDisplayName);
    FRAMEWORK_PROPERTY(int, DisplayWidth, GetDisplayWidth, SetDisplayWidth);
    FRAMEWORK_PROPERTY(bool, ReadOnly, GetReadOnly, SetReadOnly);
    FRAMEWORK_PROPERTY(bool, Required, GetRequired, SetRequired);
    FRAMEWORK_PROPERTY(bool, Visible, GetVisible, SetVisible);
    FRAMEWORK_PROPERTY(String, KeyFields, GetKeyFields, SetKeyFields);
    FRAMEWORK_PROPERTY(TDataSet*, LookupDataSet, GetLookupDataSet, SetLookupDataSet);
    FRAMEWORK_PROPERTY(String, LookupKeyFields, GetLookupKeyFields, SetLookupKeyFields);
    FRAMEWORK_PROPERTY(String, LookupResultField, GetLookupResultField, SetLookupResultField);
    FRAMEWORK_READ_PROPERTY(bool, CanModify, GetCanModify);
    FRAMEWORK_READ_PROPERTY(bool, IsNull, GetIsNull);
    FRAMEWORK_READ_PROPERTY(bool, Calculated, GetCalculated);
    FRAMEWORK_READ_PROPERTY(String, DisplayText, GetDisplayText);
    FRAMEWORK_PROPERTY(String, Text, GetEditText, SetEditText);
    FRAMEWORK_PROPERTY(String, AsString, GetAsString, SetAsString);
    FRAMEWORK_PROPERTY(int, AsInteger, GetAsInteger, SetAsInteger);
    FRAMEWORK_PROPERTY(std::int64_t, AsLargeInt, GetAsLargeInt, SetAsLargeInt);
    FRAMEWORK_PROPERTY(double, AsFloat, GetAsFloat, SetAsFloat);
    FRAMEWORK_PROPERTY(Currency, AsCurrency, GetAsCurrency, SetAsCurrency);
    FRAMEWORK_PROPERTY(TDateTime, AsDateTime, GetAsDateTime, SetAsDateTime);
    FRAMEWORK_PROPERTY(bool, AsBoolean, GetAsBoolean, SetAsBoolean);
    FRAMEWORK_PROPERTY(Variant, AsVariant, GetAsVariant, SetAsVariant);
    FRAMEWORK_PROPERTY(TBytes, AsBytes, GetAsBytes, SetAsBytes);
    FRAMEWORK_PROPERTY(Variant, Value, GetAsVariant, SetAsVariant);
    FRAMEWORK_READ_PROPERTY(Variant, OldValue, GetOldValue);

    /// The value was changed by an assignment.
    TFieldNotifyEvent OnChange;
    /// Takes the place of the formats for DisplayText and Text; `Text` comes in empty.
    TFieldGetTextEvent OnGetText;
    /// Takes the place of the conversion when Text is set.
    TFieldSetTextEvent OnSetText;
    /// Raises to refuse the value that is about to be stored, which the field shows meanwhile.
    TFieldNotifyEvent OnValidate;

    explicit TField(TComponent* owner);
    ~TField() override;

    TDataSet* GetDataSet() const { return FDataSet; }
    /// Moves the field to another dataset, or out of its own with null. EDatabaseError while either is open.
    void SetDataSet(TDataSet* value);
    TFieldType GetDataType() const { return FDataType; }
    const String& GetFieldName() const { return FFieldName; }
    /// The name of the column, or for a calculated field any name; unique in the dataset, letter case aside.
    void SetFieldName(const String& value);
    TFieldKind GetFieldKind() const { return FFieldKind; }
    void SetFieldKind(TFieldKind value);
    /// The number of the column from 1; 0 for fields without one and while the dataset is closed.
    int GetFieldNo() const { return FFieldNo; }
    /// The place among the dataset's fields, -1 in none.
    int GetIndex() const;
    void SetIndex(int value);
    /// Characters of a text, bytes of a block, decimals of an exact number, -1 for any number of these; 0 for other
    /// kinds, and for what the column says when the dataset opens.
    int GetSize() const { return FSize; }
    virtual void SetSize(int value);

    TAlignment GetAlignment() const { return FAlignment; }
    void SetAlignment(TAlignment value);
    const String& GetDefaultExpression() const { return FDefaultExpression; }
    /// A literal, perhaps in apostrophes, that new records get.
    void SetDefaultExpression(const String& value) { FDefaultExpression = value; }
    /// The heading; the field's name unless set.
    const String& GetDisplayLabel() const { return FDisplayLabel.empty() ? FFieldName : FDisplayLabel; }
    void SetDisplayLabel(const String& value);
    const String& GetDisplayName() const { return GetDisplayLabel(); }
    /// In characters; of the data type's own making unless set.
    int GetDisplayWidth() const { return FDisplayWidth > 0 ? FDisplayWidth : GetDefaultWidth(); }
    void SetDisplayWidth(int value);
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool value);
    bool GetRequired() const { return FRequired; }
    void SetRequired(bool value) { FRequired = value; }
    bool GetVisible() const { return FVisible; }
    void SetVisible(bool value);

    // A lookup field shows LookupResultField of the record of LookupDataSet whose LookupKeyFields have the values of
    // this dataset's KeyFields. Several names are parted by semicolons.
    const String& GetKeyFields() const { return FKeyFields; }
    void SetKeyFields(const String& value);
    TDataSet* GetLookupDataSet() const { return FLookupDataSet; }
    void SetLookupDataSet(TDataSet* value);
    const String& GetLookupKeyFields() const { return FLookupKeyFields; }
    void SetLookupKeyFields(const String& value);
    const String& GetLookupResultField() const { return FLookupResultField; }
    void SetLookupResultField(const String& value);

    /// False for read-only fields and datasets and for calculated fields.
    bool GetCanModify() const;
    bool GetIsNull() const { return GetData().IsNull(); }
    /// Calculated, whether by OnCalcFields or by a lookup.
    bool GetCalculated() const { return FFieldKind != fkData; }

    /// As a person reads it, and as he edits it; empty for Null.
    String GetDisplayText() { return FormattedText(true); }
    String GetEditText() { return FormattedText(false); }
    /// Another value as a person would read it here, OnGetText aside: a total as the values above it. Empty for Null.
    String DisplayTextOf(const TFieldValue& value) const { return value.IsNull() ? String() : TextOf(value, true); }
    void SetEditText(const String& value);

    // Conversions. Null reads as 0, False and the empty text; what cannot be converted raises EDatabaseError with the
    // field's name. Writing asks for a dataset in edit or insert state; an empty text becomes Null in all fields but
    // those of texts. A value out of the field's range is EDatabaseError, and the record keeps its own.

    virtual String GetAsString() const;
    int GetAsInteger() const;
    virtual std::int64_t GetAsLargeInt() const;
    double GetAsFloat() const;
    Currency GetAsCurrency() const;
    virtual TDateTime GetAsDateTime() const;
    virtual bool GetAsBoolean() const;
    Variant GetAsVariant() const;
    /// Of bytes; of texts in UTF-8.
    virtual TBytes GetAsBytes() const;
    void SetAsString(const String& value) { SetData(TFieldValue::Text(value)); }
    void SetAsInteger(int value) { SetData(TFieldValue::Integer(value)); }
    void SetAsLargeInt(std::int64_t value) { SetData(TFieldValue::Integer(value)); }
    void SetAsFloat(double value) { SetData(TFieldValue::Float(value)); }
    void SetAsCurrency(Currency value) { SetData(TFieldValue::Money(value)); }
    void SetAsDateTime(TDateTime value) { SetData(TFieldValue::Date(value)); }
    void SetAsBoolean(bool value) { SetData(TFieldValue::Boolean(value)); }
    void SetAsVariant(const Variant& value) { SetData(TFieldValue::Of(value)); }
    void SetAsBytes(const TBytes& value) { SetData(TFieldValue::Bytes(value)); }
    /// Makes the value Null.
    void Clear() { SetData(TFieldValue::Null()); }
    /// The value that the record had before it was edited.
    Variant GetOldValue() const;

    /// The value as the dataset keeps it, without any conversion or allocation. Texts and bytes last until the dataset
    /// moves or the value changes.
    TFieldValue GetData() const;

    /// Whether a key that gives this character makes sense in an editor of this field.
    virtual bool IsValidChar(char16_t unit) const;
    virtual bool IsBlob() const { return false; }
    /// Asks the controls that show this field to take the focus.
    void FocusControl();
    /// Takes over the value of another field.
    void Assign(TPersistent* source) override;

    TComponent* GetParentComponent() const override;
    void SetParentComponent(TComponent* parent) override;

protected:
    friend class TDataSet;
    friend class TFields;

    void Notification(TComponent* component, TOperation operation) override;

    void SetDataType(TFieldType value) { FDataType = value; }
    /// Whether a column of this kind can be read through the field.
    virtual bool Accepts(TFieldType columnType) const { return columnType == FDataType; }
    /// Width in characters when nobody has set one.
    virtual int GetDefaultWidth() const { return 10; }
    /// The alignment of this kind of field, which text forms leave out.
    virtual TAlignment GetDefaultAlignment() const { return taLeftJustify; }
    /// The value as it converts to numbers and variants.
    virtual TFieldValue Readable(const TFieldValue& value) const { return value; }
    /// The text of a value that is not Null, as AsString gives it.
    virtual String PlainText(const TFieldValue& value) const;
    /// The text as shown or edited without OnGetText; the value is not Null unless the field is a blob.
    virtual String TextOf(const TFieldValue& value, bool display) const;
    /// `value`, never Null, in the kind that the field keeps; raises what the setters above say. What it borrows may be
    /// put into `keeper`.
    virtual TFieldValue Converted(const TFieldValue& value, OleVariant& keeper) const = 0;
    /// The same of what is looked for, which is not made to fit as an entry is; false when no record can have it.
    virtual bool TryConvertKey(const TFieldValue& value, OleVariant& converted) const;
    /// Whether the empty text is a value rather than Null.
    virtual bool KeepsEmptyText() const { return false; }

    /// Converts and stores a value, with all that follows.
    void SetData(const TFieldValue& value);
    [[noreturn]] void RaiseConversion(const TFieldValue& value, StringView kind) const;
    [[noreturn]] void RaiseRange(const String& value, const String& least, const String& greatest) const;
    /// Tells the dataset that the field is shown otherwise; with true, that it changed what it reads.
    void PropertyChanged(bool layout);
    void CheckInactive() const;

private:
    bool IsAlignmentStored() const { return FAlignment != GetDefaultAlignment(); }
    bool IsDisplayLabelStored() const { return !FDisplayLabel.empty() && FDisplayLabel != FFieldName; }
    bool IsDisplayWidthStored() const { return FDisplayWidth > 0 && FDisplayWidth != GetDefaultWidth(); }

    String FormattedText(bool display);
    template <class TBody>
    auto Converting(StringView kind, TBody&& body) const;
    /// Calls OnValidate, with `value` shown by the field; false when the field died.
    bool Validate(const TFieldValue& value);

    TDataSet* FDataSet = nullptr;
    TDataSet* FLookupDataSet = nullptr;
    const TFieldValue* FValidated = nullptr; // while OnValidate runs
    String FFieldName;
    String FDisplayLabel;
    String FDefaultExpression;
    String FKeyFields;
    String FLookupKeyFields;
    String FLookupResultField;
    TFieldType FDataType = ftUnknown;
    TFieldKind FFieldKind = fkData;
    TAlignment FAlignment = taLeftJustify;
    int FSize = 0;
    bool FHasColumnSize = false; // while the dataset is open, where nobody has set one
    int FFieldNo = 0;
    int FSlot = -1; // of the record buffer, while the dataset is open
    int FDisplayWidth = 0;
    bool FReadOnly = false;
    bool FRequired = false;
    bool FVisible = true;
};

/// The fields of a dataset in their order. Those that the dataset made itself are freed when it closes; the others live
/// as long as their owner.
class TFields {
public:
    FRAMEWORK_READ_PROPERTY(int, Count, GetCount);
    FRAMEWORK_READ_PROPERTY(TField*, Fields[], GetField);

    explicit TFields(TDataSet& dataSet) : FDataSet(dataSet) {}
    TFields(const TFields&) = delete;
    TFields& operator=(const TFields&) = delete;
    ~TFields() { Clear(); }

    int GetCount() const { return static_cast<int>(FList.size()); }
    /// EDatabaseError outside 0..Count-1.
    TField* GetField(int index) const;
    TField* operator[](int index) const { return GetField(index); }
    /// The field of that name, letter case aside; null when there is none.
    TField* FindField(StringView name) const;
    /// The same; EDatabaseError "Field 'x' not found" when there is none.
    TField* FieldByName(StringView name) const;
    /// The field of the column with that number from 1; null when there is none.
    TField* FieldByNumber(int fieldNo) const;
    int IndexOf(const TField* field) const;
    /// EDatabaseError when a field of that name is there, or the name is empty.
    void CheckFieldName(StringView name) const;
    /// Adds a field that lies outside; it is freed with its owner or, without one, with this list.
    void Add(TField* field);
    void Remove(TField* field);
    /// Frees all fields.
    void Clear();

    std::vector<TField*>::const_iterator begin() const { return FList.begin(); }
    std::vector<TField*>::const_iterator end() const { return FList.end(); }

private:
    friend class TField;

    void Move(TField* field, int index);
    void NamesChanged() { FIndex.clear(); }

    TDataSet& FDataSet;
    std::vector<TField*> FList;
    mutable TNameMap<TField*> FIndex; // built at the first search, once there are many
};

} // namespace framework
