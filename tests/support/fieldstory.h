#pragma once

// Fields of all kinds, masters and details, and fetches that are watched. Included by a native test and by a window
// test.

#include "framework/db/fieldclasses.h"
#include "tests/support/memoryrows.h"

#include <gtest/gtest.h>

namespace testsupport {

/// Polish habits, as far as numbers and dates go.
class TPolishSettings {
public:
    TPolishSettings() : FBefore(FormatSettings()) {
        TFormatSettings& settings = FormatSettings();
        settings = TFormatSettings::Invariant();
        settings.DecimalSeparator = u',';
        settings.ThousandSeparator = u' ';
        settings.DateSeparator = u'.';
        settings.ShortDateFormat = u"dd.MM.yyyy";
        settings.CurrencyString = u"zł";
        settings.CurrencyFormat = 3;
        settings.NegCurrFormat = 8;
    }
    TPolishSettings(const TPolishSettings&) = delete;
    TPolishSettings& operator=(const TPolishSettings&) = delete;
    ~TPolishSettings() { FormatSettings() = FBefore; }

private:
    TFormatSettings FBefore;
};

TEST(Field, ReadsWritesAndShowsEachKindOfColumn) {
    const TPolishSettings settings;
    struct TCase {
        const char* Name;
        TColumnInfo Column;
        const char* ClassName;
        const char16_t* Entered; ///< by a person
        const char16_t* Shown;   ///< DisplayText
        const char16_t* Text;    ///< AsString; begins with ! where the entry is refused
        std::function<void(TField&)> Prepare = {};
    };
    const auto column = [](DataTypeEnum type, std::int64_t size = 0, int scale = 0) {
        return MemoryColumn(u"F", type, size, scale);
    };
    const auto format = [](const char16_t* display) {
        return [display](TField& field) { SetPropValue(field, u"DisplayFormat", display); };
    };
    const auto money = [](TField& field) { SetPropValue(field, u"Currency", true); };
    TColumnInfo automatic = column(adInteger);
    automatic.AutoIncrement = true;
    const TCase cases[] = {
        {"8 bits", column(adTinyInt), "TShortintField", u"-128", u"-128", u"-128"},
        {"8 bits beyond", column(adTinyInt), "TShortintField", u"128", u"", u"!range"},
        {"byte", column(adUnsignedTinyInt), "TByteField", u"255", u"255", u"255"},
        {"16 bits", column(adSmallInt), "TSmallintField", u"+7", u"7", u"7"},
        {"16 bits unsigned", column(adUnsignedSmallInt), "TWordField", u"-1", u"", u"!range"},
        {"32 bits", column(adInteger), "TIntegerField", u"1234567", u"1 234 567", u"1234567", format(u"#,##0")},
        {"32 bits, text", column(adInteger), "TIntegerField", u"12a", u"", u"!integer"},
        {"32 bits unsigned", column(adUnsignedInt), "TLongWordField", u"4294967295", u"4294967295", u"4294967295"},
        {"given by the database", automatic, "TAutoIncField", u"5", u"5", u"5"},
        {"64 bits", column(adBigInt), "TLargeintField", u"-9223372036854775808", u"-9223372036854775808",
         u"-9223372036854775808"},
        {"64 bits beyond", column(adBigInt), "TLargeintField", u"9223372036854775808", u"", u"!integer"},
        {"float", column(adDouble), "TFloatField", u"-0,125", u"-0,13", u"-0,125", format(u"0.00")},
        {"float as money", column(adDouble), "TFloatField", u"1234,5", u"1 234,50 zł", u"1234,5", money},
        {"float with a point", column(adDouble), "TFloatField", u"1.5", u"", u"!floating"},
        {"single", column(adSingle), "TSingleField", u"0,1", u"0,1", u"0,1"},
        {"decimal", column(adNumeric, 0, 2), "TBCDField", u"0,10", u"0,1", u"0,1"},
        {"decimal is rounded", column(adNumeric, 0, 2), "TBCDField", u"2,675", u"2,68 zł", u"2,68", money},
        {"decimal is too wide", column(adNumeric, 0, 2), "TBCDField", u"12345678901234567,5", u"", u"!digits"},
        {"six decimals", column(adNumeric, 0, 6), "TFMTBCDField", u"-1,000001", u"-1,000001", u"-1,000001"},
        {"any decimals", column(adNumeric), "TFMTBCDField", u"-4,321550000012", u"-4,32", u"-4,321550000012",
         format(u"0.00")},
        {"money", column(adCurrency, 0, 4), "TBCDField", u"922337203685477,5807", u"922337203685477,5807",
         u"922337203685477,5807"},
        {"truth", column(adBoolean), "TBooleanField", u"t", u"True", u"True"},
        {"truth in words", column(adBoolean), "TBooleanField", u"NI", u"nie", u"nie",
         [](TField& field) { SetPropValue(field, u"DisplayValues", u"tak;nie"); }},
        {"truth in other words", column(adBoolean), "TBooleanField", u"perhaps", u"", u"!boolean"},
        {"date", column(adDBDate), "TDateField", u"29.2.2024", u"2024-02", u"29.02.2024", format(u"yyyy-mm")},
        {"no date", column(adDBDate), "TDateField", u"29.2.2023", u"", u"!date"},
        {"time", column(adDBTime), "TTimeField", u"23:59:59", u"23:59:59", u"23:59:59"},
        {"date and time", column(adDBTimeStamp), "TDateTimeField", u"1.12.1899 6:00", u"01.12.1899 06:00:00",
         u"01.12.1899 06:00:00"},
        {"text", column(adVarWChar, 10), "TWideStringField", u"Ł\U0001F600", u"Ł\U0001F600", u"Ł\U0001F600"},
        {"empty text", column(adVarWChar, 10), "TWideStringField", u"", u"", u""},
        {"long text", column(adLongVarWChar), "TWideMemoField", u"abc", u"(WIDEMEMO)", u"abc"},
        {"bytes", column(adLongVarBinary), "TBlobField", u"a\u00FF", u"(BLOB)", u"a\u00FF"},
        {"bytes from a text", column(adLongVarBinary), "TBlobField", u"Ł", u"", u"!U+00FF"},
        {"few bytes", column(adVarBinary, 2), "TVarBytesField", u"abc", u"", u"!bytes"},
        {"identifier", column(adGUID), "TGuidField", u"6f9619ff-8b86-d011-b42d-00c04fc964ff",
         u"{6F9619FF-8B86-D011-B42D-00C04FC964FF}", u"{6F9619FF-8B86-D011-B42D-00C04FC964FF}"},
        {"no identifier", column(adGUID), "TGuidField", u"6f96", u"", u"!valid"},
    };
    for (const TCase& each : cases) {
        SCOPED_TRACE(each.Name);
        TRowStore rows({each.Column});
        rows.AppendRow();
        TADODataSet data(nullptr);
        data.SetRecordset(std::make_shared<TClientRecordset>(std::move(rows)));
        TField& field = *data.GetFields()[0];
        EXPECT_EQ(Utf8Encode(field.ClassName()), each.ClassName);
        EXPECT_TRUE(field.GetIsNull());
        EXPECT_EQ(field.GetAsString(), u"");
        EXPECT_EQ(field.GetAsLargeInt(), 0);
        EXPECT_TRUE(VarIsNull(field.GetAsVariant()));
        if (each.Prepare)
            each.Prepare(field);
        data.Edit();
        const std::string problem = ProblemOf([&] { field.SetEditText(each.Entered); });
        if (each.Text[0] == u'!') {
            EXPECT_NE(problem.find(Utf8Encode(each.Text + 1)), std::string::npos) << problem;
            EXPECT_TRUE(field.GetIsNull());
            continue;
        }
        ASSERT_EQ(problem, "none");
        // What was entered reads the same before and after it was posted, and so does what comes back as a variant.
        for (const bool posted : {false, true}) {
            if (posted)
                data.Post();
            EXPECT_EQ(Utf8Encode(field.GetAsString()), Utf8Encode(each.Text));
            EXPECT_EQ(Utf8Encode(field.GetDisplayText()), Utf8Encode(each.Shown));
            EXPECT_EQ(field.GetIsNull(), false);
        }
        const Variant value = field.GetAsVariant();
        data.Edit();
        field.Clear();
        EXPECT_TRUE(field.GetIsNull());
        field.SetAsVariant(value);
        data.Post();
        EXPECT_EQ(field.GetAsVariant(), value);
        EXPECT_EQ(Utf8Encode(field.GetAsString()), Utf8Encode(each.Text));
    }
}

TEST(Field, LetsHandlersWriteAndReadItsText) {
    TCustomers customers(2);
    TADODataSet& data = *customers.DataSet;
    TField& name = *data.FieldByName(u"Name");
    TField& city = *data.FieldByName(u"City");
    name.OnGetText = [](TField* field, String& text, bool display) {
        text = (display ? u"<" : u"") + field->GetAsString();
    };
    name.OnSetText = [](TField* field, const String& text) { field->SetAsString(UpperCase(text)); };
    String changes;
    name.OnChange = [&](TField* field) { changes += field->GetAsString() + u" "; };
    EXPECT_EQ(name.GetDisplayText(), u"<Customer 1");
    data.Edit();
    name.SetEditText(u"abc");
    EXPECT_EQ(name.GetEditText(), u"ABC");
    EXPECT_EQ(changes, u"ABC ");
    // A handler that ends the edit, or the field, has the last word.
    city.OnValidate = [&](TField*) { data.Cancel(); };
    city.SetAsString(u"Praha");
    EXPECT_EQ(data.GetState(), dsBrowse);
    EXPECT_EQ(city.GetAsString(), u"Łódź");
    data.Edit();
    city.OnValidate = [](TField* field) { delete field; };
    city.SetAsString(u"Praha");
    EXPECT_EQ(data.FindField(u"City"), nullptr);
    data.Post();
    EXPECT_EQ(customers.Walk(), "1 2");
}

TEST(DataSet, FollowsItsMasterAndCanBeStoppedWhileItFetches) {
    SetRecordsetOpener(OpenOrders);
    TCustomers customers(4);
    TDataSource source(nullptr);
    source.SetDataSet(customers.DataSet);
    auto* orders = new TADODataSet(&customers.Owner);
    orders->SetCommandText(u"select * from orders where customer = :Id");
    orders->SetDataSource(&source);
    orders->Open();
    const auto order = [&] { return orders->IsEmpty() ? 0 : orders->FieldByName(u"Order")->GetAsInteger(); };
    EXPECT_EQ(order(), 101);
    customers.DataSet->MoveBy(2);
    EXPECT_EQ(order(), 301);
    EXPECT_EQ(orders->GetRecordCount(), 3);
    customers.DataSet->Append();
    EXPECT_TRUE(orders->IsEmpty()) << "a new record has nothing yet";
    customers.DataSet->Cancel();
    EXPECT_EQ(order(), 401);
    TDataSource back(nullptr);
    back.SetDataSet(orders);
    EXPECT_EQ(ProblemOf([&] { customers.DataSet->SetDataSource(&back); }), "Circular datalinks are not allowed");
    orders->Close();

    int told = 0;
    const TLifeGuard alive(*orders);
    orders->OnFetchProgress = [&](TCustomADODataSet*, int rows, int count, TEventStatus& status) {
        EXPECT_EQ(rows, ++told);
        EXPECT_EQ(count, 4);
        if (rows == 2)
            status = esCancel;
    };
    EXPECT_THROW(orders->Open(), EFetchCancelled);
    EXPECT_EQ(told, 2);
    EXPECT_FALSE(orders->GetActive());
    orders->OnFetchProgress = [](TCustomADODataSet* dataSet, int, int, TEventStatus&) { dataSet->Close(); };
    EXPECT_THROW(orders->Open(), EFetchCancelled);
    EXPECT_FALSE(orders->GetActive());
    orders->OnFetchProgress = nullptr;
    orders->Open();
    EXPECT_EQ(order(), 401);
    orders->Close();
    orders->OnFetchProgress = [](TCustomADODataSet* dataSet, int, int, TEventStatus&) { delete dataSet; };
    orders->Open();
    EXPECT_FALSE(alive);
    SetRecordsetOpener(nullptr);
}

TEST(DataSet, FetchesDetailsOnlyForAnotherMaster) {
    int fetched = 0;
    SetRecordsetOpener([&](TRecordsetQuery& query) {
        if (++fetched == 2)
            throw EDatabaseError(u"The connection is lost");
        return OpenOrders(query);
    });
    TCustomers customers(4);
    TDataSource source(nullptr);
    source.SetDataSet(customers.DataSet);
    TADODataSet orders(nullptr);
    orders.SetCommandText(u"select * from orders where customer = :Id");
    orders.SetDataSource(&source);
    orders.Open();
    EXPECT_EQ(ProblemOf([&] { customers.DataSet->MoveBy(2); }), "The connection is lost");
    EXPECT_FALSE(orders.GetActive()) << "rows of the former master are not shown";
    orders.Open();
    orders.Last();
    customers.DataSet->Edit();
    customers.DataSet->FieldByName(u"City")->SetAsString(u"Praha");
    customers.DataSet->Post();
    EXPECT_EQ(orders.FieldByName(u"Order")->GetAsInteger(), 303) << "its place is kept";
    EXPECT_EQ(fetched, 3);
    SetRecordsetOpener(nullptr);
}

TEST(DataSet, ReadsColumnsAsTheyAreWhenTheyAreReadAnew) {
    TCustomers customers(3);
    TADODataSet& data = *customers.DataSet;
    const TBookmark bookmark = data.GetBookmark();
    customers.Source->Columns[3].Type = adDouble;
    for (auto& row : customers.Source->Rows)
        row[3] = 0.001;
    data.Refresh();
    EXPECT_EQ(data.FieldByName(u"Credit")->GetAsFloat(), 0.001);
    customers.Source->Columns[1].Name = u"Surname";
    EXPECT_EQ(ProblemOf([&] { data.Refresh(); }), "The columns have changed; open the dataset again");
    EXPECT_FALSE(data.GetActive());
    // A bookmark of other rows leads nowhere.
    TCustomers others(3, false);
    data.SetRecordset(others.Recordset);
    EXPECT_FALSE(data.BookmarkValid(bookmark));
    EXPECT_TRUE(data.BookmarkValid(data.GetBookmark()));
}

TEST(DataSet, PostsEachDigitAndWhatTheLastHandlerSets) {
    const TPolishSettings settings;
    const struct {
        TNumeric Stored;
        const char16_t* Entered;
    } cases[] = {{{123456789012345678, 6}, u"123456789012,345679"},
                 // One digit more than 64 bits hold, and the same as a double.
                 {{INT64_MAX, 6}, u"9223372036854,775808"}};
    for (const auto& each : cases) {
        TColumnInfo column = MemoryColumn(u"F", adNumeric, 0, 6);
        column.Precision = 38;
        TRowStore rows({column});
        rows.AppendRow(std::vector<TDataValue>{each.Stored});
        TADODataSet data(nullptr);
        data.SetRecordset(std::make_shared<TClientRecordset>(std::move(rows)));
        data.Edit();
        data.FieldByName(u"F")->SetEditText(each.Entered);
        data.Post();
        EXPECT_EQ(Utf8Encode(data.FieldByName(u"F")->GetAsString()), Utf8Encode(each.Entered));
    }
    TCustomers customers(2);
    TADODataSet& data = *customers.DataSet;
    data.BeforePost = [](TDataSet* dataSet) { dataSet->FieldByName(u"Id")->SetAsInteger(9); };
    data.Append();
    EXPECT_EQ(ProblemOf([&] { data.Post(); }), "none");
    EXPECT_EQ(customers.Id(), 9);
    // Whoever closes the dataset has nothing left to be tried again.
    customers.Source->Refusal = u"The disk is full";
    data.OnPostError = [](TDataSet* dataSet, const EDatabaseError&, TDataAction& action) {
        dataSet->Close();
        action = daRetry;
    };
    data.Edit();
    data.FieldByName(u"City")->SetAsString(u"Praha");
    EXPECT_EQ(ProblemOf([&] { data.Post(); }), "Cannot perform this operation on a closed dataset");
}

TEST(DataSet, SurvivesItsEndWhileALinkGrows) {
    TCustomers customers(5, false);
    auto* twice = new TIntegerField(&customers.Owner);
    twice->SetFieldName(u"Twice");
    twice->SetFieldKind(fkCalculated);
    twice->SetDataSet(customers.DataSet);
    TDataSource source(nullptr);
    source.SetDataSet(customers.DataSet);
    TDataLink link;
    link.SetDataSource(&source);
    customers.DataSet->SetRecordset(customers.Recordset);
    const TLifeGuard alive(*customers.DataSet);
    customers.DataSet->OnCalcFields = [](TDataSet* dataSet) { delete dataSet; };
    link.SetBufferCount(3);
    EXPECT_FALSE(alive);
    EXPECT_FALSE(link.GetActive());
}

TEST(Field, ShowsWideNumbersAndNamesItselfWhereTheyDoNotConvert) {
    const TPolishSettings settings;
    TRowStore rows({MemoryColumn(u"F", adNumeric)});
    rows.AppendRow();
    TADODataSet data(nullptr);
    data.SetRecordset(std::make_shared<TClientRecordset>(std::move(rows)));
    auto& field = static_cast<TFMTBCDField&>(*data.GetFields()[0]);
    field.SetDisplayFormat(u"#,##0.00");
    const struct {
        const char16_t* Entered;
        const char16_t* Shown;
        const char* Money;
    } cases[] = {
        {u"1234567,00400000000000000000001", u"1 234 567,00", "none"},
        {u"123456789012345678901,5", u"123456789012345678901,5",
         "'123456789012345678901.5' is not a valid currency value for field 'F'"},
    };
    for (const auto& each : cases) {
        data.Edit();
        field.SetEditText(each.Entered);
        data.Post();
        EXPECT_EQ(Utf8Encode(field.GetAsString()), Utf8Encode(each.Entered));
        EXPECT_EQ(Utf8Encode(field.GetDisplayText()), Utf8Encode(each.Shown));
        EXPECT_EQ(ProblemOf([&] { field.GetAsCurrency(); }), each.Money);
    }
    data.Edit();
    EXPECT_NE(ProblemOf([&] { field.SetEditText(u"1E-99999"); }), "none");
}

TEST(Field, TakesTheSizeOfTheColumnThatIsThere) {
    TADODataSet data(nullptr);
    auto* name = new TWideStringField(&data);
    name->SetFieldName(u"F");
    name->SetDataSet(&data);
    for (const int size : {30, 2}) {
        data.SetRecordset(std::make_shared<TClientRecordset>(TRowStore({MemoryColumn(u"F", adVarWChar, size)})));
        EXPECT_EQ(name->GetSize(), size);
        data.Close();
        EXPECT_EQ(name->GetSize(), 0);
    }
}

TEST(Field, CountsCharactersAndTakesItsOwnBytes) {
    TRowStore rows({MemoryColumn(u"F", adVarWChar, 2)});
    rows.AppendRow();
    TADODataSet data(nullptr);
    data.SetRecordset(std::make_shared<TClientRecordset>(std::move(rows)));
    TField& field = *data.GetFields()[0];
    data.Edit();
    EXPECT_EQ(ProblemOf([&] { field.SetAsString(u"Ł\U0001F600"); }), "none");
    field.SetAsBytes(field.GetAsBytes());
    data.Post();
    EXPECT_EQ(Utf8Encode(field.GetAsString()), "Ł\U0001F600");
}

} // namespace testsupport
