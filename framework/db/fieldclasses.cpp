#include "framework/db/fieldclasses.h"

#include "framework/system/dates.h"

namespace framework {

using TKind = TFieldValue::TKind;

// Dates and times.

const TClassInfo& TDateTimeField::StaticClass() {
    static const TClassInfo info = DescribeClass<TDateTimeField>(
        u"TDateTimeField", TField::StaticClass(),
        {Property<&TDateTimeField::GetDisplayFormat, &TDateTimeField::SetDisplayFormat>(u"DisplayFormat")});
    return info;
}

TDateTimeField::TDateTimeField(TComponent* owner, TFieldType type) : TField(owner) {
    SetDataType(type);
}

void TDateTimeField::SetDisplayFormat(const String& value) {
    if (FDisplayFormat == value)
        return;
    FDisplayFormat = value;
    PropertyChanged(false);
}

bool TDateTimeField::Accepts(TFieldType columnType) const {
    return columnType == ftDate || columnType == ftTime || columnType == ftDateTime || columnType == ftTimeStamp;
}

int TDateTimeField::GetDefaultWidth() const {
    return GetDataType() == ftDateTime ? 18 : 10;
}

String TDateTimeField::PlainText(const TFieldValue& value) const {
    const TDateTime moment = value.AsDate();
    switch (GetDataType()) {
    case ftDate:
        return DateToStr(moment);
    case ftTime:
        return TimeToStr(moment);
    default:
        return DateTimeToStr(moment);
    }
}

String TDateTimeField::TextOf(const TFieldValue& value, bool display) const {
    return display && !FDisplayFormat.empty() ? FormatDateTime(FDisplayFormat, value.AsDate()) : PlainText(value);
}

TFieldValue TDateTimeField::Converted(const TFieldValue& value, OleVariant&) const {
    TDateTime moment = 0;
    if (value.Kind() != TKind::Text) {
        moment = value.AsDate();
    } else {
        const bool isRead = GetDataType() == ftDate   ? TryStrToDate(value.Units(), moment)
                            : GetDataType() == ftTime ? TryStrToTime(value.Units(), moment)
                                                      : TryStrToDateTime(value.Units(), moment);
        if (!isRead)
            RaiseConversion(value, GetDataType() == ftTime ? u"time" : u"date");
    }
    if (YearOf(moment) == 0)
        RaiseConversion(TFieldValue::Float(moment), u"date");
    if (GetDataType() == ftDate)
        moment = DateOf(moment);
    else if (GetDataType() == ftTime)
        moment = TimeOf(moment);
    return TFieldValue::Date(moment);
}

const TClassInfo& TDateField::StaticClass() {
    static const TClassInfo info = DescribeClass<TDateField>(u"TDateField", TDateTimeField::StaticClass());
    return info;
}

const TClassInfo& TTimeField::StaticClass() {
    static const TClassInfo info = DescribeClass<TTimeField>(u"TTimeField", TDateTimeField::StaticClass());
    return info;
}

// The classes by kind of column.

namespace {

struct TFieldMaker {
    TFieldType Type;
    const TClassInfo& (*Class)();
    TField* (*Create)(TComponent* owner);
};

template <class T>
TField* Create(TComponent* owner) {
    return new T(owner);
}

template <class T>
constexpr TFieldMaker MakerOf(TFieldType type) {
    return {type, &T::StaticClass, &Create<T>};
}

constexpr TFieldMaker fieldMakers[] = {
    MakerOf<TStringField>(ftString),
    MakerOf<TSmallintField>(ftSmallint),
    MakerOf<TIntegerField>(ftInteger),
    MakerOf<TWordField>(ftWord),
    MakerOf<TBooleanField>(ftBoolean),
    MakerOf<TFloatField>(ftFloat),
    MakerOf<TCurrencyField>(ftCurrency),
    MakerOf<TBCDField>(ftBCD),
    MakerOf<TDateField>(ftDate),
    MakerOf<TTimeField>(ftTime),
    MakerOf<TDateTimeField>(ftDateTime),
    MakerOf<TBytesField>(ftBytes),
    MakerOf<TVarBytesField>(ftVarBytes),
    MakerOf<TAutoIncField>(ftAutoInc),
    MakerOf<TBlobField>(ftBlob),
    MakerOf<TMemoField>(ftMemo),
    MakerOf<TGraphicField>(ftGraphic),
    MakerOf<TStringField>(ftFixedChar),
    MakerOf<TWideStringField>(ftWideString),
    MakerOf<TLargeintField>(ftLargeint),
    MakerOf<TGuidField>(ftGuid),
    MakerOf<TDateTimeField>(ftTimeStamp),
    MakerOf<TFMTBCDField>(ftFMTBcd),
    MakerOf<TWideStringField>(ftFixedWideChar),
    MakerOf<TWideMemoField>(ftWideMemo),
    MakerOf<TLongWordField>(ftLongWord),
    MakerOf<TShortintField>(ftShortint),
    MakerOf<TByteField>(ftByte),
    MakerOf<TFloatField>(ftExtended),
    MakerOf<TSingleField>(ftSingle),
};

} // namespace

TField* CreateFieldOf(TFieldType type, TComponent* owner) {
    for (const TFieldMaker& maker : fieldMakers) {
        if (maker.Type == type)
            return maker.Create(owner);
    }
    return nullptr;
}

void RegisterFieldClasses() {
    for (const TFieldMaker& maker : fieldMakers)
        RegisterClasses({&maker.Class()});
}

} // namespace framework
