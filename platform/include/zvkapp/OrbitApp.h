// The application that publishes content.
#pragma once

#include <du/SmartPtr.h>

namespace zvkapp::depiction {

/// The running application, as far as publishing goes.
class OrbitApp : public virtual du::RefCounted {
public:
    /// Null when the process is no such application.
    static du::SmartPtr<OrbitApp> GetOrbitApp();
    static void SetOrbitApp(du::SmartPtr<OrbitApp> const& app);

    int GetPublishBatchMode() const { return publishBatchMode_; }
    void SetPublishBatchMode(int mode) { publishBatchMode_ = mode; }

private:
    int publishBatchMode_ = 0;
};

}  // namespace zvkapp::depiction
