#pragma once

// How datasets behave, on rows in memory: what happens in which order, what is refused, what survives its own end.
// Included by a native test and by a window test.

#include "framework/db/fieldclasses.h"
#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "tests/support/datasetmodel.h"

namespace testsupport {

TEST(DataSet, AgreesWithAPlainListWhateverIsDoneToIt) {
    for (int round = 0; round < 150; ++round) {
        const unsigned randomSeed = std::random_device()();
        SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
        TDataSetModel model(randomSeed);
        for (int step = 0; step < 150; ++step) {
            model.Step();
            if (testing::Test::HasFailure())
                return;
        }
    }
}

struct TNamedEvent {
    const char* Name;
    TDataSetNotifyEvent TDataSet::*Event;
};
inline constexpr TNamedEvent dataSetEvents[] = {
    {"BeforeOpen", &TDataSet::BeforeOpen},       {"AfterOpen", &TDataSet::AfterOpen},
    {"BeforeClose", &TDataSet::BeforeClose},     {"AfterClose", &TDataSet::AfterClose},
    {"BeforeInsert", &TDataSet::BeforeInsert},   {"AfterInsert", &TDataSet::AfterInsert},
    {"BeforeEdit", &TDataSet::BeforeEdit},       {"AfterEdit", &TDataSet::AfterEdit},
    {"BeforePost", &TDataSet::BeforePost},       {"AfterPost", &TDataSet::AfterPost},
    {"BeforeCancel", &TDataSet::BeforeCancel},   {"AfterCancel", &TDataSet::AfterCancel},
    {"BeforeDelete", &TDataSet::BeforeDelete},   {"AfterDelete", &TDataSet::AfterDelete},
    {"BeforeScroll", &TDataSet::BeforeScroll},   {"AfterScroll", &TDataSet::AfterScroll},
    {"BeforeRefresh", &TDataSet::BeforeRefresh}, {"AfterRefresh", &TDataSet::AfterRefresh},
    {"OnNewRecord", &TDataSet::OnNewRecord},
};

/// Writes down what it hears.
class TListeningLink : public TDataLink {
public:
    explicit TListeningLink(std::string& log) : FLog(log) {}
    std::function<void(const char* what)> OnHear;

protected:
    void ActiveChanged() override { Hear(GetActive() ? "[active]" : "[inactive]"); }
    void EditingChanged() override { Hear(GetEditing() ? "[editing]" : "[browsing]"); }
    void CheckBrowseMode() override { Hear("[check]"); }
    void DataSetChanged() override { Hear("[changed]"); }
    void DataSetScrolled(int distance) override { Hear(("[scrolled " + std::to_string(distance) + "]").c_str()); }
    void LayoutChanged() override { Hear("[layout]"); }
    void RecordChanged(TField* field) override { Hear(field ? "[field]" : "[record]"); }
    void FocusControl(TField*) override { Hear("[focus]"); }
    void UpdateData() override { Hear("[update]"); }

private:
    void Hear(const char* what) {
        FLog += (FLog.empty() ? "" : " ") + std::string(what);
        if (OnHear)
            OnHear(what);
    }
    std::string& FLog;
};

/// Three customers with a link of two rows, and a log of all that happens.
struct TListened : TCustomers {
    TListened() : TCustomers(3, false) {
        for (const TNamedEvent& event : dataSetEvents)
            DataSet->*event.Event = [this, &event](TDataSet*) {
                Log += (Log.empty() ? "" : " ") + std::string(event.Name);
            };
        Source.SetDataSet(DataSet);
        Link.SetBufferCount(2);
        Link.SetDataSource(&Source);
    }
    std::string Take() { return std::exchange(Log, {}); }

