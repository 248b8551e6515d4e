// What a reader has to say about a file: warnings counted by kind, and the one error that stops it.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fighost {

/// A place in a file. Line and column count from 1, columns in characters; 0 means unknown.
struct Place {
    std::string file;
    std::size_t line = 0;
    std::size_t column = 0;
};

/// One plain sentence about one place.
struct Finding {
    Place place;
    std::string sentence;

    /// About a file as a whole.
    static Finding InFile(std::string file, std::string sentence);

    /// "file:line:column: sentence"; leaves out what is unknown.
    std::string ToString() const;
};

/// All warnings of one kind: the first in full, the others as a number.
struct WarningCount {
    std::string kind;  ///< short and stable, as "unknown-token"
    Finding first;
    std::size_t count = 0;
};

/// Collects what one reading finds. Memory is bounded by the number of kinds.
class Findings {
public:
    /// Counts a warning; place and sentence are kept for the first of its kind.
    void Warn(std::string_view kind, Place place, std::string sentence);
    /// True when the next warning of this kind would be its first, that is, when it pays to find
    /// out the place.
    bool IsNew(std::string_view kind) const { return warnings.find(kind) == warnings.end(); }
    /// Counts a further warning of a known kind without a place.
    void Count(std::string_view kind);

    /// In the order of the kinds' names.
    std::vector<WarningCount> GetWarnings() const;
    std::size_t GetWarningCount() const;

private:
    std::map<std::string, WarningCount, std::less<>> warnings;
};

}  // namespace fighost
