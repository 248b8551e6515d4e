// What saved changes rest on, over real designs.
#include <gtest/gtest.h>

#include <string>

#include <figrep/Figure.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <session/Session.h>
#include <support/Corpus.h>

namespace fighost {
namespace {

void ExpectEveryNodeIsFoundByItsId(SessionSheet const& sheet) {
    for (auto const& port : sheet.figure->GetPorts()) {
        for (auto const& node : port->GetPortNodes())
            EXPECT_EQ(sheet.figure->Find(node->GetId()).Get(),
                      static_cast<figrep::AbstractFigureItem*>(node.Get()))
                << sheet.path << " " << node->GetId().GetString();
    }
}

TEST(CorpusItems, EveryPlaceOfAPortIsFoundByItsId) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        auto const opened = Session::Open(root);
        if (!opened.session) continue;
        SCOPED_TRACE(root);
        for (SessionSheet const& sheet : opened.session->GetSheets())
            ExpectEveryNodeIsFoundByItsId(sheet);
    }
}

}  // namespace
}  // namespace fighost
