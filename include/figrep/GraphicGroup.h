// A group of graphics; groups nest.
#pragma once

#include <dg/Box.h>
#include <figk/Group.h>
#include <figrep/Fwd.h>
#include <figrep/GraphicGroupMember.h>

namespace figrep {

/// An ordered group of graphics that is a graphic member itself, so that groups nest.
///
/// Ownership: holds its members. Locking: none of its own, except that the box of the members is
/// computed under the kernel's lock; graphics lock for themselves. The cached box is dropped
/// whenever a member comes, goes or is transformed, here and in all groups above.
class GraphicGroup : public figk::GroupT<SmartPtr<GraphicGroupMember>>, public GraphicGroupMember {
public:
    /// Joins `parent` as a member when it isn't null; then somebody must hold the parent.
    explicit GraphicGroup(SmartPtr<figk::Group> const& parent);
    ~GraphicGroup() override;

    bool IsGroup() const override { return true; }

    /// Calls `StartGroupVisit`, the members in order if that answered true, and `EndGroupVisit`.
    void Accept(AbstractFigureVisitor& visitor) override;

    using GraphicGroupMember::GetOwner;

    /// The union of the members' boxes, cached. An empty group computes it on every call.
    DBox2D GetMemberExtents() override;
    void SetMemberHighlight(bool on) override;
    void SetMemberPreselectHighlight(bool on) override;
    void SetMemberVisibility(bool on) override;
    void MoveGraphics(double dx, double dy) override;
    void RotateGraphics(DPoint2D const& centre, double radians) override;
    void ScaleGraphics(DPoint2D const& centre, double factor) override;
    void MirrorGraphics(DPoint2D const& point, bool axis) override;

    void Insert(SmartPtr<figk::GroupMember> const& member) override;
    bool Erase(SmartPtr<figk::GroupMember> const& member) override;
    void Clear() override;

    /// Drops the cached boxes of this group and of those above. Cost: the depth of nesting.
    void InvalidateMemberExtents();

    /// The first inheritable setting that a member other than `excluded` has or inherits; null
    /// when none does.
    ConstSmartPtr<figk::Setting> GetSettingFromContent(
        ConstSmartPtr<GraphicGroupMember> const& excluded, Setting::RepKey key,
        unsigned& depth) const;

    /// What a member inherits here: this group's own setting where the group is an item, else that
    /// of the group above.
    virtual ConstSmartPtr<figk::Setting> GetGroupSetting(Setting::RepKey key, unsigned& depth,
                                                         bool inheritableOnly) const;

protected:
    /// Called when the box of the members may have changed, here or in a group below. What keeps a
    /// box of its own forgets it. The base does nothing.
    virtual void MemberExtentsChanged() {}

private:
    template <typename Action>
    void ForEachMember(Action const& action);

    DBox2D memberExtents_ = DBox2D::EMPTY;
};

}  // namespace figrep
