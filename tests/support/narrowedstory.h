#pragma once

// The narrowed dataset at its edges. Included by a native test and by a window test.

#include "framework/db/fieldclasses.h"
#include "framework/system/applicationhooks.h"
#include "tests/support/memoryrows.h"

#include <gtest/gtest.h>

namespace testsupport {

TEST(NarrowedDataSet, ShowsTheRowsThatWereMarked) {
    TCustomers customers(10);
    ZOR::TZORADODataSet& data = *customers.DataSet;
    const auto recNo = [&](int id) {
        EXPECT_TRUE(data.Locate(u"Id", id, {}));
        return data.GetRecNo();
    };
    data.Last();
    data.SetFilteredByBookmarks(true);
    EXPECT_FALSE(data.GetFilteredByBookmarks()) << "there is nothing to show";
    EXPECT_EQ(customers.Id(), 1) << "and yet it goes to the first row";

    // The numbers are the caller's, the order is the rows'.
    customers.Mark({7, 3, 9, 5});
    EXPECT_EQ(data.GetRecordCount(), 10);
    data.SetFilteredByBookmarks(true);
    EXPECT_EQ(customers.Id(), 3);
    EXPECT_EQ(customers.Walk(), "3 5 7 9");
    EXPECT_EQ(data.GetRecordCount(), 4);
    EXPECT_EQ(recNo(7), 1);
    EXPECT_EQ(recNo(5), 4);
    data.SetRecNo(3);
    EXPECT_EQ(customers.Id(), 9);
    data.Next();
    EXPECT_TRUE(data.GetEof()) << "row 10 is skipped";

    // A row outside is not found, and nothing moves.
    EXPECT_FALSE(data.Locate(u"Id", 4, {}));
    EXPECT_FALSE(data.Locate(u"Id", 400, {}));
    EXPECT_EQ(customers.Id(), 9);
    EXPECT_EQ(VarToStr(data.Lookup(u"Id", 4, u"Name")), u"Customer 4");
    EXPECT_EQ(ProblemOf([&] { data.Locate(u"Nothing", 1, {}); }), "Field 'Nothing' not found");
    try {
        data.Locate(u"Nothing", 1, {});
    } catch (const Exception& error) {
        EXPECT_EQ(dynamic_cast<const EDatabaseError*>(&error), nullptr) << "errors come as plain exceptions here";
    }

    // The same number twice: the first row has it. The present number: nothing happens at all.
    int scrolls = 0;
    data.BeforeScroll = [&](TDataSet*) { ++scrolls; };
    EXPECT_TRUE(data.Locate(u"Id", 9, {}));
    data.AddBookmark(4);
    data.First();
    scrolls = 0;
    data.SetRecNo(4);
    EXPECT_EQ(customers.Id(), 5);
    data.SetRecNo(4);
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(ProblemOf([&] { data.SetRecNo(77); }), "The bookmark belongs to no record");
    EXPECT_EQ(customers.Id(), 5);
    EXPECT_EQ(data.GetRecordCount(), 4);

    data.AddBookmark(-2);
    data.First();
    EXPECT_EQ(recNo(5), -2);

    // The number 0 hides a row, though it counts.
    data.AddBookmark(0);
    data.SetFilteredByBookmarks(false);
    EXPECT_EQ(data.GetRecordCount(), 10);
    data.SetFilteredByBookmarks(true);
    EXPECT_EQ(customers.Walk(), "3 7 9");
    EXPECT_EQ(data.GetRecordCount(), 4);

    // Reading the rows anew finds the marked ones again by their keys.
    data.Last();
    customers.Source->Rows.erase(customers.Source->Rows.begin() + 6);
    data.Refresh();
    EXPECT_EQ(customers.Id(), 9);
    EXPECT_EQ(customers.Walk(), "3 9");

    data.ClearBookmarks();
    EXPECT_TRUE(data.GetFilteredByBookmarks());
    EXPECT_EQ(data.GetRecordCount(), 0);
    data.First();
    EXPECT_FALSE(data.GetFilteredByBookmarks());
    EXPECT_EQ(customers.Walk(), "1 2 3 4 5 6 8 9 10");
    data.Append();
    EXPECT_EQ(ProblemOf([&] { data.AddBookmark(1); }), "There is no record to be marked");
}

/// Looks at buffers as a program may that knows their layout.
class TOpenDataSet : public ZOR::TZORADODataSet {
public:
    using TCustomADODataSet::AllocRecordBuffer;
    using TCustomADODataSet::FreeRecordBuffer;
    using TZORADODataSet::TZORADODataSet;
};

TEST(NarrowedDataSet, FillsTheHeadersOfItsBuffers) {
    TCustomers customers(5, false);
    TOpenDataSet data(nullptr);
    data.SetRecordset(customers.Recordset);
    data.Locate(u"Id", 2, {});
    data.AddBookmark(42);
    data.Locate(u"Id", 4, {});
    data.AddBookmark(43);
    TRecordBuffer buffer = data.AllocRecordBuffer();
    const auto& header = *reinterpret_cast<ZOR::TRecInfo*>(buffer);
    auto* values = reinterpret_cast<OleVariant*>(buffer + sizeof(ZOR::TRecInfo));
    const auto get = [&](int row, TGetMode mode) {
        customers.Recordset->SetAbsolutePosition(row);
        return data.GetRecord(buffer, mode, true);
    };
    values[1] = Variant(u"left over");
    EXPECT_EQ(get(3, gmCurrent), grOK);
    EXPECT_EQ(int(header.RecordNumber), 3);
    EXPECT_EQ(header.BookmarkFlag, bfCurrent);
    EXPECT_EQ(header.Bookmark, OleVariant(customers.Recordset->GetBookmark()));
    EXPECT_TRUE(values[1].IsEmpty());
    data.DisableControls();
    EXPECT_EQ(get(3, gmNext), grOK);
    EXPECT_EQ(int(header.RecordNumber), -2);
    data.EnableControls();
    data.SetFilteredByBookmarks(true);
    const struct {
        int Row;
        TGetMode Mode;
        TGetResult Result;
        int Number;
    } cases[] = {{2, gmCurrent, grOK, 42}, {3, gmCurrent, grError, 0}, {2, gmNext, grOK, 43}, {4, gmNext, grEOF, 0},
                 {1, gmNext, grOK, 42},    {5, gmPrior, grOK, 43},     {2, gmPrior, grBOF, 0}};
    for (const auto& each : cases) {
        EXPECT_EQ(get(each.Row, each.Mode), each.Result) << each.Row;
        if (each.Result == grOK) {
            EXPECT_EQ(int(header.RecordNumber), each.Number) << each.Row;
        }
    }
    customers.Recordset->MoveLast();
    customers.Recordset->MoveNext();
    EXPECT_EQ(data.GetRecord(buffer, gmCurrent, true), grError) << "also at the end";
    values[0] = Variant(1);
    values[2] = Variant(2);
    data.FinalizeZOR(buffer, 2);
    EXPECT_TRUE(values[0].IsEmpty());
    EXPECT_FALSE(values[2].IsEmpty());
    data.FreeRecordBuffer(buffer);
}

/// Rows that do what other recordsets may do.
class TOddRecordset : public TClientRecordset {
public:
    explicit TOddRecordset(int count) : TClientRecordset(MakeCustomers(count)) {}

