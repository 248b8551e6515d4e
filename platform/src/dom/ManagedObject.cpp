#include <dom/ManagedObject.h>

#include <algorithm>

namespace dom {

ManagedObject::ManagedObject() = default;

ManagedObject::ManagedObject(ManagedObject const& other) : du::RefCounted(other) {}

ManagedObject::~ManagedObject() = default;

void ManagedObject::ManageObject(du::SmartPtr<ManagedObject> const& object) {
    if (!object || std::ranges::find(managed_, object) != managed_.end()) return;
    managed_.push_back(object);
}

bool ManagedObject::UnmanageObject(du::SmartPtr<ManagedObject> const& object) {
    return std::erase(managed_, object) != 0;
}

}  // namespace dom
