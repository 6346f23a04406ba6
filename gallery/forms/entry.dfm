object EntryPage: TEntryPage
  Tag = 10
  Left = 0
  Top = 0
  Caption = 'Karta klienta'
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
      Width = 180
      Height = 19
      Caption = 'Karta klienta i umowy'
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
      Caption = 'Klient nr 2024/0173, umowa ramowa na dostawy cz'#281#347'ci zamiennych'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object CustomerGroup: TGroupBox
    Left = 12
    Top = 52
    Width = 736
    Height = 166
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Klient'
    TabOrder = 1
    object NameEdit: TZOREdit
      Left = 16
      Top = 36
      Width = 230
      Height = 21
      MaxLength = 60
      TabOrder = 0
      OnChange = FieldChange
      Wymagany = wRequired
      HintLabel = 'np. '#321'ucja '#379#243#322#263'-'#346'wi'#281'cicka'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Imi'#281' i nazwisko'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object CompanyEdit: TZOREdit
      Left = 262
      Top = 36
      Width = 230
      Height = 21
      Hint = 'pe'#322'na nazwa z rejestru'
      TabOrder = 1
      OnChange = FieldChange
      Wymagany = wRecommended
      BoundLabel.Active = True
      BoundLabel.Caption = '&Firma'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object TaxNumberEdit: TZOREdit
      Left = 508
      Top = 36
      Width = 104
      Height = 21
      MaxLength = 13
      TabOrder = 2
      OnChange = FieldChange
      OnExit = TaxNumberExit
      OnKeyPress = DigitsKeyPress
      Wymagany = wRecommended
      HintLabel = '000-000-00-00'
      BoundLabel.Active = True
      BoundLabel.Caption = 'NIP'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopRight
    end
    object RegonEdit: TZOREdit
      Left = 624
      Top = 36
      Width = 96
      Height = 21
      MaxLength = 14
      TabOrder = 3
      OnChange = FieldChange
      OnKeyPress = DigitsKeyPress
      BoundLabel.Active = True
      BoundLabel.Caption = 'REGON'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopRight
    end
    object StreetEdit: TZOREdit
      Left = 16
      Top = 84
      Width = 230
      Height = 21
      TabOrder = 4
      OnChange = FieldChange
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = '&Ulica i numer'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PostalCodeEdit: TZOREdit
      Left = 262
      Top = 84
      Width = 70
      Height = 21
      MaxLength = 6
      TabOrder = 5
      OnChange = FieldChange
      OnExit = PostalCodeExit
      OnKeyPress = DigitsKeyPress
      Wymagany = wRequired
      HintLabel = '00-000'
      BoundLabel.Active = True
      BoundLabel.Caption = 'Kod'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object CityEdit: TZOREdit
      Left = 348
      Top = 84
      Width = 144
      Height = 21
      TabOrder = 6
      OnChange = FieldChange
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = 'Miejscowo'#347#263
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopCenter
    end
    object CountryEdit: TZOREdit
      Left = 508
      Top = 84
      Width = 212
      Height = 21
      Color = clBtnFace
      ReadOnly = True
      TabOrder = 7
      Text = 'Rzeczpospolita Polska'
      BoundLabel.Active = True
      BoundLabel.Caption = 'Kraj (tylko do odczytu)'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object EmailEdit: TZOREdit
      Left = 16
      Top = 132
      Width = 230
      Height = 21
      TabOrder = 8
      OnChange = FieldChange
      OnExit = EmailExit
      Wymagany = wRecommended
      HintLabel = 'nazwa@firma.pl'
      BoundLabel.Active = True
      BoundLabel.Caption = '&E-mail'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PhoneEdit: TZOREdit
      Left = 262
      Top = 132
      Width = 230
      Height = 21
      TabOrder = 9
      OnChange = FieldChange
      OnExit = PhoneExit
      HintLabel = '+48 000 000 000'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Telefon'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object CardEdit: TZOREdit
      Left = 508
      Top = 132
      Width = 212
      Height = 21
      CharCase = ecUpperCase
      MaxLength = 12
      TabOrder = 10
      Text = 'G'#346'L'#260'-0173'
      OnChange = FieldChange
      BoundLabel.Active = True
      BoundLabel.Caption = 'Kod karty (wielkie litery)'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
  end
  object ContractGroup: TGroupBox
    Left = 12
    Top = 226
    Width = 736
    Height = 190
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Umowa'
    TabOrder = 2
    object ContractNumberEdit: TZOREdit
      Left = 124
      Top = 20
      Width = 160
      Height = 21
      Color = clBtnFace
      ReadOnly = True
      TabOrder = 0
      Text = 'UR/2024/05/0173'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Numer umowy:'
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
    end
    object SubjectEdit: TZOREdit
      Left = 124
      Top = 48
      Width = 160
      Height = 21
      Hint = 'pole z b'#322#281'dem'
      TabOrder = 1
      OnChange = FieldChange
      Wymagany = wError
      BoundLabel.Active = True
      BoundLabel.Caption = '&Przedmiot:'
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
    end
    object SellerEdit: TZOREdit
      Left = 124
      Top = 76
      Width = 160
      Height = 21
      TabOrder = 2
      Text = 'Anna Wr'#243'bel-'#346'liwa'
      OnChange = FieldChange
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = '&Opiekun:'
      BoundLabel.Indent = 4
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clLeftTop
    end
    object NotesEdit: TZOREdit
      Left = 124
      Top = 106
      Width = 160
      Height = 21
      TabOrder = 3
      Text = 'Wnie'#347#263' na II pi'#281'tro'
      OnChange = FieldChange
      BoundLabel.Active = True
      BoundLabel.Caption = 'Uwagi do dostawy i p'#322'atno'#347'ci:'
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.MaxWidth = 108
    end
    object AmountEdit: TZOREdit
      Left = 316
      Top = 20
      Width = 84
      Height = 21
      Alignment = taRightJustify
      TabOrder = 4
      Text = '12 500,00'
      OnChange = FieldChange
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = 'z'#322' netto'
      BoundLabel.Indent = 6
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object TermEdit: TZOREdit
      Left = 316
      Top = 48
      Width = 84
      Height = 21
      Alignment = taRightJustify
      MaxLength = 3
      TabOrder = 5
      Text = '14'
      OnChange = FieldChange
      OnKeyPress = DigitsKeyPress
      BoundLabel.Active = True
      BoundLabel.Caption = 'dni na zap'#322'at'#281
      BoundLabel.Indent = 6
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRightTop
    end
    object DiscountEdit: TZOREdit
      Left = 316
      Top = 76
      Width = 84
      Height = 21
      Alignment = taRightJustify
      Enabled = False
      TabOrder = 6
      Text = '5'
      OnChange = FieldChange
      Wymagany = wRecommended
      BoundLabel.Active = True
      BoundLabel.Caption = '% rabatu'
      BoundLabel.EnabledAlways = True
      BoundLabel.Indent = 6
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object BonusEdit: TZOREdit
      Left = 316
      Top = 106
      Width = 84
      Height = 21
      Alignment = taRightJustify
      Enabled = False
      TabOrder = 7
      Text = '2'
      OnChange = FieldChange
      BoundLabel.Active = True
      BoundLabel.Caption = '% premii'
      BoundLabel.Indent = 6
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clRight
    end
    object OptionsPanel: TPanel
      Left = 508
      Top = 20
      Width = 212
      Height = 108
      BevelOuter = bvLowered
      ShowCaption = False
      TabOrder = 8
      object ConsentBox: TCheckBox
        Left = 10
        Top = 7
        Width = 194
        Height = 17
        Hint =
          'Klient zgadza si'#281' na przetwarzanie swoich danych osobowych w cel' +
          'u wykonania umowy i mo'#380'e t'#281' zgod'#281' w ka'#380'dej chwili cofn'#261#263'.'
        Caption = '&Zgoda na przetwarzanie danych'
        Checked = True
        State = cbChecked
        TabOrder = 0
      end
      object NewsletterBox: TCheckBox
        Left = 10
        Top = 32
        Width = 194
        Height = 17
        AllowGrayed = True
        Caption = 'Biuletyn (mo'#380'e nie wiadomo)'
        State = cbGrayed
        TabOrder = 1
      end
      object ReadOnlyBox: TCheckBox
        Left = 10
        Top = 58
        Width = 194
        Height = 17
        Caption = 'Uwagi tylko do odczytu'
        TabOrder = 2
        OnClick = ReadOnlyClick
      end
      object DiscountBox: TCheckBox
        Left = 10
        Top = 83
        Width = 194
        Height = 17
        Caption = 'Rabat przys'#322'uguje'
        TabOrder = 3
        OnClick = EnabledClick
      end
    end
    object PlaceEdit: TZOREdit
      Left = 16
      Top = 142
      Width = 220
      Height = 21
      TabOrder = 9
      OnChange = FieldChange
      HintLabel = #321#243'd'#378', dnia...'
      BoundLabel.Active = True
      BoundLabel.Caption = 'Miejsce i data'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clBottomLeft
    end
    object ClientSignEdit: TZOREdit
      Left = 258
      Top = 142
      Width = 220
      Height = 21
      TabOrder = 10
      OnChange = FieldChange
      BoundLabel.Active = True
      BoundLabel.Caption = 'Podpis klienta'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clBottomCenter
    end
    object SellerSignEdit: TZOREdit
      Left = 500
      Top = 142
      Width = 220
      Height = 21
      TabOrder = 11
      OnChange = FieldChange
      BoundLabel.Active = True
      BoundLabel.Caption = 'Podpis opiekuna'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clBottomRight
    end
  end
  object LooksGroup: TGroupBox
    Left = 12
    Top = 424
    Width = 736
    Height = 72
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Wygl'#261'd p'#243'l'
    TabOrder = 3
    object FlatEdit: TZOREdit
      Left = 16
      Top = 36
      Width = 104
      Height = 21
      Ctl3D = False
      ParentCtl3D = False
      TabOrder = 0
      Text = 'bez wymaga'#324
      OnChange = FieldChange
      BoundLabel.Active = True
      BoundLabel.Caption = 'P'#322'askie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object FlatRequiredEdit: TZOREdit
      Left = 136
      Top = 36
      Width = 104
      Height = 21
      Ctl3D = False
      ParentCtl3D = False
      TabOrder = 1
      OnChange = FieldChange
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = 'P'#322'askie wymagane'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object SunkenEdit: TZOREdit
      Left = 256
      Top = 36
      Width = 104
      Height = 21
      TabOrder = 2
      Text = 'bez wymaga'#324
      OnChange = FieldChange
      BoundLabel.Active = True
      BoundLabel.Caption = 'Wg'#322#281'bione'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object RightToLeftEdit: TZOREdit
      Left = 376
      Top = 36
      Width = 104
      Height = 21
      BiDiMode = bdRightToLeft
      ParentBiDiMode = False
      TabOrder = 3
      Text = #1513#1500#1493#1501' '#1506#1493#1500#1501
      OnChange = FieldChange
      BoundLabel.Active = True
      BoundLabel.Caption = 'Od prawej'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopRight
    end
    object ColorsEdit: TZOREdit
      Left = 496
      Top = 36
      Width = 104
      Height = 21
      TabOrder = 4
      OnChange = FieldChange
      Wymagany = wRequired
      BorderColors.RequiredColor = clPurple
      BorderColors.RecommendedColor = clTeal
      BorderColors.ErrorColor = 4227327
      BoundLabel.Active = True
      BoundLabel.Caption = 'W'#322'asne kolory'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clPurple
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = [fsBold]
      BoundLabel.Layout = clTopLeft
    end
    object ClickEdit: TZOREdit
      Left = 616
      Top = 36
      Width = 104
      Height = 21
      TabOrder = 5
      OnChange = FieldChange
      OnClick = LabelledClick
      BoundLabel.Active = True
      BoundLabel.AllowClick = True
      BoundLabel.Caption = 'Kliknij etykiet'#281
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
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
    TabOrder = 4
    object StatusLabel: TLabel
      Left = 16
      Top = 18
      Width = 380
      Height = 13
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
    object SignsButton: TButton
      Left = 406
      Top = 12
      Width = 110
      Height = 25
      Anchors = [akTop, akRight]
      Caption = 'Znaki (F&7)'
      TabOrder = 0
      OnClick = SignsClick
    end
    object ClearButton: TButton
      Left = 522
      Top = 12
      Width = 110
      Height = 25
      Anchors = [akTop, akRight]
      Caption = '&Wyczy'#347#263
      TabOrder = 1
      OnClick = ClearClick
    end
    object CheckButton: TButton
      Left = 638
      Top = 12
      Width = 110
      Height = 25
      Anchors = [akTop, akRight]
      Caption = '&Sprawd'#378
      Default = True
      TabOrder = 2
      OnClick = CheckClick
    end
  end
end
