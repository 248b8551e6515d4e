// How the text of a title block comes from one publication to the next.
#pragma once

#include <figrep/AbstractFigureDelta.h>

#include <vector>

namespace figrep {

/// Writes resolved texts over those of the figure's title block, as long as both have the same
/// numbers of sections and of segments in each. Fails with status 0 otherwise; in the authoring
/// application also without an application object and in its publish batch mode 4.
class PublishTitleBlockDelta : public AbstractFigureDelta {
public:
    using Sections = std::vector<SmartPtr<TitleBlockTextSection>>;

    explicit PublishTitleBlockDelta(Sections const& sections);
    ~PublishTitleBlockDelta() override;

    /// "publish_title_block_delta", the type under which the delta is saved.
    static Symbol GetClassTypeValue();
    static Symbol const s_delta_type_value;

protected:
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    void _Serialize(zvk::SerializedContentElement* element) override;

private:
    Sections sections_;
    SmartPtr<TitleBlock> titleBlock_;
};

}  // namespace figrep
