// Whether the box over a figure's content is where the content is.
#pragma once

#include <dg/Box.h>
#include <figrep/FigureContentShadow.h>
#include <gtest/gtest.h>

namespace fighost::test {

inline void ExpectFits(zvmk::FigureContentShadow const& shadow, dg::DBox2D const& box) {
    using Shadow = zvmk::FigureContentShadow;
    auto const low = shadow.GetHandle(Shadow::BOTTOM_LEFT)->GetPosition();
    auto const high = shadow.GetHandle(Shadow::TOP_RIGHT)->GetPosition();
    EXPECT_NEAR(low.x, box.XMin(), 1e-6);
    EXPECT_NEAR(low.y, box.YMin(), 1e-6);
    EXPECT_NEAR(high.x, box.XMax(), 1e-6);
    EXPECT_NEAR(high.y, box.YMax(), 1e-6);
}

}  // namespace fighost::test
