#include <painters/TextLayout.h>

#include <gtest/gtest.h>

namespace fighost {
namespace {

TextStyle Style(double height = 1.0) {
    TextStyle style;
    style.height = height;
    return style;
}

TextLayout LayOut(std::wstring_view text, bool markup = true,
                  HorizontalAlignment horizontal = HorizontalAlignment::LEFT,
                  VerticalAlignment vertical = VerticalAlignment::BOTTOM) {
    return LayOutText(text, markup, horizontal, vertical, Style());
}

TEST(TextLayout, PlainTextIsOneRunOnTheBaseline) {
    TextLayout const layout = LayOut(L"R12");
    ASSERT_EQ(layout.runs.size(), 1u);
    EXPECT_EQ(layout.runs[0].text, "R12");
    EXPECT_EQ(layout.runs[0].x, 0);
    EXPECT_EQ(layout.runs[0].y, 0);
    EXPECT_EQ(layout.runs[0].height, 1);
}

TEST(TextLayout, EmptyTextHasNoRuns) {
    EXPECT_TRUE(LayOut(L"").runs.empty());
    EXPECT_TRUE(LayOut(L"~{}").overbars.empty());
}

TEST(TextLayout, OverbarSpansItsGroupOnly) {
    TextLayout const layout = LayOut(L"A~{BC}D");
    ASSERT_EQ(layout.runs.size(), 3u);
    ASSERT_EQ(layout.overbars.size(), 1u);
    EXPECT_DOUBLE_EQ(layout.overbars[0].x1, layout.runs[1].x);
    EXPECT_DOUBLE_EQ(layout.overbars[0].x2, layout.runs[2].x);
    EXPECT_GT(layout.overbars[0].y, 1.0) << "above the capitals";
}

TEST(TextLayout, NestedOverbarsLieOverOneAnother) {
    TextLayout const layout = LayOut(L"~{A~{B}C}");
    ASSERT_EQ(layout.overbars.size(), 2u);
    EXPECT_GT(layout.overbars[1].y, layout.overbars[0].y) << "the outer bar is the higher one";
    EXPECT_DOUBLE_EQ(layout.overbars[1].x1, 0);
}

TEST(TextLayout, SubscriptIsSmallerAndLower) {
    TextLayout const layout = LayOut(L"V_{CC}");
    ASSERT_EQ(layout.runs.size(), 2u);
    EXPECT_EQ(layout.runs[1].text, "CC");
    EXPECT_LT(layout.runs[1].height, 1);
    EXPECT_LT(layout.runs[1].y, 0);
}

TEST(TextLayout, SuperscriptIsSmallerAndHigher) {
    TextLayout const layout = LayOut(L"I^{2}C");
    ASSERT_EQ(layout.runs.size(), 3u);
    EXPECT_LT(layout.runs[1].height, 1);
    EXPECT_GT(layout.runs[1].y, 0);
    EXPECT_EQ(layout.runs[2].y, 0);
}

TEST(TextLayout, MarkupIsLiteralWhenNotAskedFor) {
    TextLayout const layout = LayOut(L"~{A}", false);
    ASSERT_EQ(layout.runs.size(), 1u);
    EXPECT_EQ(layout.runs[0].text, "~{A}");
    EXPECT_TRUE(layout.overbars.empty());
}

TEST(TextLayout, UnclosedGroupIsLiteral) {
    TextLayout const layout = LayOut(L"~{A_{b}");
    std::string all;
    for (TextRun const& run : layout.runs)
        all += run.text;
    EXPECT_EQ(all, "~{Ab");
    EXPECT_TRUE(layout.overbars.empty());
}

TEST(TextLayout, BracesWithoutMarkerAreLiteral) {
    TextLayout const layout = LayOut(L"D{0}~{X{1}}");
    std::string all;
    for (TextRun const& run : layout.runs)
        all += run.text;
    EXPECT_EQ(all, "D{0}X{1}");
}

TEST(TextLayout, DeepNestingNeitherOverflowsNorVanishes) {
    std::wstring text;
    for (int i = 0; i < 100000; ++i)
        text += L"_{";
    text += L"x";
    for (int i = 0; i < 100000; ++i)
        text += L"}";
    TextLayout const layout = LayOut(text);
    ASSERT_EQ(layout.runs.size(), 1u);
    EXPECT_GT(layout.runs[0].height, 0.1);
}

TEST(TextLayout, AlignmentShiftsEachLineByItsOwnWidth) {
    TextLayout const layout = LayOut(L"MMMM\nI", true, HorizontalAlignment::RIGHT);
    ASSERT_EQ(layout.runs.size(), 2u);
    for (TextRun const& run : layout.runs)
        EXPECT_NEAR(run.x + run.width, 0, 1e-12);
    EXPECT_LT(layout.runs[0].x, layout.runs[1].x);
}

TEST(TextLayout, BottomPutsTheLastBaselineOnTheAnchor) {
    TextLayout const layout = LayOut(L"a\nb\nc");
    ASSERT_EQ(layout.runs.size(), 3u);
    EXPECT_DOUBLE_EQ(layout.runs[2].y, 0);
    EXPECT_DOUBLE_EQ(layout.runs[0].y, 2 * LINE_PITCH);
}

TEST(TextLayout, TopPutsTheFirstCapitalsBelowTheAnchor) {
    TextLayout const layout =
        LayOut(L"a\nb", true, HorizontalAlignment::LEFT, VerticalAlignment::TOP);
    EXPECT_DOUBLE_EQ(layout.runs[0].y, -1);
    EXPECT_DOUBLE_EQ(layout.runs[1].y, -1 - LINE_PITCH);
}

TEST(TextLayout, MiddleCentresTheBlock) {
    TextLayout const one =
        LayOut(L"a", true, HorizontalAlignment::CENTRE, VerticalAlignment::MIDDLE);
    EXPECT_DOUBLE_EQ(one.runs[0].y, -0.5);
    TextLayout const two =
        LayOut(L"a\nb", true, HorizontalAlignment::CENTRE, VerticalAlignment::MIDDLE);
    EXPECT_NEAR(two.runs[0].y + 1, -two.runs[1].y, 1e-12);
}

TEST(TextLayout, ControlCharactersAreLeftOutAndBadCodePointsReplaced) {
    std::wstring text =
        L"a\x01"
        L"b\x7F";
    text += static_cast<wchar_t>(0xD800);
    TextLayout const layout = LayOut(text);
    ASSERT_EQ(layout.runs.size(), 1u);
    EXPECT_EQ(layout.runs[0].text, "ab\xEF\xBF\xBD");
}

TEST(TextLayout, OverbarAcrossLinesHasAPieceOnEach) {
    TextLayout const layout = LayOut(L"~{ab\ncd}");
    ASSERT_EQ(layout.overbars.size(), 2u);
    EXPECT_GT(layout.overbars[0].y, layout.overbars[1].y);
}

TEST(TextLayout, NarrowLettersAreNarrowerThanWideOnes) {
    EXPECT_LT(GlyphWidth(U'i', false), GlyphWidth(U'm', false));
    EXPECT_LT(GlyphWidth(U'm', false), GlyphWidth(U'm', true));
    EXPECT_GT(GlyphWidth(U'\u03A9', false), 0.5);
    EXPECT_EQ(GlyphWidth(U'\u4E2D', false), 1.0);
}

}  // namespace
}  // namespace fighost
