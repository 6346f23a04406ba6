// The data grid: what it publishes, and how it follows its dataset. Painting, input and editing have files of their
// own.

#include "framework/dbgrid/dbgrid.h"
#include "framework/dbgrid/griddatalink.h"
#include "framework/dbgrid/inplaceedit.h"
#include "framework/dbgrid/picklistwindow.h"
#include "framework/graphics/textmetrics.h"

#include <algorithm>

namespace framework {

namespace {

constexpr TSize kInitialSize{320, 120};
constexpr int kIndicatorWidth = 15; // pixels
constexpr int kRowAir = 4;          // pixels above and below a line of text, together
constexpr int kTitleAir = 8;

} // namespace

const TEnumInfo& DescribeEnum(TDBGridOption) {
    static const TEnumInfo info{u"TDBGridOption",
                                {u"dgEditing", u"dgAlwaysShowEditor", u"dgTitles", u"dgIndicator", u"dgColumnResize",
                                 u"dgColLines", u"dgRowLines", u"dgTabs", u"dgRowSelect", u"dgAlwaysShowSelection",
                                 u"dgConfirmDelete", u"dgCancelOnExit", u"dgMultiSelect", u"dgTitleClick",
                                 u"dgTitleHotTrack"}};
    return info;
}

const TEnumInfo& DescribeEnum(TGridDrawingStyle) {
    static const TEnumInfo info{u"TGridDrawingStyle", {u"gdsClassic", u"gdsThemed", u"gdsGradient"}};
    return info;
}

const TClassInfo& TCustomDBGrid::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TCustomDBGrid>(u"TCustomDBGrid", TCustomControl::StaticClass(), {controlrows::TabStop(true)});
    return info;
}

const TClassInfo& TDBGrid::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TDBGrid>(u"TDBGrid", TCustomDBGrid::StaticClass(), {dbgridrows::All()});
    return info;
}

TPropRows dbgridrows::All() {
    namespace row = controlrows;
    using G = TCustomDBGrid;
    return {row::Align(),
            row::Anchors(),
            row::BiDiMode(),
            row::ControlBorder(Property<&G::GetBorderStyle, &G::SetBorderStyle>(u"BorderStyle", bsSingle)),
            row::Color(clWindow),
            Property<&G::GetColumns, &G::SetColumns>(u"Columns").StoredWhen<&G::ColumnsStored>(),
            row::Constraints(),
            row::Ctl3D(),
            Property<&G::GetDataSource, &G::SetDataSource>(u"DataSource"),
            Property<&G::GetDefaultDrawing, &G::SetDefaultDrawing>(u"DefaultDrawing", true),
            row::DoubleBuffered(),
            Property<&G::GetDrawingStyle, &G::SetDrawingStyle>(u"DrawingStyle", gdsThemed),
            row::Enabled(),
            Property<&G::GetFixedColor, &G::SetFixedColor>(u"FixedColor", clBtnFace).Named(ColorIdentifiers()),
            Property<&G::GetGradientEndColor, &G::SetGradientEndColor>(u"GradientEndColor", clBtnFace)
                .Named(ColorIdentifiers()),
            Property<&G::GetGradientStartColor, &G::SetGradientStartColor>(u"GradientStartColor", clWhite)
                .Named(ColorIdentifiers()),
            row::Font(),
            Property<&G::GetOptions, &G::SetOptions>(u"Options", DefaultDBGridOptions),
            row::ParentLinks(false),
            Property<&G::GetReadOnly, &G::SetReadOnly>(u"ReadOnly", false),
            row::ShowHint(),
            row::TabOrder(),
            row::TabStop(true),
            Property<&G::GetTitleFont, &G::SetTitleFont>(u"TitleFont").StoredWhen<&G::TitleFontStored>(),
            row::Visible(),
            Event<&G::OnCellClick>(u"OnCellClick"),
            Event<&G::OnColEnter>(u"OnColEnter"),
            Event<&G::OnColExit>(u"OnColExit"),
            Event<&G::OnColumnMoved>(u"OnColumnMoved"),
            Event<&G::OnDrawDataCell>(u"OnDrawDataCell"),
            Event<&G::OnDrawColumnCell>(u"OnDrawColumnCell"),
            row::OnDblClick(),
            Event<&G::OnEditButtonClick>(u"OnEditButtonClick"),
            row::FocusEvents(),
            row::KeyEvents(),
            row::MouseEvents(),
            row::OnMouseWheel(),
            Event<&G::OnTitleClick>(u"OnTitleClick")};
}

