// Crossings, arrows, pictures and extents of a figure.
#include <figrep/ArrowPatternGenerator.h>
#include <figrep/CalcFigureExtentsVisitor.h>
#include <figrep/CrossingPointsVisitor.h>
#include <figrep/Figure.h>
#include <figrep/FigureContentShadow.h>
#include <figrep/SegmentGraphicsGenerator.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

namespace {

template <typename Wire>
std::vector<SmartPtr<Wire>> Marked(std::vector<SmartPtr<Wire>> const& wires) {
    std::vector<SmartPtr<Wire>> marked;
    for (auto const& wire : wires) {
        if (wire->GetGraphicalUpdateNeeded()) marked.push_back(wire);
    }
    return marked;
}

template <typename Wire>
void Draw(std::vector<SmartPtr<Wire>> const& wires, SegmentGraphicsGenerator& generator) {
    for (auto const& wire : wires) {
        wire->Accept(generator);
        wire->SetGraphicalUpdateNeeded(false);
    }
}

}  // namespace

void Figure::ProcessNewContent() {
    zvk::WriteGuard guard(GetLock());
    Accept(*crossingPoints_);
    UpdateArrows();
}

// Only marked sub-nets can need arrows: whatever changes a style or a course marks them.
void Figure::UpdateArrows() {
    arrowPatterns_->ForgetChanged();
    for (auto const& subNet : Marked(subNets_))
        subNet->Accept(*arrowPatterns_);
}

// Wires may have come in, been moved or been given another style since the last delta; each of
// these marks the wire.
void Figure::UpdateContent() {
    zvk::WriteGuard guard(GetLock());
    if (!loaded_) return;
    for (auto const& subHighway : Marked(subHighways_))
        subHighway->Accept(*crossingPoints_);
    for (auto const& subNet : Marked(subNets_))
        subNet->Accept(*crossingPoints_);
    UpdateArrows();
    crossingPoints_->Update();
    DrawWires();
}

// Only the marked wires are visited: those of a small change in a large figure are few.
void Figure::DrawWires() {
    SmartPtr<Figure> const self(this);
    SegmentGraphicsGenerator generator;
    if (generator.Visit(self)) {
        Draw(Marked(subHighways_), generator);
        Draw(Marked(subNets_), generator);
    }
    generator.VisitComplete(self);
}

void Figure::NoteWireChanged(AbstractFigureItem& wire) {
    zvk::WriteGuard guard(GetLock());
    if (tornDown_) return;
    crossingPoints_->NoteChanged(wire);
    arrowPatterns_->NoteChanged(wire);
}

void Figure::MarkCrossingPartners(AbstractFigureItem const& wire) {
    zvk::WriteGuard guard(GetLock());
    if (!tornDown_) crossingPoints_->MarkPartners(wire);
}

bool Figure::GetGraphicRegenerationSuspended() const {
    zvk::ReadGuard guard(GetLock());
    return graphicRegenerationSuspended_;
}

void Figure::SetGraphicRegenerationSuspended(bool suspended) {
    zvk::WriteGuard guard(GetLock());
    graphicRegenerationSuspended_ = suspended;
}

DBox2D Figure::GetExtents() {
    {
        zvk::ReadGuard guard(GetLock());
        if (!(figureExtents_ == DBox2D::EMPTY)) return figureExtents_;
    }
    zvk::WriteGuard guard(GetLock());
    CalcFigureExtentsVisitor visitor;
    Accept(visitor);
    figureExtents_ = visitor.GetFigureExtents();
    return figureExtents_;
}

void Figure::SetExtents(DBox2D const& extents) {
    zvk::WriteGuard guard(GetLock());
    figureExtents_ = extents;
}

SmartPtr<zvmk::FigureContentShadow> Figure::GetFigureShadow() const {
    return figureShadow_;
}

void Figure::SetFigureShadow(SmartPtr<zvmk::FigureContentShadow> const& shadow) {
    figureShadow_ = shadow;
}

void Figure::SetProfileRequiresGraphicalRegeneration(bool required) {
    zvk::WriteGuard guard(GetLock());
    profileRequiresGraphicalRegeneration_ = required;
}

void Figure::ProfileApplied() {
    zvk::WriteGuard guard(GetLock());
    if (profileRequiresGraphicalRegeneration_) PostChangedEvent();
}

}  // namespace figrep
