// What the tests of the content shadow need.
#pragma once

#include <du/Localizer.h>
#include <figrep/FigureContentShadow.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FitContentOperationStep.h>
#include <figrep/ScaleAction.h>
#include <zvk/ImageView.h>
#include <zvk/Operation.h>
#include <zvk/View2D.h>

#include <vector>

#include "../deltas/DeltaTestSupport.h"

namespace zvmk::testing {

using namespace figrep;           // NOLINT: the tests speak of both sides
using namespace figrep::testing;  // NOLINT
using dg::DPoint3D;
using figrep::Symbol;
using Shadow = FigureContentShadow;

constexpr unsigned CORNERS[] = {Shadow::TOP_LEFT, Shadow::BOTTOM_LEFT, Shadow::TOP_RIGHT,
                                Shadow::BOTTOM_RIGHT};

/// A net round three sides of a box from (10, 20) to (110, 60), and one block on it.
inline figkernel::DesignSource Bracket() {
    auto design = NamedDesign("bracket", 1);
    AddNets(design, {"N"});
    auto& sheet = design.sheets[0];
    sheet.blocks = {BlockWith("U1", {Pin("1", DPoint2D(10, 20), 0)})};
    sheet.wires = {WireOf(0, {10, 20}, {110, 20}), WireOf(0, {110, 20}, {110, 60}),
                   WireOf(0, {110, 60}, {10, 60})};
    return design;
}

inline figkernel::DesignSource UprightWire() {
    auto design = NamedDesign("upright", 1);
    AddNets(design, {"N"});
    design.sheets[0].wires = {WireOf(0, {5, 0}, {5, 40})};
    return design;
}

/// Shows something other than a plane.
class SolidView : public zvk::View {
public:
    SolidView() : View(nullptr, nullptr) {}
    DPoint3D ToScene(DPoint2D const& inWindow) const override { return inWindow; }
    double GetPixelSize() const override { return 1.0; }
};

class FigureContentShadowTest : public ::testing::Test {
protected:
    explicit FigureContentShadowTest(figkernel::DesignSource const& source = Bracket())
        : drawing(source), figure(LoadedFigure(drawing.Sheet())) {
        figure->UpdateContent();
        zvk::SetOperationSink([this](auto const& operation) { recorded.push_back(operation); });
    }
    ~FigureContentShadowTest() override {
        zvk::SetOperationSink(nullptr);
        du::Localizer::ClearCatalogues();
    }

    SmartPtr<Shadow> Make(SmartPtr<zvk::View> const& where) {
        SmartPtr<Shadow> const shadow = new Shadow(where, figure);
        shadow->Display(true);
        figure->SetFigureShadow(shadow);
        return shadow;
    }

    /// A drag with one step, past the view, so that what a pointer can't reach is dragged, too.
    static void DragModel(Shadow& shadow, SmartPtr<zvmu::ModelBase> const& model,
                          DPoint3D const& start, dg::DVec3 const& by) {
        shadow.SetPick(model, start);
        EXPECT_TRUE(shadow.HandleDragStart());
        shadow.SetDragVector(by);
        EXPECT_TRUE(shadow.HandleDragStep());
        EXPECT_TRUE(shadow.HandleDragStop());
    }
    static void DragHandle(Shadow& shadow, unsigned number, dg::DVec3 const& by) {
        auto const handle = shadow.GetHandle(number);
        DragModel(shadow, handle, handle->GetPosition(), by);
    }

    static DPoint3D At(Shadow const& shadow, unsigned number) {
        return shadow.GetHandle(number)->GetPosition();
    }

    /// The one delta that the one step of the one operation recorded put on the figure's list.
    SmartPtr<FigureMoveDelta> RecordedMove() const {
        EXPECT_EQ(recorded.size(), 1u);
        if (recorded.size() != 1) return {};
        EXPECT_EQ(recorded[0]->GetSteps().size(), 1u);
        EXPECT_TRUE(du::DynamicCast<FitContentOperationStep>(recorded[0]->GetSteps().at(0)));
        EXPECT_EQ(figure->GetDeltas().size(), 2u) << "one for the sheet, one for the drag";
        return du::DynamicCast<FigureMoveDelta>(figure->GetDeltas().back());
    }
    void ExpectMoveBy(DPoint2D const& offset) const {
        auto const move = RecordedMove();
        ASSERT_TRUE(move);
        EXPECT_TRUE(move->GetTransforms().empty());
        EXPECT_DOUBLE_EQ(move->GetOffset().x, offset.x);
        EXPECT_DOUBLE_EQ(move->GetOffset().y, offset.y);
    }
    void ExpectScaleBy(double factor, DPoint2D const& about) const {
        auto const move = RecordedMove();
        ASSERT_TRUE(move);
        EXPECT_EQ(move->GetOffset(), DPoint2D());
        ASSERT_EQ(move->GetTransforms().size(), 1u);
        auto const scale = du::DynamicCast<ScaleAction>(move->GetTransforms()[0]);
        ASSERT_TRUE(scale);
        EXPECT_NEAR(scale->GetScale(), factor, 1e-12);
        EXPECT_EQ(scale->GetAbout(), about);
    }

    InstalledDesign drawing;
    SmartPtr<Figure> figure;
    SmartPtr<zvk::Window> window = new zvk::Window();
    SmartPtr<zvk::View2D> view = new zvk::View2D(new zvk::Scene(), window);
    SmartPtr<zvk::View2D> imageView = new zvk::ImageView(nullptr, nullptr);
    std::vector<SmartPtr<zvk::Operation>> recorded;
};

}  // namespace zvmk::testing
