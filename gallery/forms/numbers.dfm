object NumbersPage: TNumbersPage
  Tag = 20
  Left = 0
  Top = 0
  Caption = 'Zam'#243'wienie i czas pracy'
  ClientHeight = 560
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
      Width = 300
      Height = 19
      Caption = 'Pozycja zam'#243'wienia i karta czasu pracy'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clWindowText
      Font.Height = -16
      Font.Name = 'Segoe UI'
      Font.Style = [fsBold]
      ParentFont = False
    end
    object SubtitleLabel: TLabel
      Left = 16
      Top = 26
      Width = 300
      Height = 13
      Caption = 'Zlecenie 2024/118: monta'#380' linii pakuj'#261'cej, rozliczenie miesi'#281'czne'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object OrderGroup: TGroupBox
    Left = 12
    Top = 52
    Width = 736
    Height = 110
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Pozycja zam'#243'wienia: pola liczbowe'
    TabOrder = 1
    object QuantityEdit: TZORFloatEdit
      Left = 16
      Top = 34
      Width = 90
      Height = 21
      TabOrder = 0
      OnChange = FieldChange
      Decimals = 3
      MaxValue = 10000.000000000000000000
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = '&Ilo'#347#263' [kg]'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PriceEdit: TZORFloatEdit
      Left = 118
      Top = 34
      Width = 90
      Height = 21
      TabOrder = 1
      OnChange = FieldChange
      MaxValue = 1000000.000000000000000000
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = '&Cena netto'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object DiscountEdit: TZORFloatEdit
      Left = 220
      Top = 34
      Width = 70
      Height = 21
      TabOrder = 2
      OnChange = FieldChange
      Decimals = 1
      MaxValue = 100.000000000000000000
      Wymagany = wRecommended
      BoundLabel.Active = True
      BoundLabel.Caption = '&Rabat %'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object CorrectionEdit: TZORFloatEdit
      Left = 302
      Top = 34
      Width = 90
      Height = 21
      TabOrder = 3
      OnChange = FieldChange
      MaxValue = 1000.000000000000000000
      MinValue = -1000.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Korekta +/-'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PiecesEdit: TZORFloatEdit
      Left = 404
      Top = 34
      Width = 70
      Height = 21
      TabOrder = 4
      OnChange = FieldChange
      Decimals = 0
      MaxValue = 500.000000000000000000
      Value = 12.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Opakowania'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object NetEdit: TZORFloatEdit
      Left = 486
      Top = 34
      Width = 110
      Height = 21
      Alignment = taRightJustify
      Hint = 'Liczone z pozycji: EditorEnabled = False'
      TabStop = False
      TabOrder = 5
      OnChange = FieldChange
      EditorEnabled = False
      Value = 0.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Netto'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object GrossEdit: TZORFloatEdit
      Left = 608
      Top = 34
      Width = 110
      Height = 21
      Alignment = taRightJustify
      Color = clBtnFace
      ReadOnly = True
      TabStop = False
      TabOrder = 6
      OnChange = FieldChange
      Value = 0.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Brutto'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object WeightEdit: TZORFloatEdit
      Left = 16
      Top = 76
      Width = 90
      Height = 21
      TabOrder = 7
      OnChange = FieldChange
      Decimals = 6
      Value = 0.062500000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Waga'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object FlatEdit: TZORFloatEdit
      Left = 160
      Top = 76
      Width = 90
      Height = 21
      Ctl3D = False
      ParentCtl3D = False
      TabOrder = 8
      OnChange = FieldChange
      Value = 19.900000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'P'#322'askie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object RightToLeftEdit: TZORFloatEdit
      Left = 312
      Top = 76
      Width = 90
      Height = 21
      BiDiMode = bdRightToLeft
      ParentBiDiMode = False
      TabOrder = 9
      OnChange = FieldChange
      Value = -7.500000000000000000
      MinValue = -100.000000000000000000
      MaxValue = 100.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Od prawej'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object DisabledEdit: TZORFloatEdit
      Left = 478
      Top = 76
      Width = 90
      Height = 21
      Enabled = False
      TabOrder = 10
      OnChange = FieldChange
      Value = 3.140000000000000000
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = 'Wy'#322#261'czone'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
  end
  object CountGroup: TGroupBox
    Left = 12
    Top = 168
    Width = 736
    Height = 110
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Liczby ca'#322'kowite: pola ze strza'#322'kami'
    TabOrder = 2
    object CopiesEdit: TZORSpinEdit
      Left = 16
      Top = 34
      Width = 70
      Height = 21
      TabOrder = 0
      OnChange = FieldChange
      MaxValue = 99
      MinValue = 1
      Value = 1
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = '&Kopie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object MinimumEdit: TZORSpinEdit
      Left = 98
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 1
      OnChange = FieldChange
      Increment = 5
      MinValue = 10
      Value = 10
      Wymagany = wRecommended
      BoundLabel.Active = True
      BoundLabel.Caption = 'Co najmniej 10'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object TemperatureEdit: TZORSpinEdit
      Left = 206
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 2
      OnChange = FieldChange
      Increment = 5
      MaxValue = 50
      MinValue = -30
      Value = -5
      BoundLabel.Active = True
      BoundLabel.Caption = 'Temperatura '#176'C'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object LockedEdit: TZORSpinEdit
      Left = 318
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 3
      OnChange = FieldChange
      EditorEnabled = False
      MaxValue = 10
      Value = 3
      BoundLabel.Active = True
      BoundLabel.Caption = 'Tylko strza'#322'ki'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PlainEdit: TZORSpinEdit
      Left = 410
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 4
      OnChange = FieldChange
      Value = 2024
      ShowUpDown = False
      BoundLabel.Active = True
      BoundLabel.Caption = 'Bez strza'#322'ek'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object ErrorEdit: TZORSpinEdit
      Left = 502
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 5
      OnChange = FieldChange
      MaxValue = 5
      Value = 5
      Wymagany = wError
      BoundLabel.Active = True
      BoundLabel.Caption = 'B'#322#261'd'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object DisabledCountEdit: TZORSpinEdit
      Left = 594
      Top = 34
      Width = 80
      Height = 21
      Enabled = False
      TabOrder = 6
      OnChange = FieldChange
      Value = 7
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = 'Wy'#322#261'czone'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object FlatCountEdit: TZORSpinEdit
      Left = 16
      Top = 76
      Width = 70
      Height = 21
      Ctl3D = False
      ParentCtl3D = False
      TabOrder = 7
      OnChange = FieldChange
      Value = 8
      BoundLabel.Active = True
      BoundLabel.Caption = 'P'#322'askie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object RightCountEdit: TZORSpinEdit
      Left = 160
      Top = 76
      Width = 80
      Height = 21
      Alignment = taRightJustify
      TabOrder = 8
      OnChange = FieldChange
      Value = 1250
      Increment = 50
      BoundLabel.Active = True
      BoundLabel.Caption = 'Do prawej'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object BidiCountEdit: TZORSpinEdit
      Left = 318
      Top = 76
      Width = 80
      Height = 21
      BiDiMode = bdRightToLeft
      ParentBiDiMode = False
      TabOrder = 9
      OnChange = FieldChange
      Value = -40
      BoundLabel.Active = True
      BoundLabel.Caption = 'Od prawej'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object ColorsEdit: TZORSpinEdit
      Left = 480
      Top = 70
      Width = 96
      Height = 30
      AutoSize = False
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clPurple
      Font.Height = -17
      Font.Name = 'Segoe UI'
      Font.Style = [fsBold]
      ParentFont = False
      TabOrder = 10
      OnChange = FieldChange
      Value = 42
      Wymagany = wRequired
      BorderColors.RequiredColor = clPurple
      BorderColors.RecommendedColor = clTeal
      BorderColors.ErrorColor = 4227327
      BoundLabel.Active = True
      BoundLabel.Caption = 'W'#322'asne kolory'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
  end
  object TimeGroup: TGroupBox
    Left = 12
    Top = 284
    Width = 736
    Height = 110
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Czas pracy i stawki: liczby i godziny ze strza'#322'kami'
    TabOrder = 3
    object RateEdit: TZORSpinFloatEdit
      Left = 16
      Top = 34
      Width = 90
      Height = 21
      TabOrder = 0
      OnChange = FieldChange
      Increment = 0.500000000000000000
      MaxValue = 250.000000000000000000
      MinValue = 25.000000000000000000
      Value = 60.000000000000000000
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = '&Stawka za godzin'#281
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object StartEdit: TZORSpinFloatEdit
      Left = 136
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 1
      OnChange = FieldChange
      Tryb = tTime
      MaxValue = 1439.000000000000000000
      Value = 480.000000000000000000
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = '&Pocz'#261'tek'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object EndEdit: TZORSpinFloatEdit
      Left = 228
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 2
      OnChange = FieldChange
      Tryb = tTime
      Increment = 15.000000000000000000
      MaxValue = 1439.000000000000000000
      Value = 975.000000000000000000
      Wymagany = wRequired
      Zaokraglaj = True
      FocusOnMinutes = True
      BoundLabel.Active = True
      BoundLabel.Caption = '&Koniec'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object BreakEdit: TZORSpinFloatEdit
      Left = 320
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 3
      OnChange = FieldChange
      Tryb = tTime
      Increment = 5.000000000000000000
      MaxValue = 120.000000000000000000
      Value = 30.000000000000000000
      FocusOnMinutes = True
      BoundLabel.Active = True
      BoundLabel.Caption = 'Przerwa'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object OvertimeEdit: TZORSpinFloatEdit
      Left = 412
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 4
      OnChange = FieldChange
      Tryb = tTimeDecimal
      Increment = 15.000000000000000000
      Value = 90.000000000000000000
      Wymagany = wRecommended
      BoundLabel.Active = True
      BoundLabel.Caption = 'Nadgodziny [h]'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object BalanceEdit: TZORSpinFloatEdit
      Left = 520
      Top = 34
      Width = 80
      Height = 21
      TabOrder = 5
      OnChange = FieldChange
      Tryb = tTime
      MaxValue = 6000.000000000000000000
      MinValue = -6000.000000000000000000
      Value = -765.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Bilans godzin'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PayEdit: TZORSpinFloatEdit
      Left = 628
      Top = 34
      Width = 90
      Height = 21
      Alignment = taRightJustify
      Hint = 'Tylko do odczytu'
      ReadOnly = True
      TabStop = False
      TabOrder = 6
      OnChange = FieldChange
      ShowUpDown = False
      BoundLabel.Active = True
      BoundLabel.Caption = 'Do wyp'#322'aty'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object QuarterEdit: TZORSpinFloatEdit
      Left = 16
      Top = 76
      Width = 90
      Height = 21
      TabOrder = 7
      OnChange = FieldChange
      Increment = 0.250000000000000000
      Value = 23.000000000000000000
      Zaokraglaj = True
      BoundLabel.Active = True
      BoundLabel.Caption = 'Co 0,25'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object FlatTimeEdit: TZORSpinFloatEdit
      Left = 172
      Top = 76
      Width = 80
      Height = 21
      Ctl3D = False
      ParentCtl3D = False
      TabOrder = 8
      OnChange = FieldChange
      Tryb = tTime
      Value = 6000.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'P'#322'askie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object LockedTimeEdit: TZORSpinFloatEdit
      Left = 318
      Top = 76
      Width = 80
      Height = 21
      TabOrder = 9
      OnChange = FieldChange
      Tryb = tTime
      EditorEnabled = False
      Increment = 15.000000000000000000
      Value = 75.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Tylko strza'#322'ki'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object DisabledTimeEdit: TZORSpinFloatEdit
      Left = 500
      Top = 76
      Width = 80
      Height = 21
      Enabled = False
      TabOrder = 10
      OnChange = FieldChange
      Tryb = tTime
      Value = 65.000000000000000000
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = 'Wy'#322#261'czone'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
  end
  object OptionsGroup: TGroupBox
    Left = 12
    Top = 400
    Width = 736
    Height = 98
    Anchors = [akLeft, akTop, akRight]
    Caption = 'W czasie dzia'#322'ania'
    TabOrder = 4
    object SeparatorBox: TCheckBox
      Left = 16
      Top = 24
      Width = 330
      Height = 17
      Caption = 'Wpisywany separator jak w ustawieniach systemu'
      Checked = True
      State = cbChecked
      TabOrder = 0
      OnClick = SeparatorClick
    end
    object TypingBox: TCheckBox
      Left = 16
      Top = 48
      Width = 330
      Height = 17
      Caption = 'Mo'#380'na pisa'#263' (EditorEnabled)'
      Checked = True
      State = cbChecked
      TabOrder = 1
      OnClick = TypingClick
    end
    object ArrowsBox: TCheckBox
      Left = 16
      Top = 72
      Width = 330
      Height = 17
      Caption = 'Strza'#322'ki w polach (ShowUpDown)'
      Checked = True
      State = cbChecked
      TabOrder = 2
      OnClick = ArrowsClick
    end
    object HelpLabel: TLabel
      Left = 372
      Top = 22
      Width = 348
      Height = 66
      AutoSize = False
      Caption = 'Strza'#322'ki w g'#243'r'#281' i w d'#243#322' oraz k'#243#322'ko myszy zmieniaj'#261' warto'#347#263' pola, kt'#243're ma fokus. W polach czasu krok dotyczy godzin albo minut, zale'#380'nie od miejsca kursora; warto'#347#263' spoza zakresu zatrzymuje w polu stawki.'
      WordWrap = True
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object BottomPanel: TPanel
    Left = 0
    Top = 508
    Width = 760
    Height = 52
    Align = alBottom
    BevelOuter = bvNone
    ShowCaption = False
    TabOrder = 5
    object StatusLabel: TLabel
      Left = 16
      Top = 18
      Width = 540
      Height = 15
      Anchors = [akLeft, akTop, akRight]
      AutoSize = False
      Caption = 'Pola w niebieskiej ramce s'#261' wymagane, w zielonej zalecane.'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
    object ZeroButton: TButton
      Left = 638
      Top = 12
      Width = 110
      Height = 25
      Anchors = [akTop, akRight]
      Caption = '&Wyzeruj'
      TabOrder = 0
      OnClick = ZeroClick
    end
  end
end
