// The named text properties of a design's items.
#pragma once

#include <du/RefCounted.h>
#include <figk/Fwd.h>

#include <set>

namespace figk {

/// One attribute. Its name is compared without regard to the case of ASCII letters.
class Attribute : public virtual du::RefCounted {
public:
    Attribute(Symbol const& name, Symbol const& value);
    Attribute(Attribute const& other);
    ~Attribute() override;

    Symbol const& GetName() const { return name_; }
    /// The name in upper case, by which attributes are found.
    Symbol const& GetUpperName() const { return upperName_; }
    Symbol const& GetValue() const { return value_; }
    void SetValue(Symbol const& value) { value_ = value; }

    static Symbol ToUpper(Symbol const& name);

private:
    Symbol name_;
    Symbol upperName_;
    Symbol value_;
};

/// Orders attributes by the text of their upper-case names; null comes first.
struct AttributeComparator {
    bool operator()(SmartPtr<Attribute> const& a, SmartPtr<Attribute> const& b) const;
};

using AttributeSet = std::set<SmartPtr<Attribute>, AttributeComparator>;

}  // namespace figk
