#include "gallery/checklistpage.h"

#include "data/Zorvirtualstringtree.h"
#include "framework/system/numbers.h"
#include "framework/system/stringlist.h"
#include "framework/system/strings.h"
#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "gallery/eventsignatures.h"
#include "gallery/files.h"
#include "gallery/pages.h"
#include "gallery/scriptparts.h"

#include <iterator>

namespace gallery {

const TClassInfo& TCheckListPage::StaticClass() {
    using P = TCheckListPage;
    static const TClassInfo info = DescribeClass<P>(
        u"TCheckListPage", TForm::StaticClass(), {},
        {Method<&P::PageCreate>(u"PageCreate"), Method<&P::CitiesChecked>(u"CitiesChecked"),
         Method<&P::RegionsInitNode>(u"RegionsInitNode"), Method<&P::RegionsInitChildren>(u"RegionsInitChildren"),
         Method<&P::RegionsGetText>(u"RegionsGetText"), Method<&P::RegionsCompareNodes>(u"RegionsCompareNodes"),
         Method<&P::CountClick>(u"CountClick"), Method<&P::AvailableClick>(u"AvailableClick"),
         Method<&P::MirrorClick>(u"MirrorClick")},
        {Field<&P::CitiesTree>(u"CitiesTree"), Field<&P::RegionsTree>(u"RegionsTree")});
    return info;
}

namespace {

const TPageClass registered(&TCheckListPage::StaticClass);
// What trees tell and may be listened to; the rest asks for something, and assigning it changes what a tree does.
const TEventSignature treeEvents[] = {
    TEventSignature(&SignatureOf<TVTNodeEvent>),           TEventSignature(&SignatureOf<TVTChangingEvent>),
    TEventSignature(&SignatureOf<TVTCheckChangingEvent>),  TEventSignature(&SignatureOf<TVTHeaderNotifyEvent>),
    TEventSignature(&SignatureOf<TVTFocusChangingEvent>),  TEventSignature(&SignatureOf<TVTColumnNodeEvent>),
    TEventSignature(&SignatureOf<TVTHeaderClickEvent>),    TEventSignature(&SignatureOf<TVTHeaderDraggedEvent>),
    TEventSignature(&SignatureOf<TVTHeaderDraggingEvent>), TEventSignature(&SignatureOf<TVTScrollEvent>),
};
const TEventSignature treeQuestions[] = {
    TEventSignature(&UnwatchedSignatureOf<TVTCellPaintEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTCompareEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTGetHintEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTIncrementalSearchEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTInitChildrenEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTInitNodeEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTMeasureItemEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTHeaderPaintEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVSTGetTextEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTPaintTextEvent>),
};

/// `row 2`, `row 2 box`, `row 2 column 1`, `header 1`, `header box`, `divider 0` and `search`, counted from 0.
std::optional<TRect> FindTreePart(TControl& control, const std::vector<String>& words) {
    auto* tree = As<TBaseVirtualTree>(&control);
    int number = 0;
    if (!tree || words.empty())
        return std::nullopt;
    if (auto* list = As<ZOR::TZORVirtualStringTree>(tree); list && words[0] == u"search")
        return ScreenRect(*list->GetSearchEdit());
    const TVirtualTreeColumns& columns = *tree->GetHeader()->GetColumns();
    if (words[0] == u"header" && words.size() == 2 && words[1] == u"box")
        return OnScreen(control, tree->GetHeader()->CheckBoxRect(0, tree->HeaderCellRect(0)));
    if (words.size() < 2 || !TryStrToInt(words[1], number) || number < 0)
        return std::nullopt;
    if (words[0] == u"header" && columns.IsValidColumn(number))
        return OnScreen(control, tree->HeaderCellRect(number));
    if (words[0] == u"divider" && columns.IsValidColumn(number)) {
        TRect cell = tree->HeaderCellRect(number);
        cell.Left = cell.Right - 2;
        return OnScreen(control, cell);
    }
    TVirtualNode* node = words[0] == u"row" ? tree->NodeOfRow(number) : nullptr;
    int column = columns.GetCount() > 1 && words.size() == 2 ? 1 : 0;
    if (words.size() == 4 && words[2] == u"column")
        column = StrToInt(words[3]);
    if (!node || !columns.IsValidColumn(column))
        return std::nullopt;
    TRect cell = tree->GetDisplayRect(node, column);
    if (words.size() == 3 && words[2] == u"box") {
        const int indent = static_cast<int>(tree->GetNodeLevel(node)) * tree->GetIndent();
        cell.Left += tree->CheckBoxLeft() + indent;
        cell.Right = cell.Left + 12;
    }
    return OnScreen(control, cell);
}

const TPartFinder finder(&FindTreePart);

struct TBranch {
    const char16_t* Name;
    const char16_t* Places[4];
};
constexpr TBranch kBranches[] = {
    {u"Warszawa", {u"Mokot\u00F3w", u"Praga", u"Wola", u"\u017Boliborz"}},
    {u"Krak\u00F3w",
     {u"Kazimierz", u"Nowa Huta", u"Podg\u00F3rze", u"Zwierzyniec i Przegorza\u0142y za Wis\u0142\u0105"}},
    {u"Gda\u0144sk", {u"Oliwa", u"Orunia", u"Przymorze", u"Wrzeszcz"}},
    {u"Wroc\u0142aw", {u"Fabryczna", u"Krzyki", u"Psie Pole", u"Stare Miasto"}},
};

/// What a node tells, by the branch and the place that its data hold.
struct TBranchNode {
    int Branch;
    int Place; // -1 for the branch itself
};

String BranchText(const TBranchNode& node, TColumnIndex column) {
    const TBranch& branch = kBranches[node.Branch];
    if (column == 0)
        return node.Place < 0 ? branch.Name : branch.Places[node.Place];
    const int trips = 3 + (node.Branch * 5 + node.Place * 3 + 7) % 9;
    return column == 1 ? IntToStr(node.Place < 0 ? trips + 20 : trips) : u"do " + IntToStr(8 + trips / 2) + u":00";
}

void Fill(TComponent* component, const std::vector<String>& texts) {
    auto* list = As<ZOR::TZORVirtualStringTree>(component);
    for (std::size_t i = 0; list && i < texts.size(); ++i)
        list->AddToDeque(static_cast<int>(i) + 1, texts[i]);
    if (list)
        list->SetCheckListBox();
}

} // namespace

void TCheckListPage::PageCreate(TObject*) {
    TStringList places;
    places.LoadFromFile(ProgramFolder() + u"data\\places.txt");
    std::vector<String> names;
    for (int i = 0; i < places.GetCount(); ++i)
        names.push_back(places.Get(i));
    Fill(CitiesTree, names);
    if (auto* days = As<ZOR::TZORVirtualStringTree>(FindComponent(u"DaysTree")))
        days->GetHeader()->SetSort(NoColumn, sdAscending); // days have an order of their own
    Fill(FindComponent(u"DaysTree"),
         {u"poniedzia\u0142ek", u"wtorek", u"\u015Broda", u"czwartek", u"pi\u0105tek", u"sobota"});
    Fill(FindComponent(u"PaymentsTree"), {u"got\u00F3wka", u"karta", u"przelew", u"za pobraniem"});
    Fill(FindComponent(u"CarriersTree"), {u"kurier", u"paczkomat", u"poczta", u"w\u0142asny transport"});
    CitiesTree->GetSearchEdit()->OnKeyUp = [this](TObject*, WORD&, TShiftState) { ShowCounts(); };
    RegionsTree->SetNodeDataSize(sizeof(TBranchNode));
    RegionsTree->SetRootNodeCount(static_cast<unsigned>(std::size(kBranches)));
    ShowCounts();
}

void TCheckListPage::ShowCounts() {
    if (auto* status = As<TLabel>(FindComponent(u"StatusLabel")))
        status->SetText(u"Wida\u0107: " + IntToStr(CitiesTree->GetCheckListBox_FrazaVisibleCount()) +
                        u", w tym zaznaczone: " + IntToStr(CitiesTree->GetCheckListBox_FrazaCheckedCount()) +
                        u", razem zaznaczone: " + IntToStr(CitiesTree->GetCheckListBox_CheckedCount()));
}

void TCheckListPage::CitiesChecked(TBaseVirtualTree*, TVirtualNode*) {
    CitiesTree->SetFWymagany(CitiesTree->GetCheckListBox_CheckedCount() > 0 ? ZOR::wNone : ZOR::wRequired);
    ShowCounts();
}

void TCheckListPage::RegionsInitNode(TBaseVirtualTree* sender, TVirtualNode* parent, TVirtualNode* node,
                                     TVirtualNodeInitStates& states) {
    auto& data = *sender->GetNodeData<TBranchNode>(node);
    const auto index = static_cast<int>(node->GetIndex());
    data = parent ? TBranchNode{sender->GetNodeData<TBranchNode>(parent)->Branch, index} : TBranchNode{index, -1};
    sender->SetCheckType(node, ctTriStateCheckBox);
    if (!parent)
        states << ivsHasChildren;
    if (index == 0 && !parent)
        states << ivsExpanded;
}

void TCheckListPage::RegionsInitChildren(TBaseVirtualTree*, TVirtualNode*, unsigned& count) {
    count = static_cast<unsigned>(std::size(kBranches[0].Places));
}

void TCheckListPage::RegionsGetText(TBaseVirtualTree* sender, TVirtualNode* node, TColumnIndex column, TVSTTextType,
                                    String& text) {
    text = BranchText(*sender->GetNodeData<TBranchNode>(node), column);
}

void TCheckListPage::RegionsCompareNodes(TBaseVirtualTree* sender, TVirtualNode* first, TVirtualNode* second,
                                         TColumnIndex column, int& result) {
    const String left = BranchText(*sender->GetNodeData<TBranchNode>(first), column);
    const String right = BranchText(*sender->GetNodeData<TBranchNode>(second), column);
    result = column == 1 ? StrToInt(left) - StrToInt(right) : AnsiCompareText(left, right);
}

void TCheckListPage::CountClick(TObject* sender) {
    if (const auto* box = As<TCheckBox>(sender))
        CitiesTree->SetInfoLabelVisible(box->GetChecked());
}

void TCheckListPage::AvailableClick(TObject* sender) {
    const auto* box = As<TCheckBox>(sender);
    for (const char16_t* name : {u"CitiesTree", u"RegionsTree", u"DaysTree", u"PaymentsTree", u"CarriersTree"}) {
        if (auto* control = As<TControl>(FindComponent(name)); control && box)
            control->SetEnabled(box->GetChecked());
    }
}

void TCheckListPage::MirrorClick(TObject* sender) {
    const auto* box = As<TCheckBox>(sender);
    for (TBaseVirtualTree* tree :
         {static_cast<TBaseVirtualTree*>(CitiesTree), static_cast<TBaseVirtualTree*>(RegionsTree)})
        tree->SetBiDiMode(box && box->GetChecked() ? bdRightToLeft : bdLeftToRight);
}

} // namespace gallery
