// Which items a user means by a name.
#pragma once

#include <figrep/AbstractFigureItem.h>
#include <session/Session.h>

#include <optional>
#include <string>
#include <vector>

namespace fighost {

/// An item of one of a session's sheets.
struct SheetItem {
    SessionSheet const* sheet = nullptr;
    figrep::SmartPtr<figrep::AbstractFigureItem> item;
};

/// The items that `name` means, in the order of the sheets and of their walks; none for an empty
/// name. `only` narrows it to one sheet.
///
/// An id, as `ListItems` tells it, means the items with that id. Any other name means everything
/// that is called so, compared exactly:
///
/// - blocks, cables, tables and miscellaneous items by their name, which for a part is its
///   reference, and so all units of a part;
/// - a net by its full name: its pieces on all sheets; a highway likewise;
/// - a port by its name: all places where it shows;
/// - a pin as "REFERENCE:PIN".
///
/// So a name that a net and its port share means both. Cost: one walk of every figure.
std::vector<SheetItem> FindItems(Session const& session, std::string const& name,
                                 SessionSheet const* only = nullptr);

/// The items of several names, each item once; nothing at all when one of the names means nothing.
struct NamedItems {
    std::vector<SheetItem> items;
    std::vector<std::string> unknown;  ///< the names that mean nothing, in their order

    /// The items of one sheet, as the operations of its figure take them.
    std::vector<figrep::SmartPtr<figrep::AbstractFigureItem>> On(SessionSheet const& sheet) const;
};
NamedItems FindNamedItems(Session const& session, std::vector<std::string> const& names,
                          SessionSheet const* only = nullptr);

/// "no item, part, net or port is called 'X'", for messages; nothing when all names mean something.
std::optional<std::string> ComplaintAbout(NamedItems const& items);

}  // namespace fighost
