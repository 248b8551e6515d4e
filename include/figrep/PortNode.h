// One appearance of a port on a sheet.
#pragma once

#include <vector>

#include <figrep/ConnectionNode.h>
#include <figrep/GraphicalFigureItem.h>
#include <figrep/SubNetList.h>
#include <figrep/TextLabelContainer.h>

namespace figrep {

/// A port's place on a sheet: an item with a picture and a node of one tree, that of a sub-net or
/// that of a sub-highway. Its picture moves with it.
class PortNode : public GraphicalFigureItem, public ConnectionNode, public TextLabelContainer {
public:
    PortNode(SmartPtr<Port> const& port, SmartPtr<SubHighway> const& subHighway,
             SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::PortNode> const& kernelNode,
             SmartPtr<ConnectionNode> const& predecessor);
    PortNode(SmartPtr<Port> const& port, SmartPtr<SubHighway> const& subHighway,
             SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& position,
             SmartPtr<ConnectionNode> const& predecessor);
    PortNode(SmartPtr<Port> const& port, SmartPtr<SubNet> const& subNet,
             SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::PortNode> const& kernelNode,
             SmartPtr<ConnectionNode> const& predecessor);
    PortNode(SmartPtr<Port> const& port, SmartPtr<SubNet> const& subNet,
             SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& position,
             SmartPtr<ConnectionNode> const& predecessor);
    ~PortNode() override;

    // The item.
    FigureItemType GetType() const override;
    SmartPtr<Figure> GetFigure() const override;
    void SetHighlight(bool on) override;
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;
    void MoveItem(double dx, double dy) override;
    void RotateItem(DPoint2D const& about, double radians) override;
    void MirrorItem(DPoint2D const& about, bool mirrorY) override;
    void Accept(AbstractFigureVisitor& visitor) override;

    // The node.
    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;
    /// Null on a highway.
    SmartPtr<SubNet> GetSubNet() const override;
    /// Forgets the sub-net that it stands on. The list of those on its highway stays.
    void Remove(SmartPtr<SubNet> const& subNet) override;
    using ConnectionNode::Visit;
    using SettingList::Visit;
    /// On a highway: null, or a sub-net that reaches this node; on a net: its own.
    bool Visit(SmartPtr<SubNet> const& subNet) const override;
    SmartPtr<Figure> GetNodeFigure() const override;
    bool Contacts(SmartPtr<ConnectionNode> const& other, DPoint2D& at) const override;
    bool Contacts(DPoint2D const& point) const override;
    void Move(double dx, double dy) override;
    void Rotate(DPoint2D const& about, double radians) override;
    void Scale(DPoint2D const& about, double factor) override;
    void Mirror(DPoint2D const& about, bool mirrorY) override;

    // Labels.
    Symbol GetTextOwnerId() const override;
    using TextLabelContainer::Add;

    /// Appends a sub-net that reaches this node along its highway, also one that does already.
    void Add(SmartPtr<SubNet> const& subNet);
    std::vector<SmartPtr<SubNet>> GetHighwaySubNets() const;

    SmartPtr<Port> GetPort() const;
    /// Null on a net.
    SmartPtr<SubHighway> GetSubHighway() const;
    SmartPtr<figk::PortNode> GetKernelPortNode() const;
    DPoint2D GetPosition() const;

protected:
    bool AcceptNode(AbstractFigureVisitor& visitor) override;
    void DeriveId() override;
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;

private:
    void JoinPort();
    void OwnerExtentsChanged();

    SmartPtr<Port> port_;
    SmartPtr<SubHighway> subHighway_;
    SmartPtr<SubNet> subNet_;
    DPoint2D position_;
    SubNetList highwaySubNets_;
};

}  // namespace figrep
