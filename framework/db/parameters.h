#pragma once

// Parameters of statements: a text with names such as :id, and the values that stand for them.

#include "framework/db/datatypes.h"
#include "framework/system/collections.h"

namespace framework {

/// A statement with `?` for each parameter, and their names in the same order; a `?` of the statement's own has no
/// name.
struct TParsedStatement {
    String Text;
    std::vector<String> Names;
};

/// Finds the parameters `:name` and `?` of a statement. Texts, quoted names, comments and `::` are passed over.
TParsedStatement ParseStatement(StringView statement);

class TParameter : public TCollectionItem {
    FRAMEWORK_CLASS(TParameter)

public:
    FRAMEWORK_PROPERTY(String, Name, GetName, SetName);
    FRAMEWORK_PROPERTY(TFieldType, DataType, GetDataType, SetDataType);
    FRAMEWORK_PROPERTY(Variant, Value, GetValue, SetValue);

    explicit TParameter(TCollection* collection) : TCollectionItem(collection) {}

    const String& GetName() const { return FName; }
    void SetName(const String& value) { FName = value; }
    /// How a moment travels: as a day by ftDate, a time of day by ftTime, both by ftDateTime and ftTimeStamp. By any
    /// other type at midnight as a day, on day 0 as a time of day, else as both. Other values tell what they are.
    TFieldType GetDataType() const { return FDataType; }
    void SetDataType(TFieldType value) { FDataType = value; }
    const Variant& GetValue() const { return FValue; }
    /// Unassigned counts as Null.
    void SetValue(const Variant& value) { FValue = value; }

    String GetDisplayName() const override { return FName.empty() ? TCollectionItem::GetDisplayName() : FName; }
    void SetDisplayName(const String& value) override { FName = value; }
    void Assign(TPersistent* source) override;

private:
    String FName;
    TFieldType FDataType = ftUnknown;
    Variant FValue;
};

class TParameters : public TOwnedCollection {
    FRAMEWORK_CLASS(TParameters)

public:
    FRAMEWORK_READ_PROPERTY(TParameter*, Items[], GetItem);
    FRAMEWORK_PROPERTY(Variant, ParamValues[], GetParamValues, SetParamValues);

    explicit TParameters(TPersistent* owner) : TOwnedCollection(owner, ItemsOf<TParameter>()) {}

    TParameter* GetItem(int index) const { return static_cast<TParameter*>(TOwnedCollection::GetItem(index)); }
    TParameter* AddParameter() { return static_cast<TParameter*>(Add()); }
    /// Letter case aside; null, or EDatabaseError, when there is none.
    TParameter* FindParam(StringView name) const;
    TParameter* ParamByName(StringView name) const;
    const Variant& GetParamValues(StringView name) const { return ParamByName(name)->GetValue(); }
    void SetParamValues(StringView name, const Variant& value) { ParamByName(name)->SetValue(value); }
    /// Makes the parameters those of the statement; one that was there before keeps its value.
    void ParseSQL(StringView statement);
};

} // namespace framework
