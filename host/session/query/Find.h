// What on the sheets of a design matches a text.
#pragma once

#include <session/Session.h>
#include <session/query/SheetPlace.h>

#include <string>
#include <vector>

namespace fighost {

struct FindOptions {
    bool ignoreCase = false;                  ///< of ASCII letters
    std::vector<SessionSheet const*> sheets;  ///< empty: all
};

/// Something that matched.
struct Match {
    /// A painted text; a block, cable, table, miscellaneous item or port by its name, or any item
    /// by its id; a piece of a net or highway by its name.
    enum Kind { TEXT, ITEM, NET };
    Kind kind = TEXT;
    std::string type;  ///< of the item
    std::string id;    ///< of the item; empty for one without
    std::string text;  ///< what matched, whole
    std::string of;    ///< for texts: the block, pin, port or net that it belongs to; else empty
    SheetPlace place;  ///< of texts their anchor, of a net a point on it, else the middle
};

/// All matches, by sheets and in the order of their walks. What is hidden doesn't match.
///
/// A text or name matches when `text` is part of it. Signs of mark-up, as in "~{RESET}", count on
/// neither side, and white space matches white space, so that a text is found however its lines are
/// broken. An item also matches when `text` is its whole id. Cost: one walk of every figure.
std::vector<Match> FindMatches(Session const& session, std::string const& text,
                               FindOptions const& options = {});

/// "text", "item" or "net".
char const* NameOf(Match::Kind kind);

}  // namespace fighost
