// The root of the items that own a group of display graphics.
#pragma once

#include <figrep/AbstractFigureItem.h>
#include <figrep/GraphicGroup.h>

namespace figrep {

/// A figure item that is also the group of its own graphics: what is done to the item's look is
/// done to every member.
class GraphicalFigureItem : public AbstractFigureItem, public GraphicGroup {
public:
    void SetHighlight(bool on) override;
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;

    /// Walks the group of graphics.
    void Accept(AbstractFigureVisitor& visitor) override;

    /// The box of the members. The group keeps it, the item doesn't.
    DBox2D GetExtents() override;

    SettingList const* GetMemberSettings() const override { return this; }

protected:
    GraphicalFigureItem(SmartPtr<zvk::ReadWriteLock> const& lock,
                        SmartPtr<figk::AbstractItem> const& item);
    GraphicalFigureItem(SmartPtr<zvk::ReadWriteLock> const& lock, std::string const& name);
    ~GraphicalFigureItem() override;
};

}  // namespace figrep
