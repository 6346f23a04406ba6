// The virtual data grid: its life, its columns, selection and focus.

#include "data/Zorvirtualdbgrid.h"

#include "data/Zorvirtualdbgrid_parts.h"
#include "foundation/Zorpalette.h"
#include "framework/system/strings.h"
#include "framework/system/updates.h"
#include "framework/windows/forms.h"

#include <algorithm>

namespace ZOR {

namespace {

constexpr int kCheckColumnWidth = 25; // pixels of a form that is not scaled

constexpr TVTMiscOptions kMiscOptions = DefaultMiscOptions + TVTMiscOptions{toGridExtensions};
constexpr TVTPaintOptions kPaintOptions =
    DefaultPaintOptions - TVTPaintOptions{toShowTreeLines} +
    TVTPaintOptions{toShowVertGridLines, toFullVertGridLines, toUseBlendedSelection};
constexpr TVTSelectionOptions kSelectionOptions{toMultiSelect, toExtendedFocus, toFullRowSelect};
constexpr TVTHeaderOptions kHeaderOptions = DefaultHeaderOptions + TVTHeaderOptions{hoVisible};

/// What text forms leave out is what the grid begins with.
class TVirtualDBGridOptions final : public TVirtualTreeOptions {
    FRAMEWORK_CLASS(TVirtualDBGridOptions)

public:
    explicit TVirtualDBGridOptions(TBaseVirtualTree* tree) : TVirtualTreeOptions(tree) {
        SetMiscOptions(kMiscOptions);
        SetPaintOptions(kPaintOptions);
        SetSelectionOptions(kSelectionOptions);
    }
};

const TClassInfo& TVirtualDBGridOptions::StaticClass() {
    using O = TVirtualTreeOptions;
    static const TClassInfo info = DescribeClass<TVirtualDBGridOptions>(
        u"TVirtualDBGridOptions", O::StaticClass(),
        {Property<&O::GetMiscOptions, &O::SetMiscOptions>(u"MiscOptions", kMiscOptions),
         Property<&O::GetPaintOptions, &O::SetPaintOptions>(u"PaintOptions", kPaintOptions),
         Property<&O::GetSelectionOptions, &O::SetSelectionOptions>(u"SelectionOptions", kSelectionOptions)});
    return info;
}

class TVirtualDBGridHeader final : public TVTHeader {
    FRAMEWORK_CLASS(TVirtualDBGridHeader)

public:
    explicit TVirtualDBGridHeader(TBaseVirtualTree* tree) : TVTHeader(tree) { SetOptions(kHeaderOptions); }
};

const TClassInfo& TVirtualDBGridHeader::StaticClass() {
    static const TClassInfo info = DescribeClass<TVirtualDBGridHeader>(
        u"TVirtualDBGridHeader", TVTHeader::StaticClass(),
        {Property<&TVTHeader::GetOptions, &TVTHeader::SetOptions>(u"Options", kHeaderOptions)});
    return info;
}

/// Its columns are those of the grid, and what they say comes from the data: text forms do without them.
class TVirtualDBGridFooter final : public TVTHeader {
    FRAMEWORK_CLASS(TVirtualDBGridFooter)

public:
    using TVTHeader::TVTHeader;
};

const TClassInfo& TVirtualDBGridFooter::StaticClass() {
    static const TClassInfo info = DescribeClass<TVirtualDBGridFooter>(
        u"TVirtualDBGridFooter", TVTHeader::StaticClass(),
        {Property<&TVTHeader::GetColumns, &TVTHeader::SetColumns>(u"Columns").NotStored()});
    return info;
}

} // namespace

const TClassInfo& TZORVirtualDBGrid::StaticClass() {
    using G = TZORVirtualDBGrid;
    static const TClassInfo info = DescribeClass<G>(
        u"TZORVirtualDBGrid", TVirtualDrawTree::StaticClass(),
        {Property<&G::GetNodeDataSize, &G::SetNodeDataSize>(u"NodeDataSize", 0).NotStored(), // both follow the data
         Property<&G::GetRootNodeCount, &G::SetRootNodeCount>(u"RootNodeCount", 0).NotStored(),
         Event<&G::OnDrawTextNode>(u"OnDrawTextNode"), Event<&G::OnGetFooterText>(u"OnGetFooterText"),
         Event<&G::AfterInitNode>(u"AfterInitNode"),
         Property<&G::GetColumns, &G::SetColumns>(u"Columns").StoredWhen<&G::ColumnsStored>(),
         Property<&G::GetSelectedField, &G::SetSelectedField>(u"SelectedField").NotStored(), // what a person does
         Property<&G::GetSelectedFieldName>(u"SelectedFieldName").NotStored(),
         Property<&G::GetDataSource, &G::SetDataSource>(u"DataSource"),
         Property<&G::GetFixedColor, &G::SetFixedColor>(u"FixedColor", clBtnFace).Named(ColorIdentifiers()),
         Property<&G::GetGradientEndColor, &G::SetGradientEndColor>(u"GradientEndColor", clBtnFace)
             .Named(ColorIdentifiers()),
         Property<&G::GetTitleFont, &G::SetTitleFont>(u"TitleFont").StoredWhen<&G::TitleFontStored>(),
         Property<&G::GetIdColumnName, &G::SetIdColumnName>(u"id_column_name").StoredWhen<&G::IdColumnNameStored>(),
         Property<&G::GetGuidColumnName, &G::SetGuidColumnName>(u"guid_column_name")
             .StoredWhen<&G::GuidColumnNameStored>(),
         Property<&G::Get_ColumnFocusLocked, &G::Set_ColumnFocusLocked>(u"ColumnFocusLocked", false),
         Property<&G::GetCheckMode, &G::SetCheckMode>(u"CheckMode", false),
         Property<&G::GetFooter, &G::SetFooter>(u"Footer"), Event<&G::OnFooterDraw>(u"OnFooterDraw")});
    return info;
}

TZORVirtualDBGrid::TZORVirtualDBGrid(TComponent* owner)
    : TVirtualDrawTree(owner), FDataLink(std::make_unique<TVirtualDBGridDataLink>(*this)),
      FHolder(new TColumnHolder(*this)), FFooter(std::make_unique<TVirtualDBGridFooter>(this)) {
    InitializeGrid();
}

TZORVirtualDBGrid::~TZORVirtualDBGrid() {
    Destroying();
    DestroyHandle();
    FPainting.reset();
    FDataLink.reset();
    Clear(); // while the rows' memory is there
    delete std::exchange(FHolder, nullptr);
}

void TZORVirtualDBGrid::InitializeGrid() {
    UseOptions(std::make_unique<TVirtualDBGridOptions>(this));
    UseHeader(std::make_unique<TVirtualDBGridHeader>(this));
    OnDrawNode = TOwnDrawing{this};
}

void TZORVirtualDBGrid::Loaded() {
    TLifeGuard alive(*this);
    TVirtualDrawTree::Loaded();
    if (!alive)
        return;
    FRemakes = false; // the form has brought the columns as they were
    FooterChanged();
    if (GetColumns()->GetCount() > 0)
        RefreshColumns();
    BuildTree();
}

void TZORVirtualDBGrid::ChangeScale(int m, int d) {
    if (m != d) {
        FMirroring = true;
        const TAtScopeEnd done(*this, [this] { FMirroring = false; });
        FHolder->ChangeScale(m, d);
        FFooter->ChangeScale(m, d);
        FColumnsChanged = true;
    }
    TVirtualDrawTree::ChangeScale(m, d);
}

void TZORVirtualDBGrid::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TVirtualDrawTree::CMFontChanged(message);
    if (!alive || !FHolder)
        return;
    FHolder->SetFont(GetFont()); // by which columns that nobody has sized are measured
    FFooter->ParentFontChanged();
}

