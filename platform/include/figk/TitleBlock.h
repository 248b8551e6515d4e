// The title panel of a sheet and its sections of text.
#pragma once

#include <dg/Color.h>
#include <figk/AbstractItem.h>
#include <figk/Group.h>
#include <figk/TextLabelContainer.h>

#include <string>
#include <vector>

namespace figk {

/// One line of a title block: a run of plain and token segments with one format.
class TitleBlockTextSection : public virtual du::RefCounted {
public:
    /// `type` 1 or 3 marks a segment that may hold a token. `original` tells a text as the design
    /// has it from one that was put in later.
    struct TextSegment_s {
        int type = 0;
        std::string token;
        bool original = true;
        std::string text;

        bool operator==(TextSegment_s const&) const = default;
    };

    enum Alignment { ALIGN_LEFT = 0, ALIGN_CENTRE = 1, ALIGN_RIGHT = 2 };

    ~TitleBlockTextSection() override;

    /// The section's number in its title block.
    virtual unsigned int GetId() const = 0;
    /// Appends the segments in order.
    virtual void GetText(std::vector<TextSegment_s>& segments) const = 0;
    virtual Alignment GetAlignment() const = 0;
    virtual bool GetBold() const = 0;
    virtual bool GetItalic() const = 0;
    virtual bool GetUnderline() const = 0;
    virtual bool GetStrikeOut() const = 0;
    virtual dg::Color GetFontColor() const = 0;
    /// Height and distance to the next line, in mm.
    virtual double GetFontSize() const = 0;
    virtual double GetSpacing() const = 0;
};

class TitleBlock : public AbstractItem, public Group, public TextLabelContainer {
public:
    /// The corner of the format at which the block stands.
    enum Corner {
        CORNER_BOTTOM_LEFT = 0,
        CORNER_BOTTOM_RIGHT = 1,
        CORNER_TOP_LEFT = 2,
        CORNER_TOP_RIGHT = 3
    };

    ~TitleBlock() override;

    virtual Corner GetCorner() const = 0;
    // Distances and sizes in mm; offsets lead from the corner inwards.
    virtual double GetOffsetX() const = 0;
    virtual double GetOffsetY() const = 0;
    virtual double GetMargin() const = 0;
    virtual double GetMinWidth() const = 0;
    virtual double GetMinHeight() const = 0;
    virtual dg::Color GetLineColor() const = 0;
    virtual double GetLineWeight() const = 0;
    virtual dg::Color GetBackgroundColor() const = 0;
    /// Appends the sections in order.
    virtual void GetTextSections(std::vector<SmartPtr<TitleBlockTextSection>>& sections) const = 0;
    /// The section of that number, or null.
    virtual SmartPtr<TitleBlockTextSection> GetTextSection(unsigned int id) const = 0;

    /// Shows the title block, then its graphics and labels.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
