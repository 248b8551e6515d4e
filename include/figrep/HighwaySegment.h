// A piece of a highway.
#pragma once

#include <figrep/Segment.h>
#include <figrep/SubNetList.h>

namespace figrep {

/// A segment of a sub-highway, with the list of the sub-nets that run along it.
class HighwaySegment : public Segment {
public:
    HighwaySegment(SmartPtr<SubHighway> const& subHighway, SmartPtr<zvk::ReadWriteLock> const& lock,
                   SmartPtr<figk::HighwaySegment> const& kernelSegment,
                   SmartPtr<ConnectionNode> const& predecessor);
    HighwaySegment(SmartPtr<SubHighway> const& subHighway, SmartPtr<zvk::ReadWriteLock> const& lock,
                   DPoint2D const& start, DPoint2D const& end,
                   SmartPtr<ConnectionNode> const& predecessor);
    ~HighwaySegment() override;

    FigureItemType GetType() const override;
    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;
    /// The kernel segment's name where it has one, else the sub-highway's.
    std::string const& GetName() const override;
    SmartPtr<Figure> GetFigure() const override;
    SmartPtr<Figure> GetNodeFigure() const override;
    Symbol GetTextOwnerId() const override;
    unsigned int GetNextTextLabelId() override;
    void GraphicalUpdateNeeded() override;
    /// A window takes whole wires: whether it holds all of the sub-highway.
    bool FineContentCheck(DBox2D const& box) const override;

    using Segment::Add;
    /// Appends a sub-net that runs along here; one that is listed already is listed again.
    void Add(SmartPtr<SubNet> const& subNet);
    std::vector<SmartPtr<SubNet>> GetSubNets() const;
    /// True for a null sub-net and for those listed. Cost: logarithmic in the nets listed.
    bool Visit(SmartPtr<SubNet> const& subNet) const override;
    using Segment::Visit;
    /// Takes the sub-net off the list; the others keep their order.
    void Remove(SmartPtr<SubNet> const& subNet) override;
    using Segment::Remove;

    /// A count of `FixConnectivity`, 0 outside it. No lock.
    unsigned int GetVisitCount() const { return visitCount_; }
    void SetVisitCount(unsigned int count) { visitCount_ = count; }

    SmartPtr<figk::HighwaySegment> GetKernelHighwaySegment() const;
    SmartPtr<SubHighway> GetSubHighway() const;

protected:
    bool AcceptNode(AbstractFigureVisitor& visitor) override;
    void DeriveId() override;
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;
    void OwnerWiresChanged() override;
    void OwnerTextLabelAdded(SmartPtr<TextGraphic> const& text) override;

private:
    SmartPtr<SubHighway> subHighway_;
    SubNetList subNets_;
    unsigned int visitCount_ = 0;
};

}  // namespace figrep
