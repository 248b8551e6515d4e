// Objects that keep others alive.
#pragma once

#include <du/SmartPtr.h>

#include <vector>

namespace dom {

/// An object that holds other objects for as long as it lives itself.
class ManagedObject : public virtual du::RefCounted {
public:
    ~ManagedObject() override;

    /// Holds the object; null and an object held already change nothing. Not locked.
    void ManageObject(du::SmartPtr<ManagedObject> const& object);
    /// Lets the object go; false when it wasn't held.
    bool UnmanageObject(du::SmartPtr<ManagedObject> const& object);

protected:
    ManagedObject();
    /// A copy holds nothing.
    ManagedObject(ManagedObject const&);
    ManagedObject& operator=(ManagedObject const&) { return *this; }

private:
    std::vector<du::SmartPtr<ManagedObject>> managed_;
};

}  // namespace dom
