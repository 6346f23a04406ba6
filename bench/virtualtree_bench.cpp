// What a virtual tree costs beside the system's own trees and lists: adding a million nodes, painting among a thousand
// and among a million rows, and the check list's phrase over a million items with all that follows on the screen.

#include "bench/measure.h"
#include "data/Zorvirtualstringtree.h"
#include "framework/graphics/bitmaps.h"
#include "framework/graphics/canvas.h"
#include "framework/system/numbers.h"
#include "framework/windows/application.h"
#include "framework/windows/forms.h"

#include <commctrl.h>
#include <random>

using namespace framework;

namespace {

constexpr unsigned kMany = 1'000'000;
constexpr unsigned kNativeNodes = 100'000; // of the system's tree, which takes seconds for more
constexpr int kColumns = 8;
constexpr int kRows = 44;
constexpr int kRowHeight = 16;
constexpr int kFrames = 200;
constexpr int kStretch = 20; // frames before the others have their turn

String CellText(unsigned row, int column) {
    return u"Cell " + IntToStr(static_cast<std::int64_t>(row)) + u"/" + IntToStr(column);
}

class TBenchTree : public TVirtualStringTree {
public:
    using TVirtualStringTree::TVirtualStringTree;

protected:
    void DoGetText(TVirtualNode* node, TColumnIndex column, TVSTTextType, String& text) override {
        text = CellText(node->GetIndex(), column);
    }
};

std::unique_ptr<TBenchTree> MakeTree(TForm& form) {
    auto tree = std::make_unique<TBenchTree>(&form);
    tree->SetNodeDataSize(16);
    tree->SetDefaultNodeHeight(kRowHeight);
    tree->GetTreeOptions()->SetPaintOptions({toShowVertGridLines});
    for (int i = 0; i < kColumns; ++i)
        tree->GetHeader()->GetColumns()->Add()->SetWidth(100);
    tree->SetParent(&form);
    tree->SetBounds(0, 0, kColumns * 100 + 40, kRows * kRowHeight + 4);
    return tree;
}

void Adding(TForm& form) {
    const auto ours = [&] {
        const auto tree = MakeTree(form);
        return bench::Milliseconds([&] {
                   tree->SetRootNodeCount(kMany);
                   tree->ValidateNode(nullptr, true);
               }) *
               1e6 / kMany;
    };
    const auto peer = [&] {
        const HWND window =
            CreateWindowW(WC_TREEVIEWW, L"", WS_CHILD, 0, 0, 100, 100, form.GetHandle(), nullptr, nullptr, nullptr);
        TVINSERTSTRUCTW item{};
        item.hInsertAfter = TVI_LAST;
        item.item.mask = TVIF_TEXT;
        item.item.pszText = const_cast<wchar_t*>(L"a node");
        SendMessageW(window, WM_SETREDRAW, FALSE, 0);
        const double taken = bench::Milliseconds([&] {
            for (unsigned i = 0; i < kNativeNodes; ++i)
                SendMessageW(window, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        });
        DestroyWindow(window);
        return taken * 1e6 / kNativeNodes;
    };
    std::printf("a million nodes added and initialised: %.0f ns each", ours());
    std::printf("   SysTreeView32 with 100,000: %.0f ns each\n", peer());
}

/// What one stretch of frames at random places took, in milliseconds each.
struct TFrames {
    std::vector<double> Paint;
    std::vector<double> Move; // scrolling there before, which is mostly the system's scroll bar
};

void PaintTree(TBenchTree& tree, unsigned rows, TFrames& frames) {
    tree.SetRootNodeCount(rows);
    tree.Update();
    std::mt19937 random(static_cast<unsigned>(frames.Paint.size()));
    const std::int64_t most = static_cast<std::int64_t>(rows - kRows) * kRowHeight;
    for (int i = 0; i < kStretch; ++i) {
        const auto place = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(most));
        frames.Move.push_back(bench::Milliseconds([&] { tree.SetOffsetY(-place); }));
        frames.Paint.push_back(bench::Milliseconds([&] {
            tree.Invalidate();
            tree.Update();
        }));
    }
}

LRESULT CALLBACK AnswerTexts(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == LVN_GETDISPINFOW) {
        auto& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        static String text;
        text = CellText(static_cast<unsigned>(item.iItem), item.iSubItem);
        if (item.mask & LVIF_TEXT)
            item.pszText = WideChars(text);
        return 0;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

double PaintList(TForm& form) {
    SetWindowSubclass(form.GetHandle(), &AnswerTexts, 1, 0);
    const HWND list =
        CreateWindowW(WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0, 0, kColumns * 100 + 40,
                      kRows * kRowHeight + 30, form.GetHandle(), nullptr, nullptr, nullptr);
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(form.GetFont()->GetHandle()), FALSE);
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    column.cx = 100;
    for (int i = 0; i < kColumns; ++i)
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    SendMessageW(list, LVM_SETITEMCOUNT, kMany, 0);
    std::mt19937 random(1);
    constexpr int kFewer = 40;
    const double all = bench::Milliseconds([&] {
        for (int i = 0; i < kFewer; ++i) {
            SendMessageW(list, LVM_ENSUREVISIBLE, random() % kMany, FALSE);
            InvalidateRect(list, nullptr, TRUE);
            UpdateWindow(list);
        }
    });
    RemoveWindowSubclass(form.GetHandle(), &AnswerTexts, 1);
    DestroyWindow(list);
    return all / kFewer;
}

/// The same cells by DrawTextW alone, into memory as a double-buffered painting does; and what any window pays besides
/// for a painting of this size that does not flicker.
void DrawTexts(TForm& form, TFrames& frames, std::vector<double>& empty) {
    const TWindowDC window(form.GetHandle());
    const TUniqueBitmap picture(CreateCompatibleBitmap(window, kColumns * 100, kRows * kRowHeight));
    const TUniqueMemoryDC memory(CreateCompatibleDC(window));
    const HDC dc = memory.Get();
    const TSelectedObject selected(dc, picture.Get());
    const TSelectedObject font(dc, form.GetFont()->GetHandle());
    SetBkMode(dc, TRANSPARENT);
    std::mt19937 random(static_cast<unsigned>(frames.Paint.size()));
    for (int i = 0; i < kStretch; ++i) {
        const unsigned first = random() % kMany;
        frames.Paint.push_back(bench::Milliseconds([&] {
            for (unsigned row = 0; row < kRows; ++row) {
                const int top = static_cast<int>(row) * kRowHeight;
                for (int column = 0; column < kColumns; ++column) {
                    const String text = CellText(first + row, column);
                    RECT cell{column * 100 + 4, top, column * 100 + 96, top + kRowHeight};
                    DrawTextW(dc, WideData(text), static_cast<int>(text.size()), &cell, DT_SINGLELINE | DT_VCENTER);
                }
            }
        }));
        empty.push_back(bench::Milliseconds([&] {
            InvalidateRect(form.GetHandle(), nullptr, FALSE);
            PAINTSTRUCT paint{};
            const HDC target = BeginPaint(form.GetHandle(), &paint);
            const RECT all{0, 0, kColumns * 100, kRows * kRowHeight};
            FillRect(dc, &all, GetSysColorBrush(COLOR_WINDOW));
            BitBlt(target, 0, 0, all.right, all.bottom, dc, 0, 0, SRCCOPY);
            EndPaint(form.GetHandle(), &paint);
        }));
    }
}

void Painting(TForm& form) {
    TFrames few;
    TFrames many;
    TFrames bare;
    std::vector<double> empty;
    {
        const auto tree = MakeTree(form);
        for (int i = 0; i < kFrames; i += kStretch) {
            PaintTree(*tree, 1'000, few);
            PaintTree(*tree, kMany, many);
            DrawTexts(form, bare, empty);
        }
    }
    const double frame = bench::Median(many.Paint);
    std::printf("a frame of %d rows by %d cells, medians of %d by turns\n", kRows, kColumns, kFrames);
    bench::PrintRatio("1,000,000 rows / 1,000", {frame, bench::Median(few.Paint)}, "ms", 1.1);
    bench::PrintRatio("a frame / bare texts", {frame, bench::Median(bare.Paint)}, "ms", 2.5);
    std::printf("  an empty window painted so: %.2f ms; with the bare texts that is %.2f of these\n",
                bench::Median(empty), 1 + bench::Median(empty) / bench::Median(bare.Paint));
    const double move = bench::Median(many.Move);
    std::printf("  scrolling there before, the system's bar included: %.2f ms\n", move);
    bench::PrintRatio("with scrolling / SysListView32", {frame + move, PaintList(form)}, "ms", 1.0);
}

void Filtering(TForm& form) {
    ZOR::TZORVirtualStringTree tree(&form);
    std::mt19937 random(3);
    for (unsigned i = 0; i < kMany; ++i) {
        String text;
        for (int letter = 0; letter < 24; ++letter)
            text += static_cast<char16_t>(u'a' + random() % 26);
        tree.AddToDeque(static_cast<int>(i), text);
    }
    tree.SetParent(&form);
    tree.SetBounds(0, 0, 300, 400);
    std::printf("check list of a million items\n  first showing, texts and order prepared %4.0f ms\n",
                bench::Milliseconds([&] {
                    tree.SetCheckListBoxStyle(true);
                    tree.Update();
                }));
    const auto phrase = [&](const char* what, const String& text) {
        const double taken = bench::Milliseconds([&] {
            tree.SetFraza(text);
            tree.Update();
        });
        std::printf("  %-34s %8.1f ms, %d items show (aim 60)\n", what, taken,
                    tree.GetCheckListBox_FrazaVisibleCount());
    };
    phrase("first phrase", u"qq");
    phrase("another one", u"xyz");
    phrase("one letter", u"e");
    phrase("a letter more", u"er");
    phrase("and another", u"erz");
    phrase("none, all show again", u"");
    std::printf("  sorting a million descending       %8.1f ms\n",
                bench::Milliseconds([&] { tree.SortTree(1, sdDescending); }));
    std::printf("  checking all by the header         %8.1f ms\n",
                bench::Milliseconds([&] { tree.CheckListBox_SetChecked(csCheckedNormal); }));
}

} // namespace

int main() {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    TheApplication().Initialize();
    TForm form(nullptr);
    form.SetBounds(0, 0, 900, 780);
    form.SetVisible(true);
    Adding(form);
    Painting(form);
    Filtering(form);
    return 0;
}
