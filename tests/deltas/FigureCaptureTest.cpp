#include <figk/AbstractDeltaGenerator.h>
#include <figk/Format.h>
#include <figk/TitleBlock.h>
#include <figrep/Format.h>
#include <figrep/PublishTitleBlockDelta.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>

#include "DeltaTestSupport.h"

namespace figrep::testing {
namespace {

TEST(FigureCapture, FigureWithoutATitleBlockEndsWithItsLastDelta) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    Strings const expected{"content_version=int 1",
                           "show_grid=false",
                           "design {",
                           "filename='wired'",
                           "id_prefix='" + drawing.design->GetIdPrefix().GetString() + "'",
                           "}",
                           "component {",
                           "action=int 0",
                           "type='sheet_delta'",
                           "id='" + drawing.Sheet()->GetId().GetString() + "'",
                           "sheet='" + drawing.Sheet()->GetId().GetString() + "'",
                           "design_id='" + drawing.design->GetId().GetString() + "'",
                           "}"};
    EXPECT_EQ(WrittenFigure(figure), expected);
    figure->Receive(SmartPtr<Format>(new Format(figure->GetLock(), nullptr)));
    EXPECT_EQ(WrittenFigure(figure), expected);
}

TEST(FigureCapture, WithoutDeltasWritesPropertiesAndDesignsOnly) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    SmartPtr<Figure> const figure = new Figure();
    figure->Receive(drawing.design);
    figure->SetFormatGridOn(true);
    EXPECT_EQ(WrittenFigure(figure),
              (Strings{"content_version=int 1", "show_grid=true", "design {", "filename='wired'",
                       "id_prefix='" + drawing.design->GetIdPrefix().GetString() + "'", "}"}));
    figure->CaptureContent(nullptr);
}

TEST(FigureCapture, FailedDeltasAreWrittenToo) {
    SmartPtr<Figure> const figure = new Figure();
    figure->AddAndApplyDelta(new PublishTitleBlockDelta({}), false, false);
    EXPECT_TRUE(figure->HasDeltaFailures());
    EXPECT_EQ(WrittenFigure(figure).size(), 6u);
}

TEST(FigureCapture, GeneratorsMayMakeNulls) {
    class Nulls : public figk::AbstractDeltaGenerator {
    public:
        void Generate() override { deltas = {nullptr, new PublishTitleBlockDelta({}), nullptr}; }
    };
    SmartPtr<Figure> const figure = new Figure();
    SmartPtr<Nulls> const nulls = new Nulls();
    figure->GenerateDeltas(*nulls);
    EXPECT_EQ(figure->GetDeltas().size(), 1u);
    EXPECT_EQ(WrittenFigure(figure).size(), 6u);
}

TEST(FigureCapture, TitleBlockWithoutSectionsIsWrittenAllTheSame) {
    SmartPtr<Figure> const figure = new Figure();
    figure->Receive(SmartPtr<Format>(new Format(figure->GetLock(), nullptr)));
    figure->Receive(SmartPtr<TitleBlock>(new TitleBlock(figure->GetLock(), nullptr, nullptr)));
    EXPECT_EQ(WrittenFigure(figure),
              (Strings{"content_version=int 1", "show_grid=false", "component {", "action=int 3",
                       "type='publish_title_block_delta'", "}"}));
}

TEST(FigureCapture, KeysHaveTheirTexts) {
    EXPECT_EQ(Figure::s_figure_content.GetString(), "content");
    EXPECT_EQ(Figure::s_figure_component.GetString(), "component");
    EXPECT_EQ(Figure::s_design_name.GetString(), "filename");
}

}  // namespace
}  // namespace figrep::testing
