#pragma once

// What the units of the gallery add to it, each for itself, so that no list has to name them all: a unit defines an
// object at namespace scope, and whoever needs the contributions of that kind walks through them.
//
//     const TPageClass registered(&TNumbersPage::StaticClass);

namespace gallery {

/// `TValue` is a plain value, usually a pointer to a function. The order of contributions means nothing.
template <class TValue>
class TContribution {
public:
    explicit TContribution(TValue value) noexcept : FValue(value), FNext(FFirst) { FFirst = this; }
    TContribution(const TContribution&) = delete;
    TContribution& operator=(const TContribution&) = delete;

    static const TContribution* First() { return FFirst; }
    const TContribution* Next() const { return FNext; }
    TValue Value() const { return FValue; }

private:
    // Constant from the start, so contributions of all units can go in before main in any order.
    inline static const TContribution* FFirst = nullptr;

    TValue FValue;
    const TContribution* FNext;
};

} // namespace gallery
