#pragma once

// Text on the clipboard. TClipboard holds it open while it is in scope.

#include "framework/graphics/win32.h"
#include "framework/system/types.h"

#include <optional>

namespace framework {

/// The open clipboard (OpenClipboard to CloseClipboard). Keep it for as short a time as possible: no other program can
/// use it meanwhile, and no handler or message box belongs into that time.
class TClipboard {
public:
    /// `window` becomes the owner of what is written; null reads and writes for the program. Another program may have
    /// the clipboard open just now, so this tries for some milliseconds.
    explicit TClipboard(HWND window);
    TClipboard(const TClipboard&) = delete;
    TClipboard& operator=(const TClipboard&) = delete;
    ~TClipboard();

    /// False when another program did not let go of it; then nothing is read or written.
    explicit operator bool() const { return FOpen; }

    /// The text, whether it was put there as CF_UNICODETEXT or as CF_TEXT; nothing when there is none. What was written
    /// as CF_TEXT can be read so from the next opening on.
    std::optional<String> GetText() const;
    /// Replaces everything there is by the text; the system offers it as CF_TEXT, too. False when that failed.
    bool SetText(StringView text);
    /// The same in bytes of the user's code page alone (CF_TEXT), as older programs write it.
    bool SetAnsiText(std::string_view text);
    void Clear();

    /// Whether there is text now; asks without opening (IsClipboardFormatAvailable).
    static bool HasText();

private:
    bool Put(UINT format, const void* text, std::size_t bytes, std::size_t terminator);

    bool FOpen;
};

/// Opens the clipboard and gives its text; nothing when there is none or it cannot be had.
std::optional<String> ClipboardText(HWND window);
/// Opens the clipboard and replaces its contents; false when that failed.
bool SetClipboardText(HWND window, StringView text);

} // namespace framework
