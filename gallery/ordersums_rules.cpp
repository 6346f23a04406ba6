#include "gallery/ordersums_rules.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr int kMinutesPerDay = 24 * 60;

/// In whole hundredths, a half away from zero.
Currency Rounded(Currency amount) {
    constexpr std::int64_t kUnitsPerHundredth = Currency::unitsPerOne / 100;
    const std::int64_t units = amount.GetUnits();
    const std::int64_t half = units < 0 ? -kUnitsPerHundredth / 2 : kUnitsPerHundredth / 2;
    return Currency::FromUnits((units + half) / kUnitsPerHundredth * kUnitsPerHundredth);
}

} // namespace

Currency NetAmount(const TOrderLine& line) {
    const Currency full = line.Price * Currency(line.Quantity);
    return Rounded(full * Currency((100 - line.DiscountPercent) / 100)) + line.Correction;
}

Currency GrossAmount(Currency net) {
    return Rounded(net * Currency::FromUnits(12300));
}

int WorkedMinutes(const TWorkDay& day) {
    const int whole = day.End < day.Start ? day.End + kMinutesPerDay - day.Start : day.End - day.Start;
    return std::max(whole - day.Break, 0);
}

Currency Pay(const TWorkDay& day) {
    constexpr int kMinutesPerHour = 60;
    const Currency minutes = Currency(WorkedMinutes(day)) + Currency(day.Overtime) * Currency::FromUnits(15000);
    return Rounded(day.HourlyRate * minutes / Currency(kMinutesPerHour));
}

} // namespace gallery
