// PDF documents of real designs against what the files say.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <host/cli/RunProgram.h>
#include <integration/PdfReading.h>
#include <integration/oracle/Sheets.h>
#include <support/Corpus.h>

namespace fighost::test {
namespace {

/// The letters of all that leads from one page to another. Readers of PDF join texts that stand
/// close and take small letters for texts of their own, so that words can't be compared.
using Links = std::map<unsigned, std::multiset<char>>;

void Add(Links& links, unsigned page, std::string const& text) {
    links[page].insert(text.begin(), text.end());
}

/// A sheet of the design as the program lists it, which is the order of the pages.
struct Page {
    std::string path;
    std::string name;
    oracle::Instance const* instance = nullptr;
};

/// The label as it is painted: escapes and the marks of overbars and of small letters taken out.
/// Spaces are left out, since readers of PDF put them where letters stand apart.
std::string Painted(std::string const& label) {
    std::string const text = oracle::Unescape(label);
    std::string result;
    std::vector<bool> groups;  // whether a brace that is open belongs to a mark
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const marks = i + 1 < text.size() && text[i + 1] == '{' &&
                           std::string("~_^").find(text[i]) != std::string::npos;
        if (marks) {
            groups.push_back(true);
            ++i;
            continue;
        }
        if (text[i] == '{') groups.push_back(false);
        bool const closes = text[i] == '}' && !groups.empty();
        bool const closesMark = closes && groups.back();
        if (closes) groups.pop_back();
        if (!closesMark) result += text[i];
    }
    return WithoutSpaces(result);
}

class PdfOfDesign {
public:
    explicit PdfOfDesign(std::string const& root) : design_(oracle::ReadDesign(root)) {
        TemporaryFolder folder;
        std::string const file = folder.Path("out.pdf");
        Outcome const outcome = RunProgram("figrep", {"render", root, "-o", file, "--quiet"});
        EXPECT_EQ(outcome.code, 0) << outcome.err;
        pdf_ = ReadPdf(file);
        EXPECT_EQ(pdf_.problem, "");
        ListPages(root);
    }

    void ExpectAPageForEverySheetInTheTreeOfSheets() const {
        EXPECT_EQ(pages_.size(), design_.instances.size());
        EXPECT_EQ(pdf_.pages.size(), pages_.size());
        ASSERT_EQ(pdf_.outline.size(), pages_.size());
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            ASSERT_TRUE(pages_[i].instance) << pages_[i].path;
            auto const depth = static_cast<std::size_t>(pages_[i].instance->depth);
            PdfEntry const& entry = pdf_.outline[i];
            EXPECT_EQ(WithoutSpaces(entry.title), WithoutSpaces(pages_[i].name));
            EXPECT_EQ(entry.page, i + 1) << entry.title;
            EXPECT_EQ(entry.depth, depth) << entry.title;
        }
    }

    void ExpectTheLabelsOnTheirPages() const {
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            std::string const text = WithoutSpaces(pdf_.pages.at(i).text);
            for (std::string const& label : LabelsOf(*pages_[i].instance, pdf_.pages[i]))
                EXPECT_NE(text.find(label), std::string::npos) << pages_[i].path << " " << label;
        }
    }

    /// A reader takes words that stand close to a label for a part of the link, so there may be
    /// more letters than those of the labels, but no more links.
    void ExpectLinksToTheRightPages() const {
        std::size_t count = 0;
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            Links shown;
            for (PdfLink const& link : pdf_.pages.at(i).links)
                Add(shown, link.page, WithoutSpaces(link.text));
            Links const expected = LinksOf(i, count);
            ASSERT_EQ(shown.size(), expected.size()) << pages_[i].path;
            for (auto const& [page, letters] : expected) {
                auto const& found = shown[page];
                EXPECT_TRUE(
                    std::includes(found.begin(), found.end(), letters.begin(), letters.end()))
                    << pages_[i].path << " to page " << page << ": "
                    << std::string(found.begin(), found.end()) << " instead of "
                    << std::string(letters.begin(), letters.end());
            }
        }
        EXPECT_EQ(pdf_.linkCount, count);
    }

