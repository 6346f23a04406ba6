object DesignerPage: TDesignerPage
  Tag = 900
  Left = 0
  Top = 0
  Caption = 'Designer'
  ClientHeight = 560
  ClientWidth = 760
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  OldCreateOrder = False
  PixelsPerInch = 96
  TextHeight = 15
  object ToolPanel: TPanel
    Left = 0
    Top = 0
    Width = 760
    Height = 40
    Align = alTop
    BevelOuter = bvNone
    ShowCaption = False
    TabOrder = 0
    object NewButton: TButton
      Left = 8
      Top = 7
      Width = 50
      Height = 26
      Caption = '&New'
      TabOrder = 0
      OnClick = NewClick
    end
    object OpenButton: TButton
      Left = 62
      Top = 7
      Width = 62
      Height = 26
      Caption = '&Open'#8230
      TabOrder = 1
      OnClick = OpenClick
    end
    object SaveButton: TButton
      Left = 128
      Top = 7
      Width = 52
      Height = 26
      Caption = '&Save'
      TabOrder = 2
      OnClick = SaveClick
    end
    object SaveAsButton: TButton
      Left = 184
      Top = 7
      Width = 74
      Height = 26
      Caption = 'Save &as'#8230
      TabOrder = 3
      OnClick = SaveAsClick
    end
    object UndoButton: TButton
      Left = 270
      Top = 7
      Width = 54
      Height = 26
      Caption = '&Undo'
      TabOrder = 4
      OnClick = UndoClick
    end
    object RedoButton: TButton
      Left = 328
      Top = 7
      Width = 54
      Height = 26
      Caption = '&Redo'
      TabOrder = 5
      OnClick = RedoClick
    end
    object CutButton: TButton
      Left = 394
      Top = 7
      Width = 46
      Height = 26
      Caption = 'Cu&t'
      TabOrder = 6
      OnClick = CutClick
    end
    object CopyButton: TButton
      Left = 444
      Top = 7
      Width = 54
      Height = 26
      Caption = '&Copy'
      TabOrder = 7
      OnClick = CopyClick
    end
    object PasteButton: TButton
      Left = 502
      Top = 7
      Width = 54
      Height = 26
      Caption = '&Paste'
      TabOrder = 8
      OnClick = PasteClick
    end
    object DeleteButton: TButton
      Left = 560
      Top = 7
      Width = 58
      Height = 26
      Caption = '&Delete'
      TabOrder = 9
      OnClick = DeleteClick
    end
    object TextButton: TButton
      Left = 630
      Top = 7
      Width = 52
      Height = 26
      Caption = 'Te&xt'
      TabOrder = 10
      OnClick = TextClick
    end
  end
  object StatusPanel: TPanel
    Left = 0
    Top = 534
    Width = 760
    Height = 26
    Align = alBottom
    BevelOuter = bvNone
    ShowCaption = False
    TabOrder = 1
    object StatusLabel: TLabel
      Left = 8
      Top = 6
      Width = 520
      Height = 15
      Anchors = [akLeft, akTop, akRight]
      AutoSize = False
      ShowAccelChar = False
    end
    object FileLabel: TLabel
      Left = 540
      Top = 6
      Width = 212
      Height = 15
      Alignment = taRightJustify
      Anchors = [akTop, akRight]
      AutoSize = False
      ShowAccelChar = False
    end
  end
  object Palette: TPaletteList
    Left = 0
    Top = 40
    Width = 190
    Height = 494
    Align = alLeft
    TabOrder = 2
    OnSelect = PaletteSelect
  end
  object Surface: TDesignSurface
    Left = 190
    Top = 40
    Width = 570
    Height = 494
    Align = alClient
    TabOrder = 3
  end
  object TextMemo: TMemo
    Left = 190
    Top = 40
    Width = 570
    Height = 494
    Align = alClient
    Font.Charset = DEFAULT_CHARSET
    Font.Color = clWindowText
    Font.Height = -12
    Font.Name = 'Courier New'
    Font.Style = []
    ParentFont = False
    ScrollBars = ssBoth
    TabOrder = 4
    Visible = False
    WordWrap = False
    OnChange = TextMemoChange
  end
end
