// A record of ports with two open figures, and what it writes as text.
#pragma once

#include <figk/Format.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <gtest/gtest.h>
#include <support/ContentLines.h>
#include <support/Drawing.h>
#include <support/DrawingOfAll.h>
#include <zvk/Depiction.h>
#include <zvk/SerializedContentElement.h>

#include <algorithm>
#include <string>
#include <vector>

namespace figrep::representation_testing {

using test::LinesOf;
using zvk::SerializedContentElement;
using Strings = std::vector<std::string>;

inline std::size_t Count(Strings const& lines, std::string const& line) {
    return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
}

/// Two sheets that share a bus port; the bus carries A and B on the first, A alone on the second.
/// A plain port of the net C shows on both as well.
class RepresentationTest : public ::testing::Test {
protected:
    void SetUp() override {
        zvk::depiction::SetRunningDepict(true);
        record = SchematicRepresentation::GetSingleton();
        record->ResetMap();
        test::Drawing drawing;
        drawing.Format(100, 100, 4, 4);
        AddBus(drawing);
        drawing.Tap("B", "H", 20, 0, 22, 2).Wire("B", 22, 2, 40, 2);
        drawing.NetPort("CP", "C", 60, 60).Wire("C", 60, 60, 80, 60);
        drawing.Sheet("S2").Format(100, 100, 4, 4);
        AddBus(drawing);
        drawing.NetPort("CP", "C", 10, 60).Wire("C", 10, 60, 30, 60);
        design = drawing.BuildDesign();
        first = test::FramedFigure(design->GetSheets().at(0));
        second = test::FramedFigure(design->GetSheets().at(1));
        record->AddActiveFigure(first, Symbol("F1"));
        record->AddActiveFigure(second, Symbol("F2"));
    }
    void TearDown() override {
        record->ResetMap();
        zvk::depiction::SetRunningDepict(false);
    }

    static void AddBus(test::Drawing& drawing) {
        drawing.Bus("H", 0, 0, 30, 0).BusPort("HP", "H", 0, 0);
        drawing.Tap("A", "H", 10, 0, 12, 2).Wire("A", 12, 2, 12, 30);
    }

    static SmartPtr<PortNode> NodeOf(SmartPtr<Figure> const& figure, bool onHighway) {
        for (auto const& port : figure->GetPorts()) {
            if (port->OnHighwayNotNet() == onHighway) return port->GetPortNodes().at(0);
        }
        return nullptr;
    }
    SmartPtr<PortNode> BusNode(SmartPtr<Figure> const& figure) const {
        return NodeOf(figure, true);
    }
    SmartPtr<PortNode> NetNode(SmartPtr<Figure> const& figure) const {
        return NodeOf(figure, false);
    }
    static SmartPtr<SubNet> NetOf(SmartPtr<Figure> const& figure, std::string const& name) {
        for (auto const& subNet : figure->GetSubNets()) {
            if (subNet->GetName() == name) return subNet;
        }
        return nullptr;
    }
    static void Hide(SmartPtr<AbstractFigureItem> const& item) {
        ConstSmartPtr<figk::BaseSettingValue> const no(new figk::SettingValue<bool>(false));
        item->AddSetting(ConstSmartPtr<Setting>(new Setting(Setting::ITEM_VISIBILITY, no,
                                                            figk::Setting::LEVEL_FIGURE, true)),
                         true);
    }
    void AddBusNodes() const {
        record->PortNodeAddFigureDetail(BusNode(first), first);
        record->PortNodeAddFigureDetail(BusNode(second), second);
    }
    void AddNetNodes() const {
        record->PortNodeAddFigureDetail(NetNode(first), first);
        record->PortNodeAddFigureDetail(NetNode(second), second);
    }
    Strings FiguresFor(SmartPtr<PortNode> const& node, SmartPtr<SubNet> const& subNet) const {
        std::vector<FigurePortNodeDetail> details;
        record->GetFiguresForPortNode(node, subNet, details);
        Strings names;
        for (auto const& detail : details)
            names.push_back(detail.GetFigureName().GetString());
        return names;
    }
    Strings Capture() const {
        SerializedContentElement root(Symbol("root"));
        record->CaptureContent(&root);
        return LinesOf(root);
    }

    SmartPtr<SchematicRepresentation> record;
    SmartPtr<figk::Design> design;
    SmartPtr<Figure> first;
    SmartPtr<Figure> second;
};

}  // namespace figrep::representation_testing
