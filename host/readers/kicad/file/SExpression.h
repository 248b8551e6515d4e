// A file of nested lists as one flat tree: made in one pass, without recursion.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <readers/Findings.h>
#include <readers/kicad/file/Limits.h>

namespace fighost::kicad {

/// The text of a file and its tree. A node is a list or a word; the nodes stand in the order of the
/// file, and each knows where its successor stands, so that skipping a list costs nothing.
///
/// Bytes that are not UTF-8, and control characters, are replaced by U+FFFD before anything else
/// looks at them.
class SExpression {
public:
    using Index = std::uint32_t;

    /// One node and the way on from it: a plain value of two words. A default-made view is nothing:
    /// it has no text, no children and no place.
    class View {
    public:
        View() = default;

        explicit operator bool() const { return tree != nullptr; }
        bool IsList() const;
        /// True for a word written in quotes.
        bool IsQuoted() const;
        /// The word as it stands, without quotes and with escapes not worked out.
        std::string_view Raw() const;
        /// The word with escapes worked out; empty for a list.
        std::string Text() const;
        /// The first word of a list; empty when it doesn't begin with a word.
        std::string_view Keyword() const;
        /// Where it begins.
        Place GetPlace() const;

        View FirstChild() const;
        /// The next node of the same list.
        View Next() const;
        /// The n-th node of this list; number 0 is the keyword.
        View At(unsigned number) const;
        /// The first list in this list that begins with `keyword`.
        View Find(std::string_view keyword) const;

    private:
        friend class SExpression;
        View(SExpression const* owner, Index at, Index limit)
            : tree(owner), index(at), end(limit) {}
        SExpression const* tree = nullptr;
        Index index = 0;
        Index end = 0;
    };

    /// Reads `text`. Answers the error, if there is one: then the tree is empty. `findings` hears
    /// of bytes that are not UTF-8. Cost: one pass over the text.
    std::optional<Finding> Parse(std::string fileName, std::string text, Limits const& limits,
                                 Findings& findings);

    /// The list that is the file. Nothing before a successful `Parse`.
    View Root() const;
    std::size_t GetNodeCount() const { return nodes.size(); }
    std::string const& GetFileName() const { return file; }
    /// Gives up text and tree.
    void Clear();

private:
    enum Kind : std::uint8_t { LIST, WORD, QUOTED, QUOTED_WITH_ESCAPES };

    struct Node {
        std::uint32_t begin;
        std::uint32_t length : 30;
        std::uint32_t kind : 2;
        Index next;  // behind this node and all below it
    };

    class Parser;

    /// A place that was worked out; the next one is counted on from here.
    struct Mark {
        std::size_t offset = 0;
        std::size_t line = 1;
        std::size_t column = 1;
    };

    Place PlaceOf(std::size_t offset) const;

    std::string file;
    std::string source;
    std::vector<Node> nodes;
    mutable Mark mark;
};

}  // namespace fighost::kicad
