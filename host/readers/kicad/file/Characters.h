// Bytes of a stranger made into clean UTF-8 text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fighost::kicad {

/// Offset of the first byte that is not part of UTF-8 text, or that is a control character other
/// than tab and line ends; `npos` when there is none.
std::size_t FindBadCharacter(std::string_view text);
/// The text with U+FFFD in place of each such byte.
std::string ReplaceBadCharacters(std::string_view text);
/// The text of a quoted word: `\n`, `\t`, `\"`, `\\`, `\xHH`, octal numbers. The result is clean.
std::string WorkOutEscapes(std::string_view raw);

}  // namespace fighost::kicad
