#include <dg/Angle.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/Picture.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>
#include <zv2d/Texture.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <string>

namespace {

using namespace zv2d;
using dg::DBox2D;
using dg::DMat33;
using dg::DPoint2D;

constexpr double PI = std::numbers::pi;
DMat33 const IDENTITY;

du::ConstSmartPtr<Attributes> Filled() {
    return Attributes::Get(Attributes(attrs::FillAttr(attrs::FillAttr::SOLID, dg::Color::RED)));
}

du::SmartPtr<CircularArc> Arc(double radius, double start, double end, int style = 0,
                              du::ConstSmartPtr<Attributes> const& attributes = nullptr) {
    return new CircularArc({DPoint2D(0, 0), radius, start, end}, style, attributes);
}

DBox2D Point(double x, double y) {
    return DBox2D(x, y, x, y);
}

void ExpectNear(DBox2D const& a, DBox2D const& b, double tolerance = 1e-9) {
    for (unsigned side = 0; side < 4; ++side)
        EXPECT_NEAR(a[side], b[side], tolerance) << side;
}

TEST(Polyline, WithoutVerticesIsNowhere) {
    TexPolyline const none({});
    EXPECT_TRUE(none.GetExtents().IsEmpty());
    EXPECT_FALSE(none.Overlaps(DBox2D(-1, -1, 1, 1), IDENTITY));
    EXPECT_FALSE(none.ContainedIn(DBox2D(-1, -1, 1, 1), IDENTITY));
}

TEST(Polyline, OfOneVertexIsAPoint) {
    TexPolyline const dot({{1, 2}});
    EXPECT_EQ(dot.GetExtents(), Point(1, 2));
    EXPECT_TRUE(dot.Overlaps(DBox2D(0, 0, 1, 2), IDENTITY));
    EXPECT_FALSE(dot.Overlaps(DBox2D(0, 0, 0.9, 2), IDENTITY));
}

TEST(Polyline, OverlapsOnlyWhereItRuns) {
    TexPolyline const diagonal({{0, 0}, {10, 10}});
    EXPECT_TRUE(diagonal.Overlaps(DBox2D(4, 4, 5, 6), IDENTITY));
    EXPECT_FALSE(diagonal.Overlaps(DBox2D(6, 1, 9, 4), IDENTITY));
    EXPECT_TRUE(diagonal.Overlaps(Point(3, 3), IDENTITY));
    EXPECT_TRUE(diagonal.ContainedIn(DBox2D(0, 0, 10, 10), IDENTITY));
    EXPECT_FALSE(diagonal.ContainedIn(DBox2D(0, 0, 10, 9.9), IDENTITY));
}

TEST(Polyline, ClosingAddsTheLastSide) {
    std::vector<DPoint2D> const corners{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    DBox2D const onLastSide(-1, 4, 1, 5);
    EXPECT_FALSE(TexPolyline(corners).Overlaps(onLastSide, IDENTITY));
    EXPECT_TRUE(TexPolyline(corners, nullptr, true).Overlaps(onLastSide, IDENTITY));
}

TEST(Polyline, TheInsideCountsWhenItIsFilled) {
    std::vector<DPoint2D> const corners{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    DBox2D const inside(4, 4, 5, 5);
    EXPECT_FALSE(TexPolyline(corners, nullptr, true).Overlaps(inside, IDENTITY));
    EXPECT_TRUE(TexPolyline(corners, Filled(), true).Overlaps(inside, IDENTITY));
    EXPECT_FALSE(TexPolyline(corners, Filled(), true).Overlaps(DBox2D(11, 4, 12, 5), IDENTITY));
    auto const unfilled = Attributes::Get(Attributes(attrs::FillAttr()));
    EXPECT_FALSE(TexPolyline(corners, unfilled, true).Overlaps(inside, IDENTITY));
}

TEST(Arc, HasTheBoxOfTheArcAndNotOfTheCircle) {
    ExpectNear(Arc(2, 0, PI / 2)->GetExtents(), DBox2D(0, 0, 2, 2));
    ExpectNear(Arc(2, PI / 4, 3 * PI / 4)->GetExtents(),
               DBox2D(-std::sqrt(2.0), std::sqrt(2.0), std::sqrt(2.0), 2));
}

TEST(Arc, StretchedHasTheBoxOfTheEllipse) {
    ExpectNear(Arc(1, 0, dg::TWO_PI)->GetExtents(DMat33::Scale(3, 0.5)), DBox2D(-3, -0.5, 3, 0.5));
    DMat33 const mirrored = DMat33::Mirror(false);
    ExpectNear(Arc(2, 0, PI / 2)->GetExtents(mirrored), DBox2D(-2, 0, 0, 2));
}

TEST(Arc, OverlapsOnlyWhereItRuns) {
    auto const quarter = Arc(10, 0, PI / 2);
    EXPECT_TRUE(quarter->Overlaps(DBox2D(7, 7, 8, 8), IDENTITY));
    EXPECT_FALSE(quarter->Overlaps(DBox2D(1, 1, 5, 5), IDENTITY));
    EXPECT_FALSE(quarter->Overlaps(DBox2D(-8, -8, -7, -7), IDENTITY));
    EXPECT_TRUE(quarter->Overlaps(DBox2D(-8, 7, -7, 8), DMat33::Mirror(false)));
}

TEST(Arc, TheInsideCountsWhenItIsFilled) {
    DBox2D const small(-0.1, -0.1, 0.1, 0.1);
    EXPECT_FALSE(Arc(10, 0, dg::TWO_PI)->Overlaps(small, IDENTITY));
    EXPECT_TRUE(Arc(10, 0, dg::TWO_PI, 0, Filled())->Overlaps(small, IDENTITY));
    // A filled arc ends at its chord, a sector at the centre.
    DBox2D const nearCentre(1, 1, 1.5, 1.5);
    EXPECT_FALSE(Arc(10, 0, PI / 2, CircularArc::OPEN, Filled())->Overlaps(nearCentre, IDENTITY));
    EXPECT_TRUE(Arc(10, 0, PI / 2, CircularArc::SECTOR, Filled())->Overlaps(nearCentre, IDENTITY));
    DBox2D const beyondChord(6, 6, 6.5, 6.5);
    EXPECT_TRUE(Arc(10, 0, PI / 2, CircularArc::OPEN, Filled())->Overlaps(beyondChord, IDENTITY));
}

/// Compares boxes and overlaps with those of many points along the shape.
TEST(Arc, AgreesWithItsPointsUnderRandomMatrices) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> any(-3, 3);
    for (int round = 0; round < 2000; ++round) {
        DMat33 m = DMat33::Linear(any(random), any(random), any(random), any(random));
        m.SetTranslation(DPoint2D(any(random), any(random)));
        dg::CircularArc<double, 2> const shape(DPoint2D(any(random), any(random)),
                                               std::fabs(any(random)), any(random), any(random));
        CircularArc const arc(shape, 0);
        DBox2D sampled;
        DBox2D const probe(DPoint2D(any(random), any(random)), DPoint2D(any(random), any(random)));
        bool touches = false;
        constexpr int STEPS = 400;
        for (int i = 0; i <= STEPS; ++i) {
            double const angle = shape.GetStartAngle() + shape.GetSweep() * i / STEPS;
            DPoint2D const p = m * shape.GetPoint(angle);
            sampled.Enclose(p);
            touches = touches || probe.Contains(p);
        }
        ExpectNear(arc.GetExtents(m), sampled, 2e-3);
        if (touches) {
            EXPECT_TRUE(arc.Overlaps(probe, m)) << round;
        } else if (arc.Overlaps(probe, m)) {
            // Between two of the sampled points the arc may just touch the box.
            EXPECT_TRUE(sampled.Intersects(probe, 2e-3)) << round;
        }
    }
}

TEST(TextEntity, BoxFollowsAlignment) {
    auto const attributes = Attributes::Get(Attributes(attrs::TextAttr(du::Symbol(), 2.0F)));
    double const width = 3 * 2.0 * Text::MEAN_WIDTH;
    auto const box = [&](Text::Alignment alignment) {
        return Text(DPoint2D(10, 20), L"abc", false, alignment, false, attributes).GetExtents();
    };
    ExpectNear(box(Text::BOTTOM_LEFT), DBox2D(10, 20, 10 + width, 22));
    ExpectNear(box(Text::MIDDLE_CENTRE), DBox2D(10 - width / 2, 19, 10 + width / 2, 21));
    ExpectNear(box(Text::TOP_RIGHT), DBox2D(10 - width, 18, 10, 20));
}

TEST(TextEntity, MarkupTakesNoRoom) {
    auto const width = [](wchar_t const* text, bool markup) {
        return Text(DPoint2D(), text, false, Text::BOTTOM_LEFT, markup).GetExtents().Size().x;
    };
    EXPECT_EQ(width(L"~{CS}_{1}", true), width(L"CS1", true));
    EXPECT_GT(width(L"~{CS}", false), width(L"CS", false));
    EXPECT_EQ(width(L"a}~", true), width(L"abc", true));  // nothing that opens a group
}

TEST(TextEntity, LinesStandAboveEachOther) {
    Text const two(DPoint2D(), L"a\nbcd", false, Text::BOTTOM_LEFT, false);
    Text const one(DPoint2D(), L"bcd", false, Text::BOTTOM_LEFT, false);
    EXPECT_EQ(two.GetExtents().Size().x, one.GetExtents().Size().x);
    EXPECT_NEAR(two.GetExtents().Size().y, one.GetExtents().Size().y * (1 + Text::LINE_PITCH),
                1e-9);
}

TEST(TextEntity, ASetBoxReplacesTheEstimate) {
    Text text(DPoint2D(), L"abc", true, Text::BOTTOM_CENTRE, false);
    text.SetBox(DBox2D(-4, 0, 4, 2.54));
    EXPECT_EQ(text.GetExtents(), DBox2D(-4, 0, 4, 2.54));
    EXPECT_TRUE(text.Overlaps(DBox2D(0, 1, 0.1, 1.1), IDENTITY));
    EXPECT_FALSE(text.Overlaps(DBox2D(5, 1, 5.1, 1.1), IDENTITY));
}

TEST(PictureEntity, IsItsBox) {
    Picture const picture(DBox2D(0, 0, 4, 2), "image/png", nullptr);
    EXPECT_TRUE(picture.Overlaps(Point(2, 1), IDENTITY));
    DMat33 const turned = DMat33::RotationZ(PI / 2);
    EXPECT_EQ(picture.GetExtents(turned), DBox2D(-2, 0, 0, 4));
    EXPECT_FALSE(picture.Overlaps(Point(2, 1), turned));
}

TEST(EntityVisitor, SeesEachClass) {
    struct Names : EntityVisitor {
        void Visit(TexPolyline const&) override { seen += "line "; }
        void Visit(CircularArc const&) override { seen += "arc "; }
        void Visit(Text const&) override { seen += "text "; }
        void Visit(Picture const&) override { seen += "picture "; }
        std::string seen;
    } names;
    Definition definition;
    definition.Add(new TexPolyline({}));
    definition.Add(Arc(1, 0, 1));
    definition.Add(new Text(DPoint2D(), L"", false, Text::BOTTOM_LEFT, false));
    definition.Add(nullptr);
    definition.Add(new Picture(DBox2D(), "", nullptr));
    for (auto const& entity : definition)
        entity->Accept(names);
    EXPECT_EQ(names.seen, "line arc text picture ");
}

TEST(Instance, OfAnEmptyDefinitionHasNoShape) {
    Instance const empty(new Definition);
    EXPECT_EQ(empty.GetExtents(), DBox2D::EMPTY);
    EXPECT_FALSE(empty.Overlaps(DBox2D(-1, -1, 1, 1)));
    EXPECT_FALSE(empty.ContainedIn(DBox2D(-1, -1, 1, 1)));
    Instance const none(nullptr);
    EXPECT_EQ(none.GetExtents(), DBox2D::EMPTY);
    EXPECT_FALSE(none.Overlaps(DPoint2D()));
}

TEST(Instance, TransformsChangeTheMatrixAlone) {
    du::SmartPtr<Definition> const definition(new Definition);
    definition->Add(new TexPolyline({{0, 0}, {2, 1}}));
    Instance original(definition);
    Instance copy(original);
    copy.Move(10, 0);
    copy.Rotate(DPoint2D(10, 0), PI / 2);
    EXPECT_EQ(copy.GetExtents(), DBox2D(9, 0, 10, 2));
    copy.Scale(DPoint2D(10, 0), 2);
    EXPECT_EQ(copy.GetExtents(), DBox2D(8, 0, 10, 4));
    copy.Mirror(DPoint2D(10, 0), false);
    EXPECT_EQ(copy.GetExtents(), DBox2D(10, 0, 12, 4));
    copy.Mirror(DPoint2D(10, 1), true);
    EXPECT_EQ(copy.GetExtents(), DBox2D(10, -2, 12, 2));
    EXPECT_EQ(original.GetExtents(), DBox2D(0, 0, 2, 1));
    EXPECT_EQ(copy.GetDefinition(), original.GetDefinition());
}

TEST(Instance, BoxUnderATurnIsThatOfTheShape) {
    du::SmartPtr<Definition> const definition(new Definition);
    definition->Add(new TexPolyline({{-1, -1}, {1, 1}}));
    Instance turned(definition);
    turned.Rotate(DPoint2D(), PI / 4);
    ExpectNear(turned.GetExtents(), DBox2D(0, -std::sqrt(2.0), 0, std::sqrt(2.0)));
}

TEST(Attributes, EqualOnesAreOneObject) {
    LineAttributes const line(1, 2, LineStyleList::GetDefault(), 0.5F, 3, 0, 3, dg::Color::RED,
                              dg::Color::BLACK);
    auto const a = Attributes::Get(Attributes(line));
    auto const b = Attributes::Get(Attributes(LineAttributes(line)));
    EXPECT_EQ(a, b);
    EXPECT_EQ(Attributes::Get(*a), a);
    LineAttributes const other(1, 2, LineStyleList::GetDefault(), 0.6F, 3, 0, 3, dg::Color::RED,
                               dg::Color::BLACK);
    EXPECT_FALSE(Attributes::Get(Attributes(other)) == a);
}

TEST(Attributes, InternedOnesGoWithTheirLastHolder) {
    auto const before = du::RefCounted::LiveCount();
    {
        auto const held = Attributes::Get(Attributes(attrs::TextAttr(du::Symbol("font-x"), 9)));
        EXPECT_EQ(held->GetTextAttr()->GetHeight(), 9);
        EXPECT_GT(du::RefCounted::LiveCount(), before);
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST(Attributes, MissingPartsAreNull) {
    Attributes const text(attrs::TextAttr(du::Symbol(), 1));
    EXPECT_FALSE(text.GetLineAttributes());
    EXPECT_FALSE(text.GetFillAttr());
    EXPECT_FALSE(text.IsFilled());
    EXPECT_EQ(Attributes(LineAttributes()).GetTextAttr(), nullptr);
}

TEST(LineAttributes, KeepFourBitsWithTheirSign) {
    LineAttributes const line(1, 2, nullptr, 0, 9, 0, 19, dg::Color::BLACK, dg::Color::BLACK);
    EXPECT_EQ(line.GetWeightKind(), -7);
    EXPECT_EQ(line.GetPatternScaleKind(), 3);
    EXPECT_EQ(line.GetLineStyle(), LineStyleList::GetDefault());
}

TEST(LineAttributes, DefaultIsSolidWithoutWidth) {
    LineAttributes const line;
    EXPECT_EQ(line, LineAttributes(1, 2, LineStyleList::GetDefault(), 0, 3, 0, 3, dg::Color::BLACK,
                                   dg::Color::BLACK, nullptr));
}

TEST(LineStyleList, FindsStylesByIndexAndName) {
    EXPECT_TRUE(LineStyleList::GetDefault()->GetPattern().empty());
    for (int i = 0; i < LineStyleList::COUNT; ++i) {
        auto const style = LineStyleList::Get(i);
        EXPECT_EQ(style->GetIndex(), i);
        EXPECT_EQ(LineStyleList::Find(style->GetName()), style);
        EXPECT_EQ(style->GetPattern().size() % 2, 0u);
    }
    EXPECT_EQ(LineStyleList::Get(99), LineStyleList::GetDefault());
    EXPECT_EQ(LineStyleList::Get(-1), LineStyleList::GetDefault());
    EXPECT_FALSE(LineStyleList::Find(du::Symbol("no such style")));
}

TEST(TextureList, EqualTexturesExistOnce) {
    TextureList list;
    du::ConstSmartPtr<Texture> const one(new Texture(du::Symbol("hatch"), 2));
    du::ConstSmartPtr<Texture> const same(new Texture(du::Symbol("hatch"), 2));
    EXPECT_FALSE(list.FindTexture(one, false));
    EXPECT_EQ(list.FindTexture(one, true), one);
    EXPECT_EQ(list.FindTexture(same, true), one);
    EXPECT_FALSE(list.FindTexture(nullptr, true));
}

}  // namespace
