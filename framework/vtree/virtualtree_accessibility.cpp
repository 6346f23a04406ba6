// What screen readers hear of a tree. Its children are numbered from 1: first the columns of the header as they stand
// on the screen, then the rows that show when scrolled to.

#include "framework/system/numbers.h"
#include "framework/vtree/virtualtree.h"
#include "framework/windows/accessibility.h"
#include "framework/windows/accessibleobject.h"

#include <algorithm>

namespace framework {

namespace {

/// The numbers of several children, as get_accSelection hands them over.
class TChildNumbers final : public IEnumVARIANT {
public:
    explicit TChildNumbers(std::vector<VARIANT> numbers, std::size_t next = 0)
        : FNumbers(std::move(numbers)), FNext(next) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (!IsEqualIID(id, __uuidof(IUnknown)) && !IsEqualIID(id, __uuidof(IEnumVARIANT)))
            return E_NOINTERFACE;
        *object = static_cast<IEnumVARIANT*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&FReferences)); }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&FReferences);
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* children, ULONG* fetched) override {
        ULONG given = 0;
        for (; given < count && FNext < FNumbers.size(); ++given)
            children[given] = FNumbers[FNext++];
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const std::size_t left = FNumbers.size() - FNext;
        FNext += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        FNext = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
        *copy = new TChildNumbers(FNumbers, FNext);
        return S_OK;
    }

private:
    ~TChildNumbers() = default;

    std::vector<VARIANT> FNumbers;
    std::size_t FNext;
    LONG FReferences = 1;
};

} // namespace

