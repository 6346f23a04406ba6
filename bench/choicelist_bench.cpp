// What a choice field of 100,000 items costs, town names multiplied, beside the platform's combo box in the same run:
//
//   - filling it, accents folded for the search included, against CB_ADDSTRING; the aim is half of it,
//   - the search for a text that only the last item has, and for one that none has, against CB_FINDSTRING, which knows
//     beginnings alone and no accents; the limit for ours is 0.6 ms,
//   - a key typed into the field, with all that it shows, for both outcomes,
//   - opening the list until it is painted, for the first time and again, against the platform's; the limit is 50 ms,
//   - the memory that the search takes beside the texts, whose limit is three times theirs, and that of all together.
//
// Prints medians; nothing is asserted. The file of names is looked for where the gallery keeps it, or given.

#include "bench/measure.h"
#include "framework/system/strings.h"
#include "framework/system/updates.h"
#include "framework/windows/application.h"
#include "lists/Zorcomboboxnew.h"

#include <commctrl.h>
#include <psapi.h>

using namespace framework;
using namespace ZOR;
using namespace bench;

namespace {

constexpr int kItems = 100000;
constexpr double kSearchLimit = 0.6; // milliseconds
constexpr double kOpenLimit = 50;
constexpr double kMemoryLimit = 3;

std::vector<String> Names(const String& fileName) {
    TStringList names;
    names.LoadFromFile(fileName);
    std::vector<String> items;
    for (int i = 0; i + 1 < kItems; ++i)
        items.push_back(names.Get(i % names.GetCount()));
    items.push_back(u"Ždár quux Łódź");
    return items;
}

void Settle(HWND window) {
    TheApplication().ProcessMessages();
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

double WorkingSet() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof(counters);
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return static_cast<double>(counters.WorkingSetSize);
}

void PrintLimit(const char* what, double ours, const char* unit, double limit, double peer, const char* peerName) {
    std::printf("%-32s %9.3f %s (limit %.1f)   %s %9.3f %s\n", what, ours, unit, limit, peerName, peer, unit);
}

/// Repeats work that is too short for the clock.
double EachOf(int times, const std::function<void()>& work) {
    return Milliseconds([&] {
               for (int i = 0; i < times; ++i)
                   work();
           }) /
           times;
}

class TChoiceBench {
public:
    explicit TChoiceBench(std::vector<String> items) : FItems(std::move(items)) {
        for (const String& item : FItems)
            FTextBytes += static_cast<double>(item.size() * sizeof(char16_t));
        FForm.SetBounds(100, 100, 600, 400);
        FForm.Show();
        SetForegroundWindow(FForm.GetHandle());
        FField.SetSmartSearch(true);
        FField.SetParent(&FForm);
        FField.SetBounds(20, 20, 200, 21);
        FField.SetFocus();
        FNative = CreateWindowExW(0, WC_COMBOBOXW, nullptr, WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN, 300, 20,
                                  200, 300, FForm.GetHandle(), nullptr, nullptr, nullptr);
        Settle(FForm.GetHandle());
    }

    void Run() {
        Fill();
        Search();
        Type();
        Open();
    }

private:
    LRESULT Native(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(FNative, message, wParam, lParam);
    }

    void Fill() {
        TStringList list;
        list.SetLines(FItems);
        const double before = WorkingSet();
        FField.GetItems()->AddStrings(list);
        FField.MakeSmartItems();
        FGrowth = WorkingSet() - before;
        const auto ours = [&] {
            FField.GetItems()->Clear();
            return Milliseconds([&] {
                WithinUpdate(*FField.GetItems(), [&] { FField.GetItems()->AddStrings(list); });
                FField.MakeSmartItems();
            });
        };
        const auto peer = [&] {
            Native(CB_RESETCONTENT);
            return Milliseconds([&] {
                Native(WM_SETREDRAW, FALSE);
                for (const String& item : FItems)
                    Native(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(WideChars(item)));
                Native(WM_SETREDRAW, TRUE);
            });
        };
        PrintRatio("filling, folding included", MedianPair(ours, peer), "ms", 0.5);
    }

