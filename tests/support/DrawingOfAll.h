// One sheet that has something of everything that can be hidden and isolated.
#pragma once

#include <figrep/Fwd.h>
#include <support/Drawing.h>

#include <string>
#include <vector>

namespace figrep::test {

/// Blocks U1, U2 and U3, the last inside U2; a cable K of the nets C1 and C2; the net A from U1 to
/// U2; the net B from U1 onto the bus H; a port P on the net D and a port HP on the bus; a table T;
/// on the figure itself a text "free", and in a group the texts "g1" and "g2", a line "gline" and a
/// group of its own with a text "deep"; a format and a title block.
Drawing DrawingOfAll();

/// A loaded figure of the sheet, with its format and title block, which hosts bring in by
/// themselves.
SmartPtr<Figure> FramedFigure(SmartPtr<figk::Sheet> const& sheet);

/// What tests call an item: a wire by its name, anything else by its id without the first sheet's.
std::string LabelOf(SmartPtr<AbstractFigureItem> const& item);
std::vector<std::string> LabelsOf(std::vector<SmartPtr<AbstractFigureItem>> const& items);

/// All items of a figure that have a visibility of their own kind: what a user can hide, and what
/// can inherit that. In the order of a walk, each once.
std::vector<SmartPtr<AbstractFigureItem>> ItemsThatShow(SmartPtr<Figure> const& figure);

/// The labels of those of `ItemsThatShow` that aren't visible, sorted.
std::vector<std::string> HiddenOn(SmartPtr<Figure> const& figure);

}  // namespace figrep::test
