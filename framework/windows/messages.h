#pragma once

// Messages as controls see them: the record that travels through WndProc, the component messages (CM_...), the
// notifications that come back from the parent (CN_...), and the one place where packed parameters are taken apart.

#include "framework/graphics/win32.h"
#include "framework/system/sets.h"
#include "framework/system/types.h"

namespace framework {

struct TMessage {
    UINT Msg = 0;
    WPARAM WParam = 0;
    LPARAM LParam = 0;
    LRESULT Result = 0;
};

enum TShiftStateElement { ssShift, ssAlt, ssCtrl, ssLeft, ssRight, ssMiddle, ssDouble };
using TShiftState = Set<TShiftStateElement>;

enum TMouseButton { mbLeft, mbRight, mbMiddle };

inline constexpr UINT CM_BASE = 0xB000;
inline constexpr UINT FirstRegisteredMessage = 0xC000; ///< from here on they are the system's (RegisterWindowMessage)
inline constexpr UINT CM_ACTIVATE = CM_BASE + 0;       ///< the form became the active one
inline constexpr UINT CM_DEACTIVATE = CM_BASE + 1;     ///< the form is no longer the active one
inline constexpr UINT CM_GOTFOCUS = CM_BASE + 2;       ///< the window has the keyboard focus
inline constexpr UINT CM_LOSTFOCUS = CM_BASE + 3;      ///< the window lost it, perhaps to another program
inline constexpr UINT CM_DIALOGKEY = CM_BASE + 5;      ///< WParam: key that nobody wanted; non-zero result: taken
inline constexpr UINT CM_DIALOGCHAR = CM_BASE + 6;     ///< WParam: accelerator character; non-zero result: taken
inline constexpr UINT CM_FOCUSCHANGED = CM_BASE + 7;   ///< LParam: the TWinControl now focused, sent to all of the form
inline constexpr UINT CM_PARENTFONTCHANGED = CM_BASE + 8;
inline constexpr UINT CM_PARENTCOLORCHANGED = CM_BASE + 9;
inline constexpr UINT CM_HITTEST = CM_BASE + 10; ///< LParam: packed point; non-zero result: the control is there
inline constexpr UINT CM_VISIBLECHANGED = CM_BASE + 11;
inline constexpr UINT CM_ENABLEDCHANGED = CM_BASE + 12;
inline constexpr UINT CM_COLORCHANGED = CM_BASE + 13;
inline constexpr UINT CM_FONTCHANGED = CM_BASE + 14;
inline constexpr UINT CM_CURSORCHANGED = CM_BASE + 15;
inline constexpr UINT CM_CTL3DCHANGED = CM_BASE + 16;
inline constexpr UINT CM_PARENTCTL3DCHANGED = CM_BASE + 17;
inline constexpr UINT CM_TEXTCHANGED = CM_BASE + 18;
inline constexpr UINT CM_MOUSEENTER = CM_BASE + 19;
inline constexpr UINT CM_MOUSELEAVE = CM_BASE + 20;
inline constexpr UINT CM_SHOWINGCHANGED = CM_BASE + 25;
inline constexpr UINT CM_ENTER = CM_BASE + 26;          ///< the control becomes the form's focused one
inline constexpr UINT CM_EXIT = CM_BASE + 27;           ///< the control is left for another of the form
inline constexpr UINT CM_WANTSPECIALKEY = CM_BASE + 30; ///< WParam: key; non-zero result: the control uses it itself
inline constexpr UINT CM_RELEASE = CM_BASE + 33;        ///< posted: free the form when its handlers have ended
inline constexpr UINT CM_SHOWHINTCHANGED = CM_BASE + 34;
inline constexpr UINT CM_PARENTSHOWHINTCHANGED = CM_BASE + 35;
inline constexpr UINT CM_SYSCOLORCHANGE = CM_BASE + 36;
inline constexpr UINT CM_TABSTOPCHANGED = CM_BASE + 40;
inline constexpr UINT CM_CONTROLLISTCHANGE = CM_BASE + 43; ///< WParam: the TControl; LParam: 1 inserted, 0 removed
inline constexpr UINT CM_CHILDKEY = CM_BASE + 46; ///< WParam: key; LParam: the TWinControl; non-zero result: taken
inline constexpr UINT CM_HINTSHOW = CM_BASE + 48; ///< LParam: THintInfo*; non-zero result: show none
inline constexpr UINT CM_RECREATEWND = CM_BASE + 51;
inline constexpr UINT CM_BIDIMODECHANGED = CM_BASE + 61;
inline constexpr UINT CM_PARENTBIDIMODECHANGED = CM_BASE + 62;

/// A parent hands WM_COMMAND, WM_NOTIFY, WM_CTLCOLOR..., WM_DRAWITEM and the like back to the child they speak of, as
/// CN_BASE plus the message's number. The message loop offers keys to the focused control in the same form first.
inline constexpr UINT CN_BASE = 0xBC00;
inline constexpr UINT CN_COMMAND = CN_BASE + WM_COMMAND;
inline constexpr UINT CN_NOTIFY = CN_BASE + WM_NOTIFY;
inline constexpr UINT CN_DRAWITEM = CN_BASE + WM_DRAWITEM;
inline constexpr UINT CN_HSCROLL = CN_BASE + WM_HSCROLL;
inline constexpr UINT CN_VSCROLL = CN_BASE + WM_VSCROLL;
inline constexpr UINT CN_CTLCOLORMSGBOX = CN_BASE + WM_CTLCOLORMSGBOX;
inline constexpr UINT CN_CTLCOLOREDIT = CN_BASE + WM_CTLCOLOREDIT;
inline constexpr UINT CN_CTLCOLORLISTBOX = CN_BASE + WM_CTLCOLORLISTBOX;
inline constexpr UINT CN_CTLCOLORBTN = CN_BASE + WM_CTLCOLORBTN;
inline constexpr UINT CN_CTLCOLORSTATIC = CN_BASE + WM_CTLCOLORSTATIC;
inline constexpr UINT CN_KEYDOWN = CN_BASE + WM_KEYDOWN;
inline constexpr UINT CN_CHAR = CN_BASE + WM_CHAR;
inline constexpr UINT CN_SYSKEYDOWN = CN_BASE + WM_SYSKEYDOWN;
inline constexpr UINT CN_SYSCHAR = CN_BASE + WM_SYSCHAR;

/// The signed point that mouse messages carry in LParam (either coordinate may be negative on other monitors).
inline TPoint PointFromLParam(LPARAM value) {
    return {static_cast<std::int16_t>(value & 0xFFFF), static_cast<std::int16_t>((value >> 16) & 0xFFFF)};
}
inline LPARAM PointToLParam(TPoint point) {
    return static_cast<LPARAM>(static_cast<std::uint32_t>(static_cast<std::uint16_t>(point.X)) |
                               (static_cast<std::uint32_t>(static_cast<std::uint16_t>(point.Y)) << 16));
}
inline WORD LowWord(std::uint64_t value) {
    return static_cast<WORD>(value & 0xFFFF);
}
inline WORD HighWord(std::uint64_t value) {
    return static_cast<WORD>((value >> 16) & 0xFFFF);
}

/// Buttons and modifier keys of a mouse message: MK_... flags of WParam and the Alt key.
TShiftState ShiftStateFromMouse(WPARAM keys);
/// Modifier keys of the key message being handled (GetKeyState).
TShiftState ShiftStateFromKeyboard();

} // namespace framework
