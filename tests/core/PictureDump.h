// The pictures of a figure's wires as text, to compare figures by.
#pragma once

#include <dg/CircularArc.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>

#include <map>
#include <sstream>
#include <string>

namespace figrep::testing {

/// Writes the shapes of an instance as text.
class ShapeDump : public zv2d::EntityVisitor {
public:
    ShapeDump(std::ostream& out, DMat33 const& matrix) : out_(out), matrix_(matrix) {}

    void Visit(zv2d::TexPolyline const& polyline) override {
        out_ << " line";
        for (auto const& vertex : polyline.GetVertices())
            Write(matrix_ * vertex);
    }
    void Visit(zv2d::CircularArc const& arc) override {
        out_ << " arc" << arc.GetArc().GetRadius() << '/' << arc.GetArc().GetStartAngle();
        Write(matrix_ * arc.GetArc().GetCentre());
    }

private:
    void Write(DPoint2D const& point) { out_ << " (" << point.x << ',' << point.y << ')'; }

    std::ostream& out_;
    DMat33 matrix_;
};

/// Writes all that the wires of a figure show, wire by wire in the order of their ids.
class PictureDump : public AbstractFigureVisitor {
public:
    using AbstractFigureVisitor::Visit;
    using AbstractFigureVisitor::VisitComplete;
    bool Visit(SmartPtr<SubNet> const& subNet) override {
        out_.str("");
        return Line(subNet->GetId().GetString().c_str());
    }
    void VisitComplete(SmartPtr<SubNet> const& subNet) override {
        nets_[subNet->GetId().GetString()] = out_.str();
    }
    bool Visit(SmartPtr<SubHighway> const& subHighway) override {
        out_.str("");
        return Line(subHighway->GetId().GetString().c_str());
    }
    void VisitComplete(SmartPtr<SubHighway> const& subHighway) override {
        nets_[subHighway->GetId().GetString()] = out_.str();
    }
    bool Visit(SmartPtr<NetSegment> const&) override { return Line(" segment"); }
    bool Visit(SmartPtr<HighwaySegment> const&) override { return Line(" highway segment"); }
    bool Visit(SmartPtr<PickGraphicProxy> const&) override { return Line("  pick"); }
    bool Visit(SmartPtr<GenericGraphic> const& graphic) override {
        graphic->UpdateRenderInfoBase();
        out_ << "  graphic";
        auto const picture = graphic->GetRenderInfo().GetZv2dGraphics();
        for (auto const& instance : picture->GetInstances()) {
            ShapeDump shapes(out_, instance->GetMatrix());
            for (auto const& entity : *instance->GetDefinition())
                entity->Accept(shapes);
        }
        out_ << '\n';
        return true;
    }

    static std::string Of(SmartPtr<Figure> const& figure) {
        PictureDump dump;
        figure->Accept(dump);
        std::string text;
        for (auto const& [id, net] : dump.nets_)
            text += net;
        return text;
    }

private:
    bool Line(char const* text) {
        out_ << text << '\n';
        return true;
    }
    std::ostringstream out_;
    std::map<std::string, std::string> nets_;
};

}  // namespace figrep::testing