    void Search() {
        const struct {
            const char* Name;
            StringView Typed;
            int Expected;
        } searches[] = {{"search, the last item", u"quux lo", kItems - 1}, {"search, no item", u"krakq", -1}};
        const String miss = u"krakq";
        for (const auto& search : searches) {
            const String typed(search.Typed);
            if (FField.findItemPos(typed) != search.Expected)
                throw Exception(u"the search has found another item");
            const TPair pair = MedianPair([&] { return EachOf(50, [&] { FField.findItemPos(typed); }); },
                                          [&] {
                                              return EachOf(5, [&] {
                                                  Native(CB_FINDSTRING, static_cast<WPARAM>(-1),
                                                         reinterpret_cast<LPARAM>(WideChars(miss)));
                                              });
                                          });
            PrintLimit(search.Name, pair.Ours, "ms", kSearchLimit, pair.Peer, "CB_FINDSTRING, no item");
        }
    }

    /// A key with all that follows: the text, the row, the painting.
    void Type() {
        std::vector<double> taken;
        std::vector<double> refused;
        for (int round = 0; round < Rounds; ++round) {
            FField.SetText(u"quu");
            FField.SetSelStart(3);
            FField.dropdown_pop();
            Settle(FField.GetPopup()->GetHandle());
            const auto type = [&](char16_t key) {
                return Milliseconds([&] {
                    SendMessageW(FField.GetHandle(), WM_CHAR, key, 1);
                    Settle(FField.GetPopup()->GetHandle());
                });
            };
            refused.push_back(type(u'q'));
            taken.push_back(type(u'x'));
            FField.dropdown_close();
        }
        std::printf("%-32s %9.3f ms taken, %.3f ms refused\n", "a key typed and painted", Median(taken),
                    Median(refused));
    }

    void Open() {
        FField.SetText({});
        FField.seek_n_destroy();
        bool first = true; // since the items changed
        const auto ours = [&] {
            if (first)
                FField.GetItems()->Exchange(0, 1); // the widest is looked for again
            const double time = Milliseconds([&] {
                FField.dropdown_pop();
                Settle(FField.GetPopup()->GetHandle());
            });
            FField.dropdown_close();
            FField.seek_n_destroy();
            return time;
        };
        const auto peer = [&] {
            const double time = Milliseconds([&] {
                Native(CB_SHOWDROPDOWN, TRUE);
                Settle(FForm.GetHandle());
            });
            Native(CB_SHOWDROPDOWN, FALSE);
            FField.SetFocus();
            return time;
        };
        TPair pair = MedianPair(ours, peer);
        PrintLimit("opening the list first, painted", pair.Ours, "ms", kOpenLimit, pair.Peer, "the platform's");
        first = false;
        pair = MedianPair(ours, peer);
        PrintLimit("opening it again, painted", pair.Ours, "ms", kOpenLimit, pair.Peer, "the platform's");

        TChoiceIndex index;
        index.Assign(*FField.GetItems(), {false, true, false, TFoldedCase::Upper});
        std::printf("%-32s %9.2f of the texts (limit %.1f); with the items themselves %.2f\n", "memory for the search",
                    static_cast<double>(index.MemorySize()) / FTextBytes, kMemoryLimit, FGrowth / FTextBytes);
    }

    std::vector<String> FItems;
    double FTextBytes = 0;
    double FGrowth = 0; // of the working set when the field was filled first
    TForm FForm{nullptr};
    TZORComboBoxnew FField{nullptr};
    HWND FNative = nullptr;
};

} // namespace

int main(int argumentCount, char** arguments) {
    TheApplication().Initialize();
    try {
        TChoiceBench(Names(argumentCount > 1 ? Utf8Decode(arguments[1]) : String(u"gallery\\data\\places.txt"))).Run();
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    return 0;
}
