// A form of standard controls as a designer writes it: loaded, looked at, and written back letter by letter.

#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/edit.h"
#include "framework/windows/label.h"
#include "framework/windows/listbox.h"
#include "framework/windows/panel.h"
#include "framework/windows/standardcontrols.h"
#include "framework/windows/timer.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

constexpr const char* kForm = R"(object Customers: TForm
  Left = 40
  Top = 30
  ClientHeight = 300
  ClientWidth = 400
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -11
  Font.Name = 'Tahoma'
  Font.Style = []
  PixelsPerInch = 96
  Position = poDesigned
  object NameLabel: TLabel
    Left = 8
    Top = 8
    Width = 60
    Height = 13
    AutoSize = False
    Caption = '&Name'
    FocusControl = NameEdit
    Transparent = True
  end
  object NameEdit: TEdit
    Left = 80
    Top = 8
    Width = 121
    Height = 21
    Hint = 'Who it is|Surname first'
    CharCase = ecUpperCase
    MaxLength = 30
    ParentShowHint = False
    PasswordChar = '*'
    ShowHint = True
    TabOrder = 1
    Text = 'KOWALSKI'
  end
  object Choices: TListBox
    Left = 80
    Top = 40
    Width = 121
    Height = 97
    ItemHeight = 13
    Items.Strings = (
      'one'
      #380#243#322'w')
    MultiSelect = True
    TabOrder = 2
  end
  object Bottom: TPanel
    Left = 0
    Top = 259
    Width = 400
    Height = 41
    Align = alBottom
    BevelInner = bvLowered
    BevelOuter = bvNone
    ShowCaption = False
    TabOrder = 0
    object Active: TCheckBox
      Left = 8
      Top = 8
      Width = 97
      Height = 17
      Caption = 'A&ctive'
      Checked = True
      State = cbChecked
      TabOrder = 1
    end
    object Ok: TButton
      Left = 300
      Top = 8
      Width = 75
      Height = 25
      Anchors = [akTop, akRight]
      Caption = 'Ok'
      Default = True
      ModalResult = 1
      TabOrder = 0
    end
  end
  object Group: TGroupBox
    Left = 210
    Top = 40
    Width = 185
    Height = 105
    Caption = 'Group'
    Color = clInfoBk
    ParentColor = False
    TabOrder = 3
  end
  object Clock: TTimer
    Enabled = False
    Interval = 250
  end
end
)";

std::string WithUnixLineEnds(std::string text) {
    std::erase(text, '\r');
    return text;
}

