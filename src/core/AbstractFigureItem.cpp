#include <figrep/AbstractFigureItem.h>

#include <figk/AbstractItem.h>
#include <figk/SettingList.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/Figure.h>
#include <figrep/FigureLink.h>
#include <figrep/Setting.h>
#include <zvk/ReadWriteLock.h>

#include <array>

namespace figrep {

namespace {

using KernelItemType = figk::TypeDefinitions::KernelItemType;

struct TypeEntry {
    char const* name;
    int kernelType;
};

// By item type. The odd spelling is the one that programs know.
constexpr std::array<TypeEntry, 18> TYPES{{{"Unknown", 0},
                                           {"BlockInstance", 1},
                                           {"CableInstance", 2},
                                           {"ConnectorInstance", 3},
                                           {"Format", 5},
                                           {"GenericGraphic", 6},
                                           {"HighwaySegment", 8},
                                           {"Miscellaneous", 9},
                                           {"NetSegment", 11},
                                           {"PickGRaphicProxy", 0},
                                           {"Port", 12},
                                           {"PortNode", 13},
                                           {"SubHighway", 15},
                                           {"SubNet", 16},
                                           {"TableInstance", 17},
                                           {"TextGraphic", 18},
                                           {"TitleBlock", 19},
                                           {"UnroutedConnection", 0}}};

TypeEntry TypeOf(AbstractFigureItem::FigureItemType type) {
    auto const index = static_cast<std::size_t>(type);
    if (index >= TYPES.size()) return {"Error : Unrecognised item type", 0};
    return TYPES[index];
}

ConstSmartPtr<figk::SettingList> KernelSettings(SmartPtr<figk::AbstractItem> const& item) {
    if (!item) return {};
    return item->GetSettings();
}

}  // namespace

zvk::ClassType const AbstractFigureItem::CLASS_TYPE("figrep::AbstractFigureItem");

AbstractFigureItem::AbstractFigureItem(SmartPtr<zvk::ReadWriteLock> const& lock,
                                       SmartPtr<figk::AbstractItem> const& item)
    : AttributeList(lock),
      SettingList(lock, KernelSettings(item)),
      kernelItem_(item),
      itemLock_(lock) {
    if (!item) return;
    figk::AttributeSet attributes;
    item->GetAttributes(attributes);
    for (auto const& attribute : attributes)
        AddAttribute(attribute);
}

AbstractFigureItem::AbstractFigureItem(SmartPtr<zvk::ReadWriteLock> const& lock,
                                       std::string const& name)
    : AttributeList(lock), SettingList(lock, {}), itemLock_(lock) {
    SetName(name);
}

AbstractFigureItem::~AbstractFigureItem() = default;

zvk::ClassType const& AbstractFigureItem::GetClassType() const {
    return CLASS_TYPE;
}

std::string const& AbstractFigureItem::GetName() const {
    zvk::ReadGuard guard(itemLock_);
    std::string const& local = GetLocalName();
    return local.empty() && kernelItem_ ? kernelItem_->GetName() : local;
}

// A text once made stays, so that what `GetName` answered lives as long as the item.
void AbstractFigureItem::SetName(std::string const& name) {
    if (name_) {
        *name_ = name;
    } else if (!name.empty()) {
        name_ = std::make_unique<std::string>(name);
    }
}

void AbstractFigureItem::MoveItem(double, double) {}
void AbstractFigureItem::RotateItem(DPoint2D const&, double) {}
void AbstractFigureItem::ScaleItem(DPoint2D const&, double) {}
void AbstractFigureItem::MirrorItem(DPoint2D const&, bool) {}

SmartPtr<Figure> AbstractFigureItem::GetFigure() const {
    zvk::ReadGuard guard(itemLock_);
    return figureLink_ ? figureLink_->GetFigure() : SmartPtr<Figure>();
}

void AbstractFigureItem::SetFigure(SmartPtr<Figure> const& figure) {
    figureLink_ = figure ? figure->GetLink() : SmartPtr<FigureLink>();
}

DBox2D AbstractFigureItem::GetExtents() {
    {
        zvk::ReadGuard guard(itemLock_);
        if (!(itemExtents_ == DBox2D::EMPTY)) return itemExtents_;
    }
    auto const graphics = GetZv2dGraphics();
    zvk::WriteGuard guard(itemLock_);
    if (graphics && itemExtents_ == DBox2D::EMPTY) itemExtents_ = graphics->GetExtents();
    return itemExtents_;
}

SmartPtr<figk::Zv2dGraphics> AbstractFigureItem::GetZv2dGraphics() const {
    zvk::ReadGuard guard(itemLock_);
    return kernelItem_ ? kernelItem_->GetZv2dGraphics() : SmartPtr<figk::Zv2dGraphics>();
}

SmartPtr<figk::AbstractItem> AbstractFigureItem::GetKernelItem() const {
    zvk::ReadGuard guard(itemLock_);
    return kernelItem_;
}

SmartPtr<zvk::ReadWriteLock> const& AbstractFigureItem::GetLock() const {
    zvk::ReadGuard guard(itemLock_);
    return itemLock_;
}

KernelItemType AbstractFigureItem::GetKernelType() const {
    return GetKernelType(GetType());
}

KernelItemType AbstractFigureItem::GetKernelType(FigureItemType type) {
    return static_cast<KernelItemType>(TypeOf(type).kernelType);
}

std::string AbstractFigureItem::GetTypeName() const {
    return TypeOf(GetType()).name;
}

Symbol AbstractFigureItem::GetUITypeName() const {
    zvk::ReadGuard guard(itemLock_);
    if (kernelItem_) return kernelItem_->GetUITypeName();
    return figk::AbstractItem::GetUITypeName(GetKernelType());
}

Symbol AbstractFigureItem::GetUITypeName(FigureItemType const& type) {
    return figk::AbstractItem::GetUITypeName(GetKernelType(type));
}

bool AbstractFigureItem::IsVisible() const {
    bool visible = true;
    GetBooleanSetting(Setting::ITEM_VISIBILITY, visible);
    return visible;
}

}  // namespace figrep
