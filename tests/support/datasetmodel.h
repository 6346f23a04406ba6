#pragma once

// A dataset driven at random beside a plain list of rows that says what has to be seen: walking, editing, filtering,
// narrowing and searching in any order, watched by links of several sizes.

#include "tests/support/memoryrows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace testsupport {

/// A link that remembers nothing and checks everything: what it sees are neighbours, the active record among them.
class TCheckingLink : public TDataLink {
public:
    int Events = 0;

protected:
    void DataSetChanged() override { ++Events; }
    void RecordChanged(TField*) override { ++Events; }
};

class TDataSetModel {
public:
    explicit TDataSetModel(unsigned seed) : FRandom(seed), FData(static_cast<int>(seed % 23)) {
        for (int id = 1; id <= FData.Recordset->GetRecordCount(); ++id)
            FRows.push_back(id);
        FNextId = 1000;
        FSource.SetDataSet(FData.DataSet);
        for (std::size_t i = 0; i < FLinks.size(); ++i) {
            FLinks[i].SetBufferCount(1 + static_cast<int>(i) * 3);
            FLinks[i].SetDataSource(&FSource);
        }
        FData.DataSet->OnFilterRecord = [](TDataSet* dataSet, bool& accept) {
            accept = IsAccepted(dataSet->FieldByName(u"Id")->GetAsInteger());
        };
        GoToEnd(FRows, false);
    }

