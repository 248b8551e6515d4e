#include <figrep/CalcFigureExtentsVisitor.h>

#include <figrep/Figure.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwaySegment.h>
#include <figrep/TextGraphic.h>

namespace figrep {

CalcFigureExtentsVisitor::CalcFigureExtentsVisitor() = default;

CalcFigureExtentsVisitor::~CalcFigureExtentsVisitor() = default;

bool CalcFigureExtentsVisitor::StartGroupVisit(SmartPtr<figk::Group> const& group) {
    return !inSubNet_ || !du::DynamicCast<HighwaySegment>(group);
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<TextGraphic> const& text) {
    extents_.Enclose(text->GetExtents());
    return true;
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<SubNet> const&) {
    inSubNet_ = true;
    return true;
}

void CalcFigureExtentsVisitor::VisitComplete(SmartPtr<SubNet> const&) {
    inSubNet_ = false;
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<PickGraphicProxy> const&) {
    return false;
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<GenericGraphic> const& graphic) {
    extents_.Enclose(graphic->GetExtents());
    return true;
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<Figure> const& figure) {
    extents_ = DBox2D::EMPTY;
    figure->UpdateContent();
    return true;
}

}  // namespace figrep
