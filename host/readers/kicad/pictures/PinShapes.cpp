#include "PinShapes.h"

#include <algorithm>

namespace fighost::kicad {

namespace {

constexpr double SIZE = 0.635;  // mm: radius of the circle and half of the wedge

class PinDrawing {
public:
    PinDrawing(std::string_view name, double pinLength)
        : shape(name), length(pinLength), attributes(LineAttributesOf(Stroke())) {}

    std::vector<EntityPtr> Draw() {
        bool const inverted = shape == "inverted" || shape == "inverted_clock";
        bool const falling = shape == "edge_clock_high";
        double const end = inverted ? length - 2 * SIZE : falling ? length - SIZE : length;
        if (end > 0) Line({{0, 0}, {end, 0}});
        if (inverted) {
            entities.push_back(MakeCircle({length - SIZE, 0}, SIZE, attributes));
        }
        if (shape == "clock" || shape == "inverted_clock" || shape == "clock_low") {
            Line({{length, SIZE}, {length + 2 * SIZE, 0}, {length, -SIZE}});
        }
        if (falling) Line({{length, SIZE}, {length - 2 * SIZE, 0}, {length, -SIZE}});
        if (shape == "input_low" || shape == "clock_low") {
            Line({{length, 0}, {length - 2 * SIZE, 2 * SIZE}, {length - 2 * SIZE, 0}});
        }
        if (shape == "output_low") Line({{length, 2 * SIZE}, {length - 2 * SIZE, 0}});
        if (shape == "non_logic") {
            Line({{length - SIZE, -SIZE}, {length + SIZE, SIZE}});
            Line({{length - SIZE, SIZE}, {length + SIZE, -SIZE}});
        }
        return std::move(entities);
    }

private:
    void Line(std::vector<dg::DPoint2D> points) {
        entities.push_back(MakePolyline(std::move(points), attributes));
    }

    std::string_view shape;
    double length;
    du::ConstSmartPtr<zv2d::Attributes> attributes;
    std::vector<EntityPtr> entities;
};

}  // namespace

std::vector<EntityPtr> MakePinEntities(std::string_view shape, double length) {
    return PinDrawing(shape, length).Draw();
}

}  // namespace fighost::kicad
