// Builders shared by the tests of graphics: settings, small kernel records, wires by hand.
#pragma once

#include <figk/BaseGraphic.h>
#include <figk/Format.h>
#include <figk/GenericGraphic.h>
#include <figk/SchematicKernel.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BaseGraphic.h>
#include <figrep/CrossingPoint.h>
#include <figrep/Figure.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GraphicGroup.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/SettingList.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace figrep::testing {

inline SmartPtr<zvk::ReadWriteLock> const& Lock() {
    return figk::SchematicKernel::GetKernelLock();
}

constexpr auto FIGURE_LEVEL = figk::Setting::LEVEL_FIGURE;

template <class Value>
ConstSmartPtr<Setting> MakeSetting(Setting::RepKey key, Value const& value, int level,
                                   bool inheritable = true) {
    ConstSmartPtr<figk::BaseSettingValue> const holder(new figk::SettingValue<Value>(value));
    return new Setting(key, holder, static_cast<figk::Setting::Level>(level), inheritable);
}

template <class Value>
void Set(SettingList& list, Setting::RepKey key, Value const& value, int level = FIGURE_LEVEL) {
    list.AddSetting(MakeSetting(key, value, level), true);
}

inline void SetWidth(SettingList& list, float width) {
    ConstSmartPtr<zv2d::LineAttributes> const line(new zv2d::LineAttributes(
        1, 2, zv2d::LineStyleList::GetDefault(), width, zv2d::LineAttributes::KIND_DRAWING, 0.0F,
        zv2d::LineAttributes::KIND_DRAWING, Color::BLACK, Color::BLACK));
    Set(list, Setting::LINE_ATTRIBUTES, line);
}

/// A straight line as an instance.
inline SmartPtr<zv2d::Instance> Line(DPoint2D const& from, DPoint2D const& to) {
    SmartPtr<zv2d::Definition> const definition(new zv2d::Definition);
    definition->Add(new zv2d::TexPolyline(std::vector<DPoint2D>{from, to}));
    return new zv2d::Instance(definition);
}

inline SmartPtr<GenericGraphic> LineGraphic(SmartPtr<figk::Group> const& group,
                                            DPoint2D const& from = DPoint2D(0, 0),
                                            DPoint2D const& to = DPoint2D(1, 0)) {
    return GenericGraphic::Create(Lock(), Line(from, to), group);
}

inline SmartPtr<GraphicGroup> FreeGroup() {
    return new GraphicGroup(SmartPtr<figk::Group>());
}

/// A kernel graphic with the picture that it is given, which may be null.
class FakeGraphic : public figk::GenericGraphic {
public:
    explicit FakeGraphic(SmartPtr<figk::Zv2dGraphics> picture, std::string name = "")
        : id_("graphic"), name_(std::move(name)), picture_(std::move(picture)) {}

    Symbol const& GetId() const override { return id_; }
    std::string const& GetName() const override { return name_; }
    SmartPtr<figk::Zv2dGraphics> GetZv2dGraphics() const override { return picture_; }

private:
    Symbol id_;
    std::string name_;
    SmartPtr<figk::Zv2dGraphics> picture_;
};

/// A figure with wires made by hand, for what needs no kernel design.
class Drawing {
public:
    Drawing() : figure(new Figure) { figure->SetLoaded(); }

    SmartPtr<SubNet> Net(std::string const& name = "net") const {
        return new SubNet(figure, Lock(), name);
    }
    SmartPtr<SubHighway> Highway(std::string const& name = "highway") const {
        return new SubHighway(figure, Lock(), name);
    }
    /// The first wire of a net becomes its head.
    static SmartPtr<NetSegment> Wire(SmartPtr<SubNet> const& net, DPoint2D const& from,
                                     DPoint2D const& to,
                                     SmartPtr<ConnectionNode> const& before = nullptr) {
        SmartPtr<NetSegment> wire(new NetSegment(net, Lock(), from, to, before));
        if (!before) net->SetHead(wire);
        return wire;
    }
    static SmartPtr<HighwaySegment> Bus(SmartPtr<SubHighway> const& highway, DPoint2D const& from,
                                        DPoint2D const& to,
                                        SmartPtr<ConnectionNode> const& before = nullptr) {
        SmartPtr<HighwaySegment> bus(new HighwaySegment(highway, Lock(), from, to, before));
        if (!before) highway->SetHead(bus);
        return bus;
    }
    /// A net of one wire.
    SmartPtr<NetSegment> LoneWire(DPoint2D const& from, DPoint2D const& to) const {
        return Wire(Net(), from, to);
    }

    /// Takes new content in and draws it.
    void Draw() const {
        figure->ProcessNewContent();
        figure->UpdateContent();
    }

    SmartPtr<Figure> figure;
};

template <class Kind>
std::vector<SmartPtr<Kind>> MembersOf(GraphicGroup const& group) {
    std::vector<SmartPtr<Kind>> found;
    for (auto const& member : group) {
        if (auto const item = du::DynamicCast<Kind>(member)) found.push_back(item);
    }
    return found;
}

/// The vertices of every polyline in a group, in order.
inline std::vector<std::vector<DPoint2D>> PolylinesOf(GraphicGroup const& group) {
    std::vector<std::vector<DPoint2D>> found;
    for (auto const& graphic : MembersOf<GenericGraphic>(group)) {
        for (auto const& instance : graphic->GetZv2dGraphics()->GetInstances()) {
            for (auto const& entity : *instance->GetDefinition()) {
                auto const line = du::DynamicCast<zv2d::TexPolyline>(entity);
                if (line) found.push_back(line->GetVertices());
            }
        }
    }
    return found;
}

inline std::vector<SmartPtr<CrossingPoint>> CrossingsOf(Segment const& segment) {
    std::vector<SmartPtr<CrossingPoint>> crossings;
    segment.GetCrossingPoints(crossings);
    return crossings;
}

using Points = std::vector<DPoint2D>;

}  // namespace figrep::testing
