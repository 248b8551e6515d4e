#include <figrep/GraphicGroupMember.h>

#include <du/Upward.h>
#include <figrep/GraphicGroup.h>

namespace figrep {

GraphicGroupMember::GraphicGroupMember(GraphicGroupMember const& other)
    : du::RefCounted(other), figk::GroupMember(other) {}

GraphicGroupMember& GraphicGroupMember::operator=(GraphicGroupMember const&) {
    return *this;
}

GraphicGroupMember::~GraphicGroupMember() = default;

SmartPtr<GraphicGroup> GraphicGroupMember::GetOwner() const {
    return du::Upward(graphicOwner_);
}

SettingList const* GraphicGroupMember::GetMemberSettings() const {
    return nullptr;
}

ConstSmartPtr<figk::Setting> GraphicGroupMember::GetGroupSetting(Setting::RepKey key,
                                                                 unsigned& depth,
                                                                 bool inheritableOnly) const {
    SmartPtr<GraphicGroup> const owner = GetOwner();
    if (!owner) return nullptr;
    return owner->GetGroupSetting(key, depth, inheritableOnly);
}

}  // namespace figrep
