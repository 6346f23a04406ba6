#pragma once

// A data grid on a form over customers who have or have not paid, and a person at it.

#include "framework/dbgrid/dbgrid.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "tests/support/input.h"
#include "tests/support/memoryrows.h"

#include <gtest/gtest.h>

namespace testsupport {

/// The customers of MakeCustomers and a column Paid, which is Null for all.
inline std::unique_ptr<TMemorySource> MakeDebtors(int count) {
    auto source = MakeCustomers(count);
    source->Columns.push_back(MemoryColumn(u"Paid", adBoolean));
    for (auto& row : source->Rows)
        row.emplace_back();
    return source;
}

template <class TGrid>
class TGridForm : public testing::Test {
protected:
    static constexpr int kRecords = 60;

    void SetUp() override {
        Form = ShowForm();
        auto source = MakeDebtors(kRecords);
        Rows = source.get();
        Data->SetRecordset(std::make_shared<TClientRecordset>(std::move(source)));
        Source->SetDataSet(Data);
        Grid = new TGrid(Form.get());
        Grid->SetBounds(10, 10, 370, 200);
        Grid->Parent = Form.get();
        Grid->DataSource = Source;
        Other = new TEdit(Form.get());
        Other->SetBounds(10, 220, 100, 21);
        Other->Parent = Form.get();
        Grid->SetFocus();
        Paint();
    }
    void Paint() {
        Application->ProcessMessages();
        if (Grid)
            Grid->Update();
    }
    int Id() { return Data->IsEmpty() ? 0 : Data->FieldByName(u"Id")->AsInteger; }
    String Text(StringView field) { return Data->FieldByName(field)->AsString; }
    static TPoint Middle(const TRect& rect) { return {(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2}; }
    TPoint Cell(int column, int row) { return Middle(Grid->DataCellRect(column, row)); }
    void Click(TPoint point) {
        ClickOn(*Grid, point);
        Paint();
    }
    void Drag(TPoint from, TPoint to) {
        PressMouse(Grid->ClientToScreen(from));
        Application->ProcessMessages();
        // In steps, as a person does.
        for (int step = 1; step <= 4; ++step) {
            MoveMouse(Grid->ClientToScreen({from.X + (to.X - from.X) * step / 4, from.Y + (to.Y - from.Y) * step / 4}));
            Application->ProcessMessages();
        }
        ReleaseMouse();
        Paint();
    }
    /// The field in which a cell is being edited; null when none is.
    TCustomEdit* Editor() {
        for (int i = 0; Grid->EditorMode && i < Grid->ControlCount; ++i) {
            if (auto* edit = As<TCustomEdit>(Grid->Controls[i]))
                return edit;
        }
        return nullptr;
    }
    String Captions() {
        String captions;
        for (int i = 0; i < Grid->Columns->GetCount(); ++i)
            captions += (i ? u" " : u"") + Grid->Columns->GetColumn(i)->Title->Caption;
        return captions;
    }

    TComponent Owner{nullptr};
    ZOR::TZORADODataSet* Data = new ZOR::TZORADODataSet(&Owner);
    TDataSource* Source = new TDataSource(&Owner);
    TMemorySource* Rows = nullptr;
    std::unique_ptr<TForm> Form;
    TGrid* Grid = nullptr;
    TEdit* Other = nullptr;
};

} // namespace testsupport
