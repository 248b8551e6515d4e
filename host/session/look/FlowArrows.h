// Arrows on wires that show which way signals flow.
#pragma once

#include <figrep/Fwd.h>

namespace fighost {

/// Gives every sub-net of the figure that knows where its flow starts an `ARROW_STYLE` at
/// `LEVEL_PROFILE`: a filled head in the wire's colour at each end that the flow comes to. Sub-nets
/// without a start segment, and buses, have none, nor has what a net reaches by a bus alone, nor an
/// end in which several pins meet.
///
/// `UpdateContent` is needed afterwards. The arrows are no change of the figure: `HasChanged`
/// answers as before. Takes the figure's lock for writing. A null figure does nothing.
void ShowFlow(figrep::SmartPtr<figrep::Figure> const& figure);

}  // namespace fighost
