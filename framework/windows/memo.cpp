#include "framework/windows/memo.h"

#include "framework/system/strings.h"
#include "framework/windows/clipboard.h"

#include <algorithm>

namespace framework {

namespace {

constexpr TSize kInitialSize{185, 89};
constexpr StringView kLineEnd = u"\r\n";

/// The text with every CR and LF that stands alone made a line end as the native window knows it.
String WithNativeLineEnds(StringView text) {
    String result;
    result.reserve(text.size() + text.size() / 32);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit != u'\r' && unit != u'\n') {
            result += unit;
            continue;
        }
        result += kLineEnd;
        if (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
    }
    return result;
}

/// How many units of a text come before the one for which there is no room. Neither a line end, for which the window
/// counts `lineEndUnits`, nor a pair of surrogates is torn apart.
std::size_t FittingUnits(StringView text, int room, int lineEndUnits) {
    std::size_t end = 0;
    while (end < text.size()) {
        const bool isLineEnd = text[end] == u'\r';
        const std::size_t units = isLineEnd || SplitsSurrogates(text, end + 1) ? kLineEnd.size() : 1;
        room -= isLineEnd ? lineEndUnits : static_cast<int>(units);
        if (room < 0)
            break;
        end += units;
    }
    return end;
}

bool HasNativeLineEnds(StringView text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r') {
            if (i + 1 == text.size() || text[++i] != u'\n')
                return false;
        } else if (text[i] == u'\n') {
            return false;
        }
    }
    return true;
}

} // namespace

/// The lines of a memo. The text itself is the memo's; here is noted where each line of it begins.
class TMemoStrings : public TStrings {
public:
    explicit TMemoStrings(TCustomMemo& memo) : FMemo(memo) {}

    TPersistent* GetOwner() const override { return &FMemo; }
    int GetCount() const override { return static_cast<int>(Index().size()); }
    String Get(int index) const override {
        CheckIndex(index);
        return FText.substr(Start(index), End(index) - Start(index));
    }
    void Put(int index, const String& text) override {
        CheckIndex(index);
        Replace(Start(index), End(index), index, 0, text);
    }
    void Insert(int index, const String& text) override {
        if (index < 0 || index > GetCount())
            IndexError(index);
        if (index < GetCount())
            return Replace(Start(index), Start(index), index, 0, text + String(kLineEnd));
        // Behind the last line, which need not have an end of its own.
        const bool open = !FText.empty() && FText.back() != u'\n';
        Replace(FText.size(), FText.size(), open ? index - 1 : index, 0,
                (open ? String(kLineEnd) : String()) + text + String(kLineEnd));
    }
    void Delete(int index) override {
        CheckIndex(index);
        const bool isLast = index + 1 == GetCount();
        const std::size_t end = isLast ? FText.size() : Start(index + 1);
        Replace(Start(index), end, index, End(index) < end ? 1 : 0, {});
    }
    void Clear() override { FMemo.SetText({}); }
    void AddStrings(const TStrings& strings) override {
        String text;
        for (const String& line : strings.GetLines())
            text.append(line).append(kLineEnd);
        if (!text.empty())
            Insert(GetCount(), text.substr(0, text.size() - kLineEnd.size()));
    }
    void Assign(TPersistent* source) override {
        if (const auto* strings = As<TStrings>(source))
            SetLines(strings->GetLines()); // one change
        else
            TStrings::Assign(source);
    }
    String GetTextStr() const override { return FMemo.GetText(); }
    void SetTextStr(const String& text) override { FMemo.SetText(text); }
    void SetLines(const std::vector<String>& lines) override {
        String text;
        for (const String& line : lines)
            text.append(line).append(kLineEnd);
        FMemo.SetText(text);
    }
    void LoadFromStream(std::istream& stream) override { FMemo.LoadLines(stream); }
    void SaveToStream(std::ostream& stream) const override { FMemo.SaveLines(stream); }

