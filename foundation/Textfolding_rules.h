#pragma once

// Makes texts alike for a search: without their accents, in one letter case. What is typed on a plain keyboard then
// finds what is spelled with the letters of another language.

#include "framework/system/types.h"

#include <array>

namespace ZOR {
using namespace framework;

enum class TFoldedCase { AsItIs, Lower, Upper };

/// What counts as alike. Letter case is folded first to lower case, or last to upper case.
struct TTextFolding {
    bool Umlauts = false;       ///< ä, ö and ü become a, o and u; the capital ones only where the case is Lower
    bool ListedAccents = false; ///< the replacements of FoldAccents
    bool AllAccents = false;    ///< every accented letter of U+00C0 to U+017F becomes its plain one
    TFoldedCase Case = TFoldedCase::AsItIs;
    friend bool operator==(const TTextFolding&, const TTextFolding&) = default;
};

/// Folds any number of texts in one way.
class TTextFolder {
public:
    explicit TTextFolder(const TTextFolding& folding);

    const TTextFolding& Folding() const { return FFolding; }
    String Fold(StringView text) const;
    /// Calls `take` with each unit that one unit of a text becomes: one, or two for a sharp s.
    template <class TTake>
    void FoldUnit(char16_t unit, const TTake& take) const {
        if (unit >= FUnits.size()) {
            take(FoldCase(unit));
            return;
        }
        const TUnits& folded = FUnits[unit];
        take(folded.First);
        if (folded.Second)
            take(folded.Second);
    }

private:
    /// What a unit becomes; Second is 0 where that is one unit.
    struct TUnits {
        char16_t First = 0;
        char16_t Second = 0;
    };

    TUnits Compute(char16_t unit) const;
    char16_t FoldCase(char16_t unit) const;

    TTextFolding FFolding;
    std::array<TUnits, 0x180> FUnits; // Latin letters; behind them only the case changes
};

/// Accented letters of Central Europe replaced by plain ones, from a fixed table: not all of them stand in it (the
/// small s and e with caron do not), and a question mark becomes a. Both are meant; callers rely on this very table.
String FoldAccents(StringView text);

} // namespace ZOR
