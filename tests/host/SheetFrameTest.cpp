#include <session/SheetFrame.h>

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