void TZORVirtualDBGrid::SetFixedColor(TColor value) {
    FHolder->SetFixedColor(value);
    GetHeader()->SetBackground(value);
    FFooter->SetBackground(value);
}

void TZORVirtualDBGrid::SetFooter(TVTHeader* value) {
    FFooter->Assign(value);
    FRemakes = true; // its columns are those of this grid
    ColumnsChanged();
}

void TZORVirtualDBGrid::SetCheckMode(bool value) {
    if (FCheckMode == value)
        return;
    FCheckMode = value;
    // The boxes stand where those of a tree would have its buttons.
    TVirtualTreeOptions& options = *GetTreeOptions();
    const TVTMiscOptions support{toCheckSupport};
    const TVTPaintOptions indent{toShowRoot};
    if (value) {
        FAddedSupport = !HasMisc(toCheckSupport);
        FTookIndent = HasPaint(toShowRoot);
        options.SetMiscOptions(options.GetMiscOptions() + support);
        options.SetPaintOptions(options.GetPaintOptions() - indent);
    } else {
        if (FAddedSupport)
            options.SetMiscOptions(options.GetMiscOptions() - support);
        if (FTookIndent)
            options.SetPaintOptions(options.GetPaintOptions() + indent);
    }
    for (TVirtualNode* node = GetRootNode()->GetFirstChild(); node; node = node->GetNextSibling()) {
        if (value)
            OfferBox(node);
        else if (node->GetCheckType() == ctCheckBox)
            SetCheckType(node, ctNone);
    }
    FRemakes = true;
    if (!IsLoading() && GetColumns()->GetCount() > 0)
        RefreshColumns();
}

