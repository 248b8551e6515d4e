#include <support/FindableItems.h>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Miscellaneous.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>

#include <unordered_set>

namespace figrep::test {

namespace {

using Items = std::vector<SmartPtr<AbstractFigureItem>>;

class Collector : public AbstractFigureVisitor {
public:
    Items items;

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<TitleBlock> const& item) override { return Add(item); }
    bool Visit(SmartPtr<TextGraphic> const& item) override { return Add(item); }
    bool Visit(SmartPtr<TableInstance> const& item) override { return Add(item); }
    bool Visit(SmartPtr<SubNet> const& item) override { return Add(item); }
    bool Visit(SmartPtr<SubHighway> const& item) override { return Add(item); }
    bool Visit(SmartPtr<PortNode> const& item) override { return Add(item); }
    bool Visit(SmartPtr<Miscellaneous> const& item) override { return Add(item); }
    bool Visit(SmartPtr<GenericGraphic> const& item) override { return Add(item); }
    bool Visit(SmartPtr<Format> const& item) override { return Add(item); }
    bool Visit(SmartPtr<ConnectorInstance> const& item) override { return Add(item); }
    bool Visit(SmartPtr<CableInstance> const& item) override { return Add(item); }
    bool Visit(SmartPtr<BlockInstance> const& item) override { return Add(item); }

private:
    bool Add(SmartPtr<AbstractFigureItem> const& item) {
        if (seen_.insert(item).second) items.push_back(item);
        return true;
    }

    std::unordered_set<SmartPtr<AbstractFigureItem>> seen_;
};

}  // namespace

Items FindableItems(SmartPtr<Figure> const& figure) {
    Collector collector;
    if (figure) figure->Accept(collector);
    Items findable;
    for (auto const& item : collector.items) {
        if (figure->Find(item->GetId()) == item) findable.push_back(item);
    }
    return findable;
}

}  // namespace figrep::test
