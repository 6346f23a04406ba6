object ListsPage: TListsPage
  Tag = 80
  Left = 0
  Top = 0
  Caption = 'Adresy dostaw'
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
  OnCreate = PageCreate
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
      Caption = 'Adresy dostaw'
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
      Caption = 'Pisz, a lista przejdzie do pasuj'#261'cej nazwy; Enter wybiera, Esc cofa'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object OwnGroup: TGroupBox
    Left = 12
    Top = 52
    Width = 736
    Height = 176
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Lista w'#322'asna: TZORComboBoxnew'
    TabOrder = 1
    object TownBox: TZORComboBoxnew
      Left = 16
      Top = 40
      Width = 200
      Height = 23
      TabOrder = 0
      Wymagany = wRequired
      SmartSearch = True
      HintLabel = 'kilka liter nazwy'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = '&Miejscowo'#347#263
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object StartBox: TZORComboBoxnew
      Left = 236
      Top = 40
      Width = 160
      Height = 23
      TabOrder = 1
      Wymagany = wRecommended
      Behavior = beNewWyszukajPoczatek
      SmartSearch = True
      Style = csDropDownList
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Od pocz'#261'tku, tylko z listy'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object AnyAccentBox: TZORComboBoxnew
      Left = 416
      Top = 40
      Width = 150
      Height = 23
      TabOrder = 2
      IgnoreLocalChars = True
      GradientColorUp = clWhite
      GradientColorDown = 15849925
      ArrowColor = clNavy
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Bez znak'#243'w diakrytycznych'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object NarrowBox: TZORComboBoxnew
      Left = 640
      Top = 40
      Width = 80
      Height = 23
      TabOrder = 3
      HintLabel = 'miejsce'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'W'#261'skie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object ErrorBox: TZORComboBoxnew
      Left = 16
      Top = 92
      Width = 200
      Height = 23
      TabOrder = 4
      Wymagany = wError
      Text = 'Atlantyda'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Z b'#322#281'dem'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object DisabledBox: TZORComboBoxnew
      Left = 236
      Top = 92
      Width = 160
      Height = 23
      TabOrder = 5
      Enabled = False
      ItemIndex = 4
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
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
    object RightToLeftBox: TZORComboBoxnew
      Left = 416
      Top = 92
      Width = 150
      Height = 23
      TabOrder = 6
      BiDiMode = bdRightToLeft
      ParentBiDiMode = False
      HintLabel = 'kilka liter nazwy'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Od prawej'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object FlatBox: TZORComboBoxnew
      Left = 586
      Top = 92
      Width = 134
      Height = 23
      TabOrder = 7
      Ctl3D = False
      ParentCtl3D = False
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
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
    object ExactBox: TZORComboBoxnew
      Left = 16
      Top = 144
      Width = 200
      Height = 23
      TabOrder = 8
      CaseSensitive = True
      DropDownCount = 4
      ItemIndex = 2
      Items.Strings = (
        'GmbH'
        'Gmina'
        'H&M'
        'Wei'#223'enfels'
        'wei'#223
        'za'#380#243#322#263)
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Wielko'#347#263' liter'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object EmptyBox: TZORComboBoxnew
      Left = 236
      Top = 144
      Width = 160
      Height = 23
      TabOrder = 9
      HintLabel = 'brak pozycji'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Pusta lista'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
  end
  object SearchGroup: TGroupBox
    Left = 12
    Top = 236
    Width = 736
    Height = 124
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Lista systemu: TZORComboBox'
    TabOrder = 2
    object SearchBox: TZORComboBox
      Left = 16
      Top = 40
      Width = 200
      Height = 23
      TabOrder = 0
      Wymagany = wRequired
      Style = csDropDownList
      HintLabel = 'kilka liter nazwy'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Szukaj w nazwie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object StartSearchBox: TZORComboBox
      Left = 236
      Top = 40
      Width = 160
      Height = 23
      TabOrder = 1
      Behavior = beNewWyszukajPoczatek
      Style = csDropDownList
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Od pocz'#261'tku'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object FreeBox: TZORComboBox
      Left = 416
      Top = 40
      Width = 150
      Height = 23
      TabOrder = 2
      Wymagany = wRecommended
      Style = csDropDown
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Dowolny tekst'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PlainBox: TComboBox
      Left = 586
      Top = 40
      Width = 134
      Height = 23
      TabOrder = 3
      Text = 'TComboBox'
    end
    object DisabledSearchBox: TZORComboBox
      Left = 16
      Top = 92
      Width = 200
      Height = 23
      TabOrder = 4
      Enabled = False
      Text = 'Krak'#243'w'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
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
    object RightSearchBox: TZORComboBox
      Left = 236
      Top = 92
      Width = 160
      Height = 23
      TabOrder = 5
      BiDiMode = bdRightToLeft
      ParentBiDiMode = False
      Style = csDropDownList
      HintLabel = 'kilka liter nazwy'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Od prawej'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object ErrorSearchBox: TZORComboBox
      Left = 416
      Top = 92
      Width = 150
      Height = 23
      TabOrder = 6
      Wymagany = wError
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Z b'#322#281'dem'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
  end
  object ManyGroup: TGroupBox
    Left = 12
    Top = 368
    Width = 736
    Height = 92
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Bardzo d'#322'uga lista'
    TabOrder = 3
    object ManyBox: TZORComboBoxnew
      Left = 16
      Top = 40
      Width = 380
      Height = 23
      TabOrder = 0
      SmartSearch = True
      HintLabel = 'najpierw przycisk obok'
      OnSelect = BoxSelect
      OnNewClick = BoxNewClick
      BoundLabel.Active = True
      BoundLabel.Caption = 'Sto tysi'#281'cy pozycji'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object ManyButton: TButton
      Left = 416
      Top = 39
      Width = 150
      Height = 25
      Caption = 'Nape'#322'nij'
      TabOrder = 1
      OnClick = ManyClick
    end
    object SortBox: TCheckBox
      Left = 586
      Top = 43
      Width = 134
      Height = 17
      Caption = 'Alfabetycznie'
      TabOrder = 2
      OnClick = SortClick
    end
  end
  object BottomBox: TZORComboBoxnew
    Left = 560
    Top = 524
    Width = 184
    Height = 23
    Anchors = [akRight, akBottom]
    TabOrder = 4
    SmartSearch = True
    OnSelect = BoxSelect
    BoundLabel.Active = True
    BoundLabel.Caption = 'Na dole'
    BoundLabel.Indent = 3
    BoundLabel.Font.Charset = EASTEUROPE_CHARSET
    BoundLabel.Font.Color = clWindowText
    BoundLabel.Font.Height = -12
    BoundLabel.Font.Name = 'Segoe UI'
    BoundLabel.Font.Style = []
    BoundLabel.Layout = clLeft
  end
  object StatusLabel: TLabel
    Left = 16
    Top = 532
    Width = 400
    Height = 15
    Caption = 'Gotowe'
  end
end
