#include "gallery/collectiondialog.h"

#include "framework/system/formloader.h"
#include "framework/system/numbers.h"
#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "gallery/inspector.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr char kForm[] = R"(object CollectionDialog: TCollectionDialog
  BorderIcons = [biSystemMenu]
  ClientHeight = 440
  ClientWidth = 580
  Color = clBtnFace
  Constraints.MinHeight = 260
  Constraints.MinWidth = 480
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  Position = poMainFormCenter
  PixelsPerInch = 96
  object ItemList: TListBox
    Left = 12
    Top = 12
    Width = 220
    Height = 312
    Anchors = [akLeft, akTop, akBottom]
    ItemHeight = 15
    TabOrder = 0
    OnClick = ItemSelect
    OnKeyDown = ItemKeyDown
  end
  object ItemAdd: TButton
    Left = 12
    Top = 332
    Width = 106
    Height = 26
    Anchors = [akLeft, akBottom]
    Caption = '&Add'
    TabOrder = 1
    OnClick = AddClick
  end
  object ItemDelete: TButton
    Left = 126
    Top = 332
    Width = 106
    Height = 26
    Anchors = [akLeft, akBottom]
    Caption = '&Delete'
    TabOrder = 2
    OnClick = DeleteClick
  end
  object ItemUp: TButton
    Left = 12
    Top = 364
    Width = 106
    Height = 26
    Anchors = [akLeft, akBottom]
    Caption = 'Move &up'
    TabOrder = 3
    OnClick = UpClick
  end
  object ItemDown: TButton
    Left = 126
    Top = 364
    Width = 106
    Height = 26
    Anchors = [akLeft, akBottom]
    Caption = 'Move do&wn'
    TabOrder = 4
    OnClick = DownClick
  end
  object ItemInspector: TInspector
    Left = 244
    Top = 12
    Width = 324
    Height = 378
    Anchors = [akLeft, akTop, akRight, akBottom]
    TabOrder = 5
    OnProblem = ItemProblem
    OnWritten = ItemWritten
  end
  object ItemProblem: TLabel
    Left = 12
    Top = 400
    Width = 470
    Height = 32
    Anchors = [akLeft, akRight, akBottom]
    AutoSize = False
    Font.Charset = DEFAULT_CHARSET
    Font.Color = 192
    Font.Height = -12
    Font.Name = 'Segoe UI'
    Font.Style = []
    ParentFont = False
    ShowAccelChar = False
    WordWrap = True
  end
  object ItemsClose: TButton
    Left = 490
    Top = 402
    Width = 78
    Height = 26
    Anchors = [akRight, akBottom]
    Cancel = True
    Caption = 'Close'
    ModalResult = 1
    TabOrder = 6
  end
end
)";

} // namespace

const TClassInfo& TCollectionDialog::StaticClass() {
    using D = TCollectionDialog;
    static const TClassInfo info =
        DescribeClass<D>(u"TCollectionDialog", TForm::StaticClass(), {},
                         {Method<&D::ItemSelect>(u"ItemSelect"), Method<&D::ItemKeyDown>(u"ItemKeyDown"),
                          Method<&D::AddClick>(u"AddClick"), Method<&D::DeleteClick>(u"DeleteClick"),
                          Method<&D::UpClick>(u"UpClick"), Method<&D::DownClick>(u"DownClick"),
                          Method<&D::ItemWritten>(u"ItemWritten"), Method<&D::ItemProblem>(u"ItemProblem")});
    return info;
}

TCollectionDialog::TCollectionDialog(TComponent* owner) : TForm(owner) {
    LoadTextForm(*this, ParseTextForm(kForm));
    FList = As<TListBox>(FindComponent(u"ItemList"));
    FInspector = As<TInspector>(FindComponent(u"ItemInspector"));
}

bool TCollectionDialog::Edit(const String& caption, TCollection& collection) {
    FCollection = &collection;
    FChanged = false;
    SetText(caption);
    ShowItems(0);
    ShowModal();
    FInspector->SetInspected(nullptr);
    FCollection = nullptr;
    return FChanged;
}

