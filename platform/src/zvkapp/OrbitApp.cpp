#include <zvkapp/OrbitApp.h>

#include <mutex>

namespace zvkapp::depiction {

namespace {

struct TheApp {
    std::mutex mutex;
    du::SmartPtr<OrbitApp> app;  // guarded by mutex

    static TheApp& Get() {
        static TheApp& the = *new TheApp;
        return the;
    }
};

}  // namespace

du::SmartPtr<OrbitApp> OrbitApp::GetOrbitApp() {
    TheApp& the = TheApp::Get();
    std::lock_guard const guard(the.mutex);
    return the.app;
}

void OrbitApp::SetOrbitApp(du::SmartPtr<OrbitApp> const& app) {
    TheApp& the = TheApp::Get();
    std::lock_guard const guard(the.mutex);
    the.app = app;
}

}  // namespace zvkapp::depiction
