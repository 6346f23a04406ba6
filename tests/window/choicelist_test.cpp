// The list of a choice field as it looks and where it stands, and what becomes of it when items, the field or the form
// change or go while it is open.

#include "framework/graphics/textmetrics.h"
#include "framework/system/numbers.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "tests/support/choicefield.h"
#include "tests/support/darktheme.h"
#include "tests/support/handlecount.h"

#include <oleacc.h>

using namespace framework;
using namespace ZOR;
using namespace testsupport;

namespace {

constexpr COLORREF kWhite = 0xFFFFFF;

class ChoiceList : public ChoiceField {
protected:
    void Open() {
        Field->DroppedDown = true;
        ASSERT_TRUE(IsOpen());
        Application->ProcessMessages();
        List().Update();
    }
    TRect Popup() const { return Field->get_x_y(); }
    TRect FieldOnScreen() const {
        RECT place{};
        GetWindowRect(Field->GetHandle(), &place);
        return FromWin(place);
    }
    COLORREF ListPixel(int x, int y) const { return GetPixel(TWindowDC(List().GetHandle()), x, y); }
    /// From where to where a row shows the colour of what matches; both -1 when nowhere.
    std::pair<int, int> Marked(int row) const {
        List().Update();
        std::pair<int, int> range{-1, -1};
        const int y = (row - List().TopIndex) * List().ItemHeight + 1; // above the letters
        for (int x = 0; x < List().ClientWidth; ++x) {
            if (ListPixel(x, y) != ColorToRGB(Field->GetPopup()->MatchColor))
                continue;
            range.first = range.first < 0 ? x : range.first;
            range.second = x + 1;
        }
        return range;
    }
    int NormalWidth(StringView text) const { return TTextMeasure(*Field->GetPopup()->NormalFont).Extent(text).Width; }
    int MatchWidth(StringView text) const { return TTextMeasure(*Field->GetPopup()->MatchFont).Extent(text).Width; }
};

TEST_F(ChoiceList, MarksExactlyWhatMatches) {
    Field->SmartSearch = true;
    struct TRow {
        const char16_t* Typed;
        int Row;
        const char16_t* Before;
        const char16_t* Match;
    };
    for (const TRow& row : {TRow{u"rak", 1, u"K", u"rak"},
                            {u"odz", 3, u"Ł", u"ódź"},
                            {u"iss", 4, u"We", u"iß"},
                            {u"o", 2, u"", u"o"},
                            {u"M", 5, u"", u"M"}}) {
        Field->SelectAll();
        TypeText(row.Typed);
        ASSERT_TRUE(IsOpen());
        const int left = 2 + NormalWidth(row.Before);
        EXPECT_EQ(Marked(row.Row), std::pair(left, left + MatchWidth(row.Match)));
        PressKey(VK_ESCAPE);
    }
    Field->SelectAll();
    TypeText(u"ra");
    EXPECT_EQ(ListPixel(List().ClientWidth - 2, List().ItemHeight + 1), ColorToRGB(Field->GetPopup()->SelectionColor));
    EXPECT_EQ(ListPixel(List().ClientWidth - 2, 1), kWhite);
    EXPECT_EQ(Marked(2), std::pair(-1, -1)) << "nothing of it matches";
    Field->DroppedDown = false;
    Field->ItemIndex = -1;
    Field->BiDiMode = bdRightToLeft;
    TypeText(u"rno");
    const int right = List().ClientWidth - 2;
    EXPECT_EQ(Marked(0), std::pair(right - MatchWidth(u"rno"), right)) << "flush with the right edge";
}

TEST_F(ChoiceList, StandsBesideItsField) {
    const TRect field = FieldOnScreen();
    Open();
    EXPECT_EQ(Popup().Top, field.Bottom - 2);
    EXPECT_EQ(Popup().Left, field.Left - 2);
    EXPECT_EQ(Popup().Width(), field.Width()) << "at least as wide as the field";
    EXPECT_EQ(List().ClientHeight, 6 * List().ItemHeight);
    Field->DropDownCount = 4;
    EXPECT_EQ(List().ClientHeight, 4 * List().ItemHeight);
    Field->DroppedDown = false;
    Field->AddItem(u"A long name that no field of such a width would ever have room for", nullptr);
    Open();
    EXPECT_GT(Popup().Width(), MatchWidth(Field->Items->Strings[6]));
    Field->DroppedDown = false;
    const int screenRight = GetSystemMetrics(SM_CXSCREEN);
    const int screenBottom = GetSystemMetrics(SM_CYSCREEN);
    Form->SetBounds(screenRight - 260, screenBottom - 90, 400, 300);
    Application->ProcessMessages();
    const TRect corner = FieldOnScreen();
    Open();
    EXPECT_EQ(Popup().Right, corner.Right - 2) << "flush with the field where the screen ends";
    EXPECT_EQ(Popup().Bottom, corner.Top + 2) << "above it";
    EXPECT_EQ(Popup().Top, corner.Top - 4 * List().ItemHeight);
    Field->DroppedDown = false;
    Form->SetBounds(-105, 100, 400, 300);
    Application->ProcessMessages();
    Open();
    EXPECT_EQ(Popup().Left, 0);
}

TEST_F(ChoiceList, FollowsItsItems) {
    Open();
    Field->AddItem(u"Zlín", nullptr);
    EXPECT_TRUE(WaitFor([&] { return List().GetRowCount() == 7 && List().ClientHeight == 7 * List().ItemHeight; }));
    Field->Items->Clear();
    PressKey(VK_DOWN);
    EXPECT_EQ(Field->ItemIndex, -1);
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); })) << "nothing left to show";
    for (const char16_t* odd : {u"", u"two\r\nlines", u"tab\there", u"\xD83D\xDE00", u"e\u0301tage", u"H&M", u"H&M"})
        Field->AddItem(odd, nullptr);
    Open();
    for (int i = 0; i < 7; ++i)
        PressKey(VK_DOWN);
    EXPECT_EQ(Field->Text, u"H&M");
    EXPECT_EQ(Field->ItemIndex, 6) << "of two that read the same";
    PressKey(VK_RETURN);
    Field->OnChange = [this](TObject*) { Field->Items->Delete(0); };
    Field->SelectAll();
    TypeText(u"e\u0301");
    EXPECT_EQ(Field->Items->Count, 5);
    EXPECT_EQ(Field->Text, u"e\u0301");
    PressKey(VK_RETURN);
    EXPECT_EQ(Field->Text, u"e\u0301tage");
}

