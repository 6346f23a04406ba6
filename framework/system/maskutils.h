#pragma once

// Edit masks: the language in which a form says what may be typed at each place of a field, such as "!99/99/0000;1;_"
// or "\A->LL-000;0;*". A mask has up to three fields with semicolons between them: the places; "0" when the literals
// are no part of the value, anything else when they are; and the character that stands where nothing was entered yet.
//
//   L l   a letter of any script        L, A, C and 0 have to be filled in,
//   A a   a letter or a digit           l, a, c, 9 and # may stay empty
//   C c   any character
//   0 9   a digit
//   #     a digit, + or -
//   >  <  letters behind it become capitals, small letters; <> ends that
//   !     a value that is shorter than the mask is laid in from the right
//   /  :  the date and the time separator of the format settings
//   _     a blank that is no place
//   \     the next character stands for itself; so does every character not named here

#include "framework/system/exceptions.h"
#include "framework/system/formatsettings.h"

#include <vector>

namespace framework {

/// A mask that cannot be understood; the message names the mask, the fault and its position from 1.
class EMaskError : public Exception {
public:
    using Exception::Exception;
};

/// The text of a mask.
using TEditMask = String;

/// What stands in a mask that names no blank.
inline constexpr char16_t DefaultBlank = u'_';

enum class TMaskPlaceKind { Literal, Letter, LetterOrDigit, Any, Digit, DigitOrSign };
enum class TMaskCase { Unchanged, Upper, Lower };

/// One position of the field: something to enter, or a literal.
struct TMaskPlace {
    TMaskPlaceKind Kind = TMaskPlaceKind::Literal;
    TMaskCase Case = TMaskCase::Unchanged;
    bool Required = false;
    char16_t Literal = 0;

    bool IsLiteral() const { return Kind == TMaskPlaceKind::Literal; }
    /// Whether the character may stand here. Halves of surrogate pairs may not: each place is one UTF-16 unit.
    bool Accepts(char16_t unit) const;
    /// The character in the letter case of this place.
    char16_t Cased(char16_t unit) const;

    friend bool operator==(const TMaskPlace&, const TMaskPlace&) = default;
};

/// A mask taken apart.
struct TParsedMask {
    std::vector<TMaskPlace> Places;
    bool SaveLiterals = true;
    bool FromRight = false;
    char16_t Blank = DefaultBlank;

    int Length() const { return static_cast<int>(Places.size()); }
    /// How many characters can be entered.
    int EntryCount() const;
};

/// EMaskError for a mask that ends in "\", whose second or third field is longer than one character, or that has more
/// than three fields. Missing and empty fields mean their defaults; an empty mask has no places.
TParsedMask ParseMask(StringView mask, const TFormatSettings& settings = FormatSettings());

/// Lays the characters of `text` into the places of the mask, from the right for a mask with "!". Literals are put in;
/// places without a character show `blank`. Characters are laid in as they are, in the letter case of their place;
/// those beyond the last place are left out. EMaskError as ParseMask.
String MaskDoFormatText(StringView mask, StringView text, char16_t blank,
                        const TFormatSettings& settings = FormatSettings());
String MaskDoFormatText(const TParsedMask& mask, StringView text, char16_t blank);

} // namespace framework