    /// The text became another.
    void Forget() {
        FKnown = false;
        ++FChanges;
    }

protected:
    void SetUpdateState(bool updating) override {
        if (!FMemo.GetShowing()) // a hidden window would come to light by it
            return;
        SendMessageW(FMemo.GetHandle(), WM_SETREDRAW, !updating, 0);
        if (!updating)
            FMemo.Invalidate();
    }

private:
    /// Where the lines begin. A line end at the very end opens no new line.
    const std::vector<std::size_t>& Index() const {
        if (FKnown)
            return FStarts;
        FText = FMemo.GetText();
        FStarts.clear();
        FindStarts(0);
        return FStarts;
    }
    void FindStarts(std::size_t at) const {
        for (; at < FText.size(); ++at) {
            FStarts.push_back(at);
            at = FText.find(u'\n', at);
            if (at == String::npos)
                break;
        }
        FKnown = true;
    }
    std::size_t Start(int index) const { return Index()[static_cast<std::size_t>(index)]; }
    /// Behind the last character of a line, before its end.
    std::size_t End(int index) const {
        std::size_t end = index + 1 < GetCount() ? Start(index + 1) : FText.size();
        while (end > Start(index) && (FText[end - 1] == u'\n' || FText[end - 1] == u'\r'))
            --end;
        return end;
    }
    /// Changes a piece of the text and what is known of it, so that adding line after line does not read everything
    /// again each time.
    void Replace(std::size_t start, std::size_t end, int lineEndsBefore, int lineEndsWithin, const String& text) {
        const String part = WithNativeLineEnds(text);
        const unsigned changes = FChanges;
        TLifeGuard alive(FMemo);
        FMemo.ReplaceText(start, end, lineEndsBefore, lineEndsWithin, part);
        if (!alive || FChanges != changes + 1 || FMemo.GetCharCase() != ecNormal)
            return; // a handler of the change made others
        FText.replace(start, end - start, part);
        const auto known = std::upper_bound(FStarts.begin(), FStarts.end(), start);
        const std::size_t lineStart = known == FStarts.begin() ? 0 : *std::prev(known);
        FStarts.erase(known == FStarts.begin() ? known : std::prev(known), FStarts.end());
        FindStarts(lineStart);
    }

    TCustomMemo& FMemo;
    mutable String FText;
    mutable std::vector<std::size_t> FStarts;
    mutable bool FKnown = false;
    unsigned FChanges = 0;
};

const TEnumInfo& DescribeEnum(TScrollStyle) {
    static const TEnumInfo info{u"TScrollStyle", {u"ssNone", u"ssHorizontal", u"ssVertical", u"ssBoth"}};
    return info;
}

const TClassInfo& TCustomMemo::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomMemo>(u"TCustomMemo", TCustomEdit::StaticClass());
    return info;
}

const TClassInfo& TMemo::StaticClass() {
    namespace row = controlrows;
    namespace edit = editrows;
    using M = TCustomMemo;
    static const TClassInfo info =
        DescribeClass<TMemo>(u"TMemo", TCustomMemo::StaticClass(),
                             {row::Align(),
                              edit::Alignment(),
                              row::Anchors(),
                              row::BiDiMode(),
                              edit::BorderStyle(),
                              edit::CharCase(),
                              row::Color(clWindow),
                              row::Constraints(),
                              row::Ctl3D(),
                              row::DoubleBuffered(),
                              row::Enabled(),
                              row::Font(),
                              edit::HideSelection(),
                              Property<&M::GetLines, &M::SetLines>(u"Lines"),
                              edit::MaxLength(),
                              row::ParentLinks(false),
                              edit::ReadOnly(),
                              Property<&M::GetScrollBars, &M::SetScrollBars>(u"ScrollBars", ssNone),
                              row::ShowHint(),
                              row::TabOrder(),
                              row::TabStop(true),
                              row::Visible(),
                              Property<&M::GetWantReturns, &M::SetWantReturns>(u"WantReturns", true),
                              Property<&M::GetWantTabs, &M::SetWantTabs>(u"WantTabs", false),
                              Property<&M::GetWordWrap, &M::SetWordWrap>(u"WordWrap", true),
                              edit::OnChange(),
                              row::InputEvents()});
    return info;
}

TCustomMemo::TCustomMemo(TComponent* owner) : TCustomEdit(owner), FLines(std::make_unique<TMemoStrings>(*this)) {
    SetAutoSize(false);
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
}

TCustomMemo::~TCustomMemo() {
    Destroying();
    DestroyHandle(); // whose last messages still tell of lines
}

TStrings* TCustomMemo::GetLines() const {
    return FLines.get();
}

// The window

void TCustomMemo::CreateParams(TCreateParams& params) {
    TCustomEdit::CreateParams(params);
    params.Style &= ~static_cast<DWORD>(ES_PASSWORD); // unknown to windows of several lines
    params.Style |= ES_MULTILINE | ES_AUTOVSCROLL;
    if (FWordWrap)
        params.Style &= ~static_cast<DWORD>(ES_AUTOHSCROLL);
    if (FScrollBars == ssHorizontal || FScrollBars == ssBoth)
        params.Style |= WS_HSCROLL;
    if (FScrollBars == ssVertical || FScrollBars == ssBoth)
        params.Style |= WS_VSCROLL;
}