void TZORVirtualDBGrid::OfferBox(TVirtualNode* node) {
    if (FCheckMode && node->GetCheckType() == ctNone)
        SetCheckType(node, ctCheckBox);
}

// Columns

TColumn* TZORVirtualDBGrid::Get_Column(const String& name) const {
    for (int i = 0; i < GetColumns()->GetCount(); ++i) {
        if (AnsiSameText(GetColumns()->GetColumn(i)->GetFieldName(), name))
            return GetColumns()->GetColumn(i);
    }
    return nullptr;
}

int TZORVirtualDBGrid::GetColumnByX(int x) {
    GetOffsetX(); // brings the layout up to date
    std::vector<TGridColumn> columns;
    const TVirtualTreeColumns& shown = *GetHeader()->GetColumns();
    for (int i = 0; i < shown.GetCount(); ++i) {
        const TVirtualTreeColumn& column = *shown.GetColumn(i);
        columns.push_back({column.GetLeft(), column.GetWidth(), column.IsVisible()});
    }
    return ColumnByX(columns, ContentX(x));
}

/// The hidden data grid has other columns, or the same ones look otherwise. They are taken over when the grid is
/// painted next, once for however many changes.
void TZORVirtualDBGrid::ColumnsChanged() {
    if (IsDestroying() || !FHolder)
        return;
    std::erase_if(FTotals, [this](const auto& each) { return !TotalOf(each.first); });
    if (FWalk)
        PrepareWalk(*FWalk);
    if (FMirroring)
        return;
    FColumnsChanged = true;
    Invalidate();
    InvalidateFooter();
}

void TZORVirtualDBGrid::FixCheckColumn(TVirtualTreeColumn& column) const {
    if (!FCheckMode || column.GetIndex() != GetHeader()->GetMainColumn())
        return;
    const TCustomForm* form = IsLoading() ? nullptr : GetParentForm(this); // it is scaled with all that is on it
    const int width =
        form ? MulDiv(kCheckColumnWidth, form->GetPixelsPerInch(), USER_DEFAULT_SCREEN_DPI) : kCheckColumnWidth;
    column.SetMinWidth(width);
    column.SetMaxWidth(width);
    column.SetWidth(width);
}

/// Gives header and footer as many columns as there are; those of one that has them already stay unless `all`.
void TZORVirtualDBGrid::RemakeColumns(bool all) {
    TVTHeader& header = *GetHeader();
    const TColumnIndex mainColumn = header.GetMainColumn();
    const TColumnIndex autoSizeIndex = header.GetAutoSizeIndex();
    const int count = GetColumns()->GetCount();
    FShownColumns.clear();
    for (TVTHeader* each : {&header, FFooter.get()}) {
        TVirtualTreeColumns& columns = *each->GetColumns();
        if (!all && columns.GetCount() == count)
            continue;
        WithinUpdate(columns, [&] {
            columns.Clear();
            while (columns.GetCount() < count)
                columns.Add();
        });
        each->SetMainColumn(mainColumn);
        for (int i = 0; i < count; ++i)
            FixCheckColumn(*columns.GetColumn(i));
    }
    header.SetAutoSizeIndex(autoSizeIndex);
    for (int i = 0; HasHeaderDraw() && i < count; ++i)
        header.GetColumns()->GetColumn(i)->SetStyle(vsOwnerDraw);
}

