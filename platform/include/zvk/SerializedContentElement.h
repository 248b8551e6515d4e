// Content on its way to or from a file.
#pragma once

#include <dg/Point.h>
#include <du/Symbol.h>
#include <zvk/SerializedContentVisitor.h>

#include <concepts>
#include <cstddef>
#include <memory>
#include <variant>
#include <vector>

namespace zvk {

/// A named element with typed properties and child elements.
///
/// The order of properties and children is kept, and keys may repeat. An element owns its children.
class SerializedContentElement {
public:
    using Value = std::variant<du::Symbol, bool, int, double, dg::DPoint3D>;

    explicit SerializedContentElement(du::Symbol const& name);
    SerializedContentElement(SerializedContentElement const&) = delete;
    SerializedContentElement& operator=(SerializedContentElement const&) = delete;
    ~SerializedContentElement();

    du::Symbol const& GetName() const { return name_; }
    bool IsEmpty() const { return parts_.empty(); }

    void AddProperty(du::Symbol const& key, du::Symbol const& value);
    void AddProperty(du::Symbol const& key, dg::DPoint3D const& value);
    /// Exactly the types of `Value`: a text literal or a `float` would silently become another.
    template <class T>
    requires std::same_as<T, bool> || std::same_as<T, int> || std::same_as<T, double>
    void AddProperty(du::Symbol const& key, T value) { Append(key, Value(value)); }

    /// Adds a child and answers it; it stays where it is as long as this element.
    SerializedContentElement* StartContent(du::Symbol const& name);
    /// Ends the child begun last. Children may be filled after it, too.
    void EndContent();

    /// The first property with the key; null when there is none. Cost: the properties.
    Value const* FindProperty(du::Symbol const& key) const;

    /// All properties with the key, in order, and all children with the name.
    std::vector<Value const*> FindProperties(du::Symbol const& key) const;
    std::vector<SerializedContentElement const*> FindChildren(du::Symbol const& name) const;
    /// All children, in order.
    std::vector<SerializedContentElement const*> GetChildren() const;

    /// Shows the element's own properties, in order.
    void VisitProperties(SerializedContentVisitor& visitor) const;

    /// Runs over the children and their properties in order, not over the element itself. `deep`
    /// goes on into the children's children. Never recurses, however deep the content.
    void Visit(SerializedContentVisitor& visitor, bool deep) const;

    /// Runs over everything in the element, its own properties among its children in their order.
    void VisitAll(SerializedContentVisitor& visitor) const;

private:
    struct Property {
        du::Symbol key;
        Value value;
    };
    using Part = std::variant<Property, std::unique_ptr<SerializedContentElement>>;

    void Walk(SerializedContentVisitor& visitor, bool deep, bool ownProperties) const;
    void Append(du::Symbol const& key, Value const& value);
    static void Show(Property const& property, SerializedContentVisitor& visitor);

    du::Symbol name_;
    std::vector<Part> parts_;
};

}  // namespace zvk
