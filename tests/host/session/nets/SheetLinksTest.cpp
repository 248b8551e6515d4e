#include <session/nets/SheetLinks.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace fighost {
namespace {

using figrep::SmartPtr;
using Strings = std::vector<std::string>;

std::string Label(char const* kind, char const* name, int y) {
    return std::string("(") + kind + " \"" + name + "\" (shape input) (at 20 " + std::to_string(y) +
           " 0))";
}

std::string Block(char const* uuid, char const* name, char const* file, Strings const& pins) {
    std::string text = std::string("(sheet (at 50 50) (size 20 20) (uuid \"") + uuid +
                       "\") (property \"Sheetname\" \"" + name + "\") (property \"Sheetfile\" \"" +
                       file + "\")";
    int y = 50;
    for (std::string const& pin : pins)
        text += " (pin \"" + pin + "\" input (at 50 " + std::to_string(++y) + " 180))";
    return text + ")";
}

std::string File(char const* uuid, std::string const& content) {
    return std::string("(kicad_sch (version 20230121) (generator x) (uuid \"") + uuid +
           "\") (paper \"A4\") (lib_symbols) " + content + ")";
}

/// A root with the sheets "a/b" and "twin", which show one file, and in it the sheet "deep". The
/// blocks lie over one another, so that their pins of one name meet.
class SheetLinksTest : public ::testing::Test {
protected:
    void SetUp() override {
        MemoryFiles files;
        files.Add("top.kicad_sch", File("r", Block("u1", "a/b", "mid.kicad_sch", {"IN", "LONE"}) +
                                                 Block("u2", "twin", "mid.kicad_sch", {"IN"}) +
                                                 Label("global_label", "G", 10)));
        files.Add("mid.kicad_sch", File("m", Label("hierarchical_label", "IN", 10) +
                                                 Label("hierarchical_label", "UNPINNED", 15) +
                                                 Block("u3", "deep", "deep.kicad_sch", {"X"})));
        files.Add("deep.kicad_sch",
                  File("d", Label("hierarchical_label", "X", 10) + Label("global_label", "G", 20)));
        Session::Opened opened = Session::Open(files, "top.kicad_sch");
        ASSERT_FALSE(opened.error) << opened.error->ToString();
        session = std::move(opened.session);
        for (SessionSheet const& sheet : session->GetSheets())
            all.push_back(&sheet);
    }

    std::string PathOf(std::string const& id) const {
        for (SessionSheet const& sheet : session->GetSheets()) {
            if (sheet.id == id) return sheet.path;
        }
        return id;
    }

    /// Where the nodes of the ports called `name` on the sheet lead, by paths.
    std::multiset<std::string> Targets(SheetLinks const& links, std::size_t sheet,
                                       std::string const& name) const {
        std::multiset<std::string> targets;
        for (auto const& port : all[sheet]->figure->GetPorts()) {
            if (port->GetName() != name) continue;
            for (auto const& node : port->GetPortNodes())
                targets.insert(PathOf(links.Next(node)));
        }
        return targets;
    }

    using Paths = std::multiset<std::string>;

    std::unique_ptr<Session> session;
    std::vector<SessionSheet const*> all;  ///< "/", "/a/b/", its "deep", "/twin/", its "deep"
};

TEST_F(SheetLinksTest, APinOfABlockLeadsToTheBlocksOwnSheet) {
    SheetLinks const links(all);
    EXPECT_EQ(Targets(links, 0, "IN"), (Paths{all[1]->path, all[3]->path}));
    EXPECT_EQ(Targets(links, 1, "X"), Paths{all[2]->path});
    EXPECT_EQ(Targets(links, 3, "X"), Paths{all[4]->path});
}

TEST_F(SheetLinksTest, PinsOfOneNameOnOneNetAreOnePortAndToldApart) {
    std::set<SmartPtr<figrep::AbstractFigureItem>> found;
    int ports = 0;
    for (auto const& port : all[0]->figure->GetPorts()) {
        if (port->GetName() != "IN") continue;
        ++ports;
        for (auto const& node : port->GetPortNodes())
            found.insert(all[0]->figure->Find(node->GetId()));
    }
    EXPECT_EQ(ports, 1);
    EXPECT_EQ(found.size(), 2U);
    EXPECT_FALSE(found.count(nullptr));
}

TEST_F(SheetLinksTest, APinLeadsToItsSheetThoughNoLabelAnswersItThere) {
    EXPECT_EQ(Targets(SheetLinks(all), 0, "LONE"), Paths{all[1]->path});
}

TEST_F(SheetLinksTest, AHierarchicalLabelLeadsToTheSheetAbove) {
    SheetLinks const links(all);
    EXPECT_EQ(Targets(links, 1, "IN"), Paths{"/"});
    EXPECT_EQ(Targets(links, 3, "UNPINNED"), Paths{"/"});
    EXPECT_EQ(Targets(links, 4, "X"), Paths{all[3]->path});
}

TEST_F(SheetLinksTest, AGlobalLabelLeadsToTheNextSheetThatShowsItRoundAndRound) {
    SheetLinks const links(all);
    EXPECT_EQ(Targets(links, 0, "G"), Paths{all[2]->path});
    EXPECT_EQ(Targets(links, 2, "G"), Paths{all[4]->path});
    EXPECT_EQ(Targets(links, 4, "G"), Paths{"/"});
}

TEST_F(SheetLinksTest, WithoutItsSheetAPinLeadsToAnotherThatShowsTheNetBySameName) {
    SheetLinks const links({all[0], all[3]});
    EXPECT_EQ(Targets(links, 0, "IN"), (Paths{all[3]->path, all[3]->path}));
}

TEST_F(SheetLinksTest, OnlySheetsOfTheDocumentAreLedTo) {
    SheetLinks const links({all[0], all[3]});
    EXPECT_EQ(Targets(links, 3, "X"), Paths{""});
    EXPECT_EQ(Targets(links, 0, "G"), Paths{""});
    EXPECT_EQ(Targets(links, 1, "IN"), Paths{""});
    EXPECT_EQ(links.Next(nullptr), "");
}

TEST_F(SheetLinksTest, DepthIsThatOfTheTreeWhateverTheNamesHold) {
    SheetLinks const links(all);
    std::vector<std::size_t> depths;
    for (SessionSheet const* sheet : all)
        depths.push_back(links.DepthOf(*sheet));
    EXPECT_EQ(depths, (std::vector<std::size_t>{0, 1, 2, 1, 2}));
}

TEST_F(SheetLinksTest, DepthCountsSheetsOfTheDocumentAlone) {
    SheetLinks const links({all[1], all[2], all[4]});
    EXPECT_EQ(links.DepthOf(*all[1]), 0U);
    EXPECT_EQ(links.DepthOf(*all[2]), 1U);
    EXPECT_EQ(links.DepthOf(*all[4]), 0U);
}

}  // namespace
}  // namespace fighost
