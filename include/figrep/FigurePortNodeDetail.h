// One figure's view of one port.
#pragma once

#include <figrep/Fwd.h>

#include <map>
#include <vector>

namespace figrep {

/// Where a figure shows a node of a port. Read back from content it has no live node, and the names
/// of the nets that pass there instead.
///
/// Two details are equal when figure and node id are.
class FigurePortNodeDetail {
public:
    FigurePortNodeDetail(Symbol const& figureName, Symbol const& portNodeId,
                         SmartPtr<PortNode> const& portNode, Symbol const& xGrid,
                         Symbol const& yGrid);
    FigurePortNodeDetail(FigurePortNodeDetail const& other);
    FigurePortNodeDetail(FigurePortNodeDetail&& other) noexcept;
    FigurePortNodeDetail& operator=(FigurePortNodeDetail const& other);
    FigurePortNodeDetail& operator=(FigurePortNodeDetail&& other) noexcept;
    ~FigurePortNodeDetail();

    Symbol const& GetFigureName() const { return figureName_; }
    Symbol const& GetPortNodeId() const { return portNodeId_; }
    /// Null for a detail read back from content.
    SmartPtr<PortNode> const& GetPortNode() const { return portNode_; }
    /// Counts only without a live node.
    std::vector<Symbol> const& GetNetNames() const { return netNames_; }
    void SetNetNames(std::vector<Symbol> const& names) { netNames_ = names; }
    Symbol const& GetXGrid() const { return xGrid_; }
    Symbol const& GetYGrid() const { return yGrid_; }

    /// Whether the net is seen to pass: the node and the net's piece there both visible.
    bool CarriesNet(Symbol const& netName) const;
    /// Whether the node is visible; true without a live node.
    bool IsActive() const;
    /// Reads the node's place on its format; without node or format the old values stay.
    void UpdateGridLocation();
    /// The names of the nets seen to pass, in the node's order.
    std::vector<Symbol> GetVisibleNetNames() const;

    friend bool operator==(FigurePortNodeDetail const& a, FigurePortNodeDetail const& b) {
        return a.figureName_ == b.figureName_ && a.portNodeId_ == b.portNodeId_;
    }

private:
    Symbol figureName_;
    Symbol portNodeId_;
    SmartPtr<PortNode> portNode_;
    std::vector<Symbol> netNames_;
    Symbol xGrid_;
    Symbol yGrid_;
};

/// Orders port ids by their texts, so that what is written is the same whatever the process met
/// before.
struct PortIdOrder {
    bool operator()(Symbol const& a, Symbol const& b) const {
        return a.GetString() < b.GetString();
    }
};
/// Who shows a port, by port id.
using FigurePortDetails = std::map<Symbol, std::vector<FigurePortNodeDetail>, PortIdOrder>;

/// The item's `ITEM_VISIBILITY`; true without such a setting, and for null.
bool IsVisible(SmartPtr<AbstractFigureItem> const& item);

}  // namespace figrep
