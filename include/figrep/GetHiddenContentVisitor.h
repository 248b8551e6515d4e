// Collects what a figure has but doesn't show.
#pragma once

#include <figrep/TopLevelContentVisitor.h>

namespace figrep {

/// The top-level content for which `IsVisible` is false, and the title block if that is hidden.
class GetHiddenContentVisitor : public TopLevelContentVisitor {
public:
    GetHiddenContentVisitor();
    GetHiddenContentVisitor(GetHiddenContentVisitor const&);
    ~GetHiddenContentVisitor() override;

    using TopLevelContentVisitor::Visit;
    /// Looks behind the format, whether or not that is hidden itself.
    bool Visit(SmartPtr<Format> const& item) override;

    /// Exchanges what was collected so far for the contents of `items`.
    void TakeHiddenContent(Items& items);

protected:
    bool IsWanted(AbstractFigureItem const& item) const override;
};

}  // namespace figrep
