// What a typed character costs in the rules of the numeric fields, beside what the field cannot avoid: putting the
// character into its text, and converting that text once. A key is judged and carried out, and the changed text judged.
// The aim is below a microsecond a key. Ends with 1 when a field does not hold what was typed.

#include "numeric/Zorspinfloatedit_rules.h"
#include "tests/support/entrystory.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace ZOR;

namespace {

constexpr int Keys = 10000;
constexpr int Rounds = 25;

// The best of several rounds, in nanoseconds a key.
template <class Work>
double Time(Work work) {
    double best = 1e18;
    for (int round = 0; round < Rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count() / Keys);
    }
    return best;
}

/// The same keys over and over, each time over all that was typed before, and at last to their end.
template <class Press>
String Type(StringView keys, TEntryState& state, Press press) {
    for (std::size_t i = 0; i < Keys || i % keys.size() != 0; ++i) {
        const std::size_t place = i % keys.size();
        if (place == 0)
            state.Selection = {0, static_cast<int>(state.Text.size())};
        press(keys[place]);
    }
    return state.Text;
}

double Plain(StringView keys) {
    TEntryState state;
    return Time([&] {
        Type(keys, state, [&](char16_t key) {
            const auto start = static_cast<std::size_t>(state.Selection.Start);
            state.Text.replace(start, static_cast<std::size_t>(state.Selection.Length), 1, key);
            state.Selection = {static_cast<int>(start) + 1, 0};
        });
    });
}

double Conversion(StringView text) {
    Extended sum = 0;
    const double time = Time([&] {
        for (int i = 0; i < Keys; ++i)
            sum += StrToFloat(text, Polish);
    });
    return sum != 0 ? time : 0;
}

bool Measure(const char* name, const TSpinFloatEntry& entry, StringView keys, StringView typed) {
    TSimulatedEdit edit;
    edit.Judge = [&](const TEntryState& state, const TEntryMemory& memory) {
        return SpinFloatChange(state, memory, entry, Polish);
    };
    String text;
    const double rules = Time([&] {
        text = Type(keys, edit.State,
                    [&](char16_t key) { edit.Apply(SpinFloatKeyPress(key, edit.State, entry, Polish)); });
    });
    const bool same = text == typed;
    std::printf("%-28s %5.0f ns a key | into a text %4.0f ns", name, rules, Plain(keys));
    if (entry.Tryb == tStandard)
        std::printf(", one conversion %4.0f ns", Conversion(typed));
    std::printf(" | %s\n", same ? "as typed" : "DIFFERENT TEXT");
    return same;
}

} // namespace

int main() {
    TSpinFloatEntry number;
    TSpinFloatEntry precise;
    precise.Decimals = 12;
    TSpinFloatEntry duration;
    duration.Tryb = tTime;
    bool same = Measure("a price", number, u"1234,56", u"1234,56");
    same = Measure("eighteen digits", precise, u"123456,789012345678", u"123456,789012345678") && same;
    same = Measure("refused characters", number, u"12xyz,3q4w", u"12,34") && same;
    same = Measure("a duration", duration, u"0845", u"08:45") && same;
    return same ? 0 : 1;
}