class TTreeAccessible final : public TNumberedObject {
public:
    using TNumberedObject::TNumberedObject;

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        return Say(child, name, [](TBaseVirtualTree& tree, const TPart& part) {
            if (part.Column)
                return ColumnName(tree, *part.Column);
            return part.Node ? Cells(tree, part.Node).Name : AccessibleName(tree);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override {
        return Say(child, description, [](TBaseVirtualTree& tree, const TPart& part) {
            return part.Node ? Cells(tree, part.Node).Others : part.Column ? part.Column->GetHint() : String();
        });
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return Say(child, value, [](TBaseVirtualTree& tree, const TPart& part) {
            return part.Node ? IntToStr(static_cast<int>(tree.GetNodeLevel(part.Node))) : String();
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return Say(child, action, [](TBaseVirtualTree& tree, const TPart& part) -> String {
            if (part.Column && tree.GetHeader()->ShowsBox(part.Column->GetIndex()))
                return part.Column->GetCheckState() == csCheckedNormal ? u"Uncheck" : u"Check";
            if (part.Column)
                return tree.GetHeader()->GetOptions().Contains(hoHeaderClickAutoSort) ? u"Sort" : u"";
            if (!part.Node)
                return {};
            if (tree.ShowsBox(part.Node))
                return part.Node->GetCheckState() == csCheckedNormal ? u"Uncheck" : u"Check";
            if (!part.Node->Has(vsHasChildren))
                return {};
            return part.Node->Has(vsExpanded) ? u"Collapse" : u"Expand";
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        return WithPart(child, [](TBaseVirtualTree& tree, const TPart& part) {
            if ((!part.Node && !part.Column) || !tree.CanFocus())
                return DISP_E_MEMBERNOTFOUND; // what a person cannot reach is not operated either
            if (part.Column)
                tree.GetHeader()->ClickColumn(part.Column->GetIndex());
            else if (tree.ShowsBox(part.Node))
                tree.ClickCheck(part.Node);
            else
                tree.ToggleNode(part.Node);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return WithPart(child, [&](TBaseVirtualTree&, const TPart& part) {
            *role = Number(part.Column ? ROLE_SYSTEM_COLUMNHEADER
                           : part.Node ? ROLE_SYSTEM_OUTLINEITEM
                                       : ROLE_SYSTEM_OUTLINE);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        return WithPart(child, [&](TBaseVirtualTree& tree, const TPart& part) {
            if (!part.Node && !part.Column)
                return System().get_accState(child, state);
            *state = Number(part.Node ? RowState(tree, part.Node) : ColumnState(tree, *part.Column));
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        const TBaseVirtualTree* tree = Tree();
        if (!tree || !tree->Focused())
            return System().get_accFocus(child);
        const int row = tree->GetFocusedNode() ? tree->RowOf(tree->GetFocusedNode()) : -1;
        *child = Number(row < 0 ? CHILDID_SELF : Columns(*tree) + row + 1);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        const TBaseVirtualTree* tree = Tree();
        std::vector<VARIANT> numbers;
        for (TVirtualNode* node = tree ? tree->GetFirstSelected() : nullptr; node; node = tree->GetNextSelected(node)) {
            if (const int row = tree->RowOf(node); row >= 0)
                numbers.push_back(Number(Columns(*tree) + row + 1));
        }
        *children = {};
        if (numbers.size() == 1) {
            *children = numbers.front();
        } else if (!numbers.empty()) {
            children->vt = VT_UNKNOWN;
            children->punkVal = new TChildNumbers(std::move(numbers));
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT child) override {
        return WithPart(child, [&](TBaseVirtualTree& tree, const TPart& part) {
            if (!part.Node)
                return System().accSelect(flags, child);
            Select(tree, part.Node, flags);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height, VARIANT child) override {
        return WithPart(child, [&](TBaseVirtualTree& tree, const TPart& part) {
            if (!part.Node && !part.Column)
                return System().accLocation(left, top, width, height, child);
            const TRect place =
                part.Node ? tree.GetDisplayRect(part.Node, NoColumn) : tree.HeaderCellRect(part.Column->GetIndex());
            return GivePlace(place, left, top, width, height);
        });
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* child) override {
        TBaseVirtualTree* tree = Tree();
        if (!tree)
            return System().accHitTest(left, top, child);
        const TPoint point = tree->ScreenToClient({static_cast<int>(left), static_cast<int>(top)});
        if (const TColumnIndex column = tree->GetHeader()->HitTest(point).Column; column != NoColumn) {
            *child = Number(NumberOf(*tree, column));
            return S_OK;
        }
        const TVirtualNode* node = tree->GetClientRect().Contains(point) ? tree->GetNodeAt(point) : nullptr;
        if (!node)
            return System().accHitTest(left, top, child);
        *child = Number(Columns(*tree) + tree->RowOf(node) + 1);
        return S_OK;
    }
    static LONG Columns(const TBaseVirtualTree& tree) {
        if (!tree.GetHeader()->IsVisible())
            return 0;
        const std::vector<TColumnExtent>& extents = tree.GetHeader()->GetColumns()->Extents();
        return static_cast<LONG>(
            std::count_if(extents.begin(), extents.end(), [](const TColumnExtent& each) { return each.Visible; }));
    }
    /// Of a column that shows.
    static LONG NumberOf(const TBaseVirtualTree& tree, TColumnIndex column) {
        LONG number = 1;
        for (TColumnIndex each = tree.GetHeader()->GetColumns()->GetFirstVisibleColumn();
             each != column && each != NoColumn; each = tree.GetHeader()->GetColumns()->GetNextVisibleColumn(each))
            ++number;
        return number;
    }

protected:
    LONG Count() const override {
        const TBaseVirtualTree* tree = Tree();
        return tree ? Columns(*tree) + tree->GetVisibleCount() : 0;
    }

private:
    struct TPart {
        TVirtualNode* Node = nullptr;
        TVirtualTreeColumn* Column = nullptr;
    };
    struct TCells {
        String Name;   // the first text of a row
        String Others; // the others with their columns
    };

    TBaseVirtualTree* Tree() const {
        auto* tree = As<TBaseVirtualTree>(FindControl(Window()));
        return tree && !tree->IsDestroying() ? tree : nullptr;
    }

    /// Calls `work` with the part that the number means, the tree itself for none. No exception may cross into the
    /// other program.
    template <class TWork>
    HRESULT WithPart(VARIANT child, TWork work) {
        TBaseVirtualTree* tree = Tree();
        if (!tree || child.vt != VT_I4)
            return E_INVALIDARG;
        try {
            const LONG columns = Columns(*tree);
            TPart part;
            if (child.lVal > columns) {
                part.Node = tree->NodeOfRow(child.lVal - columns - 1);
                if (!part.Node || !tree->InitNode(part.Node))
                    return E_INVALIDARG;
            } else if (child.lVal > 0) {
                TColumnIndex column = tree->GetHeader()->GetColumns()->GetFirstVisibleColumn();
                for (LONG number = 1; number < child.lVal; ++number)
                    column = tree->GetHeader()->GetColumns()->GetNextVisibleColumn(column);
                part.Column = tree->GetHeader()->GetColumns()->GetColumn(column);
            }
            return work(*tree, part);
        } catch (...) {
            return E_FAIL;
        }
    }
    HRESULT Say(VARIANT child, BSTR* answer, String (*say)(TBaseVirtualTree& tree, const TPart& part)) {
        if (!answer)
            return E_POINTER;
        *answer = nullptr;
        return WithPart(child,
                        [&](TBaseVirtualTree& tree, const TPart& part) { return GiveText(say(tree, part), answer); });
    }

    /// A column that has nothing but a box for all is named after the column behind it.
    static String ColumnName(TBaseVirtualTree& tree, const TVirtualTreeColumn& column) {
        const TVirtualTreeColumns& columns = *tree.GetHeader()->GetColumns();
        const TColumnIndex next = columns.GetNextVisibleColumn(column.GetIndex());
        if (!column.GetText().empty() || next == NoColumn || !tree.GetHeader()->ShowsBox(column.GetIndex()))
            return column.GetText();
        return columns.GetColumn(next)->GetText();
    }
    static TCells Cells(TBaseVirtualTree& tree, TVirtualNode* node) {
        constexpr std::size_t kMost = 4000; // characters of one cell that anybody listens to
        TCells cells;
        const TVirtualTreeColumns& columns = *tree.GetHeader()->GetColumns();
        TColumnIndex column = columns.GetFirstVisibleColumn();
        TLifeGuard alive(tree);
        const TNodeRef still(tree.Nodes(), node);
        do {
            const String text = tree.NodeText(node, column).substr(0, kMost);
            if (!alive || !still)
                return cells;
            if (cells.Name.empty())
                cells.Name = text;
            else if (!text.empty())
                cells.Others +=
                    (cells.Others.empty() ? u"" : u", ") + columns.GetColumn(column)->GetText() + u": " + text;
            column = columns.GetNextVisibleColumn(column);
        } while (column != NoColumn);
        return cells;
    }
    static LONG RowState(TBaseVirtualTree& tree, TVirtualNode* node) {
        LONG state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
        if (tree.HasSelection(toMultiSelect))
            state |= STATE_SYSTEM_MULTISELECTABLE | STATE_SYSTEM_EXTSELECTABLE;
        if (node->Has(vsSelected))
            state |= STATE_SYSTEM_SELECTED;
        if (node == tree.GetFocusedNode() && tree.Focused())
            state |= STATE_SYSTEM_FOCUSED;
        if (tree.ShowsBox(node) && node->GetCheckState() == csCheckedNormal)
            state |= STATE_SYSTEM_CHECKED;
        if (tree.ShowsBox(node) && node->GetCheckState() == csMixedNormal)
            state |= STATE_SYSTEM_MIXED;
        if (node->Has(vsHasChildren))
            state |= node->Has(vsExpanded) ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED;
        if (node->Has(vsDisabled) || !tree.GetEnabled())
            state |= STATE_SYSTEM_UNAVAILABLE;
        if (tree.GetDisplayRect(node, NoColumn).IsEmpty())
            state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
        return state;
    }
    static LONG ColumnState(const TBaseVirtualTree& tree, const TVirtualTreeColumn& column) {
        LONG state = 0;
        if (column.GetCheckBox() && column.GetCheckState() == csCheckedNormal)
            state |= STATE_SYSTEM_CHECKED;
        if (column.GetCheckBox() && column.GetCheckState() == csMixedNormal)
            state |= STATE_SYSTEM_MIXED;
        if (!column.GetOptions().Contains(coEnabled) || !tree.GetEnabled())
            state |= STATE_SYSTEM_UNAVAILABLE;
        return state;
    }
    static void Select(TBaseVirtualTree& tree, TVirtualNode* node, long flags) {
        TLifeGuard alive(tree);
        const TNodeRef still(tree.Nodes(), node);
        const bool extends = (flags & SELFLAG_EXTENDSELECTION) != 0 && tree.HasSelection(toMultiSelect);
        if (extends)
            tree.BeginRange({ssShift});
        if ((flags & SELFLAG_TAKEFOCUS) != 0) {
            if (tree.CanFocus() && !tree.Focused())
                tree.SetFocus();
            if (alive && still)
                tree.SetFocusedNode(node);
        }
        if (!alive || !still)
            return;
        if (extends && tree.FRangeAnchor)
            tree.SelectRange(tree.FRangeAnchor.Get(), node, (flags & SELFLAG_ADDSELECTION) != 0);
        else if ((flags & SELFLAG_TAKESELECTION) != 0)
            tree.SelectSingle(node);
        else if ((flags & (SELFLAG_ADDSELECTION | SELFLAG_REMOVESELECTION)) != 0)
            tree.SetSelected(node, (flags & SELFLAG_ADDSELECTION) != 0);
    }
};

bool TBaseVirtualTree::AnswerAccessible(TMessage& message) {
    return AnswerWithObject(FHandle, message, [](HWND window, IAccessible* system) -> TAccessibleObject* {
        return new TTreeAccessible(window, system);
    });
}

void TBaseVirtualTree::TellNode(UINT event, TVirtualNode* node) {
    if (!HandleAllocated() || FUpdateCount > 0)
        return;
    const int row = RowOf(node);
    if (row >= 0)
        NotifyWinEvent(event, FHandle, OBJID_CLIENT, TTreeAccessible::Columns(*this) + row + 1);
}

void TBaseVirtualTree::TellColumn(UINT event, TColumnIndex column) {
    if (HandleAllocated() && FUpdateCount == 0 && FHeader->IsVisible() &&
        FHeader->GetColumns()->GetColumn(column)->GetOptions().Contains(coVisible))
        NotifyWinEvent(event, FHandle, OBJID_CLIENT, TTreeAccessible::NumberOf(*this, column));
}

void TBaseVirtualTree::TellTree(UINT event) {
    if (HandleAllocated() && FUpdateCount == 0)
        NotifyWinEvent(event, FHandle, OBJID_CLIENT, CHILDID_SELF);
}

void TBaseVirtualTree::TellFocus() {
    if (FFocusedNode && Focused())
        TellNode(EVENT_OBJECT_FOCUS, FFocusedNode.Get());
}

} // namespace framework
