// The title panel of a sheet, standing on a corner of its format.
#pragma once

#include <dg/Box.h>
#include <dg/Color.h>
#include <figk/TitleBlock.h>
#include <figrep/Fwd.h>
#include <figrep/GraphicalFigureItem.h>
#include <figrep/TextLabelContainer.h>
#include <figrep/TokenObserver.h>

#include <vector>

namespace figrep {

/// Parameters and texts of the title panel. The host lays it out: graphics and box are made on
/// demand through the generator, and any change of a parameter throws them away.
///
/// Ownership: the format holds it; it knows the format without holding it. Locking: the figure's
/// lock, for writing wherever something is laid out.
class TitleBlock : public GraphicalFigureItem, public TextLabelContainer {
public:
    using Corner = figk::TitleBlock::Corner;

    TitleBlock(SmartPtr<zvk::ReadWriteLock> const& lock,
               SmartPtr<figk::TitleBlock> const& kernelTitleBlock,
               SmartPtr<TokenObserver> const& tokenObserver);
    /// A title block with the same parameters and sections of its own, not laid out, in no format.
    TitleBlock(TitleBlock const& other);
    ~TitleBlock() override;

    FigureItemType GetType() const override { return ITEM_TITLE_BLOCK; }
    SmartPtr<figk::TitleBlock> GetKernelTitleBlock() const;
    SmartPtr<Figure> GetFigure() const override;

    // As the kernel has them, in figure units. Without a kernel record: 0, black lines on white.
    Color GetBackgroundColor() const;
    Color GetLineColor() const;
    double GetLineWeight() const;
    double GetMargin() const;
    double GetMinHeight() const;
    double GetMinWidth() const;

    Corner GetCorner() const;
    double GetOffsetX() const;
    double GetOffsetY() const;
    double GetWidthParam() const;
    void SetCorner(Corner corner);
    void SetOffsetX(double offset);
    void SetOffsetY(double offset);
    void SetWidthParam(double width);

    std::vector<SmartPtr<TitleBlockTextSection>> GetTextSections() const;
    void SetTextSections(std::vector<SmartPtr<TitleBlockTextSection>> const& sections);

    /// Null when the title block leaves its format.
    void SetFormat(Format* format);
    /// The same as setting null, unless the title block has gone to another format meanwhile.
    void LeaveFormat(Format const* format);
    SmartPtr<Format> GetFormat() const;
    void SetGraphicsGenerator(SmartPtr<TitleBlockGraphicsGenerator> const& generator);
    /// Has the generator fill the group when it is empty; nothing without a generator.
    void UpdateGraphics();
    /// Throws away what was laid out, moves of the title block alone included, and marks all tokens
    /// out of date.
    void ClearTextAndGraphics();
    /// Throws away what was laid out, since sections have other texts now. The title block stands
    /// where it was moved to when it is laid out again.
    void TextsChanged();

    /// Has the generator compute the box when it isn't known; EMPTY without a generator.
    DBox2D GetExtents() override;
    void SetExtents(DBox2D const& extents);

    /// Moves what is laid out, the box included. The caller holds the lock for writing.
    void Move(double dx, double dy);
    void MoveItem(double dx, double dy) override;
    void SetPreselectHighlight(bool on) override;
    void Accept(AbstractFigureVisitor& visitor) override;
    Symbol GetTextOwnerId() const override { return GetId(); }

protected:
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;

private:
    void Initialise();
    void AcquireTextSections(SmartPtr<figk::TitleBlock> const& kernelTitleBlock);
    void AdoptSections(std::vector<SmartPtr<TitleBlockTextSection>> const& sections);
    void UpdateExtents();
    void ClearLayout();
    void DeriveId() override;
    template <typename Value>
    void ChangeParameter(Value& field, Value const& value);

    Format* format_ = nullptr;  // cleared by the format
    SmartPtr<TitleBlockGraphicsGenerator> generator_;
    std::vector<SmartPtr<TitleBlockTextSection>> textSections_;
    DBox2D layoutExtents_ = DBox2D::EMPTY;
    DVec2 ownMove_{0, 0};  // apart from the moves of the format
    Corner corner_{};
    double offsetX_ = 0.0;
    double offsetY_ = 0.0;
    double widthParam_ = 0.0;
    SmartPtr<TokenObserver> tokenObserver_;
};

}  // namespace figrep
