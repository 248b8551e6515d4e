#include <zvmu/ModelContainer.h>

#include <algorithm>
#include <vector>

namespace zvmu {

namespace {

bool Holds(ModelContainer const& outer, ModelContainer const& sought) {
    std::vector<ModelContainer const*> open{&outer};
    while (!open.empty()) {
        ModelContainer const* const container = open.back();
        open.pop_back();
        if (container == &sought) return true;
        for (auto const& model : container->GetModels()) {
            auto const* const inner = dynamic_cast<ModelContainer const*>(model.Get());
            if (inner) open.push_back(inner);
        }
    }
    return false;
}

}  // namespace

ModelContainer::ModelContainer() = default;

ModelContainer::~ModelContainer() = default;

void ModelContainer::AddHead(du::SmartPtr<ModelBase> const& model) {
    if (!model || std::find(models_.begin(), models_.end(), model) != models_.end()) return;
    auto const* const container = dynamic_cast<ModelContainer const*>(model.Get());
    if (container && Holds(*container, *this)) return;
    models_.push_front(model);
}

PickedModel ModelContainer::PickHere(PickPoint const& pointer) {
    for (auto const& model : models_) {
        PickedModel picked = model->Pick(pointer);
        if (picked.model) return picked;
    }
    return {};
}

}  // namespace zvmu
