// The named text properties of a figure and its items.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>
#include <figk/Attribute.h>
#include <zvk/ReadWriteLock.h>

#include <cstddef>
#include <memory>

namespace figrep {

/// Attributes of an item's own, with a way up to those of where it stands.
///
/// Names are compared without regard to case. Lock: the figure's shared one; it may be null. An
/// item without attributes pays for two pointers.
class AttributeList {
public:
    using const_iterator = figk::AttributeSet::const_iterator;

    /// The own attributes in the order of their names. Whoever iterates holds the lock.
    const_iterator BeginAttribute() const;
    const_iterator EndAttribute() const;

    bool Empty() const { return NumAttributes() == 0; }
    /// Without inherited ones.
    size_t NumAttributes() const;

    /// By name, or null. `inherited` goes on to where the item stands. Cost: the attributes.
    du::SmartPtr<figk::Attribute> GetAttribute(du::Symbol const& name, bool inherited) const;

    /// Adds the own attributes themselves to a set; those that it holds already stay.
    void GetAllAttributes(figk::AttributeSet& out) const;
    /// Adds copies, which the caller may change.
    void GetAttributeCopies(figk::AttributeSet& out) const;

protected:
    explicit AttributeList(du::SmartPtr<zvk::ReadWriteLock> const& lock);
    AttributeList(AttributeList const& other);
    AttributeList& operator=(AttributeList const&) = delete;
    ~AttributeList();

    /// What the item gets from where it stands; nothing by default.
    virtual void GetAllInheritedAttributes(figk::AttributeSet& out) const;
    virtual du::SmartPtr<figk::Attribute> GetInheritedAttribute(du::Symbol const& name) const;

    /// An attribute of a name that is there already is dropped, and so is null.
    void AddAttribute(du::SmartPtr<figk::Attribute> const& attribute);

private:
    figk::AttributeSet const& Attributes() const;

    std::unique_ptr<figk::AttributeSet> attributes_;  // null while there are none
    du::SmartPtr<zvk::ReadWriteLock> attributesLock_;
};

}  // namespace figrep
