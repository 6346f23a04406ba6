#include "data/Zorvirtualstringtree.h"

#include "foundation/Zorpalette.h"
#include "framework/system/strings.h"
#include "framework/windows/accessibility.h"
#include "framework/windows/accessibleobject.h"
#include "framework/windows/application.h"

#include <algorithm>

namespace ZOR {

namespace {

constexpr int kCheckColumn = 0;
constexpr int kTextColumn = 1;
// Pixels at 96 to an inch:
constexpr int kCheckColumnWidth = 37;
constexpr int kCheckListIndent = 10;
constexpr int kCheckListRow = 16;
constexpr int kCheckListHeader = 20;
constexpr int kSearchEditGap = 2; // pixels below the header, and between the edit and the rows

/// The system's sort key of a text in the user's language, letter case aside.
std::string UserSortKey(StringView text) {
    if (text.empty())
        return {};
    constexpr DWORD kHow = LCMAP_SORTKEY | NORM_IGNORECASE;
    std::string key(text.size() * 4 + 16, '\0');
    const auto map = [&] {
        return LCMapStringEx(LOCALE_NAME_USER_DEFAULT, kHow, WideData(text), static_cast<int>(text.size()),
                             reinterpret_cast<wchar_t*>(key.data()), static_cast<int>(key.size()), nullptr, nullptr, 0);
    };
    int size = map();
    if (size == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
        size = LCMapStringEx(LOCALE_NAME_USER_DEFAULT, kHow, WideData(text), static_cast<int>(text.size()), nullptr, 0,
                             nullptr, nullptr, 0);
        key.resize(static_cast<std::size_t>(size));
        size = map();
    }
    if (size == 0)
        return PlainSortKey(text);                  // the system refuses
    key.resize(static_cast<std::size_t>(size - 1)); // without the zero at its end
    return key;
}

/// Tells screen readers what the edit searches in.
class TSearchEditObject final : public TAccessibleObject {
public:
    using TAccessibleObject::TAccessibleObject;

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        const auto* tree = As<TZORVirtualStringTree>(OwnerOf(FindControl(Window())));
        if (!name || !tree || child.vt != VT_I4 || child.lVal != CHILDID_SELF || tree->GetHeaderText().empty())
            return System().get_accName(child, name);
        return GiveText(tree->GetHeaderText(), name);
    }

private:
    static TPersistent* OwnerOf(const TComponent* edit) { return edit ? edit->GetOwner() : nullptr; }
};

} // namespace

/// The edit lies on the tree's parent and is the tree's: scaled, named and placed by it.
class TZORVirtualStringTree::TSearchEdit : public TEdit {
public:
    explicit TSearchEdit(TZORVirtualStringTree* tree) : TEdit(tree), FTree(*tree) {}

    void ChangeScale(int, int) override {} // by the parent: the tree does it
    void ScaleWithTree(int m, int d) { TEdit::ChangeScale(m, d); }
    void SetBounds(int left, int top, int width, int height) override {
        const int before = GetHeight();
        TEdit::SetBounds(left, top, width, height);
        if (GetHeight() != before && FTree.FSearchEdit == this)
            FTree.FrameChanged(); // another room between header and rows
    }

protected:
    void Dispatch(TMessage& message) override {
        if (message.Msg == WM_GETOBJECT && AccessibleName(*this).empty() &&
            AnswerWithObject(FHandle, message, [](HWND window, IAccessible* system) -> TAccessibleObject* {
                return new TSearchEditObject(window, system);
            }))
            return;
        TEdit::Dispatch(message);
    }

private:
    TZORVirtualStringTree& FTree;
};

const TClassInfo& TZORVirtualStringTree::StaticClass() {
    namespace row = framedrows;
    using Self = TZORVirtualStringTree;
    static const TClassInfo info = DescribeClass<Self>(
        u"TZORVirtualStringTree", TVirtualStringTree::StaticClass(),
        {row::Wymagany<Self>(),
         Property<&Self::GetCheckListBoxStyle, &Self::SetCheckListBoxStyle>(u"CheckBoxStyle", false),
         Property<&Self::GetSearchEditVisible, &Self::SetSearchEditVisible>(u"SearchEditVisible", false),
         Property<&Self::GetHeaderText, &Self::setHeaderText>(u"HeaderText"), row::BorderColors<Self>()});
    return info;
}

