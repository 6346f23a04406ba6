#include "framework/windows/richedit.h"

#include "framework/graphics/handles.h"
#include "framework/windows/richedit_rules.h"

#include <algorithm>
#include <cstring>
#include <istream>
#include <iterator>
#include <ostream>
#include <richedit.h>
#include <sstream>

namespace framework {

namespace {

constexpr int kNoLimit = 0x7FFFFFF0;

/// Registers the window class once; the library stays for as long as the program.
void NeedRichEditClass() {
    static const HMODULE library = LoadLibraryW(L"msftedit.dll");
    if (!library)
        throw EOutOfResources(u"The rich edit control (msftedit.dll) is not available");
}

UINT RtfClipboardFormat() {
    static const UINT format = RegisterClipboardFormatW(L"Rich Text Format");
    return format;
}

/// What the window asks for piece by piece.
struct TSource {
    std::string_view Rest;

    static DWORD CALLBACK Read(DWORD_PTR self, BYTE* buffer, LONG room, LONG* given) {
        auto& source = *reinterpret_cast<TSource*>(self);
        const std::size_t count = std::min(source.Rest.size(), static_cast<std::size_t>(std::max<LONG>(room, 0)));
        std::memcpy(buffer, source.Rest.data(), count);
        source.Rest.remove_prefix(count);
        *given = static_cast<LONG>(count);
        return 0;
    }
};

/// What the window gives piece by piece.
struct TSink {
    std::string Bytes;
    bool Failed = false;

    static DWORD CALLBACK Write(DWORD_PTR self, BYTE* buffer, LONG count, LONG* taken) {
        auto& sink = *reinterpret_cast<TSink*>(self);
        try { // no exception may cross the window's frames
            sink.Bytes.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(count));
        } catch (...) {
            sink.Failed = true;
            return 1;
        }
        *taken = count;
        return 0;
    }
};

} // namespace

const TClassInfo& TCustomRichEdit::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomRichEdit>(u"TCustomRichEdit", TCustomMemo::StaticClass());
    return info;
}

const TClassInfo& TRichEdit::StaticClass() {
    namespace row = controlrows;
    namespace edit = editrows;
    using M = TCustomMemo;
    using R = TCustomRichEdit;
    static const TClassInfo info =
        DescribeClass<TRichEdit>(u"TRichEdit", TCustomRichEdit::StaticClass(),
                                 {row::Align(),
                                  edit::Alignment(),
                                  row::Anchors(),
                                  row::BiDiMode(),
                                  edit::BorderStyle(),
                                  row::Color(clWindow),
                                  row::Ctl3D(),
                                  row::Enabled(),
                                  row::Font(),
                                  edit::HideSelection(),
                                  Property<&R::GetHideScrollBars, &R::SetHideScrollBars>(u"HideScrollBars", true),
                                  row::Constraints(),
                                  Property<&M::GetLines, &M::SetLines>(u"Lines"),
                                  edit::MaxLength(),
                                  row::ParentLinks(false),
                                  Property<&R::GetPlainText, &R::SetPlainText>(u"PlainText", false),
                                  edit::ReadOnly(),
                                  Property<&M::GetScrollBars, &M::SetScrollBars>(u"ScrollBars", ssNone),
                                  row::ShowHint(),
                                  row::TabOrder(),
                                  row::TabStop(true),
                                  row::Visible(),
                                  Property<&M::GetWantTabs, &M::SetWantTabs>(u"WantTabs", false),
                                  Property<&M::GetWantReturns, &M::SetWantReturns>(u"WantReturns", true),
                                  Property<&M::GetWordWrap, &M::SetWordWrap>(u"WordWrap", true),
                                  edit::OnChange(),
                                  row::InputEvents()});
    return info;
}

TCustomRichEdit::TCustomRichEdit(TComponent* owner) : TCustomMemo(owner) {
}

// The window

void TCustomRichEdit::CreateParams(TCreateParams& params) {
    TCustomMemo::CreateParams(params);
    NeedRichEditClass();
    CreateSubClass(params, MSFTEDIT_CLASS);
    params.Style &= ~static_cast<DWORD>(ES_UPPERCASE | ES_LOWERCASE | ES_NUMBER);
    if (!FHideScrollBars)
        params.Style |= ES_DISABLENOSCROLL;
}

void TCustomRichEdit::CreateWnd() {
    const std::string rtf = std::exchange(FKeptRtf, {}); // setting the text on the way forgets it
    TCustomMemo::CreateWnd();
    SendMessageW(FHandle, EM_SETTARGETDEVICE, 0, GetWordWrap() ? 0 : 1);
    ShowColors();
    const TSelection selection = GetSelection();
    const bool modified = GetModified();
    if (!rtf.empty())
        SetRtf(rtf);
    AlignParagraphs(rtf.empty());
    SetSelection(selection);
    SetModified(modified);
    SendMessageW(FHandle, EM_SETEVENTMASK, 0, ENM_CHANGE); // what the window was made with is no change
}

