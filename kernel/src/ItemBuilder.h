// Makes what stands on a sheet beside wires: blocks, cables, tables, frame and title block.
#pragma once

#include <vector>

#include "BuildContext.h"
#include "GridPoint.h"
#include "GroupBuilder.h"

namespace figkernel {

/// A connector that belongs to a net, as the planner of nets sees it.
struct SheetPin {
    du::SmartPtr<ConnectorRecord> connector;
    SourceIndex net = NO_INDEX;
    GridPoint place;
};

class ItemBuilder {
public:
    ItemBuilder(BuildContext& buildContext, IdMaker& idMaker, SheetRecord& sheetRecord)
        : context(buildContext),
          ids(idMaker),
          sheet(sheetRecord),
          groups(buildContext, idMaker, sheetRecord.GetLink()) {}

    /// Makes all items of the sheet and appends their connectors that are on nets to `pins`.
    void Build(SheetSource const& source, std::vector<SheetPin>& pins);

private:
    template <class RecordType, class Source>
    du::SmartPtr<RecordType> MakeItem(Source const& source, char const* fallback);
    template <class RecordType>
    void AddConnectors(RecordType& block, std::string const& blockId,
                       std::vector<PinSource> const& source, std::vector<SheetPin>& pins);
    void ConnectToNet(du::SmartPtr<ConnectorRecord> const& connector, PinSource const& source,
                      GridPoint const& place, std::vector<SheetPin>& pins);
    void BuildCables(SheetSource const& source, std::vector<SheetPin>& pins);
    void BuildNesting(SheetSource const& source);
    void BuildFrame(SheetSource const& source);

    BuildContext& context;
    IdMaker& ids;
    SheetRecord& sheet;
    GroupBuilder groups;
};

}  // namespace figkernel