private:
    void ListPages(std::string const& root) {
        Outcome const outcome = RunProgram("figrep", {"list", "sheets", root, "--quiet"});
        std::istringstream lines(outcome.out);
        for (std::string line; std::getline(lines, line);) {
            auto const tab = line.find('\t');
            Page page{line.substr(0, tab), line.substr(tab + 1), nullptr};
            for (oracle::Instance const& instance : design_.instances) {
                if (instance.path == page.path) page.instance = &instance;
            }
            pages_.push_back(page);
        }
    }

    /// What lies beside the paper is in no picture.
    static std::vector<std::string> LabelsOf(oracle::Instance const& instance,
                                             PdfPage const& page) {
        constexpr double MM = 1e-4;
        auto const isOnPaper = [&](oracle::Place const& at) {
            double const x = static_cast<double>(at.x) * MM;
            double const y = static_cast<double>(at.y) * MM;
            return x > 0 && y > 0 && x < page.width && y < page.height;
        };
        std::vector<std::string> labels;
        for (oracle::Label const& label : instance.labels) {
            bool const shows = label.kind != oracle::LabelKind::Flag && isOnPaper(label.at);
            if (shows) labels.push_back(Painted(label.text));
        }
        for (oracle::SheetPin const& pin : instance.sheetPins) {
            if (isOnPaper(pin.at)) labels.push_back(Painted(pin.text));
        }
        return labels;
    }

    unsigned PageOf(oracle::Instance const& instance) const {
        auto const page = std::find_if(pages_.begin(), pages_.end(), [&](Page const& each) {
            return each.instance == &instance;
        });
        return static_cast<unsigned>(page - pages_.begin()) + 1;
    }

    /// The page behind `own` that shows the global label, round and round; 0 for none.
    unsigned NextWithGlobal(std::string const& text, std::size_t own) const {
        for (std::size_t step = 1; step < pages_.size(); ++step) {
            std::size_t const at = (own + step) % pages_.size();
            auto const& labels = pages_[at].instance->labels;
            bool const shows = std::any_of(labels.begin(), labels.end(), [&](auto const& label) {
                return label.kind == oracle::LabelKind::Global && label.text == text;
            });
            if (shows) return static_cast<unsigned>(at) + 1;
        }
        return 0;
    }

    /// Adds their number to `count`.
    Links LinksOf(std::size_t own, std::size_t& count) const {
        oracle::Instance const& instance = *pages_[own].instance;
        Links links;
        for (oracle::SheetPin const& pin : instance.sheetPins) {
            if (pin.child < 0) continue;
            auto const& child = design_.instances.at(static_cast<std::size_t>(pin.child));
            Add(links, PageOf(child), Painted(pin.text));
            ++count;
        }
        for (oracle::Label const& label : instance.labels) {
            unsigned page = 0;
            if (label.kind == oracle::LabelKind::Global) page = NextWithGlobal(label.text, own);
            if (label.kind == oracle::LabelKind::Hierarchical) page = ParentPage(instance);
            if (page == 0) continue;
            Add(links, page, Painted(label.text));
            ++count;
        }
        return links;
    }

    unsigned ParentPage(oracle::Instance const& instance) const {
        auto const above = instance.identity.substr(0, instance.identity.rfind('/'));
        for (oracle::Instance const& each : design_.instances) {
            if (each.identity == above) return PageOf(each);
        }
        return 0;
    }

    oracle::Design design_;
    std::vector<Page> pages_;
    PdfReading pdf_;
};

/// In parts, so that they can run side by side.
constexpr std::size_t PARTS = 4;

class CorpusPdf : public ::testing::TestWithParam<std::size_t> {};

TEST_P(CorpusPdf, EverySheetIsAPageWithItsLabelsAndLinksToTheRightPages) {
    SKIP_WITHOUT_CORPUS();
    std::vector<std::string> const roots = corpus::RootSheets();
    for (std::size_t i = GetParam(); i < roots.size(); i += PARTS) {
        SCOPED_TRACE(roots[i]);
        PdfOfDesign const pdf(roots[i]);
        pdf.ExpectAPageForEverySheetInTheTreeOfSheets();
        ASSERT_FALSE(HasFatalFailure());
        pdf.ExpectTheLabelsOnTheirPages();
        pdf.ExpectLinksToTheRightPages();
    }
}

INSTANTIATE_TEST_SUITE_P(Parts, CorpusPdf, ::testing::Range<std::size_t>(0, PARTS));

}  // namespace
}  // namespace fighost::test
