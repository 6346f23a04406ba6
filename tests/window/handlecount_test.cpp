// The counter of handles sees what is leaked, kind by kind: without this, a test that finds equal counts says nothing.

#include "framework/graphics/handles.h"
#include "tests/support/handlecount.h"

#include <gtest/gtest.h>
#include <vector>

using namespace framework;
using testsupport::CountHandles;
using testsupport::THandleCounts;

namespace {

HWND MakeWindow(HWND parent, DWORD style = 0) {
    return ::CreateWindowExW(0, L"STATIC", L"leak", style, 0, 0, 10, 10, parent, nullptr, nullptr, nullptr);
}

struct TLeak {
    const char* Name;
    void* (*Take)();
    void (*GiveBack)(void*);
    int GdiObjects;
    int Windows;
};

void DeleteGdi(void* handle) {
    ::DeleteObject(handle);
}
void Destroy(void* window) {
    ::DestroyWindow(static_cast<HWND>(window));
}

const TLeak Leaks[] = {
    {"brush", [] { return static_cast<void*>(::CreateSolidBrush(0x123456)); }, DeleteGdi, 1, 0},
    {"pen", [] { return static_cast<void*>(::CreatePen(PS_SOLID, 3, 0x123456)); }, DeleteGdi, 1, 0},
    {"font", [] { return static_cast<void*>(::CreateFontW(-20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma")); },
     DeleteGdi, 1, 0},
    {"bitmap", [] { return static_cast<void*>(::CreateBitmap(8, 8, 1, 32, nullptr)); }, DeleteGdi, 1, 0},
    {"region", [] { return static_cast<void*>(::CreateRectRgn(0, 0, 8, 8)); }, DeleteGdi, 1, 0},
    {"top-level window", [] { return static_cast<void*>(MakeWindow(nullptr, WS_OVERLAPPED)); }, Destroy, 0, 1},
    {"message-only window", [] { return static_cast<void*>(MakeWindow(HWND_MESSAGE)); }, Destroy, 0, 1},
};

} // namespace

TEST(HandleCount, SeesEachLeakedHandleAndItsReturn) {
    MakeWindow(nullptr, WS_OVERLAPPED); // stays: the first window brings others of the system's own
    for (const TLeak& leak : Leaks) {
        SCOPED_TRACE(leak.Name);
        leak.GiveBack(leak.Take());
        const THandleCounts before = CountHandles();
        ASSERT_GT(before.GdiObjects, 0) << "the count is not to be had on this system";
        std::vector<void*> leaked;
        for (int i = 1; i <= 3; ++i) {
            leaked.push_back(leak.Take());
            ASSERT_NE(leaked.back(), nullptr);
            const THandleCounts expected{before.GdiObjects + i * leak.GdiObjects, before.Windows + i * leak.Windows};
            EXPECT_EQ(CountHandles(), expected);
        }
        for (void* handle : leaked)
            leak.GiveBack(handle);
        EXPECT_EQ(CountHandles(), before);
    }
}

TEST(HandleCount, SeesDeviceContextsAndChildWindows) {
    const HWND parent = MakeWindow(nullptr, WS_OVERLAPPED);
    const THandleCounts before = CountHandles();
    const HDC memory = ::CreateCompatibleDC(nullptr);
    EXPECT_GT(CountHandles().GdiObjects, before.GdiObjects); // a context may bring a bitmap or region with it
    ::DeleteDC(memory);
    EXPECT_EQ(CountHandles(), before);

    MakeWindow(MakeWindow(parent, WS_CHILD), WS_CHILD);
    EXPECT_EQ(CountHandles().Windows, before.Windows + 2);
    ::DestroyWindow(parent);
    EXPECT_EQ(CountHandles().Windows, before.Windows - 1);

    // The system keeps a few contexts of the screen ready, so that a single one that is not given back may come from
    // there; twenty cannot.
    std::vector<HDC> contexts;
    for (int i = 0; i < 20; ++i)
        contexts.push_back(::GetDC(nullptr));
    EXPECT_GT(CountHandles().GdiObjects, before.GdiObjects + 10);
    for (const HDC dc : contexts)
        ::ReleaseDC(nullptr, dc);
}
