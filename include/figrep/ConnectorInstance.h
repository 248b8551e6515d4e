// A pin of a block.
#pragma once

#include <vector>

#include <figrep/GraphicalFigureItem.h>
#include <figrep/TextLabelContainer.h>

namespace figrep {

/// The point on a block where nets end. It isn't a node itself, since several sub-nets can meet
/// here: for each of them it holds one `ConnectorInstanceNode`, the head of that sub-net's tree.
///
/// Ownership: the block holds its connectors, and they know it without holding it. A connector
/// moves with its block only; the nets follow by the operations of their own.
class ConnectorInstance : public GraphicalFigureItem, public TextLabelContainer {
public:
    /// The connector of a kernel record; joins the block.
    ConnectorInstance(SmartPtr<BaseBlockInstance> const& block,
                      SmartPtr<zvk::ReadWriteLock> const& lock,
                      SmartPtr<figk::ConnectorInstance> const& kernelConnector);
    /// A connector of the figure's own; joins the block. It has no id.
    ConnectorInstance(SmartPtr<BaseBlockInstance> const& block,
                      SmartPtr<zvk::ReadWriteLock> const& lock, std::string const& name,
                      DPoint2D const& position);
    ~ConnectorInstance() override;

    FigureItemType GetType() const override;
    SmartPtr<Figure> GetFigure() const override;
    /// Null when the block has gone.
    SmartPtr<BaseBlockInstance> GetBlockInstance() const;
    SmartPtr<figk::ConnectorInstance> GetKernelConnectorInstance() const;
    DPoint2D const& GetPosition() const { return position_; }
    /// Whether the kernel hides the connector.
    bool GetHidden() const;
    /// The picture's box, or the point alone without a picture; `DBox2D::EMPTY` when hidden.
    DBox2D GetExtents() override;
    std::string ToString() const;

    /// Hangs the tree of `node`, a head, below the connector's node for the sub-net, which becomes
    /// the sub-net's head. Does nothing more than pivot when it hangs there already.
    void Attach(SmartPtr<ConnectionNode> const& node);
    void Add(SmartPtr<ConnectorInstanceNode> const& node);
    using TextLabelContainer::Add;
    /// Forgets a node. Takes no lock.
    void Disconnect(SmartPtr<ConnectorInstanceNode> const& node);
    /// The connector's nodes, one for each sub-net, in the order of making.
    std::vector<SmartPtr<ConnectorInstanceNode>> GetConnections() const;

    /// For the block's transforms.
    void Move(SmartPtr<BaseBlockInstance> const& block, double dx, double dy);
    void Rotate(DPoint2D const& about, double radians);
    void Scale(DPoint2D const& about, double factor);
    void Mirror(DPoint2D const& about, bool mirrorY);

    void SetHighlight(bool on) override;
    /// Labels don't preselect with the connector.
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;
    /// `Visit`, then graphics and labels if that answered true, then `VisitComplete`. Nets are
    /// walked from the sub-nets.
    void Accept(AbstractFigureVisitor& visitor) override;

    Symbol GetTextOwnerId() const override;

protected:
    void DeriveId() override;
    void MemberExtentsChanged() override;
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;

private:
    friend class BaseBlockInstance;

    SmartPtr<ConnectorInstanceNode> FindSubNetConnection(SmartPtr<SubNet> const& subNet) const;
    void GeometryChanged();

    BaseBlockInstance* blockInstance_ = nullptr;
    std::vector<SmartPtr<ConnectorInstanceNode>> connections_;
    DPoint2D position_;
};

}  // namespace figrep
