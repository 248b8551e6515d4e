// How records refer upwards without holding what holds them.
#pragma once

#include <du/RefCounted.h>
#include <du/SmartPtr.h>
#include <du/Upward.h>

namespace figk {
class Design;
class Sheet;
}  // namespace figk

namespace figkernel {

/// A place that names an owner as long as it lives. The owner empties it in its destructor; what
/// it owns shares it.
template <class T>
class OwnerLink : public virtual du::RefCounted {
public:
    explicit OwnerLink(T* target) : owner(target) {}

    /// Null once the owner is going or gone.
    du::SmartPtr<T> Get() const { return du::Upward(owner); }
    void Clear() { owner = nullptr; }

private:
    T* owner;
};

using DesignLink = OwnerLink<figk::Design>;

/// A sheet and the design that it is part of.
class SheetLink : public OwnerLink<figk::Sheet> {
public:
    SheetLink(figk::Sheet* sheet, du::SmartPtr<DesignLink> const& link)
        : OwnerLink(sheet), design(link) {}

    du::SmartPtr<figk::Design> GetDesign() const;

private:
    du::SmartPtr<DesignLink> design;
};

}  // namespace figkernel
