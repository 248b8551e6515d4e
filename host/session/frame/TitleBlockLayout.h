// How title blocks are laid out: one row per section, stacked in a frame at a corner of the sheet.
#pragma once

#include <figrep/TitleBlockGraphicsGenerator.h>

namespace fighost {

/// Stacks the sections from the top, each in a row as high as its text, with a line between; tabs
/// divide a row into cells. The frame is as wide as the widest row needs and at least as wide and
/// high as the title block wants, but no wider than the sheet, where long texts are written
/// smaller; it keeps the block's offsets from its corner of the format. Sections with places of
/// their own, as a drawing sheet gives them, stand there without a frame. A background without
/// opacity stands for that of the sheet. A title block without format or sections shows nothing.
class TitleBlockLayout : public figrep::TitleBlockGraphicsGenerator {
public:
    void GenerateGraphics(figrep::SmartPtr<figrep::TitleBlock> const& titleBlock) override;
    void GenerateExtents(figrep::SmartPtr<figrep::TitleBlock> const& titleBlock) override;
};

}  // namespace fighost
