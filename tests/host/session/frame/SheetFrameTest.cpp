#include <session/frame/SheetFrame.h>

#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/TitleBlock.h>
#include <gtest/gtest.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>

#include <host/XmlChecker.h>

namespace fighost {
namespace {

using figrep::SmartPtr;

// A sheet of 200 x 100 mm with a title block of one text at a corner.
class SheetFrameTest : public testing::Test {
protected:
    SheetFrameTest() {
        source.id = source.name = "design";
        source.sheets.resize(1);
        source.sheets[0].id = source.sheets[0].name = "sheet";
    }

    void AddFormat() {
        figkernel::FormatSource format;
        format.width = 200;
        format.height = 100;
        source.sheets[0].format = format;
    }

    void AddTitleBlock(int corner, std::string const& text = "a title") {
        figkernel::TitleBlockSource block;
        block.corner = corner;
        block.offsetX = block.offsetY = 10;
        block.minWidth = 40;
        block.margin = 2;
        figkernel::TitleBlockSectionSource section;
        section.id = 1;
        section.segments.push_back({0, "", true, text});
        section.fontSize = 3;
        section.spacing = 1;
        block.sections.push_back(section);
        source.sheets[0].titleBlock = block;
    }

    SmartPtr<figrep::Figure> Framed() {
        auto const lock = figk::SchematicKernel::GetKernelLock();
        design = figkernel::Build(source, lock).design;
        figrep::KernelToFigureFactory factory;
        SmartPtr<figrep::Figure> const figure = factory.CreateFigure();
        AddSheetFrame(design->GetSheets().at(0), figure);
        return figure;
    }

    figkernel::DesignSource source;
    SmartPtr<figk::Design> design;
};

TEST_F(SheetFrameTest, SheetWithoutAFrameLeavesTheFigureWithoutOne) {
    EXPECT_FALSE(Framed()->GetFormat());
}

TEST_F(SheetFrameTest, NullArgumentsDoNothing) {
    AddSheetFrame(nullptr, nullptr);
    AddSheetFrame(nullptr, Framed());
}

TEST_F(SheetFrameTest, FrameDecidesWhatThePictureShows) {
    AddFormat();
    EXPECT_EQ(PictureBox(Framed()), dg::DBox2D(0, 0, 200, 100));
}

TEST_F(SheetFrameTest, TitleBlockStandsAtEachCorner) {
    AddFormat();
    dg::DBox2D const expected[] = {
        {10, 10, 50, 15}, {150, 10, 190, 15}, {10, 85, 50, 90}, {150, 85, 190, 90}};
    for (int corner = 0; corner < 4; ++corner) {
        AddTitleBlock(corner);
        SmartPtr<figrep::Figure> const figure = Framed();
        EXPECT_EQ(figure->GetFormat()->GetTitleBlock()->GetExtents(), expected[corner]) << corner;
    }
}

TEST_F(SheetFrameTest, TitleBlockGrowsWithItsText) {
    AddFormat();
    AddTitleBlock(1, "a title that needs much more room than forty millimetres");
    SmartPtr<figrep::Figure> const figure = Framed();
    dg::DBox2D const box = figure->GetFormat()->GetTitleBlock()->GetExtents();
    EXPECT_LT(box[0], 150);
    EXPECT_EQ(box[2], 190);
}

TEST_F(SheetFrameTest, TitleBlockKeepsWithinTheSheetWhateverItsText) {
    AddFormat();
    for (int corner = 0; corner < 4; ++corner) {
        AddTitleBlock(corner, std::string(500, 'W') + "\t" + std::string(300, 'M'));
        dg::DBox2D const box = Framed()->GetFormat()->GetTitleBlock()->GetExtents();
        EXPECT_GE(box[0], 10 - 1e-6) << corner;
        EXPECT_LE(box[2], 190 + 1e-6) << corner;
        EXPECT_NEAR(box[2] - box[0], 180, 1e-6) << "all the width that there is";
    }
}

TEST_F(SheetFrameTest, TitleBlockIsNoWiderThanASmallSheet) {
    AddFormat();
    source.sheets[0].format->width = 50;
    AddTitleBlock(1, "title");
    EXPECT_EQ(Framed()->GetFormat()->GetTitleBlock()->GetExtents(), dg::DBox2D(10, 10, 40, 15));
}

TEST_F(SheetFrameTest, TabsDivideARowIntoCells) {
    AddFormat();
    AddTitleBlock(1, "left\tright");
    SvgPainter painter;
    PaintFigure(Framed(), painter);
    test::XmlDocument const document = test::CheckXml(painter.TakeDocument());
    auto const texts = document.Named("text");
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].text, "left");
    EXPECT_EQ(texts[1].text, "right");
}

