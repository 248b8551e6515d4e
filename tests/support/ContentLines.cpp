#include <support/ContentLines.h>

#include <zvk/SerializedContentVisitor.h>

#include <charconv>

namespace figrep::test {

namespace {

std::string Number(double value) {
    char text[32];
    auto const end = std::to_chars(text, text + sizeof text, value).ptr;
    return std::string(text, end);
}

class Writer : public zvk::SerializedContentVisitor {
public:
    std::vector<std::string> lines;

    bool StartElement(du::Symbol const& name) override {
        lines.push_back(name.GetString() + " {");
        return true;
    }
    void EndElement(du::Symbol const&) override { lines.emplace_back("}"); }
    void Visit(du::Symbol const& key, du::Symbol const& value) override {
        Add(key, "'" + value.GetString() + "'");
    }
    void Visit(du::Symbol const& key, bool value) override { Add(key, value ? "true" : "false"); }
    void Visit(du::Symbol const& key, int value) override {
        Add(key, "int " + std::to_string(value));
    }
    void Visit(du::Symbol const& key, double value) override {
        Add(key, "double " + Number(value));
    }
    void Visit(du::Symbol const& key, dg::DPoint3D const& value) override {
        Add(key, "(" + Number(value.x) + "," + Number(value.y) + "," + Number(value.z) + ")");
    }

private:
    void Add(du::Symbol const& key, std::string const& value) {
        lines.push_back(key.GetString() + "=" + value);
    }
};

}  // namespace

std::vector<std::string> LinesOf(zvk::SerializedContentElement const& element) {
    Writer writer;
    element.VisitAll(writer);
    return writer.lines;
}

}  // namespace figrep::test