// The grid

TCustomDBGrid::TCustomDBGrid(TComponent* owner)
    : TCustomGrid(owner), FColumns(std::make_unique<TDBGridColumns>(this)),
      FDataLink(std::make_unique<TGridDataLink>(*this)), FTitleFont([this] { LayoutChanged(); }) {
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
}

TCustomDBGrid::~TCustomDBGrid() {
    Destroying();
    FDataLink.reset();
}

void TCustomDBGrid::CreateWnd() {
    TLifeGuard alive(*this);
    TCustomGrid::CreateWnd();
    if (alive)
        LayoutChanged();
}

void TCustomDBGrid::Loaded() {
    TCustomGrid::Loaded();
    LayoutChanged();
}

void TCustomDBGrid::Notification(TComponent* component, TOperation operation) {
    TCustomGrid::Notification(component, operation);
    if (operation != opRemove || IsDestroying())
        return;
    if (component == FListWindow)
        FListWindow = nullptr;
    if (const auto* field = As<TField>(component)) {
        FColumns->ForgetField(field);
        if (field == FEditedField)
            FEditedField = nullptr;
    } else if (FDataLink && component == GetDataSource())
        SetDataSource(nullptr);
}

TDataSource* TCustomDBGrid::GetDataSource() const {
    return FDataLink->GetDataSource();
}

void TCustomDBGrid::SetDataSource(TDataSource* value) {
    if (value == FDataLink->GetDataSource())
        return;
    TLifeGuard alive(*this);
    FDataLink->SetDataSource(value);
    if (alive && value && GetDataSource() == value)
        value->FreeNotification(this);
}

TDataSet* TCustomDBGrid::GetDataSet() const {
    return FDataLink ? FDataLink->GetDataSet() : nullptr;
}

bool TCustomDBGrid::IsDataActive() const {
    return FDataLink && FDataLink->GetActive();
}

TDataLink& TCustomDBGrid::GetDataLink() const {
    return *FDataLink;
}

TColumn* TCustomDBGrid::ColumnOfCell(int cell) const {
    const int index = cell - IndicatorOffset();
    return index >= 0 && index < FColumns->GetCount() ? FColumns->GetColumn(index) : nullptr;
}

int TCustomDBGrid::GetShownRowCount() const {
    return std::max(Geometry().RowCount - TitleOffset(), 0);
}

// What the columns and the link tell

void TCustomDBGrid::ColumnsChanged(TColumn*) {
    LayoutChanged();
}

void TCustomDBGrid::ColumnLeaves(int index) {
    if (index == FSelectedIndex)
        HideEditor();
    if (index < FSelectedIndex)
        --FSelectedIndex;
}

void TCustomDBGrid::ActiveChanged() {
    TLifeGuard alive(*this);
    HideEditor();
    if (!alive)
        return;
    FSelectedRows.Clear();
    LayoutChanged();
}

void TCustomDBGrid::LayoutChanged() {
    if (IsLoading() || IsDestroying() || !FDataLink || PutOff())
        return;
    FLayoutPending = false;
    TLifeGuard alive(*this);
    FColumns->FollowFields();
    FollowFocusColumn();
    if (!HandleAllocated())
        return;
    LeaveStrayEditor();
    if (!alive)
        return;
    MeasureRows();
    SetGridLines({FOptions.Contains(dgColLines), FOptions.Contains(dgRowLines)});
    std::vector<TColumnExtent> extents;
    if (IndicatorOffset() > 0)
        extents.push_back({kIndicatorWidth, true});
    for (int i = 0; i < FColumns->GetCount(); ++i) {
        const TColumn& column = *FColumns->GetColumn(i);
        extents.push_back({column.GetWidth(), column.GetVisible()});
    }
    SetGeometry(std::move(extents), IndicatorOffset(), TitleOffset(), FTitleHeight, FRowHeight);
    if (alive)
        VisibleRowsChanged();
    if (alive)
        RefreshEditor();
}

