// What stands in a group of graphics: a graphic, or a group again.
#pragma once

#include <figk/Group.h>
#include <figrep/Fwd.h>
#include <figrep/Setting.h>

namespace figrep {

/// A member of a `GraphicGroup`. Groups hand highlight, visibility and transforms to their members
/// through this interface.
///
/// Ownership: the group holds its members; a member knows its group without holding it.
class GraphicGroupMember : public virtual figk::GroupMember {
public:
    virtual void Accept(AbstractFigureVisitor& visitor) = 0;
    /// In figure coordinates; `DBox2D::EMPTY` for a member that shows nothing.
    virtual DBox2D GetMemberExtents() = 0;
    virtual void SetMemberHighlight(bool on) = 0;
    virtual void SetMemberPreselectHighlight(bool on) = 0;
    virtual void SetMemberVisibility(bool on) = 0;
    virtual void MoveGraphics(double dx, double dy) = 0;
    virtual void RotateGraphics(DPoint2D const& centre, double radians) = 0;
    virtual void ScaleGraphics(DPoint2D const& centre, double factor) = 0;
    /// `axis` is the index of the coordinate that changes: false mirrors x, true mirrors y.
    virtual void MirrorGraphics(DPoint2D const& point, bool axis) = 0;

    /// The group it stands in; null outside one.
    SmartPtr<GraphicGroup> GetOwner() const;

    /// The setting that the group it stands in has or inherits; null without a group.
    /// `depth` tells how many steps up it was found.
    ConstSmartPtr<figk::Setting> GetGroupSetting(Setting::RepKey key, unsigned& depth,
                                                 bool inheritableOnly) const;

    /// The member's own settings; null for a member without.
    virtual SettingList const* GetMemberSettings() const;

protected:
    GraphicGroupMember() = default;
    GraphicGroupMember(GraphicGroupMember const& other);
    GraphicGroupMember& operator=(GraphicGroupMember const& other);
    ~GraphicGroupMember() override;

private:
    friend class GraphicGroup;

    /// What `figk::GroupMember` knows as the owner, as the class that it is; settings are looked up
    /// along it too often to be asked for it each time.
    GraphicGroup* graphicOwner_ = nullptr;
};

}  // namespace figrep
