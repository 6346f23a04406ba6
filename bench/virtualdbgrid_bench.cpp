// What the virtual data grid costs on a million records, beside a bare loop over the same dataset, the system's list
// that asks for texts of the same dataset, and a grid of a thousand rows.

#include "bench/measure.h"
#include "data/Zorvirtualdbgrid.h"
#include "framework/db/clientrecordset.h"
#include "framework/system/numbers.h"
#include "framework/system/updates.h"
#include "framework/windows/application.h"
#include "framework/windows/forms.h"

#include <commctrl.h>
#include <psapi.h>
#include <random>

using namespace framework;
using namespace ZOR;

namespace {

constexpr int kMany = 1'000'000;
constexpr int kFew = 1'000;
constexpr int kFirstId = 1'000'001; // so that texts are equally long wherever they are
constexpr int kRows = 44;
constexpr int kRowHeight = 16;
constexpr int kColumnWidth = 100;
constexpr int kFrames = 200;
constexpr int kStretch = 20; // frames before the others have their turn
constexpr const char16_t* kFields[] = {u"Id", u"Customer", u"City", u"Total", u"Paid", u"Ordered", u"Weight", u"Notes"};
constexpr int kColumns = static_cast<int>(std::size(kFields));

TColumnInfo Column(const char16_t* name, DataTypeEnum type, int size, int scale) {
    TColumnInfo info;
    info.Name = name;
    info.Type = type;
    info.Size = size;
    info.Precision = scale > 0 ? 18 : 0;
    info.Scale = scale;
    return info;
}

std::shared_ptr<_Recordset> MakeOrders(int count) {
    TRowStore store({Column(u"Id", adInteger, 0, 0), Column(u"Customer", adVarWChar, 40, 0),
                     Column(u"City", adVarWChar, 30, 0), Column(u"Total", adNumeric, 0, 2),
                     Column(u"Paid", adBoolean, 0, 0), Column(u"Ordered", adDBDate, 0, 0),
                     Column(u"Weight", adDouble, 0, 0), Column(u"Notes", adVarWChar, 60, 0)});
    std::vector<TDataValue> row(kColumns);
    for (int id = kFirstId; id < kFirstId + count; ++id) {
        row[0] = std::int64_t(id);
        row[1] = u"Customer " + IntToStr(1000 + id % 5000);
        row[2] = String(id % 2 ? u"Łódź" : u"Brno");
        row[3] = TNumeric{id * 137 % 1'000'000, 2};
        row[4] = id % 3 == 0;
        row[5] = TMoment::FromDateTime(EncodeDate(2024, 1, 1) + id % 365);
        row[6] = id * 0.25;
        row[7] = u"Order " + IntToStr(id) + u", to be sent";
        store.AppendRow(row);
    }
    return std::make_shared<TClientRecordset>(std::move(store));
}

double WorkingSet() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof(counters);
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return static_cast<double>(counters.WorkingSetSize);
}

struct TGridOnOrders {
    TGridOnOrders(TForm& form, int count) : Grid(new TZORVirtualDBGrid(&form)) {
        DataSet.SetRecordset(MakeOrders(count));
        Source.SetDataSet(&DataSet);
        for (const char16_t* field : kFields) {
            TColumn* column = Grid->GetColumns()->Add();
            column->SetFieldName(field);
            column->SetWidth(kColumnWidth);
        }
        Grid->SetDefaultNodeHeight(kRowHeight);
        Grid->SetParent(&form);
        Grid->SetBounds(0, 0, kColumns * kColumnWidth + 40, kRows * kRowHeight + 23);
        const double before = WorkingSet();
        Grid->SetDataSource(&Source);
        BytesPerRow = (WorkingSet() - before) / count;
    }

    TADODataSet DataSet{nullptr};
    TDataSource Source{nullptr};
    std::unique_ptr<TZORVirtualDBGrid> Grid;
    double BytesPerRow = 0;
};

// Building

double BareLoop(TADODataSet& orders) {
    std::vector<TField*> fields;
    for (const char16_t* name : {u"Id", u"Id", u"Total", u"Paid", u"Weight"}) // the key, and what has a total
        fields.push_back(orders.FieldByName(name));
    std::int64_t sum = 0;
    const double taken = bench::Milliseconds([&] {
        orders.DisableControls();
        for (orders.First(); !orders.GetEof(); orders.Next()) {
            for (const TField* field : fields) {
                const TFieldValue value = field->GetData();
                sum += value.IsNull() ? 0 : 1;
            }
        }
        orders.EnableControls();
    });
    if (sum != std::int64_t(kMany) * 5)
        std::printf("the loop has missed values\n");
    return taken;
}

void Building(TGridOnOrders& many) {
    TZORVirtualDBGrid& grid = *many.Grid;
    const bench::TPair pair = bench::MedianPair(
        [&] {
            grid.SetRootNodeCount(0);
            return bench::Milliseconds([&] { grid.BuildTree(); });
        },
        [&] { return BareLoop(many.DataSet); });
    bench::PrintRatio("BuildTree / bare loop", pair, "ms", 1.5);
    if (grid.GetRootNodeCount() != kMany)
        std::printf("the grid has missed rows\n");
    std::printf("%-28s %9.0f bytes a row (aim 120)\n", "memory of the rows", many.BytesPerRow);
}

// Painting

