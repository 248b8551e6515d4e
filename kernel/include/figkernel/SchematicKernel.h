// The embedded kernel: designs in memory, and settings for all of them.
#pragma once

#include <map>
#include <vector>

#include <figk/SchematicKernel.h>

namespace figkernel {

/// A kernel that holds what a host puts in. `figk::SchematicKernel::SetSchematicKernel` makes it
/// the kernel of the process.
///
/// All operations take the kernel lock, for reading or for writing as they need it. Figures hold
/// what they show of a design that is removed, and find it no longer by its ids.
class SchematicKernel : public figk::SchematicKernel {
public:
    SchematicKernel();
    ~SchematicKernel() override;

    /// Null, and a design that is here already, change nothing.
    void AddDesign(figk::SmartPtr<figk::Design> const& design);
    /// False when it isn't here.
    bool RemoveDesign(figk::SmartPtr<figk::Design> const& design);
    /// The first design of that id, or null.
    figk::SmartPtr<figk::Design> FindDesign(figk::Symbol const& id) const;
    /// In the order of adding.
    std::vector<figk::SmartPtr<figk::Design>> GetDesigns() const;

    /// Sets the kernel-wide value of the setting's key. Null does nothing.
    void SetSetting(figk::SmartPtr<figk::Setting> const& setting);
    void RemoveSetting(figk::Setting::Key key);

    void Accept(figk::AbstractVisitor& visitor) override;
    figk::SmartPtr<figk::Setting> GetSetting(figk::Setting::Key const& key, unsigned int& level,
                                             bool inheritableOnly) override;

private:
    std::vector<figk::SmartPtr<figk::Design>> designs;
    std::map<figk::Setting::Key, figk::SmartPtr<figk::Setting>> settings;
};

}  // namespace figkernel
