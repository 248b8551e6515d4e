#include <figk/Miscellaneous.h>
#include <figrep/GetFigureContentVisitor.h>
#include <figrep/GetHiddenContentVisitor.h>
#include <figrep/Miscellaneous.h>
#include <operations/OperationTestSupport.h>

namespace figrep::testing {
namespace {

class ContentVisitors : public FigureOfAll {
protected:
    Strings Content() {
        GetFigureContentVisitor visitor;
        figure->Accept(visitor);
        Items items;
        visitor.TakeFigureContent(items);
        return LabelsOf(items);
    }
    Strings Hidden() {
        GetHiddenContentVisitor visitor;
        figure->Accept(visitor);
        Items items;
        visitor.TakeHiddenContent(items);
        return LabelsOf(items);
    }
    void Hide(std::string const& label) { Item(label)->AddSetting(Visibility(false), true); }
};

TEST_F(ContentVisitors, ContentIsFormatTextsBlocksCablesPortNodesWiresAndTables) {
    EXPECT_EQ(Content(), (Strings{"format", "free", "U1", "U2", "U3", "K", "H/HP/1", "D/P/1", "H",
                                  "A", "B", "C1", "C2", "D", "T"}));
}

TEST_F(ContentVisitors, NothingIsHiddenOnAFigureWithEverythingVisible) {
    EXPECT_EQ(Hidden(), Strings{});
}

TEST_F(ContentVisitors, HiddenTitleBlockUnderAVisibleFormatIsListed) {
    Hide("title");
    EXPECT_EQ(Hidden(), Strings{"title"});
}

TEST_F(ContentVisitors, TitleBlockUnderAHiddenFormatIsListedAfterIt) {
    Hide("format");
    EXPECT_EQ(Hidden(), (Strings{"format", "title"}));
}

TEST_F(ContentVisitors, ContentStopsAtTheFormat) {
    Strings const content = Content();
    EXPECT_EQ(std::count(content.begin(), content.end(), "title"), 0);
}

TEST_F(ContentVisitors, HiddenPortIsListedByItsNodes) {
    Hide("D/P");
    EXPECT_EQ(Hidden(), Strings{"D/P/1"});
}

TEST_F(ContentVisitors, WhatInheritsIsListedWithWhatIsHidden) {
    Hide("U2");
    Hide("K");
    Hide("free");
    EXPECT_EQ(Hidden(), (Strings{"free", "U2", "U3", "K", "C1", "C2"}));
}

TEST_F(ContentVisitors, GraphicsInsideGroupsAndItemsAreNotEntered) {
    Hide("g1");
    EXPECT_EQ(Hidden(), Strings{});
}

TEST_F(ContentVisitors, MiscellaneousItemsAreNoContentHiddenOrNot) {
    Strings const content = Content();
    SmartPtr<Miscellaneous> const misc = new Miscellaneous(figure->GetLock(), nullptr);
    figure->Receive(misc);
    EXPECT_EQ(Content(), content);
    misc->AddSetting(Visibility(false), true);
    EXPECT_EQ(Hidden(), Strings{});
}

TEST_F(ContentVisitors, HiddenContentIsWhatIsHiddenOfTheContentAndOfTheTitleBlock) {
    Strings all = Content();
    Items shown = test::ItemsThatShow(figure);
    for (auto const& item : shown)
        item->AddSetting(Visibility(false), true);
    all.insert(all.begin() + 1, "title");  // behind the format
    EXPECT_EQ(Hidden(), all);
}

TEST_F(ContentVisitors, TakingExchangesTheLists) {
    GetFigureContentVisitor visitor;
    Item("U1")->Accept(visitor);
    Items items{Item("T"), Item("K")};
    visitor.TakeFigureContent(items);
    EXPECT_EQ(LabelsOf(items), Strings{"U1"});
    visitor.TakeFigureContent(items);
    EXPECT_EQ(LabelsOf(items), (Strings{"T", "K"}));
}

TEST_F(ContentVisitors, ACopyHasWhatWasCollected) {
    GetHiddenContentVisitor visitor;
    Hide("U1");
    figure->Accept(visitor);
    GetHiddenContentVisitor copy(visitor);
    Items items;
    copy.TakeHiddenContent(items);
    EXPECT_EQ(LabelsOf(items), Strings{"U1"});
    visitor.TakeHiddenContent(items);
    EXPECT_EQ(LabelsOf(items), Strings{"U1"});
}

}  // namespace
}  // namespace figrep::testing
