// What a figure remembers between searches.
#include <figrep/BlockInstance.h>
#include <figrep/NetSegment.h>
#include <figrep/SubNet.h>
#include <gtest/gtest.h>

#include "Fakes.h"

namespace figrep::testing {
namespace {

class FigureFind : public ::testing::Test {
protected:
    SmartPtr<BlockInstance> Block(std::string const& id) const {
        SmartPtr<figk::BlockInstance> const record = new FakeBlockRecord(id, id);
        SmartPtr<BlockInstance> const block = new BlockInstance(figure->GetLock(), record);
        figure->Receive(block);
        return block;
    }
    SmartPtr<SubNet> Wire(std::string const& name) const {
        SmartPtr<SubNet> const subNet = new SubNet(figure, figure->GetLock(), name);
        subNet->SetHead(
            new NetSegment(subNet, figure->GetLock(), DPoint2D(0, 0), DPoint2D(1, 0), {}));
        return subNet;
    }

    SmartPtr<Figure> figure = new Figure();
};

/// Counts the walks over it.
class CountedBlock : public BlockInstance {
public:
    using BlockInstance::BlockInstance;
    void Accept(AbstractFigureVisitor& visitor) override {
        ++walks;
        BlockInstance::Accept(visitor);
    }
    int walks = 0;
};

TEST_F(FigureFind, FigureWithoutIdsIsWalkedOnceForAllSearches) {
    SmartPtr<CountedBlock> const nameless = new CountedBlock(figure, "by name");
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(figure->Find(Symbol("nowhere")));
    EXPECT_EQ(nameless->walks, 1);
}

TEST_F(FigureFind, RemovingOneItemLeavesWhatIsKnownOfTheOthers) {
    SmartPtr<CountedBlock> const counted = new CountedBlock(figure, "by name");
    auto const a = Block("A");
    auto const b = Block("B");
    auto const net = Wire("n");
    EXPECT_TRUE(figure->Find(Symbol("A")));
    figure->RemoveItem(a);
    figure->RemoveItem(net);
    EXPECT_EQ(figure->Find(Symbol("B")), b);
    EXPECT_EQ(counted->walks, 1);
    EXPECT_FALSE(figure->Find(Symbol("A")));
    EXPECT_FALSE(figure->Find(net->GetId()));
    EXPECT_FALSE(figure->Find(Symbol("A")));
    EXPECT_EQ(counted->walks, 2) << "another item could have the id of what left";
}

TEST_F(FigureFind, RemovedBeforeItWasEverSearchedAnItemIsNotFound) {
    EXPECT_FALSE(figure->Find(Symbol("A")));
    auto const a = Block("A");
    figure->RemoveItem(a);
    EXPECT_FALSE(figure->Find(Symbol("A")));
}

TEST_F(FigureFind, BehindARemovedItemTheNextOfItsIdIsFound) {
    auto const first = Block("same");
    auto const second = Block("same");
    EXPECT_EQ(figure->Find(Symbol("same")), first);
    figure->RemoveItem(first);
    EXPECT_EQ(figure->Find(Symbol("same")), second);
    figure->Receive(first);
    figure->RemoveItem(first);
    EXPECT_EQ(figure->Find(Symbol("same")), second);
}

TEST_F(FigureFind, BehindARemovedItemTheNextIsNotTheOneThatCameLast) {
    auto const first = Block("same");
    EXPECT_EQ(figure->Find(Symbol("same")), first);
    auto const second = Block("same");
    figure->RemoveItem(first);
    Block("same");
    EXPECT_EQ(figure->Find(Symbol("same")), second);
}

}  // namespace
}  // namespace figrep::testing
