// After any edits the pictures are those of a figure that is built afresh.
#include <core/PictureDump.h>
#include <dg/CircularArc.h>
#include <figk/ArrowStyle.h>
#include <figk/SettingValue.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/GenericGraphic.h>
#include <figrep/NetSegment.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/Setting.h>
#include <figrep/SubNet.h>
#include <gtest/gtest.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>

#include <map>
#include <numbers>
#include <random>
#include <sstream>

namespace figrep::testing {
namespace {

/// A sub-net with its segments in the order of making; each names its predecessor.
struct Net {
    SmartPtr<SubNet> subNet;
    std::vector<SmartPtr<NetSegment>> segments;
    std::vector<int> predecessors;
    std::map<Setting::RepKey, ConstSmartPtr<figk::BaseSettingValue>> settings;
};

class Drawing {
public:
    explicit Drawing(unsigned seed) : random_(seed) { figure->SetLoaded(); }

    void AddNet() {
        Net net;
        DPoint2D at(Grid(), Grid());
        net.predecessors = {-1, 0, 1, 1};  // a chain with a branch
        std::vector<std::pair<DPoint2D, DPoint2D>> ends;
        for (int const predecessor : net.predecessors) {
            if (predecessor >= 0) at = ends[static_cast<std::size_t>(predecessor)].second;
            ends.emplace_back(at, Pick(2) ? DPoint2D(Grid(), at.y) : DPoint2D(at.x, Grid()));
        }
        Build(*figure, net, ends);
        nets_.push_back(net);
    }

    void Edit() {
        Net& net = nets_[Pick(nets_.size())];
        DPoint2D const about(Grid(), Grid());
        switch (Pick(10)) {
            case 0:
                figure->MoveItem(net.subNet, Grid() - 6, Grid() - 6);
                break;
            case 1:
                figure->RotateItem(net.subNet, about, std::numbers::pi / 2);
                break;
            case 2:
                figure->MirrorItem(net.subNet, about, Pick(2) != 0);
                break;
            case 3:
                figure->ScaleItem(net.subNet, about, Pick(2) ? 0.5 : 2.0);
                break;
            case 4:
                Set(net, Setting::TOP_SEGMENT_VERTICAL, new figk::SettingValue<bool>(Pick(2) != 0));
                break;
            case 5:
                Set(net, Setting::CROSSING_POINT_STYLE,
                    new figk::SettingValue<figk::CrossingPointStyle>(
                        static_cast<figk::CrossingPointStyle>(Pick(3))));
                break;
            case 6:
                Set(net, Setting::ARROW_STYLE, new figk::SettingValue<figk::ArrowStyle>(Arrow()));
                break;
            case 7:
                Set(net, Setting::TRANSPARENCY,
                    new figk::SettingValue<float>(Pick(2) ? 1.0F : 0.0F));
                break;
            case 8:
                figure->RemoveItem(net.subNet);
                if (Pick(2)) figure->UpdateContent();
                figure->Receive(net.subNet);
                break;
            default:
                figure->UpdateContent();
                break;
        }
    }

    /// The same wires and settings in a new figure.
    SmartPtr<Figure> Afresh() const {
        SmartPtr<Figure> fresh = new Figure();
        fresh->SetLoaded();
        for (auto const& net : nets_) {
            std::vector<std::pair<DPoint2D, DPoint2D>> ends;
            for (auto const& segment : net.segments) {
                ends.emplace_back();
                segment->GetEnds(ends.back().first, ends.back().second);
            }
            Net copy = net;
            copy.segments.clear();
            Build(*fresh, copy, ends);
            for (auto const& [key, value] : net.settings) {
                fresh->AddItemSetting(copy.subNet, MakeSetting(key, value), false);
            }
        }
        return fresh;
    }

    SmartPtr<Figure> figure = new Figure();

private:
    static ConstSmartPtr<Setting> MakeSetting(Setting::RepKey key,
                                              ConstSmartPtr<figk::BaseSettingValue> const& value) {
        return new Setting(key, value, figk::Setting::LEVEL_FIGURE, true);
    }

    void Set(Net& net, Setting::RepKey key, ConstSmartPtr<figk::BaseSettingValue> const& value) {
        net.settings[key] = value;
        figure->AddItemSetting(net.subNet, MakeSetting(key, value), false);
    }

    static void Build(Figure& target, Net& net,
                      std::vector<std::pair<DPoint2D, DPoint2D>> const& ends) {
        net.subNet = new SubNet(&target, target.GetLock(), "net");
        for (std::size_t i = 0; i < ends.size(); ++i) {
            int const above = net.predecessors[i];
            SmartPtr<ConnectionNode> predecessor;
            if (above >= 0) predecessor = net.segments[static_cast<std::size_t>(above)];
            net.segments.push_back(new NetSegment(net.subNet, target.GetLock(), ends[i].first,
                                                  ends[i].second, predecessor));
        }
        net.subNet->SetHead(net.segments[0]);
        net.subNet->SetStartSegment(net.segments[0]);
    }

    figk::ArrowStyle Arrow() {
        SmartPtr<zv2d::Definition> const shape = new zv2d::Definition();
        shape->Add(new zv2d::TexPolyline(std::vector<DPoint2D>{{0, 0}, {-1, 1}, {-1, -1}}));
        return figk::ArrowStyle(static_cast<figk::ArrowStyle::PatternType>(Pick(4)),
                                Pick(2) ? 0.5 : 3.0, shape, nullptr, false);
    }

    double Grid() { return static_cast<double>(Pick(13)); }  // small, so that wires meet
    std::size_t Pick(std::size_t count) { return random_() % count; }

    std::mt19937 random_;
    std::vector<Net> nets_;
};

class IncrementalPictures : public ::testing::TestWithParam<unsigned> {};

TEST_P(IncrementalPictures, EqualThoseOfAFigureBuiltAfresh) {
    Drawing drawing(GetParam());
    for (int i = 0; i < 6; ++i)
        drawing.AddNet();
    for (int round = 0; round < 6; ++round) {
        for (int i = 0; i < 8; ++i)
            drawing.Edit();
        drawing.figure->UpdateContent();
        auto const fresh = drawing.Afresh();
        fresh->UpdateContent();
        ASSERT_EQ(PictureDump::Of(drawing.figure), PictureDump::Of(fresh)) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, IncrementalPictures, ::testing::Range(1u, 41u));

}  // namespace
}  // namespace figrep::testing
