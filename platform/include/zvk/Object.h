// The roots of the platform's object model.
#pragma once

#include <du/SmartPtr.h>
#include <zvk/ReadWriteLock.h>

namespace zvk {

/// The tag of a class. Each class has one, as a static; tags are told apart by their address.
class ClassType {
public:
    /// `className` must live as long as the tag.
    constexpr explicit ClassType(char const* className) : name_(className) {}
    ClassType(ClassType const&) = delete;
    ClassType& operator=(ClassType const&) = delete;

    constexpr char const* GetName() const { return name_; }

    friend constexpr bool operator==(ClassType const& a, ClassType const& b) { return &a == &b; }

private:
    char const* name_;
};

/// A counted object that can tell its class.
class Object : public virtual du::RefCounted {
public:
    static ClassType const CLASS_TYPE;

    virtual ClassType const& GetClassType() const { return CLASS_TYPE; }
};

inline constexpr ClassType Object::CLASS_TYPE{"zvk::Object"};

/// An object that shares a lock with others. The lock may be null.
class ObjectWithRWLock : public Object {
protected:
    explicit ObjectWithRWLock(du::SmartPtr<ReadWriteLock> const& shared) : objectLock_(shared) {}

    du::SmartPtr<ReadWriteLock> const& GetObjectLock() const { return objectLock_; }

private:
    du::SmartPtr<ReadWriteLock> objectLock_;
};

/// Marks classes of which there are many. The general allocator serves them well enough, so the
/// base is empty.
class MemoryPoolAllocated {};

}  // namespace zvk
