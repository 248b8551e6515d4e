#include <session/Trace.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <set>
#include <unordered_map>
#include <utility>

#include <figk/BaseBlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/Design.h>
#include <figk/Net.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/FigurePortNodeDetail.h>
#include <figrep/Format.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubNet.h>
#include <session/Pins.h>
#include <zvk/ReadWriteLock.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

// One node of a port with the piece of the net that passes there.
struct Passage {
    SmartPtr<figrep::PortNode> node;
    SmartPtr<figrep::SubNet> subNet;
};

// Finds where a net leaves a figure, on a highway or on its own.
class PassageFinder : public figrep::AbstractFigureVisitor {
public:
    explicit PassageFinder(std::string const& net) : net_(net) {}

    bool Visit(SmartPtr<figrep::PortNode> const& node) override {
        SmartPtr<figrep::SubNet> const subNet = PassingAt(*node);
        if (subNet && seen_.insert(node.Get()).second) passages_.push_back({node, subNet});
        return true;
    }

    std::vector<Passage> Take() { return std::move(passages_); }

private:
    SmartPtr<figrep::SubNet> PassingAt(figrep::PortNode const& node) const {
        SmartPtr<figrep::SubNet> const own = node.GetSubNet();
        if (own) return own->GetName() == net_ ? own : nullptr;
        for (SmartPtr<figrep::SubNet> const& subNet : node.GetHighwaySubNets()) {
            if (subNet && subNet->GetName() == net_) return subNet;
        }
        return nullptr;
    }

    std::string const& net_;
    std::set<figrep::PortNode const*> seen_;
    std::vector<Passage> passages_;
};

bool ShowsNet(figrep::Figure const& figure, std::string const& net) {
    auto const subNets = figure.GetSubNets();
    return std::any_of(subNets.begin(), subNets.end(),
                       [&](auto const& subNet) { return subNet && subNet->GetName() == net; });
}

class Tracer {
public:
    Tracer(Session const& session, SmartPtr<figk::Net> const& net)
        : sheets_(session.GetSheets()), net_(net->GetName()), pins_(sheets_.size()) {
        for (std::size_t i = 0; i < sheets_.size(); ++i)
            places_[sheets_[i].id] = i;
        for (auto const& pin : net->GetConnectorInstances())
            AddPin(*pin);
    }

    NetTrace Run() {
        NetTrace trace{net_, {}};
        std::vector<bool> reached(sheets_.size(), false);
        for (std::size_t start = 0; start < sheets_.size(); ++start) {
            if (!reached[start] && Concerns(start)) Follow(start, reached, trace);
        }
        return trace;
    }

private:
    bool Concerns(std::size_t sheet) const {
        return !pins_[sheet].empty() || undrawn_.count(sheet) > 0 ||
               ShowsNet(*sheets_[sheet].figure, net_);
    }

    void AddPin(figk::ConnectorInstance const& pin) {
        SmartPtr<figk::BaseBlockInstance> const block = pin.GetBlockInstance();
        SmartPtr<figk::Sheet> const sheet = block ? block->GetSheet() : nullptr;
        auto const place = sheet ? places_.find(sheet->GetId().GetString()) : places_.end();
        if (place == places_.end()) return;
        std::string const name = PinName(pin);
        if (name.empty()) {
            undrawn_.insert(place->second);
        } else {
            pins_[place->second].insert(name);
        }
    }

    void Follow(std::size_t start, std::vector<bool>& reached, NetTrace& trace) {
        std::deque<std::size_t> queue{start};
        reached[start] = true;
        while (!queue.empty()) {
            std::size_t const sheet = queue.front();
            queue.pop_front();
            TraceSheet entry{sheets_[sheet].path, sheet != start, {}, {}};
            entry.pins.assign(pins_[sheet].begin(), pins_[sheet].end());
            for (Passage const& passage : PassagesOf(sheet)) {
                std::set<std::size_t> targets;
                entry.ports.push_back(PortOf(sheet, passage, targets));
                for (std::size_t const target : targets) {
                    if (!reached[target]) queue.push_back(target);
                    reached[target] = true;
                }
            }
            trace.sheets.push_back(std::move(entry));
        }
    }

    std::vector<Passage> PassagesOf(std::size_t sheet) const {
        PassageFinder finder(net_);
        sheets_[sheet].figure->Accept(finder);
        return finder.Take();
    }

    TracePort PortOf(std::size_t sheet, Passage const& passage,
                     std::set<std::size_t>& targets) const {
        TracePort port;
        port.place.sheet = sheets_[sheet].path;
        SmartPtr<figrep::Port> const record = passage.node->GetPort();
        if (record) port.id = record->GetId().GetString();
        if (record) port.name = record->GetName();
        if (SmartPtr<figrep::Format> const format = sheets_[sheet].figure->GetFormat()) {
            du::Symbol x, y;
            format->CalculateGridLocation(passage.node->GetPosition(), x, y);
            port.place.x = x.GetString();
            port.place.y = y.GetString();
        }
        std::vector<figrep::FigurePortNodeDetail> details;
        figrep::SchematicRepresentation::GetSingleton()->GetFiguresForPortNode(
            passage.node, passage.subNet, details);
        std::set<std::pair<std::size_t, TracePlace>> leadsTo;
        for (figrep::FigurePortNodeDetail const& detail : details) {
            auto const place = places_.find(detail.GetFigureName().GetString());
            if (place == places_.end() || place->second == sheet) continue;
            targets.insert(place->second);
            leadsTo.insert({place->second,
                            {sheets_[place->second].path, detail.GetXGrid().GetString(),
                             detail.GetYGrid().GetString()}});
        }
        for (auto const& [order, place] : leadsTo)
            port.leadsTo.push_back(place);
        return port;
    }

    std::vector<SessionSheet> const& sheets_;
    std::string net_;
    std::vector<std::set<std::string>> pins_;  // by sheet
    std::set<std::size_t> undrawn_;            // sheets with a pin that stands for no part
    std::unordered_map<std::string, std::size_t> places_;  // of sheets, by id
};

}  // namespace

std::optional<NetTrace> TraceNet(Session const& session, std::string const& name) {
    zvk::WriteGuard const guard(figk::SchematicKernel::GetKernelLock());
    for (auto const& net : session.GetDesign()->GetNets()) {
        if (net->GetName() == name) return Tracer(session, net).Run();
    }
    return std::nullopt;
}

}  // namespace fighost
