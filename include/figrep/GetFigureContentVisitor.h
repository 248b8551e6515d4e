// Collects what a figure shows by itself.
#pragma once

#include <figrep/TopLevelContentVisitor.h>

namespace figrep {

/// All top-level content, hidden or not. The title block comes only to a visitor that is handed to
/// it; a figure's walk stops at its format.
class GetFigureContentVisitor : public TopLevelContentVisitor {
public:
    GetFigureContentVisitor();
    GetFigureContentVisitor(GetFigureContentVisitor const&);
    ~GetFigureContentVisitor() override;

    /// Exchanges what was collected so far for the contents of `items`.
    void TakeFigureContent(Items& items);

protected:
    bool IsWanted(AbstractFigureItem const& item) const override;
};

}  // namespace figrep
