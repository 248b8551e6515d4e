// How well colours can be told apart.
#pragma once

#include <dg/Color.h>

namespace fighost {

/// `color` as it is seen on an opaque ground; opaque.
dg::Color Over(dg::Color const& color, dg::Color const& ground);

/// The contrast ratio of the web's accessibility guidelines, from 1 for equal colours to 21 for
/// black and white; of what is seen of `color` on the ground.
double ContrastRatio(dg::Color const& color, dg::Color const& ground);

/// Whether white is further from it than black.
bool IsDark(dg::Color const& color);

/// A colour for lines and texts that has at least this contrast to the ground. One that has it
/// stays. Another has its lightness turned round, so that what was dark on white becomes light on a
/// dark ground, and goes on towards white or black only as far as it needs; hue stays, and opacity
/// too unless nothing else helps.
dg::Color Readable(dg::Color const& ink, dg::Color const& ground, double contrast);

/// A colour for areas whose contrast to the ground is at most this, so that what is readable on the
/// ground is so on the area. One that is close enough stays; else it goes as far as it needs
/// towards the ground, from the lightness of its own that is nearer to the ground's.
dg::Color Subdued(dg::Color const& fill, dg::Color const& ground, double contrast);

}  // namespace fighost
