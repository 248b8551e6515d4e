// The design database of the process, as everybody reaches it.
#pragma once

#include <du/RefCounted.h>
#include <figk/Fwd.h>
#include <figk/Setting.h>
#include <zvk/ReadWriteLock.h>

namespace figk {

/// Base of a host's kernel, and the place where the host installs it. The base itself is a kernel
/// without designs and settings.
class SchematicKernel : public virtual du::RefCounted {
public:
    SchematicKernel();
    ~SchematicKernel() override;

    /// The installed kernel; never null: an empty one as long as nobody installed another.
    static SmartPtr<SchematicKernel> GetSchematicKernel();
    /// Installs the process's kernel; null brings the empty one back. Safe on any thread, but what
    /// was read from the former kernel stays that kernel's.
    static void SetSchematicKernel(SmartPtr<SchematicKernel> const& kernel);
    /// The one lock of the process, shared by kernel, figures and items: recursive, and a reader
    /// may take it for writing. Never null.
    static SmartPtr<zvk::ReadWriteLock> const& GetKernelLock();

    /// Shows the visitor the kernel, then every design in the order of adding. The base has none.
    virtual void Accept(AbstractVisitor& visitor);
    /// The kernel-wide value of `key`, or null. `level` is the depth of inheritance reached so far
    /// and is raised by the steps that the kernel adds. With `inheritableOnly` a setting that can't
    /// be inherited counts as absent.
    virtual SmartPtr<Setting> GetSetting(Setting::Key const& key, unsigned int& level,
                                         bool inheritableOnly);
};

}  // namespace figk
