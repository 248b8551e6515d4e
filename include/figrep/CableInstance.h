// A cable drawn as a box, with the nets that run in it.
#pragma once

#include <figrep/BaseBlockInstance.h>

namespace figrep {

/// A cable: what is done to it is done to its sub-nets, which inherit its settings. It holds them
/// and they hold it, until `ClearSubNets`.
class CableInstance : public BaseBlockInstance {
public:
    CableInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                  SmartPtr<figk::CableInstance> const& kernelCable);
    /// A cable of the figure's own, known by its name; joins the figure.
    CableInstance(SmartPtr<Figure> const& figure, std::string const& name);
    ~CableInstance() override;

    using BaseBlockInstance::Add;
    /// Takes a sub-net into the cable.
    void Add(SmartPtr<SubNet> const& subNet);
    void ClearSubNets();
    std::vector<SmartPtr<SubNet>> GetSubNets() const;

    FigureItemType GetType() const override;
    /// Graphics and labels, where `Visit` answers true.
    void Accept(AbstractFigureVisitor& visitor) override;

    SmartPtr<figk::CableInstance> GetKernelCableInstance() const;

protected:
    /// The sub-nets move with the cable.
    void TransformAlone(BlockTransform const& transform) override;
    /// The sub-nets look as the cable does.
    void SetLookAlone(BlockLook const& look) override;
    void DeriveId() override;
    /// Marks the sub-nets, which inherit from the cable.
    void InheritedSettingsChanged() override;

private:
    std::vector<SmartPtr<SubNet>> subNets_;
};

}  // namespace figrep
