object CheckListPage: TCheckListPage
  Tag = 90
  Left = 0
  Top = 0
  Caption = 'Zasi'#281'g dostaw'
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
      Caption = 'Zasi'#281'g dostaw'
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
      Width = 400
      Height = 13
      Caption = 'Lista do zaznaczania z wyszukiwaniem, drzewo z kolumnami i stany wymagania'
      Font.Charset = EASTEUROPE_CHARSET
      Font.Color = clGrayText
      Font.Height = -12
      Font.Name = 'Segoe UI'
      Font.Style = []
      ParentFont = False
    end
  end
  object CitiesTree: TZORVirtualStringTree
    Left = 16
    Top = 60
    Width = 300
    Height = 404
    HintMode = hmTooltip
    IncrementalSearch = isVisibleOnly
    ShowHint = True
    TabOrder = 1
    TreeOptions.SelectionOptions = [toMultiSelect]
    OnChecked = CitiesChecked
    Wymagany = wRequired
    CheckBoxStyle = True
    SearchEditVisible = True
    HeaderText = 'Miejscowo'#347'ci'
  end
  object RegionsTree: TVirtualStringTree
    Left = 332
    Top = 60
    Width = 412
    Height = 204
    Colors.HotColor = clHighlight
    Header.AutoSizeIndex = -1
    Header.Columns = <
      item
        Position = 0
        Text = 'Oddzia'#322
        Width = 180
      end
      item
        Alignment = taRightJustify
        Position = 1
        Text = 'Kursy'
        Width = 80
      end
      item
        Hint = 'Do kiedy przyjmujemy zam'#243'wienia'
        Position = 2
        Text = 'Zam'#243'wienia'
        Width = 130
      end>
    Header.Height = 22
    Header.Options = [hoColumnResize, hoDblClickResize, hoDrag, hoHotTrack, hoShowHint, hoShowImages, hoShowSortGlyphs, hoVisible, hoHeaderClickAutoSort]
    HintMode = hmTooltip
    ShowHint = True
    TabOrder = 2
    TreeOptions.AutoOptions = [toAutoScrollOnExpand, toAutoSort, toAutoTristateTracking]
    TreeOptions.MiscOptions = [toCheckSupport, toGridExtensions, toToggleOnDblClick]
    TreeOptions.PaintOptions = [toHotTrack, toShowButtons, toShowHorzGridLines, toShowRoot, toShowTreeLines, toShowVertGridLines, toThemeAware, toUseBlendedSelection]
    TreeOptions.SelectionOptions = [toExtendedFocus, toFullRowSelect, toMultiSelect]
    OnCompareNodes = RegionsCompareNodes
    OnInitChildren = RegionsInitChildren
    OnInitNode = RegionsInitNode
    OnGetText = RegionsGetText
  end
  object DaysTree: TZORVirtualStringTree
    Left = 332
    Top = 280
    Width = 130
    Height = 184
    HintMode = hmTooltip
    IncrementalSearch = isVisibleOnly
    ShowHint = True
    TabOrder = 3
    TreeOptions.SelectionOptions = [toMultiSelect]
    CheckBoxStyle = True
    HeaderText = 'Dni tygodnia'
  end
  object PaymentsTree: TZORVirtualStringTree
    Left = 470
    Top = 280
    Width = 130
    Height = 184
    HintMode = hmTooltip
    IncrementalSearch = isVisibleOnly
    ShowHint = True
    TabOrder = 4
    TreeOptions.SelectionOptions = [toMultiSelect]
    Wymagany = wRecommended
    CheckBoxStyle = True
    HeaderText = 'P'#322'atno'#347#263
  end
  object CarriersTree: TZORVirtualStringTree
    Left = 608
    Top = 280
    Width = 136
    Height = 184
    HintMode = hmTooltip
    IncrementalSearch = isVisibleOnly
    ShowHint = True
    TabOrder = 5
    TreeOptions.SelectionOptions = [toMultiSelect]
    Wymagany = wError
    CheckBoxStyle = True
    HeaderText = 'Przewo'#378'nicy'
  end
  object CountBox: TCheckBox
    Left = 16
    Top = 474
    Width = 180
    Height = 17
    Caption = '&Licznik w nag'#322#243'wku'
    TabOrder = 6
    OnClick = CountClick
  end
  object AvailableBox: TCheckBox
    Left = 200
    Top = 474
    Width = 110
    Height = 17
    Caption = '&Dost'#281'pne'
    Checked = True
    State = cbChecked
    TabOrder = 7
    OnClick = AvailableClick
  end
  object MirrorBox: TCheckBox
    Left = 332
    Top = 474
    Width = 140
    Height = 17
    Caption = '&Od prawej do lewej'
    TabOrder = 8
    OnClick = MirrorClick
  end
  object StatusLabel: TLabel
    Left = 16
    Top = 502
    Width = 400
    Height = 15
    Caption = ''
  end
end
