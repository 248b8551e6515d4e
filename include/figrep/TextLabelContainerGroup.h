// The group that holds the labels of one item.
#pragma once

#include <figrep/GraphicGroup.h>

namespace figrep {

/// The labels of one container. They inherit settings from the container's item.
///
/// Ownership: the container holds the group; the group knows the container without holding it and
/// forgets it when the container goes.
class TextLabelContainerGroup : public GraphicGroup {
public:
    /// `container` may be null.
    explicit TextLabelContainerGroup(TextLabelContainer* container);
    ~TextLabelContainerGroup() override;

    /// Null after the container has gone.
    SmartPtr<TextLabelContainer> GetTextLabelContainer() const;

    /// The container's inheritable settings; null when the container isn't a list of settings.
    ConstSmartPtr<figk::Setting> GetGroupSetting(Setting::RepKey key, unsigned& depth,
                                                 bool inheritableOnly) const override;

    void MoveText(double dx, double dy);
    void RotateText(DPoint2D const& centre, double radians);
    void ScaleText(DPoint2D const& centre, double factor);
    void MirrorText(DPoint2D const& point, bool axis);

private:
    friend class TextLabelContainer;

    TextLabelContainer* container_;  // cleared by the container's destructor
    SettingList const* settings_;    // the container's, where it was known from the start
};

}  // namespace figrep