TZORVirtualStringTree::TZORVirtualStringTree(TComponent* owner)
    : TZORFramed(owner), FItems(&UserSortKey), FSearchEdit(new TSearchEdit(this)) {
    FSearchEdit->SetName(u"SearchEdit");
    FSearchEdit->SetText({}); // which is the name at first
    FSearchEdit->SetFont(GetFont());
    FSearchEdit->SetVisible(false);
    FSearchEdit->SetControlStyle(FSearchEdit->GetControlStyle() << csNoDesignVisible);
    FSearchEdit->OnChange = [this](TObject* sender) { SearchEditChange(sender); };
    FSearchEdit->OnKeyDown = [this](TObject*, WORD& key, TShiftState) { SearchEditKeyDown(key); };
}

TZORVirtualStringTree::~TZORVirtualStringTree() {
    Destroying();
    try {
        Clear(); // handlers may ask for texts
    } catch (...) {
        TheApplication().HandleException(this);
    }
    DestroyHandle(); // while the items are there: a dying window may still be painted
}

// Check-list mode

void TZORVirtualStringTree::SetCheckListBoxStyle(bool value) {
    FCheckBoxStyle = value;
    if (!value)
        return;
    // A form that was saved from a check list brings all of it along, with what was made of it since.
    if (IsLoading() && GetHeader()->GetColumns()->IsValidColumn(kCheckColumn) && HasMisc(toCheckSupport))
        SetCheckListBox();
    else
        SetUpCheckList();
}

void TZORVirtualStringTree::SetUpCheckList() {
    TVirtualTreeOptions& options = *GetTreeOptions();
    options.SetPaintOptions(options.GetPaintOptions() - TVTPaintOptions{toShowTreeLines} +
                            TVTPaintOptions{toUseBlendedSelection});
    options.SetMiscOptions(options.GetMiscOptions() + TVTMiscOptions{toCheckSupport});
    options.SetSelectionOptions(options.GetSelectionOptions() + TVTSelectionOptions{toFullRowSelect});
    SetIndent(FormPixels(kCheckListIndent));
    SetDefaultNodeHeight(FormPixels(kCheckListRow));
    SetUpColumns();
    // Only now: the order of what there was before is nobody's concern.
    options.SetAutoOptions(options.GetAutoOptions() + TVTAutoOptions{toAutoSort});
    SetCheckListBox();
}

/// Pixels of the form as it is scaled now; a form that is being loaded is scaled with all that is on it afterwards.
int TZORVirtualStringTree::FormPixels(int pixels) const {
    if (GetComponentState().Contains(csLoading))
        return pixels;
    const TCustomForm* form = GetParentForm(this);
    return MulDiv(pixels, form ? form->GetPixelsPerInch() : TheScreen().GetPixelsPerInch(), USER_DEFAULT_SCREEN_DPI);
}

void TZORVirtualStringTree::SetUpColumns() {
    TVTHeader& header = *GetHeader();
    header.SetOptions(header.GetOptions() + TVTHeaderOptions{hoVisible, hoShowImages, hoHeaderClickAutoSort,
                                                             hoAutoResize, hoShowHint, hoShowSortGlyphs});
    TVirtualTreeColumns& columns = *header.GetColumns();
    columns.Clear();
    TVirtualTreeColumn& box = *columns.Add();
    const int boxWidth = FormPixels(kCheckColumnWidth);
    box.SetMinWidth(boxWidth);
    box.SetMaxWidth(boxWidth);
    box.SetWidth(boxWidth);
    box.SetCheckType(ctTriStateCheckBox);
    box.SetCheckBox(true);
    columns.Add();
    header.SetMainColumn(kCheckColumn);
    header.SetAutoSizeIndex(kTextColumn);
    header.SetSort(kTextColumn, sdAscending);
    header.SetDefaultHeight(FormPixels(kCheckListHeader));
    UstawLabel();
}

std::size_t TZORVirtualStringTree::ItemOf(TVirtualNode* node) const {
    if (FItemsReplaced || GetNodeDataSize() < static_cast<int>(sizeof(TNodeItem)))
        return FItems.Count();
    return std::min<std::size_t>(GetNodeData<TNodeItem>(node)->Index, FItems.Count());
}

