#include <figrep/GraphicGroup.h>

#include <figk/SchematicKernel.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/SettingList.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

GraphicGroup::GraphicGroup(SmartPtr<figk::Group> const& parent) {
    if (!parent) return;
    du::ConstructionGuard guard(this);
    parent->Insert(this);
}

GraphicGroup::~GraphicGroup() {
    for (SmartPtr<GraphicGroupMember> const& member : *this)
        member->graphicOwner_ = nullptr;
}

template <typename Action>
void GraphicGroup::ForEachMember(Action const& action) {
    // By index, each member held for its turn: an action may change the group.
    for (std::size_t i = 0; i < static_cast<std::size_t>(EndGroup() - BeginGroup()); ++i) {
        SmartPtr<GraphicGroupMember> const member = *(BeginGroup() + static_cast<long>(i));
        action(*member);
    }
}

void GraphicGroup::Accept(AbstractFigureVisitor& visitor) {
    SmartPtr<figk::Group> const self(this);
    if (visitor.StartGroupVisit(self)) {
        ForEachMember([&](GraphicGroupMember& member) { member.Accept(visitor); });
    }
    visitor.EndGroupVisit(self);
}

DBox2D GraphicGroup::GetMemberExtents() {
    {
        zvk::ReadGuard guard(figk::SchematicKernel::GetKernelLock());
        if (!memberExtents_.IsEmpty()) return memberExtents_;
    }
    zvk::WriteGuard guard(figk::SchematicKernel::GetKernelLock());
    DBox2D united = DBox2D::EMPTY;
    ForEachMember([&](GraphicGroupMember& member) { united.Enclose(member.GetMemberExtents()); });
    memberExtents_ = united;
    return united;
}

void GraphicGroup::InvalidateMemberExtents() {
    auto const forget = [](GraphicGroup& group) {
        group.memberExtents_ = DBox2D::EMPTY;
        group.MemberExtentsChanged();
    };
    forget(*this);
    for (SmartPtr<GraphicGroup> group = GetOwner(); group; group = group->GetOwner())
        forget(*group);
}

void GraphicGroup::SetMemberHighlight(bool on) {
    ForEachMember([on](GraphicGroupMember& member) { member.SetMemberHighlight(on); });
}

void GraphicGroup::SetMemberPreselectHighlight(bool on) {
    ForEachMember([on](GraphicGroupMember& member) { member.SetMemberPreselectHighlight(on); });
}

void GraphicGroup::SetMemberVisibility(bool on) {
    ForEachMember([on](GraphicGroupMember& member) { member.SetMemberVisibility(on); });
}

void GraphicGroup::MoveGraphics(double dx, double dy) {
    ForEachMember([&](GraphicGroupMember& member) { member.MoveGraphics(dx, dy); });
    InvalidateMemberExtents();
}

void GraphicGroup::RotateGraphics(DPoint2D const& centre, double radians) {
    ForEachMember([&](GraphicGroupMember& member) { member.RotateGraphics(centre, radians); });
    InvalidateMemberExtents();
}

void GraphicGroup::ScaleGraphics(DPoint2D const& centre, double factor) {
    ForEachMember([&](GraphicGroupMember& member) { member.ScaleGraphics(centre, factor); });
    InvalidateMemberExtents();
}

void GraphicGroup::MirrorGraphics(DPoint2D const& point, bool axis) {
    ForEachMember([&](GraphicGroupMember& member) { member.MirrorGraphics(point, axis); });
    InvalidateMemberExtents();
}

void GraphicGroup::Insert(SmartPtr<figk::GroupMember> const& member) {
    auto const before = EndGroup() - BeginGroup();
    GroupT::Insert(member);
    if (EndGroup() - BeginGroup() > before) (*(EndGroup() - 1))->graphicOwner_ = this;
    InvalidateMemberExtents();
}

bool GraphicGroup::Erase(SmartPtr<figk::GroupMember> const& member) {
    auto const typed = du::DynamicCast<GraphicGroupMember>(member);
    bool const erased = GroupT::Erase(member);
    if (erased && typed) typed->graphicOwner_ = nullptr;
    InvalidateMemberExtents();
    return erased;
}

void GraphicGroup::Clear() {
    for (SmartPtr<GraphicGroupMember> const& member : *this)
        member->graphicOwner_ = nullptr;
    GroupT::Clear();
    InvalidateMemberExtents();
}

ConstSmartPtr<figk::Setting> GraphicGroup::GetSettingFromContent(
    ConstSmartPtr<GraphicGroupMember> const& excluded, Setting::RepKey key, unsigned& depth) const {
    for (SmartPtr<GraphicGroupMember> const& member : *this) {
        if (excluded.Get() == member.Get()) continue;
        SettingList const* const list = member->GetMemberSettings();
        if (!list) continue;
        if (ConstSmartPtr<figk::Setting> found = list->GetSetting(key, depth, true)) return found;
    }
    return nullptr;
}

ConstSmartPtr<figk::Setting> GraphicGroup::GetGroupSetting(Setting::RepKey key, unsigned& depth,
                                                           bool inheritableOnly) const {
    if (SettingList const* const list = GetMemberSettings()) {
        ConstSmartPtr<figk::Setting> found = list->GetSetting(key, depth, inheritableOnly);
        if (found) return found;
    }
    SmartPtr<GraphicGroup> const owner = GetOwner();
    if (!owner) return nullptr;
    return owner->GetGroupSetting(key, depth, true);
}

}  // namespace figrep
