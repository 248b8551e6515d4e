#include <algorithm>

#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/NetSegment.h>
#include <figk/PortNode.h>
#include <figk/Sheet.h>
#include <figk/SubNet.h>
#include <support/KernelGuarantees.h>

namespace figrep::test {

namespace {

using dg::DPoint2D;
using NodePtr = du::SmartPtr<figk::ConnectionNode>;

constexpr double TOUCH = 1e-4;

bool Same(DPoint2D const& a, DPoint2D const& b) {
    return dg::Norm(a - b) <= TOUCH;
}

/// What the tree of a sub-net holds.
struct Content {
    std::vector<DPoint2D> places;  ///< of pins and ports
    std::size_t segments = 0;
    bool holdsStart = false;
};

Content ContentOf(figk::SubNet const& subNet) {
    Content content;
    auto const head = subNet.GetHead();
    auto const start = subNet.GetStartSegment();
    for (auto at = head->Begin(); !(at == head->End()); ++at) {
        if (auto const pin = du::DynamicCast<figk::ConnectorInstanceNode>(*at)) {
            content.places.push_back(pin->GetConnectorInstance()->GetPosition());
        } else if (auto const port = du::DynamicCast<figk::PortNode>(*at)) {
            content.places.push_back(port->GetPosition());
        } else if (auto const segment = du::DynamicCast<figk::NetSegment>(*at)) {
            ++content.segments;
            content.holdsStart = content.holdsStart || segment == start;
        }
    }
    return content;
}

std::vector<DPoint2D> StartsAmong(figkernel::DesignSource const& source,
                                  figkernel::SheetSource const& sheet, std::string const& net,
                                  std::vector<DPoint2D> const& places) {
    std::vector<DPoint2D> starts;
    for (auto const& start : sheet.flowStarts) {
        if (source.nets[start.net].name != net) continue;
        auto const isHere = [&](DPoint2D const& place) { return Same(place, start.point); };
        bool const isOnIt = std::any_of(places.begin(), places.end(), isHere);
        bool const isNew = std::none_of(starts.begin(), starts.end(), isHere);
        if (isOnIt && isNew) starts.push_back(start.point);
    }
    return starts;
}

DPoint2D FirstEnd(NodePtr const& node) {
    DPoint2D first;
    DPoint2D last;
    if (auto const segment = du::DynamicCast<figk::NetSegment>(node)) segment->GetEnds(first, last);
    if (auto const port = du::DynamicCast<figk::PortNode>(node)) first = port->GetPosition();
    return first;
}

std::string ProblemOf(figk::SubNet const& subNet, Content const& content,
                      std::vector<DPoint2D> const& starts) {
    auto const segment = subNet.GetStartSegment();
    if (starts.size() != 1) return segment ? "has a direction that nothing tells" : "";
    if (!Same(FirstEnd(subNet.GetHead()), starts.front())) return "has its head elsewhere";
    if (content.segments == 0) return "";
    if (!segment) return "has no start segment";
    if (!content.holdsStart) return "has a start segment that isn't its own";
    if (!Same(FirstEnd(segment), starts.front())) return "has its start segment elsewhere";
    auto const above = segment->GetNonJunctionPredecessor();
    bool const isHighest =
        !above || above == du::SmartPtr<figk::BaseConnectionNode>(subNet.GetHead());
    return isHighest ? "" : "has its start segment further down";
}

}  // namespace

std::vector<std::string> FindFalseStarts(figkernel::DesignSource const& source,
                                         figk::Design const& design) {
    std::vector<std::string> problems;
    auto const sheets = design.GetSheets();
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        for (auto const& subNet : sheets[i]->GetSubNets()) {
            Content const content = ContentOf(*subNet);
            std::string const problem =
                ProblemOf(*subNet, content,
                          StartsAmong(source, source.sheets[i], subNet->GetName(), content.places));
            if (!problem.empty()) problems.push_back(subNet->GetId().GetString() + " " + problem);
        }
    }
    return problems;
}

}  // namespace figrep::test
