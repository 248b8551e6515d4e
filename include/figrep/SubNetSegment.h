// What the segments of a sub-net have in common.
#pragma once

#include <figrep/Segment.h>

namespace figrep {

/// A segment that belongs to one sub-net.
class SubNetSegment : public Segment {
public:
    SmartPtr<SubNet> GetSubNet() const override;
    bool Visit(SmartPtr<SubNet> const& subNet) const override;
    using Segment::Visit;
    void Remove(SmartPtr<SubNet> const& subNet) override;
    using Segment::Remove;
    SmartPtr<Figure> GetFigure() const override;
    SmartPtr<Figure> GetNodeFigure() const override;
    Symbol GetTextOwnerId() const override;
    unsigned int GetNextTextLabelId() override;

protected:
    SubNetSegment(SmartPtr<SubNet> const& subNet, SmartPtr<zvk::ReadWriteLock> const& lock,
                  SmartPtr<figk::AbstractItem> const& item,
                  SmartPtr<ConnectionNode> const& predecessor);
    SubNetSegment(SmartPtr<SubNet> const& subNet, SmartPtr<zvk::ReadWriteLock> const& lock,
                  DPoint2D const& start, DPoint2D const& end,
                  SmartPtr<ConnectionNode> const& predecessor);
    ~SubNetSegment() override;

    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;
    void OwnerWiresChanged() override;
    void OwnerTextLabelAdded(SmartPtr<TextGraphic> const& text) override;

private:
    SmartPtr<SubNet> subNet_;
};

}  // namespace figrep
