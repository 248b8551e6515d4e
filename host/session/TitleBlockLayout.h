// How title blocks are laid out: one row per section, stacked in a frame at a corner of the sheet.
#pragma once

#include <figrep/TitleBlockGraphicsGenerator.h>

namespace fighost {

/// Stacks the sections from the top, each in a row as high as its text, with a line between. The
/// frame is as wide as the widest text needs and at least as wide and high as the title block
/// wants; it keeps the block's offsets from its corner of the format. Text that doesn't fit the
/// sheet is not shortened. A title block without format or sections shows nothing.
class TitleBlockLayout : public figrep::TitleBlockGraphicsGenerator {
public:
    void GenerateGraphics(figrep::SmartPtr<figrep::TitleBlock> const& titleBlock) override;
    void GenerateExtents(figrep::SmartPtr<figrep::TitleBlock> const& titleBlock) override;
};

}  // namespace fighost
