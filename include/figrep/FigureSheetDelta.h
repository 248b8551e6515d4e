// How a kernel sheet becomes figure items.
#pragma once

#include <figk/AbstractVisitor.h>
#include <figrep/AbstractFigureDelta.h>
#include <figrep/FigureDeltaReceiverInterface.h>
#include <figrep/MapWireContent.h>

#include <unordered_map>
#include <vector>

namespace figrep {

/// Brings one kernel sheet into a figure: it walks the sheet, makes an item for each record, hands
/// it to the figure, builds the wires' trees in figure terms and ties them together at the end.
///
/// The delta records ids only, so it can be saved and applied to a later kernel. It fails with
/// status 1 when the kernel no longer has the sheet. One application of an object at a time.
/// Cost: near-linear in the content of the sheet.
class FigureSheetDelta : public figk::AbstractVisitor,
                         public AbstractFigureDelta,
                         public MapWireContent {
public:
    /// For a live sheet; action 0 copies the sheet, any other action only ties what is there.
    FigureSheetDelta(SmartPtr<figk::Sheet> const& sheet, figk::AbstractDelta::Action const& action);
    /// For a delta read from saved content; the sheet is looked up when it is applied.
    FigureSheetDelta(Symbol const& designId, Symbol const& sheetId,
                     figk::AbstractDelta::Action const& action);
    FigureSheetDelta(FigureSheetDelta const&);
    ~FigureSheetDelta() override;

    /// "sheet_delta", the type under which the delta is saved.
    static Symbol const& GetClassTypeValue();
    static Symbol const s_delta_type_value;

    using figk::AbstractVisitor::Visit;
    bool StartGroupVisit(SmartPtr<figk::Group> const& group) override;
    bool EndGroupVisit(SmartPtr<figk::Group> const& group) override;
    bool Visit(SmartPtr<figk::TitleBlock> const& record) override;
    bool Visit(SmartPtr<figk::TextGraphic> const& record) override;
    bool Visit(SmartPtr<figk::TableInstance> const& record) override;
    bool Visit(SmartPtr<figk::SubNet> const& record) override;
    bool Visit(SmartPtr<figk::SubHighway> const& record) override;
    bool Visit(SmartPtr<figk::Sheet> const& record) override;
    bool Visit(SmartPtr<figk::PortNode> const& record) override;
    bool Visit(SmartPtr<figk::NetSegment> const& record) override;
    bool Visit(SmartPtr<figk::Miscellaneous> const& record) override;
    bool Visit(SmartPtr<figk::HighwaySegment> const& record) override;
    bool Visit(SmartPtr<figk::HighwayNode> const& record) override;
    bool Visit(SmartPtr<figk::GenericGraphic> const& record) override;
    bool Visit(SmartPtr<figk::Format> const& record) override;
    bool Visit(SmartPtr<figk::ConnectorInstance> const& record) override;
    bool Visit(SmartPtr<figk::CableInstance> const& record) override;
    bool Visit(SmartPtr<figk::BlockInstance> const& record) override;

protected:
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    void _Serialize(zvk::SerializedContentElement* element) override;

    SmartPtr<SubHighway> GetFigureSubHighway(
        SmartPtr<figk::SubHighway> const& record) const override;
    void ConnectToPredecessor(SmartPtr<figk::ConnectionNode> const& kernelNode,
                              SmartPtr<ConnectionNode> const& figureNode) override;

private:
    void ApplyCopy(figk::AbstractDeltaReceiver& receiver);
    void ForgetWalk();
    void PopulatePortMap(Figure& figure);
    void CreatePortNodeFigureDetails(SmartPtr<Figure> const& figure);

    SmartPtr<Port> GetFigurePort(SmartPtr<figk::Port> const& kernelPort);
    bool PassAlongHighway(SmartPtr<figk::HighwaySegment> const& record);
    void EncloseEnds(Segment const& segment);
    void ApplyOffset(AbstractFigureItem& item);

    template <typename Item>
    using KernelMap = std::unordered_map<SmartPtr<figk::AbstractItem>, SmartPtr<Item>>;

    SmartPtr<figk::Sheet> sheet_;
    Symbol designId_;
    Symbol sheetId_;
    SmartPtr<BaseBlockInstance> currentBlock_;
    FigureDeltaReceiverInterface* receiver_ = nullptr;
    bool onHighway_ = false;
    SmartPtr<SubHighway> currentSubHighway_;
    SmartPtr<SubNet> currentSubNet_;
    SmartPtr<figk::NetSegment> kernelStartSegment_;
    SmartPtr<figk::BaseVisitCheck> visitCheck_;
    KernelMap<SubHighway> subHighwayMap_;
    KernelMap<Port> portMap_;
    DBox2D extents_ = DBox2D::EMPTY;
    DPoint2D offset_;
    bool applyOffset_ = false;
    std::vector<SmartPtr<PortNode>> portNodes_;
};

}  // namespace figrep
