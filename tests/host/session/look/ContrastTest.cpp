#include <session/look/Contrast.h>

#include <gtest/gtest.h>
#include <session/look/Palette.h>

#include <random>
#include <set>
#include <tuple>

namespace fighost {
namespace {

using dg::Color;

class RandomColors {
public:
    Color Next(float opacity = 1) { return {Channel(), Channel(), Channel(), opacity}; }

private:
    float Channel() { return std::uniform_real_distribution<float>(0, 1)(generator_); }

    std::mt19937 generator_{7};
};

TEST(Contrast, RatioIsThatOfTheGuidelines) {
    EXPECT_NEAR(ContrastRatio(Color::BLACK, Color::WHITE), 21, 1e-6);
    EXPECT_NEAR(ContrastRatio(Color::RED, Color::RED), 1, 1e-9);
    float const grey = 118.0F / 255;
    EXPECT_NEAR(ContrastRatio({grey, grey, grey}, Color::WHITE), 4.54, 0.01);
    EXPECT_NEAR(ContrastRatio({1, 0, 0}, Color::WHITE), 4.0, 0.01);
}

TEST(Contrast, CountsWhatIsSeenThroughAColour) {
    EXPECT_EQ(Over({1, 0, 0, 0.5F}, Color::WHITE), Color(1, 0.5F, 0.5F));
    EXPECT_NEAR(ContrastRatio({0, 0, 0, 0}, Color::WHITE), 1, 1e-9);
    EXPECT_LT(ContrastRatio({0, 0, 0, 0.5F}, Color::WHITE), 5);
}

TEST(Contrast, DarkIsWhatWhiteStandsOutFrom) {
    EXPECT_TRUE(IsDark(Color::BLACK));
    EXPECT_TRUE(IsDark(Color::BLUE));
    EXPECT_FALSE(IsDark(Color::WHITE));
    EXPECT_FALSE(IsDark(Color::YELLOW));
}

TEST(Contrast, ReadableKeepsWhatIsReadable) {
    EXPECT_EQ(Readable(Color::YELLOW, Color::BLACK, 4.5), Color::YELLOW);
    EXPECT_EQ(Readable(Color::BLACK, Color::WHITE, 4.5), Color::BLACK);
}

TEST(Contrast, ReadableTurnsDarkIntoLightAndKeepsTheHue) {
    EXPECT_EQ(Readable(Color::BLACK, Color::BLACK, 4.5), Color::WHITE);
    Color const red = Readable({0.5F, 0, 0}, Color::BLACK, 4.5);
    EXPECT_EQ(red, Color(1, 0.5F, 0.5F));
    Color const blue = Readable(Color::BLUE, Color::BLACK, 4.5);
    EXPECT_GT(blue.b, blue.r);
    EXPECT_FLOAT_EQ(blue.r, blue.g);
}

TEST(Contrast, ReadableReachesTheContrastOnEveryGround) {
    RandomColors colors;
    for (int i = 0; i < 20000; ++i) {
        Color const ground = colors.Next();
        Color const ink = colors.Next(i % 3 == 0 ? 0.4F : 1.0F);
        // Black or white has 4.58 on any ground.
        ASSERT_GE(ContrastRatio(Readable(ink, ground, 4.5), ground), 4.5 - 1e-6)
            << ink.r << " " << ink.g << " " << ink.b << " on " << ground.r << " " << ground.g << " "
            << ground.b;
    }
}

TEST(Contrast, SubduedStaysCloseToEveryGround) {
    RandomColors colors;
    for (int i = 0; i < 20000; ++i) {
        Color const ground = colors.Next();
        Color const fill = colors.Next(i % 3 == 0 ? 0.4F : 1.0F);
        ASSERT_LE(ContrastRatio(Subdued(fill, ground, 1.5), ground), 1.5 + 1e-6);
    }
    EXPECT_EQ(Subdued({0.1F, 0, 0}, Color::BLACK, 1.5), Color(0.1F, 0, 0));
}

TEST(Contrast, ColoursThatAreNoNumbersDoNoHarm) {
    float const nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_GE(ContrastRatio(Readable({nan, 0, 0}, Color::BLACK, 4.5), Color::BLACK), 1);
    EXPECT_GE(ContrastRatio(Subdued({nan, 9, -1}, Color::BLACK, 1.5), Color::BLACK), 1);
}

TEST(Palette, DarkInksAreReadableAndBodiesAreSubdued) {
    Color const ground = GroundOf(Theme::DARK);
    for (int role = 0; role <= static_cast<int>(Role::COUNT); ++role) {
        auto const ink = InkOf(Theme::DARK, static_cast<Role>(role));
        ASSERT_TRUE(ink);
        EXPECT_GE(ContrastRatio(*ink, ground), INK_CONTRAST) << "role " << role;
    }
    EXPECT_LE(ContrastRatio(*BodyFillOf(Theme::DARK, ground), ground), FILL_CONTRAST);
    EXPECT_GT(ContrastRatio(*BodyFillOf(Theme::DARK, ground), ground), 1.1) << "but can be seen";
}

TEST(Palette, PrintHasNoHue) {
    for (int role = 0; role <= static_cast<int>(Role::COUNT); ++role) {
        Color const ink = InkOf(Theme::PRINT, static_cast<Role>(role)).value();
        EXPECT_TRUE(ink.r == ink.g && ink.g == ink.b);
        EXPECT_GE(ContrastRatio(ink, Color::WHITE), INK_CONTRAST);
    }
    EXPECT_EQ(BodyFillOf(Theme::PRINT, Color::YELLOW), Color::YELLOW) << "the ground's";
}

TEST(Palette, LightLeavesColoursToTheReaders) {
    EXPECT_FALSE(InkOf(Theme::LIGHT, Role::WIRE));
    EXPECT_FALSE(BodyFillOf(Theme::LIGHT, Color::WHITE));
}

TEST(Palette, FirstHighlightsDifferAndStandOut) {
    for (Theme const theme : {Theme::LIGHT, Theme::DARK, Theme::PRINT}) {
        std::set<std::tuple<float, float, float>> seen;
        for (std::size_t i = 0; i < 6; ++i) {
            Color const color = HighlightOf(theme, i);
            EXPECT_TRUE(seen.insert({color.r, color.g, color.b}).second);
            EXPECT_GE(ContrastRatio(color, GroundOf(theme)), 3.5) << i;
        }
        EXPECT_EQ(HighlightOf(theme, 6), HighlightOf(theme, 0));
    }
}

}  // namespace
}  // namespace fighost
