// The off-sheet end of a net or a highway.
#pragma once

#include <vector>

#include <figrep/AbstractFigureItem.h>

namespace figrep {

/// A logical port: where a signal leaves the sheet. Its appearances are its port nodes, which hold
/// it; it knows them without holding them.
class Port : public AbstractFigureItem {
public:
    /// A port of the figure's own; joins the figure. It counts as being on a net and has no name.
    Port(SmartPtr<Figure> const& figure, SmartPtr<zvk::ReadWriteLock> const& lock,
         std::string const& name);
    /// The port of a kernel record; the caller hands it to the figure.
    Port(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::Port> const& kernelPort);
    ~Port() override;

    FigureItemType GetType() const override;
    /// The kernel port's name; empty without a record, whatever name the port was made with.
    std::string const& GetName() const override;
    SmartPtr<figk::Port> GetKernelPort() const;

    /// The port's appearances that still exist, in the order of making.
    std::vector<SmartPtr<PortNode>> GetPortNodes() const;
    /// Whether the port is the end of a highway.
    bool OnHighwayNotNet() const;

    // A port has no look of its own; these reach its nodes.
    void SetHighlight(bool on) override;
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;

    void Accept(AbstractFigureVisitor& visitor) override;

protected:
    void DeriveId() override;
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;

private:
    friend class PortNode;

    void Add(PortNode* node);
    /// Empties the dying node's slot; the slot goes on counting.
    void Forget(PortNode const* node);
    unsigned int GetNextPortNodeId();

    std::vector<PortNode*> portNodes_;
};

}  // namespace figrep
