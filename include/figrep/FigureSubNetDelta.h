// How one sub-net comes into a figure: from the kernel, or as a user drew it.
#pragma once

#include <figk/AbstractVisitor.h>
#include <figrep/AbstractFigureDelta.h>
#include <figrep/MapWireContent.h>

namespace figrep {

/// Adds one sub-net. With action 0 (copy) it walks the kernel's sub-net and makes wires, labels,
/// graphics and taps from it; with action 1 (create) it makes wires along a tree of positions, with
/// a label, for the same net. Any other action changes nothing.
///
/// Both need the kernel's sub-net, live or found by its ids, and fail with status 0 without it. A
/// copy brings in neither connectors nor port nodes. Cost: near-linear in the sub-net.
///
/// Ownership: deltas that were given the same tree of positions share it, and the last one to go
/// cuts it.
class FigureSubNetDelta : public AbstractFigureDelta,
                          public figk::AbstractVisitor,
                          public MapWireContent {
public:
    FigureSubNetDelta(SmartPtr<figk::SubNet> const& kernelSubNet, Action const& action);
    /// Has no net to belong to, so it never verifies; written down, it keeps its positions.
    FigureSubNetDelta(SmartPtr<DeltaVertexNode> const& headVertex, Action const& action);
    /// `attrInfo` may be null: a wire without a label.
    FigureSubNetDelta(SmartPtr<DeltaVertexNode> const& headVertex,
                      SmartPtr<ItemAttrInfo> const& attrInfo, Action const& action,
                      SmartPtr<figk::SubNet> const& kernelSubNet);
    // For loaders: the sub-net is looked up in the kernel when the delta is applied.
    FigureSubNetDelta(Symbol const& designId, Symbol const& sheetId, Symbol const& subNetId,
                      Action const& action);
    FigureSubNetDelta(Symbol const& designId, Symbol const& sheetId, Symbol const& subNetId,
                      SmartPtr<DeltaVertexNode> const& headVertex,
                      SmartPtr<ItemAttrInfo> const& attrInfo, Action const& action);
    FigureSubNetDelta(FigureSubNetDelta const&);
    ~FigureSubNetDelta() override;

    /// "sub_net_delta", the type under which the delta is saved.
    static Symbol GetClassTypeValue();
    static Symbol const s_delta_type_value;

    using figk::AbstractVisitor::Visit;
    bool StartGroupVisit(SmartPtr<figk::Group> const& group) override;
    bool Visit(SmartPtr<figk::TextGraphic> const& record) override;
    bool Visit(SmartPtr<figk::SubNet> const& record) override;
    bool Visit(SmartPtr<figk::NetSegment> const& record) override;
    bool Visit(SmartPtr<figk::HighwaySegment> const& record) override;
    bool Visit(SmartPtr<figk::HighwayNode> const& record) override;
    bool Visit(SmartPtr<figk::GenericGraphic> const& record) override;

protected:
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    void _Serialize(zvk::SerializedContentElement* element) override;

    SmartPtr<SubHighway> GetFigureSubHighway(
        SmartPtr<figk::SubHighway> const& record) const override;
    void ConnectToPredecessor(SmartPtr<figk::ConnectionNode> const& kernelNode,
                              SmartPtr<ConnectionNode> const& figureNode) override;
    SmartPtr<HighwayNode> CreateHighwayNode(SmartPtr<figk::HighwayNode> const& record,
                                            SmartPtr<SubHighway> const& subHighway,
                                            SmartPtr<ConnectionNode> const& netNode) override;

private:
    struct VertexTree;

    void ApplyCopy(figk::AbstractDeltaReceiver& receiver);
    void ApplyCreate(figk::AbstractDeltaReceiver& receiver);
    void AddTextLabel(SubNet& subNet);
    void SerializeSource(zvk::SerializedContentElement& element) const;
    void SerializeVertices(zvk::SerializedContentElement& element) const;
    void SerializeAttributes(zvk::SerializedContentElement& element) const;
    bool IsFirstSight(SmartPtr<figk::ConnectionNode> const& node);
    void ForgetWalk();

    Symbol designId_;
    Symbol sheetId_;
    Symbol subNetId_;
    SmartPtr<figk::SubNet> kernelSubNet_;
    SmartPtr<VertexTree> vertexTree_;
    SmartPtr<ItemAttrInfo> attrInfo_;
    // Of the walk that is under way.
    SmartPtr<Figure> figure_;
    SmartPtr<SubNet> subNet_;
    SmartPtr<figk::BaseVisitCheck> visitChecker_;
};

}  // namespace figrep