TCheckListOrder TZORVirtualStringTree::OrderBy(TColumnIndex column, TSortDirection direction) const {
    if (column == NoColumn)
        return TCheckListOrder::AsAdded;
    const bool down = direction == sdDescending;
    if (column == kCheckColumn)
        return down ? TCheckListOrder::ByCheckDescending : TCheckListOrder::ByCheck;
    return down ? TCheckListOrder::ByTextDescending : TCheckListOrder::ByText;
}

void TZORVirtualStringTree::ClearDeque() {
    FItems.Clear();
    ++FItemsNumber;
    FItemsReplaced = true;
}

void TZORVirtualStringTree::SetCheckListBox() {
    if (!FCheckBoxStyle || IsRebuilding())
        return; // a handler of the nodes that go: the new ones are made from the items as it leaves them
    std::vector<std::uint32_t> selected;
    for (TVirtualNode* node = GetFirstSelected(); node; node = GetNextSelected(node))
        selected.push_back(static_cast<std::uint32_t>(ItemOf(node)));
    const bool hadFocus = GetFocusedNode() != nullptr;
    std::size_t focused = hadFocus ? ItemOf(GetFocusedNode()) : FItems.Count();
    TLifeGuard alive(*this);
    const std::exception_ptr raised = ClearForRebuilding();
    const auto raise = [&] {
        if (raised)
            std::rethrow_exception(raised);
    };
    if (!alive)
        return raise();
    const std::size_t selectedBefore = selected.size();
    if (std::exchange(FItemsReplaced, false)) {
        selected.clear();
        focused = FItems.Count();
    }
    FItems.MatchNew();
    FItems.PrepareTexts(); // so that the first letter typed is as quick as the next ones
    const bool sorted = HasAuto(toAutoSort);
    const std::vector<std::uint32_t> shown =
        FItems.Shown(OrderBy(sorted ? GetHeader()->GetSortColumn() : NoColumn, GetHeader()->GetSortDirection()));
    AddChildren(nullptr, static_cast<unsigned>(shown.size()),
                [&](TVirtualNode* node, unsigned n) { GetNodeData<TNodeItem>(node)->Index = shown[n]; });
    RestoreSelection(selected, focused, shown);
    UstawLabel();
    const bool lostFocus = hadFocus && !GetFocusedNode();
    if (static_cast<std::size_t>(GetSelectedCount()) < selectedBefore)
        DoChange(nullptr);
    if (alive && lostFocus && !GetFocusedNode())
        DoFocusChange(nullptr, GetFocusedColumn());
    if (alive && GetFocusedNode())
        ScrollIntoView(GetFocusedNode(), false);
    raise();
}

