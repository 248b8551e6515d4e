#include <zvk/Depiction.h>

#include <atomic>

namespace zvk::depiction {

namespace {
std::atomic<bool> s_running{false};
}

bool IsRunningDepict() {
    return s_running;
}

void SetRunningDepict(bool running) {
    s_running = running;
}

}  // namespace zvk::depiction
