// A parenthesised file as a plain tree: enough to check the reader against, and nothing of the
// reader.
#pragma once

#include <string>
#include <vector>

namespace oracle {

/// One list or atom. A list keeps its first atom in `text` as well, so that it can be asked by
/// name.
struct Node {
    bool list = false;
    std::string text;
    std::vector<Node> items;

    /// First child list called `name`, or null.
    Node const* Find(std::string const& name) const;
    std::vector<Node const*> All(std::string const& name) const;
    /// Text of the `index`-th item behind the name, or empty.
    std::string const& At(std::size_t index) const;
    /// True for a bare flag `name`, for `(name)` and for `(name yes)`.
    bool Flag(std::string const& name) const;
    /// The number at `index` in units of 100 nm.
    long Coordinate(std::size_t index) const;
};

/// The file's outermost list; throws std::runtime_error when there is none.
Node ReadTree(std::string const& path);

}  // namespace oracle
