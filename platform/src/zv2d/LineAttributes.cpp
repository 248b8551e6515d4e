#include <zv2d/LineAttributes.h>

namespace zv2d {

namespace {

/// The low four bits as a number from -8 to 7.
int SignedNibble(int value) {
    return ((value & 0xF) ^ 0x8) - 0x8;
}

}  // namespace

LineAttributes::LineAttributes()
    : LineAttributes(JOIN_ROUND, CAP_ROUND, nullptr, 0.0F, KIND_DRAWING, 0.0F, KIND_DRAWING,
                     dg::Color::BLACK, dg::Color::BLACK) {}

LineAttributes::LineAttributes(int join, int cap, du::ConstSmartPtr<LineStyle> const& style,
                               float weight, int weightKind, float patternScale,
                               int patternScaleKind, dg::Color const& color,
                               dg::Color const& secondColor,
                               du::ConstSmartPtr<du::RefCounted> const& extra)
    : join_(SignedNibble(join)),
      cap_(SignedNibble(cap)),
      weightKind_(SignedNibble(weightKind)),
      patternScaleKind_(SignedNibble(patternScaleKind)),
      weight_(weight),
      patternScale_(patternScale),
      color_(color),
      secondColor_(secondColor),
      style_(style ? style : LineStyleList::GetDefault()),
      extra_(extra) {}

LineAttributes::~LineAttributes() = default;

bool operator==(LineAttributes const& a, LineAttributes const& b) {
    return a.join_ == b.join_ && a.cap_ == b.cap_ && a.weightKind_ == b.weightKind_ &&
           a.patternScaleKind_ == b.patternScaleKind_ && a.weight_ == b.weight_ &&
           a.patternScale_ == b.patternScale_ && a.color_ == b.color_ &&
           a.secondColor_ == b.secondColor_ && a.style_ == b.style_ && a.extra_ == b.extra_;
}

}  // namespace zv2d
