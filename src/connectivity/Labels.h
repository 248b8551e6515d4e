// What sub-nets and sub-highways do alike with the labels of their segments, and with factors.
#pragma once

#include <figrep/ConnectionNode.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>

#include <cmath>

#include "NodeWalk.h"

namespace figrep {

/// The label of the first `Wire` of the walk from `head` that has a text as its first label; null
/// when there is none.
template <class Wire>
SmartPtr<TextGraphic> FindFirstLabel(SmartPtr<ConnectionNode> const& head) {
    SmartPtr<TextGraphic> label;
    WalkNodesWhile(head, [&](SmartPtr<ConnectionNode> const& node) {
        auto const wire = du::DynamicCast<Wire>(node);
        if (!wire || !wire->HasTextLabels()) return true;
        auto const group = wire->GetTextLabelContainerGroup();
        label = du::DynamicCast<TextGraphic>(*group->BeginGroup());
        return !label;
    });
    return label;
}

/// Gives an item of the figure's own the colour that its label names, above all other levels.
void TakeColorFromLabel(SettingList& item, SmartPtr<TextGraphic> const& text);

}  // namespace figrep
