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
    if (text) extents_.Enclose(text->GetExtents());
    return true;
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<SubNet> const& subNet) {
    inSubNet_ = static_cast<bool>(subNet);
    return inSubNet_;
}

void CalcFigureExtentsVisitor::VisitComplete(SmartPtr<SubNet> const&) {
    inSubNet_ = false;
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<PickGraphicProxy> const&) {
    return false;
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<GenericGraphic> const& graphic) {
    if (graphic) extents_.Enclose(graphic->GetExtents());
    return true;
}

bool CalcFigureExtentsVisitor::Visit(SmartPtr<Figure> const& figure) {
    extents_ = DBox2D::EMPTY;
    if (!figure) return false;
    figure->UpdateContent();
    return true;
}

}  // namespace figrep
