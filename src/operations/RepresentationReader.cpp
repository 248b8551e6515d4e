#include "RepresentationReader.h"

#include <figrep/PortNode.h>

namespace figrep {

RepresentationKeys const& RepresentationKeys::Get() {
    static RepresentationKeys const keys;
    return keys;
}

FigrepSerializedContentVisitor::FigrepSerializedContentVisitor(FigurePortDetails* portDetails)
    : portDetails_(portDetails) {}

bool FigrepSerializedContentVisitor::StartElement(Symbol const& name) {
    if (name == RepresentationKeys::Get().representation) inRepresentation_ = true;
    return inRepresentation_;
}

void FigrepSerializedContentVisitor::Visit(Symbol const& key, Symbol const& value) {
    RepresentationKeys const& keys = RepresentationKeys::Get();
    if (key == keys.figureId) {
        figureName_ = value;
    } else if (key == keys.netName) {
        netNames_.push_back(value);
    } else if (key == keys.portId) {
        portId_ = value;
    } else if (key == keys.portNodeId) {
        portNodeId_ = value;
    } else if (key == keys.xGrid) {
        xGrid_ = value;
    } else if (key == keys.yGrid) {
        yGrid_ = value;
    }
}

void FigrepSerializedContentVisitor::EndElement(Symbol const& name) {
    RepresentationKeys const& keys = RepresentationKeys::Get();
    if (name == keys.detail) {
        FigurePortNodeDetail detail(figureName_, portNodeId_, nullptr, xGrid_, yGrid_);
        detail.SetNetNames(netNames_);
        (*portDetails_)[portId_].push_back(detail);
        netNames_.clear();
    } else if (name == keys.representation) {
        inRepresentation_ = false;
    }
}

}  // namespace figrep
