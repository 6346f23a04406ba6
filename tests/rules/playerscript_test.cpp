#include "gallery/playerscript_rules.h"

#include "framework/system/strings.h"

#include <gtest/gtest.h>

namespace gallery {
namespace {

TScriptCommand Only(std::string_view line) {
    const auto commands = ParseScript(line, u"s.txt");
    EXPECT_EQ(commands.size(), 1u) << line;
    return commands.empty() ? TScriptCommand{} : commands.front();
}

TEST(PlayerScript, ReadsCommandsWithTheirLines) {
    const auto commands = ParseScript("\xEF\xBB\xBF# a remark\r\n"
                                      "\r\n"
                                      "  click NameEdit at 10,-5   # and another\r\n"
                                      "type \"say \"\"# \xC5\xBB\xC3\xB3\xC5\x82w\"\"\"\n",
                                      u"s.txt");
    ASSERT_EQ(commands.size(), 2u);
    EXPECT_EQ(commands[0].Line, 3);
    EXPECT_EQ(commands[0].Target, (TScriptTarget{u"NameEdit", {}, TPoint{10, -5}}));
    EXPECT_EQ(commands[1].Line, 4);
    EXPECT_EQ(commands[1].Action, TScriptAction::Type);
    EXPECT_EQ(commands[1].Text, u"say \"# \u017B\u00F3\u0142w\"");
}

TEST(PlayerScript, ReadsClicks) {
    const TScriptCommand plain = Only("click Popup key 3 with Shift+Ctrl double right");
    EXPECT_EQ(plain.Target, (TScriptTarget{u"Popup", {u"key", u"3"}, {}}));
    EXPECT_EQ(plain.Held, (std::vector<std::uint16_t>{0x10, 0x11}));
    EXPECT_TRUE(plain.Double);
    EXPECT_EQ(plain.Button, TScriptButton::Right);

    // In quotes the words of the language are words of the target.
    const TScriptCommand quoted = Only("click Log row \"at\" at 1,2");
    EXPECT_EQ(quoted.Target, (TScriptTarget{u"Log", {u"row", u"at"}, TPoint{1, 2}}));
    EXPECT_EQ(Only("mouse up middle").Button, TScriptButton::Middle);
    EXPECT_EQ(Only("wheel Inspector -3").Count, -3);
    EXPECT_EQ(Only("hold Alt").Held, (std::vector<std::uint16_t>{0x12}));
}

TEST(PlayerScript, ReadsConditions) {
    const TScriptCommand wait = Only("wait NameEdit.BoundLabel.Font.Size <> 8 within 50");
    EXPECT_EQ(wait.Action, TScriptAction::Wait);
    EXPECT_EQ(wait.Path, u"NameEdit.BoundLabel.Font.Size");
    EXPECT_EQ(wait.Comparison, TScriptComparison::Different);
    EXPECT_EQ(wait.Text, u"8");
    EXPECT_EQ(wait.Milliseconds, 50);
    EXPECT_EQ(Only("expect A.B contains \"\"").Comparison, TScriptComparison::Contains);
    EXPECT_EQ(Only("wait for Popup within 9").Comparison, TScriptComparison::Shows);
    EXPECT_EQ(Only("EXPECT A.B = x").Milliseconds, ScriptWaitMilliseconds);
    EXPECT_EQ(Only("set A.B = \"two words\"").Text, u"two words");
}

TEST(PlayerScript, ReadsKeys) {
    const struct {
        const char16_t* Name;
        std::optional<TScriptKey> Key;
    } rows[] = {
        {u"F7", TScriptKey{0x76, {}}},
        {u"f24", TScriptKey{0x87, {}}},
        {u"F25", std::nullopt},
        {u"F0", std::nullopt},
        {u"a", TScriptKey{'A', {}}},
        {u"Shift+Tab", TScriptKey{0x09, {0x10}}},
        {u"Ctrl+Alt+Del", TScriptKey{0x2E, {0x11, 0x12}}},
        {u"Tab+Shift", std::nullopt}, // Tab cannot be held down
        {u"Shift", TScriptKey{0x10, {}}},
        {u"", std::nullopt},
        {u"Shift+", std::nullopt},
        {u"\u0142", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ParseKey(row.Name), row.Key) << Utf8Encode(row.Name);
    for (const char16_t* name : {u"F7", u"Enter", u"A", u"0"})
        EXPECT_EQ(KeyName(ParseKey(name)->Key), name) << "names lead there and back";
}

TEST(PlayerScript, NamesTheLineOfAMistake) {
    const struct {
        std::string_view Line;
        const char* Problem;
    } rows[] = {
        {"clack NameEdit", "\"clack\" is not a command"},
        {"click", "expected the name of a control"},
        {"click A at 3", "expected a point such as 10,5, found \"3\""},
        {"click A with Tab", "\"Tab\" is not a key that can be held down"},
        {"click A double double", "\"double\" is too much here"},
        {"type \"open", "a quote is missing"},
        {"key Foo", "\"Foo\" is not a key"},
        {"key F7 times x", "expected how many times, found \"x\""},
        {"expect NameEdit = x", "\"NameEdit\" names no property, as NameEdit.Text does"},
        {"expect A.B == x", "expected =, <> or contains"},
        {"wait A.B = x within soon", "expected milliseconds, found \"soon\""},
        {"shot ../out", "the name of a picture consists of letters, digits, - and _"},
        {"mouse jump A", "expected mouse move, mouse down or mouse up"},
    };
    for (const auto& row : rows) {
        try {
            ParseScript("key F1\n" + std::string(row.Line), u"s.txt");
            ADD_FAILURE() << row.Line;
        } catch (const EScriptError& error) {
            EXPECT_EQ(std::string("s.txt(2): ") + row.Problem, error.what());
        }
    }
}

} // namespace
} // namespace gallery
