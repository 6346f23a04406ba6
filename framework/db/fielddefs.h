#pragma once

// What the columns of a dataset are, before and apart from the fields that show them.

#include "framework/db/datatypes.h"
#include "framework/system/collections.h"

namespace framework {

class TDataSet;
class TField;

enum TFieldAttribute { faHiddenCol, faReadonly, faRequired, faLink, faUnNamed, faFixed };
using TFieldAttributes = Set<TFieldAttribute>;

const TEnumInfo& DescribeEnum(TFieldAttribute);

class TFieldDef : public TCollectionItem {
    FRAMEWORK_CLASS(TFieldDef)

public:
    FRAMEWORK_PROPERTY(String, Name, GetName, SetName);
    FRAMEWORK_PROPERTY(TFieldType, DataType, GetDataType, SetDataType);
    FRAMEWORK_PROPERTY(int, Size, GetSize, SetSize);
    FRAMEWORK_PROPERTY(int, Precision, GetPrecision, SetPrecision);
    FRAMEWORK_PROPERTY(TFieldAttributes, Attributes, GetAttributes, SetAttributes);
    FRAMEWORK_READ_PROPERTY(int, FieldNo, GetFieldNo);

    explicit TFieldDef(TCollection* collection) : TCollectionItem(collection) {}

    const String& GetName() const { return FName; }
    void SetName(const String& value) { FName = value; }
    TFieldType GetDataType() const { return FDataType; }
    void SetDataType(TFieldType value) { FDataType = value; }
    /// Characters, bytes or decimals, as TField has it.
    int GetSize() const { return FSize; }
    void SetSize(int value) { FSize = value; }
    int GetPrecision() const { return FPrecision; }
    void SetPrecision(int value) { FPrecision = value; }
    TFieldAttributes GetAttributes() const { return FAttributes; }
    void SetAttributes(TFieldAttributes value) { FAttributes = value; }
    /// The number of the column, from 1.
    int GetFieldNo() const { return GetIndex() + 1; }

    String GetDisplayName() const override { return FName.empty() ? TCollectionItem::GetDisplayName() : FName; }
    void SetDisplayName(const String& value) override { FName = value; }
    void Assign(TPersistent* source) override;
    /// A new field for this column, owned by `owner` and not in a dataset yet. EDatabaseError when no class of fields
    /// can show it.
    TField* CreateField(TComponent* owner) const;

private:
    String FName;
    TFieldType FDataType = ftUnknown;
    int FSize = 0;
    int FPrecision = 0;
    TFieldAttributes FAttributes;
};

class TFieldDefs : public TOwnedCollection {
    FRAMEWORK_CLASS(TFieldDefs)

public:
    FRAMEWORK_READ_PROPERTY(TFieldDef*, Items[], GetItem);

    explicit TFieldDefs(TPersistent* owner) : TOwnedCollection(owner, ItemsOf<TFieldDef>()) {}

    TFieldDef* GetItem(int index) const { return static_cast<TFieldDef*>(TOwnedCollection::GetItem(index)); }
    TFieldDef* AddFieldDef() { return static_cast<TFieldDef*>(TOwnedCollection::Add()); }
    TFieldDef* Add(const String& name, TFieldType dataType, int size = 0, bool required = false);
    /// Letter case aside; -1 when there is none.
    int IndexOf(StringView name) const;
    /// EDatabaseError when there is none.
    TFieldDef* Find(StringView name) const;
};

} // namespace framework
