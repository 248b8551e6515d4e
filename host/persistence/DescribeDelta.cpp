#include <persistence/DescribeDelta.h>

#include <unordered_set>

#include <figk/AbstractDelta.h>
#include <figrep/FigureConnectionsDelta.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/FigureSheetDelta.h>
#include <figrep/FigureSubNetDelta.h>
#include <figrep/PublishTitleBlockDelta.h>
#include <persistence/ColorDelta.h>
#include <persistence/ContentFields.h>
#include <persistence/DeltaTypes.h>

namespace fighost {

namespace {

using du::Symbol;
using zvk::SerializedContentElement;
using Delta = figk::AbstractDelta;

constexpr std::size_t NAMED_TARGETS = 5;  // more are only counted

std::string ShortName(Symbol const& id, KnownNames const& names) {
    auto const known = names.find(id.GetString());
    return known == names.end() ? id.GetString() : known->second;
}

std::string ListOf(std::vector<Symbol> const& ids, KnownNames const& names) {
    std::string list;
    for (std::size_t i = 0; i < ids.size() && i < NAMED_TARGETS; ++i)
        list += (i == 0 ? "" : ", ") + ShortName(ids[i], names);
    if (ids.size() > NAMED_TARGETS) {
        list += " and " + std::to_string(ids.size() - NAMED_TARGETS) + " more";
    }
    return ids.empty() ? "nothing" : list;
}

std::string SettingVerb(SerializedContentElement const& element) {
    ContentFields fields(element);
    bool const on = fields.Flag(Delta::s_setting_value);
    if (fields.Text(Delta::s_setting_type) == Symbol("ITEM_VISIBILITY"))
        return on ? "show" : "hide";
    return on ? "fill" : "leave unfilled";
}

std::string MoveVerb(SerializedContentElement const& element) {
    std::string verb;
    ContentFields(element).Children(Delta::s_delta_transform, [&](ContentFields& transform) {
        verb += transform.Text(Delta::s_delta_transform_type).GetString() + " and ";
    });
    return verb + "move";
}

std::string SubNetVerb(SerializedContentElement const& element) {
    return ContentFields(element).Has(Delta::s_delta_head_vertex) ? "draw the wires of" : "copy";
}

std::string ConnectionsVerb(SerializedContentElement const& element) {
    bool const rejoins =
        ContentFields(element).Whole(Delta::s_delta_action) == Delta::ACTION_DELETE;
    return rejoins ? "rejoin connections of" : "part connections of";
}

std::string VerbOf(SerializedContentElement const& element) {
    Symbol const type = TypeOf(element);
    if (type == figrep::FigureSubNetDelta::GetClassTypeValue()) return SubNetVerb(element);
    if (type == figrep::FigureMoveDelta::GetClassTypeValue()) return MoveVerb(element);
    if (type == figrep::FigureSettingDelta::GetClassTypeValue()) return SettingVerb(element);
    if (type == figrep::FigureItemSettingDelta::GetClassTypeValue()) return SettingVerb(element);
    if (type == figrep::FigureConnectionsDelta::GetClassTypeValue())
        return ConnectionsVerb(element);
    return type.IsEmpty() ? "delete" : "'" + type.GetString() + "' on";
}

}  // namespace

std::vector<Symbol> TargetsOf(SerializedContentElement const& element) {
    std::vector<Symbol> targets;
    std::unordered_set<Symbol> known;
    auto const add = [&](ContentFields& fields, Symbol const& key) {
        for (auto const& id : fields.Texts(key)) {
            if (known.insert(id).second) targets.push_back(id);
        }
    };
    ContentFields fields(element);
    add(fields, Delta::s_delta_id);
    add(fields, Delta::s_delta_id_list_entry);
    fields.Children(Delta::s_delta_broken_connection,
                    [&](ContentFields& record) { add(record, Delta::s_delta_sub_net_id); });
    return targets;
}

std::string NameWithId(Symbol const& id, KnownNames const& names) {
    auto const known = names.find(id.GetString());
    if (known == names.end()) return id.GetString();
    return known->second + " (" + id.GetString() + ")";
}

std::string DescribeDelta(SerializedContentElement const& element, KnownNames const& names) {
    Symbol const type = TypeOf(element);
    auto const targets = TargetsOf(element);
    if (type.IsEmpty() && !IsDeletion(element)) return "a change of no known kind";
    if (type == figrep::PublishTitleBlockDelta::GetClassTypeValue()) {
        return "set the texts of the title block";
    }
    if (type == figrep::FigureSheetDelta::GetClassTypeValue()) {
        return "show the sheet " + ListOf(targets, names);
    }
    if (type == ColorDelta::GetClassTypeValue()) {
        return ColorDelta::Describe(element, ListOf(targets, names));
    }
    return VerbOf(element) + " " + ListOf(targets, names);
}

}  // namespace fighost
