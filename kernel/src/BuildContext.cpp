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

bool IdRegistry::Take(unsigned kind, du::Symbol const& id) {
    std::uint64_t const order = id.GetOrder();
    if (order >= kinds.size()) kinds.resize(order + order / 2 + 1);
    auto const bit = static_cast<std::uint16_t>(1u << kind);
    if (kinds[order] & bit) return false;
    kinds[order] = static_cast<std::uint16_t>(kinds[order] | bit);
    return true;
}

std::uint32_t IdRegistry::NextNumber(unsigned kind, du::Symbol const& id) {
    return ++numbers.try_emplace(id.GetOrder() * 16 + kind, 1).first->second;
}

du::Symbol IdMaker::Make(Kind kind, std::string_view id, std::string_view fallback) {
    std::string text = prefix;
    text += id.empty() ? fallback : id;
    du::Symbol const wanted{text};
    if (context.ids.Take(kind, wanted)) return wanted;
    if (!id.empty()) {
        context.Report(BuildFinding::DUPLICATE_ID, std::string(id),
                       "Another of its kind has the same id.");
    }
    while (true) {
        std::uint32_t const number = context.ids.NextNumber(kind, wanted);
        du::Symbol const other(text + "#" + std::to_string(number));
        if (context.ids.Take(kind, other)) return other;
    }
}

}  // namespace figkernel
