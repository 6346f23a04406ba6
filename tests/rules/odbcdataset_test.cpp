// Datasets on real databases: opened by connection string, edited, narrowed, and edited by two at once.

#include "data/Zoradodataset.h"
#include "tests/support/databases.h"

using namespace databases;

namespace {

class OdbcDataSet : public OnDatabase {
protected:
    void SetUp() override {
        OnDatabase::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        Connection->Execute(u"CREATE TABLE people (id " + String(IsSQLite() ? u"integer" : u"serial") +
                            u" PRIMARY KEY, name varchar(40) NOT NULL, debt numeric(10,2), born date)");
        for (int i = 1; i <= 3000; ++i)
            Rows.push_back({{u"Osoba " + IntToStr(i)}, {TNumeric{i, 2}}});
        Connection->ExecuteForAll(u"INSERT INTO people (name, debt) VALUES (?, ?)", Rows);
    }
    std::unique_ptr<ZOR::TZORADODataSet> People(const String& where = {}) {
        auto people = std::make_unique<ZOR::TZORADODataSet>(nullptr);
        people->SetConnectionString(ConnectionString());
        people->SetCommandText(u"SELECT * FROM people" + where + u" ORDER BY id");
        return people;
    }

    std::vector<std::vector<TSqlParameter>> Rows;
};
ON_DATABASES(OdbcDataSet, "SQLite", "PostgreSQL");

int Id(TDataSet& people) {
    return people.FieldByName(u"id")->GetAsInteger();
}

TEST_P(OdbcDataSet, OpensEditsAndNarrows) {
    const auto people = People(u" WHERE debt > :least");
    people->GetParameters()->SetParamValues(u"least", Currency(0));
    int told = 0;
    people->OnFetchProgress = [&](TCustomADODataSet*, int rows, int, TEventStatus&) { told = rows; };
    people->Open();
    EXPECT_EQ(told, 3000);
    EXPECT_EQ(people->GetRecordCount(), 3000);
    EXPECT_EQ(people->FieldByName(u"debt")->GetAsCurrency(), Currency(0.01));
    int number = 0;
    for (people->First(); !people->GetEof(); people->Next()) {
        if (Id(*people) % 1000 == 0)
            people->AddBookmark(++number);
    }
    people->SetFilteredByBookmarks(true);
    people->SetRecNo(2);
    EXPECT_EQ(Id(*people), 2000);
    people->Edit();
    people->FieldByName(u"name")->SetAsString(u"Zażółć '; DROP TABLE people; --");
    people->FieldByName(u"born")->SetAsDateTime(EncodeDate(1990, 2, 28));
    people->Post();
    people->Refresh();
    EXPECT_EQ(Id(*people), 2000);
    EXPECT_EQ(people->GetRecNo(), 2);
    EXPECT_EQ(people->FieldByName(u"name")->GetAsString(), u"Zażółć '; DROP TABLE people; --");
    EXPECT_EQ(people->FieldByName(u"born")->GetAsDateTime(), EncodeDate(1990, 2, 28));
    people->SetFilteredByBookmarks(false);
    people->AppendRecord({Unassigned(), u"Nowa", Currency(5)});
    EXPECT_EQ(Id(*people), 3001) << "the database gave the key";
    people->Delete();
    EXPECT_EQ(Value(u"SELECT count(*) FROM people").AsInteger(), 3000);
    people->OnFetchProgress = [](TCustomADODataSet*, int, int, TEventStatus& status) { status = esCancel; };
    people->Close();
    EXPECT_THROW(people->Open(), EFetchCancelled);
    EXPECT_FALSE(people->GetActive());
}

TEST_P(OdbcDataSet, TellsOfWhatSomebodyElseHasChanged) {
    const auto mine = People(u" WHERE id < 4");
    const auto others = People(u" WHERE id < 4");
    mine->SetConnection(Connection);
    mine->Open();
    others->Open();
    mine->Edit();
    mine->FieldByName(u"name")->SetAsString(u"mine");
    others->Edit();
    others->FieldByName(u"name")->SetAsString(u"theirs");
    others->Post();
    EXPECT_THROW(mine->Post(), ERecordChangedError);
    EXPECT_EQ(mine->GetState(), dsEdit);
    EXPECT_EQ(mine->FieldByName(u"name")->GetAsString(), u"mine");
    EXPECT_EQ(VarToStr(Value(u"SELECT name FROM people WHERE id = 1")), u"theirs");
    mine->Cancel();
    mine->Refresh();
    EXPECT_EQ(mine->FieldByName(u"name")->GetAsString(), u"theirs");
    // A query that has no key is read, and says why it is not edited.
    mine->Close();
    mine->SetCommandText(u"SELECT name, count(*) FROM people GROUP BY name");
    mine->Open();
    EXPECT_EQ(mine->GetRecordCount(), 3000);
    EXPECT_FALSE(mine->GetCanModify());
    EXPECT_THROW(mine->Edit(), EReadOnlyDataError);
    for (int round = 0; round < 50; ++round) {
        others->Close();
        others->Open();
    }
    EXPECT_EQ(others->GetRecordCount(), 3);
}

/// A handler of the progress may use the connection that is busy with the fetch, or is told that it may not.
TEST_P(OdbcDataSet, LosesNoRowsWhenItsConnectionPostsMeanwhile) {
    const auto one = People(u" WHERE id = 1");
    one->SetConnection(Connection);
    one->Open();
    one->Edit();
    one->FieldByName(u"name")->SetAsString(u"posted");
    const auto all = People();
    all->SetConnection(Connection);
    std::string problem;
    all->OnFetchProgress = [&](TCustomADODataSet*, int rows, int, TEventStatus&) {
        if (one->GetState() != dsEdit || rows >= 3000)
            return;
        try {
            one->Post();
        } catch (const EDatabaseError& error) {
            problem = error.what();
        }
    };
    all->Open();
    EXPECT_EQ(all->GetRecordCount(), 3000);
    EXPECT_EQ(problem, IsSQLite() ? "The connection is busy fetching records" : "");
    EXPECT_EQ(one->GetState(), IsSQLite() ? dsEdit : dsBrowse);
    one->CheckBrowseMode();
    EXPECT_EQ(VarToStr(Value(u"SELECT name FROM people WHERE id = 1")), u"posted");
}

TEST_P(OdbcDataSet, FindsADayByItsDate) {
    Connection->Execute(u"UPDATE people SET born = '1990-02-28' WHERE id = 7");
    const auto people = People(u" WHERE born >= :day");
    people->GetParameters()->SetParamValues(u"day", Variant::FromDate(EncodeDate(1990, 2, 28)));
    people->Open();
    EXPECT_EQ(people->GetRecordCount(), 1) << "the day itself";
}

} // namespace
