// How content is published.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>

#include <map>

namespace zvkapp::depiction {

/// Says under which names things appear where content is published.
class PublishOption : public virtual du::RefCounted {
public:
    /// The name to publish; the name itself unless another one was set.
    virtual du::Symbol GetPublishName(du::Symbol const& name) const;
    void SetPublishName(du::Symbol const& name, du::Symbol const& published);

private:
    std::map<du::Symbol, du::Symbol> names_;
};

}  // namespace zvkapp::depiction