    bool Supports(int options) const override {
        return !(WithoutBookmarks && options == adBookmark) && TClientRecordset::Supports(options);
    }
    int GetStatus() const override { return Status; }
    void MoveNext() override {
        TClientRecordset::MoveNext();
        if (!GetEOF() && GetInt64(0) == Lost)
            throw EDatabaseError(u"The connection is lost");
    }

    bool WithoutBookmarks = false;
    int Status = adRecOK;
    int Lost = 0; ///< the row that cannot be moved to
};

TEST(NarrowedDataSet, BearsRecordsetsThatGiveLess) {
    const auto rows = std::make_shared<TOddRecordset>(5);
    TOpenDataSet data(nullptr);
    TDataSource source(nullptr);
    source.SetDataSet(&data);
    TDataLink link;
    link.SetDataSource(&source);
    EXPECT_FALSE(data.IsSequenced()) << "there is nothing";
    // One row at a time needs no bookmarks, several do.
    rows->WithoutBookmarks = true;
    data.SetRecordset(rows);
    EXPECT_EQ(data.FieldByName(u"Id")->GetAsInteger(), 1);
    TRecordBuffer buffer = data.AllocRecordBuffer();
    const auto& header = *reinterpret_cast<ZOR::TRecInfo*>(buffer);
    EXPECT_EQ(data.GetRecord(buffer, gmCurrent, true), grOK);
    EXPECT_EQ(int(header.BookmarkFlag), 4);
    constexpr char needed[] = "Dataset does not support bookmarks, which are required for multi-record data controls";
    EXPECT_EQ(ProblemOf([&] { link.SetBufferCount(3); }), needed);
    EXPECT_EQ(ProblemOf([&] { data.GetRecord(buffer, gmCurrent, true); }), needed);
    EXPECT_EQ(data.GetRecord(buffer, gmCurrent, false), grError);
    data.FreeRecordBuffer(buffer);
    data.Close();
    EXPECT_EQ(ProblemOf([&] { data.SetRecordset(rows); }), needed);
    EXPECT_FALSE(data.GetActive());
    // A row whose status says so has none either: what the header knew of another stays.
    rows->WithoutBookmarks = false;
    data.SetRecordset(rows);
    EXPECT_TRUE(data.IsSequenced());
    buffer = data.AllocRecordBuffer();
    const auto& other = *reinterpret_cast<ZOR::TRecInfo*>(buffer);
    rows->SetAbsolutePosition(2);
    EXPECT_EQ(data.GetRecord(buffer, gmCurrent, true), grOK);
    const OleVariant second = other.Bookmark;
    rows->Status = 3;
    EXPECT_EQ(data.GetRecord(buffer, gmNext, true), grOK);
    EXPECT_EQ(int(other.BookmarkFlag), 4);
    EXPECT_EQ(int(other.RecordStatus), 3);
    EXPECT_EQ(int(other.RecordNumber), 2);
    EXPECT_EQ(other.Bookmark, second);
    data.FreeRecordBuffer(buffer);
    rows->Status = adRecOK;
    data.Close();
    data.SetCursorLocation(clUseServer);
    data.SetRecordset(rows);
    EXPECT_FALSE(data.IsSequenced());
}

TEST(NarrowedDataSet, HandsWhatGoesWrongInItsSearchToTheApplication) {
    const auto rows = std::make_shared<TOddRecordset>(9);
    TOpenDataSet data(nullptr);
    data.SetRecordset(rows);
    for (const int id : {1, 8}) {
        data.Locate(u"Id", id, {});
        data.AddBookmark(id);
    }
    data.SetFilteredByBookmarks(true);
    std::string told;
    SetApplicationExceptionHandler([&](TObject* sender) {
        told = ProblemOf([] { throw; });
        EXPECT_EQ(sender, &data);
    });
    TRecordBuffer buffer = data.AllocRecordBuffer();
    rows->MoveFirst();
    rows->Lost = 8;
    EXPECT_EQ(ProblemOf([&] { EXPECT_EQ(data.GetRecord(buffer, gmNext, true), grError); }), "none");
    EXPECT_EQ(told, "The connection is lost");
    data.FreeRecordBuffer(buffer);
    // The application may close the dataset as it is told, or open it on other rows.
    for (const bool reopens : {false, true}) {
        TCustomers customers(9);
        ZOR::TZORADODataSet& each = *customers.DataSet;
        customers.Mark({1, 4});
        each.SetFilteredByBookmarks(true);
        bool raises = false;
        each.OnFilterRecord = [&](TDataSet*, bool&) {
            if (raises)
                throw Exception(u"Not this one");
        };
        each.SetFiltered(true);
        SetApplicationExceptionHandler([&](TObject*) {
            raises = false;
            each.Close();
            if (reopens)
                each.SetRecordset(std::make_shared<TClientRecordset>(MakeCustomers(2)));
        });
        raises = true;
        EXPECT_EQ(ProblemOf([&] { each.Resync({}); }),
                  reopens ? "none" : "Cannot perform this operation on a closed dataset");
        EXPECT_EQ(each.GetActive(), reopens);
    }
    SetApplicationExceptionHandler({});
}

TEST(NarrowedDataSet, PostsWhatIsBeingEditedAndFindsNothingOutside) {
    TCustomers customers(6);
    ZOR::TZORADODataSet& data = *customers.DataSet;
    customers.Mark({2, 4});
    data.Edit();
    data.FieldByName(u"City")->SetAsString(u"Praha");
    data.SetFilteredByBookmarks(true);
    EXPECT_EQ(data.GetState(), dsBrowse);
    EXPECT_EQ(std::get<String>(customers.Source->Rows[3][2]), u"Praha");
    EXPECT_EQ(customers.Id(), 2);
    // The name of the dataset stands before its errors.
    data.SetName(u"Orders");
    EXPECT_FALSE(data.Locate(u"Id", 3, {}));
    data.Edit();
    data.FieldByName(u"City")->SetAsString(u"Opava");
    customers.Source->Refusal = u"The disk is full";
    EXPECT_EQ(ProblemOf([&] { data.SetFilteredByBookmarks(false); }), "The disk is full");
    EXPECT_EQ(data.FieldByName(u"City")->GetAsString(), u"Opava");
}

TEST(NarrowedDataSet, FindsExactNumbersOnlyWhereTheyAre) {
    TCustomers customers(4);
    const struct {
        const char16_t* Field;
        Variant Key;
        int Found;
    } cases[] = {
        {u"Credit", 2.5, 2},         {u"Credit", 2.501, 0}, {u"Credit", u"3.75", 3}, {u"Credit", u"3.750001", 0},
        {u"Credit", Currency(5), 4}, {u"Id", 2.0, 2},       {u"Id", 2.4, 0},         {u"Id", Currency(2.5), 0},
    };
    for (const auto& each : cases) {
        customers.DataSet->First();
        const bool found = customers.DataSet->Locate(each.Field, each.Key, {});
        EXPECT_EQ(found ? customers.Id() : 0, each.Found) << VarToStr(each.Key).size();
    }
}

TEST(NarrowedDataSet, OfAMasterEndsWithItsRows) {
    SetRecordsetOpener(OpenOrders);
    TCustomers customers(4);
    TDataSource source(nullptr);
    source.SetDataSet(customers.DataSet);
    ZOR::TZORADODataSet orders(nullptr);
    orders.SetCommandText(u"select * from orders where customer = :Id");
    orders.SetDataSource(&source);
    customers.DataSet->Last();
    orders.Open();
    orders.MoveBy(2);
    orders.AddBookmark(1);
    orders.SetFilteredByBookmarks(true);
    EXPECT_EQ(orders.GetRecordCount(), 1);
    customers.DataSet->Prior();
    EXPECT_EQ(orders.GetRecordCount(), 3) << "all that the other customer ordered";
    EXPECT_FALSE(orders.GetFilteredByBookmarks());
    SetRecordsetOpener(nullptr);
}

} // namespace testsupport
