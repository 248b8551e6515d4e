#include <figrep/MapGroupContent.h>

#include <figk/GraphicGroup.h>
#include <figrep/GraphicGroup.h>
#include <gtest/gtest.h>

#include <vector>

namespace figrep {
namespace {

unsigned DepthOf(SmartPtr<figk::Group> const& group) {
    unsigned depth = 0;
    for (auto owner = group->GetOwner(); owner; owner = owner->GetOwner())
        ++depth;
    return depth;
}

class Content : public MapGroupContent {
public:
    using MapGroupContent::GetFigureGroup;
    using MapGroupContent::MapGroups;
    using MapGroupContent::StartGroup;
};

TEST(GroupNesting, HowDeepAKernelNestsGroupsDoesNotDecideHowDeepTheFigureDoes) {
    std::vector<SmartPtr<figk::Group>> records{new figk::GraphicGroup()};
    for (int i = 0; i < 2000; ++i) {
        records.push_back(new figk::GraphicGroup());
        records[records.size() - 2]->Insert(records.back());
    }
    records.back()->Insert(new figk::GraphicGroup());  // empty groups are not mapped
    SmartPtr<figk::Group> const figureGroup = new GraphicGroup(SmartPtr<figk::Group>());
    Content content;
    content.MapGroups(records.front(), figureGroup);
    for (auto const& record : records)
        content.StartGroup(record);
    auto const shallow = content.GetFigureGroup(records[50]);
    ASSERT_TRUE(shallow);
    EXPECT_EQ(DepthOf(shallow), 50u);
    auto const deepest = content.GetFigureGroup(records.back());
    ASSERT_TRUE(deepest);
    EXPECT_EQ(DepthOf(deepest), 100u);
    EXPECT_EQ(deepest, content.GetFigureGroup(records[1000]));
}

}  // namespace
}  // namespace figrep
