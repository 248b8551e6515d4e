#include <figrep/FigureSubNetDelta.h>

#include <figk/Design.h>
#include <figk/GenericGraphic.h>
#include <figk/GetSheetVisitor.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/NetSegment.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TextGraphic.h>
#include <figrep/AbstractKernelToFigureFactory.h>
#include <figrep/DeltaVertexNode.h>
#include <figrep/Figure.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwayNode.h>
#include <figrep/ItemAttrInfo.h>
#include <figrep/NetSegment.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>
#include <zvk/ReadWriteLock.h>
#include <zvk/SerializedContentElement.h>

#include "connectivity/NodeWalk.h"
#include "deltas/VertexWires.h"

namespace figrep {

Symbol const FigureSubNetDelta::s_delta_type_value("sub_net_delta");

/// A delta's hold on a tree of positions. Copies of a delta share one; deltas that were given the
/// same tree find each other by the count in its root.
struct FigureSubNetDelta::VertexTree : public virtual du::RefCounted {
    explicit VertexTree(SmartPtr<DeltaVertexNode> const& root) : head(root) { ++head->deltas_; }
    VertexTree(VertexTree const&) = delete;
    VertexTree& operator=(VertexTree const&) = delete;
    ~VertexTree() override {
        if (--head->deltas_ == 0) head->CutTree();
    }

