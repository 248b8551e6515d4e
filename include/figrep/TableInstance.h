// A table drawn in a diagram.
#pragma once

#include <figrep/BaseBlockInstance.h>

namespace figrep {

/// A table: graphics and labels. No net joins its connectors.
class TableInstance : public BaseBlockInstance {
public:
    TableInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                  SmartPtr<figk::TableInstance> const& kernelTable);
    /// A table of the figure's own, known by its name; joins the figure.
    TableInstance(SmartPtr<Figure> const& figure, std::string const& name);
    ~TableInstance() override;

    FigureItemType GetType() const override;
    /// Graphics and labels, where `Visit` answers true.
    void Accept(AbstractFigureVisitor& visitor) override;

    SmartPtr<figk::TableInstance> GetKernelTableInstance() const;

protected:
    void DeriveId() override;
};

}  // namespace figrep
