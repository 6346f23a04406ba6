// The columns of data grids: what they take from fields and from forms. No grid has a window here.

#include "framework/dbgrid/dbgrid.h"
#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "tests/support/memoryrows.h"

#include <gtest/gtest.h>

using namespace testsupport;

namespace {

/// Customers with a source, and a grid that lies on no form.
struct TUnseenGrid {
    explicit TUnseenGrid(int count, bool opens = true) : Count(count), Customers(count, opens) {
        Source->SetDataSet(Customers.DataSet);
        Grid->Visible = false;
        Grid->DataSource = Source;
    }
    void Open() { Customers.DataSet->SetRecordset(std::make_shared<TClientRecordset>(MakeCustomers(Count))); }
    String Captions() {
        String captions;
        for (int i = 0; i < Grid->Columns->GetCount(); ++i)
            captions += (i ? u" " : u"") + Grid->Columns->GetColumn(i)->Title->Caption;
        return captions;
    }

    int Count;
    TCustomers Customers;
    TDataSource* Source = new TDataSource(&Customers.Owner);
    TDBGrid* Grid = new TDBGrid(&Customers.Owner);
};

TEST(DBGridColumns, FollowTheFieldsUntilTheyAreCustomized) {
    TUnseenGrid all(3, false);
    TDBGridColumns& columns = *all.Grid->Columns;
    EXPECT_EQ(columns.Count, 0) << "nothing to show yet";
    all.Open();
    EXPECT_EQ(all.Captions(), u"Id Name City Credit Born Notes");
    EXPECT_EQ(columns.State, csDefault);
    EXPECT_EQ(columns[3]->Alignment, taRightJustify);
    EXPECT_EQ(columns[1]->Alignment, taLeftJustify);
    EXPECT_GT(columns[1]->Width, columns[2]->Width) << "30 characters and 20";

    // What the fields say is seen at once, and what was set stays.
    TColumn* credit = columns[3];
    credit->Width = 77;
    all.Customers.DataSet->FieldByName(u"Name")->SetVisible(false);
    all.Customers.DataSet->FieldByName(u"City")->SetDisplayLabel(u"Town");
    EXPECT_EQ(all.Captions(), u"Id Town Credit Born Notes");
    EXPECT_EQ(columns[2], credit);
    EXPECT_EQ(credit->Width, 77);
    EXPECT_FALSE(IsStoredProp(*columns[1]->Title, GetPropInfo(*columns[1]->Title, u"Caption")));

    all.Grid->SelectedField = credit->Field;
    EXPECT_EQ(all.Grid->SelectedIndex, 2);
    all.Customers.DataSet->Close();
    EXPECT_EQ(columns.Count, 0);
    EXPECT_EQ(all.Grid->SelectedField, nullptr);
    all.Open();

    // The first column of one's own takes the place of those.
    TColumn* own = columns.Add();
    EXPECT_EQ(columns.Count, 1);
    EXPECT_EQ(columns.State, csCustomized);
    EXPECT_EQ(own->Field, nullptr);
    EXPECT_EQ(own->Width, kDefaultColumnWidth);
    own->FieldName = u"credit";
    ASSERT_NE(own->Field, nullptr) << "letter case aside";
    own->Title->Caption = u"Sum";
    own->ReadOnly = true;
    own->Alignment = taCenter;
    own->Width = 300;
    own->RestoreDefaults();
    EXPECT_EQ(all.Captions(), u"Credit");
    EXPECT_FALSE(own->ReadOnly);
    EXPECT_EQ(own->Alignment, taRightJustify);
    EXPECT_NE(own->Width, 300);

    all.Customers.DataSet->Close();
    EXPECT_EQ(columns.Count, 1);
    EXPECT_EQ(own->Field, nullptr) << "the field was the dataset's own and is gone";
    columns.State = csDefault;
    EXPECT_EQ(columns.Count, 0);
    all.Open();
    columns.RebuildColumns();
    EXPECT_EQ(columns.State, csCustomized);
    EXPECT_EQ(columns.Count, 6);
    delete all.Source;
    EXPECT_EQ(all.Grid->DataSource, nullptr);
    EXPECT_EQ(columns[0]->Field, nullptr);
}

TEST(DBGridColumns, GoThroughTextForms) {
    const std::string text = R"(object Grid: TDBGrid
  Left = 0
  Top = 0
  Width = 320
  Height = 120
  Columns = <
    item
      Alignment = taCenter
      ButtonStyle = cbsEllipsis
      Color = clYellow
      FieldName = 'City'
      PickList.Strings = (
        'Brno'
        'Radom')
      Title.Caption = 'Town'
      Title.Font.Charset = DEFAULT_CHARSET
      Title.Font.Color = clRed
      Title.Font.Height = -11
      Title.Font.Name = 'Tahoma'
      Title.Font.Style = []
      Width = 90
    end
    item
      FieldName = 'Name'
      ReadOnly = True
      Visible = False
    end>
end
)";
    RegisterDBGrid();
    TDBGrid grid(nullptr);
    LoadTextForm(grid, ParseTextForm(text));
    ASSERT_EQ(grid.Columns->Count, 2);
    EXPECT_EQ(grid.Columns->State, csCustomized);
    EXPECT_EQ(grid.Columns->GetColumn(0)->PickList->Count, 2);
    EXPECT_EQ(grid.Columns->GetColumn(0)->Title->Font->Color, clRed);
    EXPECT_FALSE(grid.Columns->GetColumn(1)->Visible);
    TDBGrid copy(nullptr);
    copy.Columns = grid.Columns;
    copy.SetName(u"Grid");
    copy.SetBounds(0, 0, 320, 120);
    const std::string saved = WriteTextForm(SaveTextForm(copy), {.LineEnd = TFormLineEnd::Lf});
    EXPECT_EQ(saved, text);
}

} // namespace