/// Takes one column over; true when something in the header is otherwise than before. What a column has from its field
/// stays while the dataset is closed.
bool TZORVirtualDBGrid::MirrorColumn(int index) {
    const TColumn& source = *GetColumns()->GetColumn(index);
    TVirtualTreeColumn& shown = *GetHeader()->GetColumns()->GetColumn(index);
    TVirtualTreeColumn& footer = *FFooter->GetColumns()->GetColumn(index);
    const auto looks = [&] {
        return std::tuple(shown.GetText(), shown.GetPosition(), shown.IsVisible(), shown.GetWidth(),
                          shown.GetAlignment(), footer.GetPosition(), footer.IsVisible(), footer.GetWidth());
    };
    const auto before = looks();
    FShownColumns.resize(static_cast<std::size_t>(GetColumns()->GetCount()), -1);
    int& shownID = FShownColumns[static_cast<std::size_t>(index)];
    const bool follows = std::exchange(shownID, source.GetID()) != source.GetID() || source.GetField();
    const bool centered = ShowsCheckMark(index) && !source.IsAlignmentStored();
    if (follows || source.GetTitle()->IsCaptionStored())
        shown.SetText(source.GetTitle()->GetCaption());
    for (TVirtualTreeColumn* column : {&shown, &footer}) {
        column->SetPosition(index);
        const TVTColumnOptions visible{coVisible};
        column->SetOptions(source.GetVisible() ? column->GetOptions() + visible : column->GetOptions() - visible);
        if (follows || source.IsAlignmentStored())
            column->SetAlignment(centered ? taCenter : source.GetAlignment());
        if (follows || source.IsWidthStored())
            column->SetWidth(source.GetWidth());
    }
    return looks() != before;
}

/// Of the column that the header shows at an index; -1 when it shows none yet.
int TZORVirtualDBGrid::ShownID(TColumnIndex index) const {
    return index >= 0 && index < static_cast<int>(FShownColumns.size()) ? FShownColumns[static_cast<std::size_t>(index)]
                                                                        : -1;
}

/// Where the column with an ID is now. One that is gone leaves its place, and the focus, to its neighbour.
TColumnIndex TZORVirtualDBGrid::PlaceOf(int id, TColumnIndex before) const {
    const TCollectionItem* column = id < 0 ? nullptr : GetColumns()->FindItemID(id);
    if (column)
        return column->GetIndex();
    return id < 0 ? before : std::min(before, GetColumns()->GetCount() - 1);
}

void TZORVirtualDBGrid::RefreshColumns() {
    if (FMirroring)
        return;
    TLifeGuard alive(*this);
    bool changed = false;
    {
        FMirroring = true;
        const TAtScopeEnd done(*this, [this] { FMirroring = false; });
        FColumnsChanged = false;
        changed = MirrorColumns();
    }
    if (!alive)
        return;
    FMirrored = true;
    ClearHintColumns();
    if (!changed)
        return;
    InvalidateFooter();
    UpdateHorizontalRange();
}

/// Takes all columns over; true when something is otherwise than before. What goes by their indexes stays with them.
bool TZORVirtualDBGrid::MirrorColumns() {
    const int count = GetColumns()->GetCount();
    const TColumnIndex focused = GetFocusedColumn();
    const TColumnIndex sorted = GetHeader()->GetSortColumn();
    const int focusedID = ShownID(focused);
    const int sortedID = ShownID(sorted);
    const int keptID = ShownID(FFocusedColumn);
    const bool anyStays = std::any_of(FShownColumns.begin(), FShownColumns.end(),
                                      [&](int id) { return GetColumns()->FindItemID(id) != nullptr; });
    const bool all = std::exchange(FRemakes, false);
    bool changed = all || GetHeader()->GetColumns()->GetCount() != count || FFooter->GetColumns()->GetCount() != count;
    if (changed)
        RemakeColumns(all);
    for (int i = 0; i < count; ++i)
        changed = MirrorColumn(i) || changed;
    if (TitleFontStored())
        GetHeader()->SetFont(GetTitleFont());
    FFocusedColumn = PlaceOf(keptID, FFocusedColumn);
    RenumberFocus(std::min(PlaceOf(focusedID, focused), count - 1));
    // Where none is left, they have been made anew from the fields.
    const bool isGone = sorted >= count || (anyStays && sortedID >= 0 && !GetColumns()->FindItemID(sortedID));
    GetHeader()->SetSortColumn(isGone ? NoColumn : PlaceOf(sortedID, sorted));
    return changed;
}

