#include "controls/Zorchecklistbox_rules.h"

#include <gtest/gtest.h>

namespace ZOR {
namespace {

/// Plays the events of clicks: m mouse down, k key, b the list toggles a box, c click on an item, n click while none is
/// chosen. The answer has one sign for each click: T for one that toggles the box.
std::string Play(const char* events, bool onText) {
    TCheckClick click;
    std::string answers;
    for (; *events; ++events) {
        switch (*events) {
        case 'm':
            click.MouseDown();
            break;
        case 'k':
            click.Key();
            break;
        case 'b':
            click.BoxToggled(onText);
            break;
        case 'c':
            answers += click.Click(onText, true) ? 'T' : '-';
            break;
        case 'n':
            answers += click.Click(onText, false) ? 'T' : '-';
            break;
        default:
            break;
        }
    }
    return answers;
}

TEST(CheckClick, TogglesOnceAndByTheMouseOnly) {
    const struct {
        const char* What;
        const char* Events;
        const char* OnText;
    } rows[] = {
        {"on the text", "mc", "T"},
        {"on the box", "mbc", "-"},
        {"on the box, then on the text", "mbc mc", "-T"},
        {"on the text twice", "mc mc", "TT"},
        {"by an arrow key", "kc", "-"},
        {"by the program or without either", "c", "-"},
        {"the space key, then the mouse", "kb kc mc", "-T"},
        {"the space key, then an arrow key", "kb kc", "-"},
        {"a press beside the items, then an arrow key", "m kc", "-"},
        {"a press on a box that led to no click, then the text", "mb mc", "T"},
        {"no item is chosen", "mn mc", "-T"},
        {"a click has one answer", "mc c", "T-"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Play(row.Events, true), row.OnText) << row.What;
        EXPECT_EQ(Play(row.Events, false).find('T'), std::string::npos) << row.What << ", not asked for";
    }
}

} // namespace
} // namespace ZOR
