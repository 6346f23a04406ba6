// What a typed key costs the rules of the date field, beside making the mask's text by the standard library's means.

#include "datetime/Zordatetimepickeredit_rules.h"
#include "tests/support/datelocales.h"

#include <chrono>
#include <cstdio>

using namespace ZOR;

namespace {

int sink = 0;

/// Nanoseconds a call, the best of some rounds.
template <class TWork>
double Nanoseconds(const TWork& work) {
    constexpr int calls = 20000;
    double best = 1e9;
    for (int round = 0; round < 15; ++round) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < calls; ++i)
            sink += work(i);
        const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
        best = std::min(best, time.count() / calls);
    }
    return best;
}

void Measure(const char* name, TDTDateFormat format) {
    const TDateField field{EntrySettings(datelocales::YearFirst()), format, dtvDay, 0};
    const String full = double_to_text(45351.75, field);
    const String typed = u"2" + full;
    const double key = Nanoseconds([&](int i) {
        String text = typed;
        zamienNaDate(text, u'0' + i % 10, 1, field);
        return static_cast<int>(text.size());
    });
    const double state = Nanoseconds([&](int i) {
        return RewriteTypedDate({full, 1, 0}, {typed, 2, 0}, u'0' + i % 10, field).SelStart;
    });
    const double write =
        Nanoseconds([&](int i) { return static_cast<int>(double_to_text(45351.75 + i, field).size()); });
    const double read = Nanoseconds([&](int) { return sprawdz_combosa(full, field).Valid ? 1 : 0; });
    const double peer = Nanoseconds([&](int i) {
        char buffer[32];
        return std::snprintf(buffer, sizeof(buffer), "%04d-%02d-%02d %02d:%02d", 2000 + i % 100, i % 12 + 1, i % 28 + 1,
                             i % 24, i % 60);
    });
    std::printf("%-14s text after a key %5.0f ns  state after a key %5.0f ns (limit 2000)  value to text %5.0f ns  "
                "text to value %5.0f ns | snprintf of a date %5.0f ns\n",
                name, key, state, write, read, peer);
}

} // namespace

int main() {
    Measure("date", dfShort);
    Measure("date and time", dfLong);
    return sink == 42 ? 1 : 0;
}
