object FamilyPage: TFamilyPage
  Tag = 15
  Left = 0
  Top = 0
  Caption = 'Zlecenie serwisowe'
  ClientHeight = 560
  ClientWidth = 760
  Color = clBtnFace
  Font.Charset = EASTEUROPE_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  OldCreateOrder = False
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
      Caption = 'Zlecenie serwisowe'
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
      Caption = 'Maski, teksty, listy i kalendarz we wsp'#243'lnej ramce'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object DetailsGroup: TGroupBox
    Left = 12
    Top = 52
    Width = 364
    Height = 152
    Caption = 'Zg'#322'aszaj'#261'cy'
    TabOrder = 1
    object PhoneEdit: TZORMaskEdit
      Left = 16
      Top = 38
      Width = 112
      Height = 23
      EditMask = '(00) 000-00-00;0;_'
      TabOrder = 0
      Wymagany = wRequired
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
    object PostalEdit: TZORMaskEdit
      Left = 140
      Top = 38
      Width = 84
      Height = 23
      EditMask = '00-000;1;_'
      TabOrder = 1
      Wymagany = wRecommended
      HintLabel = '00-000'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Kod pocztowy'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object DateEdit: TZORMaskEdit
      Left = 236
      Top = 38
      Width = 112
      Height = 23
      EditMask = '!99/99/0000;1;_'
      TabOrder = 2
      HintLabel = 'dzie'#324' miesi'#261'c rok'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Data zakupu'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PlateEdit: TZORMaskEdit
      Left = 16
      Top = 84
      Width = 112
      Height = 23
      EditMask = '>LL-aaaaa;0;_'
      TabOrder = 3
      HintLabel = 'np. WA-12345'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Rejestracja'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object TaxEdit: TZORMaskEdit
      Left = 140
      Top = 84
      Width = 112
      Height = 23
      EditMask = '000-000-00-00;0;_'
      TabOrder = 4
      Wymagany = wRequired
      HintLabel = '10 cyfr'
      BoundLabel.Active = True
      BoundLabel.Caption = '&NIP'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object SerialEdit: TZORMaskEdit
      Left = 264
      Top = 84
      Width = 84
      Height = 23
      EditMask = '\S-000;0;*'
      TabOrder = 5
      BoundLabel.Active = True
      BoundLabel.Caption = 'Nr s&eryjny'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object ConsentBox: TZORCheckBox
      Left = 16
      Top = 120
      Width = 320
      Height = 17
      Caption = 'Zgoda na przetwarzanie danych'
      TabOrder = 6
      OnClick = ConsentClick
      Wymagany = wRequired
    end
  end
  object TextGroup: TGroupBox
    Left = 388
    Top = 52
    Width = 360
    Height = 152
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Opis'
    TabOrder = 2
    object NotesMemo: TZORMemo
      Left = 16
      Top = 38
      Width = 156
      Height = 100
      ScrollBars = ssVertical
      TabOrder = 0
      Wymagany = wRequired
      HintLabel = 'Co si'#281' sta'#322'o i kiedy?'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Usterka'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object ReportLabel: TLabel
      Left = 184
      Top = 21
      Width = 120
      Height = 15
      FocusControl = ReportEdit
      Caption = '&Protok'#243#322
    end
    object ReportEdit: TZORRichEdit
      Left = 184
      Top = 38
      Width = 160
      Height = 100
      Anchors = [akLeft, akTop, akRight]
      ScrollBars = ssVertical
      TabOrder = 1
      Wymagany = wRecommended
    end
  end
  object ListGroup: TGroupBox
    Left = 12
    Top = 210
    Width = 364
    Height = 292
    Caption = 'Zlecenie'
    TabOrder = 3
    object BranchLabel: TLabel
      Left = 16
      Top = 21
      Width = 120
      Height = 15
      FocusControl = BranchList
      Caption = '&Oddzia'#322
    end
    object BranchList: TZORListBox
      Left = 16
      Top = 38
      Width = 150
      Height = 104
      ItemHeight = 15
      Items.Strings = (
        'Bydgoszcz'
        'Gda'#324'sk'
        'Katowice'
        'Krak'#243'w'
        #321#243'd'#378
        'Pozna'#324
        'Rzesz'#243'w'
        'Szczecin'
        'Warszawa'
        'Wroc'#322'aw')
      TabOrder = 0
      OnClick = BranchClick
      Wymagany = wRequired
    end
    object ScopeList: TZORCheckListBox
      Left = 182
      Top = 38
      Width = 166
      Height = 104
      OnClickCheck = ScopeClickCheck
      ItemHeight = 17
      Items.Strings = (
        'Diagnoza'
        'Naprawa'
        'Wymiana cz'#281#347'ci'
        'Transport'
        'Przegl'#261'd roczny')
      TabOrder = 1
      Wymagany = wRecommended
      CheckOnClickString = True
      BoundLabel.Active = True
      BoundLabel.Caption = '&Zakres prac'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PartsLabel: TLabel
      Left = 16
      Top = 150
      Width = 120
      Height = 15
      Caption = 'Cz'#281#347'ci'
    end
    object PartsBox: TZORScrollBox
      Left = 16
      Top = 169
      Width = 332
      Height = 110
      TabOrder = 2
      object BearingEdit: TZORMaskEdit
        Left = 110
        Top = 8
        Width = 60
        Height = 23
        EditMask = '#99;0; '
        TabOrder = 0
        Wymagany = wRecommended
        BoundLabel.Active = True
        BoundLabel.Caption = #321'o'#380'ysko'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object BearingCode: TZORMaskEdit
        Left = 240
        Top = 8
        Width = 62
        Height = 23
        EditMask = 'LL-00;0;_'
        TabOrder = 10
        BoundLabel.Active = True
        BoundLabel.Caption = 'Kod'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object BeltEdit: TZORMaskEdit
        Left = 110
        Top = 38
        Width = 60
        Height = 23
        EditMask = '#99;0; '
        TabOrder = 1
        BoundLabel.Active = True
        BoundLabel.Caption = 'Pasek'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object BeltCode: TZORMaskEdit
        Left = 240
        Top = 38
        Width = 62
        Height = 23
        EditMask = 'LL-00;0;_'
        TabOrder = 11
        BoundLabel.Active = True
        BoundLabel.Caption = 'Kod'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object FilterEdit: TZORMaskEdit
        Left = 110
        Top = 68
        Width = 60
        Height = 23
        EditMask = '#99;0; '
        TabOrder = 2
        BoundLabel.Active = True
        BoundLabel.Caption = 'Filtr'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object FilterCode: TZORMaskEdit
        Left = 240
        Top = 68
        Width = 62
        Height = 23
        EditMask = 'LL-00;0;_'
        TabOrder = 12
        BoundLabel.Active = True
        BoundLabel.Caption = 'Kod'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object PumpEdit: TZORMaskEdit
        Left = 110
        Top = 98
        Width = 60
        Height = 23
        EditMask = '#99;0; '
        TabOrder = 3
        BoundLabel.Active = True
        BoundLabel.Caption = 'Pompa'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object PumpCode: TZORMaskEdit
        Left = 240
        Top = 98
        Width = 62
        Height = 23
        EditMask = 'LL-00;0;_'
        TabOrder = 13
        BoundLabel.Active = True
        BoundLabel.Caption = 'Kod'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object ValveEdit: TZORMaskEdit
        Left = 110
        Top = 128
        Width = 60
        Height = 23
        EditMask = '#99;0; '
        TabOrder = 4
        BoundLabel.Active = True
        BoundLabel.Caption = 'Zaw'#243'r'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object ValveCode: TZORMaskEdit
        Left = 240
        Top = 128
        Width = 62
        Height = 23
        EditMask = 'LL-00;0;_'
        TabOrder = 14
        BoundLabel.Active = True
        BoundLabel.Caption = 'Kod'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object SealEdit: TZORMaskEdit
        Left = 110
        Top = 158
        Width = 60
        Height = 23
        EditMask = '#99;0; '
        TabOrder = 5
        BoundLabel.Active = True
        BoundLabel.Caption = 'Uszczelka'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
      object SealCode: TZORMaskEdit
        Left = 240
        Top = 158
        Width = 62
        Height = 23
        EditMask = 'LL-00;0;_'
        TabOrder = 15
        BoundLabel.Active = True
        BoundLabel.Caption = 'Kod'
        BoundLabel.Font.Charset = EASTEUROPE_CHARSET
        BoundLabel.Font.Color = clWindowText
        BoundLabel.Font.Height = -12
        BoundLabel.Font.Name = 'Segoe UI'
        BoundLabel.Font.Style = []
        BoundLabel.Layout = clLeft
      end
    end
  end
  object TermGroup: TGroupBox
    Left = 388
    Top = 210
    Width = 360
    Height = 292
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Termin'
    TabOrder = 4
    object TermCalendar: TZORMonthCalendar
      Left = 16
      Top = 38
      Width = 270
      Height = 176
      TabOrder = 0
      OnClick = TermClick
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = 'Dzie'#324' &wizyty'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object AvailableBox: TZORCheckBox
      Left = 16
      Top = 228
      Width = 320
      Height = 17
      Caption = 'Zlecenie mo'#380'na zmienia'#263
      Checked = True
      State = cbChecked
      TabOrder = 1
      OnClick = AvailableClick
    end
    object UrgentBox: TZORCheckBox
      Left = 16
      Top = 252
      Width = 320
      Height = 17
      AllowGrayed = True
      Caption = 'Pilne (albo jeszcze nie wiadomo)'
      State = cbGrayed
      TabOrder = 2
      Wymagany = wRecommended
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
      Width = 560
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
    object CheckButton: TButton
      Left = 638
      Top = 12
      Width = 110
      Height = 25
      Anchors = [akTop, akRight]
      Caption = '&Sprawd'#378
      Default = True
      TabOrder = 0
      OnClick = CheckClick
    end
  end
end
