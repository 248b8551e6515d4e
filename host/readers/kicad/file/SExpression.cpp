#include <readers/kicad/file/SExpression.h>

#include <algorithm>
#include <array>
#include <cstring>

#include <readers/kicad/file/Characters.h>

namespace fighost::kicad {

namespace {

enum CharacterClass : std::uint8_t { PLAIN, SPACE, SPECIAL };

constexpr std::array<CharacterClass, 256> MakeClasses() {
    std::array<CharacterClass, 256> classes{};
    for (char const c : {' ', '\t', '\r', '\n'})
        classes[static_cast<unsigned char>(c)] = SPACE;
    for (char const c : {'(', ')', '"'})
        classes[static_cast<unsigned char>(c)] = SPECIAL;
    return classes;
}

constexpr std::array<CharacterClass, 256> CLASSES = MakeClasses();

CharacterClass ClassOf(char c) {
    return CLASSES[static_cast<unsigned char>(c)];
}

}  // namespace

class SExpression::Parser {
public:
    Parser(SExpression& tree, Limits const& bounds) : out(tree), limits(bounds) {}

    std::optional<Finding> Run() {
        char const* const begin = out.source.data();
        std::size_t const size = out.source.size();
        out.nodes.reserve(size / 12 + 16);
        for (;;) {
            while (at < size && ClassOf(begin[at]) == SPACE)
                ++at;
            if (at == size) return Finish();
            if (complete) return Fail(at, "There is text behind the end of the outermost list");
            char const c = begin[at];
            auto problem = c == '(' ? Open() : c == ')' ? Close() : c == '"' ? Quoted() : Word();
            if (problem) return problem;
            if (out.nodes.size() > limits.tokens) return Fail(at, "The file has too many words");
        }
    }

private:
    std::optional<Finding> Fail(std::size_t offset, std::string sentence) {
        Finding finding{out.PlaceOf(offset), std::move(sentence)};
        out.Clear();
        return finding;
    }

    std::optional<Finding> Open() {
        if (open.size() >= limits.depth) {
            return Fail(at, "Lists are nested more than " + std::to_string(limits.depth) + " deep");
        }
        open.push_back(static_cast<Index>(out.nodes.size()));
        Push(at, 0, LIST);
        ++at;
        return std::nullopt;
    }

    std::optional<Finding> Close() {
        if (open.empty()) return Fail(at, "A ')' closes nothing");
        out.nodes[open.back()].next = static_cast<Index>(out.nodes.size());
        open.pop_back();
        complete = open.empty();
        ++at;
        return std::nullopt;
    }

    std::optional<Finding> Quoted() {
        std::size_t const first = at + 1;
        std::size_t end = first;
        bool escapes = false;
        std::string const& text = out.source;
        for (;; end += 2) {
            end = text.find_first_of("\"\\", end);
            if (end == std::string::npos || (text[end] == '\\' && end + 1 >= text.size())) {
                return Fail(at, "The text that begins here has no closing quote");
            }
            if (text[end] == '"') break;
            escapes = true;
        }
        if (auto problem = CheckWord(first, end)) return problem;
        Push(first, end - first, escapes ? QUOTED_WITH_ESCAPES : QUOTED);
        at = end + 1;
        return std::nullopt;
    }

    std::optional<Finding> Word() {
        std::size_t end = at + 1;
        while (end < out.source.size() && ClassOf(out.source[end]) == PLAIN)
            ++end;
        if (auto problem = CheckWord(at, end)) return problem;
        Push(at, end - at, WORD);
        at = end;
        return std::nullopt;
    }

    std::optional<Finding> CheckWord(std::size_t first, std::size_t end) {
        if (open.empty()) {
            return Fail(at, "The file doesn't begin with a list; it is no KiCad schematic");
        }
        if (end - first > limits.tokenBytes) {
            return Fail(at, "The text that begins here is longer than " +
                                std::to_string(limits.tokenBytes) + " bytes");
        }
        return std::nullopt;
    }

