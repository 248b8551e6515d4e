#include <cli/RenderHighlights.h>

#include <cli/UnknownNet.h>
#include <session/look/ParseColor.h>
#include <session/nets/NetHighlight.h>

#include <algorithm>
#include <cstddef>

namespace fighost {

namespace {

bool IsIn(std::vector<std::string> const& names, std::string const& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

std::optional<std::string> Highlight(Session const& session, std::vector<std::string> const& nets,
                                     Theme theme) {
    if (nets.empty()) return std::nullopt;
    std::vector<std::string> const names = NetNames(session);
    std::size_t number = 0;
    for (std::string const& wanted : nets) {
        std::string net = wanted;
        std::optional<dg::Color> color;
        std::size_t const sign = wanted.rfind('=');
        if (!IsIn(names, wanted) && sign != std::string::npos) {
            net = wanted.substr(0, sign);
            std::string const text = wanted.substr(sign + 1);
            color = ParseColor(text);
            if (!color) return "unknown colour '" + text + "'; write " + COLOR_FORMS;
        }
        if (!IsIn(names, net)) return UnknownNetOfDesign(names, net);
        HighlightNet(session, net, color ? *color : HighlightOf(theme, number++));
    }
    return std::nullopt;
}

}  // namespace fighost
