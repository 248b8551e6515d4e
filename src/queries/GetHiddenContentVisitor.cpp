#include <figrep/GetHiddenContentVisitor.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>

namespace figrep {

GetHiddenContentVisitor::GetHiddenContentVisitor() = default;
GetHiddenContentVisitor::GetHiddenContentVisitor(GetHiddenContentVisitor const&) = default;
GetHiddenContentVisitor::~GetHiddenContentVisitor() = default;

bool GetHiddenContentVisitor::Visit(SmartPtr<Format> const& item) {
    TopLevelContentVisitor::Visit(item);
    if (auto const titleBlock = item->GetTitleBlock()) titleBlock->Accept(*this);
    return false;
}

void GetHiddenContentVisitor::TakeHiddenContent(Items& items) {
    GetCollected().swap(items);
}

bool GetHiddenContentVisitor::IsWanted(AbstractFigureItem const& item) const {
    return !item.IsVisible();
}

}  // namespace figrep
