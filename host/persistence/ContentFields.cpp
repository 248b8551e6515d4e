#include <persistence/ContentFields.h>

#include <cmath>
#include <variant>

namespace fighost {

using du::Symbol;

template <class Type>
Type ContentFields::As(Value const* value, Symbol const& key, char const* kind) {
    if (!value) {
        Complain("it has no '" + key.GetString() + "'");
        return Type();
    }
    if (auto const* typed = std::get_if<Type>(value)) return *typed;
    Complain("its '" + key.GetString() + "' is no " + kind);
    return Type();
}

Symbol ContentFields::Text(Symbol const& key) {
    return As<Symbol>(element_.FindProperty(key), key, "text");
}

bool ContentFields::Flag(Symbol const& key) {
    return As<bool>(element_.FindProperty(key), key, "yes or no");
}

int ContentFields::Whole(Symbol const& key) {
    return As<int>(element_.FindProperty(key), key, "whole number");
}

double ContentFields::Real(Symbol const& key) {
    double const value = As<double>(element_.FindProperty(key), key, "number");
    if (std::isfinite(value)) return value;
    Complain("its '" + key.GetString() + "' is not a finite number");
    return 0;
}

dg::DPoint2D ContentFields::AsPoint(Value const* value, Symbol const& key) {
    auto const point = As<dg::DPoint3D>(value, key, "point");
    if (std::isfinite(point.x) && std::isfinite(point.y)) return {point.x, point.y};
    Complain("its '" + key.GetString() + "' is nowhere");
    return {};
}

dg::DPoint2D ContentFields::Point(Symbol const& key) {
    return AsPoint(element_.FindProperty(key), key);
}

std::vector<Symbol> ContentFields::Texts(Symbol const& key) {
    std::vector<Symbol> texts;
    for (auto const* value : element_.FindProperties(key))
        texts.push_back(As<Symbol>(value, key, "text"));
    return texts;
}

std::vector<dg::DPoint2D> ContentFields::Points(Symbol const& key) {
    std::vector<dg::DPoint2D> points;
    for (auto const* value : element_.FindProperties(key))
        points.push_back(AsPoint(value, key));
    return points;
}

}  // namespace fighost
