object MainForm: TGalleryForm
  Left = 0
  Top = 0
  Caption = 'ZOR Gallery'
  ClientHeight = 800
  ClientWidth = 1240
  Color = clBtnFace
  Constraints.MinHeight = 480
  Constraints.MinWidth = 760
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  KeyPreview = True
  OldCreateOrder = False
  Position = poScreenCenter
  OnKeyDown = FormKeyDown
  PixelsPerInch = 96
  TextHeight = 15
  object SidePanel: TPanel
    Left = 0
    Top = 0
    Width = 140
    Height = 800
    Align = alLeft
    BevelOuter = bvNone
    Color = clWindow
    ParentBackground = False
    ShowCaption = False
    TabOrder = 0
    object TitlePanel: TPanel
      Left = 0
      Top = 0
      Width = 140
      Height = 44
      Align = alTop
      BevelOuter = bvNone
      Color = 14522182
      ParentBackground = False
      ShowCaption = False
      TabOrder = 0
      object TitleLabel: TLabel
        Left = 14
        Top = 11
        Width = 92
        Height = 19
        Caption = 'ZOR Gallery'
        Font.Charset = DEFAULT_CHARSET
        Font.Color = clWhite
        Font.Height = -16
        Font.Name = 'Segoe UI'
        Font.Style = [fsBold]
        ParentFont = False
        Transparent = True
      end
    end
    object PageList: TPageList
      Left = 0
      Top = 44
      Width = 140
      Height = 756
      Align = alClient
      Ctl3D = False
      ParentCtl3D = False
      TabOrder = 1
      OnSelect = PageListSelect
    end
  end
  object InspectorPanel: TPanel
    Left = 920
    Top = 0
    Width = 320
    Height = 800
    Align = alRight
    BevelOuter = bvNone
    ShowCaption = False
    TabOrder = 2
    object InspectorHeader: TPanel
      Left = 0
      Top = 0
      Width = 320
      Height = 44
      Align = alTop
      BevelOuter = bvNone
      ShowCaption = False
      TabOrder = 0
      object InspectedLabel: TLabel
        Left = 8
        Top = 6
        Width = 300
        Height = 13
        Anchors = [akLeft, akTop, akRight]
        AutoSize = False
        Font.Charset = DEFAULT_CHARSET
        Font.Color = clWindowText
        Font.Height = -12
        Font.Name = 'Segoe UI'
        Font.Style = [fsBold]
        ParentFont = False
      end
      object InspectorHintLabel: TLabel
        Left = 8
        Top = 23
        Width = 236
        Height = 13
        Caption = 'Ctrl and a click inspect what cannot have the focus'
        Font.Charset = DEFAULT_CHARSET
        Font.Color = clGrayText
        Font.Height = -12
        Font.Name = 'Segoe UI'
        Font.Style = []
        ParentFont = False
      end
    end
    object ProblemPanel: TPanel
      Left = 0
      Top = 744
      Width = 320
      Height = 56
      Align = alBottom
      BevelOuter = bvNone
      Color = 15134975
      ParentBackground = False
      ShowCaption = False
      TabOrder = 2
      Visible = False
      object ProblemLabel: TLabel
        Left = 8
        Top = 6
        Width = 304
        Height = 44
        Anchors = [akLeft, akTop, akRight, akBottom]
        AutoSize = False
        Font.Charset = DEFAULT_CHARSET
        Font.Color = 192
        Font.Height = -12
        Font.Name = 'Segoe UI'
        Font.Style = []
        ParentFont = False
        ShowAccelChar = False
        Transparent = True
        WordWrap = True
      end
    end
    object Inspector: TInspector
      Left = 0
      Top = 44
      Width = 320
      Height = 700
      Align = alClient
      TabOrder = 1
      OnWritten = InspectorWritten
      OnProblem = InspectorProblem
    end
  end
  object CenterPanel: TPanel
    Left = 140
    Top = 0
    Width = 780
    Height = 800
    Align = alClient
    BevelOuter = bvNone
    ShowCaption = False
    TabOrder = 1
    object LogPanel: TPanel
      Left = 0
      Top = 600
      Width = 780
      Height = 200
      Align = alBottom
      BevelOuter = bvNone
      ShowCaption = False
      TabOrder = 1
      object LogHeader: TPanel
        Left = 0
        Top = 0
        Width = 780
        Height = 28
        Align = alTop
        BevelOuter = bvNone
        ShowCaption = False
        TabOrder = 0
        object LogLabel: TLabel
          Left = 8
          Top = 8
          Width = 37
          Height = 13
          Caption = 'Events'
          Font.Charset = DEFAULT_CHARSET
          Font.Color = clWindowText
          Font.Height = -12
          Font.Name = 'Segoe UI'
          Font.Style = [fsBold]
          ParentFont = False
        end
        object ClearLogButton: TButton
          Left = 701
          Top = 3
          Width = 75
          Height = 22
          Anchors = [akTop, akRight]
          Caption = 'C&lear'
          TabOrder = 0
          OnClick = ClearLogClick
        end
      end
      object Log: TEventLog
        Left = 0
        Top = 28
        Width = 780
        Height = 172
        Align = alClient
        TabOrder = 1
      end
    end
    object PageArea: TPageArea
      Left = 0
      Top = 0
      Width = 780
      Height = 600
      Align = alClient
      TabOrder = 0
    end
  end
end