    void Step() {
        constexpr int actions = 15;
        switch (Random(actions)) {
        case 0:
            Move(
                "First", [&] { FData.DataSet->First(); }, [&](auto& rows) { GoToEnd(rows, false); });
            break;
        case 1:
            Move(
                "Last", [&] { FData.DataSet->Last(); }, [&](auto& rows) { GoToEnd(rows, true); });
            break;
        case 2:
        case 3:
        case 4:
            MoveBy(Random(2) ? Random(9) - 4 : Random(41) - 20);
            break;
        case 5:
            Edit();
            break;
        case 6:
            Insert(Random(2) != 0);
            break;
        case 7:
            Delete();
            break;
        case 8:
            Locate();
            break;
        case 9:
            GoBack();
            break;
        case 10:
            FLinks[static_cast<std::size_t>(Random(3))].SetBufferCount(Random(12));
            FLog = "BufferCount";
            break;
        case 11:
            FIsFiltered = !FIsFiltered;
            Move(
                "Filtered", [&] { FData.DataSet->SetFiltered(FIsFiltered); },
                [&](auto& rows) { GoToEnd(rows, false); });
            break;
        case 12:
            Mark();
            break;
        case 13:
            Narrow();
            break;
        default:
            GoToNumber();
        }
        Check();
    }

private:
    int Random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(FRandom); }
    static bool IsAccepted(int id) { return id % 3 != 0; }

    bool IsShown(int id) const {
        const auto number = FNumbers.find(id);
        return (!FIsNarrowed || (number != FNumbers.end() && number->second != 0)) && (!FIsFiltered || IsAccepted(id));
    }
    std::vector<int> Shown() const {
        std::vector<int> shown;
        std::copy_if(FRows.begin(), FRows.end(), std::back_inserter(shown), [&](int id) { return IsShown(id); });
        return shown;
    }
    std::ptrdiff_t ActiveIndex(const std::vector<int>& rows) const {
        return std::find(rows.begin(), rows.end(), FActive) - rows.begin();
    }

    template <class TAct, class TExpect>
    void Move(const char* name, TAct&& act, TExpect&& expect) {
        FLog = name;
        act();
        const std::vector<int> rows = Shown();
        expect(rows);
    }
    void GoToEnd(const std::vector<int>& rows, bool last) {
        FActive = rows.empty() ? 0 : last ? rows.back() : rows.front();
        FBof = rows.empty() || !last;
        FEof = rows.empty() || last;
    }
    void Stay() { FBof = FEof = FActive == 0; }
    /// The row is gone or hidden: the next one in view takes its place, or the one before.
    void Settle(std::size_t place) {
        FActive = 0;
        for (std::size_t i = place; i < FRows.size() && FActive == 0; ++i)
            FActive = IsShown(FRows[i]) ? FRows[i] : 0;
        for (std::size_t i = std::min(place, FRows.size()); i > 0 && FActive == 0; --i)
            FActive = IsShown(FRows[i - 1]) ? FRows[i - 1] : 0;
        Stay();
    }

    void MoveBy(int distance) {
        FLog = "MoveBy " + std::to_string(distance);
        const std::vector<int> rows = Shown();
        const int moved = FData.DataSet->MoveBy(distance);
        if (distance == 0 || (distance > 0 ? FEof : FBof)) {
            EXPECT_EQ(moved, 0) << FLog;
            return;
        }
        const auto last = static_cast<std::ptrdiff_t>(rows.size()) - 1;
        const std::ptrdiff_t from = ActiveIndex(rows);
        const std::ptrdiff_t wanted = from + distance;
        const std::ptrdiff_t to = std::clamp<std::ptrdiff_t>(wanted, 0, std::max<std::ptrdiff_t>(last, 0));
        FEof = wanted > last;
        FBof = wanted < 0;
        FActive = rows.empty() ? 0 : rows[static_cast<std::size_t>(to)];
        EXPECT_EQ(moved, to - from) << FLog;
    }

    void Edit() {
        FLog = "Edit";
        if (FActive == 0)
            return;
        FData.DataSet->Edit();
        const int choice = Random(3);
        const std::string city = std::to_string(Random(1000));
        if (choice > 0)
            FData.DataSet->FieldByName(u"City")->SetAsString(Utf8Decode(city));
        if (choice == 1) {
            FLog = "Edit, Cancel";
            FData.DataSet->Cancel();
        } else {
            FLog = "Edit, Post";
            FData.DataSet->Post();
            if (choice > 0)
                FCities[FActive] = city;
        }
        Stay();
    }

    void Insert(bool append) {
        FLog = append ? "Append" : "Insert";
        const std::vector<int> before = Shown();
        append ? FData.DataSet->Append() : FData.DataSet->Insert();
        if (Random(3) == 0) {
            FLog += ", Cancel";
            FData.DataSet->Cancel();
            if (append)
                FActive = before.empty() ? 0 : before.back();
            Stay();
            return;
        }
        const int id = ++FNextId;
        FData.DataSet->FieldByName(u"Id")->SetAsInteger(id);
        if (Random(2)) {
            FLog += ", moving on";
            FData.DataSet->CheckBrowseMode();
        } else {
            FData.DataSet->Post();
        }
        FRows.push_back(id);
        Settle(FRows.size() - 1);
    }

    void Delete() {
        FLog = "Delete";
        if (FActive == 0)
            return;
        const auto place = std::find(FRows.begin(), FRows.end(), FActive) - FRows.begin();
        FData.DataSet->Delete();
        FRows.erase(FRows.begin() + place);
        FDeleted += static_cast<int>(FNumbers.count(FActive));
        FNumbers.erase(FActive);
        Settle(static_cast<std::size_t>(place));
    }

    void Locate() {
        const int id = Random(4) == 0 ? FNextId : Random(24);
        FLog = "Locate " + std::to_string(id);
        const std::vector<int> rows = Shown();
        const bool found = FData.DataSet->Locate(u"Id", id, {});
        EXPECT_EQ(found, std::find(rows.begin(), rows.end(), id) != rows.end()) << FLog;
        if (!found)
            return;
        FActive = id;
        Stay();
        FBookmark = FData.DataSet->GetBookmark();
        FBookmarked = id;
    }

    void GoBack() {
        FLog = "GotoBookmark";
        const std::vector<int> rows = Shown();
        const bool isThere = std::find(FRows.begin(), FRows.end(), FBookmarked) != FRows.end();
        EXPECT_EQ(FData.DataSet->BookmarkValid(FBookmark), isThere) << FLog;
        const bool isShown = std::find(rows.begin(), rows.end(), FBookmarked) != rows.end();
        const std::string problem = ProblemOf([&] { FData.DataSet->GotoBookmark(FBookmark); });
        EXPECT_EQ(problem == "none", isShown || FBookmark.IsEmpty()) << problem;
        if (!isShown || FBookmark.IsEmpty())
            return;
        FActive = FBookmarked;
        Stay();
    }

    void Mark() {
        FLog = "AddBookmark";
        if (FActive == 0)
            return;
        const int number = Random(6);
        FData.DataSet->AddBookmark(number);
        FNumbers[FActive] = number;
        if (!FIsNarrowed)
            return;
        FData.DataSet->UpdateCursorPos();
        FData.DataSet->Resync({});
        Settle(static_cast<std::size_t>(std::find(FRows.begin(), FRows.end(), FActive) - FRows.begin()));
    }

    void Narrow() {
        FLog = "FilteredByBookmarks";
        const bool wanted = !FIsNarrowed;
        if (Random(8) == 0) {
            FData.DataSet->ClearBookmarks();
            FNumbers.clear();
            FDeleted = 0;
        }
        FData.DataSet->SetFilteredByBookmarks(wanted);
        FIsNarrowed = wanted && !(FNumbers.empty() && FDeleted == 0);
        GoToEnd(Shown(), false);
    }

    void GoToNumber() {
        const std::vector<int> rows = Shown();
        if (rows.empty() || FIsFiltered)
            return;
        const int id = rows[static_cast<std::size_t>(Random(static_cast<int>(rows.size())))];
        int number = static_cast<int>(std::find(FRows.begin(), FRows.end(), id) - FRows.begin()) + 1;
        int target = id;
        if (FIsNarrowed) {
            number = FNumbers[id];
            // The first one with this number, unless it is the number that is shown already.
            target = *std::find_if(FRows.begin(), FRows.end(), [&](int each) {
                const auto found = FNumbers.find(each);
                return found != FNumbers.end() && found->second == number;
            });
        }
        FLog = "SetRecNo " + std::to_string(number);
        const bool stays = FData.DataSet->GetRecNo() == number;
        // A deleted row may have had the number, too; then there is nothing to go to.
        const std::string problem = ProblemOf([&] { FData.DataSet->SetRecNo(number); });
        if (stays || problem != "none") {
            EXPECT_TRUE(stays || FDeleted > 0) << problem;
            return;
        }
        FActive = target;
        Stay();
    }

    void Check() {
        SCOPED_TRACE("after " + FLog);
        TDataSet& data = *FData.DataSet;
        const std::vector<int> rows = Shown();
        ASSERT_EQ(data.IsEmpty(), rows.empty());
        ASSERT_EQ(FData.Id(), FActive);
        EXPECT_EQ(data.GetBof(), FBof);
        EXPECT_EQ(data.GetEof(), FEof);
        EXPECT_EQ(data.GetRecordCount(),
                  static_cast<int>(FIsNarrowed ? FNumbers.size() + static_cast<std::size_t>(FDeleted) : FRows.size()));
        if (FActive != 0) {
            const auto place = std::find(FRows.begin(), FRows.end(), FActive) - FRows.begin();
            EXPECT_EQ(data.GetRecNo(), FIsNarrowed ? FNumbers[FActive] : place + 1);
            const auto city = FCities.find(FActive);
            if (city != FCities.end()) {
                EXPECT_EQ(Utf8Encode(data.FieldByName(u"City")->GetAsString()), city->second);
            }
        }
        for (TCheckingLink& link : FLinks)
            CheckLink(link, rows);
        ASSERT_EQ(FData.Id(), FActive);
    }

    /// The rows that a link shows are neighbours in order.
    void CheckLink(TCheckingLink& link, const std::vector<int>& rows) {
        const int count = link.GetRecordCount();
        ASSERT_LE(count, link.GetBufferCount());
        ASSERT_EQ(count == 0, rows.empty());
        if (count == 0)
            return;
        const int active = link.GetActiveRecord();
        ASSERT_GE(active, 0);
        ASSERT_LT(active, count);
        const std::ptrdiff_t first = ActiveIndex(rows) - active;
        for (int i = 0; i < count; ++i) {
            link.SetActiveRecord(i);
            const std::ptrdiff_t place = first + i;
            ASSERT_TRUE(place >= 0 && place < static_cast<std::ptrdiff_t>(rows.size())) << "row " << i;
            ASSERT_EQ(FData.Id(), rows[static_cast<std::size_t>(place)]) << "row " << i;
        }
        link.SetActiveRecord(active);
    }

    std::mt19937 FRandom;
    TCustomers FData;
    TDataSource FSource{nullptr};
    std::array<TCheckingLink, 3> FLinks;
    std::vector<int> FRows;
    std::map<int, int> FNumbers;
    std::map<int, std::string> FCities;
    TBookmark FBookmark;
    std::string FLog;
    int FBookmarked = 0;
    int FNextId = 0;
    int FActive = 0;
    int FDeleted = 0; // marked rows that were deleted, and are counted still
    bool FIsFiltered = false;
    bool FIsNarrowed = false;
    bool FBof = true;
    bool FEof = false;
};

} // namespace testsupport
