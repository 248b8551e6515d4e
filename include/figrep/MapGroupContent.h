// Carries the nesting groups of a kernel sheet's graphics over to a figure.
#pragma once

#include <figrep/Fwd.h>

#include <unordered_map>

namespace figrep {

/// Keeps which figure group stands for which kernel group, and makes figure groups, graphics and
/// texts in the place where their kernel originals stand. Graphics of a group that has no figure
/// group are dropped.
class MapGroupContent {
public:
    /// With a factory of this library's own classes.
    MapGroupContent();
    MapGroupContent(MapGroupContent const&);
    MapGroupContent& operator=(MapGroupContent const&);
    virtual ~MapGroupContent();

    /// The factory of all items made from now on; null is ignored, so that there always is one.
    void SetFactory(SmartPtr<AbstractKernelToFigureFactory> const& factory);

protected:
    SmartPtr<AbstractKernelToFigureFactory> const& GetFactory() const { return factory_; }

    /// Pairs two groups unless the kernel group is paired already; for two label containers also
    /// their groups of labels.
    void MapGroups(SmartPtr<figk::Group> const& kernelGroup,
                   SmartPtr<figk::Group> const& figureGroup);
    void MapTextLabelContainerGroups(SmartPtr<figk::TextLabelContainer> const& kernelContainer,
                                     SmartPtr<TextLabelContainer> const& figureContainer);
    /// The figure group that stands for a kernel group, or null.
    SmartPtr<figk::Group> GetFigureGroup(SmartPtr<figk::Group> const& kernelGroup) const;
    /// Makes the figure's sub-group for a kernel sub-group when a walk first enters it.
    void StartGroup(SmartPtr<figk::Group> const& kernelGroup);
    /// Forgets the pair of a group that a walk leaves for good.
    void EndGroup(SmartPtr<figk::Group> const& kernelGroup);
    /// Null for a graphic whose group isn't paired.
    SmartPtr<GenericGraphic> CopyGenericGraphic(SmartPtr<figk::GenericGraphic> const& graphic);
    SmartPtr<TextGraphic> CopyTextGraphic(SmartPtr<figk::TextGraphic> const& text);
    void ClearGroupMap();

private:
    void StorePair(SmartPtr<figk::Group> const& kernelGroup,
                   SmartPtr<figk::Group> const& figureGroup);

    SmartPtr<AbstractKernelToFigureFactory> factory_;
    std::unordered_map<SmartPtr<figk::Group>, SmartPtr<figk::Group>> groupMap_;
};

}  // namespace figrep
