// The frame and the title block of a sheet, which a sheet delta doesn't bring into a figure.
#pragma once

#include <figrep/Fwd.h>

namespace fighost {

/// Gives the figure the frame that the kernel has for the sheet, with its border, labels and title
/// block. A sheet without a frame leaves the figure without both. Null arguments do nothing.
void AddSheetFrame(figrep::SmartPtr<figk::Sheet> const& sheet,
                   figrep::SmartPtr<figrep::Figure> const& figure);

}  // namespace fighost
