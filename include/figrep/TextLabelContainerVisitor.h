// Sorts what a container's groups hold into texts and other items.
#pragma once

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// A group with a picture and a text is told as the picture, one with a text alone as the text,
/// one without a text not at all. Items of other kinds aren't entered.
class TextLabelContainerVisitor : public AbstractFigureVisitor {
public:
    TextLabelContainerVisitor();
    ~TextLabelContainerVisitor() override;

    std::vector<SmartPtr<AbstractFigureItem>> const& GetTextItems() const { return textItems_; }
    std::vector<SmartPtr<AbstractFigureItem>> const& GetMiscItems() const { return miscItems_; }

    bool StartGroupVisit(SmartPtr<figk::Group> const& group) override;
    bool EndGroupVisit(SmartPtr<figk::Group> const& group) override;
    bool Visit(SmartPtr<UnroutedConnection> const&) override { return false; }
    bool Visit(SmartPtr<TitleBlock> const&) override { return false; }
    bool Visit(SmartPtr<TextGraphic> const& text) override;
    bool Visit(SmartPtr<TableInstance> const&) override { return false; }
    bool Visit(SmartPtr<SubNet> const&) override { return false; }
    bool Visit(SmartPtr<SubHighway> const&) override { return false; }
    bool Visit(SmartPtr<PortNode> const&) override { return false; }
    bool Visit(SmartPtr<NetSegment> const&) override { return false; }
    bool Visit(SmartPtr<Miscellaneous> const& item) override;
    bool Visit(SmartPtr<HighwaySegment> const&) override { return false; }
    bool Visit(SmartPtr<GenericGraphic> const& graphic) override;
    bool Visit(SmartPtr<Format> const&) override { return false; }
    bool Visit(SmartPtr<ConnectorInstance> const&) override { return false; }
    bool Visit(SmartPtr<CableInstance> const&) override { return false; }
    bool Visit(SmartPtr<BlockInstance> const&) override { return false; }
    using AbstractFigureVisitor::Visit;

private:
    std::vector<SmartPtr<AbstractFigureItem>> textItems_;
    std::vector<SmartPtr<AbstractFigureItem>> miscItems_;
    SmartPtr<figk::Group> group_;  // the outermost group being visited
    SmartPtr<GenericGraphic> firstGeneric_;
    SmartPtr<TextGraphic> firstText_;
};

}  // namespace figrep