// A text of its own place, as drawing sheets have them.
class PlacedTextTest : public SheetFrameTest {
protected:
    figkernel::TitleBlockSectionSource& AddPlaced(std::string const& text, double x, double y) {
        if (!source.sheets[0].titleBlock) {
            AddFormat();
            AddTitleBlock(1);
            source.sheets[0].titleBlock->sections.clear();
        }
        figkernel::TitleBlockSectionSource section;
        section.id = static_cast<unsigned>(source.sheets[0].titleBlock->sections.size() + 1);
        section.segments.push_back({0, "", true, text});
        section.fontSize = 3;
        section.place.emplace().at = {x, y};
        source.sheets[0].titleBlock->sections.push_back(section);
        return source.sheets[0].titleBlock->sections.back();
    }

    dg::DBox2D Extents() { return Framed()->GetFormat()->GetTitleBlock()->GetExtents(); }
};

TEST_F(PlacedTextTest, StandsAtItsPlaceWithoutAFrame) {
    AddPlaced("text", 100, 50);
    SmartPtr<figrep::Figure> const figure = Framed();
    dg::DBox2D const box = figure->GetFormat()->GetTitleBlock()->GetExtents();
    EXPECT_EQ(box[0], 100);
    EXPECT_NEAR((box[1] + box[3]) / 2, 50, 1e-6) << "the middle of the text";
    SvgPainter painter;
    PaintFigure(figure, painter);
    test::XmlDocument const document = test::CheckXml(painter.TakeDocument());
    EXPECT_EQ(document.Named("text").size(), 1u);
    EXPECT_TRUE(document.Named("path").empty());
}

TEST_F(PlacedTextTest, ALongTextIsWrittenSmaller) {
    auto& section = AddPlaced("a text that has no room", 100, 50);
    dg::DBox2D const free = Extents();
    section.place->greatestWidth = 10;
    dg::DBox2D const narrow = Extents();
    EXPECT_LT(narrow[2] - narrow[0], (free[2] - free[0]) / 2);
    section.place->greatestWidth = 0;
    section.place->greatestHeight = 1.5;
    dg::DBox2D const low = Extents();
    EXPECT_NEAR((low[3] - low[1]) / (free[3] - free[1]), 0.5, 1e-6);
}

TEST_F(PlacedTextTest, TurnsAboutItsPlace) {
    AddPlaced("text", 100, 50).place->angle = 1.5707963267948966;
    dg::DBox2D const box = Extents();
    EXPECT_NEAR((box[0] + box[2]) / 2, 100, 1e-6);
    EXPECT_NEAR(box[1], 50, 1e-6);
}

TEST_F(PlacedTextTest, MovesWithItsFrameAlsoWhenLaidOutLater) {
    AddPlaced("text", 100, 50);
    dg::DBox2D const before = Extents();
    SmartPtr<figrep::Figure> const figure = Framed();
    figure->MoveItem(figure->GetFormat(), 5, 7);
    EXPECT_EQ(figure->GetFormat()->GetTitleBlock()->GetExtents(),
              dg::DBox2D(before[0] + 5, before[1] + 7, before[2] + 5, before[3] + 7));
}

TEST_F(PlacedTextTest, ABlockWithASectionOfNoPlaceIsStacked) {
    AddPlaced("text", 100, 50);
    AddPlaced("other", 100, 60).place.reset();
    EXPECT_EQ(Extents()[2], 190) << "at the corner of the sheet";
}

TEST_F(SheetFrameTest, TitleBlockMovesWithItsFrame) {
    AddFormat();
    AddTitleBlock(0);
    SmartPtr<figrep::Figure> const figure = Framed();
    figure->GetFormat()->GetTitleBlock()->GetExtents();
    figure->MoveItem(figure->GetFormat(), 5, 7);
    EXPECT_EQ(figure->GetFormat()->GetTitleBlock()->GetExtents(), dg::DBox2D(15, 17, 55, 22));
}

TEST_F(SheetFrameTest, TitleBlockIsPainted) {
    AddFormat();
    AddTitleBlock(0);
    SvgPainter painter;
    PaintFigure(Framed(), painter);
    test::XmlDocument const document = test::CheckXml(painter.TakeDocument());
    ASSERT_EQ(document.Named("text").size(), 1u);
    EXPECT_EQ(document.Named("text")[0].text, "a title");
}

}  // namespace
}  // namespace fighost
