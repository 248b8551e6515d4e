#include <host/XmlChecker.h>

#include <cctype>
#include <set>

namespace fighost::test {

namespace {

class Checker {
public:
    explicit Checker(std::string_view text) : text_(text) {}

    XmlDocument Run() {
        CheckCharacters();
        if (Starts("<?xml ")) Skip(text_.find("?>", at_) + 2 - at_);
        while (Good() && at_ < text_.size())
            Step();
        if (Good() && !open_.empty()) Mistake("unclosed element");
        if (Good() && roots_ != 1) Mistake("not exactly one root");
        return std::move(document_);
    }

private:
    bool Good() const { return document_.mistake.empty(); }
    bool Starts(std::string_view what) const { return text_.substr(at_, what.size()) == what; }
    void Skip(std::size_t count) { at_ = std::min(text_.size(), at_ + count); }
    void Mistake(std::string const& what) {
        if (Good()) document_.mistake = what + " at byte " + std::to_string(at_);
    }

    void CheckCharacters() {
        std::size_t pending = 0;
        for (char raw : text_) {
            auto const c = static_cast<unsigned char>(raw);
            bool const continuation = (c & 0xC0) == 0x80;
            if ((pending > 0) != continuation) return Mistake("invalid UTF-8");
            if (continuation)
                --pending;
            else
                pending = c < 0x80 ? 0 : c < 0xE0 ? 1 : c < 0xF0 ? 2 : 3;
            if (c < 0x20 && c != '\n' && c != '\t' && c != '\r')
                return Mistake("control character");
        }
        if (pending > 0) Mistake("invalid UTF-8");
    }

    void Step() {
        if (Starts("</")) return EndTag();
        if (Starts("<")) return StartTag();
        std::size_t const end = std::min(text_.find('<', at_), text_.size());
        std::string const content = Resolve(text_.substr(at_, end - at_));
        bool const blank = content.find_first_not_of(" \t\r\n") == std::string::npos;
        if (open_.empty() && !blank) Mistake("text outside the root");
        for (std::size_t element : open_)
            document_.elements[element].text += content;
        at_ = end;
    }

    std::string Name() {
        std::size_t const begin = at_;
        auto part = [](char c) {
            return std::isalnum(static_cast<unsigned char>(c)) || c == ':' || c == '-' || c == '_';
        };
        while (at_ < text_.size() && part(text_[at_]))
            ++at_;
        if (begin == at_) Mistake("name expected");
        return std::string(text_.substr(begin, at_ - begin));
    }

    void StartTag() {
        Skip(1);
        XmlElement element;
        element.name = Name();
        element.depth = open_.size();
        while (Good() && Starts(" "))
            Attribute(element);
        bool const empty = Starts("/>");
        if (!empty && !Starts(">")) return Mistake("'>' expected");
        Skip(empty ? 2 : 1);
        if (open_.empty()) ++roots_;
        document_.elements.push_back(element);
        if (!empty) open_.push_back(document_.elements.size() - 1);
    }

    void Attribute(XmlElement& element) {
        Skip(1);
        std::string const name = Name();
        if (!Starts("=\"")) return Mistake("value expected");
        Skip(2);
        std::size_t const end = text_.find('"', at_);
        if (end == std::string_view::npos) return Mistake("unclosed value");
        std::string_view const raw = text_.substr(at_, end - at_);
        if (raw.find('<') != std::string_view::npos) return Mistake("'<' in a value");
        if (!element.attributes.emplace(name, Resolve(raw)).second) Mistake("attribute twice");
        at_ = end + 1;
    }

    void EndTag() {
        Skip(2);
        std::string const name = Name();
        if (!Starts(">")) return Mistake("'>' expected");
        Skip(1);
        if (open_.empty() || document_.elements[open_.back()].name != name) {
            return Mistake("end tag of another element");
        }
        open_.pop_back();
    }

    std::string Resolve(std::string_view raw) {
        static std::map<std::string_view, char> const KNOWN = {
            {"amp", '&'},   {"lt", '<'},   {"gt", '>'},  {"quot", '"'},
            {"apos", '\''}, {"#10", '\n'}, {"#9", '\t'}, {"#13", '\r'}};
        std::string resolved;
        for (std::size_t i = 0; i < raw.size(); ++i) {
            if (raw[i] != '&') {
                resolved += raw[i];
                continue;
            }
            std::size_t const end = raw.find(';', i);
            auto const found = end == std::string_view::npos
                                   ? KNOWN.end()
                                   : KNOWN.find(raw.substr(i + 1, end - i - 1));
            if (found == KNOWN.end()) {
                Mistake("unknown entity");
                return resolved;
            }
            resolved += found->second;
            i = end;
        }
        return resolved;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t roots_ = 0;
    std::vector<std::size_t> open_;
    XmlDocument document_;
};

}  // namespace

std::vector<XmlElement> XmlDocument::Named(std::string_view name) const {
    std::vector<XmlElement> named;
    for (XmlElement const& element : elements) {
        if (element.name == name) named.push_back(element);
    }
    return named;
}

bool XmlDocument::HasUniqueIds() const {
    std::set<std::string> ids;
    for (XmlElement const& element : elements) {
        auto const id = element.attributes.find("id");
        if (id != element.attributes.end() && !ids.insert(id->second).second) return false;
    }
    return true;
}

XmlDocument CheckXml(std::string_view text) {
    return Checker(text).Run();
}

}  // namespace fighost::test
