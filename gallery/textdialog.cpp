#include "gallery/textdialog.h"

#include "framework/system/formloader.h"
#include "framework/system/strings.h"
#include "framework/windows/label.h"
#include "gallery/inspector_rules.h"

namespace gallery {

namespace {

constexpr char kForm[] = R"(object TextDialog: TTextDialog
  BorderIcons = [biSystemMenu]
  ClientHeight = 300
  ClientWidth = 440
  Color = clBtnFace
  Constraints.MinHeight = 180
  Constraints.MinWidth = 300
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  KeyPreview = True
  Position = poMainFormCenter
  PixelsPerInch = 96
  OnKeyDown = FormKeyDown
  object TextDialogMemo: TMemo
    Left = 12
    Top = 12
    Width = 416
    Height = 238
    Anchors = [akLeft, akTop, akRight, akBottom]
    Font.Charset = DEFAULT_CHARSET
    Font.Color = clWindowText
    Font.Height = -13
    Font.Name = 'Courier New'
    Font.Style = []
    ParentFont = False
    ScrollBars = ssBoth
    TabOrder = 0
    WordWrap = False
    OnChange = MemoChange
  end
  object CountLabel: TLabel
    Left = 12
    Top = 267
    Width = 200
    Height = 15
    Anchors = [akLeft, akBottom]
    AutoSize = False
  end
  object TextDialogOk: TButton
    Left = 264
    Top = 262
    Width = 78
    Height = 26
    Anchors = [akRight, akBottom]
    Caption = 'OK'
    Default = True
    ModalResult = 1
    TabOrder = 1
  end
  object TextDialogCancel: TButton
    Left = 350
    Top = 262
    Width = 78
    Height = 26
    Anchors = [akRight, akBottom]
    Cancel = True
    Caption = 'Cancel'
    ModalResult = 2
    TabOrder = 2
  end
end
)";

} // namespace

const TClassInfo& TTextDialog::StaticClass() {
    static const TClassInfo info = DescribeClass<TTextDialog>(
        u"TTextDialog", TForm::StaticClass(), {},
        {Method<&TTextDialog::MemoChange>(u"MemoChange"), Method<&TTextDialog::FormKeyDown>(u"FormKeyDown")});
    return info;
}

TTextDialog::TTextDialog(TComponent* owner) : TForm(owner) {
    LoadTextForm(*this, ParseTextForm(kForm));
    FMemo = As<TMemo>(FindComponent(u"TextDialogMemo"));
}

std::optional<String> TTextDialog::Ask(const String& caption, const String& text) {
    SetText(caption);
    FMemo->SetText(text);
    FMemo->SetModified(false);
    MemoChange(FMemo);
    if (ShowModal() != mrOk || !FMemo->GetModified())
        return std::nullopt;
    return FMemo->GetText();
}

void TTextDialog::MemoChange(TObject*) {
    if (auto* label = As<TLabel>(FindComponent(u"CountLabel")))
        label->SetText(CountText(SplitLines(FMemo->GetText()).size(), u"line"));
}

void TTextDialog::FormKeyDown(TObject*, WORD& key, TShiftState shift) {
    if (key != VK_RETURN || !shift.Contains(ssCtrl))
        return;
    key = 0;
    SetModalResult(mrOk);
}

} // namespace gallery
