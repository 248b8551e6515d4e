// A block of a diagram.
#pragma once

#include <figrep/BaseBlockInstance.h>

namespace figrep {

/// A block: a part, a sheet symbol, a box that holds others. A block made by name has no id, so
/// that nothing finds it by one.
class BlockInstance : public BaseBlockInstance {
public:
    BlockInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                  SmartPtr<figk::BlockInstance> const& kernelBlock);
    /// A block of the figure's own; joins the figure.
    BlockInstance(SmartPtr<Figure> const& figure, std::string const& name);
    ~BlockInstance() override;

    FigureItemType GetType() const override;
    /// Graphics, labels and connectors, where `Visit` answers true.
    void Accept(AbstractFigureVisitor& visitor) override;

    SmartPtr<figk::BlockInstance> GetKernelBlockInstance() const;

protected:
    void DeriveId() override;
};

}  // namespace figrep
