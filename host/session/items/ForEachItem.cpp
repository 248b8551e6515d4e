#include <session/items/ForEachItem.h>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>
#include <figrep/UnroutedConnection.h>

#include <unordered_set>

namespace fighost {

namespace {

using figrep::SmartPtr;
using Take = std::function<void(SmartPtr<figrep::AbstractFigureItem> const&)>;

class ItemVisitor : public figrep::AbstractFigureVisitor {
public:
    explicit ItemVisitor(Take const& take) : take_(take) {}

#define FIGHOST_TAKE(Class)                                    \
    bool Visit(SmartPtr<figrep::Class> const& item) override { \
        return Pass(item);                                     \
    }
    FIGHOST_TAKE(BlockInstance)
    FIGHOST_TAKE(CableInstance)
    FIGHOST_TAKE(ConnectorInstance)
    FIGHOST_TAKE(Format)
    FIGHOST_TAKE(GenericGraphic)
    FIGHOST_TAKE(HighwaySegment)
    FIGHOST_TAKE(Miscellaneous)
    FIGHOST_TAKE(NetSegment)
    FIGHOST_TAKE(Port)
    FIGHOST_TAKE(PortNode)
    FIGHOST_TAKE(SubHighway)
    FIGHOST_TAKE(SubNet)
    FIGHOST_TAKE(TableInstance)
    FIGHOST_TAKE(TextGraphic)
    FIGHOST_TAKE(TitleBlock)
    FIGHOST_TAKE(UnroutedConnection)
#undef FIGHOST_TAKE

private:
    bool Pass(SmartPtr<figrep::AbstractFigureItem> const& item) {
        if (seen_.insert(item.Get()).second) take_(item);
        return true;
    }

    Take const& take_;
    std::unordered_set<figrep::AbstractFigureItem const*> seen_;
};

}  // namespace

void ForEachItem(SmartPtr<figrep::Figure> const& figure, Take const& take) {
    if (!figure) return;
    ItemVisitor visitor(take);
    figure->Accept(visitor);
}

std::string DisplayNameOf(figrep::AbstractFigureItem const& item) {
    auto const* text = dynamic_cast<figrep::TextGraphic const*>(&item);
    if (text && !text->GetText().IsEmpty()) return text->GetText().GetString();
    return item.GetName();
}

}  // namespace fighost
