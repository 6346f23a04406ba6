#pragma once

// The list that drops down from a choice field. It shows the items of the field with the characters marked that match
// what is typed and never takes the focus from it. It only knows how many items there are and asks for those that show,
// so that opening costs no more than finding the widest of them.

#include "foundation/Zorpopup.h"
#include "framework/windows/controlstrings.h"
#include "framework/windows/listbox.h"
#include "lists/Zorcombobox_list_rules.h"

namespace ZOR {

/// How wide a list has to be for its items. 100,000 of them take some milliseconds, so the answer is kept until they or
/// the font are others.
class TChoiceListWidth {
public:
    /// Pixels, with the border and, where not all items show at once, the scroll bar.
    int For(const TControlStrings& items, const TFont& font, int dropDownCount);

private:
    LOGFONTW FFont{};      // all zero: nothing is known yet
    unsigned FVersion = 0; // of the items
    int FWidest = 0;       // of their texts
};

/// Tells first what the person has chosen and then that the list has closed, also where a handler of the former throws.
/// The field may end in either.
void TellInOrder(TControl& field, const std::function<void()>& chosen, const std::function<void()>& closed);

/// The text of the clipboard as a choice field takes it: in one line, without blanks around; empty where there is none.
String ClipboardLine(HWND window);

/// The rows of the list. They stay in the field; the window knows their number alone. All are of one height, since
/// each shows one line, so that the window need not measure them one by one.
class TChoiceListBox : public TListBox {
    FRAMEWORK_CLASS(TChoiceListBox)

public:
    explicit TChoiceListBox(TComponent* owner);

    int GetRowCount() const { return FRowCount; }
    /// As many rows as there are texts now. They have to stay while rows show; none is highlighted then.
    void SetRows(const TStrings* texts);
    /// In one line; empty where the texts have become fewer than the rows.
    String RowText(int row) const;
    /// The highlighted row, -1 for none (LB_GETCURSEL).
    int GetRow() const;
    void SetRow(int value);
    /// The row at a point of the client area, -1 for none.
    int RowAt(TPoint point) const;
    /// The place of a row in the client area, outside of it when scrolled away.
    TRect RowRect(int row) const;

protected:
    void Dispatch(TMessage& message) override;
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void KeepWindowState() override;
    void CNDrawItem(TMessage& message) override;

private:
    std::shared_ptr<TCanvas> FRowCanvas;
    const TStrings* FTexts = nullptr;
    int FRowCount = 0;
    int FRow = -1; // while there is no window
};

class Tform_list : public TZORPopup {
    FRAMEWORK_CLASS(Tform_list)

public:
    FRAMEWORK_PROPERTY(TColor, SelectionColor, GetSelectionColor, SetSelectionColor);
    FRAMEWORK_PROPERTY(TColor, MatchColor, GetMatchColor, SetMatchColor);
    FRAMEWORK_READ_PROPERTY(TFont*, NormalFont, GetNormalFont);
    FRAMEWORK_READ_PROPERTY(TFont*, MatchFont, GetMatchFont);

    TChoiceListBox* const list_box;

    Tform_list();
    ~Tform_list() override;

    /// The background of the highlighted row; that of the others is white.
    TColor GetSelectionColor() const { return FSelectionColor; }
    void SetSelectionColor(TColor value) { FSelectionColor = value; }
    /// The background of the characters that match.
    TColor GetMatchColor() const { return FMatchColor; }
    void SetMatchColor(TColor value) { FMatchColor = value; }
    /// The fonts of texts and of the characters that match. They are made from the field's each time the list opens.
    TFont* GetNormalFont() const { return FNormalFont.get(); }
    TFont* GetMatchFont() const { return FMatchFont.get(); }
    /// What is marked in the rows: the first place where it stands in them, letter case aside, and accents where the
    /// field says so.
    void SetSearchText(const String& value, const TTextFolding& folding);

    /// The items to show and the width that they need, which both have to stay while the list is open, and how many
    /// rows show at most.
    void SetItems(const TControlStrings& items, TChoiceListWidth& width, int dropDownCount);
    /// Brings the list in line with its items, and to its size and place.
    void Fit();
    /// Highlights a row and scrolls it into view; with `atTop` to the top, where others follow it.
    void ShowRow(int row, bool atTop);

protected:
    void CreateParams(TCreateParams& params) override;
    void Prepare() override;
    TRect PlaceFor(const TRect& target, const TRect& workArea) const override;

private:
    void list_boxDrawItem(TWinControl* control, int index, TRect rect, TOwnerDrawState state);
    void DrawRow(HDC dc, const TRect& rect, StringView text) const;
    void FormClose(TObject* sender, TCloseAction& action);
    int Scaled(int pixels) const;

    const TControlStrings* FItems = nullptr;
    TChoiceListWidth* FNeededWidth = nullptr;
    std::unique_ptr<TFont> FNormalFont;
    std::unique_ptr<TFont> FMatchFont;
    TTextFolder FFolder{TTextFolding{}};
    String FSearchText;
    TColor FSelectionColor;
    TColor FMatchColor;
    int FDropDownCount = 10;
    int FRowHeight = 15; // pixels, without the one between two rows
    int FWidth = 0;      // pixels, with the border
};

/// Keeps the list of one field: makes it when it is opened and lets go of it when it has been closed. It is never
/// shown itself.
class Tform_dropdown_loader : public TForm {
    FRAMEWORK_CLASS(Tform_dropdown_loader)

public:
    explicit Tform_dropdown_loader(TComponent* owner) : TForm(owner) {}

    /// Null while there is none.
    Tform_list* GetList() const { return FList.get(); }
    Tform_list& Load();
    void Unload() { FList.reset(); }

private:
    std::unique_ptr<Tform_list> FList;
};

} // namespace ZOR
