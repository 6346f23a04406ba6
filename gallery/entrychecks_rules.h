#pragma once

// What the customer card accepts in its fields.

#include "framework/system/types.h"

namespace gallery {
using namespace framework;

/// Two digits, a hyphen, three digits: "00-950".
bool IsPostalCode(StringView text);
/// A Polish tax number: ten digits, blanks and hyphens between them allowed, the last one their check digit.
bool IsTaxNumber(StringView text);
/// One @ with something before it, and behind it names joined by single dots, of which the last has two letters or
/// more. No more is checked: only a mail that arrives proves an address.
bool IsEmail(StringView text);
/// Nine digits, perhaps behind +48; blanks and hyphens between them allowed.
bool IsPhoneNumber(StringView text);

} // namespace gallery
