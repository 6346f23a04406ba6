#pragma once

// Formatted text over the native rich edit window. Positions (SelStart, SelLength) count each line end as one unit.

#include "framework/windows/memo.h"

namespace framework {

class TCustomRichEdit : public TCustomMemo {
    FRAMEWORK_CLASS(TCustomRichEdit)

public:
    FRAMEWORK_PROPERTY(bool, HideScrollBars, GetHideScrollBars, SetHideScrollBars);
    FRAMEWORK_PROPERTY(bool, PlainText, GetPlainText, SetPlainText);

    explicit TCustomRichEdit(TComponent* owner);

    /// Whether scroll bars are gone while there is nothing to scroll; otherwise they are greyed.
    bool GetHideScrollBars() const { return FHideScrollBars; }
    void SetHideScrollBars(bool value);
    /// Whether the lines load and save their text alone. Otherwise LoadFromStream takes RTF, or text where the bytes do
    /// not begin as RTF does, and SaveToStream writes RTF. Both make the window if there is none yet.
    bool GetPlainText() const { return FPlainText; }
    void SetPlainText(bool value) { FPlainText = value; }

    String GetSelText() const override;

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void KeepWindowState() override;
    void Dispatch(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void DoSetMaxLength(int value) override;
    void CMColorChanged(TMessage& message) override;
    void CMEnabledChanged(TMessage& message) override;
    void CMFontChanged(TMessage& message) override;
    void CNCommand(TMessage& message) override;
    void LoadLines(std::istream& stream) override;
    void SaveLines(std::ostream& stream) const override;
    int LineEndUnits() const override { return 1; }

private:
    void ShowColors();
    void AlignParagraphs(bool plain);
    /// Replaces everything by RTF; EConvertError when the window does not understand it.
    void SetRtf(std::string_view rtf);
    std::string GetRtf() const;

    std::string FKeptRtf;    // while there is no window; empty when the text has changed since
    LONG_PTR FAlignedAs = 0; // the ES_... bits of the alignment that the paragraphs were given last
    bool FHideScrollBars = true;
    bool FPlainText = false;
    bool FSettingText = false;
};

class TRichEdit : public TCustomRichEdit {
    FRAMEWORK_CLASS(TRichEdit)

public:
    explicit TRichEdit(TComponent* owner) : TCustomRichEdit(owner) {}
};

} // namespace framework
