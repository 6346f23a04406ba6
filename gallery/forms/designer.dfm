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
    object UndoButton: TButton
      Left = 8
      Top = 7
      Width = 66
      Height = 26
      Caption = '&Undo'
      TabOrder = 0
      OnClick = UndoClick
    end
    object RedoButton: TButton
      Left = 78
      Top = 7
      Width = 66
      Height = 26
      Caption = '&Redo'
      TabOrder = 1
      OnClick = RedoClick
    end
    object CutButton: TButton
      Left = 160
      Top = 7
      Width = 66
      Height = 26
      Caption = 'Cu&t'
      TabOrder = 2
      OnClick = CutClick
    end
    object CopyButton: TButton
      Left = 230
      Top = 7
      Width = 66
      Height = 26
      Caption = '&Copy'
      TabOrder = 3
      OnClick = CopyClick
    end
    object PasteButton: TButton
      Left = 300
      Top = 7
      Width = 66
      Height = 26
      Caption = '&Paste'
      TabOrder = 4
      OnClick = PasteClick
    end
    object DeleteButton: TButton
      Left = 370
      Top = 7
      Width = 66
      Height = 26
      Caption = '&Delete'
      TabOrder = 5
      OnClick = DeleteClick
    end
    object TextButton: TButton
      Left = 452
      Top = 7
      Width = 66
      Height = 26
      Caption = 'Te&xt'
      TabOrder = 6
      OnClick = TextClick
    end
    object OpenButton: TButton
      Left = 522
      Top = 7
      Width = 66
      Height = 26
      Caption = '&Open'#8230
      TabOrder = 7
      OnClick = OpenClick
    end
    object SaveButton: TButton
      Left = 592
      Top = 7
      Width = 66
      Height = 26
      Caption = '&Save'#8230
      TabOrder = 8
      OnClick = SaveClick
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
      Width = 740
      Height = 13
      Anchors = [akLeft, akTop, akRight]
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
  end
end
