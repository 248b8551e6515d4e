// The frame of a sheet, which a sheet delta doesn't bring into a figure.
#pragma once

#include <figrep/Fwd.h>

namespace fighost {

/// Gives the figure the frame that the kernel has for the sheet, with its border and labels. A sheet
/// without one leaves the figure without. Null arguments do nothing. Cost: linear in the frame.
void AddSheetFrame(figrep::SmartPtr<figk::Sheet> const& sheet,
                   figrep::SmartPtr<figrep::Figure> const& figure);

}  // namespace fighost
