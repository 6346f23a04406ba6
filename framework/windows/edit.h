#pragma once

// Single-line text entry over the native EDIT window. The base class carries everything that other text fields build
// on: selection, limits, and one change event for each change, whoever made it.

#include "framework/windows/textcontrol.h"

namespace framework {

enum TEditCharCase { ecNormal, ecUpperCase, ecLowerCase };
const TEnumInfo& DescribeEnum(TEditCharCase);
/// The text in the letter case that an edit forces, by the user's language.
String ConvertCase(StringView text, TEditCharCase charCase);

class TCustomEdit : public TTextControl {
    FRAMEWORK_CLASS(TCustomEdit)

public:
    FRAMEWORK_PROPERTY(TAlignment, Alignment, GetAlignment, SetAlignment);
    FRAMEWORK_PROPERTY(bool, AutoSelect, GetAutoSelect, SetAutoSelect);
    FRAMEWORK_PROPERTY(TBorderStyle, BorderStyle, GetBorderStyle, SetBorderStyle);
    FRAMEWORK_PROPERTY(TEditCharCase, CharCase, GetCharCase, SetCharCase);
    FRAMEWORK_PROPERTY(bool, HideSelection, GetHideSelection, SetHideSelection);
    FRAMEWORK_PROPERTY(int, MaxLength, GetMaxLength, SetMaxLength);
    FRAMEWORK_PROPERTY(bool, Modified, GetModified, SetModified);
    FRAMEWORK_PROPERTY(bool, NumbersOnly, GetNumbersOnly, SetNumbersOnly);
    FRAMEWORK_PROPERTY(char16_t, PasswordChar, GetPasswordChar, SetPasswordChar);
    FRAMEWORK_PROPERTY(bool, ReadOnly, GetReadOnly, SetReadOnly);

    /// The text changed, by the user or by the program: once for each change.
    TNotifyEvent OnChange;

    explicit TCustomEdit(TComponent* owner);

    TAlignment GetAlignment() const { return FAlignment; }
    void SetAlignment(TAlignment value);
    /// Whether all text is selected when the field is entered by the keyboard.
    bool GetAutoSelect() const { return FAutoSelect; }
    void SetAutoSelect(bool value) { FAutoSelect = value; }
    TBorderStyle GetBorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle value);
    TEditCharCase GetCharCase() const { return FCharCase; }
    /// Converts the present text as well as what comes later.
    void SetCharCase(TEditCharCase value);
    /// Whether the selection is invisible while the field has no focus.
    bool GetHideSelection() const { return FHideSelection; }
    void SetHideSelection(bool value);
    /// The number of UTF-16 units a user can enter; 0 or less means no limit. Text set by the program may be longer.
    int GetMaxLength() const { return FMaxLength; }
    void SetMaxLength(int value);
    /// Whether the user changed the text. Setting Modified to false or the text by program starts afresh.
    bool GetModified() const;
    void SetModified(bool value);
    /// Lets the user type digits only (ES_NUMBER); what is pasted is not checked.
    bool GetNumbersOnly() const { return FNumbersOnly; }
    void SetNumbersOnly(bool value);
    /// The character shown in place of each one typed; 0 shows the text itself.
    char16_t GetPasswordChar() const { return FPasswordChar; }
    void SetPasswordChar(char16_t value);
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool value);
    /// With AutoSize and a border, the height that fits one line of the font.
    void AdjustSize() override;

    virtual void Clear() { SetText({}); }
    void ClearSelection();
    void CopyToClipboard();
    void CutToClipboard();
    void PasteFromClipboard();
    void Undo();
    void ClearUndo();
    bool CanUndo() const;

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void KeepWindowState() override;
    void Dispatch(TMessage& message) override;
    void DefaultHandler(TMessage& message) override;
    void KeyPress(char16_t& key) override;
    void CMEnter(TMessage& message) override;
    void CMFontChanged(TMessage& message) override;
    void CMTextChanged(TMessage& message) override;

    /// The text became another; fires OnChange.
    virtual void Change();
    /// Tells the window of a new limit (EM_LIMITTEXT).
    virtual void DoSetMaxLength(int value);
    /// The height in pixels that fits one line of the font within the border.
    virtual int GetFittingHeight() const;
    virtual void CNCommand(TMessage& message);
    /// Whether the field is just being clicked, so that the click places the caret.
    bool BeingClicked() const { return FPressed; }
    /// True for descendants whose window has several lines.
    bool IsMultiLine() const;

private:
    void WMSetText(TMessage& message);

    String FReportedText; // of a single-line window: what OnChange told last
    int FMaxLength = 0;
    TAlignment FAlignment = taLeftJustify;
    TBorderStyle FBorderStyle = bsSingle;
    TEditCharCase FCharCase = ecNormal;
    char16_t FPasswordChar = 0;
    bool FAutoSelect = true;
    bool FHideSelection = true;
    bool FModified = false; // while there is no window
    bool FNumbersOnly = false;
    bool FReadOnly = false;
    bool FPressed = false; // a mouse button is on its way down
};

/// The rows that edits of every kind publish, for their own tables.
namespace editrows {
TPropInfo Alignment();
TPropInfo AutoSelect();
TPropInfo BorderStyle();
TPropInfo CharCase();
TPropInfo HideSelection();
TPropInfo MaxLength();
TPropInfo PasswordChar();
TPropInfo ReadOnly();
TPropInfo OnChange();
} // namespace editrows

class TEdit : public TCustomEdit {
    FRAMEWORK_CLASS(TEdit)

public:
    explicit TEdit(TComponent* owner) : TCustomEdit(owner) {}
};

} // namespace framework
