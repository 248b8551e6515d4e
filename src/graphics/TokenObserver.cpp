#include <figrep/TokenObserver.h>

namespace figrep {

TokenObserver::~TokenObserver() = default;

}  // namespace figrep
