#include <support/FigureDump.h>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/JunctionNode.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <figrep/UnroutedConnection.h>

#include <charconv>

namespace figrep::test {

namespace {

std::string Number(double value) {
    char text[32];
    auto const end = std::to_chars(text, text + sizeof text, value == 0.0 ? 0.0 : value).ptr;
    return std::string(text, end);
}

std::string Place(DPoint2D const& point) {
    return "(" + Number(point.x) + "," + Number(point.y) + ")";
}

std::string Place(DBox2D const& box) {
    if (box == DBox2D::EMPTY) return "nowhere";
    return "[" + Number(box[0]) + "," + Number(box[1]) + "," + Number(box[2]) + "," +
           Number(box[3]) + "]";
}

std::string Settings(AbstractFigureItem const& item) {
    std::string text;
    Color color;
    bool on = false;
    if (item.GetColorSetting(Setting::COLOR, color)) {
        text += " color " + Number(color.r) + "," + Number(color.g) + "," + Number(color.b);
    }
    if (item.GetBooleanSetting(Setting::ITEM_VISIBILITY, on)) text += on ? " shown" : " hidden";
    if (item.GetBooleanSetting(Setting::BACKGROUND_COLOR, on)) text += on ? " filled" : " plain";
    return text;
}

class Dumper : public AbstractFigureVisitor {
public:
    std::vector<std::string> lines;

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<UnroutedConnection> const& item) override { return AddWire(*item); }
    bool Visit(SmartPtr<TitleBlock> const& item) override {
        Add(*item, Place(item->GetExtents()));
        for (auto const& section : item->GetTextSections()) {
            std::vector<TitleBlockTextSection::TextSegment> text;
            section->GetText(text);
            for (auto const& segment : text)
                lines.push_back("  text '" + segment.token + "' '" + segment.text + "'");
        }
        return true;
    }
    bool Visit(SmartPtr<TextGraphic> const& item) override {
        return AddBox(*item, " '" + item->GetText().GetString() + "'");
    }
    bool Visit(SmartPtr<TableInstance> const& item) override { return AddBox(*item, ""); }
    bool Visit(SmartPtr<SubNet> const& item) override { return AddBox(*item, ""); }
    bool Visit(SmartPtr<SubHighway> const& item) override { return AddBox(*item, ""); }
    bool Visit(SmartPtr<PortNode> const& item) override {
        return Add(*item, Place(item->GetPosition()));
    }
    bool Visit(SmartPtr<Port> const& item) override { return Add(*item, ""); }
    bool Visit(SmartPtr<NetSegment> const& item) override { return AddWire(*item); }
    bool Visit(SmartPtr<Miscellaneous> const& item) override { return AddBox(*item, ""); }
    bool Visit(SmartPtr<HighwaySegment> const& item) override { return AddWire(*item); }
    bool Visit(SmartPtr<HighwayNode> const&) override { return AddNode("tap"); }
    bool Visit(SmartPtr<JunctionNode> const&) override { return AddNode("junction"); }
    bool Visit(SmartPtr<GenericGraphic> const& item) override { return AddBox(*item, ""); }
    bool Visit(SmartPtr<Format> const& item) override { return AddBox(*item, ""); }
    bool Visit(SmartPtr<ConnectorInstanceNode> const& item) override {
        auto const connector = item->GetConnectorInstance();
        return AddNode("pin " + (connector ? connector->GetId().GetString() : std::string()));
    }
    bool Visit(SmartPtr<ConnectorInstance> const& item) override {
        return Add(*item, Place(item->GetPosition()));
    }
    bool Visit(SmartPtr<CableInstance> const& item) override { return AddBox(*item, ""); }
    bool Visit(SmartPtr<BlockInstance> const& item) override { return AddBox(*item, ""); }

private:
    bool Add(AbstractFigureItem const& item, std::string const& where) {
        lines.push_back(std::to_string(item.GetType()) + " " + item.GetId().GetString() + " " +
                        item.GetName() + " " + where + Settings(item));
        return true;
    }
    bool AddBox(AbstractFigureItem& item, std::string const& what) {
        return Add(item, Place(item.GetExtents()) + what);
    }
    bool AddWire(Segment const& wire) {
        DPoint2D start;
        DPoint2D end;
        wire.GetEnds(start, end);
        return Add(wire, Place(start) + Place(end));
    }
    bool AddNode(std::string const& what) {
        lines.push_back(what);
        return true;
    }
};

}  // namespace

std::vector<std::string> DumpOf(SmartPtr<Figure> const& figure) {
    Dumper dumper;
    if (figure) figure->Accept(dumper);
    return dumper.lines;
}

}  // namespace figrep::test
