#include "framework/dbgrid/dbgrid.h"

#include <algorithm>

namespace framework {

namespace {

constexpr TSize kInitialSize{320, 120};

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
    namespace row = controlrows;
    using G = TCustomDBGrid;
    static const TClassInfo info = DescribeClass<TDBGrid>(
        u"TDBGrid", TCustomDBGrid::StaticClass(),
        {row::Align(),
         row::Anchors(),
         row::BiDiMode(),
         row::Color(clWindow),
         Property<&G::GetColumns, &G::SetColumns>(u"Columns"),
         row::Constraints(),
         row::Ctl3D(),
         Property<&G::GetDataSource, &G::SetDataSource>(u"DataSource"),
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
         row::InputEvents()});
    return info;
}

// The link

class TGridDataLink final : public TDataLink {
public:
    explicit TGridDataLink(TCustomDBGrid& grid) : FGrid(grid) {}

protected:
    void ActiveChanged() override { FGrid.ActiveChanged(); }
    void LayoutChanged() override { FGrid.LayoutChanged(); }

private:
    TCustomDBGrid& FGrid;
};

// The grid

TCustomDBGrid::TCustomDBGrid(TComponent* owner)
    : TCustomControl(owner), FColumns(std::make_unique<TDBGridColumns>(this)),
      FDataLink(std::make_unique<TGridDataLink>(*this)), FTitleFont([this] { LayoutChanged(); }) {
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
    SetParentColor(false);
    SetTabStop(true);
}

TCustomDBGrid::~TCustomDBGrid() {
    Destroying();
    FDataLink.reset();
}

void TCustomDBGrid::Loaded() {
    TCustomControl::Loaded();
    LayoutChanged();
}

void TCustomDBGrid::Notification(TComponent* component, TOperation operation) {
    TCustomControl::Notification(component, operation);
    if (operation != opRemove || IsDestroying())
        return;
    if (const auto* field = As<TField>(component))
        FColumns->ForgetField(field);
    else if (FDataLink && component == GetDataSource())
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

void TCustomDBGrid::ActiveChanged() {
    LayoutChanged();
}

void TCustomDBGrid::LayoutChanged() {
    if (IsLoading() || IsDestroying())
        return;
    FColumns->FollowFields();
    FSelectedIndex = std::clamp(FSelectedIndex, 0, std::max(FColumns->GetCount() - 1, 0));
    Invalidate();
}

void TCustomDBGrid::ColumnsChanged(TColumn*) {
    LayoutChanged();
}

void TCustomDBGrid::ColumnLeaves(int index) {
    if (index < FSelectedIndex)
        --FSelectedIndex;
}

void TCustomDBGrid::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::CMFontChanged(message);
    if (alive)
        LayoutChanged();
}

void TCustomDBGrid::ChangeScale(int m, int d) {
    if (m != d) {
        for (int i = 0; i < FColumns->GetCount(); ++i)
            FColumns->GetColumn(i)->Scale(m, d);
        FTitleFont.Scale(m, d);
    }
    TCustomControl::ChangeScale(m, d);
}

// Properties

void TCustomDBGrid::SetDrawingStyle(TGridDrawingStyle value) {
    if (FDrawingStyle == value)
        return;
    FDrawingStyle = value;
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
    FOptions = value;
    LayoutChanged();
}

void TCustomDBGrid::SetReadOnly(bool value) {
    if (FReadOnly == value)
        return;
    FReadOnly = value;
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
    FSelectedIndex = std::clamp(value, 0, std::max(FColumns->GetCount() - 1, 0));
    Invalidate();
}

void RegisterDBGrid() {
    RegisterClasses({&TDBGrid::StaticClass()});
}

} // namespace framework
