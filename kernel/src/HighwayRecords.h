// Highways of the embedded kernel, their pieces on sheets and the nodes of those.
#pragma once

#include <unordered_set>
#include <vector>

#include <figk/Highway.h>
#include <figk/HighwaySegment.h>
#include <figk/Port.h>
#include <figk/SubHighway.h>

#include "RecordBase.h"

namespace figk {
class SubNet;
}

namespace figkernel {

class HighwayRecord;
class SubHighwayRecord;

/// A segment of a sub-highway's own tree.
///
/// Nodes of kernel trees carry no lock of their own: they never change, and whoever walks them
/// holds the kernel's lock.
class HighwaySegmentRecord : public Record<figk::HighwaySegment> {
public:
    HighwaySegmentRecord(SubHighwayRecord* owner, dg::DPoint2D const& from, dg::DPoint2D const& to);

    figk::SmartPtr<figk::SubHighway> GetSubHighway() const override;
    figk::SmartPtr<figk::Design> GetDesign() const override;
    void GetEnds(dg::DPoint2D& first, dg::DPoint2D& last) const override {
        first = start;
        last = end;
    }
    figk::SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return labels; }

    void SetLabels(du::SmartPtr<figk::Group> const& group) { labels = group; }
    /// The sub-highway is going.
    void Forget() { subHighway = nullptr; }

private:
    SubHighwayRecord* subHighway;
    dg::DPoint2D start;
    dg::DPoint2D end;
    du::SmartPtr<figk::Group> labels;
};

/// The copy of a highway segment in the tree of a net that runs along it.
class RouteSegmentRecord : public figk::HighwaySegment {
public:
    RouteSegmentRecord(du::SmartPtr<HighwaySegmentRecord> const& original, bool isReversed);

    du::Symbol const& GetId() const override { return twin->GetId(); }
    std::string const& GetName() const override { return twin->GetName(); }
    figk::ConstSmartPtr<figk::SettingList> GetSettingList() const override {
        return twin->GetSettingList();
    }
    figk::SmartPtr<figk::SubHighway> GetSubHighway() const override {
        return twin->GetSubHighway();
    }
    figk::SmartPtr<figk::Design> GetDesign() const override { return twin->GetDesign(); }
    void GetEnds(dg::DPoint2D& first, dg::DPoint2D& last) const override {
        twin->GetEnds(reversed ? last : first, reversed ? first : last);
    }
    figk::SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return nullptr; }

private:
    du::SmartPtr<HighwaySegmentRecord> twin;
    bool reversed;
};

class SubHighwayRecord : public Record<figk::SubHighway> {
public:
    SubHighwayRecord(du::SmartPtr<SheetLink> const& sheet, HighwayRecord* owner)
        : link(sheet), highway(owner) {}
    ~SubHighwayRecord() override;

    figk::SmartPtr<figk::Highway> GetHighway() const override;
    std::string const& GetName() const override;
    figk::SmartPtr<figk::Sheet> GetSheet() const override { return link->Get(); }
    figk::SmartPtr<figk::Design> GetDesign() const override { return link->GetDesign(); }
    figk::SmartPtr<figk::ConnectionNode> GetHead() const override { return head; }

    void SetHead(du::SmartPtr<figk::ConnectionNode> const& node) { head = node; }
    /// Notes that a net comes onto this piece. The sub-net is remembered, not held.
    void AddSubNet(figk::SubNet const* subNet) { subNets.insert(subNet); }
    bool Carries(figk::SubNet const* subNet) const { return subNets.count(subNet) != 0; }
    /// The highway is going.
    void Forget() { highway = nullptr; }

private:
    du::SmartPtr<SheetLink> link;
    HighwayRecord* highway;
    du::SmartPtr<figk::ConnectionNode> head;
    std::unordered_set<figk::SubNet const*> subNets;
};

class HighwayRecord : public NamedRecord<figk::Highway> {
public:
    explicit HighwayRecord(du::SmartPtr<DesignLink> const& design) : link(design) {}
    ~HighwayRecord() override;

    figk::SmartPtr<figk::Design> GetDesign() const override { return link->Get(); }
    std::vector<figk::SmartPtr<figk::SubHighway>> GetSubHighways() const override {
        return {subHighways.begin(), subHighways.end()};
    }
    std::vector<figk::SmartPtr<figk::Port>> GetPorts() const override;

    void Add(du::SmartPtr<SubHighwayRecord> const& piece) { subHighways.push_back(piece); }
    void Add(du::SmartPtr<class PortRecord> const& port);

private:
    du::SmartPtr<DesignLink> link;
    std::vector<du::SmartPtr<SubHighwayRecord>> subHighways;
    std::vector<du::SmartPtr<class PortRecord>> ports;
};

}  // namespace figkernel
