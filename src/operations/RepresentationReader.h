// Reads the record of ports back from content.
#pragma once

#include <figrep/FigurePortNodeDetail.h>
#include <zvk/SerializedContentVisitor.h>

#include <vector>

namespace figrep {

/// The element and property names of the stored record.
struct RepresentationKeys {
    Symbol const representation{"fig_representation"};
    Symbol const port{"sch_port"};
    Symbol const portId{"sch_port_id"};
    Symbol const detail{"sch_figure_port_node_detail"};
    Symbol const figureId{"fig_rep_figure_id"};
    Symbol const portNodeId{"sch_port_node_id"};
    Symbol const xGrid{"fig_rep_x_grid"};
    Symbol const yGrid{"fig_rep_y_grid"};
    Symbol const netNames{"sch_net_names"};
    Symbol const netName{"sch_net_name"};

    static RepresentationKeys const& Get();
};

/// Appends a detail without a live node for every one stored. Content outside of the record's
/// element, and keys that aren't known, are passed over.
class FigrepSerializedContentVisitor : public zvk::SerializedContentVisitor {
public:
    explicit FigrepSerializedContentVisitor(FigurePortDetails* portDetails);

    bool StartElement(Symbol const& name) override;
    void EndElement(Symbol const& name) override;
    void Visit(Symbol const& key, Symbol const& value) override;
    using zvk::SerializedContentVisitor::Visit;

private:
    Symbol figureName_;
    Symbol portId_;
    Symbol portNodeId_;
    Symbol xGrid_;
    Symbol yGrid_;
    std::vector<Symbol> netNames_;
    FigurePortDetails* portDetails_;
    bool inRepresentation_ = false;
};

}  // namespace figrep
