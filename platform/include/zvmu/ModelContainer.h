// Several models as one.
#pragma once

#include <zvmu/ModelBase.h>

#include <deque>

namespace zvmu {

/// Models that are placed together. The first one lies on top: it is drawn last, and a pointer
/// touches it before the others.
class ModelContainer : public ModelBase {
public:
    ModelContainer();
    ~ModelContainer() override;

    /// Puts a model on top. Null, a model that is here already and a container that holds this one
    /// change nothing.
    void AddHead(du::SmartPtr<ModelBase> const& model);

    /// From top to bottom.
    std::deque<du::SmartPtr<ModelBase>> const& GetModels() const { return models_; }

protected:
    PickedModel PickHere(PickPoint const& pointer) override;

private:
    std::deque<du::SmartPtr<ModelBase>> models_;
};

}  // namespace zvmu
