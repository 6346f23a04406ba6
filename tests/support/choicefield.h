#pragma once

// A choice field of six towns on a form, with the focus, and what it tells.

#include "lists/Zorcomboboxnew.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace testsupport {

using namespace framework;
using namespace ZOR;

inline TObject* Number(std::intptr_t value) {
    return reinterpret_cast<TObject*>(value); // programs keep numbers there
}

class ChoiceField : public testing::Test {
protected:
    void SetUp() override {
        Field = std::make_unique<TZORComboBoxnew>(nullptr);
        Field->SetParent(Form.get());
        Field->SetBounds(100, 40, 150, 21);
        const std::vector<String> names{u"Brno", u"Kraków", u"oko", u"Łódź", u"Weißenfels", u"Mönchengladbach"};
        for (std::size_t i = 0; i < names.size(); ++i)
            Field->AddItem(names[i], Number(static_cast<std::intptr_t>(i) + 100));
        Field->OnChange = [this](TObject*) { Told += u"change "; };
        Field->OnSelect = [this](TObject*) { Told += u"select "; };
        Field->OnCloseUp = [this](TObject*) { Told += u"close "; };
        Field->OnEditClick = [this](TObject*) { Told += u"edit "; };
        Field->OnNewClick = [this](TObject*) { Told += u"new "; };
        Other.SetParent(Form.get());
        Other.SetBounds(20, 200, 100, 21);
        Field->SetFocus();
        Application->ProcessMessages();
    }
    String Taken() { return std::exchange(Told, {}); }
    bool IsOpen() const { return Field->GetDroppedDown(); }
    TChoiceListBox& List() const { return *Field->GetPopup()->list_box; }
    int Row() const { return List().GetRow(); }
    TPoint Arrow() const {
        const TRect area = Field->ArrowRect();
        return {(area.Left + area.Right) / 2 + 2, area.Bottom / 2 + 2};
    }
    TPoint PlaceOfRow(int row) const {
        const TRect place = List().RowRect(row);
        return List().ClientToScreen({place.Left + 20, (place.Top + place.Bottom) / 2});
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TEdit Other{nullptr};
    std::unique_ptr<TZORComboBoxnew> Field;
    String Told;
};

} // namespace testsupport
