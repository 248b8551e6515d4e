#include <figrep/GetFigureContentVisitor.h>

#include <figrep/AbstractFigureItem.h>

namespace figrep {

GetFigureContentVisitor::GetFigureContentVisitor() = default;
GetFigureContentVisitor::GetFigureContentVisitor(GetFigureContentVisitor const&) = default;
GetFigureContentVisitor::~GetFigureContentVisitor() = default;

void GetFigureContentVisitor::TakeFigureContent(Items& items) {
    GetCollected().swap(items);
}

bool GetFigureContentVisitor::IsWanted(AbstractFigureItem const&) const {
    return true;
}

}  // namespace figrep
