#pragma once

// Text of several lines over the native EDIT window.

#include "framework/system/stringlist.h"
#include "framework/windows/edit.h"

namespace framework {

enum TScrollStyle { ssNone, ssHorizontal, ssVertical, ssBoth };
const TEnumInfo& DescribeEnum(TScrollStyle);

class TMemoStrings;

class TCustomMemo : public TCustomEdit {
    FRAMEWORK_CLASS(TCustomMemo)

public:
    FRAMEWORK_PROPERTY(TStrings*, Lines, GetLines, SetLines);
    FRAMEWORK_PROPERTY(TScrollStyle, ScrollBars, GetScrollBars, SetScrollBars);
    FRAMEWORK_PROPERTY(bool, WantReturns, GetWantReturns, SetWantReturns);
    FRAMEWORK_PROPERTY(bool, WantTabs, GetWantTabs, SetWantTabs);
    FRAMEWORK_PROPERTY(bool, WordWrap, GetWordWrap, SetWordWrap);

    explicit TCustomMemo(TComponent* owner);
    ~TCustomMemo() override;

    /// The lines between line ends, however the window wraps them. A line that is added ends in CR LF. The Text of the
    /// lines is the whole text as it stands; CR and LF alone, in a text that is set or pasted, become CR LF.
    TStrings* GetLines() const;
    void SetLines(TStrings* value) { GetLines()->Assign(value); }
    TScrollStyle GetScrollBars() const { return FScrollBars; }
    void SetScrollBars(TScrollStyle value);
    /// Whether Enter starts a new line. Otherwise it clicks the form's default button, and Ctrl+Enter starts one. Esc
    /// clicks the cancel button in any case.
    bool GetWantReturns() const { return FWantReturns; }
    void SetWantReturns(bool value) { FWantReturns = value; }
    /// Whether Tab is entered as a character. Otherwise it leads to the next control, and Ctrl+Tab is entered.
    /// Shift+Tab leads to the control before in any case.
    bool GetWantTabs() const { return FWantTabs; }
    void SetWantTabs(bool value) { FWantTabs = value; }
    /// Whether lines that are too long for the window go on in the next row.
    bool GetWordWrap() const { return FWordWrap; }
    void SetWordWrap(bool value);

protected:
    friend class TMemoStrings;

    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void KeepWindowState() override;
    void Dispatch(TMessage& message) override;
    void KeyPress(char16_t& key) override;
    void CNCommand(TMessage& message) override;

    /// LoadFromStream and SaveToStream of the lines.
    virtual void LoadLines(std::istream& stream);
    virtual void SaveLines(std::ostream& stream) const;
    /// What the window counts for a line end in positions: 2 (CR LF), or 1 for rich text.
    virtual int LineEndUnits() const { return 2; }

private:
    void WMPaste();
    void ReplaceText(std::size_t start, std::size_t end, int lineEndsBefore, int lineEndsWithin, const String& text);

    std::unique_ptr<TMemoStrings> FLines;
    TScrollStyle FScrollBars = ssNone;
    int FFirstVisible = 0; // the row at the top, while there is no window
    bool FWantReturns = true;
    bool FWantTabs = false;
    bool FWordWrap = true;
};

class TMemo : public TCustomMemo {
    FRAMEWORK_CLASS(TMemo)

public:
    explicit TMemo(TComponent* owner) : TCustomMemo(owner) {}
};

} // namespace framework
