// Decoration of a sheet.
#pragma once

#include <figrep/GraphicalFigureItem.h>

namespace figrep {

/// Graphics without any meaning for the wires.
class Miscellaneous : public GraphicalFigureItem {
public:
    Miscellaneous(SmartPtr<zvk::ReadWriteLock> const& lock,
                  SmartPtr<figk::Miscellaneous> const& kernelMiscellaneous);
    ~Miscellaneous() override;

    FigureItemType GetType() const override;
    /// The graphics, where `Visit` answers true.
    void Accept(AbstractFigureVisitor& visitor) override;

    SmartPtr<figk::Miscellaneous> GetKernelMiscellaneous() const;

protected:
    void DeriveId() override;
};

}  // namespace figrep
