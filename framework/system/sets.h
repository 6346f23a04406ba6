#pragma once

// A small set of enumerators, written as `TShiftState() << ssShift << ssCtrl`.

#include <cstdint>
#include <initializer_list>

namespace framework {

/// A set over an enumeration whose ordinals lie in 0..31, kept as one bit each.
template <class TElement>
class Set {
public:
    constexpr Set() = default;
    constexpr Set(std::initializer_list<TElement> elements) {
        for (TElement element : elements)
            FBits |= Bit(element);
    }

    constexpr Set& operator<<(TElement element) {
        FBits |= Bit(element);
        return *this;
    }
    constexpr Set& operator>>(TElement element) {
        FBits &= ~Bit(element);
        return *this;
    }
    constexpr bool Contains(TElement element) const { return (FBits & Bit(element)) != 0; }
    constexpr bool Empty() const { return FBits == 0; }

    /// The bits themselves, ordinal 0 lowest: the form in which sets travel through published properties.
    constexpr std::uint32_t Bits() const { return FBits; }
    static constexpr Set FromBits(std::uint32_t bits) {
        Set result;
        result.FBits = bits;
        return result;
    }

    friend constexpr Set operator+(Set left, Set right) { return FromBits(left.FBits | right.FBits); }
    friend constexpr Set operator-(Set left, Set right) { return FromBits(left.FBits & ~right.FBits); }
    friend constexpr Set operator*(Set left, Set right) { return FromBits(left.FBits & right.FBits); }
    friend constexpr bool operator==(Set, Set) = default;

private:
    static constexpr std::uint32_t Bit(TElement element) {
        return std::uint32_t{1} << static_cast<std::uint32_t>(element);
    }

    std::uint32_t FBits = 0;
};

} // namespace framework
