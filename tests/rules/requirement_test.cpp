#include "foundation/Requirement_rules.h"

#include <gtest/gtest.h>

#include <sstream>

namespace ZOR {
namespace {

// Stories of a field: words in the order of events, and the states shown after each.
//   required, recommended, error, none   the program sets the state
//   leave, leave-empty, mouse, mouse-empty, enable, disable, restore
bool Play(TRequirement& requirement, const std::string& word) {
    if (word == "required")
        return requirement.Set(wRequired);
    if (word == "recommended")
        return requirement.Set(wRecommended);
    if (word == "error")
        return requirement.Set(wError);
    if (word == "none")
        return requirement.Set(wNone);
    if (word == "leave" || word == "leave-empty")
        return requirement.Leave(word == "leave-empty");
    if (word == "mouse" || word == "mouse-empty")
        return requirement.MouseLeave(word == "mouse-empty");
    if (word == "enable" || word == "disable")
        return requirement.SetEnabled(word == "enable");
    if (word == "restore")
        return requirement.Restore();
    ADD_FAILURE() << "unknown word " << word;
    return false;
}

// The states shown after each word: n, r, m (recommended), e; a capital where the frame was to be painted.
std::string Shown(TRequirementPolicy policy, const std::string& story) {
    TRequirement requirement(policy);
    std::istringstream words(story);
    std::string shown;
    for (std::string word; words >> word;) {
        const bool painted = Play(requirement, word);
        shown += (painted ? "NRME" : "nrme")[requirement.Current()];
    }
    return shown;
}

TEST(Requirement, Stories) {
    const struct {
        const char* Name;
        TRequirementPolicy Policy;
        const char* Story;
        const char* Expected;
    } rows[] = {
        {"setting again what is set paints nothing", EditRequirement, "none required required", "nRr"},
        {"an error ends when a filled field is left", EditRequirement, "required error leave leave", "RERr"},
        {"an error on an empty field stays until it is filled", EditRequirement,
         "required error leave-empty mouse-empty leave", "REeeR"},
        {"an error ends when the mouse leaves", EditRequirement, "recommended error mouse", "MEM"},
        {"the last state that was no error counts", EditRequirement, "required error none error leave", "RENEN"},
        {"leaving touches no other state", EditRequirement, "required leave mouse", "Rrr"},

        {"disabling puts the state aside", EditRequirement, "required disable enable", "RNR"},
        {"nothing to put aside", EditRequirement, "disable enable", "nn"},
        {"cleared by the program: nothing comes back", EditRequirement, "required none disable enable", "RNnn"},
        {"set while disabled, shown again on enabling", EditRequirement, "disable required enable", "nRR"},
        {"disabling while none is shown brings back a saved state", EditRequirement, "required disable disable", "RNR"},
        {"an error that was put aside comes back and leaving does not end it", EditRequirement,
         "required error disable enable leave required", "RENEeR"},

        {"mask edit: only disabling remembers", PlainRequirement, "required disable enable error leave", "RNREe"},
        {"mask edit: cleared by the program, a remembered state still comes back", PlainRequirement,
         "required disable enable none disable", "RNRNR"},

        {"mask edit and list box: an error stays", PlainRequirement, "required error leave mouse", "REee"},
        {"list box: required after an error survives disabling", PlainRequirement, "error required disable enable",
         "ERNR"},

        {"date edit: only a corrected value ends an error", DateRequirement, "required error leave mouse restore",
         "REeeR"},
        {"restoring what is shown paints nothing", EditRequirement, "required restore", "Rr"},
        {"restoring never gives an error back", EditRequirement, "error disable enable restore disable enable",
         "ENENnn"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Shown(row.Policy, row.Story), row.Expected) << row.Name << ": " << row.Story;
}

} // namespace
} // namespace ZOR
