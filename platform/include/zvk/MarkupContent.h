// What a markup shows.
#pragma once

#include <du/SmartPtr.h>
#include <zvmu/ModelBase.h>

namespace zvk {

/// The content of a markup, as far as views need it.
class MarkupContent : public virtual du::RefCounted {
public:
    ~MarkupContent() override;

    /// What is drawn and touched; null for nothing.
    virtual du::SmartPtr<zvmu::ModelBase> const& GetModelBase() const = 0;

protected:
    MarkupContent();
};

}  // namespace zvk