void TZORVirtualDBGrid::DoColumnResize(TColumnIndex column) {
    if (FMirroring)
        return; // it has the width from the column that it shows
    TLifeGuard alive(*this);
    TVirtualDrawTree::DoColumnResize(column);
    if (!alive)
        return;
    const TVirtualTreeColumns& shown = *GetHeader()->GetColumns();
    if (!shown.IsValidColumn(column) || column >= GetColumns()->GetCount())
        return;
    {
        FMirroring = true;
        const TAtScopeEnd done(*this, [this] { FMirroring = false; });
        const int width = shown.GetColumn(column)->GetWidth();
        GetColumns()->GetColumn(column)->SetWidth(width);
        if (FFooter->GetColumns()->IsValidColumn(column))
            FFooter->GetColumns()->GetColumn(column)->SetWidth(width);
    }
    if (alive)
        InvalidateFooter();
}

bool TZORVirtualDBGrid::DoHeaderDragging(TColumnIndex column) {
    return MayDragColumn(FCheckMode, column, GetHeader()->GetMainColumn()) &&
           TVirtualDrawTree::DoHeaderDragging(column);
}

void TZORVirtualDBGrid::DoHeaderDragged(TColumnIndex column, int oldPosition) {
    TLifeGuard alive(*this);
    TVirtualDrawTree::DoHeaderDragged(column, oldPosition);
    if (!alive)
        return;
    TVTHeader& header = *GetHeader();
    if (!header.GetColumns()->IsValidColumn(column) || column >= GetColumns()->GetCount())
        return;
    const int position = header.GetColumns()->GetColumn(column)->GetPosition();
    if (position < 0 || position == oldPosition)
        return;
    if (!MayDropColumn(FCheckMode, column, position, header.GetMainColumn()))
        return RefreshColumns();
    TColumn& moved = *GetColumns()->GetColumn(column);
    const TField* target = FieldOf(position);
    if (!GetColumns()->IsCustomized() && moved.GetField() && target)
        moved.GetField()->SetIndex(target->GetIndex()); // the columns follow the fields
    else
        moved.SetIndex(position);
    if (alive)
        RefreshColumns();
}

// Selection

void TZORVirtualDBGrid::Get_Selected(std::vector<TRowId>* selected) {
    if (!selected)
        return;
    TVirtualNode* node = Get_FirstSelectedNode();
    if (!node)
        return;
    if (GetSelectedCount() == 0)
        return selected->push_back(GetRowId(node));
    selected->reserve(selected->size() + static_cast<std::size_t>(GetSelectedCount()));
    for (; node; node = GetNextSelected(node))
        selected->push_back(GetRowId(node));
}

int TZORVirtualDBGrid::Get_SelectedCount() {
    TLifeGuard alive(*this);
    CatchUp();
    return alive ? GetSelectedCount() : 0;
}

TVirtualNode* TZORVirtualDBGrid::Get_FirstSelectedNode() {
    TLifeGuard alive(*this);
    CatchUp();
    TVirtualNode* node = alive ? GetFirstSelected() : nullptr;
    if (node || !alive)
        return node;
    node = GetRootNode()->GetFirstChild();
    return node && IsLeftOver(node) ? nullptr : node;
}

/// A row for which a filter left no record; it does not show.
bool TZORVirtualDBGrid::IsLeftOver(TVirtualNode* node) const {
    return !node->Has(vsVisible) && GetRowBookmark(node).IsEmpty();
}

void TZORVirtualDBGrid::ApplyFocusedColumn() {
    if (!FColumnFocusLocked)
        Get_FocusedColumn();
    else if (FFocusedColumn != GetFocusedColumn())
        SetFocusedColumn(FFocusedColumn);
}

/// Selects a node beside what is selected, and gives it the focus.
void TZORVirtualDBGrid::ShowNode(TVirtualNode* node) {
    if (!node)
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(Nodes(), node);
    SetVisiblePath(node, true);
    if (alive && still)
        SetSelected(node, true);
    if (alive && still)
        SetFocusedNode(node);
    if (alive && still)
        ScrollIntoView(node, false);
    if (alive)
        ApplyFocusedColumn();
}

