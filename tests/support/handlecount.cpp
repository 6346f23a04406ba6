#include "tests/support/handlecount.h"

#include "framework/graphics/win32.h"

#include <commctrl.h>
#include <gtest/gtest.h>
#include <intrin.h>
#include <iostream>

namespace testsupport {

namespace {

// One entry of the table of GDI handles that the process environment block points to. Only the type is read: it is 0
// in free entries.
struct TGdiEntry {
    void* Object;
    std::uint16_t Process;
    std::uint16_t Count;
    std::uint16_t Unique;
    std::uint8_t Type;
    std::uint8_t Flags;
    void* UserPointer;
};
static_assert(sizeof(TGdiEntry) == 24, "the layout of 64-bit systems");

constexpr std::size_t BlockOffsetInThread = 0x60;
constexpr std::size_t TableOffsetInBlock = 0xF8;

// Wine has no figures of its own but keeps the table, one for each process.
int CountGdiTable() {
    const auto* block = reinterpret_cast<const std::byte*>(__readgsqword(BlockOffsetInThread));
    const auto* table = *reinterpret_cast<const TGdiEntry* const*>(block + TableOffsetInBlock);
    MEMORY_BASIC_INFORMATION memory{};
    if (!table || !::VirtualQuery(table, &memory, sizeof(memory)))
        return -1;
    const std::size_t size = memory.RegionSize - (reinterpret_cast<const std::byte*>(table) -
                                                  static_cast<const std::byte*>(memory.BaseAddress));
    int used = 0;
    for (std::size_t i = 0; i < size / sizeof(TGdiEntry); ++i)
        used += table[i].Type != 0;
    return used;
}

int CountGdiObjects() {
    ::GdiFlush(); // deletions may still wait
    const auto documented = static_cast<int>(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS));
    return documented > 0 ? documented : CountGdiTable();
}

bool IsOurs(HWND window) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    return process == ::GetCurrentProcessId();
}

BOOL CALLBACK CountChild(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM count) {
    if (IsOurs(window)) {
        CountChild(window, count);
        ::EnumChildWindows(window, CountChild, count);
    }
    return TRUE;
}

int CountWindows() {
    int count = 0;
    const auto parameter = reinterpret_cast<LPARAM>(&count);
    ::EnumWindows(CountWithChildren, parameter);
    HWND window = nullptr;
    while ((window = ::FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr)
        CountWithChildren(window, parameter);
    return count;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const THandleCounts& counts) {
    return stream << counts.GdiObjects << " GDI objects, " << counts.Windows << " windows";
}

THandleCounts CountHandles() {
    return {CountGdiObjects(), CountWindows()};
}

void ExpectSteadyHandles(int rounds, const std::function<void()>& work, int knownLossPerRound) {
    constexpr int warmUp = 3;
    for (int i = 0; i < warmUp; ++i)
        work();
    THandleCounts expected = CountHandles();
    for (int i = 0; i < rounds; ++i)
        work();
    expected.GdiObjects += rounds * knownLossPerRound;
    EXPECT_EQ(CountHandles(), expected) << "after " << rounds << " more rounds";
}

int FontsLostByNativeCalendar() {
    static const int lost = [] {
        constexpr int rounds = 10;
        INITCOMMONCONTROLSEX request{sizeof(request), ICC_DATE_CLASSES};
        ::InitCommonControlsEx(&request);
        const auto makeOne = [] {
            HWND window = ::CreateWindowExW(0, MONTHCAL_CLASSW, nullptr, WS_POPUP, 0, 0, 200, 200, nullptr, nullptr,
                                            nullptr, nullptr);
            ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), FALSE);
            ::DestroyWindow(window);
        };
        makeOne();
        const int before = CountHandles().GdiObjects;
        for (int i = 0; i < rounds; ++i)
            makeOne();
        return (CountHandles().GdiObjects - before) / rounds;
    }();
    if (lost > 0)
        std::cout << "[  NOTE    ] The system's calendar loses " << lost << " GDI object(s) for each font\n";
    return lost;
}

} // namespace testsupport
