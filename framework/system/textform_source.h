#pragma once

// From the bytes of a file to text that the scanner can trust: well-formed UTF-8 without mark and without NUL.

#include "framework/system/textform.h"

namespace framework {

/// The place of a byte of well-formed UTF-8, counted from the start: for messages, not for every token.
TFormPlace PlaceOf(std::string_view text, std::size_t offset);

/// Takes the mark off and converts from the fallback code page where the options ask for it and the bytes need it.
/// Raises EFormSyntax for NUL, UTF-16, and malformed UTF-8 without a fallback. Sets the layout's mark, line end and
/// code page.
std::string ReadFormSource(std::string_view bytes, const TParseOptions& options, TFormLayout& layout);

/// The byte of a UTF-16 unit in a code page; nothing for those that the page lacks.
std::optional<char> ToCodePage(char16_t unit, TFallbackEncoding codePage);

} // namespace framework
