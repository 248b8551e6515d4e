#include <readers/Findings.h>

namespace fighost {

Finding Finding::InFile(std::string file, std::string sentence) {
    return {{std::move(file), 0, 0}, std::move(sentence)};
}

std::string Finding::ToString() const {
    std::string text = place.file;
    if (place.line != 0) {
        text += ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
    }
    return text.empty() ? sentence : text + ": " + sentence;
}

void Findings::Warn(std::string_view kind, Place place, std::string sentence) {
    auto found = warnings.find(kind);
    if (found == warnings.end()) {
        WarningCount fresh{std::string(kind), {std::move(place), std::move(sentence)}, 0};
        found = warnings.emplace(std::string(kind), std::move(fresh)).first;
    }
    ++found->second.count;
}

void Findings::Count(std::string_view kind) {
    auto found = warnings.find(kind);
    if (found != warnings.end()) ++found->second.count;
}

std::vector<WarningCount> Findings::GetWarnings() const {
    std::vector<WarningCount> result;
    result.reserve(warnings.size());
    for (auto const& [kind, warning] : warnings)
        result.push_back(warning);
    return result;
}

std::size_t Findings::GetWarningCount() const {
    std::size_t sum = 0;
    for (auto const& [kind, warning] : warnings)
        sum += warning.count;
    return sum;
}

}  // namespace fighost