TCollectionItem* TCollectionDialog::Chosen() const {
    const int index = FList->GetItemIndex();
    return FCollection && index >= 0 && index < FCollection->GetCount() ? FCollection->GetItem(index) : nullptr;
}

/// The texts of the items as they are now; the list stays where it is as long as none came or went.
void TCollectionDialog::ShowItems(int chosen) {
    TStrings& lines = *FList->GetItems();
    lines.BeginUpdate();
    while (lines.GetCount() > FCollection->GetCount())
        lines.Delete(lines.GetCount() - 1);
    for (int i = 0; i < FCollection->GetCount(); ++i) {
        const String text = IntToStr(i) + u"  " + FCollection->GetItem(i)->GetDisplayName();
        if (i == lines.GetCount())
            lines.Add(text);
        else if (lines.Get(i) != text)
            lines.Put(i, text);
    }
    lines.EndUpdate();
    FList->SetItemIndex(std::min(chosen, FCollection->GetCount() - 1));
    ItemSelect(FList);
}

void TCollectionDialog::ItemSelect(TObject*) {
    FInspector->SetInspected(Chosen());
    const int index = FList->GetItemIndex();
    const auto enable = [this](const char16_t* name, bool enabled) {
        auto* button = As<TButton>(FindComponent(name));
        if (button->Focused() && !enabled)
            FList->SetFocus();
        button->SetEnabled(enabled);
    };
    enable(u"ItemDelete", index >= 0);
    enable(u"ItemUp", index > 0);
    enable(u"ItemDown", index >= 0 && index + 1 < FCollection->GetCount());
}

void TCollectionDialog::Change(const std::function<int()>& change) {
    int chosen = FList->GetItemIndex();
    FInspector->SetInspected(nullptr); // takes over what is being typed, and the item may go
    Tell({});
    FChanged = true; // what raises on its way may have changed something
    try {
        chosen = change();
    } catch (const Exception& error) {
        Tell(error.GetMessageText());
    }
    ShowItems(chosen);
}

void TCollectionDialog::AddClick(TObject*) {
    Change([this] {
        const TCollectionItem* item = FCollection->Add();
        return item ? item->GetIndex() : FList->GetItemIndex();
    });
}

void TCollectionDialog::DeleteClick(TObject*) {
    if (!Chosen())
        return;
    Change([this] {
        const int index = FList->GetItemIndex();
        FCollection->Delete(index);
        return index;
    });
}

void TCollectionDialog::MoveBy(int step) {
    TCollectionItem* item = Chosen();
    const int index = item ? item->GetIndex() + step : -1;
    if (index < 0 || index >= FCollection->GetCount())
        return;
    Change([&] {
        item->SetIndex(index);
        return item->GetIndex();
    });
}

void TCollectionDialog::UpClick(TObject*) {
    MoveBy(-1);
}

void TCollectionDialog::DownClick(TObject*) {
    MoveBy(1);
}

void TCollectionDialog::ItemKeyDown(TObject* sender, WORD& key, TShiftState shift) {
    if (key == VK_INSERT)
        AddClick(sender);
    else if (key == VK_DELETE)
        DeleteClick(sender);
    else if (shift.Contains(ssCtrl) && (key == VK_UP || key == VK_DOWN))
        MoveBy(key == VK_UP ? -1 : 1);
    else
        return;
    key = 0;
}

void TCollectionDialog::ItemWritten(TObject*) {
    FChanged = true;
    ShowItems(FList->GetItemIndex());
}

void TCollectionDialog::ItemProblem(TObject*) {
    Tell(FInspector->GetProblem());
}

void TCollectionDialog::Tell(const String& problem) {
    if (auto* label = As<TLabel>(FindComponent(u"ItemProblem")))
        label->SetText(problem);
}

} // namespace gallery
