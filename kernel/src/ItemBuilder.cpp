#include "ItemBuilder.h"

#include "BlockNesting.h"

namespace figkernel {

template <class RecordType, class Source>
du::SmartPtr<RecordType> ItemBuilder::MakeItem(Source const& source, char const* fallback) {
    du::SmartPtr<RecordType> const record(new RecordType(sheet.GetLink()));
    record->SetId(ids.Make(IdMaker::ITEM, source.id, fallback + ("/" + source.name)));
    record->SetName(source.name);
    record->SetAttributes(MakeAttributes(source.attributes));
    record->SetSettings(context.SettingsOf(source.settings, source.id));
    groups.Fill(*record, source.graphics, source.id);
    record->SetLabels(groups.MakeLabels(source.labels, source.id));
    return record;
}

void ItemBuilder::ConnectToNet(du::SmartPtr<ConnectorRecord> const& connector,
                               PinSource const& source, GridPoint const& place,
                               std::vector<SheetPin>& pins) {
    if (!context.IsUsable(source.net, context.nets.size(), "net", source.id)) return;
    context.nets[source.net]->Add(connector);
    pins.push_back({connector, source.net, place});
}

template <class RecordType>
void ItemBuilder::AddConnectors(RecordType& block, std::string const& blockId,
                                std::vector<PinSource> const& source, std::vector<SheetPin>& pins) {
    for (PinSource const& pin : source) {
        GridPoint place;
        if (!ToGrid(pin.position, place)) {
            context.Report(BuildFinding::BAD_POINT, pin.id, "The pin has no usable position.");
            continue;
        }
        du::SmartPtr<ConnectorRecord> const connector(
            new ConnectorRecord(sheet.GetLink(), FromGrid(place), pin.hidden));
        std::string const id = blockId + "/" + (pin.id.empty() ? pin.name : pin.id);
        connector->SetId(ids.Make(IdMaker::CONNECTOR, {}, id));
        connector->SetName(pin.name);
        connector->SetAttributes(MakeAttributes(pin.attributes));
        connector->SetSettings(context.SettingsOf(pin.settings, pin.id));
        groups.Fill(*connector, pin.graphics, id);
        connector->SetLabels(groups.MakeLabels(pin.labels, id));
        block.AddConnector(connector);
        ConnectToNet(connector, pin, place, pins);
    }
}

void ItemBuilder::BuildCables(SheetSource const& source, std::vector<SheetPin>& pins) {
    for (CableSource const& cable : source.cables) {
        sheet.cables.push_back(MakeItem<CableRecord>(cable, "cable"));
        CableRecord& record = *sheet.cables.back();
        AddConnectors(record, cable.id, cable.pins, pins);
        for (SourceIndex const net : cable.nets) {
            if (context.IsUsable(net, context.nets.size(), "net", cable.id)) {
                record.AddNet(context.nets[net]);
            }
        }
    }
}

void ItemBuilder::BuildNesting(SheetSource const& source) {
    for (Nesting const& nesting : FindNesting(source, context)) {
        du::SmartPtr<BlockRecord> const& child = sheet.blocks[nesting.child];
        child->SetIsChild();
        if (nesting.isCable) {
            sheet.cables[nesting.parent]->AddChild(child);
        } else {
            sheet.blocks[nesting.parent]->AddChild(child);
        }
    }
}

void ItemBuilder::BuildFrame(SheetSource const& source) {
    if (source.format) {
        FormatSource const& frame = *source.format;
        sheet.format = new FormatRecord(sheet.GetLink(), frame);
        sheet.format->SetId(ids.Make(IdMaker::ITEM, frame.id, "format"));
        sheet.format->SetName(frame.name);
        groups.Fill(*sheet.format, frame.graphics, frame.id);
    }
    if (source.titleBlock) {
        sheet.titleBlock = new TitleBlockRecord(sheet.GetLink(), *source.titleBlock);
        sheet.titleBlock->SetId(ids.Make(IdMaker::ITEM, source.titleBlock->id, "title_block"));
    }
}

void ItemBuilder::Build(SheetSource const& source, std::vector<SheetPin>& pins) {
    BuildFrame(source);
    for (BlockSource const& block : source.blocks) {
        sheet.blocks.push_back(MakeItem<BlockRecord>(block, "block"));
        AddConnectors(*sheet.blocks.back(), block.id, block.pins, pins);
    }
    BuildCables(source, pins);
    BuildNesting(source);
    for (TableSource const& table : source.tables) {
        sheet.tables.push_back(MakeItem<TableRecord>(table, "table"));
    }
    for (MiscellaneousSource const& item : source.miscellaneous) {
        sheet.miscellaneous.push_back(MakeItem<MiscellaneousRecord>(item, "miscellaneous"));
    }
}

}  // namespace figkernel
