#include <zvmk/MarkupData.h>

#include <zvmk/MarkupShadow.h>

namespace zvmk {

MarkupData::MarkupData(MarkupShadow* shadow) {
    if (shadow) shadow_ = shadow->GetLink();
}

MarkupData::~MarkupData() = default;

void MarkupData::SetModelBase(du::SmartPtr<zvmu::ModelBase> const& model) {
    model_ = model;
    auto const shadow = shadow_ ? shadow_->Get() : nullptr;
    if (shadow && shadow->GetContent() == this) shadow->NotifyContentChanged();
}

}  // namespace zvmk
