// The host's layout of title blocks.
#pragma once

#include <du/RefCounted.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Lays out a title block from its parameters and text sections. Installed by the host through
/// `Figure::SetTitleBlockGraphicsGenerator`. Both are called with the kernel lock held for writing.
class TitleBlockGraphicsGenerator : public virtual du::RefCounted {
public:
    ~TitleBlockGraphicsGenerator() override;

    /// Fills the title block's group; called again as long as the group stays empty.
    virtual void GenerateGraphics(SmartPtr<TitleBlock> const& titleBlock) = 0;
    /// Computes the box in figure coordinates and hands it to `TitleBlock::SetExtents`.
    virtual void GenerateExtents(SmartPtr<TitleBlock> const& titleBlock) = 0;

protected:
    TitleBlockGraphicsGenerator() = default;
};

}  // namespace figrep
