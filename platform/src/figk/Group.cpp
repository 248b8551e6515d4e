#include <figk/Group.h>

#include <du/Upward.h>
#include <figk/AbstractItem.h>
#include <figk/AbstractVisitor.h>
#include <figk/GraphicGroup.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace figk {

namespace {

using Members = std::vector<SmartPtr<GroupMember>>;

/// The members of groups that died while another group was dying on this thread; null otherwise.
thread_local Members* orphans = nullptr;

/// Drops the members of a dying group. Groups among them leave theirs to the outermost call, so a
/// deep nest dies without recursion.
void LetGo(Members members) {
    if (orphans) {
        std::move(members.begin(), members.end(), std::back_inserter(*orphans));
        return;
    }
    orphans = &members;
    while (!members.empty()) {
        SmartPtr<GroupMember> const last = std::move(members.back());
        members.pop_back();
    }
    orphans = nullptr;
}

}  // namespace

GroupMember::GroupMember() = default;
GroupMember::GroupMember(GroupMember const& other) : du::RefCounted(other) {}
GroupMember& GroupMember::operator=(GroupMember const&) {
    return *this;
}
GroupMember::~GroupMember() = default;

bool GroupMember::IsGroup() const {
    return false;
}

SmartPtr<Group> GroupMember::GetOwner() const {
    return du::Upward(owner_);
}

SmartPtr<Group> GroupMember::GetGroup() const {
    return GetOwner();
}

SmartPtr<Group> GroupMember::GetHeadGroup() const {
    Group* head = owner_;
    while (head && static_cast<GroupMember*>(head)->owner_) {
        head = static_cast<GroupMember*>(head)->owner_;
    }
    return du::Upward(head);
}

Group::Group() = default;
Group::Group(Group const& other) : du::RefCounted(other), GroupMember(other) {}
Group& Group::operator=(Group const&) {
    return *this;
}

Group::~Group() {
    for (SmartPtr<GroupMember> const& member : members_)
        member->owner_ = nullptr;
    LetGo(std::move(members_));
}

bool Group::IsGroup() const {
    return true;
}

void Group::Insert(SmartPtr<GroupMember> const& member) {
    if (!member || member->owner_ == this || IsInside(*member)) return;
    SmartPtr<GroupMember> const held = member;
    if (SmartPtr<Group> const former = held->GetOwner()) former->Erase(held);
    AddMember(held);
}

bool Group::Erase(SmartPtr<GroupMember> const& member) {
    if (!member || member->owner_ != this) return false;
    auto const found = std::find(members_.begin(), members_.end(), member);
    if (found == members_.end()) return false;
    SmartPtr<GroupMember> const held = *found;
    members_.erase(found);
    held->owner_ = nullptr;
    return true;
}

void Group::Clear() {
    std::vector<SmartPtr<GroupMember>> dropped;
    dropped.swap(members_);
    for (SmartPtr<GroupMember> const& member : dropped)
        member->owner_ = nullptr;
}

bool Group::IsEmpty() const {
    return members_.empty();
}

Group::Iterator Group::BeginGroup() const {
    return members_.begin();
}

Group::Iterator Group::EndGroup() const {
    return members_.end();
}

void Group::AddMember(SmartPtr<GroupMember> const& member) {
    if (!member) return;
    members_.push_back(member);
    member->owner_ = this;
}

/// Whether `other` is this group or one of those that hold it.
bool Group::IsInside(GroupMember const& other) const {
    GroupMember const* member = this;
    while (member && member != &other)
        member = member->owner_;
    return member != nullptr;
}

void Group::AcceptGroup(AbstractVisitor& visitor) {
    struct Level {
        SmartPtr<Group> group;
        std::vector<SmartPtr<GroupMember>> members;
        size_t next = 0;
    };
    std::vector<Level> open;
    auto enter = [&](SmartPtr<Group> const& group) {
        bool const inside = visitor.StartGroupVisit(group);
        open.push_back({group, inside ? group->members_ : std::vector<SmartPtr<GroupMember>>()});
    };
    enter(SmartPtr<Group>(this));
    while (!open.empty()) {
        Level& level = open.back();
        if (level.next == level.members.size()) {
            visitor.EndGroupVisit(level.group);
            open.pop_back();
            continue;
        }
        SmartPtr<GroupMember> const member = level.members[level.next++];
        if (SmartPtr<AbstractItem> item = du::DynamicCast<AbstractItem>(member)) {
            item->Accept(visitor);
        } else if (SmartPtr<Group> group = du::DynamicCast<Group>(member)) {
            enter(group);
        }
    }
}

GraphicGroupMember::GraphicGroupMember() = default;
GraphicGroupMember::GraphicGroupMember(GraphicGroupMember const& other)
    : du::RefCounted(other), GroupMember(other) {}
GraphicGroupMember::~GraphicGroupMember() = default;

GraphicGroup::GraphicGroup() = default;
GraphicGroup::~GraphicGroup() = default;

bool GraphicGroup::IsGroup() const {
    return true;
}

}  // namespace figk
