// Themes on real designs, where there are any.
#include <gtest/gtest.h>

#include <figk/SettingValue.h>
#include <figrep/Figure.h>
#include <host/ShapeRecorder.h>
#include <host/cli/RunProgram.h>
#include <session/Session.h>
#include <session/look/Contrast.h>
#include <support/Corpus.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <set>

namespace fighost {
namespace {

using dg::Color;
using test::RecordedShape;

std::vector<RecordedShape> ShapesWith(Session const& session, Theme theme) {
    std::vector<RecordedShape> shapes;
    for (SessionSheet const& sheet : session.GetSheets()) {
        ApplyLook(sheet.figure, {theme});
        sheet.figure->UpdateContent();
        auto const recorder = test::Record(sheet.figure);
        shapes.insert(shapes.end(), recorder.shapes.begin(), recorder.shapes.end());
    }
    return shapes;
}

using Channels = std::array<int, 3>;

Channels ChannelsOf(Color const& color) {
    auto const channel = [](float value) { return static_cast<int>(std::lround(value * 255)); };
    return {channel(color.r), channel(color.g), channel(color.b)};
}

/// All colours that any sheet beside the root names, however deep.
std::set<Channels> ColorsInFiles(std::string const& root) {
    std::set<Channels> colors;
    auto const folder = std::filesystem::path(root).parent_path();
    for (auto const& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".kicad_sch") continue;
        std::string const text = test::ReadFile(entry.path());
        for (auto at = text.find("(color "); at != text.npos; at = text.find("(color ", at + 1)) {
            Channels color{};
            if (std::sscanf(text.c_str() + at, "(color %d %d %d", &color[0], &color[1],
                            &color[2]) == 3) {
                colors.insert(color);
            }
        }
    }
    return colors;
}

void ExpectReadable(std::vector<RecordedShape> const& shapes) {
    Color const ground = GroundOf(Theme::DARK);
    for (RecordedShape const& shape : shapes) {
        for (Color const& ink : shape.inks)
            EXPECT_GE(ContrastRatio(ink, ground), INK_CONTRAST) << shape.item << shape.geometry;
        for (Color const& fill : shape.fills) {
            double const contrast = ContrastRatio(fill, ground);
            EXPECT_TRUE(contrast >= INK_CONTRAST || contrast <= FILL_CONTRAST)
                << shape.item << shape.geometry;
        }
    }
}

void ExpectGrey(std::vector<RecordedShape> const& shapes, std::set<Channels> const& chosen) {
    for (RecordedShape const& shape : shapes) {
        for (auto const* colors : {&shape.inks, &shape.fills}) {
            for (Color const& color : *colors) {
                bool const isGrey = color.r == color.g && color.g == color.b;
                EXPECT_TRUE(isGrey || chosen.count(ChannelsOf(color)))
                    << shape.item << shape.geometry;
            }
        }
    }
}

TEST(CorpusLooks, ThemesOfEveryDesignKeepTheirPromises) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        SCOPED_TRACE(root);
        Session::Opened const opened = Session::Open(root);
        ASSERT_TRUE(opened.session);
        auto const geometry = Geometry(ShapesWith(*opened.session, Theme::LIGHT));
        auto const dark = ShapesWith(*opened.session, Theme::DARK);
        EXPECT_TRUE(Geometry(dark) == geometry);
        ExpectReadable(dark);
        auto const print = ShapesWith(*opened.session, Theme::PRINT);
        EXPECT_TRUE(Geometry(print) == geometry);
        ExpectGrey(print, ColorsInFiles(root));
    }
}

}  // namespace
}  // namespace fighost
