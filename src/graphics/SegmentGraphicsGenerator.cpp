#include <figrep/SegmentGraphicsGenerator.h>

#include <attrs/FillAttr.h>
#include <figrep/ArrowInfo.h>
#include <figrep/CrossingPoint.h>
#include <figrep/Figure.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/UnroutedConnection.h>
#include <zv2d/Attributes.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace figrep {

namespace {

constexpr int TRANSPARENT = -1;  // in place of a run

bool IsTransparent(Segment const& segment) {
    float transparency = 0.0F;
    segment.GetFloatSetting(Setting::TRANSPARENCY, transparency);
    return transparency >= 1.0F;
}

/// The segment above in the same run's course; null where the course begins.
SmartPtr<Segment> SegmentAbove(Segment const& segment) {
    SmartPtr<ConnectionNode> const above = segment.GetPredecessor();
    if (!above || du::DynamicCast<UnroutedConnection>(above)) return nullptr;
    if (above->GetLeftSuccessor() && above->GetRightSuccessor()) return nullptr;
    return du::DynamicCast<Segment>(above);
}

/// Turns the ends so that `start` is the one nearer to the head.
void FixVertexOrder(Segment const& segment, DPoint2D& start, DPoint2D& end) {
    if (auto const above = du::DynamicCast<Segment>(segment.GetPredecessor())) {
        if (above->Contacts(end)) std::swap(start, end);
        return;
    }
    SmartPtr<ConnectionNode> const left = segment.GetLeftSuccessor();
    SmartPtr<ConnectionNode> const right = segment.GetRightSuccessor();
    if (left && right) return;
    auto const below = du::DynamicCast<Segment>(right ? right : left);
    if (below && below->Contacts(start)) std::swap(start, end);
}

/// Turns two points so that `a` is no further from `reference` along the axis than `b`.
void FixVertexOrder(bool axis, DPoint2D const& reference, DPoint2D& a, DPoint2D& b) {
    if (std::fabs(b[axis] - reference[axis]) < std::fabs(a[axis] - reference[axis])) {
        std::swap(a, b);
    }
}

std::vector<SmartPtr<CrossingPoint>> OrderedCrossingPoints(Segment const& segment,
                                                           DPoint2D const& start) {
    std::vector<SmartPtr<CrossingPoint>> crossings;
    segment.GetCrossingPoints(crossings);
    bool const axis = segment.IsVertical();
    auto const distance = [&](SmartPtr<CrossingPoint> const& crossing) {
        return std::fabs(crossing->GetPosition()[axis] - start[axis]);
    };
    std::stable_sort(crossings.begin(), crossings.end(),
                     [&](auto const& a, auto const& b) { return distance(a) < distance(b); });
    return crossings;
}

SmartPtr<zv2d::Instance> MakeArrow(ArrowInfo const& arrow) {
    DMat33 matrix;
    if (arrow.GetAngle() != 0.0) matrix = DMat33::RotationZ(arrow.GetAngle());
    matrix.SetTranslation(arrow.GetPosition());
    SmartPtr<zv2d::Instance> instance(new zv2d::Instance(arrow.GetArrowDefinition(), matrix));
    instance->SetAttributes(arrow.GetAttributes());
    return instance;
}

bool StrictlyBetween(double value, double a, double b) {
    return std::min(a, b) < value && value < std::max(a, b);
}

}  // namespace

SegmentGraphicsGenerator::SegmentGraphicsGenerator() = default;

SegmentGraphicsGenerator::SegmentGraphicsGenerator(SmartPtr<Figure> const& figure,
                                                   bool includeUnrouted)
    : includeUnrouted_(includeUnrouted), figure_(figure) {}

SegmentGraphicsGenerator::~SegmentGraphicsGenerator() = default;

// The walk.

bool SegmentGraphicsGenerator::Visit(SmartPtr<Figure> const& figure) {
    figure_ = figure;
    return figure && !figure->GetGraphicRegenerationSuspended();
}

void SegmentGraphicsGenerator::Begin(GraphicGroup& group) {
    group.Clear();
    runs_.clear();
    runOfSegment_.clear();
}

