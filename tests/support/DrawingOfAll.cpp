#include <support/DrawingOfAll.h>

#include <figk/Format.h>
#include <figk/Sheet.h>
#include <figk/TitleBlock.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/Miscellaneous.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainer.h>
#include <figrep/TitleBlock.h>

#include <algorithm>
#include <unordered_set>

namespace figrep::test {

namespace {

figkernel::TextSource Text(std::string const& text, double x, double y) {
    return {text, text, Drawing::MakeText(text, x, y), figkernel::NO_INDEX};
}

void AddGroupedLabels(figkernel::GroupSource& labels) {
    labels.texts.push_back(Text("free", 0, 80));
    figkernel::GroupSource inner;
    inner.texts.push_back(Text("deep", 30, 90));
    figkernel::GroupSource group;
    figkernel::GraphicSource line;
    line.id = "gline";
    line.instances.push_back(Drawing::MakeLine({{10, 80}, {20, 80}}));
    group.graphics.push_back(line);
    group.texts.push_back(Text("g1", 10, 85));
    group.texts.push_back(Text("g2", 20, 85));
    group.groups.push_back(inner);
    labels.groups.push_back(group);
}

/// Sees everything, wires by their nodes too; what is met twice counts once.
class ShownItems : public AbstractFigureVisitor {
public:
    std::vector<SmartPtr<AbstractFigureItem>> items;

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<TitleBlock> const& item) override { return Add(item, false); }
    bool Visit(SmartPtr<TextGraphic> const& item) override { return Add(item, true); }
    bool Visit(SmartPtr<TableInstance> const& item) override { return Add(item, false); }
    bool Visit(SmartPtr<SubNet> const& item) override { return Add(item, false); }
    bool Visit(SmartPtr<SubHighway> const& item) override { return Add(item, false); }
    bool Visit(SmartPtr<Port> const& item) override {
        Add(item, false);
        for (auto const& node : item->GetPortNodes())
            Add(node, false);
        return false;
    }
    bool Visit(SmartPtr<Miscellaneous> const& item) override { return Add(item, false); }
    bool Visit(SmartPtr<GenericGraphic> const& item) override { return Add(item, true); }
    bool Visit(SmartPtr<Format> const& item) override {
        Add(item, false);
        if (auto const titleBlock = item->GetTitleBlock()) Add(titleBlock, false);
        return false;
    }
    bool Visit(SmartPtr<CableInstance> const& item) override { return Add(item, false); }
    bool Visit(SmartPtr<BlockInstance> const& item) override { return Add(item, false); }

private:
    bool Add(SmartPtr<AbstractFigureItem> const& item, bool goOn) {
        if (known_.insert(item).second) items.push_back(item);
        return goOn;
    }

    std::unordered_set<SmartPtr<AbstractFigureItem>> known_;
};

}  // namespace

Drawing DrawingOfAll() {
    Drawing drawing;
    drawing.Format(200, 100, 4, 4).Table("T");
    drawing.Box("U1", -10, -5, 0, 15).Box("U2", 40, -5, 50, 15).Box("U3", 42, -3, 48, 3);
    drawing.Child("U2", "U3");
    drawing.Pin("A", "U1", "1", 0, 0).Wire("A", 0, 0, 40, 0).Pin("A", "U2", "1", 40, 0);
    drawing.Label("A", "label A", 10, 0);
    drawing.Pin("B", "U1", "2", 0, 10).Wire("B", 0, 10, 18, 10).Wire("B", 18, 10, 18, 28);
    drawing.Bus("H", 15, 30, 60, 30).Tap("B", "H", 20, 30, 18, 28).BusPort("HP", "H", 60, 30);
    drawing.Wire("C1", 0, 40, 40, 40).Wire("C2", 0, 45, 40, 45).Cable("K", "C1");
    drawing.Current().cables.back().nets.push_back(drawing.NetIndex("C2"));
    drawing.Wire("D", 0, 60, 30, 60).NetPort("P", "D", 30, 60);
    AddGroupedLabels(drawing.Current().labels);
    drawing.Current().titleBlock = figkernel::TitleBlockSource();
    drawing.Current().titleBlock->id = "title";
    return drawing;
}

SmartPtr<Figure> FramedFigure(SmartPtr<figk::Sheet> const& sheet) {
    SmartPtr<Figure> figure = new Figure();
    SmartPtr<FigureSheetDeltaGenerator> const generator = new FigureSheetDeltaGenerator(sheet);
    figure->GenerateDeltas(*generator);
    figure->ApplyDeltas(false);
    SmartPtr<KernelToFigureFactory> const factory = new KernelToFigureFactory();
    figure->Receive(factory->CreateFormat(sheet->GetFormat()));
    figure->Receive(factory->CreateTitleBlock(sheet->GetTitleBlock(), {}));
    return figure;
}

std::string LabelOf(SmartPtr<AbstractFigureItem> const& item) {
    bool const wire = du::DynamicCast<SubNet>(item) || du::DynamicCast<SubHighway>(item);
    if (wire) return item->GetName();
    std::string const& id = item->GetId().GetString();
    return id.starts_with("S1/") ? id.substr(3) : id;
}

std::vector<std::string> LabelsOf(std::vector<SmartPtr<AbstractFigureItem>> const& items) {
    std::vector<std::string> labels;
    for (auto const& item : items)
        labels.push_back(LabelOf(item));
    return labels;
}

std::vector<SmartPtr<AbstractFigureItem>> ItemsThatShow(SmartPtr<Figure> const& figure) {
    ShownItems visitor;
    figure->Accept(visitor);
    return visitor.items;
}

std::vector<std::string> HiddenOn(SmartPtr<Figure> const& figure) {
    auto items = ItemsThatShow(figure);
    std::erase_if(items, [](auto const& item) { return item->IsVisible(); });
    auto labels = LabelsOf(items);
    std::sort(labels.begin(), labels.end());
    return labels;
}

}  // namespace figrep::test
