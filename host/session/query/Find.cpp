#include <session/query/Find.h>

#include <figk/ConnectorInstance.h>
#include <figrep/BaseGraphic.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <readers/kicad/design/Texts.h>
#include <session/items/ForEachItem.h>
#include <session/items/Graphics.h>
#include <session/items/Pins.h>

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::SmartPtr;

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// A text to be looked for, in the form in which texts are compared.
class Needle {
public:
    Needle(std::string const& text, bool ignoreCase)
        : ignoreCase_(ignoreCase), whole_(text), text_(Normal(text)) {}

    bool IsIn(std::string const& text) const {
        return Normal(text).find(text_) != std::string::npos;
    }
    bool IsId(AbstractFigureItem const& item) const {
        return !whole_.empty() && item.GetId().GetString() == whole_;
    }

private:
    std::string Normal(std::string const& text) const {
        std::string normal;
        for (char c : kicad::WithoutMarkup(text)) {
            if (IsSpace(c)) {
                if (normal.empty() || normal.back() != ' ') normal += ' ';
            } else {
                bool const isUpper = c >= 'A' && c <= 'Z';
                normal += ignoreCase_ && isUpper ? static_cast<char>(c - 'A' + 'a') : c;
            }
        }
        return normal;
    }

    bool ignoreCase_;
    std::string whole_;
    std::string text_;
};

std::optional<Match::Kind> KindOfNamed(AbstractFigureItem::FigureItemType type) {
    switch (type) {
        case AbstractFigureItem::ITEM_SUB_NET:
        case AbstractFigureItem::ITEM_SUB_HIGHWAY:
            return Match::NET;
        case AbstractFigureItem::ITEM_BLOCK_INSTANCE:
        case AbstractFigureItem::ITEM_CABLE_INSTANCE:
        case AbstractFigureItem::ITEM_MISCELLANEOUS:
        case AbstractFigureItem::ITEM_PORT_NODE:
        case AbstractFigureItem::ITEM_TABLE_INSTANCE:
            return Match::ITEM;
        default:
            return {};
    }
}

std::string NameOfOwner(SmartPtr<AbstractFigureItem> const& owner) {
    if (!owner) return {};
    auto const pin = du::DynamicCast<figk::ConnectorInstance>(owner->GetKernelItem());
    std::string const name = pin ? PinName(*pin) : std::string();
    return name.empty() ? owner->GetName() : name;
}

// Searches one sheet.
class SheetSearch {
public:
    SheetSearch(SessionSheet const& sheet, Needle const& needle) : sheet_(sheet), needle_(needle) {}

    void Run(std::vector<Match>& matches) {
        // Boxes of nets turn trees, which nobody may do under a walk.
        std::vector<SmartPtr<AbstractFigureItem>> items;
        ForEachItem(sheet_.figure, [&](SmartPtr<AbstractFigureItem> const& item) {
            items.push_back(item);
            NotePointOn(item);
        });
        for (auto const& item : items)
            LookAt(item, matches);
    }

private:
    // Remembers a point of the first segment of each net and highway.
    void NotePointOn(SmartPtr<AbstractFigureItem> const& item) {
        auto const segment = du::DynamicCast<figrep::Segment>(item);
        if (!segment) return;
        AbstractFigureItem const* wire = nullptr;
        if (auto const ofNet = du::DynamicCast<figrep::NetSegment>(item)) {
            wire = ofNet->GetSubNet().Get();
        } else if (auto const ofHighway = du::DynamicCast<figrep::HighwaySegment>(item)) {
            wire = ofHighway->GetSubHighway().Get();
        }
        dg::DPoint2D start, end;
        segment->GetEnds(start, end);
        points_.try_emplace(wire, start);
    }

    dg::DPoint2D PointOf(AbstractFigureItem& item) const {
        auto const known = points_.find(&item);
        if (known != points_.end()) return known->second;
        if (auto const* port = dynamic_cast<figrep::PortNode const*>(&item)) {
            return port->GetPosition();
        }
        dg::DBox2D const box = item.GetExtents();
        return box.IsEmpty() ? dg::DPoint2D()
                             : dg::DPoint2D((box[0] + box[2]) / 2, (box[1] + box[3]) / 2);
    }

    void LookAt(SmartPtr<AbstractFigureItem> const& item, std::vector<Match>& matches) const {
        if (auto const graphic = du::DynamicCast<figrep::BaseGraphic>(item)) {
            if (LookAtTexts(*graphic, matches)) return;
        }
        auto const kind = KindOfNamed(item->GetType());
        bool const byName = kind && needle_.IsIn(item->GetName());
        if ((!byName && !needle_.IsId(*item)) || !item->IsVisible()) return;
        Match match = MatchOf(*item, kind.value_or(Match::ITEM));
        match.text = byName ? item->GetName() : DisplayNameOf(*item);
        match.place = PlaceOf(sheet_, PointOf(*item));
        matches.push_back(std::move(match));
    }

    bool LookAtTexts(figrep::BaseGraphic const& graphic, std::vector<Match>& matches) const {
        bool any = false;
        bool const byId = needle_.IsId(graphic);
        for (ShownText const& shown : TextsIn(graphic)) {
            if (!byId && !needle_.IsIn(shown.text)) continue;
            if (!any && !IsShown(graphic)) return true;
            any = true;
            Match match = MatchOf(graphic, Match::TEXT);
            match.text = shown.text;
            match.of = NameOfOwner(OwnerOf(graphic));
            match.place = PlaceOf(sheet_, shown.at);
            matches.push_back(std::move(match));
        }
        return any;
    }

    static Match MatchOf(AbstractFigureItem const& item, Match::Kind kind) {
        Match match;
        match.kind = kind;
        match.type = item.GetTypeName();
        match.id = item.GetId().GetString();
        return match;
    }

    SessionSheet const& sheet_;
    Needle const& needle_;
    std::unordered_map<AbstractFigureItem const*, dg::DPoint2D> points_;
};

}  // namespace

std::vector<Match> FindMatches(Session const& session, std::string const& text,
                               FindOptions const& options) {
    Needle const needle(text, options.ignoreCase);
    std::vector<Match> matches;
    auto const& only = options.sheets;
    for (SessionSheet const& sheet : session.GetSheets()) {
        bool const wanted =
            only.empty() || std::find(only.begin(), only.end(), &sheet) != only.end();
        if (wanted) SheetSearch(sheet, needle).Run(matches);
    }
    return matches;
}

char const* NameOf(Match::Kind kind) {
    switch (kind) {
        case Match::TEXT:
            return "text";
        case Match::ITEM:
            return "item";
        case Match::NET:
            return "net";
    }
    return "";
}

}  // namespace fighost