/// The focus stays with its column when others come, go or change places.
void TCustomDBGrid::FollowFocusColumn() {
    if (!FFocusColumnLife.expired() && FFocusColumn->GetCollection() == FColumns.get())
        FSelectedIndex = FFocusColumn->GetIndex();
    SetFocusColumn(ShownColumn(FSelectedIndex));
}

void TCustomDBGrid::SetFocusColumn(int index) {
    FSelectedIndex = index;
    FFocusColumn = index < FColumns->GetCount() ? FColumns->GetColumn(index) : nullptr;
    FFocusColumnLife = FFocusColumn ? FFocusColumn->LifeToken() : std::weak_ptr<const void>();
}

/// The index, or the nearest of a column that shows.
int TCustomDBGrid::ShownColumn(int index) const {
    const int count = FColumns->GetCount();
    index = std::clamp(index, 0, std::max(count - 1, 0));
    for (int i = index; i < count; ++i) {
        if (FColumns->GetColumn(i)->GetVisible())
            return i;
    }
    for (int i = index - 1; i >= 0; --i) {
        if (FColumns->GetColumn(i)->GetVisible())
            return i;
    }
    return index;
}

/// The cell with the focus may show another field than the one that is being edited.
void TCustomDBGrid::LeaveStrayEditor() {
    if (!GetEditorMode() || GetSelectedField() == FEditedField)
        return;
    const TAtScopeEnd hidden(*this, [this] { HideEditor(); });
    StoreEditor();
}

bool TCustomDBGrid::PutOff() {
    if (FScopes == 0)
        return false;
    if (!std::exchange(FLayoutPending, true) && HandleAllocated())
        PostMessageW(FHandle, kLayoutMessage, 0, 0);
    return true;
}

void TCustomDBGrid::MeasureRows() {
    int text = TTextMeasure(*GetFont()).LineHeight();
    int title = TTextMeasure(*GetTitleFont()).LineHeight();
    for (int i = 0; i < FColumns->GetCount(); ++i) {
        const TColumn& column = *FColumns->GetColumn(i);
        if (column.IsFontStored())
            text = std::max(text, TTextMeasure(*column.GetFont()).LineHeight());
        if (column.GetTitle()->IsFontStored())
            title = std::max(title, TTextMeasure(*column.GetTitle()->GetFont()).LineHeight());
    }
    FRowHeight = text + kRowAir + (FOptions.Contains(dgRowLines) ? 1 : 0);
    FTitleHeight = title + kTitleAir;
}

void TCustomDBGrid::VisibleRowsChanged() {
    if (!HandleAllocated() || !FDataLink || PutOff())
        return;
    TLifeGuard alive(*this);
    FDataLink->SetBufferCount(Geometry().VisibleRows());
    if (!alive)
        return;
    UpdateRows();
    if (alive)
        Invalidate();
}

/// As many rows as the link sees; one to type into where there are none.
void TCustomDBGrid::UpdateRows() {
    if (!HandleAllocated() || PutOff())
        return;
    const int records = IsDataActive() ? std::max(FDataLink->GetRecordCount(), 1) : 0;
    SetRowCount(TitleOffset() + records);
    SetFocusCell(records > 0 && FColumns->GetCount() > 0
                     ? TGridCoord{FSelectedIndex + IndicatorOffset(), TitleOffset() + FDataLink->GetActiveRecord()}
                     : TGridCoord{});
    UpdateScrollBar();
    PlaceEditor();
}

void TCustomDBGrid::DataChanged() {
    if (!HandleAllocated() || PutOff())
        return;
    TLifeGuard alive(*this);
    FSelectedRows.Refresh();
    if (!alive)
        return;
    // What was entered has been stored or given up, unless the record is still being edited.
    if (!FDataLink->GetEditing())
        HideEditor();
    if (!alive)
        return;
    UpdateRows();
    if (!alive)
        return;
    Invalidate();
    TellFocus();
    RefreshEditor();
    if (alive)
        ShowEditorAgain();
}

void TCustomDBGrid::DataScrolled(int rows) {
    if (!HandleAllocated() || PutOff())
        return;
    TLifeGuard alive(*this);
    HideEditor();
    if (!alive)
        return;
    if (rows != 0) {
        InvalidateRow(FocusCell().Y); // it moves along and loses its mark
        ScrollRowsBy(rows);
    }
    UpdateRows();
    if (!alive)
        return;
    InvalidateRow(FocusCell().Y);
    TellFocus();
    ShowEditorAgain();
}

