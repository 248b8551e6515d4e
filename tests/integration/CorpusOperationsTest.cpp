// Random operations on real designs, undone and redone.
#include <gtest/gtest.h>

#include <figrep/Figure.h>
#include <session/Session.h>
#include <support/Corpus.h>
#include <support/RandomOperations.h>

namespace fighost {
namespace {

TEST(CorpusOperations, AreUndoneAndRedone) {
    SKIP_WITHOUT_CORPUS();
    std::uint64_t seed = 0;
    for (std::string const& root : corpus::RootSheets()) {
        auto const opened = Session::Open(root);
        if (!opened.session) continue;
        auto const& figure = opened.session->GetSheets().at(0).figure;
        EXPECT_EQ(figrep::test::CheckUndo(figure, ++seed, 6), "") << root;
    }
}

}  // namespace
}  // namespace fighost
