#include <figkernel/SchematicKernel.h>

#include <algorithm>

#include <figk/AbstractVisitor.h>
#include <figk/Design.h>

namespace figkernel {

SchematicKernel::SchematicKernel() = default;
SchematicKernel::~SchematicKernel() = default;

void SchematicKernel::AddDesign(figk::SmartPtr<figk::Design> const& design) {
    if (!design) return;
    zvk::WriteGuard guard(GetKernelLock());
    if (std::find(designs.begin(), designs.end(), design) == designs.end()) {
        designs.push_back(design);
    }
}

bool SchematicKernel::RemoveDesign(figk::SmartPtr<figk::Design> const& design) {
    zvk::WriteGuard guard(GetKernelLock());
    auto const at = std::find(designs.begin(), designs.end(), design);
    if (at == designs.end()) return false;
    designs.erase(at);
    return true;
}

figk::SmartPtr<figk::Design> SchematicKernel::FindDesign(figk::Symbol const& id) const {
    zvk::ReadGuard guard(GetKernelLock());
    for (auto const& design : designs) {
        if (design->GetId() == id) return design;
    }
    return nullptr;
}

std::vector<figk::SmartPtr<figk::Design>> SchematicKernel::GetDesigns() const {
    zvk::ReadGuard guard(GetKernelLock());
    return designs;
}

void SchematicKernel::SetSetting(figk::SmartPtr<figk::Setting> const& setting) {
    if (!setting) return;
    zvk::WriteGuard guard(GetKernelLock());
    settings[setting->GetKey()] = setting;
}

void SchematicKernel::RemoveSetting(figk::Setting::Key key) {
    zvk::WriteGuard guard(GetKernelLock());
    settings.erase(key);
}

void SchematicKernel::Accept(figk::AbstractVisitor& visitor) {
    zvk::ReadGuard guard(GetKernelLock());
    if (!visitor.Visit(figk::SmartPtr<figk::SchematicKernel>(this))) return;
    std::vector<figk::SmartPtr<figk::Design>> const shown = designs;
    for (auto const& design : shown)
        design->Accept(visitor);
}

figk::SmartPtr<figk::Setting> SchematicKernel::GetSetting(figk::Setting::Key const& key,
                                                          unsigned int&, bool inheritableOnly) {
    zvk::ReadGuard guard(GetKernelLock());
    auto const at = settings.find(key);
    if (at == settings.end()) return nullptr;
    if (inheritableOnly && !at->second->CanBeInherited()) return nullptr;
    return at->second;
}

}  // namespace figkernel
