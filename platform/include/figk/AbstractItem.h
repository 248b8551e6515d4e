// The root of every record of a design.
#pragma once

#include <du/RefCounted.h>
#include <figk/Attribute.h>
#include <figk/Fwd.h>
#include <figk/SettingList.h>
#include <figk/TypeDefinitions.h>

#include <string>

namespace figk {

/// What every record answers. Records are read under the kernel lock and never changed by those who
/// walk them. A host puts its own database behind these operations.
class AbstractItem : public virtual du::RefCounted {
public:
    ~AbstractItem() override;

    /// Shows the visitor this record and, when it answers true, what the record holds.
    virtual void Accept(AbstractVisitor& visitor) = 0;
    /// Stable over saving and reloading, and over edits elsewhere in the design.
    virtual Symbol const& GetId() const = 0;
    /// For users; UTF-8; may be empty.
    virtual std::string const& GetName() const = 0;
    /// The record's picture, owned by the kernel and not to be transformed; null for none.
    virtual SmartPtr<Zv2dGraphics> GetZv2dGraphics() const;
    /// Null for a record outside any design.
    virtual SmartPtr<Design> GetDesign() const;
    /// The settings that the record carries; null for none.
    virtual ConstSmartPtr<SettingList> GetSettingList() const;
    /// Adds the record's attributes; those that the set holds already stay.
    virtual void GetAttributes(AttributeSet& attributes) const;
    virtual TypeDefinitions::KernelItemType GetKernelItemType() const = 0;

    /// The same as `GetSettingList`.
    ConstSmartPtr<SettingList> GetSettings() const { return GetSettingList(); }
    /// The name of the record's type for users, localised.
    Symbol GetUITypeName() const;
    /// Empty for a number that is no type.
    static Symbol GetUITypeName(TypeDefinitions::KernelItemType type);

protected:
    AbstractItem();
    AbstractItem(AbstractItem const& other);
};

}  // namespace figk
