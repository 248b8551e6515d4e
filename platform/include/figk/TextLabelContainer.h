// What carries a group of text labels.
#pragma once

#include <du/RefCounted.h>
#include <figk/Fwd.h>

namespace figk {

class TextLabelContainer : public virtual du::RefCounted {
public:
    ~TextLabelContainer() override;

    /// The group of the labels, owned by the container; null when it has none.
    virtual SmartPtr<Group> GetTextLabelContainerGroup() const = 0;

    /// Shows the visitor the container and, when it answers true, the group of labels. A container
    /// without a group isn't shown.
    void AcceptLabels(AbstractVisitor& visitor);

protected:
    TextLabelContainer();
    TextLabelContainer(TextLabelContainer const& other);
};

}  // namespace figk
