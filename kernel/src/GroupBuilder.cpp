#include "GroupBuilder.h"

#include <algorithm>

#include <figk/GraphicGroup.h>

#include "GraphicRecords.h"

namespace figkernel {

namespace {

/// Groups die one inside the other, so their nesting must stay shallow.
constexpr unsigned DEEPEST_GROUP = 100;

}  // namespace

du::Symbol GroupBuilder::IdOf(std::string const& id, std::string const& ownerId) {
    if (id.empty()) return {};
    return ids.Make(IdMaker::GRAPHIC, ownerId.empty() ? id : ownerId + "/" + id);
}

void GroupBuilder::FillFlat(figk::Group& group, GroupSource const& source,
                            std::string const& ownerId) {
    for (GraphicSource const& shape : source.graphics) {
        du::SmartPtr<figk::Zv2dGraphics> const picture(
            new figk::Zv2dGraphics(context.lock, shape.instances));
        du::SmartPtr<ShapeRecord> const record(
            new ShapeRecord(link, picture, du::Symbol(shape.name)));
        record->SetId(IdOf(shape.id, ownerId));
        record->SetSettings(context.SettingsOf(shape.settings, shape.id));
        group.Insert(record);
    }
    for (TextSource const& text : source.texts) {
        du::SmartPtr<figk::Zv2dGraphics> const picture(
            new figk::Zv2dGraphics(context.lock, text.instance));
        du::SmartPtr<TextRecord> const record(new TextRecord(link, picture, du::Symbol(text.text)));
        record->SetId(IdOf(text.id, ownerId));
        record->SetSettings(context.SettingsOf(text.settings, text.id));
        group.Insert(record);
    }
}

void GroupBuilder::Fill(figk::Group& group, GroupSource const& source, std::string const& ownerId) {
    struct Open {
        figk::SmartPtr<figk::Group> group;
        GroupSource const* source;
        unsigned depth;
    };
    std::vector<Open> open{{&group, &source, 0}};
    bool isTooDeep = false;
    while (!open.empty()) {
        Open const at = open.back();
        open.pop_back();
        FillFlat(*at.group, *at.source, ownerId);
        bool const mayNest = at.depth < DEEPEST_GROUP;
        isTooDeep = isTooDeep || (!mayNest && !at.source->groups.empty());
        std::size_t const firstChild = open.size();
        for (GroupSource const& child : at.source->groups) {
            figk::SmartPtr<figk::Group> inner = at.group;
            if (mayNest) {
                inner = new figk::GraphicGroup;
                at.group->Insert(inner);
            }
            open.push_back({inner, &child, at.depth + 1});
        }
        std::reverse(open.begin() + static_cast<std::ptrdiff_t>(firstChild), open.end());
    }
    if (isTooDeep) {
        context.Report(BuildFinding::DEEP_GROUP, ownerId, "Its groups are nested too deep.");
    }
}

du::SmartPtr<figk::Group> GroupBuilder::MakeLabels(GroupSource const& source,
                                                   std::string const& ownerId) {
    if (source.IsEmpty()) return nullptr;
    du::SmartPtr<figk::Group> const group(new figk::GraphicGroup);
    Fill(*group, source, ownerId);
    return group;
}

}  // namespace figkernel
