#include "framework/db/parameters.h"

#include "framework/system/numbers.h"

namespace framework {

namespace {

bool IsNameUnit(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') ||
           unit == u'_' || unit == u'$' || unit >= 0x80;
}

/// Where what begins at `place` and is no place for parameters ends; `place` itself when nothing of the kind begins.
std::size_t EndOfInert(StringView text, std::size_t place) {
    const auto behind = [&](StringView mark, std::size_t from) {
        const std::size_t found = text.find(mark, from);
        return found == StringView::npos ? text.size() : found + mark.size();
    };
    const StringView rest = text.substr(place);
    switch (rest.front()) {
    case u'\'':
    case u'"':
    case u'`':
        return behind(rest.substr(0, 1), place + 1); // a doubled quote begins the next text at once
    case u'[':
        return behind(u"]", place + 1);
    case u'-':
        return rest.starts_with(u"--") ? behind(u"\n", place) : place;
    case u'/':
        return rest.starts_with(u"/*") ? behind(u"*/", place + 2) : place;
    case u':':
        return rest.starts_with(u"::") ? place + 2 : place;
    default:
        return place;
    }
}

} // namespace

TParsedStatement ParseStatement(StringView statement) {
    TParsedStatement parsed;
    std::size_t place = 0;
    while (place < statement.size()) {
        if (const std::size_t end = EndOfInert(statement, place); end > place) {
            parsed.Text += statement.substr(place, end - place);
            place = end;
            continue;
        }
        const char16_t unit = statement[place++];
        std::size_t end = place;
        while (unit == u':' && end < statement.size() && IsNameUnit(statement[end]))
            ++end;
        if (unit != u'?' && end == place) {
            parsed.Text += unit;
            continue;
        }
        parsed.Text += u'?';
        parsed.Names.emplace_back(statement.substr(place, end - place));
        place = end;
    }
    return parsed;
}

const TClassInfo& TParameter::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TParameter>(u"TParameter", TCollectionItem::StaticClass(),
                                  {Property<&TParameter::GetName, &TParameter::SetName>(u"Name"),
                                   Property<&TParameter::GetDataType, &TParameter::SetDataType>(u"DataType", ftUnknown),
                                   Property<&TParameter::GetValue, &TParameter::SetValue>(u"Value")});
    return info;
}

void TParameter::Assign(TPersistent* source) {
    const auto* other = As<TParameter>(source);
    if (!other) {
        TCollectionItem::Assign(source);
        return;
    }
    FName = other->FName;
    FDataType = other->FDataType;
    FValue = other->FValue;
}

const TClassInfo& TParameters::StaticClass() {
    static const TClassInfo info = DescribeClass<TParameters>(u"TParameters", TOwnedCollection::StaticClass());
    return info;
}

TParameter* TParameters::FindParam(StringView name) const {
    for (int i = 0; i < GetCount(); ++i) {
        if (TNameEqual()(GetItem(i)->GetName(), name))
            return GetItem(i);
    }
    return nullptr;
}

TParameter* TParameters::ParamByName(StringView name) const {
    TParameter* parameter = FindParam(name);
    if (!parameter)
        DatabaseError(u"Parameter '" + String(name) + u"' not found");
    return parameter;
}

void TParameters::ParseSQL(StringView statement) {
    TParameters before(nullptr);
    before.Assign(this);
    Clear();
    int nameless = 0;
    for (const String& written : ParseStatement(statement).Names) {
        const String name = written.empty() ? u"Param" + IntToStr(++nameless) : written;
        if (FindParam(name))
            continue;
        TParameter* parameter = AddParameter();
        if (TParameter* known = before.FindParam(name))
            parameter->Assign(known);
        parameter->SetName(name);
    }
}

} // namespace framework