TEST_F(ChoiceList, TellsScreenReadersOfItsRows) {
    Field->DropDownCount = 4;
    Field->ItemIndex = 2;
    Open();
    IAccessible* rows = nullptr;
    ASSERT_EQ(AccessibleObjectFromWindow(List().GetHandle(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                         reinterpret_cast<void**>(&rows)),
              S_OK);
    const auto number = [](LONG value) {
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = value;
        return child;
    };
    LONG count = 0;
    rows->get_accChildCount(&count);
    EXPECT_EQ(count, 6);
    BSTR name = nullptr;
    rows->get_accName(number(4), &name);
    EXPECT_EQ(FromWide(name), u"Łódź");
    SysFreeString(name);
    VARIANT answer{};
    rows->get_accRole(number(4), &answer);
    EXPECT_EQ(answer.lVal, ROLE_SYSTEM_LISTITEM);
    rows->get_accSelection(&answer);
    EXPECT_EQ(answer.lVal, 3);
    rows->get_accState(number(3), &answer);
    EXPECT_EQ(answer.lVal, STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_SELECTED);
    rows->get_accState(number(6), &answer);
    EXPECT_TRUE(answer.lVal & STATE_SYSTEM_OFFSCREEN);
    const TPoint point = PlaceOfRow(1);
    rows->accHitTest(point.X, point.Y, &answer);
    EXPECT_EQ(answer.lVal, 2);
    EXPECT_EQ(rows->accNavigate(NAVDIR_NEXT, number(6), &answer), S_FALSE);
    Field.reset();
    rows->get_accChildCount(&count);
    EXPECT_EQ(count, 0) << "it may outlive the list";
    rows->Release();
}

TEST_F(ChoiceList, GoesWithItsFieldAndForm) {
    Open();
    Form->Left = Form->Left + 10;
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); })) << "moved";
    Open();
    ShowWindow(Form->GetHandle(), SW_MINIMIZE);
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); })) << "minimised";
    ShowWindow(Form->GetHandle(), SW_RESTORE);
    ShowAndActivate(*Form);
    Field->SetFocus();
    Open();
    Field->BiDiMode = bdRightToLeft; // makes the window anew
    Field->DroppedDown = true;
    EXPECT_TRUE(IsOpen());
    Field->OnSelect = [this](TObject*) { Field.reset(); };
    PressMouse(PlaceOfRow(2));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !Field; })) << "ended by its own handler, from within the list";
    Application->ProcessMessages();
    ExpectSteadyHandles(20, [this] {
        TZORComboBoxnew field(nullptr);
        field.SetParent(Form.get());
        field.SetGradientColorDown(clSkyBlue);
        field.AddItem(u"a", nullptr);
        field.SetFocus();
        field.Update();
        field.dropdown_pop();
        Application->ProcessMessages();
        ASSERT_TRUE(field.GetDroppedDown());
    });
}

