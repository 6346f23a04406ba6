#pragma once

// Rich text as bytes, decided without a window.

#include <string>
#include <string_view>

namespace framework {

/// Whether the bytes begin as RTF does.
bool IsRtf(std::string_view bytes);

/// RTF as every program reads it, from the UTF-8 form that a rich edit window writes ({\urtf). Asked for the usual
/// form, some systems' windows write letters that their code page lacks as the most similar ones; here they become \u
/// codes.
std::string RtfFromUtf8(std::string_view bytes);

} // namespace framework
