// Random changes of real designs, saved and applied to a fresh figure.
#include <gtest/gtest.h>

#include <cstdint>

#include <figrep/Figure.h>
#include <host/Picture.h>
#include <persistence/SavedFigures.h>
#include <session/Session.h>
#include <support/Corpus.h>
#include <support/RandomEdits.h>

#include "SavedPictures.h"

namespace fighost {
namespace {

using namespace test;  // NOLINT

/// Random changes of one sheet, saved and applied to a fresh figure, look like the live figure.
void ExpectChangesComeBack(SessionSheet const& sheet, std::uint64_t seed) {
    SCOPED_TRACE(sheet.path);
    figrep::test::RandomEdits edits(sheet.figure, seed);
    for (int i = 0; i < 20; ++i)
        edits.Edit();
    auto const fresh = Reload(WriteSavedFigures({{sheet.figure, nullptr}}, {}), sheet);
    ASSERT_TRUE(fresh);
    // Pictures first: those of the wires are part of what is dumped.
    EXPECT_TRUE(Picture(fresh) == Picture(sheet.figure)) << "the pictures differ";
    EXPECT_EQ(FirstDifference(fresh, sheet.figure), "");
}

TEST(CorpusSavedFigures, AppliedAfreshTheyLookLikeTheLiveFigures) {
    SKIP_WITHOUT_CORPUS();
    constexpr std::size_t SHEETS = 2;  // of each design
    SessionOptions options;
    options.crossings = figk::CROSSING_NONE;
    std::uint64_t seed = 0;
    for (std::string const& root : corpus::RootSheets()) {
        auto const opened = Session::Open(root, options);
        if (!opened.session) continue;
        SCOPED_TRACE(root);
        auto const& sheets = opened.session->GetSheets();
        for (std::size_t i = 0; i < sheets.size() && i < SHEETS; ++i)
            ExpectChangesComeBack(sheets[i], ++seed);
    }
}

}  // namespace
}  // namespace fighost
