#pragma once

// The sums of the page "Numbers": a line of an order and a day of work, in exact money.

#include "framework/system/currency.h"

namespace gallery {
using namespace framework;

struct TOrderLine {
    Extended Quantity = 0;
    Currency Price;
    Extended DiscountPercent = 0;
    Currency Correction;
};

/// Quantity times price less the discount, plus the correction, in whole hundredths.
Currency NetAmount(const TOrderLine& line);
/// With the tax of 23 percent, in whole hundredths.
Currency GrossAmount(Currency net);

struct TWorkDay {
    int Start = 0; ///< minutes after midnight; an end before the start lies on the next day
    int End = 0;
    int Break = 0;
    int Overtime = 0;
    Currency HourlyRate;
};

/// Minutes from start to end without the break, at least 0.
int WorkedMinutes(const TWorkDay& day);
/// Hours at their rate, overtime at one and a half, in whole hundredths.
Currency Pay(const TWorkDay& day);

} // namespace gallery