template <class TWanted>
void TZORVirtualDBGrid::SelectFirst(TWanted wanted) {
    TLifeGuard alive(*this);
    TVirtualNode* node = FindNode(wanted); // which may read the rows, and that calls handlers
    if (alive)
        Set_Selected(node);
}

void TZORVirtualDBGrid::Set_Selected(int id) {
    if (id > 0)
        SelectFirst([id](const TRowId& row) { return row.first == id; });
}

void TZORVirtualDBGrid::Set_Selected(int id, const TGUID& guid) {
    SelectFirst([&](const TRowId& row) { return IsRow(row, {id, guid}); });
}

void TZORVirtualDBGrid::Set_Selected(TVirtualNode* node) {
    TLifeGuard alive(*this);
    const TNodeRef still(Nodes(), node);
    ClearSelection();
    if (alive && still)
        ShowNode(node);
}

void TZORVirtualDBGrid::Set_Selected(const std::vector<TRowId>& rows) {
    const TRowIds wanted(rows);
    TLifeGuard alive(*this);
    TVirtualNode* first = FindNode([&](const TRowId& row) { return wanted.Contains(row); });
    if (!alive)
        return;
    const TNodeRef still(Nodes(), first);
    ClearSelection();
    if (!alive || !still)
        return;
    if (HasSelection(toMultiSelect) && SelectRows(wanted, first->GetNextSibling())) {
        Nodes().SetState(first, vsSelected, true);
        Invalidate();
        DoChange(nullptr);
    }
    if (alive && still)
        ShowNode(first);
}

/// Selects what is wanted among a node and those behind it, without telling anybody; whether there was any.
bool TZORVirtualDBGrid::SelectRows(const TRowIds& wanted, TVirtualNode* node) {
    bool any = false;
    for (; node; node = node->GetNextSibling()) {
        if (!wanted.Contains(GetRowId(node)))
            continue;
        Nodes().SetState(node, vsSelected, true);
        any = true;
    }
    return any;
}

// The focused column

int TZORVirtualDBGrid::Get_FocusedColumn() {
    const int kept = KeptColumn();
    FFocusedColumn = kept;
    if (!FColumnFocusLocked && GetFocusedColumn() < 0)
        SetFocusedColumn(kept);
    return kept;
}

int TZORVirtualDBGrid::KeptColumn() const {
    return FColumnFocusLocked || GetFocusedColumn() < 0 ? FFocusedColumn : GetFocusedColumn();
}

/// A locked column keeps the focus, whichever is clicked.
TColumnIndex TZORVirtualDBGrid::ColumnToFocus(TColumnIndex column) const {
    const bool stays = FColumnFocusLocked && GetHeader()->GetColumns()->IsValidColumn(FFocusedColumn);
    return stays ? FFocusedColumn : TVirtualDrawTree::ColumnToFocus(column);
}

void TZORVirtualDBGrid::Set_FocusedColumn(int index) {
    if (FColumnFocusLocked)
        return;
    FFocusedColumn = index;
    SetFocusedColumn(index);
}

void TZORVirtualDBGrid::Set_ColumnFocusLocked(bool value) {
    TLifeGuard alive(*this);
    if (!value)
        SetFocusedColumn(FFocusedColumn);
    if (alive)
        FColumnFocusLocked = value;
}

void TZORVirtualDBGrid::DoFocusChange(TVirtualNode* node, TColumnIndex column) {
    if (FColumnFocusLocked && column != FFocusedColumn && GetHeader()->GetColumns()->IsValidColumn(FFocusedColumn))
        return SetFocusedColumn(FFocusedColumn); // which tells of the change of the node
    TVirtualDrawTree::DoFocusChange(node, column);
}

TField* TZORVirtualDBGrid::GetSelectedField() const {
    return FieldOf(KeptColumn());
}

void TZORVirtualDBGrid::SetSelectedField(TField* value) {
    if (const TColumn* column = GetColumns()->FindField(value))
        Set_FocusedColumn(column->GetIndex());
}

String TZORVirtualDBGrid::GetSelectedFieldName() const {
    const TField* field = GetSelectedField();
    return field ? field->GetFieldName() : String();
}

void Zorvirtualdbgrid::Register() {
    RegisterComponents(PalettePage, {&TZORVirtualDBGrid::StaticClass()});
}

} // namespace ZOR