    std::string Log;
    TDataSource Source{nullptr};
    TListeningLink Link{Log};
};

TEST(DataSet, TellsWhatHappensInItsOrder) {
    TListened all;
    ZOR::TZORADODataSet& data = *all.DataSet;
    const auto set = [&] { data.FieldByName(u"City")->SetAsString(u"Praha"); };
    const struct {
        const char* Name;
        std::function<void()> Act;
        const char* Expected;
    } steps[] = {
        {"open", [&] { data.SetRecordset(all.Recordset); }, "BeforeOpen [active] AfterOpen AfterScroll"},
        {"move in view", [&] { data.Next(); }, "[check] BeforeScroll [scrolled 0] AfterScroll"},
        {"scroll", [&] { data.Next(); }, "[check] BeforeScroll [scrolled -1] AfterScroll"},
        {"beyond the end", [&] { data.Next(); }, "[check] BeforeScroll [scrolled 0] AfterScroll"},
        {"nowhere to go", [&] { data.Next(); }, "[check]"},
        {"edit", [&] { data.Edit(); }, "[check] BeforeEdit [editing] [record] AfterEdit"},
        {"edit again", [&] { data.Edit(); }, ""},
        {"a field", set, "[field]"},
        {"post", [&] { data.Post(); }, "[update] [check] BeforePost [browsing] [changed] AfterPost"},
        {"move away",
         [&] {
             data.Edit();
             set();
             all.Take();
             data.First();
         },
         "[check] [update] [update] [check] BeforePost [browsing] [changed] AfterPost BeforeScroll [changed] "
         "AfterScroll"},
        {"move away unchanged",
         [&] {
             data.Edit();
             all.Take();
             data.Next();
         },
         "[check] [update] [check] BeforeCancel [browsing] [changed] AfterCancel BeforeScroll [scrolled 0] "
         "AfterScroll"},
        {"insert", [&] { data.Insert(); },
         "[check] BeforeInsert BeforeScroll [editing] OnNewRecord [changed] AfterInsert AfterScroll"},
        {"cancel", [&] { data.Cancel(); },
         "[check] BeforeCancel BeforeScroll [browsing] [changed] AfterCancel AfterScroll"},
        {"delete", [&] { data.Delete(); }, "[check] BeforeDelete BeforeScroll [changed] AfterDelete AfterScroll"},
        {"refresh", [&] { data.Refresh(); }, "BeforeRefresh [check] [changed] AfterRefresh"},
        {"heading", [&] { data.FieldByName(u"City")->SetDisplayLabel(u"Town"); }, "[layout]"},
        {"disabled",
         [&] {
             data.DisableControls();
             data.First();
             data.Last();
             data.EnableControls();
         },
         "BeforeScroll AfterScroll BeforeScroll AfterScroll [changed]"},
        {"closed while disabled",
         [&] {
             data.DisableControls();
             data.Close();
             data.EnableControls();
         },
         "BeforeClose [inactive] AfterClose"},
    };
    for (const auto& step : steps) {
        step.Act();
        EXPECT_EQ(all.Take(), step.Expected) << step.Name;
    }
}

/// Whatever is called with a dataset, its source or a link that dies on the way, nobody touches the dead.
TEST(DataSet, SurvivesTheEndOfAllThatItTells) {
    const auto useAll = [](TDataSet& data, const std::shared_ptr<_Recordset>& rows) {
        static_cast<ZOR::TZORADODataSet&>(data).SetRecordset(rows);
    };
    enum class TVictim { DataSet, Source, Link, Cursor };
    const std::function<void(ZOR::TZORADODataSet&)> actions[] = {
        [](auto& data) { data.Next(); },
        [](auto& data) { data.Edit(); },
        [](auto& data) { data.FieldByName(u"City")->SetAsString(u"Praha"); },
        [](auto& data) { data.Post(); },
        [](auto& data) { data.Edit(); },
        [](auto& data) { data.Cancel(); },
        [](auto& data) { data.Insert(); },
        [](auto& data) { data.FieldByName(u"Id")->SetAsInteger(77); },
        [](auto& data) { data.First(); },
        [](auto& data) { data.AddBookmark(1); },
        [](auto& data) { data.SetFilteredByBookmarks(true); },
        [](auto& data) { data.SetFilteredByBookmarks(false); },
        [](auto& data) { data.Locate(u"Id", 3, {}); },
        [](auto& data) { data.SetRecNo(1); },
        [](auto& data) { data.DisableControls(); },
        [](auto& data) { data.EnableControls(); },
        [](auto& data) { data.Delete(); },
        [](auto& data) { data.SetFiltered(true); },
        [](auto& data) { data.Refresh(); },
        [](auto& data) {
            data.AppendRecord({88, u"x"});
        },
        [](auto& data) { data.Close(); },
    };
    int deaths = 0;
    for (const TVictim victim : {TVictim::DataSet, TVictim::Source, TVictim::Link, TVictim::Cursor}) {
        for (int lethal = 1;; ++lethal) {
            TCustomers customers(5, false);
            auto* source = new TDataSource(nullptr);
            source->SetDataSet(customers.DataSet);
            std::string log;
            auto link = std::make_unique<TListeningLink>(log);
            link->SetDataSource(source);
            const TLifeGuard dataSetLives(*customers.DataSet);
            const TLifeGuard sourceLives(*source);
            int heard = 0;
            const auto kill = [&] {
                if (++heard != lethal)
                    return;
                ++deaths;
                if (victim == TVictim::DataSet)
                    delete customers.DataSet;
                else if (victim == TVictim::Source)
                    delete source;
                else if (victim == TVictim::Link)
                    link.reset();
                else
                    customers.DataSet->Close();
            };
            for (const TNamedEvent& event : dataSetEvents)
                customers.DataSet->*event.Event = [&](TDataSet*) { kill(); };
            customers.DataSet->OnFilterRecord = [&](TDataSet*, bool&) { kill(); };
            source->OnDataChange = [&](TObject*, TField*) { kill(); };
            source->OnStateChange = [&](TObject*) { kill(); };
            source->OnUpdateData = [&](TObject*) { kill(); };
            link->OnHear = [&](const char*) { kill(); };
            // What goes on with a closed dataset is refused.
            const auto run = [&](auto&& act) {
                const std::string problem = ProblemOf(act);
                EXPECT_TRUE(problem == "none" || victim == TVictim::Cursor) << problem;
            };
            run([&] { useAll(*customers.DataSet, customers.Recordset); });
            for (const auto& action : actions) {
                if (dataSetLives)
                    run([&] { action(*customers.DataSet); });
            }
            if (dataSetLives) {
                EXPECT_EQ(customers.DataSet->GetActive(), customers.DataSet->GetRecordset() != nullptr) << lethal;
            }
            EXPECT_EQ(static_cast<bool>(dataSetLives), victim != TVictim::DataSet || heard < lethal);
            if (sourceLives) {
                source->OnStateChange = nullptr;
                delete source;
            }
            if (heard < lethal)
                break;
        }
    }
    EXPECT_GT(deaths, 200);
}

TEST(DataSet, RefusesWhatCannotBe) {
    TCustomers customers(4);
    ZOR::TZORADODataSet& data = *customers.DataSet;
    TField& name = *data.FieldByName(u"Name");
    TField& credit = *data.FieldByName(u"Credit");
    static_cast<TFMTBCDField&>(credit).SetMaxValue(Currency(1000));
    name.OnValidate = [](TField* field) {
        if (field->GetAsString() == u"bad")
            throw Exception(u"not this one");
    };
    const auto edited = [&](auto&& act) {
        return [&data, act] {
            data.Edit();
            act();
        };
    };
    const struct {
        const char* Name;
        std::function<void()> Act;
        const char* Problem;
    } cases[] = {
        {"assigning while browsing", [&] { name.SetAsString(u"x"); }, "Dataset not in edit or insert mode"},
        {"unknown field", [&] { data.FieldByName(u"Age"); }, "Field 'Age' not found"},
        {"no number", edited([&] { credit.SetEditText(u"1,5x"); }),
         "'1,5x' is not a valid decimal value for field 'Credit'"},
        {"beyond the range", edited([&] { credit.SetAsInteger(1001); }),
         "1001 is not between 0 and 1000, the range of field 'Credit'"},
        {"beyond the type", edited([&] { data.FieldByName(u"Id")->SetAsLargeInt(1LL << 40); }),
         "1099511627776 is not between -2147483648 and 2147483647, the range of field 'Id'"},
        {"too long", edited([&] { name.SetAsString(String(31, u'x')); }),
         "'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' is longer than the 30 characters of field 'Name'"},
        {"not a date", edited([&] { data.FieldByName(u"Born")->SetEditText(u"31.31.2000"); }),
         "'31.31.2000' is not a valid date for field 'Born'"},
        {"refused by the handler", edited([&] { name.SetAsString(u"bad"); }), "not this one"},
        {"required", edited([&] {
             data.FieldByName(u"Id")->Clear();
             data.Post();
         }),
         "Field 'Id' must have a value"},
        {"a text for a number", [&] { name.GetAsInteger(); },
         "'Customer 1' is not a valid integer value for field 'Name'"},
        {"no such number of a record", [&] { data.SetRecNo(99); }, "The recordset has no record at this position"},
        {"open twice", [&] { data.SetCommandText(u"x"); }, "Cannot perform this operation on an open dataset"},
        {"closed",
         [&] {
             data.Close();
             data.Next();
         },
         "Cannot perform this operation on a closed dataset"},
        {"nothing to ask",
         [&] {
             data.SetCommandText({});
             data.Open();
         },
         "The dataset has no CommandText"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(ProblemOf(each.Act), each.Problem) << each.Name;
        if (!data.GetActive())
            continue;
        data.Cancel();
        EXPECT_EQ(customers.Id(), 1) << each.Name;
        EXPECT_EQ(name.GetAsString(), u"Customer 1") << each.Name;
    }
    EXPECT_FALSE(data.GetActive());
}

TEST(DataSet, KeepsARecordInEditWhenItCannotBePosted) {
    TCustomers customers(2);
    ZOR::TZORADODataSet& data = *customers.DataSet;
    TField& city = *data.FieldByName(u"City");
    customers.Source->Refusal = u"The disk is full";
    for (const bool inserts : {false, true}) {
        inserts ? data.Append() : data.Edit();
        data.FieldByName(u"Id")->SetAsInteger(inserts ? 9 : 1);
        city.SetAsString(u"Wrocław");
        EXPECT_EQ(ProblemOf([&] { data.Post(); }), "The disk is full");
        EXPECT_EQ(ProblemOf([&] { data.Next(); }), "The disk is full");
        EXPECT_EQ(data.GetState(), inserts ? dsInsert : dsEdit);
        EXPECT_TRUE(data.GetModified());
        EXPECT_EQ(city.GetAsString(), u"Wrocław");
        EXPECT_EQ(VarToStr(city.GetOldValue()), inserts ? u"" : u"Łódź");
        data.OnPostError = [](TDataSet*, const EDatabaseError&, TDataAction& action) { action = daAbort; };
        EXPECT_THROW(data.Post(), EAbort);
        data.OnPostError = [&](TDataSet*, const EDatabaseError&, TDataAction& action) {
            customers.Source->Refusal.clear();
            action = daRetry;
        };
        data.Post();
        EXPECT_EQ(data.GetState(), dsBrowse);
        EXPECT_EQ(customers.Id(), inserts ? 9 : 1);
        EXPECT_EQ(city.GetAsString(), u"Wrocław");
        customers.Source->Refusal = u"The disk is full";
        data.OnPostError = nullptr;
        data.First();
    }
    EXPECT_EQ(ProblemOf([&] { data.Delete(); }), "The disk is full");
    EXPECT_EQ(customers.Walk(), "1 2 9");
    // Only what differs is written, so that nobody else's changes are in the way.
    customers.Source->Refusal.clear();
    data.First();
    data.Edit();
    city.SetAsString(u"Wrocław");
    data.FieldByName(u"Name")->Clear();
    data.Post();
    ASSERT_EQ(customers.Source->Written.size(), 1U);
    EXPECT_EQ(customers.Source->Written[0].Column, 1);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(customers.Source->Written[0].Value));
    // The recordset says why it takes no edits.
    customers.Source->IsReadOnly = true;
    data.Close();
    data.SetRecordset(customers.Recordset);
    EXPECT_EQ(ProblemOf([&] { data.Edit(); }), "The rows come from a view");
    EXPECT_FALSE(data.FieldByName(u"City")->GetCanModify());
}

TEST(DataSet, CalculatesAndLooksUp) {
    TCustomers customers(6, false);
    TCustomers cities(6);
    ZOR::TZORADODataSet& data = *customers.DataSet;
    const auto add = [&](TField* field, const String& name, TFieldKind kind) {
        field->SetFieldName(name);
        field->SetFieldKind(kind);
        field->SetDataSet(&data);
        return field;
    };
    add(new TIntegerField(&customers.Owner), u"Id", fkData);
    TField* credit = add(new TFMTBCDField(&customers.Owner), u"Credit", fkData);
    TField* twice = add(new TFloatField(&customers.Owner), u"Twice", fkCalculated);
    TField* town = add(new TWideStringField(&customers.Owner), u"Town", fkLookup);
    town->SetLookupDataSet(cities.DataSet);
    town->SetKeyFields(u"Id");
    town->SetLookupKeyFields(u"Id");
    town->SetLookupResultField(u"City");
    int calculated = 0;
    data.OnCalcFields = [&](TDataSet*) {
        ++calculated;
        twice->SetAsFloat(credit->GetAsFloat() * 2);
        EXPECT_NE(ProblemOf([&] { credit->SetAsInteger(1); }), "none");
        EXPECT_NE(ProblemOf([&] { data.Next(); }), "none");
        EXPECT_NE(ProblemOf([&] { data.Close(); }), "none");
    };
    data.SetRecordset(customers.Recordset);
    EXPECT_FALSE(data.GetDefaultFields());
    data.MoveBy(3);
    EXPECT_EQ(calculated, 4);
    EXPECT_EQ(twice->GetAsFloat(), 10);
    EXPECT_EQ(town->GetAsString(), u"Brno");
    data.Edit();
    credit->SetAsFloat(7.25);
    EXPECT_EQ(twice->GetAsFloat(), 14.5);
    EXPECT_NE(ProblemOf([&] { twice->SetAsFloat(1); }), "none");
    data.SetAutoCalcFields(false);
    credit->SetAsFloat(1);
    EXPECT_EQ(twice->GetAsFloat(), 14.5);
    data.Post();
    EXPECT_EQ(twice->GetAsFloat(), 2);
    data.Append();
    EXPECT_TRUE(town->GetIsNull());
    data.Cancel();
    EXPECT_EQ(town->GetAsString(), u"Brno");
    // A dataset that is looked into by its own calculations stays where it is.
    town->SetReadOnly(false);
    data.OnCalcFields = [&](TDataSet*) { twice->SetAsVariant(data.Lookup(u"Id", 2, u"Credit")); };
    EXPECT_EQ(customers.Walk(), "1 2 3 4 5 6");
    EXPECT_EQ(twice->GetAsFloat(), 2.5);
    // So is what was calculated for a record read in passing; then the record goes, while somebody reads it.
    data.OnCalcFields = [&](TDataSet*) {
        twice->SetAsFloat(credit->GetAsFloat() * 2);
        town->SetAsVariant(data.Lookup(u"Id", 2, u"Credit"));
    };
    data.Last();
    TBookmark last = data.GetBookmark();
    data.First();
    TDataSet::TPassingReader reader(data);
    ASSERT_TRUE(reader.GoTo(last));
    EXPECT_EQ(town->GetAsString() + u" " + twice->GetAsString(), u"2.5 15");
    data.Close();
    data.SetRecordset(std::make_shared<TClientRecordset>(MakeCustomers(3)));
    EXPECT_EQ(twice->GetAsFloat(), 2.5) << "of the record that is active now";
    reader.Leave();
    data.Close();
    EXPECT_EQ(data.GetFieldCount(), 4);
}

TEST(DataSet, LivesInATextForm) {
    RegisterDataClasses();
    constexpr char text[] = R"(object Data: TComponent
  object Orders: TADODataSet
    CommandText = 'select * from orders where customer = :id'
    Parameters = <
      item
        Name = 'id'
        Value = 5
      end>
    Left = 8
    Top = 16
    object OrdersId: TAutoIncField
      FieldName = 'Id'
      ReadOnly = True
    end
    object OrdersTotal: TBCDField
      DisplayLabel = 'Sum'
      FieldName = 'Total'
      Size = 2
      DisplayFormat = '0.00'
    end
    object OrdersPaid: TBooleanField
      Alignment = taCenter
      FieldKind = fkCalculated
      FieldName = 'Paid'
      DisplayValues = 'yes;no'
    end
  end
  object Source: TDataSource
    DataSet = Orders
  end
end
)";
    RegisterClasses({&TComponent::StaticClass()});
    TComponent owner(nullptr);
    TComponent* root = CreateFromTextForm(text, &owner).release();
    auto* orders = As<TADODataSet>(root->FindComponent(u"Orders"));
    ASSERT_TRUE(orders);
    ASSERT_EQ(orders->GetFieldCount(), 3);
    EXPECT_EQ(orders->GetFields()[1]->GetDisplayLabel(), u"Sum");
    EXPECT_EQ(orders->GetParameters()->GetParamValues(u"ID"), Variant(5));
    std::string written = WriteTextForm(SaveTextForm(*root));
    std::erase(written, '\r');
    EXPECT_EQ(written, text);
    delete root->FindComponent(u"OrdersTotal");
    EXPECT_EQ(orders->GetFieldCount(), 2);
    delete orders;
    EXPECT_EQ(root->FindComponent(u"OrdersPaid"), nullptr);
    EXPECT_EQ(As<TDataSource>(root->FindComponent(u"Source"))->GetDataSet(), nullptr);
}

} // namespace testsupport
