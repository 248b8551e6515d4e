// What all steps of one build share.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <figkernel/DesignBuilder.h>

#include "DesignRecords.h"

namespace figkernel {

/// Which texts the records of one build have as ids, by kind.
class IdRegistry {
public:
    /// False when the kind has that id already.
    bool Take(unsigned kind, du::Symbol const& id);
    /// The next number to tell a further record of that id by, from 2 on.
    std::uint32_t NextNumber(unsigned kind, du::Symbol const& id);

private:
    std::vector<std::uint16_t> kinds;  ///< a bit per kind, by the order of the symbol
    std::unordered_map<std::uint64_t, std::uint32_t> numbers;  ///< of ids that came more than once
};

/// The records that a whole design has, by their places in the source, and the findings so far.
struct BuildContext {
    DesignSource const& source;
    du::SmartPtr<zvk::ReadWriteLock> lock;
    du::SmartPtr<DesignRecord> design;
    std::vector<SettingsPtr> settings;
    std::vector<du::SmartPtr<NetRecord>> nets;
    std::vector<du::SmartPtr<HighwayRecord>> highways;
    std::vector<du::SmartPtr<PortRecord>> ports;  ///< null for a port on nothing
    std::vector<BuildFinding> findings;
    std::string sheetId;  ///< of the sheet under work, as the source has it
    IdRegistry ids;

    void Report(BuildFinding::Kind kind, std::string const& id, std::string text) {
        findings.push_back({kind, sheetId, id, std::move(text)});
    }

    /// Null for NO_INDEX; reports an index that points nowhere.
    SettingsPtr SettingsOf(SourceIndex index, std::string const& id);

    /// Whether `index` points into a list of `size`; reports it when it points elsewhere.
    bool IsUsable(SourceIndex index, std::size_t size, char const* what, std::string const& id);
};

AttributeVector MakeAttributes(std::vector<AttributeSource> const& source);

/// Gives ids that are unique among the records of one kind on one sheet (or of a whole design).
class IdMaker {
public:
    enum Kind : std::uint8_t {
        SHEET,
        NET,
        HIGHWAY,
        PORT,
        ITEM,
        CONNECTOR,
        GRAPHIC,
        SEGMENT,
        HIGHWAY_SEGMENT,
        PORT_NODE,
        SUB_NET,
        SUB_HIGHWAY
    };

    IdMaker(BuildContext& buildContext, std::string idPrefix)
        : context(buildContext), prefix(std::move(idPrefix)) {}

    /// The prefix and `id`, or `fallback` where `id` is empty.
    du::Symbol Make(Kind kind, std::string_view id, std::string_view fallback = {});

private:
    BuildContext& context;
    std::string prefix;
};

}  // namespace figkernel
