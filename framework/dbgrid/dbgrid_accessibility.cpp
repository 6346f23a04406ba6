// What screen readers hear of a data grid. Its children are numbered from 1: first the titles of the visible columns,
// then the cells of the rows on the screen, row by row. A cell bears the name of its column, and its text as value.

#include "framework/db/fieldclasses.h"
#include "framework/dbgrid/dbgrid.h"
#include "framework/dbgrid/griddatalink.h"
#include "framework/dbgrid/rowscope.h"
#include "framework/windows/accessibility.h"
#include "framework/windows/accessibleobject.h"

#include <algorithm>

namespace framework {

namespace {

VARIANT ChildNumber(LONG value) {
    VARIANT result{};
    result.vt = VT_I4;
    result.lVal = value;
    return result;
}

} // namespace

class TDBGridAccessible final : public TAccessibleObject {
public:
    using TAccessibleObject::TAccessibleObject;

    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) override {
        const TCustomDBGrid* grid = Grid();
        *count = grid ? static_cast<LONG>(Titles(*grid) + grid->GetShownRowCount() * Columns(*grid)) : 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT, IDispatch** object) override {
        *object = nullptr; // all of them are told of by this object
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        return Say(child, name, [](TCustomDBGrid& grid, const TPart& part) {
            return part.Column ? part.Column->GetTitle()->GetCaption() : AccessibleName(grid);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return Say(child, value, [](TCustomDBGrid& grid, const TPart& part) -> String {
            if (!part.IsCell())
                return {};
            constexpr std::size_t kMost = 4000; // characters of one cell that anybody listens to
            const TCustomDBGrid::TRowScope scope(grid, part.Row);
            TField* field = part.Column->GetField();
            return field ? field->GetDisplayText().substr(0, kMost) : String();
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return Say(child, action, [](TCustomDBGrid& grid, const TPart& part) -> String {
            if (!part.IsCell() || !grid.CanEditColumn(*part.Column))
                return {};
            return grid.ShowsBox(*part.Column) ? u"Check" : u"Edit";
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        return WithPart(child, [](TCustomDBGrid& grid, const TPart& part) {
            if (!part.IsCell() || !grid.CanEditColumn(*part.Column))
                return DISP_E_MEMBERNOTFOUND;
            TLifeGuard alive(grid);
            GoTo(grid, part);
            if (alive && grid.CanFocus())
                grid.SetFocus();
            if (!alive || !grid.IsDataActive())
                return S_OK;
            const TColumn* column = grid.ColumnOfCell(grid.FocusCell().X);
            if (column && grid.ShowsBox(*column))
                grid.ToggleBox();
            else
                grid.ShowEditor();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return WithPart(child, [&](TCustomDBGrid&, const TPart& part) {
            *role = ChildNumber(part.IsCell() ? ROLE_SYSTEM_CELL
                                : part.Column ? ROLE_SYSTEM_COLUMNHEADER
                                              : ROLE_SYSTEM_TABLE);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        return WithPart(child, [&](TCustomDBGrid& grid, const TPart& part) {
            if (!part.Column)
                return System().get_accState(child, state);
            *state = ChildNumber(part.IsCell() ? CellState(grid, part) : 0);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        const TCustomDBGrid* grid = Grid();
        const LONG number = grid ? FocusNumber(*grid) : 0;
        if (!grid || !grid->Focused() || grid->GetEditorMode() || number == 0)
            return System().get_accFocus(child);
        *child = ChildNumber(number);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT child) override {
        return WithPart(child, [&](TCustomDBGrid& grid, const TPart& part) {
            if (!part.IsCell())
                return System().accSelect(flags, child);
            TLifeGuard alive(grid);
            if ((flags & SELFLAG_TAKEFOCUS) != 0 && grid.CanFocus() && !grid.Focused())
                grid.SetFocus();
            if (alive)
                GoTo(grid, part);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height, VARIANT child) override {
        return WithPart(child, [&](TCustomDBGrid& grid, const TPart& part) {
            if (!part.Column)
                return System().accLocation(left, top, width, height, child);
            const TRect place = PlaceOf(grid, part);
            const TPoint corner = grid.ClientToScreen({place.Left, place.Top});
            *left = corner.X;
            *top = corner.Y;
            *width = place.Width();
            *height = place.Height();
            return place.IsEmpty() ? S_FALSE : S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* child) override {
        const TCustomDBGrid* grid = Grid();
        if (grid) {
            const TPoint point = grid->ScreenToClient({static_cast<int>(left), static_cast<int>(top)});
            if (const LONG number = NumberOf(*grid, grid->MouseCoord(point.X, point.Y)); number > 0) {
                *child = ChildNumber(number);
                return S_OK;
            }
        }
        return System().accHitTest(left, top, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start, VARIANT* end) override {
        const TCustomDBGrid* grid = Grid();
        long count = 0;
        get_accChildCount(&count);
        if (!grid || start.vt != VT_I4 ||
            (start.lVal == CHILDID_SELF && direction != NAVDIR_FIRSTCHILD && direction != NAVDIR_LASTCHILD))
            return System().accNavigate(direction, start, end);
        const LONG columns = static_cast<LONG>(Columns(*grid));
        LONG to = 0;
        switch (direction) {
        case NAVDIR_FIRSTCHILD:
            to = 1;
            break;
        case NAVDIR_LASTCHILD:
            to = count;
            break;
        case NAVDIR_NEXT:
        case NAVDIR_RIGHT:
            to = start.lVal + 1;
            break;
        case NAVDIR_PREVIOUS:
        case NAVDIR_LEFT:
            to = start.lVal - 1;
            break;
        case NAVDIR_UP:
            to = start.lVal - columns;
            break;
        case NAVDIR_DOWN:
            to = start.lVal + columns;
            break;
        default:
            break;
        }
        *end = {};
        if (to < 1 || to > count)
            return S_FALSE;
        *end = ChildNumber(to);
        return S_OK;
    }

    /// 0 for a cell that is none of the children.
    static LONG NumberOf(const TCustomDBGrid& grid, TGridCoord cell) {
        const TColumn* column = grid.ColumnOfCell(cell.X);
        if (!column || !column->GetVisible() || cell.Y < 0)
            return 0;
        LONG place = 1;
        for (int i = 0; i < column->GetIndex(); ++i)
            place += grid.GetColumns()->GetColumn(i)->GetVisible();
        const int row = cell.Y - grid.TitleOffset();
        return row < 0 ? place : static_cast<LONG>(Titles(grid) + row * Columns(grid)) + place;
    }
    static LONG FocusNumber(const TCustomDBGrid& grid) { return NumberOf(grid, grid.FocusCell()); }

protected:
    HRESULT QueryOther(REFIID id, void** object) override {
        if (!IsEqualIID(id, __uuidof(IEnumVARIANT)))
            return TAccessibleObject::QueryOther(id, object);
        *object = nullptr; // the system would list windows; without it the children are asked for by number
        return E_NOINTERFACE;
    }

private:
    struct TPart {
        TColumn* Column = nullptr;
        int Row = -1; // on the screen, from 0; -1 for a title
        bool IsCell() const { return Column && Row >= 0; }
    };

    TCustomDBGrid* Grid() const {
        auto* grid = As<TCustomDBGrid>(FindControl(Window()));
        return grid && !grid->GetComponentState().Contains(csDestroying) ? grid : nullptr;
    }
    static int Columns(const TCustomDBGrid& grid) {
        int count = 0;
        for (int i = 0; i < grid.GetColumns()->GetCount(); ++i)
            count += grid.GetColumns()->GetColumn(i)->GetVisible();
        return count;
    }
    static int Titles(const TCustomDBGrid& grid) { return grid.TitleOffset() > 0 ? Columns(grid) : 0; }
    static TRect PlaceOf(const TCustomDBGrid& grid, const TPart& part) {
        const int index = part.Column->GetIndex();
        return part.IsCell() ? grid.DataCellRect(index, part.Row) : grid.TitleRect(index);
    }

    /// Calls `work` with the part that the number means, the grid itself for none. No exception may cross into the
    /// other program.
    template <class TWork>
    HRESULT WithPart(VARIANT child, TWork work) {
        TCustomDBGrid* grid = Grid();
        if (!grid || child.vt != VT_I4)
            return E_INVALIDARG;
        TPart part;
        if (child.lVal > 0) {
            const int columns = Columns(*grid);
            int number = static_cast<int>(child.lVal) - 1;
            if (columns == 0)
                return E_INVALIDARG;
            if (number >= Titles(*grid)) {
                number -= Titles(*grid);
                part.Row = number / columns;
                number %= columns;
                if (part.Row >= grid->GetShownRowCount())
                    return E_INVALIDARG;
            }
            for (int i = 0; i < grid->GetColumns()->GetCount() && !part.Column; ++i) {
                TColumn* column = grid->GetColumns()->GetColumn(i);
                if (column->GetVisible() && number-- == 0)
                    part.Column = column;
            }
        }
        try {
            return work(*grid, part);
        } catch (...) {
            return E_FAIL;
        }
    }
    HRESULT Say(VARIANT child, BSTR* answer, String (*say)(TCustomDBGrid& grid, const TPart& part)) {
        if (!answer)
            return E_POINTER;
        *answer = nullptr;
        return WithPart(child,
                        [&](TCustomDBGrid& grid, const TPart& part) { return GiveText(say(grid, part), answer); });
    }

    static LONG CellState(TCustomDBGrid& grid, const TPart& part) {
        LONG state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
        const bool focused =
            part.Row + grid.TitleOffset() == grid.FocusCell().Y && grid.ColumnOfCell(grid.FocusCell().X) == part.Column;
        if (focused && grid.Focused())
            state |= STATE_SYSTEM_FOCUSED;
        if (!grid.CanEditColumn(*part.Column))
            state |= STATE_SYSTEM_READONLY;
        if (!grid.GetEnabled())
            state |= STATE_SYSTEM_UNAVAILABLE;
        if (PlaceOf(grid, part).IsEmpty())
            state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
        const TCustomDBGrid::TRowScope scope(grid, part.Row);
        if (focused || grid.GetSelectedRows().GetCurrentRowSelected())
            state |= STATE_SYSTEM_SELECTED;
        if (grid.ShowsBox(*part.Column)) {
            const TField& field = *part.Column->GetField();
            state |= field.GetIsNull() ? STATE_SYSTEM_MIXED : field.GetAsBoolean() ? STATE_SYSTEM_CHECKED : 0;
        }
        return state;
    }
    static void GoTo(TCustomDBGrid& grid, const TPart& part) {
        TLifeGuard alive(grid);
        const int index = part.Column->GetIndex();
        grid.GoToRow(part.Row);
        if (alive)
            grid.GoToColumn(index);
    }
};

bool TCustomDBGrid::AnswerAccessible(TMessage& message) {
    return AnswerWithObject(FHandle, message, [](HWND window, IAccessible* system) -> TAccessibleObject* {
        return new TDBGridAccessible(window, system);
    });
}

/// The cell with the focus is another one, or shows another record.
void TCustomDBGrid::TellFocus() {
    if (!HandleAllocated() || !Focused() || GetEditorMode())
        return;
    if (const LONG number = TDBGridAccessible::FocusNumber(*this); number > 0)
        NotifyWinEvent(EVENT_OBJECT_FOCUS, FHandle, OBJID_CLIENT, number);
}

} // namespace framework