    SmartPtr<DeltaVertexNode> const head;
};

namespace {

// The numbers that say what a delta does.
constexpr auto COPY = figk::AbstractDelta::ACTION_COPY;
constexpr auto CREATE = figk::AbstractDelta::ACTION_CREATE;

double Length(NetSegment const& segment) {
    DPoint2D start;
    DPoint2D end;
    segment.GetEnds(start, end);
    return (end - start).Norm();
}

/// The first of the longest wires; null when all have no length.
SmartPtr<NetSegment> FindLongestSegment(SmartPtr<ConnectionNode> const& head) {
    SmartPtr<NetSegment> longest;
    double length = 0.0;
    WalkNodes(head, [&](SmartPtr<ConnectionNode> const& node) {
        auto const segment = du::DynamicCast<NetSegment>(node);
        if (!segment || !(Length(*segment) > length)) return;
        longest = segment;
        length = Length(*segment);
    });
    return longest;
}

}  // namespace

FigureSubNetDelta::FigureSubNetDelta(SmartPtr<figk::SubNet> const& kernelSubNet,
                                     Action const& action)
    : AbstractFigureDelta(action, false), kernelSubNet_(kernelSubNet) {}

FigureSubNetDelta::FigureSubNetDelta(SmartPtr<DeltaVertexNode> const& headVertex,
                                     Action const& action)
    : FigureSubNetDelta(headVertex, {}, action, {}) {}

FigureSubNetDelta::FigureSubNetDelta(SmartPtr<DeltaVertexNode> const& headVertex,
                                     SmartPtr<ItemAttrInfo> const& attrInfo, Action const& action,
                                     SmartPtr<figk::SubNet> const& kernelSubNet)
    : AbstractFigureDelta(action, false),
      kernelSubNet_(kernelSubNet),
      vertexTree_(headVertex ? new VertexTree(headVertex) : nullptr),
      attrInfo_(attrInfo) {}

FigureSubNetDelta::FigureSubNetDelta(Symbol const& designId, Symbol const& sheetId,
                                     Symbol const& subNetId, Action const& action)
    : FigureSubNetDelta(designId, sheetId, subNetId, {}, {}, action) {}

FigureSubNetDelta::FigureSubNetDelta(Symbol const& designId, Symbol const& sheetId,
                                     Symbol const& subNetId,
                                     SmartPtr<DeltaVertexNode> const& headVertex,
                                     SmartPtr<ItemAttrInfo> const& attrInfo, Action const& action)
    : AbstractFigureDelta(action, false),
      designId_(designId),
      sheetId_(sheetId),
      subNetId_(subNetId),
      vertexTree_(headVertex ? new VertexTree(headVertex) : nullptr),
      attrInfo_(attrInfo) {}

FigureSubNetDelta::FigureSubNetDelta(FigureSubNetDelta const&) = default;
FigureSubNetDelta::~FigureSubNetDelta() = default;

Symbol FigureSubNetDelta::GetClassTypeValue() {
    return s_delta_type_value;
}

bool FigureSubNetDelta::_Verify(figk::AbstractDeltaReceiver&) {
    if (kernelSubNet_) return true;
    figk::GetSheetVisitor visitor(designId_, sheetId_);
    figk::SchematicKernel::GetSchematicKernel()->Accept(visitor);
    if (auto const sheet = visitor.GetSheet()) kernelSubNet_ = sheet->GetSubNetByID(subNetId_);
    return static_cast<bool>(kernelSubNet_);
}

void FigureSubNetDelta::_Apply(figk::AbstractDeltaReceiver& receiver) {
    if (GetAction() == COPY) ApplyCopy(receiver);
    if (GetAction() == CREATE) ApplyCreate(receiver);
}

void FigureSubNetDelta::ApplyCopy(figk::AbstractDeltaReceiver& receiver) {
    figure_ = dynamic_cast<Figure*>(&receiver);
    if (!figure_ || !kernelSubNet_) return;
    GetFactory()->SetLock(figure_->GetLock());
    kernelSubNet_->Accept(*this);
    figure_->Receive(subNet_);
    ForgetWalk();
}

// What a walk needs and nobody asks for later; the figure must not be held by its own delta.
void FigureSubNetDelta::ForgetWalk() {
    StartTree();
    ClearGroupMap();
    figure_.Reset();
    subNet_.Reset();
    visitChecker_.Reset();
}

bool FigureSubNetDelta::Visit(SmartPtr<figk::SubNet> const& record) {
    StartTree();
    ClearGroupMap();
    subNet_ = GetFactory()->CreateSubNet(figure_, record);
    auto const head = record->GetHead();
    visitChecker_ = head ? head->GetVisitChecker() : SmartPtr<figk::BaseVisitCheck>();
    return static_cast<bool>(subNet_);
}

bool FigureSubNetDelta::StartGroupVisit(SmartPtr<figk::Group> const& group) {
    StartGroup(group);
    return true;
}

// Connectors are left out: they belong to blocks, and a sub-net brings none.
bool FigureSubNetDelta::Visit(SmartPtr<figk::NetSegment> const& record) {
    auto const segment = GetFactory()->CreateNetSegment(subNet_, record, {});
    if (!segment) return true;
    MapGroups(record, segment);
    MapNodes(record, segment);
    Connect(record, segment);
    return true;
}

bool FigureSubNetDelta::Visit(SmartPtr<figk::GenericGraphic> const& record) {
    CopyGenericGraphic(record);
    return true;
}

bool FigureSubNetDelta::Visit(SmartPtr<figk::TextGraphic> const& record) {
    CopyTextGraphic(record);
    return true;
}

bool FigureSubNetDelta::IsFirstSight(SmartPtr<figk::ConnectionNode> const& node) {
    return !visitChecker_ || visitChecker_->Visit(node);
}

bool FigureSubNetDelta::Visit(SmartPtr<figk::HighwaySegment> const& record) {
    return IsFirstSight(record);
}

bool FigureSubNetDelta::Visit(SmartPtr<figk::HighwayNode> const& record) {
    if (!IsFirstSight(record)) return false;
    EnterHighway(record);
    return true;
}

SmartPtr<SubHighway> FigureSubNetDelta::GetFigureSubHighway(
    SmartPtr<figk::SubHighway> const& record) const {
    if (!figure_ || !record) return {};
    for (auto const& subHighway : figure_->GetSubHighways()) {
        if (subHighway->GetKernelSubHighway() == record) return subHighway;
    }
    return {};
}

// A highway that the figure doesn't show still ends the wire: the tap stands without it.
SmartPtr<HighwayNode> FigureSubNetDelta::CreateHighwayNode(
    SmartPtr<figk::HighwayNode> const& record, SmartPtr<SubHighway> const& subHighway,
    SmartPtr<ConnectionNode> const& netNode) {
    if (subHighway) return MapWireContent::CreateHighwayNode(record, subHighway, netNode);
    return new HighwayNode(figure_->GetLock(), record, subHighway, netNode);
}

// Kernel junctions are looked through, and so is one tap.
void FigureSubNetDelta::ConnectToPredecessor(SmartPtr<figk::ConnectionNode> const& kernelNode,
                                             SmartPtr<ConnectionNode> const& figureNode) {
    auto predecessor = kernelNode->GetNonJunctionPredecessor();
    if (predecessor && predecessor->IsHighwayNode()) {
        predecessor = predecessor->GetNonJunctionPredecessor();
    }
    if (auto const above = GetFigureNode(du::DynamicCast<figk::ConnectionNode>(predecessor))) {
        above->AddSuccessor(figureNode);
    } else {
        subNet_->SetHead(figureNode);
    }
}

void FigureSubNetDelta::ApplyCreate(figk::AbstractDeltaReceiver& receiver) {
    SmartPtr<Figure> const figure = dynamic_cast<Figure*>(&receiver);
    if (!figure || !vertexTree_) return;
    SmartPtr<SubNet> const subNet = new SubNet(figure, figure->GetLock(), kernelSubNet_);
    SmartPtr<NetSegment> const head = CreateNetSegments(subNet, vertexTree_->head);
    if (!head) return;
    subNet->SetHead(head);
    AddTextLabel(*subNet);
    figure->Receive(subNet);
}

void FigureSubNetDelta::AddTextLabel(SubNet& subNet) {
    if (!attrInfo_ || attrInfo_->label.IsEmpty()) return;
    zvk::WriteGuard const guard(subNet.GetLock());
    auto const segment = FindLongestSegment(subNet.GetHead());
    if (!segment) return;
    auto const text = TextGraphic::Create(subNet.GetLock(), attrInfo_->label,
                                          segment->GetTextLabelContainerGroup());
    segment->Add(text);
}

void FigureSubNetDelta::_Serialize(zvk::SerializedContentElement* element) {
    SerializeBase(element);
    if (kernelSubNet_) SerializeSource(*element);
    if (!vertexTree_) return;
    SerializeVertices(*element);
    if (attrInfo_) SerializeAttributes(*element);
}

void FigureSubNetDelta::SerializeSource(zvk::SerializedContentElement& element) const {
    element.AddProperty(s_delta_type, s_delta_type_value);
    element.AddProperty(s_delta_id, kernelSubNet_->GetId());
    auto const sheet = kernelSubNet_->GetSheet();
    if (!sheet) return;
    element.AddProperty(s_delta_sheet, sheet->GetId());
    if (auto const design = sheet->GetDesign()) {
        element.AddProperty(s_delta_design_id, design->GetId());
    }
}

void FigureSubNetDelta::SerializeVertices(zvk::SerializedContentElement& element) const {
    auto const& head = vertexTree_->head;
    for (auto node = head->Begin(); node != head->End(); ++node) {
        if (auto const vertex = du::DynamicCast<DeltaVertexNode>(*node)) {
            element.AddProperty(s_delta_head_vertex, dg::DPoint3D(vertex->GetPosition()));
        }
    }
}

void FigureSubNetDelta::SerializeAttributes(zvk::SerializedContentElement& element) const {
    auto* const attributes = element.StartContent(s_delta_attributes);
    attributes->AddProperty(s_delta_label, attrInfo_->label);
    for (auto const& attribute : attrInfo_->attributes) {
        if (!attribute) continue;
        auto* const child = attributes->StartContent(s_delta_attribute);
        child->AddProperty(s_delta_attr_name, attribute->GetName());
        child->AddProperty(s_delta_attr_value, attribute->GetValue());
        attributes->EndContent();
    }
    element.EndContent();
}

}  // namespace figrep
