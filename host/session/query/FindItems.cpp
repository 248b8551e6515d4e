#include <session/query/FindItems.h>

#include <figk/ConnectorInstance.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/ConnectorInstance.h>
#include <session/items/ForEachItem.h>
#include <session/items/Pins.h>

#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::SmartPtr;

// Whether users call items of this kind by their name. The name of a graphic is its text or its
// kind, that of a segment its net's, and many share it.
bool IsKnownByName(AbstractFigureItem::FigureItemType type) {
    switch (type) {
        case AbstractFigureItem::ITEM_BLOCK_INSTANCE:
        case AbstractFigureItem::ITEM_CABLE_INSTANCE:
        case AbstractFigureItem::ITEM_MISCELLANEOUS:
        case AbstractFigureItem::ITEM_PORT_NODE:
        case AbstractFigureItem::ITEM_SUB_HIGHWAY:
        case AbstractFigureItem::ITEM_SUB_NET:
        case AbstractFigureItem::ITEM_TABLE_INSTANCE:
            return true;
        default:
            return false;
    }
}

std::string NameOf(AbstractFigureItem const& item) {
    if (IsKnownByName(item.GetType())) return item.GetName();
    auto const record = du::DynamicCast<figk::ConnectorInstance>(item.GetKernelItem());
    return record ? PinName(*record) : std::string();
}

// What one walk of the figures finds for each of some names.
class NameLookup {
public:
    explicit NameLookup(std::vector<std::string> const& names) {
        for (std::string const& name : names) {
            if (!name.empty()) found_[name];
        }
    }

    void LookAt(SessionSheet const& sheet) {
        ForEachItem(sheet.figure, [&](SmartPtr<AbstractFigureItem> const& item) {
            auto const byId = found_.find(item->GetId().GetString());
            if (byId != found_.end()) byId->second.byId.push_back({&sheet, item});
            auto const byName = found_.find(NameOf(*item));
            if (byName != found_.end()) byName->second.byName.push_back({&sheet, item});
        });
    }

    std::vector<SheetItem> const& Get(std::string const& name) const {
        static std::vector<SheetItem> const none;
        auto const found = found_.find(name);
        if (found == found_.end()) return none;
        return found->second.byId.empty() ? found->second.byName : found->second.byId;
    }

private:
    struct Found {
        std::vector<SheetItem> byId;
        std::vector<SheetItem> byName;
    };
    std::unordered_map<std::string, Found> found_;
};

NameLookup Look(Session const& session, std::vector<std::string> const& names,
                SessionSheet const* only) {
    NameLookup lookup(names);
    for (SessionSheet const& sheet : session.GetSheets()) {
        if (!only || only == &sheet) lookup.LookAt(sheet);
    }
    return lookup;
}

}  // namespace

std::vector<SheetItem> FindItems(Session const& session, std::string const& name,
                                 SessionSheet const* only) {
    return Look(session, {name}, only).Get(name);
}

NamedItems FindNamedItems(Session const& session, std::vector<std::string> const& names,
                          SessionSheet const* only) {
    NameLookup const lookup = Look(session, names, only);
    NamedItems all;
    std::unordered_set<AbstractFigureItem const*> seen;
    for (std::string const& name : names) {
        std::vector<SheetItem> const& found = lookup.Get(name);
        if (found.empty()) all.unknown.push_back(name);
        for (SheetItem const& item : found) {
            if (seen.insert(item.item.Get()).second) all.items.push_back(item);
        }
    }
    if (!all.unknown.empty()) all.items.clear();
    return all;
}

std::vector<SmartPtr<AbstractFigureItem>> NamedItems::On(SessionSheet const& sheet) const {
    std::vector<SmartPtr<AbstractFigureItem>> list;
    for (SheetItem const& item : items) {
        if (item.sheet == &sheet) list.push_back(item.item);
    }
    return list;
}

std::optional<std::string> ComplaintAbout(NamedItems const& items) {
    if (items.unknown.empty()) return {};
    std::string sentence = "no item, part, net or port is called ";
    for (std::string const& name : items.unknown) {
        bool const isFirst = &name == &items.unknown.front();
        bool const isLast = &name == &items.unknown.back();
        if (!isFirst) sentence += isLast ? " or " : ", ";
        sentence += "'" + name + "'";
    }
    return sentence;
}

}  // namespace fighost
