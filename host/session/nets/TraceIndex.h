// What each net has on each sheet, for following it: a design's, or one that was saved.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <readers/FileSource.h>
#include <readers/Findings.h>
#include <session/Session.h>

namespace fighost {

/// Where a net is, but not where it goes: the ways between sheets are those of
/// `figrep::SchematicRepresentation`.
struct TraceIndex {
    struct Sheet {
        std::string id;    ///< the name under which the sheet's figure is on record
        std::string path;  ///< as a user reads it
    };
    /// A node of a port by which the net leaves its sheet.
    struct Passage {
        std::string port;  ///< id
        std::string portName;
        std::string node;  ///< id
        bool onHighway = false;
    };
    struct Stop {
        std::size_t sheet = 0;
        std::vector<std::string> pins;  ///< "REFERENCE:PIN", each once, sorted
        std::vector<Passage> passages;
    };

    std::vector<Sheet> sheets;
    /// By the name of the net: the sheets that show it or have a pin of it, in their order.
    std::map<std::string, std::vector<Stop>> nets;
};

/// Of all nets of the session, or of one. Cost: one walk of every figure that shows a wanted net.
TraceIndex IndexNets(Session const& session);
TraceIndex IndexNet(Session const& session, std::string const& net);

/// The bytes of a file with the index and the content of `figrep::SchematicRepresentation`.
std::string WriteTraces(TraceIndex const& index);

/// Exactly one of the two is set.
struct ReadTracesResult {
    std::optional<TraceIndex> index;
    std::optional<Finding> error;
};

/// Reads such a file; its content replaces what `figrep::SchematicRepresentation` has on record,
/// also of open sessions. On an error the record is as it was.
ReadTracesResult ReadTraces(FileSource& files, std::string const& path);

}  // namespace fighost
