#include <figrep/SchematicRepresentation.h>

#include "RepresentationReader.h"

#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figrep/ConnectionNode.h>
#include <figrep/Figure.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubNet.h>
#include <zvk/Depiction.h>
#include <zvk/SerializedContentElement.h>
#include <zvk/World.h>
#include <zvkapp/PublishOption.h>

#include <algorithm>
#include <deque>

namespace figrep {

/// Hears from the world that stored content may have to be loaded again.
class WorldObserver : public zvk::WorldObserver {
public:
    explicit WorldObserver(SchematicRepresentation* representation)
        : representation_(representation) {}

    void OnContentMayHaveChanged() override {
        if (representation_) representation_->SetNeedLoading(true);
    }

    /// The representation goes; the world may still hold the observer.
    void Forget() { representation_ = nullptr; }

private:
    SchematicRepresentation* representation_;
};

namespace {

Symbol KernelNodeId(PortNode const& node) {
    SmartPtr<figk::PortNode> const kernelNode = node.GetKernelPortNode();
    return kernelNode ? kernelNode->GetId() : Symbol::EMPTY;
}

void CaptureNetNames(zvk::SerializedContentElement* element, FigurePortNodeDetail const& detail) {
    std::vector<Symbol> const names = detail.GetVisibleNetNames();
    if (names.empty()) return;
    RepresentationKeys const& keys = RepresentationKeys::Get();
    zvk::SerializedContentElement* const child = element->StartContent(keys.netNames);
    for (Symbol const& name : names)
        child->AddProperty(keys.netName, name);
    element->EndContent();
}

void CaptureDetail(zvk::SerializedContentElement* element, FigurePortNodeDetail const& detail,
                   SmartPtr<zvkapp::depiction::PublishOption> const& option) {
    RepresentationKeys const& keys = RepresentationKeys::Get();
    Symbol const& figure = detail.GetFigureName();
    zvk::SerializedContentElement* const child = element->StartContent(keys.detail);
    child->AddProperty(keys.figureId, option ? option->GetPublishName(figure) : figure);
    child->AddProperty(keys.portNodeId, detail.GetPortNodeId());
    child->AddProperty(keys.xGrid, detail.GetXGrid());
    child->AddProperty(keys.yGrid, detail.GetYGrid());
    CaptureNetNames(child, detail);
    element->EndContent();
}

}  // namespace

Symbol const SchematicRepresentation::s_export_animation("export_animation");
Symbol const SchematicRepresentation::s_export_xrscene("export_xrscene");

SmartPtr<SchematicRepresentation> SchematicRepresentation::GetSingleton() {
    static SmartPtr<SchematicRepresentation> const singleton(new SchematicRepresentation);
    return singleton;
}

SchematicRepresentation::SchematicRepresentation()
    : needLoading_(!zvk::depiction::IsRunningDepict()) {
    if (!needLoading_) return;
    worldObserver_ = new WorldObserver(this);
    if (auto const world = zvk::World::GetWorld()) {
        world->ManageObject(worldObserver_);
        world->RegisterObserver(worldObserver_, true);
    }
}

SchematicRepresentation::~SchematicRepresentation() {
    if (!worldObserver_) return;
    worldObserver_->Forget();
    if (auto const world = zvk::World::GetWorld()) {
        world->DeregisterObserver(worldObserver_);
        world->UnmanageObject(worldObserver_);
    }
}

// Figures and details.

void SchematicRepresentation::AddActiveFigure(SmartPtr<Figure> const& figure, Symbol const& name) {
    if (figure) activeFigures_[figure] = name;
}

void SchematicRepresentation::RemoveFigure(SmartPtr<Figure> const& figure) {
    activeFigures_.erase(figure);
    for (auto port = portDetails_.begin(); port != portDetails_.end();) {
        std::erase_if(port->second, [&](FigurePortNodeDetail const& detail) {
            return detail.GetPortNode() && detail.GetPortNode()->GetFigure() == figure;
        });
        port = port->second.empty() ? portDetails_.erase(port) : std::next(port);
    }
}

void SchematicRepresentation::PortNodeAddFigureDetail(SmartPtr<PortNode> const& node,
                                                      SmartPtr<Figure> const& figure) {
    auto const active = activeFigures_.find(figure);
    if (!node || active == activeFigures_.end()) return;
    SmartPtr<Port> const port = node->GetPort();
    if (!port || !node->GetKernelPortNode()) return;
    PortAddFigureDetail(port->GetId(), active->second, KernelNodeId(*node), node, Symbol::EMPTY,
                        Symbol::EMPTY);
    if (port->OnHighwayNotNet() && !zvk::depiction::IsRunningDepict()) {
        TidySubNetPathsOnHighway(node);
    }
}

void SchematicRepresentation::PortAddFigureDetail(Symbol const& portId, Symbol const& figureName,
                                                  Symbol const& portNodeId,
                                                  SmartPtr<PortNode> const& node,
                                                  Symbol const& xGrid, Symbol const& yGrid) {
    FigurePortNodeDetail const detail(figureName, portNodeId, node, xGrid, yGrid);
    std::vector<FigurePortNodeDetail>& details = portDetails_[portId];
    RemoveExistingFigurePortNodeDetail(details, detail);
    details.push_back(detail);
}

void SchematicRepresentation::RemoveExistingFigurePortNodeDetail(
    std::vector<FigurePortNodeDetail>& details, FigurePortNodeDetail const& detail) {
    auto const existing = std::find(details.begin(), details.end(), detail);
    if (existing != details.end()) details.erase(existing);
}

// Queries.

void SchematicRepresentation::GetFiguresForPortNode(SmartPtr<PortNode> const& node,
                                                    SmartPtr<SubNet> const& subNet,
                                                    std::vector<FigurePortNodeDetail>& out) {
    SmartPtr<Port> const port = node ? node->GetPort() : nullptr;
    if (!port) return;
    auto const entry = portDetails_.find(port->GetId());
    if (entry == portDetails_.end()) return;
    bool const onHighway = port->OnHighwayNotNet();
    Symbol const own = KernelNodeId(*node);
    Symbol const netName = subNet ? Symbol(subNet->GetName()) : Symbol::EMPTY;
    for (FigurePortNodeDetail& detail : entry->second) {
        if (detail.GetPortNodeId() == own) continue;
        bool const leadsOn =
            !onHighway || (!subNet && detail.IsActive()) || detail.CarriesNet(netName);
        if (!leadsOn) continue;
        detail.UpdateGridLocation();
        out.push_back(detail);
    }
}

void SchematicRepresentation::GetFiguresForPort(Symbol const& portId, bool onHighway,
                                                Symbol const& netName,
                                                std::vector<FigurePortNodeDetail>& out) {
    auto const entry = portDetails_.find(portId);
    if (entry == portDetails_.end()) return;
    for (FigurePortNodeDetail& detail : entry->second) {
        if (onHighway && !detail.CarriesNet(netName)) continue;
        detail.UpdateGridLocation();
        out.push_back(detail);
    }
}

std::vector<FigurePortNodeDetail> SchematicRepresentation::GetFigureDetails(
    std::vector<FigurePortNodeDetail> const& details, Symbol const& figureName) const {
    std::vector<FigurePortNodeDetail> result;
    std::copy_if(details.begin(), details.end(), std::back_inserter(result),
                 [&](auto const& detail) { return detail.GetFigureName() == figureName; });
    return result;
}

void SchematicRepresentation::GetPortNodeNetNames(SmartPtr<PortNode> const& node,
                                                  std::vector<Symbol>& out) const {
    if (!node) return;
    for (SmartPtr<SubNet> const& subNet : node->GetHighwaySubNets()) {
        if (subNet) out.emplace_back(subNet->GetName());
    }
}

// Dead ends.

void SchematicRepresentation::TidySubNetPathsOnHighway(SmartPtr<PortNode> const& node) {
    for (SmartPtr<SubNet> const& subNet : node->GetHighwaySubNets()) {
        std::vector<FigurePortNodeDetail> details;
        GetFiguresForPortNode(node, subNet, details);
        if (details.empty()) HideSubNet(node, subNet);
    }
}

void SchematicRepresentation::HideSubNet(SmartPtr<ConnectionNode> const& node,
                                         SmartPtr<SubNet> const& subNet) {
    if (!node || !subNet) return;
    node->Pivot(nullptr);
    std::deque<SmartPtr<ConnectionNode>> queue{node};
    while (!queue.empty()) {
        SmartPtr<ConnectionNode> const front = queue.front();
        queue.pop_front();
        front->Remove(subNet);
        std::vector<SmartPtr<figk::BaseConnectionNode>> successors;
        front->GetNonJunctionSuccessors(successors);
        unsigned count = 0;
        for (auto const& successor : successors) {
            auto const next = du::DynamicCast<ConnectionNode>(successor);
            if (!next || !next->Visit(subNet)) continue;
            queue.push_back(next);
            ++count;
        }
        if (count > 1) return;
    }
}

// Content.

void SchematicRepresentation::CaptureContent(zvk::SerializedContentElement* element) {
    CaptureContent(element, nullptr);
}

void SchematicRepresentation::CaptureContent(
    zvk::SerializedContentElement* element,
    SmartPtr<zvkapp::depiction::PublishOption> const& option) {
    if (!element || portDetails_.empty()) return;
    RepresentationKeys const& keys = RepresentationKeys::Get();
    zvk::SerializedContentElement* const representation =
        element->StartContent(keys.representation);
    for (auto& [portId, details] : portDetails_) {
        zvk::SerializedContentElement* const port = representation->StartContent(keys.port);
        port->AddProperty(keys.portId, portId);
        for (FigurePortNodeDetail& detail : details) {
            if (!detail.IsActive()) continue;
            detail.UpdateGridLocation();
            CaptureDetail(port, detail, option);
        }
        representation->EndContent();
    }
    element->EndContent();
}

void SchematicRepresentation::CreateFromContent(zvk::SerializedContentElement* element) {
    if (!element) return;
    ResetMap();
    FigrepSerializedContentVisitor reader(&portDetails_);
    element->Visit(reader, true);
    needLoading_ = false;
}

void SchematicRepresentation::ResetMap() {
    portDetails_.clear();
    activeFigures_.clear();
}

}  // namespace figrep
