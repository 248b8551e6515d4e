// The values that settings hold.
#pragma once

#include <attrs/FillAttr.h>
#include <dg/Color.h>
#include <du/RefCounted.h>
#include <figk/ArrowStyle.h>
#include <figk/Fwd.h>
#include <zv2d/LineAttributes.h>
#include <zv2d/LineStyle.h>
#include <zv2d/Texture.h>

#include <string>

namespace figk {

/// What a wire shows where it crosses another one.
enum CrossingPointStyle { CROSSING_NONE = 0, CROSSING_ARC = 1, CROSSING_GAP = 2 };

/// The width of lines. `kind` is that of `zv2d::LineAttributes`: 3 means that `weight` counts, in
/// mm.
struct WeightAttr {
    float weight = 0;
    int kind = 0;

    bool operator==(WeightAttr const&) const = default;
};

/// The dashes of lines. `kind` and `scale` are those of the pattern of `zv2d::LineAttributes`.
struct LineStyleAttr {
    ConstSmartPtr<zv2d::LineStyle> style;
    int kind = 0;
    float scale = 0;

    bool operator==(LineStyleAttr const& other) const {
        return style.Get() == other.style.Get() && kind == other.kind && scale == other.scale;
    }
};

/// A value of any kind, immutable once built.
class BaseSettingValue : public virtual du::RefCounted {
public:
    enum Type {
        TYPE_NONE = 0,
        TYPE_BOOL = 1,
        TYPE_COLOR = 2,
        TYPE_FLOAT = 3,
        TYPE_CROSSING_POINT_STYLE = 4,
        TYPE_LINE_ATTRIBUTES = 5,
        TYPE_FILL_ATTRIBUTES = 6,
        TYPE_ARROW_STYLE = 7,
        TYPE_LINE_STYLE = 8,
        TYPE_WEIGHT = 9,
        TYPE_TEXTURE = 10
    };

    explicit BaseSettingValue(Type type);
    BaseSettingValue(BaseSettingValue const& other);
    ~BaseSettingValue() override;

    Type GetType() const { return type_; }
    /// Values of different types are never equal. The base compares types alone.
    virtual bool operator==(BaseSettingValue const& other) const;
    virtual std::string ToString() const;
    virtual SmartPtr<BaseSettingValue> Clone() const;

private:
    Type type_;
};

/// The type number of each kind of value, and its text.
template <typename T>
struct SettingValueTraits;

#define FIGK_SETTING_VALUE(ValueType, TypeName)                                    \
    template <>                                                                    \
    struct SettingValueTraits<ValueType> {                                         \
        static constexpr BaseSettingValue::Type TYPE = BaseSettingValue::TypeName; \
        static bool Equal(ValueType const& a, ValueType const& b);                 \
        static std::string Text(ValueType const& value);                           \
    }

FIGK_SETTING_VALUE(bool, TYPE_BOOL);
FIGK_SETTING_VALUE(dg::Color, TYPE_COLOR);
FIGK_SETTING_VALUE(float, TYPE_FLOAT);
FIGK_SETTING_VALUE(CrossingPointStyle, TYPE_CROSSING_POINT_STYLE);
FIGK_SETTING_VALUE(ConstSmartPtr<zv2d::LineAttributes>, TYPE_LINE_ATTRIBUTES);
FIGK_SETTING_VALUE(ConstSmartPtr<attrs::FillAttr>, TYPE_FILL_ATTRIBUTES);
FIGK_SETTING_VALUE(ArrowStyle, TYPE_ARROW_STYLE);
FIGK_SETTING_VALUE(LineStyleAttr, TYPE_LINE_STYLE);
FIGK_SETTING_VALUE(WeightAttr, TYPE_WEIGHT);
FIGK_SETTING_VALUE(ConstSmartPtr<zv2d::Texture>, TYPE_TEXTURE);

#undef FIGK_SETTING_VALUE

/// A value of one kind. Pointers to attributes are equal when what they point to is.
template <typename T>
class SettingValue : public BaseSettingValue {
public:
    explicit SettingValue(T const& v) : BaseSettingValue(SettingValueTraits<T>::TYPE), value(v) {}

    bool operator==(BaseSettingValue const& other) const override {
        auto const* same = dynamic_cast<SettingValue const*>(&other);
        return same && SettingValueTraits<T>::Equal(value, same->value);
    }
    std::string ToString() const override { return SettingValueTraits<T>::Text(value); }
    SmartPtr<BaseSettingValue> Clone() const override {
        return SmartPtr<BaseSettingValue>(new SettingValue(value));
    }

    T const value;
};

}  // namespace figk
