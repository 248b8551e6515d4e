#include <session/query/NearNames.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace fighost {

namespace {

constexpr std::size_t LONGEST = 100;  // of names that are compared letter by letter
constexpr std::size_t LETTERS_PER_MISTAKE = 3;

enum Nearness : std::size_t { SAME_LETTERS, LAST_PART, CONTAINED, MISTYPED };

// Without case and without the mark-up of overbars and the like, which few people type.
std::string Plain(std::string_view text) {
    std::string plain;
    for (char const c : text) {
        if (c == '~' || c == '{' || c == '}') continue;
        plain += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return plain;
}

std::string LastPart(std::string const& name) {
    return name.substr(name.rfind('/') + 1);
}

// Letters to insert, to take out or to exchange.
std::size_t Mistakes(std::string const& a, std::string const& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            std::size_t const exchanged = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({exchanged, row[j] + 1, diagonal + 1});
        }
    }
    return row[b.size()];
}

// Smaller is nearer; `FAR` for a name that is not like the wanted one.
constexpr std::size_t FAR = LONGEST * 10;

std::size_t DistanceOf(std::string const& name, std::string const& wanted) {
    if (name == wanted) return SAME_LETTERS;
    std::string const part = LastPart(name);
    std::string const wantedPart = LastPart(wanted);
    if (wantedPart.empty()) return FAR;
    if (part == wantedPart) return LAST_PART;
    if (name.find(wantedPart) != std::string::npos) return CONTAINED;
    if (part.size() > LONGEST || wantedPart.size() > LONGEST) return FAR;
    std::size_t const mistakes = Mistakes(part, wantedPart);
    bool const isNear = mistakes * LETTERS_PER_MISTAKE <= std::max(part.size(), wantedPart.size());
    return isNear ? MISTYPED + mistakes : FAR;
}

}  // namespace

std::vector<std::string> NearNames(std::vector<std::string> const& names, std::string_view wanted,
                                   std::size_t most) {
    std::string const plain = Plain(wanted);
    std::vector<std::pair<std::size_t, std::string const*>> found;
    for (std::string const& name : names) {
        std::size_t const distance = DistanceOf(Plain(name), plain);
        if (distance < FAR) found.push_back({distance, &name});
    }
    std::stable_sort(found.begin(), found.end(),
                     [](auto const& a, auto const& b) { return a.first < b.first; });
    found.resize(std::min(found.size(), most));
    std::vector<std::string> near;
    for (auto const& entry : found)
        near.push_back(*entry.second);
    return near;
}

}  // namespace fighost
