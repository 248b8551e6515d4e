#include <figrep/FigureSheetDelta.h>

#include <figk/Design.h>
#include <figk/GetSheetVisitor.h>
#include <figk/HighwayNode.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figrep/AbstractKernelToFigureFactory.h>
#include <figrep/BaseBlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/HighwayNode.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/Segment.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>
#include <zvk/SerializedContentElement.h>

#include "connectivity/FixConnectivity.h"
#include "deltas/KernelMaps.h"

namespace figrep {

Symbol const FigureSheetDelta::s_delta_type_value("sheet_delta");

FigureSheetDelta::FigureSheetDelta(SmartPtr<figk::Sheet> const& sheet,
                                   figk::AbstractDelta::Action const& action)
    : AbstractFigureDelta(action, true), sheet_(sheet) {}

FigureSheetDelta::FigureSheetDelta(Symbol const& designId, Symbol const& sheetId,
                                   figk::AbstractDelta::Action const& action)
    : AbstractFigureDelta(action, true), designId_(designId), sheetId_(sheetId) {}

FigureSheetDelta::FigureSheetDelta(FigureSheetDelta const&) = default;
FigureSheetDelta::~FigureSheetDelta() = default;

Symbol const& FigureSheetDelta::GetClassTypeValue() {
    return s_delta_type_value;
}

bool FigureSheetDelta::_Verify(figk::AbstractDeltaReceiver&) {
    if (!sheet_) {
        figk::GetSheetVisitor visitor(designId_, sheetId_);
        figk::SchematicKernel::GetSchematicKernel()->Accept(visitor);
        sheet_ = visitor.GetSheet();
    }
    if (!sheet_) SetStatus(STATUS_TARGET_MISSING);
    return static_cast<bool>(sheet_);
}

// Connectivity notes the figure's content before the copy, to know afterwards what is new.
void FigureSheetDelta::_Apply(figk::AbstractDeltaReceiver& receiver) {
    receiver_ = dynamic_cast<FigureDeltaReceiverInterface*>(&receiver);
    SmartPtr<Figure> const figure = dynamic_cast<Figure*>(receiver_);
    if (!figure) return ForgetWalk();
    figure->AddSheet(sheet_);
    GetFactory()->SetLock(receiver_->GetLock());
    PopulatePortMap(*figure);
    FixConnectivity fix(figure, sheet_);
    if (GetAction() == ACTION_COPY) ApplyCopy(receiver);
    ForgetWalk();
    fix.Fix(offset_);
    CreatePortNodeFigureDetails(figure);
    figure->SetExtents(extents_);
}

void FigureSheetDelta::ApplyCopy(figk::AbstractDeltaReceiver& receiver) {
    receiver_ = dynamic_cast<FigureDeltaReceiverInterface*>(&receiver);
    if (!receiver_ || !sheet_) return;
    receiver_->Receive(sheet_->GetDesign());
    sheet_->Accept(*this);
}

// What a walk needs and nobody asks for later. A delta can live long; its maps needn't.
void FigureSheetDelta::ForgetWalk() {
    ClearGroupMap();
    ForgetTree();
    Renew(portMap_);
    receiver_ = nullptr;
    currentBlock_.Reset();
    currentSubHighway_.Reset();
    currentSubNet_.Reset();
    kernelStartSegment_.Reset();
    visitCheck_.Reset();
}

void FigureSheetDelta::_Serialize(zvk::SerializedContentElement* element) {
    SerializeBase(element);
    if (!element || !sheet_) return;
    element->AddProperty(s_delta_type, s_delta_type_value);
    element->AddProperty(s_delta_id, sheet_->GetId());
    element->AddProperty(s_delta_sheet, sheet_->GetId());
    if (auto const design = sheet_->GetDesign()) {
        element->AddProperty(s_delta_design_id, design->GetId());
    }
}

void FigureSheetDelta::PopulatePortMap(Figure& figure) {
    for (auto const& port : figure.GetPorts()) {
        if (auto const record = port->GetKernelPort()) portMap_.emplace(record, port);
    }
}

void FigureSheetDelta::CreatePortNodeFigureDetails(SmartPtr<Figure> const& figure) {
    if (portNodes_.empty()) return;
    auto const representation = SchematicRepresentation::GetSingleton();
    for (auto const& portNode : portNodes_) {
        representation->PortNodeAddFigureDetail(portNode, figure);
    }
}

SmartPtr<Port> FigureSheetDelta::GetFigurePort(SmartPtr<figk::Port> const& kernelPort) {
    if (!kernelPort) return {};
    if (auto const known = LookUp(portMap_, kernelPort)) return known;
    auto const port = GetFactory()->CreatePort(kernelPort);
    receiver_->Receive(port);
    if (port) portMap_.emplace(kernelPort, port);
    return port;
}

SmartPtr<SubHighway> FigureSheetDelta::GetFigureSubHighway(
    SmartPtr<figk::SubHighway> const& record) const {
    return LookUp(subHighwayMap_, record);
}

// Kernel junctions are looked through: the figure's trees make their own.
void FigureSheetDelta::ConnectToPredecessor(SmartPtr<figk::ConnectionNode> const& kernelNode,
                                            SmartPtr<ConnectionNode> const& figureNode) {
    auto const predecessor =
        du::DynamicCast<figk::ConnectionNode>(kernelNode->GetNonJunctionPredecessor());
    if (auto const above = GetFigureNode(predecessor)) {
        above->AddSuccessor(figureNode);
    } else if (onHighway_) {
        currentSubHighway_->SetHead(figureNode);
    } else {
        currentSubNet_->SetHead(figureNode);
    }
}

void FigureSheetDelta::EncloseEnds(Segment const& segment) {
    DPoint2D start;
    DPoint2D end;
    segment.GetEnds(start, end);
    extents_.Enclose(start);
    extents_.Enclose(end);
}

void FigureSheetDelta::ApplyOffset(AbstractFigureItem& item) {
    if (applyOffset_) item.MoveItem(offset_.x, offset_.y);
}

}  // namespace figrep
