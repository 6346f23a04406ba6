#include "gallery/orderspage.h"

#include "controls/Zorcheckbox.h"
#include "controls/Zoredit.h"
#include "controls/Zormemo.h"
#include "data/Zorvirtualstringtree.h"
#include "datetime/Zordatetimepickeredit.h"
#include "framework/db/databaseerrors.h"
#include "framework/db/fieldclasses.h"
#include "framework/system/dates.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/system/updates.h"
#include "framework/windows/application.h"
#include "gallery/eventsignatures.h"
#include "gallery/ordersums_rules.h"
#include "gallery/pages.h"
#include "lists/Zorcomboboxnew.h"
#include "numeric/Zorfloatedit.h"

#include <algorithm>

namespace gallery {

const TClassInfo& TOrdersPage::StaticClass() {
    using P = TOrdersPage;
    static const TClassInfo info = DescribeClass<P>(
        u"TOrdersPage", TForm::StaticClass(), {},
        {Method<&P::PageCreate>(u"PageCreate"),           Method<&P::CitiesChecked>(u"CitiesChecked"),
         Method<&P::OrderChecked>(u"OrderChecked"),       Method<&P::OrderFocused>(u"OrderFocused"),
         Method<&P::OrderFocusing>(u"OrderFocusing"),     Method<&P::OrderRead>(u"OrderRead"),
         Method<&P::FooterText>(u"FooterText"),           Method<&P::MarkClick>(u"MarkClick"),
         Method<&P::UnmarkClick>(u"UnmarkClick"),         Method<&P::OnlyMarkedClick>(u"OnlyMarkedClick"),
         Method<&P::ShowAllClick>(u"ShowAllClick"),       Method<&P::CompareClick>(u"CompareClick"),
         Method<&P::CardChange>(u"CardChange"),           Method<&P::SaveClick>(u"SaveClick"),
         Method<&P::CancelClick>(u"CancelClick"),         Method<&P::OrdersCalcFields>(u"OrdersCalcFields"),
         Method<&P::ItemsCalcFields>(u"ItemsCalcFields"), Method<&P::ItemsBeforeInsert>(u"ItemsBeforeInsert"),
         Method<&P::ItemsChanged>(u"ItemsChanged"),       Method<&P::ItemsStateChange>(u"ItemsStateChange"),
         Method<&P::ItemsResize>(u"ItemsResize"),         Method<&P::DrawItemTitle>(u"DrawItemTitle")},
        {Field<&P::CitiesTree>(u"CitiesTree"), Field<&P::OrdersGrid>(u"OrdersGrid"), Field<&P::ItemsGrid>(u"ItemsGrid"),
         Field<&P::Orders>(u"Orders"), Field<&P::Items>(u"Items"), Field<&P::NumberEdit>(u"NumberEdit"),
         Field<&P::CustomerBox>(u"CustomerBox"), Field<&P::OrderedEdit>(u"OrderedEdit"),
         Field<&P::DeliveredEdit>(u"DeliveredEdit"), Field<&P::ShippingEdit>(u"ShippingEdit"),
         Field<&P::NoteMemo>(u"NoteMemo"), Field<&P::PaidBox>(u"PaidBox"), Field<&P::SaveButton>(u"SaveButton"),
         Field<&P::CancelButton>(u"CancelButton"), Field<&P::MessageLabel>(u"MessageLabel"),
         Field<&P::StatusLabel>(u"StatusLabel")});
    return info;
}

namespace {

const TPageClass registered(&TOrdersPage::StaticClass);

// These ask for something, and assigning them changes what a grid does.
const TEventSignature gridQuestions[] = {
    TEventSignature(&UnwatchedSignatureOf<ZOR::TVTDrawTextNodeEvent>),
    TEventSignature(&UnwatchedSignatureOf<ZOR::TVTGetFooterText>),
    TEventSignature(&UnwatchedSignatureOf<ZOR::TDrawTitleCellEvent>),
    TEventSignature(&UnwatchedSignatureOf<TDrawColumnCellEvent>),
    TEventSignature(&UnwatchedSignatureOf<TDrawDataCellEvent>),
    TEventSignature(&UnwatchedSignatureOf<TDataSetNotifyEvent>), // each record tells of itself
    TEventSignature(&UnwatchedSignatureOf<TDataSetErrorEvent>),
    TEventSignature(&UnwatchedSignatureOf<TFilterRecordEvent>),
    TEventSignature(&UnwatchedSignatureOf<TFetchProgressEvent>),
    TEventSignature(&UnwatchedSignatureOf<TVTGetNodeWidthEvent>),
    TEventSignature(&UnwatchedSignatureOf<TFieldGetTextEvent>),
    TEventSignature(&UnwatchedSignatureOf<TFieldSetTextEvent>),
};
const TEventSignature dataEvents[] = {
    TEventSignature(&SignatureOf<TDBGridClickEvent>),
    TEventSignature(&SignatureOf<TMovedEvent>),
    TEventSignature(&SignatureOf<TDataChangeEvent>),
    TEventSignature(&SignatureOf<TFieldNotifyEvent>),
};

constexpr TColor kProblemColor = 0x0000C0;
constexpr TColor kGoodColor = 0x2E7D32;
constexpr char16_t kMoney[] = u"#,##0.00";
constexpr UINT kReloadRows = WM_APP + 1;

String Money(Currency value) {
    return FormatCurr(kMoney, value);
}

/// Sets a flag as long as it lives.
class TWhile {
public:
    explicit TWhile(bool& flag) : FFlag(flag), FBefore(std::exchange(flag, true)) {}
    TWhile(const TWhile&) = delete;
    TWhile& operator=(const TWhile&) = delete;
    ~TWhile() { FFlag = FBefore; }

private:
    bool& FFlag;
    bool FBefore;
};

class TControlsDisabled {
public:
    explicit TControlsDisabled(TDataSet& dataSet) : FDataSet(dataSet) { FDataSet.DisableControls(); }
    TControlsDisabled(const TControlsDisabled&) = delete;
    TControlsDisabled& operator=(const TControlsDisabled&) = delete;
    ~TControlsDisabled() { FDataSet.EnableControls(); }

private:
    TDataSet& FDataSet;
};

} // namespace

// Opening

void TOrdersPage::PageCreate(TObject*) {
    OrdersGrid->OnFooterDraw = ZOR::DrawFooterTotals;
    ItemsGrid->OnResize = [this](TObject* sender) { ItemsResize(sender); };
    ItemsResize(ItemsGrid);
    const TCursor cursor = TheScreen().GetCursor();
    TheScreen().SetCursor(crHourGlass); // the first run makes the database
    try {
        OpenData();
    } catch (const EDatabaseError& error) {
        Orders->Close();
        OrdersGrid->Clear();
        FDatabase.reset();
        ShowMessage(u"Nie ma danych: " + error.GetMessageText(), kProblemColor);
    }
    TheScreen().SetCursor(cursor);
    for (TControl* control :
         std::initializer_list<TControl*>{CitiesTree, OrdersGrid, ItemsGrid, NumberEdit, CustomerBox, OrderedEdit,
                                          DeliveredEdit, ShippingEdit, NoteMemo, PaidBox})
        control->SetEnabled(FDatabase != nullptr);
    for (const char16_t* name :
         {u"MarkButton", u"UnmarkButton", u"OnlyMarkedButton", u"ShowAllButton", u"CompareButton"})
        As<TControl>(FindComponent(name))->SetEnabled(FDatabase != nullptr);
}

void TOrdersPage::OpenData() {
    FDatabase = std::make_unique<TOrdersDatabase>();
    FillChoices();
    Orders->SetConnection(FDatabase->GetConnection());
    Items->SetConnection(FDatabase->GetConnection());
    {
        const TWhile updating(FUpdating);
        Orders->Open();
        Items->Open();
    }
    ReloadRows();
}

void TOrdersPage::FillChoices() {
    int number = 0;
    for (const String& city : FDatabase->Cities())
        CitiesTree->AddToDeque(++number, city);
    CitiesTree->SetCheckListBox();
    std::vector<std::pair<String, int>> customers;
    for (const auto& [id, customer] : FDatabase->GetCustomers())
        customers.emplace_back(customer.Name + u", " + customer.City + u" (" + IntToStr(id) + u")", id);
    std::sort(customers.begin(), customers.end(),
              [](const auto& left, const auto& right) { return AnsiCompareText(left.first, right.first) < 0; });
    WithinUpdate(*CustomerBox->GetItems(), [&] {
        for (const auto& [text, id] : customers) {
            FCustomerItems[id] = CustomerBox->GetItems()->GetCount();
            CustomerBox->AddItem(text, reinterpret_cast<TObject*>(static_cast<std::intptr_t>(id)));
        }
    });
}

void TOrdersPage::OrdersCalcFields(TDataSet* dataSet) {
    const auto& customers = FDatabase->GetCustomers();
    const auto found = customers.find(dataSet->FieldByName(u"customer_id")->GetAsInteger());
    if (found == customers.end())
        return;
    dataSet->FieldByName(u"customer")->SetAsString(found->second.Name);
    dataSet->FieldByName(u"city")->SetAsString(found->second.City);
}

// Which rows show

TOrderChoice TOrdersPage::Choice() const {
    TOrderChoice choice;
    for (std::size_t i = 0; i < CitiesTree->GetDequeCount(); ++i) {
        const ZOR::sCheckListBox& item = CitiesTree->GetDequeItem(i);
        if (item.IsChecked())
            choice.Cities.insert(item.text);
    }
    if (FOnlyMarked)
        choice.Numbers = FMarked;
    return choice;
}

/// Bookmarks the rows of the choice, and shows these alone.
void TOrdersPage::NarrowDataSet(const TOrderChoice& choice) {
    const TControlsDisabled disabled(*Orders);
    Orders->SetFilteredByBookmarks(false);
    Orders->ClearBookmarks();
    if (choice.Cities.empty() && !choice.Numbers)
        return;
    const TField& number = *Orders->FieldByName(u"id");
    const TField& customer = *Orders->FieldByName(u"customer_id");
    int count = 0;
    for (Orders->First(); !Orders->GetEof(); Orders->Next()) {
        const bool isMarked = !choice.Numbers || choice.Numbers->count(number.GetAsInteger()) > 0;
        const auto buyer = FDatabase->GetCustomers().find(customer.GetAsInteger());
        const bool isThere = choice.Cities.empty() ||
                             (buyer != FDatabase->GetCustomers().end() && choice.Cities.count(buyer->second.City) > 0);
        if (isMarked && isThere)
            Orders->AddBookmark(++count);
    }
    Orders->SetFilteredByBookmarks(true); // stays off when there is none
}

void TOrdersPage::Narrow() {
    FNarrowPending = !SaveCard();
    if (FNarrowPending)
        return;
    {
        const TWhile updating(FUpdating);
        NarrowDataSet(Choice());
        if (FOnlyMarked && !Orders->GetFilteredByBookmarks()) {
            FOnlyMarked = false;
            ShowMessage(u"Żaden z widocznych wierszy nie jest zaznaczony.", kProblemColor);
            NarrowDataSet(Choice());
        }
    }
    ReloadRows();
}

/// The rows are read anew as soon as whatever is going on now has ended.
void TOrdersPage::RowsChanged() {
    if (HandleAllocated())
        PostMessageW(GetHandle(), kReloadRows, 0, 0);
}

void TOrdersPage::WndProc(TMessage& message) {
    if (message.Msg == kReloadRows)
        ReloadRows();
    else
        TForm::WndProc(message);
}

void TOrdersPage::ReloadRows() {
    if (!FDatabase)
        return;
    {
        const TWhile updating(FUpdating);
        OrdersGrid->Reload();
        if (!OrdersGrid->GetFocusedNode())
            OrdersGrid->Set_Selected(OrdersGrid->GetFirst());
    }
    ShowOrder();
    ShowStatus();
}

void TOrdersPage::CitiesChecked(TBaseVirtualTree*, TVirtualNode*) {
    if (FUpdating)
        return;
    ShowMessage({}, clWindowText);
    Narrow();
}

void TOrdersPage::OrderRead(TBaseVirtualTree*, TVirtualNode*, TVirtualNode* node, TVirtualNodeInitStates&) {
    if (FMarked.count(OrdersGrid->GetRowId(node).first) > 0)
        OrdersGrid->SetCheckState(node, csCheckedNormal);
}

void TOrdersPage::OrderChecked(TBaseVirtualTree*, TVirtualNode* node) {
    const int number = OrdersGrid->GetRowId(node).first;
    if (OrdersGrid->GetCheckState(node) == csCheckedNormal)
        FMarked.insert(number);
    else if (!FUpdating)
        FMarked.erase(number);
    if (!FUpdating)
        ShowStatus();
}

void TOrdersPage::MarkSelected(bool mark) {
    {
        const TWhile updating(FUpdating);
        for (TVirtualNode* node = OrdersGrid->GetFirstSelected(); node; node = OrdersGrid->GetNextSelected(node)) {
            OrdersGrid->SetCheckState(node, mark ? csCheckedNormal : csUncheckedNormal);
            if (!mark)
                FMarked.erase(OrdersGrid->GetRowId(node).first);
        }
    }
    ShowMessage({}, clWindowText);
    if (FOnlyMarked)
        Narrow();
    else
        ShowStatus();
}

void TOrdersPage::MarkClick(TObject*) {
    MarkSelected(true);
}

void TOrdersPage::UnmarkClick(TObject*) {
    MarkSelected(false);
}

void TOrdersPage::OnlyMarkedClick(TObject*) {
    ShowMessage({}, clWindowText);
    FOnlyMarked = true;
    Narrow();
}

void TOrdersPage::ShowAllClick(TObject*) {
    ShowMessage({}, clWindowText);
    FOnlyMarked = false;
    {
        const TWhile updating(FUpdating);
        CitiesTree->SetFraza({});
        CitiesTree->GetSearchEdit()->SetText({});
        CitiesTree->CheckListBox_SetChecked(csUncheckedNormal);
    }
    Narrow();
}

/// What the grid has added up beside what the database adds up itself.
void TOrdersPage::CompareClick(TObject*) {
    const TOrderTotals sums = FDatabase->Totals(Choice());
    const auto summary = [](std::int64_t rows, const String& goods, const String& shipping) {
        return u"wierszy: " + IntToStr(rows) + u", towary: " + goods + u", dostawa: " + shipping;
    };
    const String stored = summary(sums.Count, Money(sums.Goods), Money(sums.Shipping));
    const String shown = summary(OrdersGrid->GetRootNodeCount(), ShownTotal(u"goods"), ShownTotal(u"shipping"));
    if (stored == shown)
        ShowMessage(u"SQL SUM liczy tyle samo – " + stored, kGoodColor);
    else
        ShowMessage(u"SQL SUM liczy inaczej – " + stored + u" (siatka – " + shown + u")", kProblemColor);
}

void TOrdersPage::FooterText(String& text, TColumn* column, const Variant&) {
    if (column->GetFieldName() == u"customer")
        text = u"Razem: " + IntToStr(static_cast<int>(OrdersGrid->GetRootNodeCount()));
}

// The order with the focus

void TOrdersPage::OrderFocusing(TBaseVirtualTree*, TVirtualNode* oldNode, TVirtualNode* newNode, TColumnIndex,
                                TColumnIndex, bool& allowed) {
    if (!FUpdating && oldNode != newNode)
        allowed = SaveCard();
}

void TOrdersPage::OrderFocused(TBaseVirtualTree*, TVirtualNode*, TColumnIndex) {
    if (!FUpdating)
        ShowOrder();
}

/// The dataset goes to the row with the focus, and the items follow it.
void TOrdersPage::ShowOrder() {
    if (IsChanged())
        return;
    const TBookmark bookmark = OrdersGrid->GetRowBookmark(OrdersGrid->GetFocusedNode());
    if (!bookmark.IsEmpty() && Orders->BookmarkValid(bookmark) && !(Orders->GetBookmark() == bookmark))
        Orders->GotoBookmark(bookmark);
    ShowCard();
}

void TOrdersPage::ShowCard() {
    const TWhile showing(FShowing);
    const auto field = [this](const char16_t* name) -> TField& { return *Orders->FieldByName(name); };
    NumberEdit->SetText(field(u"id").GetAsString());
    const auto item = FCustomerItems.find(field(u"customer_id").GetAsInteger());
    CustomerBox->SetItemIndex(item == FCustomerItems.end() ? -1 : item->second);
    OrderedEdit->SetFDateTime(field(u"ordered").GetAsDateTime());
    if (field(u"delivered").GetIsNull())
        DeliveredEdit->Clear();
    else
        DeliveredEdit->SetFDate(field(u"delivered").GetAsDateTime());
    ShippingEdit->SetValue(field(u"shipping").GetAsCurrency().AsFloat());
    NoteMemo->SetText(field(u"note").GetAsString());
    PaidBox->SetChecked(field(u"paid").GetAsBoolean());
    CustomerBox->SetFWymagany(ZOR::wRequired);
    ShippingEdit->SetFWymagany(ZOR::wRequired);
    ShowDeliveryNeed();
    SetChanged(false);
}

/// Who has paid has got it.
void TOrdersPage::ShowDeliveryNeed() {
    DeliveredEdit->SetFWymagany(PaidBox->GetChecked() ? ZOR::wRequired : ZOR::wRecommended);
}

void TOrdersPage::SetChanged(bool value) {
    FChanged = value;
    ShowButtons();
}

/// Who has pressed one of the buttons goes on in the rows when it has nothing to do any more.
void TOrdersPage::ShowButtons() {
    if (!IsChanged() && (SaveButton->Focused() || CancelButton->Focused()) && OrdersGrid->CanFocus())
        OrdersGrid->SetFocus();
    SaveButton->SetEnabled(IsChanged());
    CancelButton->SetEnabled(IsChanged());
}

void TOrdersPage::CardChange(TObject* sender) {
    if (FShowing)
        return;
    if (sender == PaidBox)
        ShowDeliveryNeed();
    ShowMessage({}, clWindowText);
    SetChanged(true);
}

/// Goes to what cannot be saved so; empty when all is well. A date that is missing keeps its blue frame: one with an
/// error could not be left until it is a date.
String TOrdersPage::CheckCard() {
    const auto refuse = [](TWinControl& field, const char16_t* problem) {
        if (field.CanFocus())
            field.SetFocus();
        return String(problem);
    };
    const auto mark = [&](auto& field, const char16_t* problem) {
        field.SetFWymagany(ZOR::wError);
        return refuse(field, problem);
    };
    if (CustomerBox->get_id_sel() < 0)
        return mark(*CustomerBox, u"Zamówienie potrzebuje klienta.");
    const TDateTime ordered = OrderedEdit->GetFDateTime();
    if (!OrderedEdit->sprawdz_combosa() || ordered == 0)
        return refuse(*OrderedEdit, u"Zamówienie potrzebuje daty złożenia.");
    if (!DeliveredEdit->sprawdz_combosa())
        return refuse(*DeliveredEdit, u"To nie jest data.");
    const TDateTime delivered = DeliveredEdit->GetFDateTime();
    if (delivered == 0 && PaidBox->GetChecked())
        return refuse(*DeliveredEdit, u"Zapłacone zamówienie musi mieć datę dostarczenia.");
    if (delivered != 0 && delivered < DateOf(ordered))
        return refuse(*DeliveredEdit, u"Zamówienie nie może być dostarczone, zanim je złożono.");
    if (ShippingEdit->GetText().empty())
        return mark(*ShippingEdit, u"Koszt dostawy jest potrzebny, choćby 0.");
    return {};
}

/// The values of the card go into the fields, those alone that differ.
void TOrdersPage::TakeCard() {
    const auto field = [this](const char16_t* name) -> TField& { return *Orders->FieldByName(name); };
    if (field(u"customer_id").GetAsInteger() != CustomerBox->get_id_sel())
        field(u"customer_id").SetAsInteger(CustomerBox->get_id_sel());
    if (field(u"ordered").GetAsDateTime() != OrderedEdit->GetFDateTime())
        field(u"ordered").SetAsDateTime(OrderedEdit->GetFDateTime());
    const TDateTime delivered = DeliveredEdit->GetFDateTime();
    if (delivered == 0)
        field(u"delivered").Clear();
    else if (field(u"delivered").GetAsDateTime() != delivered)
        field(u"delivered").SetAsDateTime(delivered);
    const Currency shipping(ShippingEdit->GetValue());
    if (field(u"shipping").GetAsCurrency() != shipping)
        field(u"shipping").SetAsCurrency(shipping);
    const String note = NoteMemo->GetText();
    if (note.empty())
        field(u"note").Clear();
    else if (field(u"note").GetAsString() != note)
        field(u"note").SetAsString(note);
    if (field(u"paid").GetAsBoolean() != PaidBox->GetChecked())
        field(u"paid").SetAsBoolean(PaidBox->GetChecked());
}

/// False when card and items stay as they are, with a message.
bool TOrdersPage::SaveCard() {
    if (!IsChanged())
        return true;
    const String problem = FChanged ? CheckCard() : String();
    if (!problem.empty()) {
        ShowMessage(problem, kProblemColor);
        return false;
    }
    try {
        Items->CheckBrowseMode();
        if (FChanged) {
            Orders->Edit();
            TakeCard();
        }
        if (Orders->GetState() == dsEdit)
            Orders->Post();
    } catch (const EDatabaseError& error) {
        FRefused = true; // the values stay in the card and in the record
        ShowMessage(u"Nie zapisano: " + error.GetMessageText(), kProblemColor);
        return false;
    }
    FRefused = false;
    SetChanged(false);
    ShowMessage(u"Zapisano zamówienie " + NumberEdit->GetText() + u".", kGoodColor);
    RowsChanged();
    return true;
}

void TOrdersPage::SaveClick(TObject*) {
    if (SaveCard() && FNarrowPending)
        Narrow();
}

void TOrdersPage::CancelClick(TObject*) {
    Items->Cancel();
    Orders->Cancel();
    if (std::exchange(FRefused, false)) { // somebody else may have changed the records
        Orders->Refresh();
        Items->Refresh();
        RowsChanged();
    }
    ShowMessage({}, clWindowText);
    ShowCard();
    if (FNarrowPending)
        Narrow();
}

// Items

void TOrdersPage::ItemsCalcFields(TDataSet* dataSet) {
    dataSet->FieldByName(u"product")
        ->SetAsString(FDatabase->ProductName(dataSet->FieldByName(u"product_id")->GetAsInteger()));
    TOrderLine line;
    line.Quantity = dataSet->FieldByName(u"quantity")->GetAsInteger();
    line.Price = dataSet->FieldByName(u"price")->GetAsCurrency();
    line.DiscountPercent = dataSet->FieldByName(u"discount")->GetAsCurrency().AsFloat();
    dataSet->FieldByName(u"amount")->SetAsCurrency(NetAmount(line));
}

/// Orders get no new items here.
void TOrdersPage::ItemsBeforeInsert(TDataSet*) {
    throw EAbort();
}

/// The order costs what its items cost.
void TOrdersPage::ItemsChanged(TDataSet*) {
    Currency goods;
    {
        const TControlsDisabled disabled(*Items);
        const TBookmark place = Items->GetBookmark();
        for (Items->First(); !Items->GetEof(); Items->Next())
            goods += Items->FieldByName(u"amount")->GetAsCurrency();
        Items->GotoBookmark(place);
    }
    const bool isInEdit = Orders->GetState() == dsEdit;
    Orders->Edit();
    Orders->FieldByName(u"goods")->SetAsCurrency(goods);
    if (!isInEdit)
        Orders->Post();
    RowsChanged();
}

void TOrdersPage::ItemsStateChange(TObject*) {
    ShowButtons();
}

/// The first column takes the room that the others leave.
void TOrdersPage::ItemsResize(TObject*) {
    int room = ItemsGrid->GetClientWidth();
    for (int i = 1; i < ItemsGrid->GetColumns()->GetCount(); ++i)
        room -= ItemsGrid->GetColumns()->GetColumn(i)->GetWidth() + 1;
    ItemsGrid->GetColumns()->GetColumn(0)->SetWidth(std::max(room - 1, 40));
}

/// As the theme has it. The grid has no indicator, so each title comes with its own column.
void TOrdersPage::DrawItemTitle(TObject*, const TRect& rect, TColumn* column, TGridDrawState state) {
    ItemsGrid->DefaultDrawTitle(rect, column, state);
}

// What the page tells

void TOrdersPage::ShowMessage(const String& text, TColor color) {
    MessageLabel->GetFont()->SetColor(color);
    MessageLabel->SetText(text);
    MessageLabel->SetHint(text);
}

String TOrdersPage::ShownTotal(const String& field) const {
    return OrdersGrid->FormatColumnTotal(OrdersGrid->Get_Column(field));
}

void TOrdersPage::ShowStatus() {
    StatusLabel->SetText(u"Zamówienia: " + IntToStr(static_cast<int>(OrdersGrid->GetRootNodeCount())) +
                         (FOnlyMarked ? u" (tylko zaznaczone)" : u"") + u", zaznaczone: " +
                         IntToStr(static_cast<int>(FMarked.size())) + u", towary: " + ShownTotal(u"goods") +
                         u", dostawa: " + ShownTotal(u"shipping"));
}

} // namespace gallery
