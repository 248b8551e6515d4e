// Trees of groups: members that know the group which holds them.
#pragma once

#include <du/RefCounted.h>
#include <figk/Fwd.h>

#include <vector>

namespace figk {

/// Something that can stand in one group. Derived classes inherit it virtually, so that an object
/// which is a group and a member in two ways still has one owner.
///
/// The owner is a plain pointer and is cleared when the group dies. Nothing here locks: whoever
/// changes groups holds the lock of what they belong to.
class GroupMember : public virtual du::RefCounted {
public:
    GroupMember();
    /// A copy stands in no group.
    GroupMember(GroupMember const& other);
    /// Leaves both members in the groups in which they stand.
    GroupMember& operator=(GroupMember const& other);
    ~GroupMember() override;

    virtual bool IsGroup() const;

    /// The group that holds this member, or null.
    SmartPtr<Group> GetOwner() const;
    /// The same as `GetOwner`.
    SmartPtr<Group> GetGroup() const;
    /// The topmost owner, or null for a member without owner. Cost: the depth of nesting.
    SmartPtr<Group> GetHeadGroup() const;

private:
    friend class Group;

    Group* owner_ = nullptr;
};

/// A group of members in the order of insertion. Holds its members.
class Group : public virtual GroupMember {
public:
    using Iterator = std::vector<SmartPtr<GroupMember>>::const_iterator;

    Group();
    /// A copy is an empty group without owner, since a member stands in one group only.
    Group(Group const& other);
    /// Leaves the members of both groups where they are.
    Group& operator=(Group const& other);
    ~Group() override;

    bool IsGroup() const override;
    /// Puts `member` at the end. A member of another group is taken off there first; a member that
    /// is here already, null, and a group that holds this one change nothing.
    virtual void Insert(SmartPtr<GroupMember> const& member);
    /// Takes `member` out; false when it isn't here. Cost: the number of members.
    virtual bool Erase(SmartPtr<GroupMember> const& member);
    /// Takes all members out.
    virtual void Clear();

    bool IsEmpty() const;
    /// The members in order. Changing the group ends the validity of iterators.
    Iterator BeginGroup() const;
    Iterator EndGroup() const;
    Iterator begin() const { return BeginGroup(); }
    Iterator end() const { return EndGroup(); }

    /// Walks the group for a kernel visitor: `StartGroupVisit`; if that is true, each member's
    /// `Accept`, nested groups in the same way; then `EndGroupVisit`, in either case.
    void AcceptGroup(AbstractVisitor& visitor);

protected:
    void AddMember(SmartPtr<GroupMember> const& member);

private:
    bool IsInside(GroupMember const& other) const;

    std::vector<SmartPtr<GroupMember>> members_;
};

/// A group of one kind of member. `T` is a `SmartPtr` to a class that derives from `GroupMember`.
template <typename T>
class GroupT : public Group {
public:
    using Iterator = typename std::vector<T>::const_iterator;

    GroupT() = default;
    GroupT(GroupT const& other) : GroupMember(other), Group(other) {}
    GroupT& operator=(GroupT const&) { return *this; }

    /// As `Group::Insert`, and does nothing for a member of another kind.
    void Insert(SmartPtr<GroupMember> const& member) override;
    bool Erase(SmartPtr<GroupMember> const& member) override;
    void Clear() override;

    /// The typed members in the order of insertion.
    Iterator BeginGroup() const { return typed_.begin(); }
    Iterator EndGroup() const { return typed_.end(); }
    Iterator begin() const { return typed_.begin(); }
    Iterator end() const { return typed_.end(); }

private:
    template <typename Element>
    static SmartPtr<Element> Cast(SmartPtr<GroupMember> const& member, SmartPtr<Element> const*) {
        return du::DynamicCast<Element>(member);
    }
    static T Cast(SmartPtr<GroupMember> const& member) {
        return Cast(member, static_cast<T const*>(nullptr));
    }

    std::vector<T> typed_;
};

template <typename T>
void GroupT<T>::Insert(SmartPtr<GroupMember> const& member) {
    T typed = Cast(member);
    if (!typed) return;
    SmartPtr<Group> before = member->GetOwner();
    Group::Insert(member);
    if (before.Get() != this && member->GetOwner().Get() == this) typed_.push_back(typed);
}

template <typename T>
bool GroupT<T>::Erase(SmartPtr<GroupMember> const& member) {
    T typed = Cast(member);
    if (!Group::Erase(member)) return false;
    std::erase(typed_, typed);
    return true;
}

template <typename T>
void GroupT<T>::Clear() {
    std::vector<T> dropped;
    dropped.swap(typed_);
    Group::Clear();
}

}  // namespace figk
