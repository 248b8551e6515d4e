// Random operations on real designs, undone and redone.
#include <gtest/gtest.h>

#include <algorithm>

#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <session/Session.h>
#include <support/Corpus.h>
#include <support/LiveObjects.h>
#include <support/RandomOperations.h>

namespace fighost {
namespace {

using figrep::SmartPtr;

/// The figure of the sheet with the most nets: root sheets often show nothing but other sheets.
SmartPtr<figrep::Figure> RichestFigure(Session const& session) {
    auto const& sheets = session.GetSheets();
    auto const netsOf = [](SessionSheet const& sheet) { return sheet.figure->GetSubNets().size(); };
    return std::max_element(sheets.begin(), sheets.end(),
                            [&](auto const& a, auto const& b) { return netsOf(a) < netsOf(b); })
        ->figure;
}

/// A share of the designs, so that no test takes long.
class CorpusOperationsOnAShare : public ::testing::TestWithParam<std::uint64_t> {};

constexpr std::uint64_t SHARES = 4;

TEST_P(CorpusOperationsOnAShare, AreUndoneAndRedone) {
    SKIP_WITHOUT_CORPUS();
    std::uint64_t seed = 0;
    for (std::string const& root : corpus::RootSheets()) {
        if (++seed % SHARES != GetParam()) continue;
        auto const opened = Session::Open(root);
        ASSERT_TRUE(opened.session) << root;
        auto const figure = RichestFigure(*opened.session);
        EXPECT_EQ(figrep::test::CheckUndo(figure, seed, 6), "") << root;
    }
}

INSTANTIATE_TEST_SUITE_P(Shares, CorpusOperationsOnAShare,
                         ::testing::Range<std::uint64_t>(0, SHARES));

TEST(CorpusOperations, LeaveNothingBehindOnFiguresThatStay) {
    SKIP_WITHOUT_CORPUS();
    std::uint64_t seed = 0;
    for (std::string const& root : corpus::RootSheets()) {
        if (++seed % 3 != 1) continue;
        auto const opened = Session::Open(root);
        ASSERT_TRUE(opened.session) << root;
        auto const figure = RichestFigure(*opened.session);
        EXPECT_EQ(figrep::test::ObjectsAddedByEveryRound(figure, seed, 4), 0) << root;
    }
}

TEST(CorpusOperations, LeaveNothingAliveWhenDesignAndHistoryGo) {
    SKIP_WITHOUT_CORPUS();
    std::uint64_t seed = 0;
    for (std::string const& root : corpus::RootSheets()) {
        if (++seed % 5 != 1) continue;
        auto const left = figrep::test::ObjectsLeftBy([&] {
            auto const opened = Session::Open(root);
            ASSERT_TRUE(opened.session);
            figrep::test::RandomOperations operations(RichestFigure(*opened.session), seed);
            for (int i = 0; i < 6; ++i)
                operations.Step();
        });
        EXPECT_EQ(left, 0) << root;
    }
}

}  // namespace
}  // namespace fighost
