#include <figk/Attribute.h>

#include <string>

namespace figk {

Attribute::Attribute(Symbol const& name, Symbol const& value)
    : name_(name), upperName_(ToUpper(name)), value_(value) {}
Attribute::Attribute(Attribute const& other)
    : du::RefCounted(other),
      name_(other.name_),
      upperName_(other.upperName_),
      value_(other.value_) {}
Attribute::~Attribute() = default;

Symbol Attribute::ToUpper(Symbol const& name) {
    std::string text = name.GetString();
    // ASCII letters alone: what a name is called must not depend on the process's locale.
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return Symbol(text);
}

bool AttributeComparator::operator()(SmartPtr<Attribute> const& a,
                                     SmartPtr<Attribute> const& b) const {
    if (!a || !b) return !a && b;
    return a->GetUpperName().GetString() < b->GetUpperName().GetString();
}

}  // namespace figk
