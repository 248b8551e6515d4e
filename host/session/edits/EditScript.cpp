#include <session/edits/EditScript.h>

#include <algorithm>
#include <utility>

namespace fighost {

namespace {

constexpr std::size_t SCRIPT_LIMIT = std::size_t(1) << 26;

struct Word {
    std::string text;
    std::size_t at = 0;  // in bytes, from the start of the line
};

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

// The words of one line.
class LineReader {
public:
    explicit LineReader(std::string_view line) : line_(line) {}

    std::vector<Word> const& GetWords() const { return words_; }
    std::string const& GetProblem() const { return problem_; }
    std::size_t GetProblemPlace() const { return problemAt_; }

    bool Read() {
        while (problem_.empty()) {
            while (at_ < line_.size() && IsBlank(line_[at_]))
                ++at_;
            if (at_ == line_.size() || BeginsComment()) break;
            words_.push_back({{}, at_});
            if (line_[at_] == '"') {
                ReadQuoted(words_.back().text);
            } else {
                ReadPlain(words_.back().text);
            }
        }
        return problem_.empty();
    }

private:
    bool BeginsComment() const {
        bool const alone = at_ + 1 == line_.size() || IsBlank(line_[at_ + 1]);
        return line_[at_] == '#' && (words_.empty() || alone);
    }

    void ReadPlain(std::string& text) {
        while (at_ < line_.size() && !IsBlank(line_[at_]))
            text += line_[at_++];
    }

    void ReadQuoted(std::string& text) {
        std::size_t const begin = at_++;
        for (; at_ < line_.size() && line_[at_] != '"'; ++at_) {
            bool const escaped = line_[at_] == '\\' && at_ + 1 < line_.size() &&
                                 (line_[at_ + 1] == '"' || line_[at_ + 1] == '\\');
            if (escaped) ++at_;
            text += line_[at_];
        }
        if (at_ == line_.size()) return Complain(begin, "the quotation isn't closed");
        ++at_;
        if (at_ < line_.size() && !IsBlank(line_[at_])) {
            Complain(at_, "a blank is missing behind the quotation");
        }
    }

    void Complain(std::size_t at, char const* problem) {
        problemAt_ = at;
        problem_ = problem;
    }

    std::string_view line_;
    std::size_t at_ = 0;
    std::vector<Word> words_;
    std::string problem_;
    std::size_t problemAt_ = 0;
};

// Columns count characters, not bytes.
std::size_t ColumnOf(std::string_view line, std::size_t at) {
    std::string_view const before = line.substr(0, at);
    return 1 + static_cast<std::size_t>(std::count_if(before.begin(), before.end(), [](char c) {
               return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u;
           }));
}

// Adds the line's step, if it has one; otherwise tells what is wrong with it.
std::optional<Finding> ReadLine(std::string_view line, Place place,
                                std::vector<ScriptStep>& steps) {
    auto const error = [&](std::size_t at, std::string const& sentence) {
        place.column = ColumnOf(line, at);
        return Finding{place, sentence};
    };
    LineReader reader(line);
    if (!reader.Read()) return error(reader.GetProblemPlace(), reader.GetProblem());
    auto const& words = reader.GetWords();
    if (words.empty()) return {};
    std::vector<std::string> arguments;
    for (std::size_t i = 1; i < words.size(); ++i)
        arguments.push_back(words[i].text);
    ParsedEdit parsed = ParseEdit(words[0].text, arguments);
    if (!parsed.edit) return error(words[parsed.word].at, parsed.problem);
    place.column = ColumnOf(line, words[0].at);
    steps.push_back({std::move(*parsed.edit), place});
    return {};
}

EditScript Failure(Finding error) {
    EditScript script;
    script.error = std::move(error);
    return script;
}

}  // namespace

EditScript ReadEditScript(std::string_view text, std::string const& file) {
    EditScript script;
    Place place{file, 0, 0};
    while (!text.empty()) {
        ++place.line;
        auto const end = std::min(text.find('\n'), text.size());
        auto error = ReadLine(text.substr(0, end), place, script.steps);
        if (error) return Failure(std::move(*error));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return script;
}

EditScript ReadEditScript(FileSource& files, std::string const& path) {
    std::string bytes;
    switch (files.Read(path, SCRIPT_LIMIT, bytes)) {
        case FileSource::Status::READ:
            return ReadEditScript(bytes, path);
        case FileSource::Status::MISSING:
            return Failure(Finding::InFile(path, "there is no such file"));
        case FileSource::Status::TOO_LARGE:
            return Failure(Finding::InFile(path, "the file is too large"));
        case FileSource::Status::FAILED:
            break;
    }
    return Failure(Finding::InFile(path, "the file can't be read"));
}

}  // namespace fighost
