#include <session/look/SheetLook.h>

#include <figk/SettingValue.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/Setting.h>
#include <figrep/SubNet.h>
#include <gtest/gtest.h>
#include <host/ShapeRecorder.h>
#include <session/Session.h>
#include <session/look/Contrast.h>
#include <support/LiveObjects.h>

#include <algorithm>
#include <set>
#include <tuple>

namespace fighost {
namespace {

using dg::Color;
using figrep::SmartPtr;
using test::Geometry;
using test::Record;
using test::RecordedShape;

std::unique_ptr<Session> OpenExample(SheetLook const& look = {}) {
    SessionOptions options;
    options.look = look;
    return Session::Open(FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch",
                         options)
        .session;
}

std::vector<RecordedShape> ShapesOf(Session const& session) {
    std::vector<RecordedShape> shapes;
    for (SessionSheet const& sheet : session.GetSheets()) {
        auto const recorder = Record(sheet.figure);
        shapes.insert(shapes.end(), recorder.shapes.begin(), recorder.shapes.end());
    }
    return shapes;
}

std::vector<std::tuple<float, float, float, float>> ColorsOf(
    std::vector<RecordedShape> const& shapes) {
    std::vector<std::tuple<float, float, float, float>> colors;
    for (RecordedShape const& shape : shapes) {
        for (auto const* list : {&shape.inks, &shape.fills}) {
            for (Color const& color : *list)
                colors.push_back({color.r, color.g, color.b, color.a});
        }
    }
    return colors;
}

void GiveLook(Session const& session, SheetLook const& look) {
    for (SessionSheet const& sheet : session.GetSheets()) {
        ApplyLook(sheet.figure, look);
        sheet.figure->UpdateContent();
    }
}

figrep::ConstSmartPtr<figrep::Setting> ColorSetting(figrep::Setting::RepKey key,
                                                    Color const& color) {
    SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<Color>(color));
    return new figrep::Setting(key, value, figk::Setting::LEVEL_FIGURE, true);
}

bool IsOfFrame(RecordedShape const& shape) {
    return shape.item.rfind("Format ", 0) == 0 || shape.item.rfind("TitleBlock ", 0) == 0;
}

// The look of the sheet "Controller", which has all kinds of items.
class SheetLookTest : public testing::Test {
protected:
    SheetLookTest() : session(OpenExample()) {}

    SmartPtr<figrep::Figure> const& Controller() const {
        return session->FindSheets("Controller").at(0)->figure;
    }

