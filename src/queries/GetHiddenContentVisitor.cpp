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
    auto const titleBlock = item ? item->GetTitleBlock() : SmartPtr<TitleBlock>();
    if (titleBlock) titleBlock->Accept(*this);
    return false;
}

void GetHiddenContentVisitor::TakeHiddenContent(Items& items) {
    GetCollected().swap(items);
}

bool GetHiddenContentVisitor::IsWanted(AbstractFigureItem const& item) const {
    return !item.IsVisible();
}

}  // namespace figrep
