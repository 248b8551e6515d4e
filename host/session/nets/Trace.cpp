#include <session/nets/Trace.h>

#include <cstddef>
#include <deque>
#include <set>
#include <unordered_map>
#include <utility>

#include <figk/SchematicKernel.h>
#include <figrep/FigurePortNodeDetail.h>
#include <figrep/SchematicRepresentation.h>
#include <zvk/ReadWriteLock.h>

namespace fighost {

namespace {

using du::Symbol;

class Tracer {
public:
    Tracer(TraceIndex const& index, std::string const& net,
           std::vector<TraceIndex::Stop> const& stops)
        : sheets_(index.sheets), net_(net), stops_(sheets_.size(), nullptr) {
        for (std::size_t i = 0; i < sheets_.size(); ++i)
            places_[sheets_[i].id] = i;
        for (TraceIndex::Stop const& stop : stops)
            if (stop.sheet < stops_.size()) stops_[stop.sheet] = &stop;
    }

    NetTrace Run() {
        NetTrace trace{net_, {}};
        std::vector<bool> reached(sheets_.size(), false);
        for (std::size_t start = 0; start < sheets_.size(); ++start) {
            if (!reached[start] && stops_[start]) Follow(start, reached, trace);
        }
        return trace;
    }

private:
    void Follow(std::size_t start, std::vector<bool>& reached, NetTrace& trace) {
        std::deque<std::size_t> queue{start};
        reached[start] = true;
        while (!queue.empty()) {
            std::size_t const sheet = queue.front();
            queue.pop_front();
            TraceSheet entry{sheets_[sheet].path, sheet != start, {}, {}};
            std::set<std::size_t> targets;
            if (TraceIndex::Stop const* const stop = stops_[sheet]) {
                entry.pins = stop->pins;
                for (TraceIndex::Passage const& passage : stop->passages)
                    entry.ports.push_back(PortOf(sheet, passage, targets));
            }
            for (std::size_t const target : targets) {
                if (!reached[target]) queue.push_back(target);
                reached[target] = true;
            }
            trace.sheets.push_back(std::move(entry));
        }
    }

    TracePlace PlaceOf(std::size_t sheet, figrep::FigurePortNodeDetail const& detail) const {
        return {sheets_[sheet].path, detail.GetXGrid().GetString(), detail.GetYGrid().GetString()};
    }

    TracePort PortOf(std::size_t sheet, TraceIndex::Passage const& passage,
                     std::set<std::size_t>& targets) const {
        TracePort port{passage.port, passage.portName, {sheets_[sheet].path, {}, {}}, {}};
        std::vector<figrep::FigurePortNodeDetail> details;
        figrep::SchematicRepresentation::GetSingleton()->GetFiguresForPort(
            Symbol(passage.port), passage.onHighway, Symbol(net_), details);
        std::set<std::pair<std::size_t, TracePlace>> leadsTo;
        for (figrep::FigurePortNodeDetail const& detail : details) {
            auto const found = places_.find(detail.GetFigureName().GetString());
            if (found == places_.end()) continue;  // a sheet of another design
            std::size_t const place = found->second;
            if (place != sheet) {
                targets.insert(place);
                leadsTo.insert({place, PlaceOf(place, detail)});
            } else if (detail.GetPortNodeId().GetString() == passage.node) {
                port.place = PlaceOf(sheet, detail);
            }
        }
        for (auto const& [order, place] : leadsTo)
            port.leadsTo.push_back(place);
        return port;
    }

    std::vector<TraceIndex::Sheet> const& sheets_;
    std::string const& net_;
    std::vector<TraceIndex::Stop const*> stops_;           // by sheet; null: not there
    std::unordered_map<std::string, std::size_t> places_;  // of sheets, by id
};

}  // namespace

std::optional<NetTrace> TraceNet(TraceIndex const& index, std::string const& name) {
    auto const net = index.nets.find(name);
    if (net == index.nets.end()) return std::nullopt;
    zvk::WriteGuard const guard(figk::SchematicKernel::GetKernelLock());
    return Tracer(index, net->first, net->second).Run();
}

std::optional<NetTrace> TraceNet(Session const& session, std::string const& name) {
    return TraceNet(IndexNet(session, name), name);
}

}  // namespace fighost
