#include "BuildContext.h"

namespace figkernel {

SettingsPtr BuildContext::SettingsOf(SourceIndex index, std::string const& id) {
    if (!IsUsable(index, settings.size(), "set of settings", id)) return nullptr;
    return settings[index];
}

bool BuildContext::IsUsable(SourceIndex index, std::size_t size, char const* what,
                            std::string const& id) {
    if (index < size) return true;
    if (index != NO_INDEX) {
        Report(BuildFinding::BAD_INDEX, id,
               std::string("The ") + what + " that it names is missing.");
    }
    return false;
}

AttributeVector MakeAttributes(std::vector<AttributeSource> const& source) {
    AttributeVector attributes;
    attributes.reserve(source.size());
    for (AttributeSource const& attribute : source) {
        attributes.push_back(
            new figk::Attribute(du::Symbol(attribute.name), du::Symbol(attribute.value)));
    }
    return attributes;
}

du::Symbol IdMaker::Make(Kind kind, std::string_view id, std::string_view fallback) {
    std::string text = prefix;
    text += id.empty() ? fallback : id;
    auto const keyOf = [kind](du::Symbol symbol) { return symbol.GetOrder() * 16 + kind; };
    du::Symbol symbol{text};
    std::uint64_t const first = keyOf(symbol);
    if (taken.try_emplace(first, 1).second) return symbol;
    if (!id.empty()) {
        context.Report(BuildFinding::DUPLICATE_ID, std::string(id),
                       "Another of its kind has the same id.");
    }
    do {
        symbol = du::Symbol(text + "#" + std::to_string(++taken[first]));
    } while (!taken.try_emplace(keyOf(symbol), 1).second);
    return symbol;
}

}  // namespace figkernel
