// Groups and their members.
#include <figk/AbstractVisitor.h>
#include <figk/GraphicGroup.h>
#include <figk/Group.h>
#include <gtest/gtest.h>

namespace figktest {
namespace {

using MemberPtr = du::SmartPtr<figk::GroupMember>;
using GroupPtr = du::SmartPtr<figk::Group>;

class Plain : public figk::GroupMember {};
class Graphic : public figk::GraphicGroupMember {};
using TypedGroup = figk::GroupT<du::SmartPtr<figk::GraphicGroupMember>>;

TEST(Group, MembersStandInTheOrderOfInsertion) {
    GroupPtr group(new figk::Group());
    MemberPtr a(new Plain());
    MemberPtr b(new Plain());
    group->Insert(a);
    group->Insert(b);
    std::vector<MemberPtr> const members(group->begin(), group->end());
    EXPECT_EQ(members, (std::vector<MemberPtr>{a, b}));
    EXPECT_EQ(a->GetOwner(), group);
    EXPECT_EQ(a->GetGroup(), group);
}

TEST(Group, DyingIsNobodysOwner) {
    class Asking : public figk::Group {
    public:
        ~Asking() override {
            EXPECT_FALSE(member->GetOwner());
            EXPECT_FALSE(member->GetHeadGroup());
        }
        MemberPtr member = MemberPtr(new Plain());
    };
    du::SmartPtr<Asking> group(new Asking());
    group->Insert(group->member);
    EXPECT_EQ(group->member->GetOwner().Get(), group.Get());
    group.Reset();
}

TEST(Group, InsertingAMemberTwiceChangesNothing) {
    GroupPtr group(new figk::Group());
    MemberPtr a(new Plain());
    group->Insert(a);
    group->Insert(a);
    EXPECT_EQ(std::distance(group->begin(), group->end()), 1);
}

TEST(Group, InsertingAMemberOfAnotherGroupMovesIt) {
    GroupPtr from(new figk::Group());
    GroupPtr to(new figk::Group());
    MemberPtr a(new Plain());
    from->Insert(a);
    to->Insert(a);
    EXPECT_TRUE(from->IsEmpty());
    EXPECT_EQ(a->GetOwner(), to);
}

TEST(Group, InsertingNullOrAGroupThatHoldsThisOneChangesNothing) {
    GroupPtr outer(new figk::Group());
    GroupPtr inner(new figk::Group());
    outer->Insert(inner);
    inner->Insert(outer);
    inner->Insert(inner);
    inner->Insert(nullptr);
    EXPECT_TRUE(inner->IsEmpty());
    EXPECT_FALSE(outer->GetOwner());
}

TEST(Group, EraseAnswersWhetherTheMemberWasHere) {
    GroupPtr group(new figk::Group());
    MemberPtr a(new Plain());
    group->Insert(a);
    EXPECT_FALSE(group->Erase(nullptr));
    EXPECT_FALSE(group->Erase(MemberPtr(new Plain())));
    EXPECT_TRUE(group->Erase(a));
    EXPECT_FALSE(group->Erase(a));
    EXPECT_FALSE(a->GetOwner());
}

TEST(Group, ClearAndDeathLeaveMembersWithoutOwner) {
    MemberPtr a(new Plain());
    MemberPtr b(new Plain());
    GroupPtr group(new figk::Group());
    group->Insert(a);
    group->Clear();
    EXPECT_FALSE(a->GetOwner());
    group->Insert(b);
    group = nullptr;
    EXPECT_FALSE(b->GetOwner());
}

TEST(Group, TheHeadGroupIsTheTopmostOwner) {
    GroupPtr outer(new figk::Group());
    GroupPtr inner(new figk::Group());
    MemberPtr a(new Plain());
    outer->Insert(inner);
    inner->Insert(a);
    EXPECT_EQ(a->GetHeadGroup(), outer);
    EXPECT_EQ(inner->GetHeadGroup(), outer);
    EXPECT_FALSE(outer->GetHeadGroup());
}

TEST(Group, ACopyIsEmptyAndStandsInNoGroup) {
    GroupPtr outer(new figk::Group());
    GroupPtr group(new figk::Group());
    outer->Insert(group);
    group->Insert(MemberPtr(new Plain()));
    GroupPtr copy(new figk::Group(*group));
    EXPECT_TRUE(copy->IsEmpty());
    EXPECT_FALSE(copy->GetOwner());
}

TEST(GroupT, TakesMembersOfItsKindOnly) {
    du::SmartPtr<TypedGroup> group(new TypedGroup());
    MemberPtr graphic(new Graphic());
    group->Insert(MemberPtr(new Plain()));
    group->Insert(nullptr);
    EXPECT_TRUE(group->IsEmpty());
    group->Insert(graphic);
    group->Insert(graphic);
    ASSERT_EQ(std::distance(group->begin(), group->end()), 1);
    EXPECT_EQ(MemberPtr(*group->BeginGroup()), graphic);
}

TEST(GroupT, TypedMembersGoWithTheOthers) {
    du::SmartPtr<TypedGroup> group(new TypedGroup());
    du::SmartPtr<TypedGroup> other(new TypedGroup());
    MemberPtr a(new Graphic());
    group->Insert(a);
    other->Insert(a);
    EXPECT_EQ(group->BeginGroup(), group->EndGroup());
    EXPECT_TRUE(other->Erase(a));
    EXPECT_EQ(other->begin(), other->end());
    group->Insert(a);
    static_cast<figk::Group&>(*group).Clear();
    EXPECT_EQ(group->begin(), group->end());
    EXPECT_FALSE(a->GetOwner());
}

TEST(GraphicGroup, IsAGroupAndAMemberWithOneOwner) {
    du::SmartPtr<TypedGroup> outer(new TypedGroup());
    du::SmartPtr<figk::GraphicGroup> inner(new figk::GraphicGroup());
    outer->Insert(inner);
    EXPECT_TRUE(inner->IsGroup());
    EXPECT_EQ(inner->GetOwner(), outer);
    EXPECT_FALSE(MemberPtr(new Graphic())->IsGroup());
}

/// Counts groups; refuses those whose number it is told.
class CountGroups : public figk::AbstractVisitor {
public:
    bool StartGroupVisit(GroupPtr const&) override { return ++started != refused; }
    bool EndGroupVisit(GroupPtr const&) override {
        ++ended;
        return true;
    }

    int refused = 0;
    int started = 0;
    int ended = 0;
};

TEST(GroupWalk, ARefusedGroupIsLeftOutButEnded) {
    GroupPtr outer(new figk::Group());
    GroupPtr middle(new figk::Group());
    outer->Insert(middle);
    middle->Insert(GroupPtr(new figk::Group()));
    CountGroups visitor;
    visitor.refused = 2;
    outer->AcceptGroup(visitor);
    EXPECT_EQ(visitor.started, 2);
    EXPECT_EQ(visitor.ended, 2);
}

TEST(GroupWalk, NestingAsDeepAsMemoryDoesNotMatter) {
    constexpr int DEPTH = 100000;
    std::vector<GroupPtr> groups{GroupPtr(new figk::Group())};
    for (int i = 1; i < DEPTH; ++i) {
        groups.push_back(GroupPtr(new figk::Group()));
        // Inserting looks up through all owners, so the nest is built from the inside.
        groups[groups.size() - 1]->Insert(groups[groups.size() - 2]);
    }
    CountGroups visitor;
    groups.back()->AcceptGroup(visitor);
    EXPECT_EQ(visitor.started, DEPTH);
    EXPECT_EQ(visitor.ended, DEPTH);
}

}  // namespace
}  // namespace figktest
