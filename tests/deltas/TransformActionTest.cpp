#include <figrep/MirrorAction.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <gtest/gtest.h>

#include <limits>

namespace figrep::testing {
namespace {

DPoint2D const CENTRE(1, 2);

SmartPtr<MirrorAction> Mirror(bool y, DPoint2D const& about = CENTRE) {
    return new MirrorAction(about, y);
}
SmartPtr<RotateAction> Rotate(double angle, DPoint2D const& about = CENTRE) {
    return new RotateAction(about, angle);
}
SmartPtr<ScaleAction> Scale(double factor, DPoint2D const& about = CENTRE) {
    return new ScaleAction(about, factor);
}

TEST(TransformAction, ScalesMergeByAddition) {
    for (double const factor : {2.0, 3.0}) {
        auto const action = Scale(factor);
        bool keep = false;
        EXPECT_TRUE(action->Merge(Scale(factor), keep));
        EXPECT_TRUE(keep);
        EXPECT_EQ(action->GetScale(), factor + factor);
    }
}

TEST(TransformAction, AnglesMergeByAddition) {
    auto const action = Rotate(0.5);
    bool keep = false;
    EXPECT_TRUE(action->Merge(Rotate(-0.5), keep));
    EXPECT_TRUE(keep);
    EXPECT_EQ(action->GetAngleInRadians(), 0.0);
}

TEST(TransformAction, LikeMirrorsMergeIntoNothingToKeep) {
    bool keep = true;
    EXPECT_TRUE(Mirror(true)->Merge(Mirror(true), keep));
    EXPECT_FALSE(keep);
}

TEST(TransformAction, MirrorsInDifferentAxesDoNotMergeAndLeaveKeepAlone) {
    for (bool const before : {false, true}) {
        bool keep = before;
        EXPECT_FALSE(Mirror(true)->Merge(Mirror(false), keep));
        EXPECT_EQ(keep, before);
    }
}

TEST(TransformAction, OnlyActionsOfOneTypeAboutExactlyOnePointMerge) {
    bool keep = false;
    DPoint2D const beside(1, 2 + 1e-12);
    EXPECT_FALSE(Scale(2)->Merge(Scale(2, beside), keep));
    EXPECT_FALSE(Scale(2)->Merge(Rotate(2), keep));
    EXPECT_FALSE(Scale(2)->Merge(nullptr, keep));
    EXPECT_FALSE(keep);
}

TEST(TransformAction, AboutNoNumberNothingMerges) {
    DPoint2D const nowhere(std::numeric_limits<double>::quiet_NaN(), 0);
    bool keep = false;
    EXPECT_FALSE(Rotate(1, nowhere)->Merge(Rotate(1, nowhere), keep));
}

TEST(TransformAction, TypesHaveTheirNumbers) {
    EXPECT_EQ(Mirror(false)->GetType(), 0);
    EXPECT_EQ(Rotate(1)->GetType(), 1);
    EXPECT_EQ(Scale(1)->GetType(), 2);
    EXPECT_EQ(SmartPtr<ScaleAction>(new ScaleAction(*Scale(3)))->GetScale(), 3);
}

}  // namespace
}  // namespace figrep::testing
