// Visitors are public: a host may hand them whatever its pointers hold.
#include <figrep/DebugConnectivityVisitor.h>
#include <figrep/DebugSettingsVisitor.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/FindFigurePortVisitor.h>
#include <figrep/GetFigureContentVisitor.h>
#include <figrep/GetHiddenContentVisitor.h>
#include <figrep/TidyJunctionsVisitor.h>
#include <gtest/gtest.h>
#include <support/NullVisits.h>

#include <sstream>

namespace figrep {
namespace {

using test::ShowNulls;

using Items = std::vector<SmartPtr<AbstractFigureItem>>;

TEST(NullVisits, NothingIsCollected) {
    Items items;
    FigureItemsVisitor all(items);
    all.SetCollectPorts(true);
    ShowNulls(all);
    all.SetCollectSubItems(false);
    ShowNulls(all);
    EXPECT_TRUE(items.empty());

    GetFigureContentVisitor content;
    ShowNulls(content);
    content.TakeFigureContent(items);
    EXPECT_TRUE(items.empty());

    GetHiddenContentVisitor hidden;
    ShowNulls(hidden);
    hidden.TakeHiddenContent(items);
    EXPECT_TRUE(items.empty());
}

TEST(NullVisits, NoPortIsFound) {
    FindFigurePortVisitor visitor;
    visitor.SetFigureName(Symbol("F"));
    ShowNulls(visitor);
    EXPECT_FALSE(visitor.Find({}, Symbol("p")));
}

TEST(NullVisits, NothingIsWritten) {
    std::ostringstream out;
    DebugConnectivityVisitor connectivity(out);
    ShowNulls(connectivity);
    connectivity.SetSubNet({});
    ShowNulls(connectivity);
    DebugSettingsVisitor settings(out);
    ShowNulls(settings);
    EXPECT_EQ(out.str(), "");
}

TEST(NullVisits, NothingIsTidied) {
    TidyJunctionsVisitor visitor;
    ShowNulls(visitor);
    visitor.Tidy();
}

}  // namespace
}  // namespace figrep
