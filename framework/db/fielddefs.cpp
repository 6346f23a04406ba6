#include "framework/db/fielddefs.h"

#include "framework/db/fieldclasses.h"

namespace framework {

const TEnumInfo& DescribeEnum(TFieldAttribute) {
    static const TEnumInfo info{u"TFieldAttribute",
                                {u"faHiddenCol", u"faReadonly", u"faRequired", u"faLink", u"faUnNamed", u"faFixed"}};
    return info;
}

const TClassInfo& TFieldDef::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TFieldDef>(u"TFieldDef", TCollectionItem::StaticClass(),
                                 {Property<&TFieldDef::GetName, &TFieldDef::SetName>(u"Name"),
                                  Property<&TFieldDef::GetAttributes, &TFieldDef::SetAttributes>(u"Attributes", {}),
                                  Property<&TFieldDef::GetDataType, &TFieldDef::SetDataType>(u"DataType", ftUnknown),
                                  Property<&TFieldDef::GetPrecision, &TFieldDef::SetPrecision>(u"Precision", 0),
                                  Property<&TFieldDef::GetSize, &TFieldDef::SetSize>(u"Size", 0)});
    return info;
}

void TFieldDef::Assign(TPersistent* source) {
    const auto* other = As<TFieldDef>(source);
    if (!other) {
        TCollectionItem::Assign(source);
        return;
    }
    FName = other->FName;
    FDataType = other->FDataType;
    FSize = other->FSize;
    FPrecision = other->FPrecision;
    FAttributes = other->FAttributes;
}

TField* TFieldDef::CreateField(TComponent* owner) const {
    TField* field = CreateFieldOf(FDataType, owner);
    if (!field)
        DatabaseError(u"Field '" + FName + u"' is of an unknown type");
    field->SetFieldName(FName);
    field->SetSize(FSize);
    field->SetRequired(FAttributes.Contains(faRequired));
    field->SetReadOnly(FAttributes.Contains(faReadonly));
    if (auto* exact = As<TFMTBCDField>(field))
        exact->SetPrecision(FPrecision);
    return field;
}

const TClassInfo& TFieldDefs::StaticClass() {
    static const TClassInfo info = DescribeClass<TFieldDefs>(u"TFieldDefs", TOwnedCollection::StaticClass());
    return info;
}

TFieldDef* TFieldDefs::Add(const String& name, TFieldType dataType, int size, bool required) {
    TFieldDef* def = AddFieldDef();
    def->SetName(name);
    def->SetDataType(dataType);
    def->SetSize(size);
    if (required)
        def->SetAttributes({faRequired});
    return def;
}

int TFieldDefs::IndexOf(StringView name) const {
    for (int i = 0; i < GetCount(); ++i) {
        if (TNameEqual()(GetItem(i)->GetName(), name))
            return i;
    }
    return -1;
}

TFieldDef* TFieldDefs::Find(StringView name) const {
    const int index = IndexOf(name);
    if (index < 0)
        DatabaseError(u"Field '" + String(name) + u"' not found");
    return GetItem(index);
}

} // namespace framework