TEST(StandardForm, IsLoadedAndWrittenBack) {
    RegisterStandardControls();
    const auto root = CreateFromTextForm(std::string_view(kForm), nullptr);
    auto* form = As<TForm>(root.get());
    ASSERT_NE(form, nullptr);
    const auto find = [&](StringView name) { return form->FindComponent(name); };
    auto* label = As<TLabel>(find(u"NameLabel"));
    auto* edit = As<TEdit>(find(u"NameEdit"));
    auto* list = As<TListBox>(find(u"Choices"));
    auto* box = As<TCheckBox>(find(u"Active"));
    auto* ok = As<TButton>(find(u"Ok"));
    ASSERT_TRUE(label && edit && list && box && ok);
    EXPECT_EQ(WithUnixLineEnds(WriteTextForm(SaveTextForm(*form))), kForm);

    ShowAndActivate(*form);
    EXPECT_EQ(label->GetFocusControl(), edit) << "named before it was there";
    EXPECT_EQ(edit->GetText(), u"KOWALSKI");
    EXPECT_EQ(SendMessageW(edit->GetHandle(), EM_GETPASSWORDCHAR, 0, 0), '*');
    EXPECT_EQ(list->GetItems()->GetCommaText(), u"one,\u017C\u00F3\u0142w");
    EXPECT_EQ(SendMessageW(box->GetHandle(), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_TRUE(ok->Focused()) << "the first in the order of the Tab key";
    PressKey(VK_TAB);
    EXPECT_TRUE(box->Focused());
    PressKey(VK_TAB);
    EXPECT_TRUE(edit->Focused());
    form->SetClientWidth(500);
    EXPECT_EQ(ok->GetLeft(), 400);
}

TEST(StandardForm, IsScaledFromTheResolutionItWasDesignedAt) {
    RegisterStandardControls();
    const auto root = CreateFromTextForm("object Form1: TForm\n"
                                         "  ClientHeight = 250\n"
                                         "  ClientWidth = 500\n"
                                         "  Constraints.MinWidth = 100\n"
                                         "  Font.Height = -15\n"
                                         "  PixelsPerInch = 120\n"
                                         "  object Bar: TPanel\n"
                                         "    Left = 0\n    Top = 0\n    Width = 500\n    Height = 50\n"
                                         "    Align = alTop\n"
                                         "    object Corner: TButton\n"
                                         "      Left = 400\n      Top = 10\n      Width = 90\n      Height = 30\n"
                                         "      Anchors = [akTop, akRight]\n"
                                         "    end\n"
                                         "  end\n"
                                         "  object Own: TEdit\n"
                                         "    Left = 25\n    Top = 100\n    Width = 150\n    Height = 35\n"
                                         "    AutoSize = False\n"
                                         "    Font.Height = -20\n"
                                         "    ParentFont = False\n"
                                         "  end\n"
                                         "end\n",
                                         nullptr);
    auto* form = As<TForm>(root.get());
    const auto find = [&](StringView name) { return As<TWinControl>(form->FindComponent(name)); };
    const int dpi = TheScreen().GetPixelsPerInch();
    ASSERT_NE(dpi, 120);
    const auto scaled = [&](int value) { return MulDiv(value, dpi, 120); };
    EXPECT_EQ(form->GetPixelsPerInch(), dpi);
    for (const bool shown : {false, true}) {
        SCOPED_TRACE(shown);
        if (shown)
            ShowAndActivate(*form);
        EXPECT_EQ(form->GetClientRect(), Bounds(0, 0, scaled(500), scaled(250)));
        EXPECT_EQ(form->GetConstraints()->GetMinWidth(), scaled(100));
        EXPECT_EQ(form->GetFont()->GetHeight(), scaled(-15));
        EXPECT_EQ(find(u"Bar")->GetBoundsRect(), Bounds(0, 0, scaled(500), scaled(50)));
        EXPECT_EQ(find(u"Corner")->GetBoundsRect(), Bounds(scaled(400), scaled(10), scaled(90), scaled(30)));
        EXPECT_EQ(find(u"Corner")->GetFont()->GetHeight(), scaled(-15)) << "once, along with the form's";
        EXPECT_EQ(find(u"Own")->GetBoundsRect(), Bounds(scaled(25), scaled(100), scaled(150), scaled(35)));
        EXPECT_EQ(find(u"Own")->GetFont()->GetHeight(), scaled(-20));
    }
    form->SetClientWidth(scaled(500) + 40);
    EXPECT_EQ(find(u"Corner")->GetLeft(), scaled(400) + 40);
}

TEST(StandardForm, TakesNewControlsBetweenInheritedOnes) {
    RegisterStandardControls();
    const auto root = CreateFromTextForm("object Form1: TForm\n"
                                         "  object Label1: TLabel\n  end\n"
                                         "  object Edit1: TEdit\n  end\n"
                                         "  object Edit2: TEdit\n  end\n"
                                         "end\n",
                                         nullptr);
    LoadTextForm(*root, ParseTextForm("inherited Form1: TForm\n"
                                      "  object Added: TEdit [2]\n  end\n"
                                      "  inherited Edit2: TEdit [1]\n  end\n"
                                      "end\n"));
    std::string names;
    for (const TComponent* child : root->GetChildren(root.get()))
        names += Utf8Encode(child->GetName()) + " ";
    EXPECT_EQ(names, "Label1 Edit2 Edit1 Added ");
}

/// A form class that is derived from, both with forms designed at half the resolution of the screen.
class TBaseForm : public TForm {
    FRAMEWORK_CLASS(TBaseForm)
public:
    explicit TBaseForm(TComponent* owner) : TForm(owner) {
        LoadTextForm(*this, ParseTextForm("object BaseForm: TBaseForm\n"
                                          "  ClientHeight = 101\n"
                                          "  ClientWidth = 151\n"
                                          "  PixelsPerInch = 48\n"
                                          "  OnCreate = FormCreate\n"
                                          "  object Edit1: TEdit\n"
                                          "    Left = 11\n"
                                          "    Top = 13\n"
                                          "    Width = 41\n"
                                          "  end\n"
                                          "end\n"));
    }
    void FormCreate(TObject*) { SeenAtCreation += std::to_string(GetComponentCount()) + " "; }

    TEdit* Edit1 = nullptr;
    std::string SeenAtCreation;
};

const TClassInfo& TBaseForm::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TBaseForm>(u"TBaseForm", TForm::StaticClass(), {},
                                 {Method<&TBaseForm::FormCreate>(u"FormCreate")}, {Field<&TBaseForm::Edit1>(u"Edit1")});
    return info;
}

class TDerivedForm : public TBaseForm {
    FRAMEWORK_CLASS(TDerivedForm)
public:
    explicit TDerivedForm(TComponent* owner) : TBaseForm(owner) {
        LoadTextForm(*this, ParseTextForm("inherited DerivedForm: TDerivedForm\n"
                                          "  ClientWidth = 171\n"
                                          "  inherited Edit1: TEdit\n"
                                          "    Left = 31\n"
                                          "  end\n"
                                          "  object Edit2: TEdit\n"
                                          "    Left = 7\n"
                                          "    Width = 9\n"
                                          "  end\n"
                                          "end\n"));
    }

    TEdit* Edit2 = nullptr;
};

const TClassInfo& TDerivedForm::StaticClass() {
    static const TClassInfo info = DescribeClass<TDerivedForm>(u"TDerivedForm", TBaseForm::StaticClass(), {}, {},
                                                               {Field<&TDerivedForm::Edit2>(u"Edit2")});
    return info;
}

TEST(StandardForm, IsScaledAndCreatedOnceWhenItsClassHasAnAncestorWithAForm) {
    RegisterStandardControls();
    ASSERT_EQ(Screen->PixelsPerInch, 96);
    // A plain new tells of the ancestor's form by itself, before there is another.
    for (const bool together : {true, false}) {
        SCOPED_TRACE(together ? "CreateForm" : "new");
        const auto form = together ? CreateForm<TDerivedForm>(nullptr) : std::make_unique<TDerivedForm>(nullptr);
        EXPECT_EQ(form->SeenAtCreation, together ? "2 " : "1 ");
        EXPECT_EQ(form->ClientWidth, 342);
        EXPECT_EQ(form->ClientHeight, 202);
        EXPECT_EQ(form->Edit1->BoundsRect, Bounds(62, 26, 82, form->Edit1->Height));
        EXPECT_EQ(form->Edit2->Left, 14);
        EXPECT_EQ(form->Edit2->Width, 18);
    }
}

} // namespace
