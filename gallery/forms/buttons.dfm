object ButtonsPage: TButtonsPage
  Tag = 70
  Left = 0
  Top = 0
  Caption = 'Kasa'
  ClientHeight = 480
  ClientWidth = 760
  Color = clBtnFace
  Font.Charset = EASTEUROPE_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  OldCreateOrder = False
  ShowHint = True
  PixelsPerInch = 96
  TextHeight = 15
  object HeaderPanel: TPanel
    Left = 0
    Top = 0
    Width = 760
    Height = 44
    Align = alTop
    BevelOuter = bvNone
    Color = clWindow
    ParentBackground = False
    ShowCaption = False
    TabOrder = 0
    object HeaderLabel: TLabel
      Left = 16
      Top = 5
      Width = 180
      Height = 19
      Caption = 'Kasa '#8211' przyciski'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWindowText
      Font.Height = -16
      Font.Name = 'Segoe UI'
      Font.Style = [fsBold]
      ParentFont = False
    end
    object StatusLabel: TLabel
      Left = 16
      Top = 26
      Width = 300
      Height = 13
      Caption = 'Nic jeszcze nie naci'#347'ni'#281'to'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object StyleGroup: TGroupBox
    Left = 12
    Top = 56
    Width = 360
    Height = 124
    Caption = 'Style'
    TabOrder = 1
    object PlainButton: TZORColorButton
      Left = 16
      Top = 28
      Width = 150
      Height = 32
      Caption = '&Anuluj'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWindowText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 0
      OnClick = ButtonClick
    end
    object BlueButton: TZORColorButton
      Left = 186
      Top = 28
      Width = 150
      Height = 32
      Caption = '&Zapisz'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 1
      OnClick = ButtonClick
      ColorStyles = csBlue
    end
    object RedButton: TZORColorButton
      Left = 16
      Top = 76
      Width = 150
      Height = 32
      Caption = '&Usu'#324' paragon'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 2
      OnClick = ButtonClick
      ColorStyles = csRed
    end
    object OwnButton: TZORColorButton
      Left = 186
      Top = 76
      Width = 150
      Height = 32
      Caption = 'Otw'#243'rz &szuflad'#281
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWindowText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 3
      OnClick = ButtonClick
      Colors.GradientStart = 9498256
      Colors.GradientEnd = 3329330
      Colors.Frame = clGreen
      Colors.Border = clGreen
      ColorStyles = csUser
    end
  end
  object StateGroup: TGroupBox
    Left = 388
    Top = 56
    Width = 360
    Height = 124
    Caption = 'Stany'
    TabOrder = 2
    object DefaultButton: TZORColorButton
      Left = 16
      Top = 28
      Width = 150
      Height = 32
      Caption = 'Domy'#347'lny (Enter)'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 0
      Default = True
      OnClick = ButtonClick
      ColorStyles = csBlue
    end
    object DisabledButton: TZORColorButton
      Left = 186
      Top = 28
      Width = 150
      Height = 32
      Caption = 'Niedost'#281'pny'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 1
      Enabled = False
      ColorStyles = csBlue
    end
    object CancelButton: TZORColorButton
      Left = 16
      Top = 76
      Width = 150
      Height = 32
      Caption = 'Wycofaj (Esc)'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWindowText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 2
      Cancel = True
      OnClick = ButtonClick
    end
    object SystemButton: TZORColorButton
      Left = 186
      Top = 76
      Width = 150
      Height = 32
      Caption = 'Barwy systemu'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWindowText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 3
      OnClick = ButtonClick
      Colors.GradientStart = clBtnHighlight
      Colors.GradientEnd = clBtnShadow
      Colors.Frame = clHighlight
      Colors.Border = clWindowFrame
      ColorStyles = csUser
    end
  end
  object SizeGroup: TGroupBox
    Left = 12
    Top = 196
    Width = 736
    Height = 160
    Caption = 'Rozmiary i rysowanie przez program'
    TabOrder = 3
    object BadgeButton: TZORColorButton
      Left = 16
      Top = 28
      Width = 220
      Height = 56
      Caption = 'Paragony'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -15
      Font.Name = 'Segoe UI'
      Font.Style = [fsBold]
      ParentFont = False
      TabOrder = 0
      OnClick = ButtonClick
      OnDrawButton = DrawBadge
      ColorStyles = csBlue
    end
    object SmallButton: TZORColorButton
      Left = 256
      Top = 28
      Width = 24
      Height = 24
      Caption = '+'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -13
      Font.Name = 'Segoe UI'
      Font.Style = [fsBold]
      ParentFont = False
      TabOrder = 1
      OnClick = ButtonClick
      ColorStyles = csBlue
    end
    object MinusButton: TZORColorButton
      Left = 288
      Top = 28
      Width = 24
      Height = 24
      Caption = #8722
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -13
      Font.Name = 'Segoe UI'
      Font.Style = [fsBold]
      ParentFont = False
      TabOrder = 2
      OnClick = ButtonClick
      ColorStyles = csRed
    end
    object TallButton: TZORColorButton
      Left = 332
      Top = 28
      Width = 90
      Height = 112
      Caption = 'Suma'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -16
      Font.Name = 'Segoe UI'
      Font.Style = [fsBold]
      ParentFont = False
      TabOrder = 3
      OnClick = ButtonClick
      ColorStyles = csRed
    end
    object HintButton: TZORColorButton
      Left = 442
      Top = 28
      Width = 270
      Height = 32
      Caption = 'Podpowied'#378' przy kursorze'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWindowText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 4
      Hint = 'Przycisk z podpowiedzi'#261
      OnClick = ButtonClick
    end
    object MirrorButton: TZORColorButton
      Left = 442
      Top = 76
      Width = 270
      Height = 32
      Caption = 'Od prawej do lewej'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWhite
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
      TabOrder = 5
      BiDiMode = bdRightToLeft
      ParentBiDiMode = False
      OnClick = ButtonClick
      ColorStyles = csBlue
    end
  end
end
