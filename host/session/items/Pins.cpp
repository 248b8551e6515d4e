#include <session/items/Pins.h>

#include <figk/BaseBlockInstance.h>
#include <figk/ConnectorInstance.h>

namespace fighost {

std::string PinName(figk::ConnectorInstance const& pin) {
    auto const block = pin.GetBlockInstance();
    if (!block) return {};
    std::string const& reference = block->GetName();
    bool const isPart = !reference.empty() && reference[0] != '#';
    return isPart ? reference + ":" + pin.GetName() : std::string();
}

}  // namespace fighost
