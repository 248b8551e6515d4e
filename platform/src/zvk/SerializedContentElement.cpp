#include <zvk/SerializedContentElement.h>

#include <utility>

namespace zvk {

namespace {

using Child = std::unique_ptr<SerializedContentElement>;

}  // namespace

SerializedContentElement::SerializedContentElement(du::Symbol const& name) : name_(name) {}

SerializedContentElement::~SerializedContentElement() {
    // Children are emptied one by one before they go, since content may be nested without bound.
    std::vector<Part> going = std::move(parts_);
    while (!going.empty()) {
        Part const part = std::move(going.back());
        going.pop_back();
        auto const* child = std::get_if<Child>(&part);
        if (!child) continue;
        for (Part& below : (*child)->parts_)
            going.push_back(std::move(below));
        (*child)->parts_.clear();
    }
}

void SerializedContentElement::AddProperty(du::Symbol const& key, du::Symbol const& value) {
    Append(key, value);
}

void SerializedContentElement::AddProperty(du::Symbol const& key, dg::DPoint3D const& value) {
    Append(key, value);
}

void SerializedContentElement::Append(du::Symbol const& key, Value const& value) {
    parts_.emplace_back(Property{key, value});
}

SerializedContentElement* SerializedContentElement::StartContent(du::Symbol const& name) {
    Part& part = parts_.emplace_back(std::make_unique<SerializedContentElement>(name));
    return std::get<Child>(part).get();
}

void SerializedContentElement::EndContent() {}

SerializedContentElement::Value const* SerializedContentElement::FindProperty(
    du::Symbol const& key) const {
    for (Part const& part : parts_) {
        auto const* property = std::get_if<Property>(&part);
        if (property && property->key == key) return &property->value;
    }
    return nullptr;
}

std::vector<SerializedContentElement::Value const*> SerializedContentElement::FindProperties(
    du::Symbol const& key) const {
    std::vector<Value const*> found;
    for (Part const& part : parts_) {
        auto const* property = std::get_if<Property>(&part);
        if (property && property->key == key) found.push_back(&property->value);
    }
    return found;
}

std::vector<SerializedContentElement const*> SerializedContentElement::FindChildren(
    du::Symbol const& name) const {
    std::vector<SerializedContentElement const*> found;
    for (auto const* child : GetChildren()) {
        if (child->name_ == name) found.push_back(child);
    }
    return found;
}

std::vector<SerializedContentElement const*> SerializedContentElement::GetChildren() const {
    std::vector<SerializedContentElement const*> children;
    for (Part const& part : parts_) {
        if (auto const* child = std::get_if<Child>(&part)) children.push_back(child->get());
    }
    return children;
}

void SerializedContentElement::Show(Property const& property, SerializedContentVisitor& visitor) {
    std::visit([&](auto const& value) { visitor.Visit(property.key, value); }, property.value);
}

void SerializedContentElement::VisitProperties(SerializedContentVisitor& visitor) const {
    for (Part const& part : parts_) {
        if (auto const* property = std::get_if<Property>(&part)) Show(*property, visitor);
    }
}

void SerializedContentElement::Visit(SerializedContentVisitor& visitor, bool deep) const {
    Walk(visitor, deep, false);
}

void SerializedContentElement::VisitAll(SerializedContentVisitor& visitor) const {
    Walk(visitor, true, true);
}

void SerializedContentElement::Walk(SerializedContentVisitor& visitor, bool deep,
                                    bool ownProperties) const {
    struct Place {
        SerializedContentElement const* element;
        size_t next;
    };
    std::vector<Place> way{{this, 0}};
    while (!way.empty()) {
        auto& [element, next] = way.back();
        if (next == element->parts_.size()) {
            if (element != this) visitor.EndElement(element->name_);
            way.pop_back();
            continue;
        }
        Part const& part = element->parts_[next++];
        bool const isOwn = way.size() == 1;
        if (auto const* property = std::get_if<Property>(&part)) {
            if (!isOwn || ownProperties) Show(*property, visitor);
        } else if (isOwn || deep) {
            auto const* child = std::get<Child>(part).get();
            if (visitor.StartElement(child->name_)) way.push_back({child, 0});
        }
    }
}

}  // namespace zvk