void TCustomDBGrid::RecordChanged(TField* field) {
    if (!HandleAllocated() || PutOff())
        return;
    for (int i = 0; field && i < FColumns->GetCount(); ++i) {
        if (FColumns->GetColumn(i)->GetField() == field)
            InvalidateCell(i + IndicatorOffset(), FocusCell().Y);
    }
    if (!field)
        InvalidateRow(FocusCell().Y);
    if (!field || field == GetSelectedField())
        RefreshEditor();
}

void TCustomDBGrid::EditingChanged() {
    if (!FDataLink->GetEditing())
        FBegunHere = FAppended = false;
    InvalidateCell(0, FocusCell().Y);
}

void TCustomDBGrid::FocusField(TField* field) {
    const TColumn* column = FColumns->FindField(field);
    if (!column || !column->GetVisible() || !CanFocus())
        return;
    TLifeGuard alive(*this);
    SetSelectedIndex(column->GetIndex());
    if (!alive || !CanFocus() || Focused())
        return;
    // Of several grids over the dataset the one in which the person works shows him the field.
    for (const TControl* each = FindControl(::GetFocus()); each; each = each->GetParent()) {
        const auto* other = As<TCustomDBGrid>(each);
        if (other && other->GetDataSet() == GetDataSet() && other->FColumns->FindField(field))
            return;
    }
    SetFocus();
}

void TCustomDBGrid::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomGrid::CMFontChanged(message);
    if (alive)
        LayoutChanged();
}

void TCustomDBGrid::ChangeScale(int m, int d) {
    if (m != d) {
        for (int i = 0; i < FColumns->GetCount(); ++i)
            FColumns->GetColumn(i)->Scale(m, d);
        FTitleFont.Scale(m, d);
    }
    TCustomGrid::ChangeScale(m, d);
}

// Properties

void TCustomDBGrid::SetDefaultDrawing(bool value) {
    if (FDefaultDrawing == value)
        return;
    FDefaultDrawing = value;
    Invalidate();
}

void TCustomDBGrid::SetDrawingStyle(TGridDrawingStyle value) {
    if (FDrawingStyle == value)
        return;
    FDrawingStyle = value;
    FLooks.reset();
    Invalidate();
}

void TCustomDBGrid::SetFixedColor(TColor value) {
    if (FFixedColor == value)
        return;
    FFixedColor = value;
    Invalidate();
}

void TCustomDBGrid::SetGradientEndColor(TColor value) {
    if (FGradientEndColor == value)
        return;
    FGradientEndColor = value;
    Invalidate();
}

void TCustomDBGrid::SetGradientStartColor(TColor value) {
    if (FGradientStartColor == value)
        return;
    FGradientStartColor = value;
    Invalidate();
}

void TCustomDBGrid::SetOptions(TDBGridOptions value) {
    if (FOptions == value)
        return;
    TLifeGuard alive(*this);
    SetEditorMode(false);
    if (!alive)
        return;
    FOptions = value;
    if (!value.Contains(dgMultiSelect))
        FSelectedRows.Clear();
    LayoutChanged();
    if (alive)
        ShowEditorAgain();
}

void TCustomDBGrid::SetReadOnly(bool value) {
    if (FReadOnly == value)
        return;
    TLifeGuard alive(*this);
    SetEditorMode(false);
    if (!alive)
        return;
    FReadOnly = value;
    FDataLink->SetReadOnly(value);
    if (alive)
        LayoutChanged();
}

TField* TCustomDBGrid::GetSelectedField() const {
    return FSelectedIndex < FColumns->GetCount() ? GetFields(FSelectedIndex) : nullptr;
}

void TCustomDBGrid::SetSelectedField(TField* value) {
    if (const TColumn* column = FColumns->FindField(value))
        SetSelectedIndex(column->GetIndex());
}

void TCustomDBGrid::SetSelectedIndex(int value) {
    GoToColumn(ShownColumn(value));
}

void RegisterDBGrid() {
    RegisterClasses({&TDBGrid::StaticClass()});
}

} // namespace framework
