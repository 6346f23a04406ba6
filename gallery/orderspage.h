#pragma once

// The page "Orders": the rows of a database, narrowed to cities and to marked ones, summed up in a footer, with a card
// that changes the order with the focus and a grid with its items.

#include "data/Zoradodataset.h"
#include "data/Zordbgrid.h"
#include "data/Zorvirtualdbgrid.h"
#include "framework/windows/button.h"
#include "framework/windows/forms.h"
#include "framework/windows/label.h"
#include "gallery/ordersdatabase.h"

namespace ZOR {
class TZORCheckBox;
class TZORComboBoxnew;
class TZORDateTimePickerEdit;
class TZOREdit;
class TZORFloatEdit;
class TZORMemo;
class TZORVirtualStringTree;
} // namespace ZOR

namespace gallery {

class TOrdersPage : public TForm {
    FRAMEWORK_CLASS(TOrdersPage)

public:
    ZOR::TZORVirtualStringTree* CitiesTree = nullptr;
    ZOR::TZORVirtualDBGrid* OrdersGrid = nullptr;
    ZOR::TZORDBGrid* ItemsGrid = nullptr;
    ZOR::TZORADODataSet* Orders = nullptr;
    ZOR::TZORADODataSet* Items = nullptr;
    ZOR::TZOREdit* NumberEdit = nullptr;
    ZOR::TZORComboBoxnew* CustomerBox = nullptr;
    ZOR::TZORDateTimePickerEdit* OrderedEdit = nullptr;
    ZOR::TZORDateTimePickerEdit* DeliveredEdit = nullptr;
    ZOR::TZORFloatEdit* ShippingEdit = nullptr;
    ZOR::TZORMemo* NoteMemo = nullptr;
    ZOR::TZORCheckBox* PaidBox = nullptr;
    TButton* SaveButton = nullptr;
    TButton* CancelButton = nullptr;
    TLabel* MessageLabel = nullptr;
    TLabel* StatusLabel = nullptr;

    explicit TOrdersPage(TComponent* owner) : TForm(owner) {}

    void WndProc(TMessage& message) override;

private:
    // What forms/orders.dfm names.
    void PageCreate(TObject* sender);
    void CitiesChecked(TBaseVirtualTree* sender, TVirtualNode* node);
    void OrderChecked(TBaseVirtualTree* sender, TVirtualNode* node);
    void OrderFocused(TBaseVirtualTree* sender, TVirtualNode* node, TColumnIndex column);
    void OrderFocusing(TBaseVirtualTree* sender, TVirtualNode* oldNode, TVirtualNode* newNode, TColumnIndex oldColumn,
                       TColumnIndex newColumn, bool& allowed);
    void OrderRead(TBaseVirtualTree* sender, TVirtualNode* parent, TVirtualNode* node, TVirtualNodeInitStates& states);
    void FooterText(String& text, TColumn* column, const Variant& total);
    void MarkClick(TObject* sender);
    void UnmarkClick(TObject* sender);
    void OnlyMarkedClick(TObject* sender);
    void ShowAllClick(TObject* sender);
    void CompareClick(TObject* sender);
    void CardChange(TObject* sender);
    void SaveClick(TObject* sender);
    void CancelClick(TObject* sender);
    void OrdersCalcFields(TDataSet* dataSet);
    void ItemsCalcFields(TDataSet* dataSet);
    void ItemsBeforeInsert(TDataSet* dataSet);
    void ItemsChanged(TDataSet* dataSet);
    void ItemsStateChange(TObject* sender);
    void ItemsResize(TObject* sender);
    void DrawItemTitle(TObject* sender, const TRect& rect, TColumn* column, TGridDrawState state);

    void OpenData();
    void FillChoices();

    // Which rows show
    TOrderChoice Choice() const;
    void Narrow();
    void NarrowDataSet(const TOrderChoice& choice);
    void MarkSelected(bool mark);
    void RowsChanged();
    void ReloadRows();

    // The card
    void ShowOrder();
    void ShowCard();
    bool SaveCard();
    String CheckCard();
    void TakeCard();
    void SetChanged(bool value);
    bool IsChanged() const { return FChanged || Items->GetState() == dsEdit || Orders->GetState() == dsEdit; }
    void ShowButtons();
    void ShowDeliveryNeed();

    void ShowMessage(const String& text, TColor color);
    void ShowStatus();
    /// As the footer shows it.
    String ShownTotal(const String& field) const;

    std::unique_ptr<TOrdersDatabase> FDatabase; // null where it could not be opened
    std::map<int, int> FCustomerItems;          // the items of the choice field, by the numbers of the customers
    std::set<int> FMarked;                      // numbers of orders
    bool FOnlyMarked = false;
    bool FUpdating = false;      // rows come and go
    bool FShowing = false;       // the card is being filled by the program
    bool FChanged = false;       // the person has changed something in the card
    bool FRefused = false;       // the database has not taken it
    bool FNarrowPending = false; // until the card is saved or given up
};

} // namespace gallery
