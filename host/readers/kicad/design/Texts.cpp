#include <readers/kicad/design/Texts.h>

#include <utility>
#include <vector>

namespace fighost::kicad {

namespace {

constexpr std::pair<std::string_view, char> ESCAPES[] = {
    {"{slash}", '/'},  {"{backslash}", '\\'}, {"{lt}", '<'},     {"{gt}", '>'},
    {"{colon}", ':'},  {"{dblquote}", '"'},   {"{quote}", '\''}, {"{space}", ' '},
    {"{tab}", '\t'},   {"{return}", '\n'},    {"{bar}", '|'},    {"{comma}", ','},
    {"{dollar}", '$'}, {"{brace}", '{'},
};

constexpr int MOST_ROUNDS = 8;
constexpr std::size_t LONGEST_TEXT = 1 << 20;

std::pair<std::size_t, char> EscapeAt(std::string_view text, std::size_t at) {
    if (text[at] != '{' || IsMarkupBrace(text, at)) return {0, 0};
    for (auto const& [word, character] : ESCAPES) {
        if (text.compare(at, word.size(), word) == 0) return {word.size(), character};
    }
    return {0, 0};
}

/// One round of expansion. False when nothing changed.
bool ExpandOnce(std::string& text, VariableLookup const& lookup) {
    std::string result;
    bool changed = false;
    std::size_t at = 0;
    for (;;) {
        std::size_t const begin = text.find("${", at);
        std::size_t const end = begin == std::string::npos ? begin : text.find('}', begin);
        if (end == std::string::npos) break;
        result.append(text, at, begin - at);
        std::string_view const name = std::string_view(text).substr(begin + 2, end - begin - 2);
        auto value = lookup(name);
        if (value) {
            changed = true;
            result += *value;
        } else {
            result.append(text, begin, end + 1 - begin);
        }
        at = end + 1;
        if (result.size() > LONGEST_TEXT) break;
    }
    if (!changed) return false;
    result.append(text, at, std::string::npos);
    if (result.size() > LONGEST_TEXT) return false;
    text = std::move(result);
    return true;
}

}  // namespace

std::size_t EscapeLength(std::string_view text, std::size_t at) {
    return EscapeAt(text, at).first;
}

std::string Unescape(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        auto const [length, character] = EscapeAt(text, at);
        result += length ? character : text[at];
        at += length ? length : 1;
    }
    return result;
}

std::string ExpandVariables(std::string_view text, VariableLookup const& lookup) {
    std::string result(text);
    if (result.find("${") == std::string::npos) return result;
    for (int round = 0; round < MOST_ROUNDS; ++round) {
        if (!ExpandOnce(result, lookup)) break;
    }
    return result;
}

std::string WithoutMarkup(std::string_view text) {
    std::string result;
    std::vector<bool> open;  // for each open brace, whether it belongs to mark-up
    for (std::size_t at = 0; at < text.size(); ++at) {
        char const c = text[at];
        bool const marks =
            (c == '~' || c == '_' || c == '^') && at + 1 < text.size() && text[at + 1] == '{';
        if (marks) {
            open.push_back(true);
            ++at;
        } else if (c == '{') {
            open.push_back(false);
            result += c;
        } else if (c == '}' && !open.empty()) {
            if (!open.back()) result += c;
            open.pop_back();
        } else {
            result += c;
        }
    }
    return result;
}

}  // namespace fighost::kicad
