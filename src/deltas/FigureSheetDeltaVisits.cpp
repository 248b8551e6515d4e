// What a sheet delta makes of each kernel record that its walk meets.
#include <figk/BaseVisitCheck.h>
#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/Format.h>
#include <figk/GenericGraphic.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/Miscellaneous.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TableInstance.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>
#include <figrep/AbstractKernelToFigureFactory.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDelta.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>

#include <cstdlib>
#include <cstring>

#include "deltas/KernelMaps.h"

namespace figrep {

namespace {

// Decoration is brought in only for people who identify the parts of a drawing.
bool ShowsMiscellaneous() {
    char const* const value = std::getenv("ZVIEW_SCHEMATIC_IDENTIFY");
    return value && std::strcmp(value, "1") == 0;
}

}  // namespace

bool FigureSheetDelta::Visit(SmartPtr<figk::Sheet> const& record) {
    SmartPtr<Figure> const figure = dynamic_cast<Figure*>(receiver_);
    if (!figure) return false;
    ClearGroupMap();
    Renew(subHighwayMap_);
    extents_ = DBox2D::EMPTY;
    MapTextLabelContainerGroups(record, figure);
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::BlockInstance> const& record) {
    if (!receiver_) return false;
    auto const block = GetFactory()->CreateBlockInstance(record);
    receiver_->Receive(block);
    NoteChangedItem(block);
    currentBlock_ = block;
    MapGroups(record, block);
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::CableInstance> const& record) {
    if (!receiver_) return false;
    auto const cable = GetFactory()->CreateCableInstance(record);
    receiver_->Receive(cable);
    NoteChangedItem(cable);
    currentBlock_ = cable;
    MapGroups(record, cable);
    return true;
}

// A table's connectors are nobody's, in particular not those of the block before it.
bool FigureSheetDelta::Visit(SmartPtr<figk::TableInstance> const& record) {
    if (!receiver_) return false;
    auto const table = GetFactory()->CreateTableInstance(record);
    receiver_->Receive(table);
    NoteChangedItem(table);
    currentBlock_.Reset();
    MapGroups(record, table);
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::Miscellaneous> const& record) {
    if (!receiver_ || !ShowsMiscellaneous()) return false;
    auto const miscellaneous = GetFactory()->CreateMiscellaneous(record);
    MapGroups(record, miscellaneous);
    receiver_->Receive(miscellaneous);
    NoteChangedItem(miscellaneous);
    return true;
}

// The block owns its connectors, so the figure doesn't receive them.
bool FigureSheetDelta::Visit(SmartPtr<figk::ConnectorInstance> const& record) {
    if (!currentBlock_) return true;
    auto const connector = GetFactory()->CreateConnectorInstance(currentBlock_, record);
    if (!connector) return true;
    MapGroups(record, connector);
    ApplyOffset(*connector);
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::SubHighway> const& record) {
    if (!receiver_) return false;
    StartTree();
    currentSubHighway_ = GetFactory()->CreateSubHighway(record);
    if (!currentSubHighway_) return false;
    subHighwayMap_[record] = currentSubHighway_;
    receiver_->Receive(currentSubHighway_);
    onHighway_ = true;
    currentSubNet_.Reset();
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::SubNet> const& record) {
    SmartPtr<Figure> const figure = dynamic_cast<Figure*>(receiver_);
    if (!figure) return false;
    StartTree();
    currentSubNet_ = GetFactory()->CreateSubNet(figure, record);
    if (!currentSubNet_) return false;
    kernelStartSegment_ = record->GetStartSegment();
    receiver_->Receive(currentSubNet_);
    NoteChangedItem(currentSubNet_);
    onHighway_ = false;
    currentSubHighway_.Reset();
    auto const head = record->GetHead();
    visitCheck_ = head ? head->GetVisitChecker() : SmartPtr<figk::BaseVisitCheck>();
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::NetSegment> const& record) {
    if (!currentSubNet_) return false;
    auto const segment = GetFactory()->CreateNetSegment(currentSubNet_, record, {});
    if (!segment) return true;
    ApplyOffset(*segment);
    EncloseEnds(*segment);
    if (record == kernelStartSegment_) currentSubNet_->SetStartSegment(segment);
    MapGroups(record, segment);
    MapNodes(record, segment);
    Connect(record, segment);
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::HighwaySegment> const& record) {
    if (!onHighway_) return PassAlongHighway(record);
    if (!currentSubHighway_) return false;
    auto const segment = GetFactory()->CreateHighwaySegment(currentSubHighway_, record, {});
    if (!segment) return true;
    ApplyOffset(*segment);
    MapGroups(record, segment);
    MapNodes(record, segment);
    ConnectToPredecessor(record, segment);
    EncloseEnds(*segment);
    return true;
}

// A net's walk goes on behind the highway, once over each piece. The kernel's walk does the going,
// since a route can be long; the groups that it shows on the way stand for nothing here.
bool FigureSheetDelta::PassAlongHighway(SmartPtr<figk::HighwaySegment> const& record) {
    return visitCheck_ && visitCheck_->Visit(record);
}

bool FigureSheetDelta::Visit(SmartPtr<figk::HighwayNode> const& record) {
    if (onHighway_) return false;
    if (visitCheck_ && !visitCheck_->Visit(record)) return true;
    EnterHighway(record);
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::PortNode> const& record) {
    if (!receiver_ || !(onHighway_ ? bool(currentSubHighway_) : bool(currentSubNet_))) return false;
    auto const kernelPort = record->GetPort();
    auto const port = GetFigurePort(kernelPort);
    // A net meets the ports at the ends of its highways only in passing.
    if (!port || (!onHighway_ && kernelPort->OnHighwayNotNet())) return true;
    auto const portNode = onHighway_
                              ? GetFactory()->CreatePortNode(port, currentSubHighway_, record, {})
                              : GetFactory()->CreatePortNode(port, currentSubNet_, record, {});
    if (!portNode) return true;
    portNodes_.push_back(portNode);
    MapGroups(record, portNode);
    MapNodes(record, portNode);
    ApplyOffset(*portNode);
    Connect(record, portNode);
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::GenericGraphic> const& record) {
    auto const graphic = CopyGenericGraphic(record);
    if (!graphic) return true;
    ApplyOffset(*graphic);
    extents_.Enclose(graphic->GetExtents());
    return true;
}

bool FigureSheetDelta::Visit(SmartPtr<figk::TextGraphic> const& record) {
    auto const text = CopyTextGraphic(record);
    if (!text) return true;
    ApplyOffset(*text);
    extents_.Enclose(text->GetExtents());
    return true;
}

// Format and title block come in by the host's own way.
bool FigureSheetDelta::Visit(SmartPtr<figk::Format> const&) {
    return false;
}
bool FigureSheetDelta::Visit(SmartPtr<figk::TitleBlock> const&) {
    return false;
}

bool FigureSheetDelta::StartGroupVisit(SmartPtr<figk::Group> const& group) {
    StartGroup(group);
    return true;
}

bool FigureSheetDelta::EndGroupVisit(SmartPtr<figk::Group> const& group) {
    EndGroup(group);
    return true;
}

}  // namespace figrep
