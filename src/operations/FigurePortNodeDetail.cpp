#include <figrep/FigurePortNodeDetail.h>

#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/PortNode.h>
#include <figrep/SubNet.h>

#include <algorithm>

namespace figrep {

bool IsVisible(SmartPtr<AbstractFigureItem> const& item) {
    return !item || item->IsVisible();
}

FigurePortNodeDetail::FigurePortNodeDetail(Symbol const& figureName, Symbol const& portNodeId,
                                           SmartPtr<PortNode> const& portNode, Symbol const& xGrid,
                                           Symbol const& yGrid)
    : figureName_(figureName),
      portNodeId_(portNodeId),
      portNode_(portNode),
      xGrid_(xGrid),
      yGrid_(yGrid) {}

FigurePortNodeDetail::FigurePortNodeDetail(FigurePortNodeDetail const& other) = default;

FigurePortNodeDetail::FigurePortNodeDetail(FigurePortNodeDetail&& other) noexcept = default;

FigurePortNodeDetail& FigurePortNodeDetail::operator=(FigurePortNodeDetail const& other) = default;

FigurePortNodeDetail& FigurePortNodeDetail::operator=(FigurePortNodeDetail&& other) noexcept =
    default;

FigurePortNodeDetail::~FigurePortNodeDetail() = default;

bool FigurePortNodeDetail::IsActive() const {
    return !portNode_ || IsVisible(portNode_);
}

bool FigurePortNodeDetail::CarriesNet(Symbol const& netName) const {
    if (!portNode_) {
        return std::find(netNames_.begin(), netNames_.end(), netName) != netNames_.end();
    }
    if (!IsVisible(portNode_)) return false;
    for (SmartPtr<SubNet> const& subNet : portNode_->GetHighwaySubNets()) {
        if (subNet && subNet->GetName() == netName.GetString()) return IsVisible(subNet);
    }
    return false;
}

void FigurePortNodeDetail::UpdateGridLocation() {
    if (!portNode_) return;
    SmartPtr<Figure> const figure = portNode_->GetFigure();
    SmartPtr<Format> const format = figure ? figure->GetFormat() : nullptr;
    if (format) format->CalculateGridLocation(portNode_->GetPosition(), xGrid_, yGrid_);
}

std::vector<Symbol> FigurePortNodeDetail::GetVisibleNetNames() const {
    if (!portNode_) return netNames_;
    std::vector<Symbol> names;
    for (SmartPtr<SubNet> const& subNet : portNode_->GetHighwaySubNets()) {
        if (subNet && IsVisible(subNet)) names.emplace_back(subNet->GetName());
    }
    return names;
}

}  // namespace figrep
