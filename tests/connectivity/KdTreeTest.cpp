#include <du/SmartPtr.h>
#include <figrep/KdTree.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace figrep::testing {
namespace {

using dg::DBox2D;
using du::SmartPtr;

class BoxElement : public TreeInterface {
public:
    explicit BoxElement(DBox2D const& extents) : box(extents) {}
    DBox2D GetExtents() override { return box; }
    DBox2D box;
};

using Tree = KdTree<SmartPtr<BoxElement>>;
using Found = std::vector<SmartPtr<BoxElement>>;

SmartPtr<BoxElement> Element(double x, double y, double width = 1, double height = 1) {
    return new BoxElement(DBox2D(x, y, x + width, y + height));
}

Found Query(Tree& tree, DBox2D const& box) {
    Found found;
    tree.Query(box, found);
    std::sort(found.begin(), found.end());
    return found;
}

TEST(KdTree, WithOneElementReturnsItForABoxThatTouchesIt) {
    Tree tree;
    auto const element = Element(0, 0);
    tree.Add(element);
    EXPECT_EQ(Query(tree, DBox2D(1, 1, 2, 2)), Found{element});
    EXPECT_TRUE(Query(tree, DBox2D(5, 5, 6, 6)).empty());
}

TEST(KdTree, FindsBothOfTwoElementsWithEqualExtents) {
    Tree tree;
    tree.Add(Element(0, 0));
    tree.Add(Element(0, 0));
    EXPECT_EQ(Query(tree, DBox2D(0, 0, 1, 1)).size(), 2u);
}

TEST(KdTree, FindsOldAndNewElementsAfterAnAddBehindAQuery) {
    Tree tree;
    for (int i = 0; i < 9; ++i)
        tree.Add(Element(i, 0));
    EXPECT_EQ(Query(tree, DBox2D(-1, -1, 20, 2)).size(), 9u);
    tree.Add(Element(9, 0));
    EXPECT_EQ(Query(tree, DBox2D(-1, -1, 20, 2)).size(), 10u);
    EXPECT_EQ(Query(tree, DBox2D(9.5, 0, 9.6, 1)).size(), 1u);
}

TEST(KdTree, EntersABoxThatMissesByLessThanTheTolerance) {
    Tree tree;
    tree.SetTolerance(0.01);
    for (int i = 0; i < 8; ++i)
        tree.Add(Element(2 * i, 0));
    EXPECT_EQ(Query(tree, DBox2D(-1, 1.005, 20, 2)).size(), 8u);
    EXPECT_TRUE(Query(tree, DBox2D(-1, 1.02, 20, 2)).empty());
}

TEST(KdTree, ThatIsEmptyFindsNothingAndTakesNoNull) {
    Tree tree;
    tree.Add(nullptr);
    EXPECT_TRUE(Query(tree, DBox2D(-9, -9, 9, 9)).empty());
}

TEST(KdTree, AgreesWithAScan) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(0, 100);
    std::uniform_real_distribution<double> size(0, 10);
    Tree tree;
    Found all;
    for (int i = 0; i < 500; ++i) {
        all.push_back(Element(place(random), place(random), size(random), size(random)));
        tree.Add(all.back());
    }
    for (int i = 0; i < 200; ++i) {
        double const x = place(random);
        double const y = place(random);
        DBox2D const box(x, y, x + size(random), y + size(random));
        Found expected;
        std::copy_if(all.begin(), all.end(), std::back_inserter(expected),
                     [&](auto const& element) { return element->box.Intersects(box); });
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(Query(tree, box), expected);
    }
}

}  // namespace
}  // namespace figrep::testing
