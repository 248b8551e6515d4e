// Sections of title blocks whose places a drawing sheet has fixed.
#pragma once

#include <optional>

#include <figk/TitleBlock.h>
#include <figkernel/DesignSource.h>

namespace figkernel {

/// What the text sections of the embedded kernel know beyond the contract: layouts that want it ask
/// for this class.
class PlacedTextSection : public figk::TitleBlockTextSection {
public:
    ~PlacedTextSection() override;

    /// Nothing for a section that the layout of its block may put anywhere.
    virtual std::optional<TextPlaceSource> const& GetPlace() const = 0;
};

}  // namespace figkernel
