// The content of a shadow.
#pragma once

#include <du/Link.h>
#include <zvk/Markup.h>
#include <zvk/MarkupContent.h>

namespace zvmk {

class MarkupShadow;

/// The model that a shadow shows. The shadow holds its data, and the data doesn't hold the shadow.
class MarkupData : public zvk::MarkupContent {
public:
    /// May be called in the shadow's constructor.
    explicit MarkupData(MarkupShadow* shadow);
    ~MarkupData() override;

    du::SmartPtr<zvmu::ModelBase> const& GetModelBase() const override { return model_; }
    /// Tells the shadow, when this is its content.
    void SetModelBase(du::SmartPtr<zvmu::ModelBase> const& model);

private:
    du::SmartPtr<du::Link<zvk::Markup>> shadow_;
    du::SmartPtr<zvmu::ModelBase> model_;
};

}  // namespace zvmk
