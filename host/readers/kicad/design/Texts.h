// Texts of the file made into what a user reads: escapes and variables.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace fighost::kicad {

/// `{slash}` and its kin as the characters that they stand for. Mark-up such as `~{RESET}` and
/// variables stay.
std::string Unescape(std::string_view text);

/// Length of the escape that begins at `at`, 0 when none does.
std::size_t EscapeLength(std::string_view text, std::size_t at);

/// The value of a variable by name, or nothing when there is no such variable.
using VariableLookup = std::function<std::optional<std::string>(std::string_view name)>;

/// Puts values in place of `${NAME}`, also those that stand in values; an unknown variable stays as
/// it is written. Variables that name themselves end after a few rounds, and growth is bounded.
std::string ExpandVariables(std::string_view text, VariableLookup const& lookup);

/// The text without the mark-up of `~{}`, `_{}` and `^{}`.
std::string WithoutMarkup(std::string_view text);

/// True where a '{' at `at` begins mark-up or a variable.
inline bool IsMarkupBrace(std::string_view text, std::size_t at) {
    if (at == 0) return false;
    char const c = text[at - 1];
    return c == '~' || c == '_' || c == '^' || c == '$';
}

}  // namespace fighost::kicad
