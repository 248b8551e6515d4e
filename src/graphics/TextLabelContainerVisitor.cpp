#include <figrep/TextLabelContainerVisitor.h>

#include <figrep/GenericGraphic.h>
#include <figrep/Miscellaneous.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>

namespace figrep {

TextLabelContainerVisitor::TextLabelContainerVisitor() = default;

TextLabelContainerVisitor::~TextLabelContainerVisitor() = default;

bool TextLabelContainerVisitor::StartGroupVisit(SmartPtr<figk::Group> const& group) {
    if (!group_ && !du::DynamicCast<TextLabelContainerGroup>(group)) group_ = group;
    return true;
}

bool TextLabelContainerVisitor::EndGroupVisit(SmartPtr<figk::Group> const& group) {
    if (!group_ || group_ != group) return true;
    if (firstText_) {
        if (firstGeneric_) {
            miscItems_.push_back(firstGeneric_);
        } else {
            textItems_.push_back(firstText_);
        }
    }
    group_.Reset();
    firstGeneric_.Reset();
    firstText_.Reset();
    return true;
}

bool TextLabelContainerVisitor::Visit(SmartPtr<GenericGraphic> const& graphic) {
    if (!graphic) return true;
    if (!group_) {
        miscItems_.push_back(graphic);
    } else if (!firstGeneric_) {
        firstGeneric_ = graphic;
    }
    return true;
}

bool TextLabelContainerVisitor::Visit(SmartPtr<TextGraphic> const& text) {
    if (!text) return true;
    if (!group_) {
        textItems_.push_back(text);
    } else if (!firstText_) {
        firstText_ = text;
    }
    return true;
}

bool TextLabelContainerVisitor::Visit(SmartPtr<Miscellaneous> const& item) {
    if (item) miscItems_.push_back(item);
    return false;
}

}  // namespace figrep
