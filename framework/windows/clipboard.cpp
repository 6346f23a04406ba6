#include "framework/windows/clipboard.h"

#include "framework/graphics/handles.h"

#include <algorithm>
#include <cstring>

namespace framework {

namespace {

bool Open(HWND window) {
    constexpr int kAttempts = 10;
    constexpr DWORD kPause = 5; // milliseconds
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (OpenClipboard(window))
            return true;
        Sleep(kPause);
    }
    return false;
}

/// GlobalLock to GlobalUnlock.
class TLockedMemory {
public:
    explicit TLockedMemory(HGLOBAL memory) : FMemory(memory), FData(GlobalLock(memory)) {}
    TLockedMemory(const TLockedMemory&) = delete;
    TLockedMemory& operator=(const TLockedMemory&) = delete;
    ~TLockedMemory() {
        if (FData)
            GlobalUnlock(FMemory);
    }
    void* Get() const { return FData; }

private:
    HGLOBAL FMemory;
    void* FData;
};

} // namespace

TClipboard::TClipboard(HWND window) : FOpen(Open(window)) {
}

TClipboard::~TClipboard() {
    if (FOpen)
        CloseClipboard();
}

bool TClipboard::HasText() {
    return IsClipboardFormatAvailable(CF_UNICODETEXT) || IsClipboardFormatAvailable(CF_TEXT);
}

std::optional<String> TClipboard::GetText() const {
    // From CF_TEXT that another program has put there the system makes Unicode when it is asked for it.
    const HANDLE memory = FOpen ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    if (!memory)
        return std::nullopt;
    const TLockedMemory locked(memory);
    const auto* text = static_cast<const char16_t*>(locked.Get());
    if (!text)
        return std::nullopt;
    // Other programs write what they like: the text may lack its terminator.
    const std::size_t capacity = GlobalSize(memory) / sizeof(char16_t);
    return String(text, std::find(text, text + capacity, u'\0'));
}

bool TClipboard::Put(UINT format, const void* text, std::size_t bytes, std::size_t terminator) {
    TUniqueGlobal memory(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes + terminator));
    if (!FOpen || !memory)
        return false;
    {
        const TLockedMemory locked(memory.Get());
        if (!locked.Get())
            return false;
        std::memcpy(locked.Get(), text, bytes);
    }
    Clear();
    if (!SetClipboardData(format, memory.Get()))
        return false;
    memory.Release(); // the system's now
    return true;
}

bool TClipboard::SetText(StringView text) {
    return Put(CF_UNICODETEXT, text.data(), text.size() * sizeof(char16_t), sizeof(char16_t));
}

bool TClipboard::SetAnsiText(std::string_view text) {
    return Put(CF_TEXT, text.data(), text.size(), sizeof(char));
}

void TClipboard::Clear() {
    if (FOpen)
        EmptyClipboard();
}

std::optional<String> ClipboardText(HWND window) {
    return TClipboard(window).GetText();
}

bool SetClipboardText(HWND window, StringView text) {
    return TClipboard(window).SetText(text);
}

} // namespace framework
