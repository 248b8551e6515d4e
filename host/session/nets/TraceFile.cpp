#include <session/nets/TraceIndex.h>

#include <memory>
#include <unordered_map>
#include <utility>

#include <figrep/SchematicRepresentation.h>
#include <persistence/ContentFields.h>
#include <persistence/ContentXml.h>
#include <zvk/SerializedContentElement.h>

namespace fighost {

namespace {

using du::Symbol;
using zvk::SerializedContentElement;

constexpr char const* ROOT = "figrep-representation";
constexpr std::size_t FILE_LIMIT = std::size_t(1) << 29;
constexpr int VERSION = 1;

struct Keys {
    Symbol const version{"version"};
    Symbol const sheet{"sheet"};
    Symbol const id{"id"};
    Symbol const path{"path"};
    Symbol const net{"net"};
    Symbol const name{"name"};
    Symbol const stop{"stop"};
    Symbol const pin{"pin"};
    Symbol const passage{"passage"};
    Symbol const port{"port"};
    Symbol const portName{"port_name"};
    Symbol const node{"node"};
    Symbol const onHighway{"on_highway"};

    static Keys const& Get() {
        static Keys const keys;
        return keys;
    }
};

// Writing.

void WriteStop(SerializedContentElement& element, TraceIndex const& index,
               TraceIndex::Stop const& stop) {
    Keys const& keys = Keys::Get();
    element.AddProperty(keys.sheet, Symbol(index.sheets[stop.sheet].id));
    for (std::string const& pin : stop.pins)
        element.AddProperty(keys.pin, Symbol(pin));
    for (TraceIndex::Passage const& passage : stop.passages) {
        SerializedContentElement& child = *element.StartContent(keys.passage);
        child.AddProperty(keys.port, Symbol(passage.port));
        child.AddProperty(keys.portName, Symbol(passage.portName));
        child.AddProperty(keys.node, Symbol(passage.node));
        child.AddProperty(keys.onHighway, passage.onHighway);
        element.EndContent();
    }
}

void WriteIndex(SerializedContentElement& element, TraceIndex const& index) {
    Keys const& keys = Keys::Get();
    for (TraceIndex::Sheet const& sheet : index.sheets) {
        SerializedContentElement& child = *element.StartContent(keys.sheet);
        child.AddProperty(keys.id, Symbol(sheet.id));
        child.AddProperty(keys.path, Symbol(sheet.path));
        element.EndContent();
    }
    for (auto const& [name, stops] : index.nets) {
        SerializedContentElement& child = *element.StartContent(keys.net);
        child.AddProperty(keys.name, Symbol(name));
        for (TraceIndex::Stop const& stop : stops) {
            WriteStop(*child.StartContent(keys.stop), index, stop);
            child.EndContent();
        }
        element.EndContent();
    }
}

// Reading.

class IndexReader {
public:
    // Answers what is wrong, or nothing.
    std::string Read(SerializedContentElement const& element) {
        Keys const& keys = Keys::Get();
        ContentFields fields(element);
        int const version = fields.Whole(keys.version);
        if (fields.GetProblem().empty() && version != VERSION) {
            return "was written in the unknown version " + std::to_string(version);
        }
        fields.Children(keys.sheet, [&](ContentFields& sheet) {
            std::string const id = sheet.Text(keys.id).GetString();
            places_[id] = index.sheets.size();
            index.sheets.push_back({id, sheet.Text(keys.path).GetString()});
        });
        fields.Children(keys.net, [&](ContentFields& net) {
            auto& stops = index.nets[net.Text(keys.name).GetString()];
            net.Children(keys.stop, [&](ContentFields& stop) { stops.push_back(ReadStop(stop)); });
        });
        return fields.GetProblem().empty() ? std::string()
                                           : "can't be read: " + fields.GetProblem();
    }

    TraceIndex index;

private:
    TraceIndex::Stop ReadStop(ContentFields& fields) {
        Keys const& keys = Keys::Get();
        TraceIndex::Stop stop;
        auto const place = places_.find(fields.Text(keys.sheet).GetString());
        if (place == places_.end()) {
            fields.Complain("a net stands on a sheet that isn't listed");
        } else {
            stop.sheet = place->second;
        }
        for (Symbol const& pin : fields.Texts(keys.pin))
            stop.pins.push_back(pin.GetString());
        fields.Children(keys.passage, [&](ContentFields& passage) {
            stop.passages.push_back(
                {passage.Text(keys.port).GetString(), passage.Text(keys.portName).GetString(),
                 passage.Text(keys.node).GetString(), passage.Flag(keys.onHighway)});
        });
        return stop;
    }

    std::unordered_map<std::string, std::size_t> places_;
};

ReadTracesResult Failed(Finding error) {
    ReadTracesResult result;
    result.error = std::move(error);
    return result;
}

}  // namespace

std::string WriteTraces(TraceIndex const& index) {
    Keys const& keys = Keys::Get();
    SerializedContentElement content{Symbol(ROOT)};
    content.AddProperty(keys.version, VERSION);
    figrep::SchematicRepresentation::GetSingleton()->CaptureContent(&content);
    WriteIndex(content, index);
    return ContentToXml(content, ROOT, {});
}

ReadTracesResult ReadTraces(FileSource& files, std::string const& path) {
    std::string bytes;
    switch (files.Read(path, FILE_LIMIT, bytes)) {
        case FileSource::Status::READ:
            break;
        case FileSource::Status::MISSING:
            return Failed(Finding::InFile(path, "There is no such file"));
        case FileSource::Status::TOO_LARGE:
            return Failed(Finding::InFile(path, "The file is too large"));
        default:
            return Failed(Finding::InFile(path, "The file can't be read"));
    }
    ContentFromXml read = ContentOfXml(bytes, ROOT, path);
    if (read.error) return Failed(*read.error);
    IndexReader reader;
    std::string const problem = reader.Read(*read.content);
    if (!problem.empty()) return Failed(Finding::InFile(path, "The representation " + problem));
    figrep::SchematicRepresentation::GetSingleton()->CreateFromContent(read.content.get());
    ReadTracesResult result;
    result.index = std::move(reader.index);
    return result;
}

}  // namespace fighost