/// Saving without leaving the field, by the default button or an accelerator, finds an item and no half of one.
TEST_F(ChoiceList, SettlesBeforeAButtonIsPressedByAKey) {
    TButton save(nullptr);
    save.SetParent(Form.get());
    save.SetBounds(20, 240, 80, 25);
    save.SetText(u"&Save");
    save.SetDefault(true);
    String saved;
    save.OnClick = [&](TObject*) { saved = Field->Text + u" " + IntToStr(Field->get_id_sel()); };
    Field->Style = csDropDownList;
    Field->ItemIndex = 2;
    const auto begin = [&] {
        saved.clear();
        Field->SelectAll();
        TypeText(u"Br");
        ASSERT_TRUE(IsOpen());
    };
    begin();
    PressKey(VK_F4);
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitFor([&] { return !saved.empty(); }));
    EXPECT_EQ(saved, u"oko 102");
    begin();
    PressKey('S', {ssAlt});
    EXPECT_TRUE(WaitFor([&] { return !saved.empty(); }));
    EXPECT_EQ(saved, u"oko 102");
    EXPECT_FALSE(IsOpen());
    Taken();
    begin();
    TypeText(u"no");
    PressKey('S', {ssAlt});
    EXPECT_TRUE(WaitFor([&] { return !saved.empty(); }));
    EXPECT_EQ(saved, u"Brno 100");
    EXPECT_EQ(Taken(), u"change change change change select close ") << "the item typed in full is told of before";
}

TEST_F(ChoiceList, ChangesNothingThatIsNotToBeChanged) {
    Open();
    Field->ReadOnly = true;
    EXPECT_FALSE(IsOpen()) << "nothing can be taken out of it any more";
    Field->ReadOnly = false;
    // Windows tell of an undo twice, and of one that brings nothing back.
    Field->Text = u"ok";
    Taken();
    PressKey('Z', {ssCtrl});
    EXPECT_EQ(Field->Text, u"ok");
    EXPECT_EQ(Taken(), u"") << "no other text";
    Field->SelectAll();
    TypeText(u"br");
    Field->DroppedDown = false;
    Taken();
    PressKey('Z', {ssCtrl});
    EXPECT_NE(Field->Text, u"br");
    EXPECT_EQ(Taken(), u"change ");
    // Letters as the window will show them.
    Field->Clear();
    Field->AddItem(u"KOLN", nullptr);
    Field->CaseSensitive = true;
    Field->CharCase = ecUpperCase;
    TypeText(u"kol");
    EXPECT_EQ(Field->Text, u"KOL");
}

TEST_F(ChoiceList, FieldShowsItsStates) {
    const TRect arrow = Field->ArrowRect();
    const TPoint besideArrow{arrow.Left + 4, arrow.Top + 3};
    const auto client = [&](TPoint point) {
        Field->Update();
        return GetPixel(TWindowDC(Field->GetHandle()), point.X, point.Y);
    };
    MoveMouse({5, 5});
    EXPECT_TRUE(WaitFor([&] { return client(besideArrow) == kWhite; }));
    MoveMouse(Field->ClientToScreen({10, 10}));
    EXPECT_TRUE(WaitFor([&] { return client(besideArrow) != kWhite; })) << "lights up under the mouse";
    MoveMouse({5, 5});
    EXPECT_TRUE(WaitFor([&] { return client(besideArrow) == kWhite; }));
    const TPoint tip{(arrow.Left + arrow.Right) / 2, (arrow.Top + arrow.Bottom) / 2};
    {
        const TDarkTheme dark;
        Field->Invalidate();
        EXPECT_EQ(client(tip), TDarkTheme::Letters) << "no black arrow on black";
    }
    Field->ArrowColor = clRed;
    EXPECT_EQ(client(tip), 0x0000FFu);
    Field->GradientColorUp = clYellow;
    Field->GradientColorDown = clBlue;
    const COLORREF top = client({arrow.Left - 3, 0});
    const COLORREF bottom = client({arrow.Left - 3, arrow.Bottom - 1});
    EXPECT_GT(GetRValue(top), GetBValue(top));
    EXPECT_LT(GetRValue(bottom), GetBValue(bottom));
    Field->Enabled = false;
    EXPECT_EQ(client({arrow.Left - 3, 0}), ColorToRGB(clBtnFace));
    EXPECT_EQ(client(tip), ColorToRGB(clGrayText));
    Field->Enabled = true;
    Field->BiDiMode = bdRightToLeft;
    EXPECT_EQ(Field->ArrowRect().Left, 0);
    EXPECT_EQ(client({tip.X - arrow.Left, tip.Y}), 0x0000FFu) << "on the other side";
}

} // namespace
