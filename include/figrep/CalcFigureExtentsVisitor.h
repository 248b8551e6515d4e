// The box that bounds what a figure shows.
#pragma once

#include <dg/Box.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Unites the boxes of all texts and generic graphics of a figure, hidden ones too. Pick proxies
/// count for nothing. Visiting a figure first brings its pictures up to date.
class CalcFigureExtentsVisitor : public AbstractFigureVisitor {
public:
    CalcFigureExtentsVisitor();
    ~CalcFigureExtentsVisitor() override;

    /// `DBox2D::EMPTY` for a figure that shows nothing.
    DBox2D const& GetFigureExtents() const { return extents_; }

    bool StartGroupVisit(SmartPtr<figk::Group> const& group) override;
    bool Visit(SmartPtr<TextGraphic> const& text) override;
    bool Visit(SmartPtr<SubNet> const& subNet) override;
    bool Visit(SmartPtr<PickGraphicProxy> const& proxy) override;
    bool Visit(SmartPtr<GenericGraphic> const& graphic) override;
    bool Visit(SmartPtr<Figure> const& figure) override;
    void VisitComplete(SmartPtr<SubNet> const& subNet) override;
    using AbstractFigureVisitor::Visit;
    using AbstractFigureVisitor::VisitComplete;

private:
    DBox2D extents_ = DBox2D::EMPTY;
    bool inSubNet_ = false;  // highway segments met there belong to their sub-highway
};

}  // namespace figrep
