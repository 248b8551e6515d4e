#include <session/nets/TraceIndex.h>

#include <functional>
#include <set>
#include <unordered_map>
#include <utility>

#include <figk/BaseBlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/Design.h>
#include <figk/Net.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubNet.h>
#include <session/items/Pins.h>
#include <zvk/ReadWriteLock.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

// A sheet's part in a net while it is collected.
struct Collected {
    std::set<std::string> pins;
    std::vector<TraceIndex::Passage> passages;
};

// Enters each port node of a figure under the nets that pass there.
class PassageFinder : public figrep::AbstractFigureVisitor {
public:
    using Enter = std::function<void(std::string const& net, TraceIndex::Passage const& passage)>;

    explicit PassageFinder(Enter enter) : enter_(std::move(enter)) {}

    bool Visit(SmartPtr<figrep::PortNode> const& node) override {
        SmartPtr<figk::PortNode> const record = node->GetKernelPortNode();
        SmartPtr<figrep::Port> const port = node->GetPort();
        if (!record || !port || !seen_.insert(node.Get()).second) return true;
        TraceIndex::Passage const passage{port->GetId().GetString(), port->GetName(),
                                          record->GetId().GetString(), port->OnHighwayNotNet()};
        if (SmartPtr<figrep::SubNet> const own = node->GetSubNet()) {
            enter_(own->GetName(), passage);
            return true;
        }
        std::set<std::string> nets;
        for (SmartPtr<figrep::SubNet> const& subNet : node->GetHighwaySubNets()) {
            if (subNet && nets.insert(subNet->GetName()).second) {
                enter_(subNet->GetName(), passage);
            }
        }
        return true;
    }

private:
    Enter enter_;
    std::set<figrep::PortNode const*> seen_;
};

class Indexer {
public:
    Indexer(Session const& session, std::string const* only) : session_(session), only_(only) {
        for (SessionSheet const& sheet : session.GetSheets()) {
            places_[sheet.id] = index_.sheets.size();
            index_.sheets.push_back({sheet.id, sheet.path});
        }
    }

    TraceIndex Run() {
        zvk::WriteGuard const guard(figk::SchematicKernel::GetKernelLock());
        for (auto const& net : session_.GetDesign()->GetNets()) {
            if (!IsWanted(net->GetName())) continue;
            nets_[net->GetName()];
            for (auto const& pin : net->GetConnectorInstances())
                AddPin(net->GetName(), *pin);
        }
        for (std::size_t sheet = 0; sheet < index_.sheets.size(); ++sheet)
            AddSheet(sheet, session_.GetSheets()[sheet].figure);
        for (auto& [net, stops] : nets_) {
            auto& list = index_.nets[net];
            for (auto& [sheet, stop] : stops) {
                list.push_back(
                    {sheet, {stop.pins.begin(), stop.pins.end()}, std::move(stop.passages)});
            }
        }
        return std::move(index_);
    }

private:
    bool IsWanted(std::string const& net) const { return !only_ || *only_ == net; }

    // A pin that stands for no part has no name, and its sheet belongs to the net all the same.
    void AddPin(std::string const& net, figk::ConnectorInstance const& pin) {
        SmartPtr<figk::BaseBlockInstance> const block = pin.GetBlockInstance();
        SmartPtr<figk::Sheet> const sheet = block ? block->GetSheet() : nullptr;
        auto const place = sheet ? places_.find(sheet->GetId().GetString()) : places_.end();
        if (place == places_.end()) return;
        Collected& stop = nets_[net][place->second];
        std::string const name = PinName(pin);
        if (!name.empty()) stop.pins.insert(name);
    }

    void AddSheet(std::size_t sheet, SmartPtr<figrep::Figure> const& figure) {
        bool isShown = false;
        for (auto const& subNet : figure->GetSubNets()) {
            if (!subNet || !IsWanted(subNet->GetName())) continue;
            nets_[subNet->GetName()][sheet];
            isShown = true;
        }
        if (!isShown) return;  // the walk is what costs
        PassageFinder finder([&](std::string const& net, TraceIndex::Passage const& passage) {
            if (IsWanted(net)) nets_[net][sheet].passages.push_back(passage);
        });
        figure->Accept(finder);
    }

    Session const& session_;
    std::string const* only_;
    TraceIndex index_;
    std::unordered_map<std::string, std::size_t> places_;  // of sheets, by id
    std::map<std::string, std::map<std::size_t, Collected>> nets_;
};

}  // namespace

TraceIndex IndexNets(Session const& session) {
    return Indexer(session, nullptr).Run();
}

TraceIndex IndexNet(Session const& session, std::string const& net) {
    return Indexer(session, &net).Run();
}

}  // namespace fighost