/// What a handler of the nodes that go has raised: the others are made nevertheless, or no row would show.
std::exception_ptr TZORVirtualStringTree::ClearForRebuilding() {
    SetRebuilding(true);
    const TAtScopeEnd rebuilt(*this, [this] { SetRebuilding(false); });
    TLifeGuard alive(*this);
    try {
        SetNodeDataSize(sizeof(TNodeItem));
        if (alive)
            Clear();
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

/// Items keep their selection and the focus as long as they show, whatever place they have now.
void TZORVirtualStringTree::RestoreSelection(const std::vector<std::uint32_t>& selected, std::size_t focused,
                                             const std::vector<std::uint32_t>& shown) {
    if (selected.empty() && focused == FItems.Count())
        return;
    std::vector<bool> wanted(FItems.Count() + 1);
    for (const std::uint32_t index : selected)
        wanted[std::min<std::size_t>(index, FItems.Count())] = true;
    TVirtualNode* node = GetRootNode()->GetFirstChild();
    for (const std::uint32_t index : shown) {
        if (wanted[index])
            Nodes().SetState(node, vsSelected, true);
        if (index == focused)
            PutFocus(node);
        node = node->GetNextSibling();
    }
}

void TZORVirtualStringTree::SortTree(TColumnIndex column, TSortDirection direction, bool doInit) {
    if (!FCheckBoxStyle) {
        TZORFramed::SortTree(column, direction, doInit);
        return;
    }
    const TCheckListOrder order = OrderBy(column, direction);
    SortByKey(nullptr, [&](TVirtualNode* node) {
        const std::size_t item = ItemOf(node);
        return item < FItems.Count() ? FItems.OrderKey(item, order) : UINT64_MAX;
    });
}

// The phrase

void TZORVirtualStringTree::SetFraza(const String& phrase) {
    if (!FItems.SetPhrase(phrase))
        return;
    TLifeGuard alive(*this);
    SetCheckListBox();
    if (alive && FCheckBoxStyle && !GetFocusedNode())
        SetOffsetY(0); // what was found is read from its beginning
    if (alive)
        UstawLabel();
    if (!alive || !FCheckBoxStyle || (GetHeader()->GetSortColumn() == kTextColumn && HasAuto(toAutoSort)))
        return; // in order already, in the direction that the header shows
    if (HasAuto(toAutoSort))
        GetHeader()->SetSort(kTextColumn, sdAscending); // which sorts, and moves the mark with it
    else
        SortTree(kTextColumn, sdAscending);
}

void TZORVirtualStringTree::SearchEditChange(TObject*) {
    if (FSearchEdit)
        SetFraza(FSearchEdit->GetText());
}

/// From the typed phrase straight to what it found.
void TZORVirtualStringTree::SearchEditKeyDown(WORD& key) {
    if (key != VK_DOWN || !CanFocus())
        return;
    key = 0;
    TLifeGuard alive(*this);
    SetFocus();
    if (alive && !GetFocusedNode()) {
        if (TVirtualNode* first = GetFirstVisible(); first && alive)
            SetFocusedNode(first);
    }
}

TEdit* TZORVirtualStringTree::GetSearchEdit() const {
    return FSearchEdit;
}

int TZORVirtualStringTree::RoomBelowHeader() const {
    return FSearchEditVisible && FSearchEdit ? FSearchEdit->GetHeight() + kSearchEditGap : 0;
}

void TZORVirtualStringTree::SetSearchEditVisible(bool value) {
    if (FSearchEditVisible == value)
        return;
    FSearchEditVisible = value;
    PlaceSearchEditInTabOrder();
    FrameChanged();
    SetPositionAdditionalComponents();
    ShowSearchEdit();
}

/// Where the tree shows: in a designer that is always.
void TZORVirtualStringTree::ShowSearchEdit() {
    if (FSearchEdit)
        FSearchEdit->SetVisible(FSearchEditVisible && ShowsOnParent());
}

void TZORVirtualStringTree::SetPositionAdditionalComponents() {
    if (!FSearchEdit)
        return;
    const int header = GetHeader()->IsVisible() ? GetHeader()->GetHeight() : 0;
    FSearchEdit->SetBounds(GetLeft() + 1, GetTop() + header + kSearchEditGap, GetWidth() - 2, FSearchEdit->GetHeight());
    if (FSearchEditVisible)
        FSearchEdit->BringToFront(); // it lies over the room that the tree leaves
}

/// The Tab key comes to the edit before it comes to the rows. While the edit does not show, and in designers, it is
/// behind all others, so that it counts in nobody's TabOrder.
void TZORVirtualStringTree::PlaceSearchEditInTabOrder() {
    if (!FSearchEdit || !GetParent() || FSearchEdit->GetParent() != GetParent() ||
        GetParent()->GetComponentState().Contains(csLoading))
        return;
    const int edit = FSearchEdit->GetTabOrder();
    const int tree = GetTabOrder();
    if (!FSearchEditVisible || IsDesigning())
        FSearchEdit->SetTabOrder(-1);
    else if (edit != tree - 1)
        FSearchEdit->SetTabOrder(edit < tree ? tree - 1 : tree);
}

void TZORVirtualStringTree::Loaded() {
    TLifeGuard alive(*this);
    TZORFramed::Loaded();
    if (alive)
        PlaceSearchEditInTabOrder();
}

void TZORVirtualStringTree::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TZORFramed::CMFontChanged(message);
    if (alive && FSearchEdit)
        FSearchEdit->SetFont(GetFont());
}

void TZORVirtualStringTree::SetParent(TWinControl* value) {
    TLifeGuard alive(*this);
    TZORFramed::SetParent(value);
    if (!alive || !FSearchEdit)
        return;
    FSearchEdit->SetParent(value);
    if (!alive)
        return;
    PlaceSearchEditInTabOrder();
    SetPositionAdditionalComponents();
}

void TZORVirtualStringTree::SetBounds(int left, int top, int width, int height) {
    TLifeGuard alive(*this);
    TZORFramed::SetBounds(left, top, width, height);
    if (alive)
        SetPositionAdditionalComponents();
}

void TZORVirtualStringTree::SetEnabled(bool value) {
    TLifeGuard alive(*this);
    TZORFramed::SetEnabled(value);
    if (alive && FSearchEdit)
        FSearchEdit->SetEnabled(value);
}

void TZORVirtualStringTree::CMVisibleChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TZORFramed::CMVisibleChanged(message);
    if (alive)
        ShowSearchEdit();
}

