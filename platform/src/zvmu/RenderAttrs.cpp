#include <zvmu/RenderAttrs.h>

namespace zvmu {

RenderAttrs::~RenderAttrs() = default;

RenderAttrsVector const& RenderAttrs::GetMarkerXor() {
    static RenderAttrsVector const& marker =
        *new RenderAttrsVector{new RenderAttrs(XOR, dg::Color::WHITE, 1.0F)};
    return marker;
}

}  // namespace zvmu