void PaintGrid(TZORVirtualDBGrid& grid, int rows, std::vector<double>& paint, std::vector<double>& move) {
    grid.BringToFront();
    grid.Update();
    std::mt19937 random(static_cast<unsigned>(paint.size()));
    const std::int64_t most = std::int64_t(rows - kRows) * kRowHeight;
    for (int i = 0; i < kStretch; ++i) {
        const auto place = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(most));
        move.push_back(bench::Milliseconds([&] { grid.SetOffsetY(-place); }));
        paint.push_back(bench::Milliseconds([&] {
            grid.Invalidate();
            grid.Update();
        }));
    }
}

TADODataSet* listed = nullptr;

LRESULT CALLBACK AnswerTexts(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == LVN_GETDISPINFOW) {
        auto& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        static String text;
        if (listed->GetRecNo() != item.iItem + 1)
            listed->SetRecNo(item.iItem + 1);
        text = listed->FieldByName(kFields[item.iSubItem])->GetDisplayText();
        if (item.mask & LVIF_TEXT)
            item.pszText = WideChars(text);
        return 0;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

class TListOnOrders {
public:
    TListOnOrders(TForm& form, TADODataSet& orders) : FForm(form) {
        listed = &orders;
        SetWindowSubclass(form.GetHandle(), &AnswerTexts, 1, 0);
        FList = CreateWindowW(WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0, 0,
                              kColumns * kColumnWidth + 40, kRows * kRowHeight + 30, form.GetHandle(), nullptr, nullptr,
                              nullptr);
        SendMessageW(FList, WM_SETFONT, reinterpret_cast<WPARAM>(form.GetFont()->GetHandle()), FALSE);
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH;
        column.cx = kColumnWidth;
        for (int i = 0; i < kColumns; ++i)
            SendMessageW(FList, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
        SendMessageW(FList, LVM_SETITEMCOUNT, kMany, 0);
    }
    ~TListOnOrders() {
        RemoveWindowSubclass(FForm.GetHandle(), &AnswerTexts, 1);
        DestroyWindow(FList);
    }
    void Paint(std::vector<double>& frames) {
        SetWindowPos(FList, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        std::mt19937 random(static_cast<unsigned>(frames.size()));
        listed->DisableControls();
        for (int i = 0; i < kStretch; ++i) {
            frames.push_back(bench::Milliseconds([&] {
                SendMessageW(FList, LVM_ENSUREVISIBLE, random() % kMany, FALSE);
                InvalidateRect(FList, nullptr, TRUE);
                UpdateWindow(FList);
            }));
        }
        listed->EnableControls();
    }

private:
    TForm& FForm;
    HWND FList;
};

void Painting(TForm& form, TGridOnOrders& many, TGridOnOrders& few) {
    std::vector<double> paintMany;
    std::vector<double> paintFew;
    std::vector<double> move;
    std::vector<double> frames;
    TListOnOrders list(form, many.DataSet);
    for (int i = 0; i < kFrames; i += kStretch) {
        PaintGrid(*few.Grid, kFew, paintFew, move);
        PaintGrid(*many.Grid, kMany, paintMany, move);
        list.Paint(frames);
    }
    std::printf("a frame of %d rows by %d cells, medians of %d by turns\n", kRows, kColumns, kFrames);
    bench::PrintRatio("1,000,000 rows / 1,000", {bench::Median(paintMany), bench::Median(paintFew)}, "ms", 1.1);
    bench::PrintRatio("with scrolling / SysListView32",
                      {bench::Median(paintMany) + bench::Median(move), bench::Median(frames)}, "ms", 0.25);
}

// Selecting

void Selecting(TGridOnOrders& many) {
    TZORVirtualDBGrid& grid = *many.Grid;
    std::vector<double> all;
    std::vector<double> keys;
    std::vector<double> back;
    for (int round = 0; round < bench::Rounds; ++round) {
        std::vector<TRowId> selected;
        grid.ClearSelection();
        all.push_back(bench::Milliseconds([&] { grid.SelectAll(); }));
        keys.push_back(bench::Milliseconds([&] { grid.Get_Selected(&selected); }));
        back.push_back(bench::Milliseconds([&] { grid.Set_Selected(selected); }));
        if (selected.size() != kMany || grid.Get_SelectedCount() != kMany)
            std::printf("not all rows were selected\n");
    }
    std::printf(
        "selecting a million rows %.0f ms, asking for their keys %.0f ms (aim 100 each), selecting by a million "
        "keys %.0f ms\n",
        bench::Median(all), bench::Median(keys), bench::Median(back));
}

// Many columns

/// How long header and footer take to be made for so many columns.
double MakingColumns(TForm& form, int count) {
    TZORVirtualDBGrid grid(&form);
    grid.SetParent(&form);
    WithinUpdate(*grid.GetColumns(), [&] {
        for (int i = 0; i < count; ++i)
            grid.GetColumns()->Add()->SetWidth(kColumnWidth);
    });
    const double taken = bench::Milliseconds([&] { grid.RefreshColumns(); });
    if (grid.GetHeader()->GetColumns()->GetCount() != count)
        std::printf("the header has missed columns\n");
    return taken;
}

} // namespace

int main() {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    TheApplication().Initialize();
    TForm form(nullptr);
    form.SetBounds(0, 0, 900, 780);
    form.SetVisible(true);
    TGridOnOrders many(form, kMany);
    TGridOnOrders few(form, kFew);
    Building(many);
    Painting(form, many, few);
    Selecting(many);
    bench::PrintRatio(
        "1,000 columns / 250",
        bench::MedianPair([&] { return MakingColumns(form, 1000); }, [&] { return MakingColumns(form, 250); }), "ms",
        6);
    return 0;
}
