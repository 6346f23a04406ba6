#pragma once

// Hash tables keyed by identifiers whose letter case does not count (ASCII letters, as everywhere in text forms).

#include "framework/system/types.h"

#include <unordered_map>

namespace framework {

constexpr char16_t FoldNameChar(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

struct TNameHash {
    using is_transparent = void;
    std::size_t operator()(StringView name) const {
        std::uint64_t hash = 14695981039346656037ULL; // FNV-1a
        for (char16_t c : name)
            hash = (hash ^ FoldNameChar(c)) * 1099511628211ULL;
        return static_cast<std::size_t>(hash ^ (hash >> 32));
    }
};

struct TNameEqual {
    using is_transparent = void;
    bool operator()(StringView left, StringView right) const {
        if (left.size() != right.size())
            return false;
        for (std::size_t i = 0; i < left.size(); ++i) {
            if (left[i] != right[i] && FoldNameChar(left[i]) != FoldNameChar(right[i]))
                return false;
        }
        return true;
    }
};

template <class TValue>
using TNameMap = std::unordered_map<String, TValue, TNameHash, TNameEqual>;

} // namespace framework
