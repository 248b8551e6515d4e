#include "SheetBuilder.h"

#include <figk/GraphicGroup.h>

#include "GroupBuilder.h"
#include "ItemBuilder.h"
#include "PointIndex.h"
#include "SheetWires.h"
#include "TreeAssembler.h"

namespace figkernel {

namespace {

class SheetBuilder {
public:
    SheetBuilder(SheetSource const& sheetSource, SheetRecord& sheetRecord,
                 BuildContext& buildContext)
        : source(sheetSource),
          sheet(sheetRecord),
          context(buildContext),
          ids(buildContext, sheetRecord.GetId().GetString() + "/"),
          groups(buildContext, ids, sheetRecord.GetLink()) {}

    void Build() {
        sheet.labels = new figk::GraphicGroup;
        groups.Fill(*sheet.labels, source.labels, {});
        ItemBuilder(context, ids, sheet).Build(source, pins);
        SheetWires wires(source, pins, context);
        TreeAssembler trees(context, ids, sheet, source, pins);
        std::vector<SubHighwayPlan> const highways = BuildHighways(wires, trees);
        BuildNets(wires, trees, highways);
        sheet.IndexSubNets();
        wires.ReportCovered();
        for (std::uint32_t const decoration : wires.FreeDecorations())
            LabelSheet(decoration);
        if (sheet.labels->IsEmpty()) sheet.labels.Reset();
    }

private:
    std::vector<SubHighwayPlan> BuildHighways(SheetWires& wires, TreeAssembler& trees) {
        std::vector<SubHighwayPlan> plans;
        for (SourceIndex const highway : wires.Highways()) {
            HighwayDrawing const drawing = wires.DrawingOfHighway(highway);
            std::vector<HighwayPlace> places;
            std::size_t const first = plans.size();
            PlanHighway(drawing, plans, places);
            wires.SetPlaces(drawing, places);
            PlacedHighwaySegments placed;
            for (std::size_t i = first; i < plans.size(); ++i) {
                wires.MarkBuses(plans[i].pieces);
                trees.AddSubHighway(plans[i], placed);
            }
            Decorate(wires.DecorationsOfHighway(highway), placed, wires);
        }
        return plans;
    }

    void BuildNets(SheetWires& wires, TreeAssembler& trees,
                   std::vector<SubHighwayPlan> const& highways) {
        for (SourceIndex const net : wires.Nets()) {
            NetPlan const plan = PlanNet(wires.DrawingOfNet(net), highways);
            wires.MarkWires(plan.pieces);
            PlacedNetSegments placed;
            for (SubNetPlan const& subNet : plan.subNets)
                trees.AddSubNet(subNet, plan, placed);
            Decorate(wires.DecorationsOfNet(net), placed, wires);
        }
    }

    /// Gives each decoration to a segment that passes its anchor: a wire rather than a way onto a
    /// highway, and that rather than a segment without length.
    template <class RecordType>
    void Decorate(std::span<KeyedList::Entry const> decorations,
                  std::vector<PlacedSegment<RecordType>> const& placed, SheetWires const& wires) {
        if (decorations.empty()) return;
        std::vector<GridPoint> anchors;
        for (auto const& entry : decorations)
            anchors.push_back(wires.AnchorOf(entry.second));
        PointIndex index(anchors);
        std::vector<RecordType*> targets(anchors.size(), nullptr);
        std::vector<std::uint32_t> hits;
        for (PlanKind const kind : {PlanKind::PIECE, PlanKind::TAP, PlanKind::STUB}) {
            for (PlacedSegment<RecordType> const& segment : placed) {
                if (segment.kind != kind) continue;
                hits.clear();
                index.FindOn(segment.a, segment.b, hits);
                for (std::uint32_t const hit : hits) {
                    if (!targets[hit]) targets[hit] = segment.record;
                }
            }
        }
        for (std::size_t i = 0; i < targets.size(); ++i)
            Label(targets[i], decorations[i].second);
    }

    template <class RecordType>
    void Label(RecordType* target, std::uint32_t decoration) {
        if (!target) return LabelSheet(decoration);
        du::SmartPtr<figk::Group> labels = target->GetTextLabelContainerGroup();
        if (!labels) {
            labels = new figk::GraphicGroup;
            target->SetLabels(labels);
        }
        groups.Fill(*labels, source.decorations[decoration].graphics, {});
    }

    void LabelSheet(std::uint32_t decoration) {
        groups.Fill(*sheet.labels, source.decorations[decoration].graphics, {});
    }

    SheetSource const& source;
    SheetRecord& sheet;
    BuildContext& context;
    IdMaker ids;
    GroupBuilder groups;
    std::vector<SheetPin> pins;
};

}  // namespace

du::SmartPtr<SheetRecord> BuildSheet(SheetSource const& source, du::Symbol const& id,
                                     BuildContext& context) {
    du::SmartPtr<SheetRecord> const sheet(new SheetRecord(context.design->GetLink()));
    sheet->SetId(id);
    sheet->SetName(source.name);
    AttributeVector attributes = MakeAttributes(source.attributes);
    if (!source.path.empty()) {
        attributes.push_back(new figk::Attribute(du::Symbol("Path"), du::Symbol(source.path)));
    }
    sheet->SetAttributes(std::move(attributes));
    sheet->SetSettings(context.SettingsOf(source.settings, source.id));
    SheetBuilder(source, *sheet, context).Build();
    return sheet;
}

}  // namespace figkernel
