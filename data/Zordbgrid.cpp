#include "data/Zordbgrid.h"

#include "foundation/Zormessages.h"
#include "foundation/Zorpalette.h"
#include "framework/windows/application.h"

namespace ZOR {

const TClassInfo& TZORDBGrid::StaticClass() {
    using G = TZORDBGrid;
    static const TClassInfo info = DescribeClass<G>(
        u"TZORDBGrid", TDBGrid::StaticClass(),
        {Property<&G::Get_ShowScrollBars, &G::Set_ShowScrollBars>(u"ShowScrollBars", true),
         Event<&G::OnColWidthsChanged>(u"OnColWidthsChanged"), Event<&G::OnDrawTitleCell>(u"OnDrawTitleCell")});
    return info;
}

void TZORDBGrid::DrawCell(int column, int row, const TRect& rect, TGridDrawState state) {
    if (row > 0) {
        TDBGrid::DrawCell(column, row, rect, state);
        return;
    }
    // By the number of the cell as it is: hosts reckon with it.
    if (OnDrawTitleCell && column < GetColumns()->GetCount())
        Fire(*this, OnDrawTitleCell, this, rect, GetColumns()->GetColumn(column), state);
}

void TZORDBGrid::Set_ShowScrollBars(bool value) {
    FShowScrollBars = value;
    if (!value && HandleAllocated())
        ShowScrollBar(FHandle, SB_BOTH, FALSE);
}

void TZORDBGrid::UpdateScrollBar() {
    if (FShowScrollBars)
        TDBGrid::UpdateScrollBar();
}

void TZORDBGrid::ColWidthsChanged() {
    TLifeGuard alive(*this);
    TDBGrid::ColWidthsChanged();
    if (alive)
        Fire(*this, OnColWidthsChanged, this);
}

bool TZORDBGrid::ConfirmDelete(bool selectedOnes) {
    if (UserMessageLanguage() != TMessageLanguage::Polish)
        return TDBGrid::ConfirmDelete(selectedOnes);
    const String question =
        selectedOnes ? u"Usun\u0105\u0107 wszystkie zaznaczone rekordy?" : u"Usun\u0105\u0107 rekord?";
    return TheApplication().MessageDialog(question, TheApplication().GetTitle(), MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}

void Zordbgrid::Register() {
    RegisterDBGrid();
    RegisterComponents(PalettePage, {&TZORDBGrid::StaticClass()});
}

} // namespace ZOR