    void Push(std::size_t begin, std::size_t length, Kind kind) {
        Node node{};
        node.begin = static_cast<std::uint32_t>(begin);
        node.length = static_cast<std::uint32_t>(length) & 0x3FFFFFFFu;
        node.kind = kind;
        node.next = static_cast<Index>(out.nodes.size() + 1);
        out.nodes.push_back(node);
    }

    std::optional<Finding> Finish() {
        if (complete) return std::nullopt;
        if (out.nodes.empty()) return Fail(0, "The file is empty");
        return Fail(at, "The file ends inside a list: " + std::to_string(open.size()) +
                            (open.size() == 1 ? " ')' is missing" : " ')' are missing"));
    }

    SExpression& out;
    Limits const& limits;
    std::vector<Index> open;
    std::size_t at = 0;
    bool complete = false;
};

std::optional<Finding> SExpression::Parse(std::string fileName, std::string text,
                                          Limits const& limits, Findings& findings) {
    constexpr std::size_t OFFSET_LIMIT = 0x3FFFFFF0u;  // offsets and lengths have 30 bits
    Clear();
    file = std::move(fileName);
    if (text.size() > std::min(limits.fileBytes, OFFSET_LIMIT)) {
        return Finding::InFile(file, "The file is too large");
    }
    source = std::move(text);
    if (source.compare(0, 3, "\xEF\xBB\xBF") == 0) source.replace(0, 3, "   ");
    std::size_t const bad = FindBadCharacter(source);
    if (bad != std::string::npos) {
        findings.Warn("bad-characters", PlaceOf(bad),
                      "Bytes that are not UTF-8 text are shown as replacement characters");
        source = ReplaceBadCharacters(source);
    }
    return Parser(*this, limits).Run();
}

SExpression::View SExpression::Root() const {
    return nodes.empty() ? View() : View(this, 0, static_cast<Index>(nodes.size()));
}

void SExpression::Clear() {
    std::string().swap(source);
    std::vector<Node>().swap(nodes);
    mark = Mark();
}

Place SExpression::PlaceOf(std::size_t offset) const {
    offset = std::min(offset, source.size());
    if (offset < mark.offset) mark = Mark();
    for (; mark.offset < offset; ++mark.offset) {
        char const c = source[mark.offset];
        if (c == '\n') {
            ++mark.line;
            mark.column = 1;
        } else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {
            ++mark.column;
        }
    }
    return {file, mark.line, mark.column};
}

bool SExpression::View::IsList() const {
    return tree && tree->nodes[index].kind == LIST;
}

bool SExpression::View::IsQuoted() const {
    return tree && tree->nodes[index].kind >= QUOTED;
}

std::string_view SExpression::View::Raw() const {
    if (!tree) return {};
    Node const& node = tree->nodes[index];
    return std::string_view(tree->source).substr(node.begin, node.length);
}

std::string SExpression::View::Text() const {
    if (tree && tree->nodes[index].kind == QUOTED_WITH_ESCAPES) return WorkOutEscapes(Raw());
    return std::string(Raw());
}

std::string_view SExpression::View::Keyword() const {
    View const first = FirstChild();
    return first && !first.IsList() ? first.Raw() : std::string_view();
}

Place SExpression::View::GetPlace() const {
    return tree ? tree->PlaceOf(tree->nodes[index].begin) : Place();
}

SExpression::View SExpression::View::FirstChild() const {
    if (!IsList() || tree->nodes[index].next == index + 1) return {};
    return View(tree, index + 1, tree->nodes[index].next);
}

SExpression::View SExpression::View::Next() const {
    if (!tree || tree->nodes[index].next >= end) return {};
    return View(tree, tree->nodes[index].next, end);
}

SExpression::View SExpression::View::At(unsigned number) const {
    View child = FirstChild();
    while (child && number > 0) {
        child = child.Next();
        --number;
    }
    return child;
}

SExpression::View SExpression::View::Find(std::string_view keyword) const {
    for (View child = FirstChild(); child; child = child.Next()) {
        if (child.IsList() && child.Keyword() == keyword) return child;
    }
    return {};
}

}  // namespace fighost::kicad
