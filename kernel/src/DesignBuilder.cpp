#include <figkernel/DesignBuilder.h>

#include "BuildContext.h"
#include "SheetBuilder.h"

namespace figkernel {

namespace {

class DesignBuilder {
public:
    DesignBuilder(DesignSource const& designSource, du::SmartPtr<zvk::ReadWriteLock> const& lock)
        : source(designSource),
          context{designSource, lock, new DesignRecord, {}, {}, {}, {}, {}, {}, {}},
          ids(context, designSource.idPrefix) {}

    BuildResult Build() {
        BuildSettings();
        BuildDesign();
        BuildNets();
        BuildHighways();
        BuildPorts();
        for (SheetSource const& sheet : source.sheets) {
            du::Symbol const id = ids.Make(IdMaker::SHEET, sheet.id, "sheet/" + sheet.path);
            context.sheetId = sheet.id;
            context.design->sheets.push_back(BuildSheet(sheet, id, context));
            context.sheetId.clear();
        }
        return {context.design, std::move(context.findings)};
    }

private:
    void BuildSettings() {
        context.settings.reserve(source.settingSets.size());
        for (SettingSetSource const& set : source.settingSets) {
            du::SmartPtr<figk::SettingList> const list(new figk::SettingList);
            for (SettingSource const& setting : set) {
                list->Add(new figk::Setting(
                    static_cast<figk::Setting::Key>(setting.key), setting.value,
                    static_cast<figk::Setting::Level>(setting.level), setting.canBeInherited));
            }
            context.settings.push_back(list);
        }
    }

    template <class RecordType, class Source>
    void Describe(RecordType& record, Source const& from, std::string const& id) {
        record.SetName(from.name);
        record.SetAttributes(MakeAttributes(from.attributes));
        record.SetSettings(context.SettingsOf(from.settings, id));
    }

    void BuildDesign() {
        DesignRecord& design = *context.design;
        Describe(design, source, source.id);
        design.SetId(du::Symbol(source.id));
        design.idPrefix = du::Symbol(source.idPrefix);
        if (source.fileName.empty()) return;
        AttributeVector attributes = MakeAttributes(source.attributes);
        attributes.push_back(new figk::Attribute(du::Symbol("File"), du::Symbol(source.fileName)));
        design.SetAttributes(std::move(attributes));
    }

    void BuildNets() {
        for (NetSource const& net : source.nets) {
            du::SmartPtr<NetRecord> const record(new NetRecord(context.design->GetLink()));
            Describe(*record, net, net.name);
            record->SetId(ids.Make(IdMaker::NET, net.name, "net"));
            context.nets.push_back(record);
        }
        context.design->nets = context.nets;
    }

    void BuildHighways() {
        for (HighwaySource const& highway : source.highways) {
            du::SmartPtr<HighwayRecord> const record(new HighwayRecord(context.design->GetLink()));
            Describe(*record, highway, highway.id);
            record->SetId(ids.Make(IdMaker::HIGHWAY, highway.id, "highway/" + highway.name));
            for (SourceIndex const net : highway.nets) {
                context.IsUsable(net, context.nets.size(), "net", highway.id);
            }
            context.highways.push_back(record);
        }
        context.design->highways = context.highways;
    }

    void BuildPorts() {
        for (PortSource const& port : source.ports) {
            bool const onNet = context.IsUsable(port.net, context.nets.size(), "net", port.id);
            bool const onHighway =
                context.IsUsable(port.highway, context.highways.size(), "highway", port.id);
            context.ports.push_back(nullptr);
            if (onNet == onHighway) {
                context.Report(BuildFinding::BAD_INDEX, port.id,
                               "A port needs a net or a highway, and not both.");
                continue;
            }
            NetRecord* const net = onNet ? context.nets[port.net].Get() : nullptr;
            HighwayRecord* const highway =
                onHighway ? context.highways[port.highway].Get() : nullptr;
            du::SmartPtr<PortRecord> const record(
                new PortRecord(context.design->GetLink(), net, highway));
            Describe(*record, port, port.id);
            record->SetId(ids.Make(IdMaker::PORT, port.id, "port/" + port.name));
            if (net) net->Add(record);
            if (highway) highway->Add(record);
            context.ports.back() = record;
            context.design->ports.push_back(record);
        }
    }

    DesignSource const& source;
    BuildContext context;
    IdMaker ids;
};

}  // namespace

BuildResult Build(DesignSource const& source, du::SmartPtr<zvk::ReadWriteLock> const& lock) {
    return DesignBuilder(source, lock).Build();
}

}  // namespace figkernel