bool SegmentGraphicsGenerator::Visit(SmartPtr<SubNet> const& subNet) {
    if (!subNet || !subNet->GetGraphicalUpdateNeeded()) return false;
    Begin(*subNet);
    currentSubNet_ = subNet;
    currentSubHighway_.Reset();
    return true;
}

bool SegmentGraphicsGenerator::Visit(SmartPtr<SubHighway> const& subHighway) {
    if (!subHighway || !subHighway->GetGraphicalUpdateNeeded()) return false;
    Begin(*subHighway);
    currentSubHighway_ = subHighway;
    currentSubNet_.Reset();
    return true;
}

bool SegmentGraphicsGenerator::Visit(SmartPtr<NetSegment> const& segment) {
    if (currentSubNet_ && segment) DrawSegment(segment, true);
    return true;
}

bool SegmentGraphicsGenerator::Visit(SmartPtr<HighwaySegment> const& segment) {
    if (currentSubHighway_ && segment) DrawSegment(segment, false);
    return true;
}

bool SegmentGraphicsGenerator::Visit(SmartPtr<UnroutedConnection> const& connection) {
    if (!connection || (!includeUnrouted_ && !currentSubNet_)) return false;
    connection->Clear();
    Generate(connection);
    return static_cast<bool>(currentSubNet_);
}

void SegmentGraphicsGenerator::VisitComplete(SmartPtr<SubNet> const&) {
    if (!currentSubNet_) return;
    Generate();
    currentSubNet_.Reset();
}

void SegmentGraphicsGenerator::VisitComplete(SmartPtr<SubHighway> const&) {
    if (!currentSubHighway_) return;
    Generate();
    currentSubHighway_.Reset();
}

// Segments.

void SegmentGraphicsGenerator::DrawSegment(SmartPtr<Segment> const& segment, bool withSymbols) {
    segment->Clear();
    DPoint2D start;
    DPoint2D end;
    segment->GetEnds(start, end);
    PickGraphicProxy::Create(segment->GetLock(), segment, start, end);
    int const index = GetRun(segment);
    if (index == TRANSPARENT) return;
    Run& run = runs_[static_cast<std::size_t>(index)];
    FixVertexOrder(*segment, start, end);
    if (run.head == segment) run.vertices.push_back(start);
    if (withSymbols) HandleCrossingPoints(run.vertices, segment, start);
    run.vertices.push_back(end);
    if (withSymbols) AddArrows(segment);
}

int SegmentGraphicsGenerator::GetRun(SmartPtr<Segment> const& segment) {
    // Segments met on the way up, from the one asked for to the one whose run is known.
    std::vector<SmartPtr<Segment>> course;
    int run = TRANSPARENT;
    for (SmartPtr<Segment> s = segment; s; s = SegmentAbove(*s)) {
        auto const known = runOfSegment_.find(s.Get());
        run = known != runOfSegment_.end() ? known->second : TRANSPARENT;
        if (known != runOfSegment_.end()) break;
        if (IsTransparent(*s)) {
            runOfSegment_.emplace(s.Get(), TRANSPARENT);
            break;
        }
        course.push_back(s);
    }
    if (course.empty()) return run;
    if (run == TRANSPARENT) {
        run = static_cast<int>(runs_.size());
        runs_.push_back({course.back(), {}});
    }
    for (SmartPtr<Segment> const& s : course)
        runOfSegment_.emplace(s.Get(), run);
    return run;
}

// Crossings.

void SegmentGraphicsGenerator::HandleCrossingPoints(Vertices& vertices,
                                                    SmartPtr<Segment> const& segment,
                                                    DPoint2D const& start) {
    if (!segment->HasCrossingPoints()) return;
    for (SmartPtr<CrossingPoint> const& crossing : OrderedCrossingPoints(*segment, start)) {
        DPoint2D gapStart;
        DPoint2D gapEnd;
        if (GenerateCrossingPoint(segment, crossing, start, gapStart, gapEnd)) {
            BreakAt(vertices, segment, gapStart, gapEnd);
        }
    }
}

