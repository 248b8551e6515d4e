#include <figrep/FigureConnectionsDelta.h>

#include <figrep/BrokenConnectionRecord.h>
#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>
#include <zvk/SerializedContentElement.h>

#include <unordered_map>

#include "deltas/BrokenConnections.h"

namespace figrep {

Symbol const FigureConnectionsDelta::s_delta_type_value("connections_delta");

namespace {

using SubNetsById = std::unordered_map<Symbol, SmartPtr<SubNet>>;

/// The first sub-net of each id; those without an id can't be meant.
SubNetsById IndexSubNets(figk::AbstractDeltaReceiver& receiver) {
    SubNetsById subNets;
    SmartPtr<Figure> const figure = dynamic_cast<Figure*>(&receiver);
    if (!figure) return subNets;
    for (auto const& subNet : figure->GetSubNets()) {
        if (!subNet->GetId().IsEmpty()) subNets.emplace(subNet->GetId(), subNet);
    }
    return subNets;
}

}  // namespace

FigureConnectionsDelta::FigureConnectionsDelta(Records const& records, Action action)
    : AbstractFigureDelta(action, false) {
    for (auto const& record : records) {
        if (record) records_.push_back(record);
    }
}

FigureConnectionsDelta::~FigureConnectionsDelta() = default;

Symbol FigureConnectionsDelta::GetClassTypeValue() {
    return s_delta_type_value;
}

bool FigureConnectionsDelta::_Verify(figk::AbstractDeltaReceiver& receiver) {
    SubNetsById const subNets = IndexSubNets(receiver);
    for (auto const& record : records_) {
        if (record->GetSubNet()) continue;
        auto const found = subNets.find(record->GetSubNetId());
        if (found == subNets.end()) return false;
        record->SetSubNet(found->second);
    }
    return true;
}

template <typename Change>
void FigureConnectionsDelta::ForEachSubNet(Change const& change) const {
    std::vector<SmartPtr<SubNet>> order;
    std::unordered_map<SmartPtr<SubNet>, Records> bySubNet;
    for (auto const& record : records_) {
        Records& records = bySubNet[record->GetSubNet()];
        if (records.empty()) order.push_back(record->GetSubNet());
        records.push_back(record);
    }
    for (auto const& subNet : order) {
        BrokenConnections connections(subNet);
        for (auto const& record : bySubNet[subNet])
            change(connections, *record);
    }
}

void FigureConnectionsDelta::_Apply(figk::AbstractDeltaReceiver& receiver) {
    auto const* const target = dynamic_cast<FigureDeltaReceiverInterface*>(&receiver);
    if (!target) return;
    zvk::WriteGuard const guard(target->GetLock());
    if (GetAction() == ACTION_CREATE) {
        ForEachSubNet([](auto& connections, auto const& record) { connections.Break(record); });
    } else if (GetAction() == ACTION_DELETE) {
        ForEachSubNet([](auto& connections, auto const& record) { connections.Restore(record); });
    }
}

void FigureConnectionsDelta::_Serialize(zvk::SerializedContentElement* element) {
    SerializeBase(element);
    element->AddProperty(s_delta_type, s_delta_type_value);
    for (auto const& record : records_) {
        auto const& subNet = record->GetSubNet();
        auto* const child = element->StartContent(s_delta_broken_connection);
        child->AddProperty(s_delta_sub_net_id, subNet ? subNet->GetId() : record->GetSubNetId());
        child->AddProperty(s_delta_static_pos, dg::DPoint3D(record->GetStaticPosition()));
        child->AddProperty(s_delta_start_pos, dg::DPoint3D(record->GetStartPosition()));
        child->AddProperty(s_delta_end_pos, dg::DPoint3D(record->GetEndPosition()));
        child->AddProperty(s_delta_predecessor_not_successor, record->GetPredecessorNotSuccessor());
        element->EndContent();
    }
}

}  // namespace figrep
