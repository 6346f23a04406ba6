#pragma once

// The value that record buffers keep: 16 bytes, owning its text or bytes, without any demand on its place in memory.

#include "framework/db/datatypes.h"

#include <cstring>

namespace framework {

/// A field value, or a recordset's bookmark, in a record buffer: a tag, and behind six more bytes the value itself or a
/// pointer to a shared text that never changes. It may stand at any address, since buffers are packed.
class OleVariant {
public:
    /// Unassigned.
    OleVariant() { std::memset(FStorage, 0, sizeof FStorage); }
    OleVariant(const OleVariant& other);
    OleVariant(OleVariant&& other) noexcept;
    OleVariant(const Variant& value);
    explicit OleVariant(const TFieldValue& value);
    OleVariant& operator=(OleVariant other) noexcept;
    ~OleVariant() { Clear(); }

    /// Back to unassigned.
    void Clear() {
        if (IsEmpty())
            return;
        if (Tag() >= FirstShared)
            Release();
        std::memset(FStorage, 0, sizeof FStorage);
    }
    /// A whole number, without going through a value of another kind.
    void SetInteger(std::int64_t value) {
        Clear();
        Write(0, static_cast<std::uint16_t>(TFieldValue::TKind::Integer));
        Write(valuePlace, value);
    }
    bool IsEmpty() const { return Tag() == 0; }
    /// A whole number, without a copy of anything: what bookmarks mostly are.
    bool IsInteger() const { return Tag() == static_cast<std::uint16_t>(TFieldValue::TKind::Integer); }

    /// What is held; texts and bytes live as long as this variant keeps its value.
    TFieldValue View() const;
    Variant ToVariant() const { return View().AsVariant(); }

    /// By value across the kinds of numbers, as Variant compares, but exact ones by all their digits; unassigned before
    /// Null, both before all values.
    friend std::weak_ordering operator<=>(const OleVariant& left, const OleVariant& right) {
        return left.Compare(right);
    }
    friend bool operator==(const OleVariant& left, const OleVariant& right) { return std::is_eq(left.Compare(right)); }

private:
    struct TShared;
    static constexpr std::size_t scalePlace = 2;
    static constexpr std::size_t valuePlace = 8;
    static constexpr std::uint16_t FirstShared = static_cast<std::uint16_t>(TFieldValue::TKind::Text);

    template <class T>
    T Read(std::size_t offset) const {
        T value;
        std::memcpy(&value, FStorage + offset, sizeof value);
        return value;
    }
    template <class T>
    void Write(std::size_t offset, T value) {
        std::memcpy(FStorage + offset, &value, sizeof value);
    }
    std::uint16_t Tag() const { return Read<std::uint16_t>(0); }
    void Put(const TFieldValue& value);
    void Release();
    std::weak_ordering Compare(const OleVariant& other) const;

    unsigned char FStorage[16]; // tag at 0, scale of a decimal at 2, value or pointer at 8
};
static_assert(sizeof(OleVariant) == 16 && alignof(OleVariant) == 1);

} // namespace framework