/// The window takes no notice of the alignment in its style. What is formatted keeps the alignment of its paragraphs
/// until the control gets another one.
void TCustomRichEdit::AlignParagraphs(bool plain) {
    const LONG_PTR alignment = GetWindowLongPtrW(FHandle, GWL_STYLE) & (ES_CENTER | ES_RIGHT);
    const bool another = std::exchange(FAlignedAs, alignment) != alignment;
    if (!another && !(plain && alignment != ES_LEFT))
        return;
    PARAFORMAT format{};
    format.cbSize = sizeof(format);
    format.dwMask = PFM_ALIGNMENT;
    format.wAlignment = alignment == ES_CENTER ? PFA_CENTER : alignment == ES_RIGHT ? PFA_RIGHT : PFA_LEFT;
    SendMessageW(FHandle, EM_SETSEL, 0, -1);
    SendMessageW(FHandle, EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
}

void TCustomRichEdit::KeepWindowState() {
    TCustomMemo::KeepWindowState();
    FKeptRtf = GetRtf();
}

void TCustomRichEdit::SetHideScrollBars(bool value) {
    if (FHideScrollBars == value)
        return;
    FHideScrollBars = value;
    RecreateWnd();
}

void TCustomRichEdit::DoSetMaxLength(int value) {
    SendMessageW(GetHandle(), EM_EXLIMITTEXT, 0, value > 0 ? value : kNoLimit);
}

/// The window asks nobody for its colours, and does not show by itself that it is disabled.
void TCustomRichEdit::ShowColors() {
    if (!HandleAllocated())
        return;
    const TColor background = GetEnabled() ? GetColor() : clBtnFace;
    SendMessageW(FHandle, EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(ColorToRGB(background)));
    CHARFORMATW format{};
    format.cbSize = sizeof(format);
    format.dwMask = CFM_COLOR;
    format.crTextColor = ColorToRGB(GetFont()->GetColor());
    SendMessageW(FHandle, EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
}

void TCustomRichEdit::CMColorChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomMemo::CMColorChanged(message);
    if (alive)
        ShowColors();
}

void TCustomRichEdit::CMEnabledChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomMemo::CMEnabledChanged(message);
    if (alive)
        ShowColors();
}

void TCustomRichEdit::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomMemo::CMFontChanged(message);
    if (alive)
        ShowColors();
}

// Text

String TCustomRichEdit::GetSelText() const {
    if (!HandleAllocated())
        return TCustomMemo::GetSelText();
    String text(static_cast<std::size_t>(GetSelLength()), u'\0');
    const LRESULT copied = SendMessageW(FHandle, EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(copied, 0, static_cast<LRESULT>(text.size()))));
    return text;
}

void TCustomRichEdit::SetRtf(std::string_view rtf) {
    TSource source{rtf};
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, TSource::Read};
    SendMessageW(GetHandle(), EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
    if (stream.dwError != 0)
        throw EConvertError(u"The text is no RTF that the rich edit control understands");
}

std::string TCustomRichEdit::GetRtf() const {
    TSink sink;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&sink), 0, TSink::Write};
    SendMessageW(GetHandle(), EM_STREAMOUT, SF_RTF | SF_USECODEPAGE | (CP_UTF8 << 16),
                 reinterpret_cast<LPARAM>(&stream));
    if (sink.Failed || stream.dwError != 0)
        throw EOutOfResources(u"The formatted text could not be read from the rich edit control");
    return RtfFromUtf8(sink.Bytes);
}

void TCustomRichEdit::LoadLines(std::istream& stream) {
    if (FPlainText) {
        TCustomMemo::LoadLines(stream);
        return;
    }
    std::string bytes(std::istreambuf_iterator<char>(stream), {});
    if (IsRtf(bytes)) {
        SetRtf(bytes);
        return;
    }
    std::istringstream text(std::move(bytes));
    TCustomMemo::LoadLines(text);
}

void TCustomRichEdit::SaveLines(std::ostream& stream) const {
    if (FPlainText) {
        TCustomMemo::SaveLines(stream);
        return;
    }
    const std::string rtf = GetRtf();
    if (!stream.write(rtf.data(), static_cast<std::streamsize>(rtf.size())))
        throw EWriteError(u"The text could not be written");
}

// Messages

void TCustomRichEdit::Dispatch(TMessage& message) {
    TLifeGuard alive(*this);
    switch (message.Msg) {
    case WM_SETTEXT:
        FKeptRtf.clear();
        // Its notification would be a second one: the control tells of a new text by itself.
        FSettingText = true;
        TCustomMemo::Dispatch(message);
        if (alive)
            FSettingText = false;
        return;
    case WM_PASTE:
        if (!FPlainText && IsClipboardFormatAvailable(RtfClipboardFormat()))
            return DefaultHandler(message);
        break;
    default:
        break;
    }
    TCustomMemo::Dispatch(message);
}

void TCustomRichEdit::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    TCustomMemo::KeyDown(key, shift);
    if (!alive)
        return;
    // The window would paste at once, without the message.
    const bool pastes =
        (key == 'V' && shift == TShiftState{ssCtrl}) || (key == VK_INSERT && shift == TShiftState{ssShift});
    if (pastes) {
        key = 0;
        PasteFromClipboard();
    }
}

void TCustomRichEdit::CNCommand(TMessage& message) {
    if (!FSettingText)
        TCustomMemo::CNCommand(message);
}

} // namespace framework
