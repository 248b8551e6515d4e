#include <figk/AbstractItem.h>

#include <du/Localizer.h>
#include <figk/Design.h>
#include <figk/Zv2dGraphics.h>

#include <array>

namespace figk {

namespace {

constexpr char const* CATALOGUE = "figk:itemTypes";

/// By `TypeDefinitions::KernelItemType`; the texts are also the catalogue's keys.
constexpr std::array<char const*, 20> TYPE_NAMES = {
    "",        "Block",      "Cable",           "Connector",     "Design", "Format",
    "Graphic", "Highway",    "Highway segment", "Miscellaneous", "Net",    "Net segment",
    "Port",    "Port",       "Sheet",           "Highway",       "Net",    "Table",
    "Text",    "Title block"};

}  // namespace

AbstractItem::AbstractItem() = default;
AbstractItem::AbstractItem(AbstractItem const& other) : du::RefCounted(other) {}
AbstractItem::~AbstractItem() = default;

SmartPtr<Zv2dGraphics> AbstractItem::GetZv2dGraphics() const {
    return nullptr;
}

SmartPtr<Design> AbstractItem::GetDesign() const {
    return nullptr;
}

ConstSmartPtr<SettingList> AbstractItem::GetSettingList() const {
    return nullptr;
}

void AbstractItem::GetAttributes(AttributeSet&) const {}

Symbol AbstractItem::GetUITypeName() const {
    return GetUITypeName(GetKernelItemType());
}

Symbol AbstractItem::GetUITypeName(TypeDefinitions::KernelItemType type) {
    auto const index = static_cast<size_t>(type);
    if (type <= TypeDefinitions::ITEM_NONE || index >= TYPE_NAMES.size()) return Symbol();
    return du::Localizer::Find(CATALOGUE, TYPE_NAMES[index]);
}

}  // namespace figk
