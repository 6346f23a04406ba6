object OrdersPage: TOrdersPage
  Tag = 100
  Left = 0
  Top = 0
  Caption = 'Zam'#243'wienia'
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
      Caption = 'Zam'#243'wienia'
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
      Width = 500
      Height = 13
      Caption = 'Wiersze z bazy danych: zaw'#281#380'ane, zaznaczane, sumowane i zmieniane'
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
    Top = 56
    Width = 142
    Height = 237
    Anchors = [akLeft, akTop, akBottom]
    HintMode = hmTooltip
    IncrementalSearch = isVisibleOnly
    TabOrder = 1
    TreeOptions.SelectionOptions = [toMultiSelect]
    OnChecked = CitiesChecked
    CheckBoxStyle = True
    SearchEditVisible = True
    HeaderText = 'Miasta'
  end
  object OrdersGrid: TZORVirtualDBGrid
    Left = 166
    Top = 56
    Width = 578
    Height = 206
    Anchors = [akLeft, akTop, akRight, akBottom]
    Columns = <
      item
        Title.Caption = ''
        Width = 25
      end
      item
        FieldName = 'id'
        Title.Caption = 'Nr'
        Width = 52
      end
      item
        FieldName = 'ordered'
        Title.Caption = 'Z'#322'o'#380'one'
        Width = 84
      end
      item
        FieldName = 'customer'
        Title.Caption = 'Klient'
        Width = 80
      end
      item
        FieldName = 'city'
        Title.Caption = 'Miasto'
        Width = 80
      end
      item
        FieldName = 'goods'
        Title.Caption = 'Towary'
        Width = 98
      end
      item
        FieldName = 'shipping'
        Title.Caption = 'Dostawa'
        Width = 78
      end
      item
        FieldName = 'paid'
        Title.Caption = 'Zap'#322'.'
        Width = 48
      end>
    DataSource = OrdersSource
    CheckMode = True
    Footer.Height = 22
    Footer.Options = [hoVisible]
    Header.AutoSizeIndex = 3
    Header.Height = 22
    Header.Options = [hoAutoResize, hoColumnResize, hoDblClickResize, hoDrag, hoHotTrack, hoShowHint, hoVisible]
    HintMode = hmHint
    TabOrder = 2
    OnChecked = OrderChecked
    OnGetFooterText = FooterText
    OnFocusChanged = OrderFocused
    OnFocusChanging = OrderFocusing
    AfterInitNode = OrderRead
  end
  object MarkButton: TButton
    Left = 166
    Top = 268
    Width = 80
    Height = 25
    Anchors = [akLeft, akBottom]
    Caption = 'Za&znacz'
    TabOrder = 3
    OnClick = MarkClick
  end
  object UnmarkButton: TButton
    Left = 252
    Top = 268
    Width = 80
    Height = 25
    Anchors = [akLeft, akBottom]
    Caption = 'O&dznacz'
    TabOrder = 4
    OnClick = UnmarkClick
  end
  object OnlyMarkedButton: TButton
    Left = 338
    Top = 268
    Width = 120
    Height = 25
    Anchors = [akLeft, akBottom]
    Caption = '&Tylko zaznaczone'
    TabOrder = 5
    OnClick = OnlyMarkedClick
  end
  object ShowAllButton: TButton
    Left = 464
    Top = 268
    Width = 90
    Height = 25
    Anchors = [akLeft, akBottom]
    Caption = '&Wszystkie'
    TabOrder = 6
    OnClick = ShowAllClick
  end
  object CompareButton: TButton
    Left = 612
    Top = 268
    Width = 132
    Height = 25
    Anchors = [akRight, akBottom]
    Caption = '&Por'#243'wnaj z baz'#261
    TabOrder = 7
    OnClick = CompareClick
  end
  object CardGroup: TGroupBox
    Left = 16
    Top = 300
    Width = 402
    Height = 220
    Anchors = [akLeft, akBottom]
    Caption = 'Karta zam'#243'wienia'
    TabOrder = 8
    object NumberEdit: TZOREdit
      Left = 14
      Top = 33
      Width = 54
      Height = 23
      Color = clBtnFace
      ReadOnly = True
      TabOrder = 0
      TabStop = False
      BoundLabel.Active = True
      BoundLabel.Caption = 'Nr'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object CustomerBox: TZORComboBoxnew
      Left = 78
      Top = 33
      Width = 310
      Height = 23
      TabOrder = 1
      Wymagany = wRequired
      SmartSearch = True
      Style = csDropDownList
      HintLabel = 'kilka liter nazwiska'
      OnChange = CardChange
      BoundLabel.Active = True
      BoundLabel.Caption = '&Klient'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object OrderedEdit: TZORDateTimePickerEdit
      Left = 14
      Top = 80
      Width = 150
      Height = 23
      TabOrder = 2
      OnChange = CardChange
      Wymagany = wRequired
      DateFormat = dfLong
      BoundLabel.Active = True
      BoundLabel.Caption = 'Z'#322'o&'#380'one'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object DeliveredEdit: TZORDateTimePickerEdit
      Left = 174
      Top = 80
      Width = 114
      Height = 23
      TabOrder = 3
      OnChange = CardChange
      Wymagany = wRecommended
      HintLabel = 'jeszcze nie'
      BoundLabel.Active = True
      BoundLabel.Caption = 'Dosta&rczone'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object ShippingEdit: TZORFloatEdit
      Left = 298
      Top = 80
      Width = 90
      Height = 23
      Alignment = taRightJustify
      TabOrder = 4
      OnChange = CardChange
      MaxValue = 10000.000000000000000000
      Wymagany = wRequired
      BoundLabel.Active = True
      BoundLabel.Caption = 'D&ostawa'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object NoteMemo: TZORMemo
      Left = 14
      Top = 128
      Width = 250
      Height = 80
      ScrollBars = ssVertical
      TabOrder = 5
      OnChange = CardChange
      HintLabel = 'dla kierowcy'
      BoundLabel.Active = True
      BoundLabel.Caption = '&Uwagi'
      BoundLabel.Indent = 3
      BoundLabel.Font.Charset = EASTEUROPE_CHARSET
      BoundLabel.Font.Color = clWindowText
      BoundLabel.Font.Height = -12
      BoundLabel.Font.Name = 'Segoe UI'
      BoundLabel.Font.Style = []
      BoundLabel.Layout = clTopLeft
    end
    object PaidBox: TZORCheckBox
      Left = 276
      Top = 122
      Width = 112
      Height = 17
      Caption = 'Zap'#322'a&cone'
      TabOrder = 6
      OnClick = CardChange
    end
    object SaveButton: TButton
      Left = 276
      Top = 152
      Width = 112
      Height = 25
      Caption = 'Zapi&sz'
      Enabled = False
      TabOrder = 7
      OnClick = SaveClick
    end
    object CancelButton: TButton
      Left = 276
      Top = 183
      Width = 112
      Height = 25
      Caption = '&Anuluj'
      Enabled = False
      TabOrder = 8
      OnClick = CancelClick
    end
  end
  object ItemsGroup: TGroupBox
    Left = 426
    Top = 300
    Width = 318
    Height = 220
    Anchors = [akLeft, akRight, akBottom]
    Caption = 'Pozycje zam'#243'wienia'
    TabOrder = 9
    object ItemsGrid: TZORDBGrid
      Left = 8
      Top = 20
      Width = 302
      Height = 190
      Anchors = [akLeft, akTop, akRight, akBottom]
      Columns = <
        item
          FieldName = 'product'
          Title.Caption = 'Towar'
          Width = 98
        end
        item
          FieldName = 'quantity'
          Title.Alignment = taRightJustify
          Title.Caption = 'Ilo'#347#263
          Width = 38
        end
        item
          FieldName = 'price'
          Title.Alignment = taRightJustify
          Title.Caption = 'Cena'
          Width = 52
        end
        item
          FieldName = 'discount'
          Title.Alignment = taRightJustify
          Title.Caption = 'Rabat'
          Width = 48
        end
        item
          FieldName = 'amount'
          Title.Alignment = taRightJustify
          Title.Caption = 'Warto'#347#263
          Width = 62
        end>
      DataSource = ItemsSource
      Options = [dgEditing, dgTitles, dgColumnResize, dgColLines, dgRowLines, dgTabs, dgConfirmDelete, dgCancelOnExit]
      TabOrder = 0
      OnDrawTitleCell = DrawItemTitle
    end
  end
  object MessageLabel: TLabel
    Left = 16
    Top = 542
    Width = 728
    Height = 15
    Anchors = [akLeft, akRight, akBottom]
    AutoSize = False
    Caption = ''
    Font.Charset = EASTEUROPE_CHARSET
    Font.Color = clWindowText
    Font.Height = -12
    Font.Name = 'Segoe UI'
    Font.Style = []
    ParentFont = False
    ShowAccelChar = False
  end
  object StatusLabel: TLabel
    Left = 16
    Top = 524
    Width = 728
    Height = 15
    Anchors = [akLeft, akRight, akBottom]
    AutoSize = False
    Caption = ''
    Font.Charset = EASTEUROPE_CHARSET
    Font.Color = clWindowText
    Font.Height = -12
    Font.Name = 'Segoe UI'
    Font.Style = []
    ParentFont = False
    ShowAccelChar = False
  end
  object Orders: TZORADODataSet
    CommandText =
      'SELECT id, customer_id, ordered, delivered, paid, note, goods, s' +
      'hipping FROM orders ORDER BY id'
    OnCalcFields = OrdersCalcFields
    Left = 600
    Top = 8
    object OrdersId: TAutoIncField
      FieldName = 'id'
    end
    object OrdersCustomer_id: TIntegerField
      FieldName = 'customer_id'
    end
    object OrdersOrdered: TDateTimeField
      FieldName = 'ordered'
      DisplayFormat = 'ddddd'
    end
    object OrdersDelivered: TDateField
      FieldName = 'delivered'
    end
    object OrdersPaid: TBooleanField
      FieldName = 'paid'
    end
    object OrdersNote: TWideMemoField
      FieldName = 'note'
    end
    object OrdersGoods: TBCDField
      FieldName = 'goods'
      DisplayFormat = '#,##0.00'
      Precision = 12
      Size = 2
    end
    object OrdersShipping: TBCDField
      FieldName = 'shipping'
      DisplayFormat = '#,##0.00'
      Precision = 8
      Size = 2
    end
    object OrdersCustomer: TWideStringField
      FieldName = 'customer'
      FieldKind = fkCalculated
      Size = 60
    end
    object OrdersCity: TWideStringField
      FieldName = 'city'
      FieldKind = fkCalculated
      Size = 40
    end
  end
  object OrdersSource: TDataSource
    DataSet = Orders
    Left = 640
    Top = 8
  end
  object Items: TZORADODataSet
    CommandText =
      'SELECT id, order_id, product_id, quantity, price, discount FROM i' +
      'tems WHERE order_id = :id ORDER BY id'
    DataSource = OrdersSource
    Parameters = <
      item
        Name = 'id'
        DataType = ftInteger
        Value = Null
      end>
    AfterDelete = ItemsChanged
    AfterPost = ItemsChanged
    BeforeInsert = ItemsBeforeInsert
    OnCalcFields = ItemsCalcFields
    Left = 680
    Top = 8
    object ItemsId: TAutoIncField
      FieldName = 'id'
    end
    object ItemsOrder_id: TIntegerField
      FieldName = 'order_id'
    end
    object ItemsProduct_id: TIntegerField
      FieldName = 'product_id'
    end
    object ItemsQuantity: TIntegerField
      FieldName = 'quantity'
    end
    object ItemsPrice: TBCDField
      FieldName = 'price'
      DisplayFormat = '#,##0.00'
      Precision = 10
      Size = 2
    end
    object ItemsDiscount: TBCDField
      FieldName = 'discount'
      DisplayFormat = '0.# %'
      Precision = 4
      Size = 1
    end
    object ItemsProduct: TWideStringField
      FieldName = 'product'
      FieldKind = fkCalculated
      Size = 60
    end
    object ItemsAmount: TBCDField
      FieldName = 'amount'
      DisplayFormat = '#,##0.00'
      FieldKind = fkCalculated
      Precision = 12
      Size = 2
    end
  end
  object ItemsSource: TDataSource
    DataSet = Items
    OnStateChange = ItemsStateChange
    Left = 720
    Top = 8
  end
end
