#include <figrep/MapGroupContent.h>

#include <figk/GenericGraphic.h>
#include <figk/GraphicGroup.h>
#include <figk/TextGraphic.h>
#include <figk/TextLabelContainer.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GraphicGroup.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainer.h>
#include <figrep/TextLabelContainerGroup.h>

namespace figrep {

namespace {

/// Walks of the figure's groups go as deep as the groups are nested, so a kernel doesn't decide how
/// deep that is. What lies deeper stands in the last group that there is room for.
constexpr unsigned DEEPEST_GROUP = 100;

bool HasRoomInside(figk::Group const& group) {
    unsigned depth = 0;
    for (auto owner = group.GetOwner(); owner && depth < DEEPEST_GROUP; owner = owner->GetOwner())
        ++depth;
    return depth < DEEPEST_GROUP;
}

}  // namespace

MapGroupContent::MapGroupContent() : factory_(new KernelToFigureFactory()) {}
MapGroupContent::MapGroupContent(MapGroupContent const&) = default;
MapGroupContent& MapGroupContent::operator=(MapGroupContent const&) = default;
MapGroupContent::~MapGroupContent() = default;

void MapGroupContent::SetFactory(SmartPtr<AbstractKernelToFigureFactory> const& factory) {
    if (factory) factory_ = factory;
}

void MapGroupContent::MapGroups(SmartPtr<figk::Group> const& kernelGroup,
                                SmartPtr<figk::Group> const& figureGroup) {
    if (!kernelGroup || !figureGroup) return;
    StorePair(kernelGroup, figureGroup);
    MapTextLabelContainerGroups(du::DynamicCast<figk::TextLabelContainer>(kernelGroup),
                                du::DynamicCast<TextLabelContainer>(figureGroup));
}

// The figure's group of labels is made when it is first asked for, which most wires never need.
void MapGroupContent::MapTextLabelContainerGroups(
    SmartPtr<figk::TextLabelContainer> const& kernelContainer,
    SmartPtr<TextLabelContainer> const& figureContainer) {
    if (!kernelContainer || !figureContainer) return;
    auto const kernelLabels = kernelContainer->GetTextLabelContainerGroup();
    if (!kernelLabels || kernelLabels->IsEmpty()) return;
    StorePair(kernelLabels, figureContainer->GetTextLabelContainerGroup());
}

// Nothing is ever looked up for a kernel group without members.
void MapGroupContent::StorePair(SmartPtr<figk::Group> const& kernelGroup,
                                SmartPtr<figk::Group> const& figureGroup) {
    if (figureGroup && !kernelGroup->IsEmpty()) groupMap_.emplace(kernelGroup, figureGroup);
}

SmartPtr<figk::Group> MapGroupContent::GetFigureGroup(
    SmartPtr<figk::Group> const& kernelGroup) const {
    auto const entry = groupMap_.find(kernelGroup);
    return entry == groupMap_.end() ? SmartPtr<figk::Group>() : entry->second;
}

void MapGroupContent::StartGroup(SmartPtr<figk::Group> const& kernelGroup) {
    if (!kernelGroup || GetFigureGroup(kernelGroup)) return;
    auto const owner = GetFigureGroup(kernelGroup->GetOwner());
    if (!owner || !du::DynamicCast<figk::GraphicGroup>(kernelGroup)) return;
    StorePair(kernelGroup, HasRoomInside(*owner)
                               ? SmartPtr<figk::Group>(factory_->CreateGraphicGroup(owner))
                               : owner);
}

// A walk passes each group once, so the map stays as small as groups are nested.
void MapGroupContent::EndGroup(SmartPtr<figk::Group> const& kernelGroup) {
    groupMap_.erase(kernelGroup);
}

SmartPtr<GenericGraphic> MapGroupContent::CopyGenericGraphic(
    SmartPtr<figk::GenericGraphic> const& graphic) {
    if (!graphic) return {};
    auto const group = GetFigureGroup(graphic->GetOwner());
    return group ? factory_->CreateGenericGraphic(graphic, group) : SmartPtr<GenericGraphic>();
}

SmartPtr<TextGraphic> MapGroupContent::CopyTextGraphic(SmartPtr<figk::TextGraphic> const& text) {
    if (!text) return {};
    auto const group = GetFigureGroup(text->GetOwner());
    return group ? factory_->CreateTextGraphic(text, group) : SmartPtr<TextGraphic>();
}

void MapGroupContent::ClearGroupMap() {
    groupMap_ = {};
}

}  // namespace figrep
