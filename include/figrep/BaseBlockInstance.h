// What blocks, cables and tables have in common: connectors, nesting, labels.
#pragma once

#include <vector>

#include <figrep/GraphicalFigureItem.h>
#include <figrep/TextLabelContainer.h>

namespace figrep {

class BlockTransform;
struct BlockLook;

/// A box of a diagram. It holds its connectors and its children; a child moves with its parent
/// only. The figure holds every box, children too, so children aren't walked from here.
///
/// Units: figure units (millimetres), y upward, angles in radians. Locking: queries and walks take
/// the shared lock for reading, changes for writing.
class BaseBlockInstance : public GraphicalFigureItem, public TextLabelContainer {
public:
    using TextLabelContainer::Add;
    /// Nests a block in this one, unless this one stands inside it.
    void Add(SmartPtr<BaseBlockInstance> const& child);

    /// Null at the top.
    SmartPtr<BaseBlockInstance> GetParent() const;
    std::vector<SmartPtr<BaseBlockInstance>> GetChildren() const;
    bool HasChildren() const;
    std::vector<SmartPtr<ConnectorInstance>> GetConnectorInstances() const;
    std::size_t GetNumConnectorInstances() const;

    /// The box of graphics, children and connectors; kept until something moves.
    DBox2D GetExtents() override;
    /// Ask the kernel's picture, or the graphics here when there is none or it was transformed.
    bool FineContentCheck(DBox2D const& box) const override;
    bool FineOverlapCheck(DPoint2D const& point) const override;
    bool FineOverlapCheck(DBox2D const& box) const override;

    void SetHighlight(bool on) override;
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;

    // A block with a parent stays where it is.
    void MoveItem(double dx, double dy) override;
    void RotateItem(DPoint2D const& about, double radians) override;
    void ScaleItem(DPoint2D const& about, double factor) override;
    void MirrorItem(DPoint2D const& about, bool mirrorY) override;

    Symbol GetTextOwnerId() const override;

protected:
    BaseBlockInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                      SmartPtr<figk::BaseBlockInstance> const& kernelBlock);
    BaseBlockInstance(SmartPtr<zvk::ReadWriteLock> const& lock, std::string const& name);
    ~BaseBlockInstance() override;

    // Transform the block with all that it holds, children included. The write lock is the
    // caller's.
    virtual void Move(double dx, double dy);
    virtual void Rotate(DPoint2D const& about, double radians);
    virtual void Scale(DPoint2D const& about, double factor);
    virtual void Mirror(DPoint2D const& about, bool mirrorY);

    void Add(SmartPtr<ConnectorInstance> const& connector);
    void SetParent(SmartPtr<BaseBlockInstance> const& parent);

    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void SettingsChanged() override;
    void MemberExtentsChanged() override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;

    /// Graphics, then labels: what every kind of block shows to a visitor.
    void AcceptGraphicsAndLabels(AbstractFigureVisitor& visitor);
    void AcceptConnectors(AbstractFigureVisitor& visitor);

    /// Does one transform to this block without its children. Kinds of blocks that hold more than
    /// graphics, labels and connectors add to it.
    virtual void TransformAlone(BlockTransform const& transform);
    /// Sets one look of this block without its children.
    virtual void SetLookAlone(BlockLook const& look);

    /// Tells what this block holds besides its children that settings above it changed.
    virtual void InheritedSettingsChanged() {}
    /// Notes here and above that a cable stands in this block, so that settings concern it.
    void NoteCable();

private:
    friend class ConnectorInstance;
    friend class SubNet;

    using Family = std::vector<SmartPtr<BaseBlockInstance>>;

    /// This block and all blocks below it, parents before children. Nesting may be deep, so
    /// nothing here recurses.
    Family GetFamily() const;
    /// Appends the children to `orphans`, who no longer know a parent.
    void GiveUpChildren(Family& orphans);
    bool IsInside(BaseBlockInstance const& other) const;
    void TransformFamily(BlockTransform const& transform);
    void SetFamilyLook(BlockLook const& look);
    DBox2D MeasureExtents();
    /// Forgets the boxes of this block and of those above. Where the box is unknown, those above
    /// are unknown too, so it stops there.
    void ForgetExtents();
    SmartPtr<figk::Zv2dGraphics> GetPictureInPlace() const;

    std::vector<SmartPtr<ConnectorInstance>> connectorInstances_;
    BaseBlockInstance* parent_ = nullptr;
    std::vector<SmartPtr<BaseBlockInstance>> children_;
    bool holdsCable_ = false;    ///< itself, or somewhere below, now or once
    bool extentsKnown_ = false;  ///< then those of all children are, too
    /// The kernel's picture no longer stands where this block does.
    bool transformed_ = false;
};

}  // namespace figrep
