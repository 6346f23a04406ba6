#pragma once

// Loading and saving forms of the zoo's classes, and what tests ask of them afterwards.

#include "framework/system/formsaver.h"
#include "framework/system/numbers.h"
#include "tests/support/formzoo.h"

#include <gtest/gtest.h>

namespace testsupport {

class Forms : public testing::Test {
protected:
    void SetUp() override {
        RegisterZoo();
        TZooBox::log.clear();
        ASSERT_EQ(TZooBox::living, 0);
    }
    void TearDown() override { EXPECT_EQ(TZooBox::living, 0); }
};

inline std::unique_ptr<TZooForm> Load(std::string_view text, TLoadOptions options = {}) {
    options.FileName = u"zoo.dfm";
    return std::unique_ptr<TZooForm>(static_cast<TZooForm*>(CreateFromTextForm(text, nullptr, options).release()));
}

inline std::string Fault(const std::function<void()>& action) {
    try {
        action();
    } catch (const EFormError& error) {
        return error.what();
    }
    return "none";
}

inline std::string Saved(TComponent& root) {
    TFormLayout layout;
    layout.LineEnd = TFormLineEnd::Lf;
    return WriteTextForm(SaveTextForm(root), layout);
}

inline TZooBox* Box(TComponent& root, StringView name) {
    TZooBox* box = As<TZooBox>(root.FindComponent(name));
    EXPECT_TRUE(box) << Utf8Encode(name);
    return box;
}

inline std::string Names(const std::vector<TComponent*>& components) {
    std::string text;
    for (const TComponent* each : components)
        text += (text.empty() ? "" : " ") + Utf8Encode(each->GetName());
    return text;
}

inline std::string TakeLog() {
    std::string text;
    for (const String& line : TZooBox::log)
        text += (text.empty() ? "" : ", ") + Utf8Encode(line);
    TZooBox::log.clear();
    return text;
}

} // namespace testsupport
