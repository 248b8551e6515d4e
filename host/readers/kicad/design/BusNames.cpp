#include <readers/kicad/design/BusNames.h>

#include <algorithm>
#include <charconv>
#include <optional>

#include <readers/kicad/design/Texts.h>

namespace fighost::kicad {

namespace {

constexpr int DEEPEST_ALIAS = 16;

struct Vector {
    std::string_view prefix;
    std::string_view suffix;  // closing braces of mark-up that began in the prefix
    unsigned first = 0;
    unsigned last = 0;
};

std::optional<unsigned> ReadIndex(std::string_view digits) {
    unsigned value = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

std::optional<Vector> SplitVector(std::string_view text) {
    std::size_t const open = text.rfind('[');
    if (open == std::string_view::npos || open == 0) return std::nullopt;
    std::size_t const dots = text.find("..", open);
    std::size_t const close = text.find(']', open);
    if (dots == std::string_view::npos || close == std::string_view::npos || dots > close) {
        return std::nullopt;
    }
    Vector vector;
    vector.prefix = text.substr(0, open);
    vector.suffix = text.substr(close + 1);
    auto const first = ReadIndex(text.substr(open + 1, dots - open - 1));
    auto const last = ReadIndex(text.substr(dots + 2, close - dots - 2));
    bool const plain = vector.prefix.find(' ') == std::string_view::npos &&
                       vector.suffix.find_first_not_of('}') == std::string_view::npos;
    if (!first || !last || !plain) return std::nullopt;
    vector.first = std::min(*first, *last);
    vector.last = std::max(*first, *last);
    return vector;
}

struct Group {
    std::string_view prefix;
    std::string_view body;
};

std::size_t ClosingBrace(std::string_view text, std::size_t open) {
    std::size_t depth = 0;
    for (std::size_t at = open; at < text.size(); ++at) {
        if (text[at] == '{') ++depth;
        if (text[at] == '}' && --depth == 0) return at;
    }
    return std::string_view::npos;
}

std::optional<Group> SplitGroup(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == ' ') return std::nullopt;
        if (text[at] != '{') continue;
        std::size_t const close = ClosingBrace(text, at);
        if (close == std::string_view::npos) return std::nullopt;
        std::size_t const escape = EscapeLength(text, at);
        if (escape == 0 && !IsMarkupBrace(text, at)) {
            if (close + 1 != text.size()) return std::nullopt;
            return Group{text.substr(0, at), text.substr(at + 1, close - at - 1)};
        }
        at = close;
    }
    return std::nullopt;
}

std::vector<std::string_view> SplitMembers(std::string_view body) {
    std::vector<std::string_view> members;
    std::size_t begin = 0;
    int depth = 0;
    for (std::size_t at = 0; at <= body.size(); ++at) {
        bool const ends = at == body.size() ||
                          (depth == 0 && (body[at] == ' ' || body[at] == ',' || body[at] == '\t'));
        if (ends) {
            if (at > begin) members.push_back(body.substr(begin, at - begin));
            begin = at + 1;
        } else if (body[at] == '{') {
            ++depth;
        } else if (body[at] == '}' && depth > 0) {
            --depth;
        }
    }
    return members;
}

class Expander {
public:
    Expander(BusAliases const& list, std::size_t most, BusName& result)
        : aliases(list), limit(most), name(result) {}

    void AddVector(Vector const& vector) {
        for (unsigned i = vector.first; HasRoom(); ++i) {
            AddNet(std::string(vector.prefix) + std::to_string(i) + std::string(vector.suffix));
            if (i == vector.last) return;
        }
    }

    void AddMember(std::string_view member, int depth) {
        auto const alias = aliases.find(member);
        if (alias != aliases.end() && depth < DEEPEST_ALIAS) {
            for (std::string const& part : alias->second) {
                if (part != member && HasRoom()) AddMember(part, depth + 1);
            }
        } else if (auto const vector = SplitVector(member)) {
            AddVector(*vector);
        } else if (HasRoom()) {
            AddNet(std::string(member));
        }
    }

    bool IsExceeded() const { return exceeded; }

private:
    bool HasRoom() {
        exceeded = exceeded || name.members.size() >= limit;
        return !exceeded;
    }

    void AddNet(std::string const& text) {
        BusMember member;
        member.local = Unescape(text);
        bool const prefixed = name.kind == BusName::GROUP && !name.prefix.empty();
        member.name = prefixed ? name.prefix + "." + member.local : member.local;
        name.members.push_back(std::move(member));
    }

    BusAliases const& aliases;
    std::size_t limit;
    BusName& name;
    bool exceeded = false;
};

}  // namespace

bool IsBusName(std::string_view text) {
    if (text.find_first_of("[{") == std::string_view::npos) return false;
    return SplitGroup(text) || SplitVector(text);
}

BusName ParseBusName(std::string_view text, BusAliases const& aliases, std::size_t limit,
                     bool& exceeded) {
    BusName name;
    Expander expander(aliases, limit, name);
    if (auto const group = SplitGroup(text)) {
        name.kind = BusName::GROUP;
        name.prefix = Unescape(group->prefix);
        for (std::string_view const member : SplitMembers(group->body)) {
            expander.AddMember(member, 0);
        }
    } else if (auto const vector = SplitVector(text)) {
        name.kind = BusName::VECTOR;
        name.prefix = Unescape(vector->prefix) + std::string(vector->suffix);
        expander.AddVector(*vector);
    }
    exceeded = exceeded || expander.IsExceeded();
    return name;
}

}  // namespace fighost::kicad