void TCustomMemo::CreateWnd() {
    TCustomEdit::CreateWnd();
    SendMessageW(FHandle, EM_LINESCROLL, 0,
                 FFirstVisible - static_cast<int>(SendMessageW(FHandle, EM_GETFIRSTVISIBLELINE, 0, 0)));
}

void TCustomMemo::KeepWindowState() {
    FFirstVisible = static_cast<int>(SendMessageW(FHandle, EM_GETFIRSTVISIBLELINE, 0, 0));
    TCustomEdit::KeepWindowState();
}

void TCustomMemo::SetScrollBars(TScrollStyle value) {
    if (FScrollBars == value)
        return;
    FScrollBars = value;
    RecreateWnd();
}

void TCustomMemo::SetWordWrap(bool value) {
    if (FWordWrap == value)
        return;
    FWordWrap = value;
    RecreateWnd();
}

// Text

/// Replaces the units from `start` to `end` of Text. The line ends before and within that range tell where it lies for
/// a window that counts them as one unit each.
void TCustomMemo::ReplaceText(std::size_t start, std::size_t end, int lineEndsBefore, int lineEndsWithin,
                              const String& text) {
    if (!HandleAllocated()) {
        String whole = GetText();
        SetText(whole.replace(start, end - start, text));
        return;
    }
    const int shorter = 2 - LineEndUnits();
    const int from = static_cast<int>(start) - shorter * lineEndsBefore;
    const int to = static_cast<int>(end) - shorter * (lineEndsBefore + lineEndsWithin);
    TLifeGuard alive(*this);
    SendMessageW(FHandle, EM_SETSEL, static_cast<WPARAM>(from), to);
    if (alive)
        SetSelText(text);
}

void TCustomMemo::LoadLines(std::istream& stream) {
    FLines->TStrings::LoadFromStream(stream);
}

void TCustomMemo::SaveLines(std::ostream& stream) const {
    FLines->TStrings::SaveToStream(stream);
}

void TCustomMemo::WMPaste() {
    const std::optional<String> text = ClipboardText(FHandle);
    if (!text || HasNativeLineEnds(*text)) {
        TMessage message{WM_PASTE, 0, 0, 0};
        TCustomEdit::Dispatch(message); // pictures and formatted text among them
        return;
    }
    if (GetReadOnly())
        return;
    String fitting = WithNativeLineEnds(*text);
    if (GetMaxLength() > 0) { // which EM_REPLACESEL ignores
        const String present = GetText();
        const auto lineEnds = static_cast<int>(std::count(present.begin(), present.end(), u'\r'));
        const int length = static_cast<int>(present.size()) - (2 - LineEndUnits()) * lineEnds;
        fitting.resize(FittingUnits(fitting, GetMaxLength() - length + GetSelLength(), LineEndUnits()));
    }
    SetSelText(fitting);
}

// Messages

void TCustomMemo::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_SETTEXT:
        FLines->Forget();
        [[fallthrough]];
    case EM_REPLACESEL: {
        const auto* text = reinterpret_cast<const char16_t*>(message.LParam);
        if (!text || HasNativeLineEnds(text))
            break;
        const String converted = WithNativeLineEnds(text);
        message.LParam = reinterpret_cast<LPARAM>(converted.c_str());
        TCustomEdit::Dispatch(message);
        return;
    }
    case WM_PASTE:
        return WMPaste();
    case WM_GETDLGCODE:
        TCustomEdit::Dispatch(message);
        message.Result &= ~LRESULT{DLGC_WANTALLKEYS | DLGC_WANTTAB};
        if (FWantTabs && GetKeyState(VK_SHIFT) >= 0)
            message.Result |= DLGC_WANTTAB;
        return;
    case CM_WANTSPECIALKEY:
        if (message.WParam == VK_RETURN && (FWantReturns || GetKeyState(VK_CONTROL) < 0)) {
            message.Result = 1;
            return;
        }
        break;
    default:
        break;
    }
    TCustomEdit::Dispatch(message);
}

void TCustomMemo::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    TCustomEdit::KeyPress(key);
    if (alive && key == u'\r' && !FWantReturns)
        key = 0;
}

void TCustomMemo::CNCommand(TMessage& message) {
    if (HighWord(message.WParam) == EN_CHANGE)
        FLines->Forget();
    TCustomEdit::CNCommand(message);
}

} // namespace framework
