#pragma once

// A form with a date field and a plain one to go to.

#include "datetime/Zordatetimepickeredit.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace testsupport {

using namespace framework;
using namespace ZOR;

inline TFormatSettings Country(const char16_t* shortDate, char16_t separator, const char16_t* shortTime) {
    TFormatSettings settings;
    settings.ShortDateFormat = shortDate;
    settings.DateSeparator = separator;
    settings.ShortTimeFormat = shortTime;
    return settings;
}

inline const TFormatSettings kYearFirst = Country(u"yyyy-MM-dd", u'-', u"hh:mm");
inline const TFormatSettings kPolish = Country(u"d.MM.yyyy", u'.', u"hh:mm");
inline const TFormatSettings kGerman = Country(u"dd.MM.yyyy", u'.', u"hh:mm");
inline const TFormatSettings kAmerican = Country(u"M/d/yyyy", u'/', u"h:mm AMPM");

inline const TDateTime kDay = EncodeDate(2024, 3, 15);

class DateEdit : public testing::Test {
protected:
    DateEdit() { framework::FormatSettings() = kYearFirst; }
    ~DateEdit() override { framework::FormatSettings() = FSaved; }

    void SetUp() override {
        Other.SetParent(Form.get());
        Other.SetBounds(200, 200, 100, 21);
        Other.SetFocus();
        Edit = Add();
    }
    void TearDown() override { delete Edit; }

    TZORDateTimePickerEdit* Add() {
        auto* edit = new TZORDateTimePickerEdit(nullptr);
        edit->Parent = Form.get();
        edit->SetBounds(100, 40, 129, 21);
        edit->OnChange = [this](TObject*) { ++Changes; };
        return edit;
    }
    void Start(const TFormatSettings& settings, TDTDateFormat format = dfShort, TDateTimeView view = dtvDay) {
        framework::FormatSettings() = settings;
        delete Edit;
        Edit = Add();
        Edit->DateFormat = format;
        Edit->DateTimeView = view;
        Edit->SetFocus();
        Application->ProcessMessages();
    }
    void Leave() {
        Other.SetFocus();
        Application->ProcessMessages();
    }
    /// The window inside the field that has its text.
    HWND EditPart() const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        GetComboBoxInfo(Edit->Handle, &info);
        return info.hwndItem;
    }
    int TakeChanges() { return std::exchange(Changes, 0); }

    TFormatSettings FSaved = framework::FormatSettings();
    std::unique_ptr<TForm> Form = ShowForm();
    TEdit Other{nullptr};
    TZORDateTimePickerEdit* Edit = nullptr;
    int Changes = 0;
};

} // namespace testsupport
