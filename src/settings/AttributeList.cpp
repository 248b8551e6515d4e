#include <figrep/AttributeList.h>

namespace figrep {

AttributeList::AttributeList(du::SmartPtr<zvk::ReadWriteLock> const& lock)
    : attributesLock_(lock) {}

AttributeList::AttributeList(AttributeList const& other)
    : attributes_(other.attributes_ ? std::make_unique<figk::AttributeSet>(*other.attributes_)
                                    : nullptr),
      attributesLock_(other.attributesLock_) {}

AttributeList::~AttributeList() = default;

figk::AttributeSet const& AttributeList::Attributes() const {
    static figk::AttributeSet const s_none;
    return attributes_ ? *attributes_ : s_none;
}

AttributeList::const_iterator AttributeList::BeginAttribute() const {
    return Attributes().begin();
}

AttributeList::const_iterator AttributeList::EndAttribute() const {
    return Attributes().end();
}

size_t AttributeList::NumAttributes() const {
    zvk::ReadGuard const guard(attributesLock_);
    return Attributes().size();
}

du::SmartPtr<figk::Attribute> AttributeList::GetAttribute(du::Symbol const& name,
                                                          bool inherited) const {
    zvk::ReadGuard const guard(attributesLock_);
    du::Symbol const upper = figk::Attribute::ToUpper(name);
    for (auto const& attribute : Attributes()) {
        if (attribute->GetUpperName() == upper) return attribute;
    }
    return inherited ? GetInheritedAttribute(name) : nullptr;
}

void AttributeList::GetAllAttributes(figk::AttributeSet& out) const {
    zvk::ReadGuard const guard(attributesLock_);
    out.insert(Attributes().begin(), Attributes().end());
}

void AttributeList::GetAttributeCopies(figk::AttributeSet& out) const {
    zvk::ReadGuard const guard(attributesLock_);
    for (auto const& attribute : Attributes())
        out.insert(new figk::Attribute(*attribute));
}

void AttributeList::GetAllInheritedAttributes(figk::AttributeSet& /*out*/) const {}

du::SmartPtr<figk::Attribute> AttributeList::GetInheritedAttribute(
    du::Symbol const& /*name*/) const {
    return nullptr;
}

void AttributeList::AddAttribute(du::SmartPtr<figk::Attribute> const& attribute) {
    if (!attribute) return;
    zvk::WriteGuard const guard(attributesLock_);
    if (!attributes_) attributes_ = std::make_unique<figk::AttributeSet>();
    attributes_->insert(attribute);
}

}  // namespace figrep
