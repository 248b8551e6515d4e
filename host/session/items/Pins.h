// How pins are named for users.
#pragma once

#include <figrep/Fwd.h>

#include <string>

namespace fighost {

/// "REFERENCE:PIN"; empty for pins of symbols that stand for no part, whose references begin with
/// '#', and for pins without a block.
std::string PinName(figk::ConnectorInstance const& pin);

}  // namespace fighost