void TZORVirtualStringTree::CMBiDiModeChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TZORFramed::CMBiDiModeChanged(message);
    if (alive && FSearchEdit)
        FSearchEdit->SetBiDiMode(GetBiDiMode());
}

void TZORVirtualStringTree::ChangeScale(int m, int d) {
    TLifeGuard alive(*this);
    if (FSearchEdit)
        FSearchEdit->ScaleWithTree(m, d);
    TZORFramed::ChangeScale(m, d);
    if (!alive || !FSearchEditVisible)
        return;
    FrameChanged();
    SetPositionAdditionalComponents();
}

void TZORVirtualStringTree::HeaderChanged(TVTHeader& header, bool places) {
    TZORFramed::HeaderChanged(header, places);
    if (places && &header == GetHeader() && FSearchEditVisible)
        SetPositionAdditionalComponents();
}

void TZORVirtualStringTree::Notification(TComponent* component, TOperation operation) {
    TZORFramed::Notification(component, operation);
    if (operation == opRemove && component == FSearchEdit)
        FSearchEdit = nullptr;
}

// The caption and the boxes

void TZORVirtualStringTree::SetInfoLabelVisible(bool value) {
    if (FInfoLabelVisible == value)
        return;
    FInfoLabelVisible = value;
    UstawLabel();
}

void TZORVirtualStringTree::setHeaderText(const String& value) {
    FHeaderText = value;
    UstawLabel();
}

void TZORVirtualStringTree::UstawLabel() {
    TVirtualTreeColumns& columns = *GetHeader()->GetColumns();
    if (FCheckBoxStyle && columns.IsValidColumn(kCheckColumn))
        columns.GetColumn(kCheckColumn)->SetCheckState(FItems.HeaderState());
    if (columns.IsValidColumn(kTextColumn))
        columns.GetColumn(kTextColumn)->SetText(FItems.Caption(FHeaderText, FInfoLabelVisible));
}

void TZORVirtualStringTree::CheckListBox_SetChecked(TCheckState state) {
    if (!FCheckBoxStyle)
        return;
    const std::vector<std::uint32_t> changed = FItems.SetVisibleStates(state);
    // Nodes that have not been asked for take the state from their items when they are.
    for (TVirtualNode* node = Nodes().First(TNodeMeasure::Initialized); node;
         node = Nodes().Next(node, TNodeMeasure::Initialized))
        PutCheckState(node, state);
    TLifeGuard alive(*this);
    const TAtScopeEnd told(*this, [this] { UstawLabel(); }); // whatever handlers raise
    if (!changed.empty())
        TellTree(EVENT_OBJECT_STATECHANGE);
    TellChecked(changed);
    if (alive)
        DoChange(nullptr);
}

/// OnChecked for each node whose item changed, or during a click on the header's box once for all of them.
void TZORVirtualStringTree::TellChecked(const std::vector<std::uint32_t>& changed) {
    if (!OnChecked)
        return;
    TLifeGuard alive(*this);
    if (FHeaderClicked) {
        if (TVirtualNode* first = GetFirst(); first && alive)
            TZORFramed::DoChecked(first);
        return;
    }
    std::vector<bool> wanted(FItems.Count() + 1);
    for (const std::uint32_t index : changed)
        wanted[index] = true;
    TNodeRef node(Nodes(), GetFirst());
    while (alive && node) {
        if (const std::size_t item = ItemOf(node.Get()); item < wanted.size() && wanted[item])
            TZORFramed::DoChecked(node.Get());
        if (alive && node)
            node.Set(GetNextSibling(node.Get()));
    }
}