void SegmentGraphicsGenerator::BreakAt(Vertices& vertices, SmartPtr<Segment> const& segment,
                                       DPoint2D const& gapStart, DPoint2D const& gapEnd) {
    bool const axis = segment->IsVertical();
    std::size_t const n = vertices.size();
    bool const beforeLast =
        n >= 2 && StrictlyBetween(gapStart[axis], vertices[n - 2][axis], vertices[n - 1][axis]);
    if (beforeLast) {
        // The gap reaches back past the last corner.
        (axis ? vertices.back().y : vertices.back().x) = gapStart[axis];
    } else {
        vertices.push_back(gapStart);
    }
    Generate(segment, vertices);
    vertices.assign(1, gapEnd);
}

bool SegmentGraphicsGenerator::GenerateCrossingPoint(SmartPtr<Segment> const& segment,
                                                     SmartPtr<CrossingPoint> const& crossing,
                                                     DPoint2D const& start, DPoint2D& gapStart,
                                                     DPoint2D& gapEnd) {
    SmartPtr<zv2d::Definition> const definition(new zv2d::Definition);
    if (!crossing->AddGraphic(segment, definition, gapStart, gapEnd)) return false;
    FixVertexOrder(segment->IsVertical(), start, gapStart, gapEnd);
    AddGraphic(segment, {SmartPtr<zv2d::Instance>(new zv2d::Instance(definition))});
    return true;
}

// Graphics.

SmartPtr<GenericGraphic> SegmentGraphicsGenerator::AddGraphic(
    SmartPtr<Segment> const& segment, std::vector<SmartPtr<zv2d::Instance>> const& instances) {
    SmartPtr<GenericGraphic> graphic =
        GenericGraphic::Create(segment->GetLock(), instances, DBox2D::EMPTY, segment);
    // A new graphic is plain and visible; saying so again would cost four settings.
    if (segment->GetHighlight()) graphic->SetMemberHighlight(true);
    if (!segment->GetVisible()) graphic->SetMemberVisibility(false);
    return graphic;
}

void SegmentGraphicsGenerator::Generate(SmartPtr<Segment> const& segment,
                                        Vertices const& vertices) {
    ConstSmartPtr<zv2d::Attributes> attributes;
    if (ConstSmartPtr<zv2d::LineAttributes> const line = segment->GetLineAttributes()) {
        attributes = zv2d::Attributes::Get(zv2d::Attributes(line));
    }
    SmartPtr<zv2d::Definition> const definition(new zv2d::Definition);
    definition->Add(new zv2d::TexPolyline(vertices, attributes));
    AddGraphic(segment, {SmartPtr<zv2d::Instance>(new zv2d::Instance(definition))});
}

void SegmentGraphicsGenerator::Generate(SmartPtr<Segment> const& segment) {
    DPoint2D start;
    DPoint2D end;
    segment->GetEnds(start, end);
    Generate(segment, {start, end});
}

void SegmentGraphicsGenerator::Generate() {
    for (Run const& run : runs_) {
        if (!run.vertices.empty()) Generate(run.head, run.vertices);
    }
    runs_.clear();
    runOfSegment_.clear();
}

void SegmentGraphicsGenerator::AddArrows(SmartPtr<Segment> const& segment) {
    if (!segment->HasArrows()) return;
    std::vector<ArrowInfo> const arrows = segment->GetArrows();
    std::vector<SmartPtr<zv2d::Instance>> instances;
    for (ArrowInfo const& arrow : arrows)
        instances.push_back(MakeArrow(arrow));
    SmartPtr<GenericGraphic> const graphic = AddGraphic(segment, instances);
    ConstSmartPtr<zv2d::Attributes> const& looks = arrows.front().GetAttributes();
    ConstSmartPtr<attrs::FillAttr> fill;
    if (looks) fill = looks->GetFillAttr();
    using Value = figk::SettingValue<ConstSmartPtr<attrs::FillAttr>>;
    ConstSmartPtr<figk::BaseSettingValue> const value(new Value(fill));
    graphic->AddSetting(ConstSmartPtr<Setting>(new Setting(Setting::FILL_ATTRIBUTES, value,
                                                           figk::Setting::LEVEL_BASE, true)),
                        true);
}

}  // namespace figrep