    std::unique_ptr<Session> session;
};

class ThemeTest : public SheetLookTest, public testing::WithParamInterface<Theme> {};

TEST(SheetLook, NullFigureIsLeftAlone) {
    ApplyLook(nullptr, {});
}

TEST_F(SheetLookTest, ThemesChangeNothingButColours) {
    auto const light = ShapesOf(*session);
    ASSERT_GT(light.size(), 500u);
    for (Theme const theme : {Theme::DARK, Theme::PRINT}) {
        GiveLook(*session, {theme});
        auto const themed = ShapesOf(*session);
        EXPECT_EQ(Geometry(light), Geometry(themed));
        EXPECT_NE(ColorsOf(light), ColorsOf(themed));
    }
}

TEST_F(SheetLookTest, DarkThenLightLooksAsBefore) {
    auto const before = ColorsOf(ShapesOf(*session));
    GiveLook(*session, {Theme::DARK, Color::BLACK, false});
    ShapesOf(*session);
    GiveLook(*session, {});
    EXPECT_EQ(ColorsOf(ShapesOf(*session)), before);
}

TEST_F(SheetLookTest, LookOfASessionIsThatGivenLater) {
    auto const fromTheStart = OpenExample({Theme::DARK});
    GiveLook(*session, {Theme::DARK});
    EXPECT_EQ(ColorsOf(ShapesOf(*session)), ColorsOf(ShapesOf(*fromTheStart)));
}

TEST_F(SheetLookTest, GivingALookTwiceIsGivingItOnce) {
    GiveLook(*session, {Theme::DARK});
    auto const once = ColorsOf(ShapesOf(*session));
    GiveLook(*session, {Theme::DARK});
    EXPECT_EQ(ColorsOf(ShapesOf(*session)), once);
}

TEST_F(SheetLookTest, PrintHasBlackGreyAndWhiteAndWhatTheFileChose) {
    GiveLook(*session, {Theme::PRINT});
    std::set<std::tuple<float, float, float>> colors;
    for (auto const& [r, g, b, a] : ColorsOf(ShapesOf(*session))) {
        if (r != g || g != b) colors.insert({r, g, b});
    }
    // The files give the symbols of sheets a fill of their own.
    EXPECT_EQ(colors, (std::set<std::tuple<float, float, float>>{{1, 1, 225 / 255.0F}}));
}

TEST_F(SheetLookTest, BodiesInPrintHaveTheColourOfTheGround) {
    GiveLook(*session, {Theme::PRINT, Color::YELLOW});
    std::set<std::tuple<float, float, float>> fills;
    for (RecordedShape const& shape : Record(Controller()).shapes) {
        bool const isBlock = shape.item.rfind("BlockInstance", 0) == 0;
        for (Color const& fill : shape.fills) {
            if (isBlock && !(fill == Color::BLACK)) fills.insert({fill.r, fill.g, fill.b});
        }
    }
    EXPECT_EQ(fills, (std::set<std::tuple<float, float, float>>{{1, 1, 0}}));
}

// What is painted over the ground is either ink that stands out or an area that stays behind.
TEST_F(SheetLookTest, EveryColourOfTheDarkThemeSuitsTheGround) {
    for (Color const& ground : {GroundOf(Theme::DARK), Color::BLACK, Color(0.2F, 0.2F, 0.2F)}) {
        GiveLook(*session, {Theme::DARK, ground});
        for (RecordedShape const& shape : ShapesOf(*session)) {
            for (Color const& ink : shape.inks)
                ASSERT_GE(ContrastRatio(ink, ground), INK_CONTRAST) << shape.item;
            for (Color const& fill : shape.fills) {
                double const contrast = ContrastRatio(fill, ground);
                ASSERT_TRUE(contrast >= INK_CONTRAST || contrast <= FILL_CONTRAST) << shape.item;
            }
        }
    }
}

TEST_F(SheetLookTest, GroundIsThatOfTheThemeUnlessAnotherIsChosen) {
    GiveLook(*session, {Theme::DARK});
    EXPECT_EQ(Record(Controller()).sheet.background, GroundOf(Theme::DARK));
    GiveLook(*session, {Theme::DARK, Color::BLUE});
    EXPECT_EQ(Record(Controller()).sheet.background, Color::BLUE);
    EXPECT_TRUE(Record(Controller()).sheet.paintBackground);
    GiveLook(*session, {Theme::DARK, Color(1, 1, 1, 0)});
    EXPECT_FALSE(Record(Controller()).sheet.paintBackground);
}

TEST_F(SheetLookTest, TitleBlockIsFilledWithTheGround) {
    for (Color const& ground : {Color::YELLOW, GroundOf(Theme::DARK)}) {
        GiveLook(*session, {Theme::DARK, ground});
        std::vector<Color> fills;
        for (RecordedShape const& shape : Record(Controller()).shapes) {
            if (!IsOfFrame(shape)) continue;
            fills.insert(fills.end(), shape.fills.begin(), shape.fills.end());
        }
        EXPECT_EQ(fills, std::vector<Color>{ground});
    }
}

TEST_F(SheetLookTest, UsersGroundWinsAndTheInksSuitIt) {
    Controller()->AddSetting(ColorSetting(figrep::Setting::BACKGROUND_COLOR, Color::WHITE), false);
    GiveLook(*session, {Theme::DARK});
    auto const recorder = Record(Controller());
    EXPECT_EQ(recorder.sheet.background, Color::WHITE);
    for (RecordedShape const& shape : recorder.shapes) {
        for (Color const& ink : shape.inks)
            ASSERT_GE(ContrastRatio(ink, Color::WHITE), INK_CONTRAST) << shape.item;
    }
}

// Hands the first item of each kind to a function.
template <typename Item>
class FirstItem : public figrep::AbstractFigureVisitor {
public:
    bool Visit(SmartPtr<Item> const& item) override {
        if (!found) found = item;
        return true;
    }
    SmartPtr<Item> found;
};

template <typename Item>
SmartPtr<Item> FirstOf(SmartPtr<figrep::Figure> const& figure) {
    FirstItem<Item> visitor;
    figure->Accept(visitor);
    return visitor.found;
}

TEST_P(ThemeTest, UsersColourOfAnItemWins) {
    Color const color(0.25F, 0.5F, 0.75F);
    auto const setting = ColorSetting(figrep::Setting::COLOR, color);
    SmartPtr<figrep::AbstractFigureItem> const items[] = {
        FirstOf<figrep::BlockInstance>(Controller()), FirstOf<figrep::SubNet>(Controller()),
        Controller()->GetFormat()};
    for (auto const& item : items) {
        ASSERT_TRUE(item);
        Controller()->AddItemSetting(item, setting, false);
    }
    GiveLook(*session, {GetParam()});
    std::size_t seen = 0;
    for (RecordedShape const& shape : Record(Controller()).shapes) {
        auto const isOf = [&](SmartPtr<figrep::AbstractFigureItem> const& item) {
            return shape.item.find(item->GetId().GetString()) != std::string::npos;
        };
        if (!isOf(items[0]) && !isOf(items[1]) && !IsOfFrame(shape)) continue;
        for (Color const& ink : shape.inks) {
            EXPECT_EQ(ink, color) << shape.item << " " << shape.geometry;
            ++seen;
        }
    }
    EXPECT_GT(seen, 30u);
}

TEST_P(ThemeTest, UsersColourOfTheFigureWins) {
    Color const color(0.25F, 0.5F, 0.75F);
    Controller()->AddSetting(ColorSetting(figrep::Setting::COLOR, color), false);
    GiveLook(*session, {GetParam()});
    for (RecordedShape const& shape : Record(Controller()).shapes) {
        for (Color const& ink : shape.inks)
            ASSERT_EQ(ink, color) << shape.item;
    }
}

TEST_P(ThemeTest, WithoutFrameNothingElseIsMissing) {
    GiveLook(*session, {GetParam()});
    auto const framed = Record(Controller());
    GiveLook(*session, {GetParam(), {}, false});
    auto const bare = Record(Controller());
    std::vector<RecordedShape> content;
    std::copy_if(framed.shapes.begin(), framed.shapes.end(), std::back_inserter(content),
                 [](RecordedShape const& shape) { return !IsOfFrame(shape); });
    EXPECT_LT(content.size(), framed.shapes.size());
    EXPECT_EQ(Geometry(bare.shapes), Geometry(content));
    EXPECT_EQ(ColorsOf(bare.shapes), ColorsOf(content));
    EXPECT_EQ(bare.sheet.box, framed.sheet.box);
    GiveLook(*session, {GetParam()});
    EXPECT_EQ(Geometry(Record(Controller()).shapes), Geometry(framed.shapes));
}

TEST_P(ThemeTest, LookIsNoChangeOfTheFigure) {
    Controller()->ResetHasChanged();
    GiveLook(*session, {GetParam()});
    EXPECT_FALSE(Controller()->HasChanged());
    Controller()->AddSetting(ColorSetting(figrep::Setting::COLOR, Color::RED), false);
    GiveLook(*session, {GetParam()});
    EXPECT_TRUE(Controller()->HasChanged());
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemeTest,
                         testing::Values(Theme::LIGHT, Theme::DARK, Theme::PRINT));

}  // namespace
}  // namespace fighost
