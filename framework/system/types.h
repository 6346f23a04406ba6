#pragma once

// The small vocabulary every file shares: text, numbers, points and rectangles, and the property notation.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace framework {

/// UTF-16 text, the form in which Win32 and the controls keep it. Files are UTF-8.
using String = std::u16string;
using StringView = std::u16string_view;

/// The widest floating type of the target: 80 bits on x86 with clang and g++, 64 bits with MSVC.
using Extended = long double;

/// Colour 0x00BBGGRR, or a system colour index with the high byte 0xFF.
using TColor = std::int32_t;

/// Days since 1899-12-30, the time of day as the fraction.
using TDateTime = double;

class TObject;

using TNotifyEvent = std::function<void(TObject* Sender)>;

/// To which side of its place a text is drawn.
enum TAlignment { taLeftJustify, taRightJustify, taCenter };

/// A point in pixels, with the layout of Win32's POINT.
struct TPoint {
    std::int32_t X = 0;
    std::int32_t Y = 0;
    friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// An extent in pixels, with the layout of Win32's SIZE.
struct TSize {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    friend bool operator==(const TSize&, const TSize&) = default;
};

/// A rectangle in pixels, right and bottom edges exclusive, with the layout of Win32's RECT.
struct TRect {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;

    constexpr std::int32_t Width() const { return Right - Left; }
    constexpr std::int32_t Height() const { return Bottom - Top; }
    /// True when the rectangle holds no pixel.
    constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
    constexpr bool Contains(TPoint point) const {
        return point.X >= Left && point.X < Right && point.Y >= Top && point.Y < Bottom;
    }
    /// The same rectangle with every edge moved outwards by the given pixels (inwards when negative).
    constexpr TRect Inflated(std::int32_t horizontal, std::int32_t vertical) const {
        return {Left - horizontal, Top - vertical, Right + horizontal, Bottom + vertical};
    }
    constexpr TRect Offset(std::int32_t dx, std::int32_t dy) const {
        return {Left + dx, Top + dy, Right + dx, Bottom + dy};
    }
    friend bool operator==(const TRect&, const TRect&) = default;
};

/// A rectangle from its left upper corner and its extent.
constexpr TRect Bounds(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    return {left, top, left + width, top + height};
}

} // namespace framework

// Property notation: `Edit1->Width = 100` calls the accessors named here. Compilers without the extension build
// the portable rooms only and use the accessors themselves, so portable code never relies on the notation.
// An indexed property is declared with empty brackets behind its name, as in FRAMEWORK_PROPERTY(bool, Checked[], ...).
#if defined(_MSC_VER)
#define FRAMEWORK_HAS_PROPERTIES 1
#elif defined(__has_declspec_attribute)
#if __has_declspec_attribute(property)
#define FRAMEWORK_HAS_PROPERTIES 1
#endif
#endif
#ifndef FRAMEWORK_HAS_PROPERTIES
#define FRAMEWORK_HAS_PROPERTIES 0
#endif

#if FRAMEWORK_HAS_PROPERTIES
#define FRAMEWORK_PROPERTY(type, name, getter, setter) __declspec(property(get = getter, put = setter)) type name
#define FRAMEWORK_READ_PROPERTY(type, name, getter) __declspec(property(get = getter)) type name
#else
#define FRAMEWORK_PROPERTY(type, name, getter, setter) static_assert(true)
#define FRAMEWORK_READ_PROPERTY(type, name, getter) static_assert(true)
#endif
