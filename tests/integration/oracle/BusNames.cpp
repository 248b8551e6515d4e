#include "BusNames.h"

#include <algorithm>
#include <regex>

namespace oracle {

namespace {

bool ParseVector(std::string const& text, BusName& out) {
    static std::regex const form(R"(^([^\[\]]*)\[(\d+)\.\.(\d+)\](.*)$)");
    std::smatch match;
    if (text.find(' ') != std::string::npos || !std::regex_match(text, match, form)) return false;
    long const first = std::stol(match[2]);
    long const last = std::stol(match[3]);
    out.vector = true;
    out.prefix = match[1];
    for (long i = std::min(first, last); i <= std::max(first, last); ++i)
        out.members.push_back(match[1].str() + std::to_string(i) + match[4].str());
    out.shortNames = out.members;
    return true;
}

/// Position of the brace that opens the member list, or npos: a brace behind ~, _ or ^ is markup.
std::size_t GroupStart(std::string const& text) {
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '}') --depth;
        if (text[i] != '{') continue;
        bool const markup = i > 0 && std::string("~_^$").find(text[i - 1]) != std::string::npos;
        if (depth == 0 && !markup) return i;
        ++depth;
    }
    return std::string::npos;
}

std::vector<std::string> SplitMembers(std::string const& text) {
    std::vector<std::string> parts(1);
    int depth = 0;
    for (char const c : text) {
        if (c == '{') ++depth;
        if (c == '}') --depth;
        if (depth == 0 && (c == ' ' || c == ','))
            parts.emplace_back();
        else
            parts.back() += c;
    }
    std::erase(parts, std::string());
    return parts;
}

void ExpandMember(std::string const& member, Aliases const& aliases, int depth,
                  std::vector<std::string>& out) {
    BusName inner;
    auto const alias = aliases.find(member);
    if (alias != aliases.end() && depth < 8) {
        for (std::string const& each : alias->second)
            ExpandMember(each, aliases, depth + 1, out);
    } else if (ParseBus(member, aliases, inner)) {
        out.insert(out.end(), inner.members.begin(), inner.members.end());
    } else {
        out.push_back(member);
    }
}

}  // namespace

std::string Unescape(std::string const& text) {
    static std::pair<char const*, char const*> const table[] = {
        {"{slash}", "/"}, {"{backslash}", "\\"}, {"{space}", " "},     {"{lt}", "<"},
        {"{gt}", ">"},    {"{colon}", ":"},      {"{dblquote}", "\""}, {"{return}", "\n"},
        {"{tab}", "\t"},  {"{bar}", "|"},        {"{comma}", ","},     {"{quote}", "'"}};
    std::string result = text;
    for (auto const& [from, to] : table)
        for (std::size_t at; (at = result.find(from)) != std::string::npos;)
            result.replace(at, std::string(from).size(), to);
    return result;
}

bool ParseBus(std::string const& text, Aliases const& aliases, BusName& out) {
    std::size_t const open = GroupStart(text);
    if (open == std::string::npos) return ParseVector(text, out);
    if (text.back() != '}') return false;
    out.prefix = text.substr(0, open);
    for (std::string const& member : SplitMembers(text.substr(open + 1, text.size() - open - 2)))
        ExpandMember(member, aliases, 0, out.shortNames);
    for (std::string const& name : out.shortNames)
        out.members.push_back(out.prefix.empty() ? name : out.prefix + "." + name);
    return true;
}

}  // namespace oracle
