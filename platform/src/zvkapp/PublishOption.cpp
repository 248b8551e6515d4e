#include <zvkapp/PublishOption.h>

namespace zvkapp::depiction {

du::Symbol PublishOption::GetPublishName(du::Symbol const& name) const {
    auto const found = names_.find(name);
    return found == names_.end() ? name : found->second;
}

void PublishOption::SetPublishName(du::Symbol const& name, du::Symbol const& published) {
    names_.insert_or_assign(name, published);
}

}  // namespace zvkapp::depiction
