object DatesPage: TDatesPage
  Tag = 30
  Left = 0
  Top = 0
  Caption = 'Terminy umowy'
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
      Caption = 'Terminy umowy i rozlicze'#324
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
      Caption = 'Strza'#322'ki zmieniaj'#261' cz'#281#347#263' daty przy kursorze, F4 otwiera kalendarz, Esc cofa b'#322#261'd'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object ContractGroup: TGroupBox
    Left = 12
    Top = 52
    Width = 736
    Height = 164
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Umowa'
    TabOrder = 1
    object SignedEdit: TZORDateTimePickerEdit
      Left = 16
      Top = 36
      Width = 150
      Height = 23
      Wymagany = wRequired
      HintLabel = 'data podpisania'
      UseMaskEdit = True
      BoundLabel.Active = True
      BoundLabel.Caption = '&Podpisano'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 0
      OnChange = FieldChange
    end
    object ValidFromEdit: TZORDateTimePickerEdit
      Left = 190
      Top = 36
      Width = 150
      Height = 23
      Wymagany = wRecommended
      HintLabel = 'pierwszy dzie'#324
      BoundLabel.Active = True
      BoundLabel.Caption = 'Obowi'#261'zuje &od'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 1
      OnChange = FieldChange
    end
    object MeetingEdit: TZORDateTimePickerEdit
      Left = 364
      Top = 36
      Width = 170
      Height = 23
      DateFormat = dfLong
      UseMaskEdit = True
      HintLabel = 'dzie'#324' i godzina'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Spotkanie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 2
      OnChange = FieldChange
    end
    object PaidEdit: TZORDateTimePickerEdit
      Left = 558
      Top = 36
      Width = 150
      Height = 23
      Date = 45366.000000000000000000
      MinDate = 45352.000000000000000000
      MaxDate = 45382.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = '&Zap'#322'acono'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 3
      OnChange = FieldChange
    end
    object FlatEdit: TZORDateTimePickerEdit
      Left = 16
      Top = 92
      Width = 150
      Height = 23
      Ctl3D = False
      ParentCtl3D = False
      Date = 45366.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'P'#322'askie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 4
      OnChange = FieldChange
    end
    object DisabledEdit: TZORDateTimePickerEdit
      Left = 190
      Top = 92
      Width = 150
      Height = 23
      Enabled = False
      Date = 45366.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Zablokowane'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 5
      OnChange = FieldChange
    end
    object MirrorEdit: TZORDateTimePickerEdit
      Left = 364
      Top = 92
      Width = 170
      Height = 23
      BiDiMode = bdRightToLeft
      ParentBiDiMode = False
      Date = 45366.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Od prawej do lewej'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 6
      OnChange = FieldChange
    end
    object ColoursEdit: TZORDateTimePickerEdit
      Left = 558
      Top = 92
      Width = 150
      Height = 23
      Wymagany = wRequired
      BorderColors.RequiredColor = clPurple
      Date = 45366.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'W'#322'asne kolory'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 7
      OnChange = FieldChange
    end
    object RulesLabel: TLabel
      Left = 16
      Top = 132
      Width = 300
      Height = 15
      Caption = 'Pole '#8222'Zap'#322'acono'#8221' przyjmuje tylko marzec 2024; '#8222'Podpisano'#8221' i '#8222'Spotkanie'#8221' maj'#261' mask'#281'.'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object PeriodGroup: TGroupBox
    Left = 12
    Top = 228
    Width = 736
    Height = 82
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Okres rozliczenia'
    TabOrder = 2
    object MonthEdit: TZORDateTimePickerEdit
      Left = 16
      Top = 36
      Width = 150
      Height = 23
      DateTimeView = dtvMonth
      HintLabel = 'miesi'#261'c'
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = '&Miesi'#261'c'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 0
      OnChange = FieldChange
    end
    object LongMonthEdit: TZORDateTimePickerEdit
      Left = 190
      Top = 36
      Width = 150
      Height = 23
      DateTimeView = dtvMonth
      DateFormat = dfLong
      Date = 45352.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Miesi'#261'c s'#322'ownie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 1
      OnChange = FieldChange
    end
    object YearEdit: TZORDateTimePickerEdit
      Left = 364
      Top = 36
      Width = 170
      Height = 23
      DateTimeView = dtvYear
      Date = 45292.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = '&Rok'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
      TabOrder = 2
      OnChange = FieldChange
    end
    object SideEdit: TZORDateTimePickerEdit
      Left = 640
      Top = 36
      Width = 80
      Height = 23
      DateTimeView = dtvYear
      Date = 45292.000000000000000000
      BoundLabel.Active = True
      BoundLabel.Caption = 'Rok obok pola'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clLeft
      TabOrder = 3
      OnChange = FieldChange
    end
  end
  object NativeGroup: TGroupBox
    Left = 12
    Top = 322
    Width = 736
    Height = 200
    Anchors = [akLeft, akTop, akRight]
    Caption = 'Pola systemu'
    TabOrder = 3
    object FromPicker: TZORDateTimePicker
      Left = 16
      Top = 36
      Width = 170
      Height = 23
      Date = 45366.000000000000000000
      Time = 45366.500000000000000000
      Wymagany = wRequired
      TabOrder = 0
      OnChange = PickerChange
      BoundLabel.Active = True
      BoundLabel.Caption = '&Dzie'#324
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object TimePicker: TZORDateTimePicker
      Left = 16
      Top = 90
      Width = 170
      Height = 23
      Date = 45366.000000000000000000
      Time = 45366.510416666664000000
      Kind = dtkTime
      Wymagany = wRecommended
      TabOrder = 1
      OnChange = PickerChange
      BoundLabel.Active = True
      BoundLabel.Caption = '&Godzina'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object CheckPicker: TZORDateTimePicker
      Left = 16
      Top = 144
      Width = 170
      Height = 23
      Date = 45366.000000000000000000
      Time = 45366.500000000000000000
      ShowCheckbox = True
      Checked = False
      TabOrder = 2
      OnChange = PickerChange
      BoundLabel.Active = True
      BoundLabel.Caption = '&Je'#347'li ustalono'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object LongPicker: TZORDateTimePicker
      Left = 210
      Top = 36
      Width = 240
      Height = 23
      Date = 45366.000000000000000000
      Time = 45366.500000000000000000
      DateFormat = dfLong
      Wymagany = wError
      TabOrder = 3
      OnChange = PickerChange
      BoundLabel.Active = True
      BoundLabel.Caption = 'Data s'#322'ownie'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object FlatPicker: TZORDateTimePicker
      Left = 210
      Top = 90
      Width = 240
      Height = 23
      Date = 45366.000000000000000000
      Time = 45366.500000000000000000
      Ctl3D = False
      ParentCtl3D = False
      TabOrder = 4
      OnChange = PickerChange
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
    object Calendar: TMonthCalendar
      Left = 464
      Top = 24
      Width = 256
      Height = 158
      AutoSize = True
      Date = 45366.000000000000000000
      WeekNumbers = True
      TabOrder = 5
      OnClick = CalendarClick
    end
  end
  object StatusLabel: TLabel
    Left = 16
    Top = 532
    Width = 400
    Height = 15
    Caption = 'Gotowe'
  end
end
