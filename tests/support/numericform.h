#pragma once

// A form with a numeric field and a plain one to go to, for tests that type as a person does.

#include "framework/system/formatsettings.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "framework/windows/locale.h"
#include "numeric/Zorfloatedit.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace testsupport {

/// Habits of a country, whatever the desktop's are.
inline framework::TFormatSettings SettingsOf(char16_t decimalSeparator, char16_t timeSeparator = u':') {
    framework::TFormatSettings settings;
    settings.DecimalSeparator = decimalSeparator;
    settings.ThousandSeparator = decimalSeparator == u',' ? u'\u00A0' : u',';
    settings.TimeSeparator = timeSeparator;
    return settings;
}

/// One key or text and what it makes of a field, in the notation of Put.
struct TTypingRow {
    const char* Name;
    framework::String Before;
    framework::String Typed; ///< \b for backspace, \x7F for Delete, \x2190 and \x2192 for the arrow keys
    framework::String After;
};

inline void TypeKeys(framework::StringView keys) {
    for (char16_t key : keys) {
        if (key == u'\b')
            PressKey(VK_BACK);
        else if (key == u'\x7F')
            PressKey(VK_DELETE);
        else if (key == u'\u2190')
            PressKey(VK_LEFT);
        else if (key == u'\u2192')
            PressKey(VK_RIGHT);
        else if (key >= u'0' && key <= u'9')
            PressKey(static_cast<WORD>(key));
        else
            TypeText(framework::StringView(&key, 1));
    }
}

template <class TField>
class NumericForm : public testing::Test {
protected:
    NumericForm() : FSettings(framework::FormatSettings()) {
        framework::FormatSettings() = framework::UserFormatSettings();
        ZOR::TZORFloatEdit::LastValidText().clear();
        framework::TheApplication().OnException = [this](framework::TObject*, const std::exception& error) {
            Errors.emplace_back(error.what());
        };
        Other.SetParent(Form.get());
        Other.SetBounds(150, 100, 120, 21);
        Field.SetParent(Form.get());
        Field.SetBounds(150, 40, 120, 21);
        Field.OnChange = [this](framework::TObject*) { ++Changes; };
        Other.SetFocus();
    }
    ~NumericForm() override {
        ZOR::TZORFloatEdit::SeparatorFollowsLocale = false;
        framework::FormatSettings() = FSettings;
        framework::TheApplication().OnException = nullptr;
        EXPECT_TRUE(Errors.empty()) << Errors.front();
    }

    /// The text with the caret put at the mark |, or what lies between two marks selected.
    void Put(framework::StringView marked) {
        framework::String text(marked);
        const std::size_t start = text.find(u'|');
        text.erase(start, 1);
        const std::size_t end = text.find(u'|');
        if (end != framework::String::npos)
            text.erase(end, 1);
        Field.SetText(text);
        Field.SetSelStart(static_cast<int>(start));
        if (end != framework::String::npos)
            Field.SetSelLength(static_cast<int>(end - start));
        Changes = 0;
    }
    /// The field in the same notation.
    framework::String Marked() {
        framework::String text = Field.GetText();
        const auto start = static_cast<std::size_t>(Field.GetSelStart());
        const auto length = static_cast<std::size_t>(Field.GetSelLength());
        if (length > 0)
            text.insert(start + length, 1, u'|');
        text.insert(start, 1, u'|');
        return text;
    }
    void Enter() {
        Field.SetFocus();
        ASSERT_TRUE(Field.Focused());
    }
    /// Goes on with the Tab key and waits until the other field has the focus.
    void Leave() {
        Other.SetTabOrder(1);
        Field.SetTabOrder(0);
        PressKey(VK_TAB);
        ASSERT_TRUE(WaitFor([this] { return Other.Focused(); }));
    }
    void Try(const std::vector<TTypingRow>& rows) {
        Enter();
        for (const TTypingRow& row : rows) {
            SCOPED_TRACE(row.Name);
            Put(row.Before);
            TypeKeys(row.Typed);
            EXPECT_EQ(Marked(), row.After);
        }
    }
    std::vector<std::string> TakeErrors() { return std::exchange(Errors, {}); }

    std::unique_ptr<framework::TForm> Form = ShowForm();
    framework::TEdit Other{nullptr};
    TField Field{nullptr};
    int Changes = 0;
    std::vector<std::string> Errors;

private:
    framework::TFormatSettings FSettings;
};

} // namespace testsupport