void TZORVirtualStringTree::DoInitNode(TVirtualNode* parent, TVirtualNode* node,
                                       TVirtualNodeInitStates& initialStates) {
    if (const std::size_t item = ItemOf(node); FCheckBoxStyle && item < FItems.Count())
        TNodeStore::SetCheck(node, ctCheckBox, FItems.Item(item).state);
    TZORFramed::DoInitNode(parent, node, initialStates);
}

void TZORVirtualStringTree::DoGetText(TVirtualNode* node, TColumnIndex column, TVSTTextType textType, String& text) {
    if (FCheckBoxStyle) {
        const std::size_t item = ItemOf(node);
        text.clear();
        if (column != kCheckColumn && item < FItems.Count())
            text.assign(FItems.Item(item).text, 0, TextWanted());
    }
    TZORFramed::DoGetText(node, column, textType, text);
}

void TZORVirtualStringTree::DoChecked(TVirtualNode* node) {
    if (FCheckBoxStyle) {
        TLifeGuard alive(*this);
        const TNodeRef still(Nodes(), node);
        FocusAndTake(node);
        if (!alive || !still)
            return;
    }
    TZORFramed::DoChecked(node);
}

/// The focus goes to the row first. Its item takes the new state even where handlers have made the row anew; an item
/// that they have put in its place does not.
void TZORVirtualStringTree::FocusAndTake(TVirtualNode* node) {
    const std::size_t item = ItemOf(node);
    const TNodeRef still(Nodes(), node);
    const bool hasItem = item < FItems.Count();
    const TAtScopeEnd taken(*this, [=, this, &still, itemsNumber = FItemsNumber, wanted = node->GetCheckState()] {
        const TCheckState state = still ? still.Get()->GetCheckState() : wanted;
        const bool takes = hasItem && itemsNumber == FItemsNumber;
        if (takes)
            FItems.SetState(item, state);
        if (!IsCheckingSeveral())
            UstawLabel();
        for (TVirtualNode* each = still || !takes ? nullptr : Nodes().First(TNodeMeasure::Initialized); each;
             each = Nodes().Next(each, TNodeMeasure::Initialized)) {
            if (ItemOf(each) == item)
                PutCheckState(each, state); // a handler has made the nodes anew
        }
    });
    if (!IsCheckingSeveral())
        SetFocusedNode(node);
}

void TZORVirtualStringTree::DoCheckedSeveral() {
    if (FCheckBoxStyle)
        UstawLabel();
}

bool TZORVirtualStringTree::CopiesColumn(TColumnIndex column) const {
    return !FCheckBoxStyle || column != kCheckColumn;
}

int TZORVirtualStringTree::DoIncrementalSearch(TVirtualNode* node, const String& text) {
    const std::size_t item = ItemOf(node);
    if (SearchAsksForNodes() || item == FItems.Count())
        return TZORFramed::DoIncrementalSearch(node, text);
    return FItems.BeginsWith(item, AnsiLowerCase(text)) ? 0 : 1;
}

int TZORVirtualStringTree::DoCompare(TVirtualNode* node1, TVirtualNode* node2, TColumnIndex column) {
    const std::size_t first = ItemOf(node1);
    const std::size_t second = ItemOf(node2);
    if (!FCheckBoxStyle || first == FItems.Count() || second == FItems.Count())
        return TZORFramed::DoCompare(node1, node2, column);
    return FItems.Compare(first, second, column == kCheckColumn);
}

void TZORVirtualStringTree::DoHeaderClick(const TVTHeaderHitInfo& hitInfo) {
    TLifeGuard alive(*this);
    if (FCheckBoxStyle && hitInfo.Column == kCheckColumn && hitInfo.HitPosition.Contains(hhiOnCheckbox)) {
        FHeaderClicked = true;
        const TAtScopeEnd clicked(*this, [this] { FHeaderClicked = false; });
        CheckListBox_SetChecked(GetHeader()->GetColumns()->GetColumn(kCheckColumn)->GetCheckState());
    }
    if (alive)
        TZORFramed::DoHeaderClick(hitInfo);
}

void Zorvirtualstringtree::Register() {
    RegisterVirtualTrees();
    RegisterComponents(PalettePage, {&TZORVirtualStringTree::StaticClass()});
}

} // namespace ZOR
