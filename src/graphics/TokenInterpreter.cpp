#include <figrep/TokenInterpreter.h>

namespace figrep {

TokenInterpreter::~TokenInterpreter() = default;

}  // namespace figrep
