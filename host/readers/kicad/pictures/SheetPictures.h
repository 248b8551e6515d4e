// What is drawn on a sheet without being connected: texts, shapes, images, tables, the frame, and
// the frames of sub-sheets. Private to the writer of designs.
#pragma once

#include <memory>
#include <string>

#include <figkernel/DesignSource.h>
#include <readers/kicad/design/Hierarchy.h>
#include <readers/kicad/pictures/ImageSize.h>
#include <readers/kicad/pictures/Looks.h>
#include <readers/kicad/pictures/Shapes.h>

namespace fighost::kicad {

/// A picture about its centre; a frame, with a warning, where its size can't be told. A scale of 1
/// shows it in its own size.
EntityPtr MakeImage(std::shared_ptr<std::string const> const& bytes, double scale,
                    dg::DPoint2D const& at, std::string const& file, Findings& findings,
                    ImageResolution resolution = ImageResolution::OWN_OR_DEFAULT);

/// Draws one sheet of the hierarchy.
class SheetPictures {
public:
    SheetPictures(Hierarchy const& hierarchyToShow, std::uint32_t sheetNumber, Looks& palette,
                  Frame const& sheetFrame, Findings& list)
        : hierarchy(hierarchyToShow),
          sheet(sheetNumber),
          file(*hierarchyToShow.sheets[sheetNumber].file),
          looks(palette),
          frame(sheetFrame),
          findings(list) {}

    /// Texts, shapes, rule areas, tables and images.
    void DrawContent(figkernel::GroupSource& group);
    /// The block that stands for a sub-sheet; one that can't be shown says so.
    figkernel::BlockSource MakeSheetBlock(std::size_t number);
    /// Paper, border, reference grid and title block: as the project's drawing sheet has them, else
    /// our own.
    void DrawFrame(figkernel::SheetSource& out);

private:
    void DrawShape(Shape const& shape, Role role, figkernel::GroupSource& group);
    void DrawText(Shape const& shape, figkernel::GroupSource& group);
    void DrawBoxText(Shape const& shape, std::string const& id, figkernel::GroupSource& group);
    void DrawTable(Table const& table, figkernel::GroupSource& group);
    void DrawImage(Image const& image, figkernel::GroupSource& group);
    figkernel::FormatSource MakeFormat() const;
    void DrawGrid(figkernel::FormatSource& format);
    figkernel::TitleBlockSource MakeTitleBlock() const;
    void MarkMissing(SheetSymbol const& symbol, std::string const& reason,
                     figkernel::BlockSource& block);
    std::string Expand(std::string_view text) const;

    Hierarchy const& hierarchy;
    std::uint32_t sheet;
    SheetFile const& file;
    Looks& looks;
    Frame frame;
    Findings& findings;
};

}  // namespace fighost::kicad
