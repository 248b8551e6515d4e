// Saved figures that are damaged, foreign, or made by somebody who means harm: one clear message,
// or a failure of that change alone, and never a change that was made by half.
#include <set>
#include <sstream>

#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <support/FindableItems.h>
#include <support/Random.h>
#include <support/RandomEdits.h>

#include "SavedFigureSupport.h"

namespace fighost::testing {
namespace {

using namespace figrep::testing;  // NOLINT: the tests speak of both sides
using figrep::Symbol;
using figrep::test::RandomEdits;
namespace test = figrep::test;

std::string File(std::string const& components) {
    return "<?xml version=\"1.0\"?>\n<figrep-figures>\n<content key=\"figure\">\n"
           "<int key=\"content_version\" value=\"1\"/><bool key=\"show_grid\" value=\"true\"/>\n" +
           components + "</content></figrep-figures>\n";
}

std::string Component(std::string const& content) {
    return "<content key=\"component\">" + content + "</content>\n";
}

std::string ErrorOf(std::string const& bytes) {
    auto const read = ReadSavedFigures(bytes, "f");
    EXPECT_FALSE(read.file);
    return read.error ? read.error->ToString() : "";
}

/// A small sheet with a frame, nets on a bus and off it, ports, labels.
figkernel::DesignSource SmallSheet() {
    test::Drawing drawing;
    drawing.Pin("N", "U1", "1", 0, 0).Wire("N", 0, 0, 10, 0).Pin("N", "U2", "1", 10, 0);
    drawing.Label("N", "label", 5, 0).Box("U1", -5, -5, 0, 5).NetPort("P", "N", 10, 5);
    drawing.Wire("N", 10, 0, 10, 5).Bus("H", 0, 20, 30, 20).BusPort("HP", "H", 0, 20);
    drawing.Tap("A", "H", 10, 20, 12, 22).Wire("A", 12, 22, 12, 40);
    drawing.Tap("A", "H", 20, 20, 22, 18).Wire("A", 22, 18, 22, 10).Format(100, 100);
    figkernel::TitleBlockSource block;
    block.sections.emplace_back();
    block.sections.back().segments = {{1, "token", true, "text"}};
    drawing.Current().titleBlock = block;
    return drawing.Source();
}

class BadSavedFigures : public ::testing::Test {
protected:
    /// A figure with one change of each kind, saved.
    std::string SavedWithAllKinds(std::uint64_t seed) const {
        auto const figure = LoadedWithFrame(drawing.Sheet());
        RandomEdits edits(figure, seed);
        for (int kind = 0; kind < RandomEdits::KINDS; ++kind) {
            if (kind != RandomEdits::DELETE) edits.Edit(static_cast<RandomEdits::Kind>(kind));
        }
        edits.Edit(RandomEdits::DELETE);
        return Save(figure);
    }

    /// What could be applied gives the same figure without what couldn't; and saving keeps both.
    /// Answers how many changes couldn't be applied, or -1 where the file can't be read at all.
    int ExpectNothingByHalf(std::string const& bytes, bool saveAgain = true) const {
        auto read = ReadSavedFigures(bytes, "f");
        EXPECT_NE(read.file.has_value(), read.error.has_value());
        if (!read.file) return -1;
        std::size_t const count = read.file->figures[0].components.size();
        Loaded const loaded(std::move(*read.file), FramedFigure(drawing.Sheet()));
        if (saveAgain) ExpectKept(loaded, count);
        auto rest = Read(bytes);
        auto& components = rest.figures[0].components;
        int left = 0;
        for (std::size_t i = loaded.reports.size(); i > 0; --i) {
            auto const outcome = loaded.reports[i - 1].outcome;
            if (outcome == DeltaReport::APPLIED || outcome == DeltaReport::PARTLY) continue;
            components.erase(components.begin() + static_cast<std::ptrdiff_t>(i - 1));
            ++left;
        }
        if (left == 0) return 0;
        Loaded const only(std::move(rest), FramedFigure(drawing.Sheet()));
        EXPECT_EQ(Difference(loaded.figure, only.figure), "") << loaded.Reports();
        return left;
    }

    static void ExpectKept(Loaded const& loaded, std::size_t count) {
        auto const again = ReadSavedFigures(loaded.SaveAgain(), "again");
        ASSERT_TRUE(again.file);
        EXPECT_GE(again.file->figures[0].components.size(), count);
    }

    InstalledDesign drawing{SmallSheet()};
};

Strings LinesOfText(std::string const& text) {
    Strings lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::string Joined(Strings const& lines) {
    std::string text;
    for (auto const& line : lines)
        text += line + "\n";
    return text;
}

/// The text with the value of an attribute replaced; unchanged without the attribute.
std::string WithAttribute(std::string line, std::string const& name, std::string const& value) {
    auto const start = line.find(" " + name + "=\"");
    if (start == std::string::npos) return line;
    auto const from = start + name.size() + 3;
    return line.replace(from, line.find('"', from) - from, value);
}

TEST_F(BadSavedFigures, UnharmedFileIsAppliedWhole) {
    std::string const bytes = SavedWithAllKinds(1);
    EXPECT_EQ(ExpectNothingByHalf(bytes), 0);
    for (char const* type : {"sheet_delta", "sub_net_delta", "move_delta", "setting_delta_v2",
                             "setting_delta", "connections_delta", "publish_title_block_delta"})
        EXPECT_NE(bytes.find("\"" + std::string(type) + "\""), std::string::npos) << type;
}

TEST_F(BadSavedFigures, EveryNumberThatIsNoneFailsItsChangeAlone) {
    Strings const lines = LinesOfText(SavedWithAllKinds(1));
    int tried = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (char const* number : {"nan", "inf", "-inf"}) {
            for (char const* attribute : {"x", "y", "value"}) {
                bool const isNumber = lines[i].find("<point") != std::string::npos ||
                                      lines[i].find("<double") != std::string::npos;
                Strings mutated = lines;
                mutated[i] = WithAttribute(lines[i], attribute, number);
                if (!isNumber || mutated[i] == lines[i]) continue;
                ++tried;
                ASSERT_EQ(ExpectNothingByHalf(Joined(mutated)), 1) << mutated[i];
            }
        }
    }
    EXPECT_GE(tried, 50);
}

TEST_F(BadSavedFigures, EveryLineThatIsMissingOrOfAnotherTypeHarmsNothingElse) {
    Strings const lines = LinesOfText(SavedWithAllKinds(2));
    int failed = 0;
    std::set<std::string> tried;  // properties with the ones before them, values aside
    auto const form = [](std::string const& line) { return line.substr(0, line.find(" value=")); };
    for (std::size_t i = 3; i + 1 < lines.size(); ++i) {
        if (!tried.insert(form(lines[i - 1]) + form(lines[i])).second) continue;
        for (char const* other :
             {"", "<text key=\"KEY\" value=\"t\"/>", "<int key=\"KEY\" value=\"-7\"/>",
              "<bool key=\"KEY\" value=\"true\"/>", "<double key=\"KEY\" value=\"1e300\"/>",
              "<point key=\"KEY\" x=\"1\" y=\"2\" z=\"3\"/>", "<content key=\"KEY\"/>"}) {
            std::string line = other;
            auto const key = lines[i].find("key=\"");
            if (key == std::string::npos || lines[i].find("<content") != std::string::npos)
                continue;
            auto const name = lines[i].substr(key + 5, lines[i].find('"', key + 5) - key - 5);
            if (auto const at = line.find("KEY"); at != std::string::npos)
                line.replace(at, 3, name);
            Strings mutated = lines;
            mutated[i] = line;
            if (ExpectNothingByHalf(Joined(mutated)) > 0) ++failed;
            ASSERT_FALSE(HasFailure()) << lines[i] << " replaced by " << line;
        }
    }
    EXPECT_GE(failed, 100);
}

TEST_F(BadSavedFigures, IdsOfItemsOfAnotherKindHarmNothing) {
    std::string const bytes = SavedWithAllKinds(3);
    Strings const lines = LinesOfText(bytes);
    Strings ids{drawing.Sheet()->GetId().GetString(), drawing.design->GetId().GetString()};
    for (auto const& item : test::FindableItems(LoadedWithFrame(drawing.Sheet())))
        ids.push_back(item->GetId().GetString());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        bool const namesAnItem = lines[i].find("key=\"id\"") != std::string::npos ||
                                 lines[i].find("key=\"sub_net_id\"") != std::string::npos ||
                                 lines[i].find("key=\"sheet\"") != std::string::npos ||
                                 lines[i].find("key=\"id_list_entry\"") != std::string::npos;
        for (std::size_t k = 0; namesAnItem && k < ids.size(); ++k) {
            Strings mutated = lines;
            mutated[i] = WithAttribute(lines[i], "value", ids[k]);
            ASSERT_GE(ExpectNothingByHalf(Joined(mutated)), 0);
            ASSERT_FALSE(HasFailure()) << lines[i] << " names " << ids[k];
        }
    }
}

TEST_F(BadSavedFigures, WhatMeansAnItemOfAnotherKindIsRefused) {
    std::string const block = BlockOf(LoadedWithFrame(drawing.Sheet()), "U1")->GetId().GetString();
    std::string const place = " x=\"0\" y=\"0\" z=\"0\"/>";
    Loaded const loaded(
        File(Component("<int key=\"action\" value=\"0\"/><text key=\"type\" value=\"sheet_delta\"/>"
                       "<text key=\"id\" value=\"" +
                       drawing.Sheet()->GetId().GetString() + "\"/><text key=\"sheet\" value=\"" +
                       drawing.Sheet()->GetId().GetString() +
                       "\"/><text key=\"design_id\" value=\"" +
                       drawing.design->GetId().GetString() + "\"/>") +
             Component("<int key=\"action\" value=\"1\"/><text key=\"type\" "
                       "value=\"connections_delta\"/><content key=\"broken_connection\"><text "
                       "key=\"sub_net_id\" value=\"" +
                       block + "\"/><point key=\"static_pos\"" + place +
                       "<point key=\"start_pos\"" + place + "<point key=\"end_pos\"" + place +
                       "<bool key=\"predecessor_not_successor\" value=\"true\"/></content>") +
             Component("<int key=\"action\" value=\"2\"/><text key=\"id\" value=\"" + block +
                       "/1\"/>")),
        FramedFigure(drawing.Sheet()));
    ASSERT_EQ(loaded.reports.size(), 3u);
    EXPECT_EQ(loaded.reports[0].outcome, DeltaReport::APPLIED) << loaded.Report(0);
    EXPECT_EQ(loaded.reports[1].outcome, DeltaReport::FAILED);
    EXPECT_NE(loaded.Report(1).find("is no net"), std::string::npos) << loaded.Report(1);
    EXPECT_EQ(loaded.reports[2].outcome, DeltaReport::FAILED);
    EXPECT_NE(loaded.Report(2).find("can't be deleted"), std::string::npos) << loaded.Report(2);
    EXPECT_EQ(Difference(loaded.figure, LoadedWithFrame(drawing.Sheet())), "");
}

TEST_F(BadSavedFigures, WronglyNestedContentIsKeptAndHarmsNothing) {
    std::string const whole = SavedWithAllKinds(4);
    auto const body = whole.find("<content key=\"component\">");
    std::string const component =
        whole.substr(body, whole.find("\n    <content key=\"component\">", body + 1) - body);
    for (std::string const& nested :
         {Component(component), Component("<content key=\"figure\">" + component + "</content>"),
          Component("<content key=\"transform\"><content key=\"transform\"/></content>"),
          Component(
              "<int key=\"action\" value=\"3\"/><text key=\"type\" value=\"move_delta\"/><point "
              "key=\"offset\" x=\"1\" y=\"0\" z=\"0\"/><content key=\"transform\"><content "
              "key=\"transform\"/></content>"),
          Component("<content key=\"text_section\"><content key=\"text_section\"/></content>"),
          Component("<content key=\"component\">" + component + component + "</content>")}) {
        std::string mutated = whole;
        mutated.insert(body, nested);
        EXPECT_EQ(ExpectNothingByHalf(mutated), 1) << nested;
    }
}

TEST_F(BadSavedFigures, EveryBeginningOfAFileIsAMessage) {
    std::string const whole = SavedWithAllKinds(5);
    std::size_t const end = whole.rfind("</");
    for (std::size_t length = 0; length <= end; length += length < 300 ? 1 : 7)
        ASSERT_FALSE(ErrorOf(whole.substr(0, length)).empty()) << length;
}

// A million in an optimised build; others would take ten times as long.
#ifdef NDEBUG
constexpr std::size_t VERY_MANY = 1000000;
#else
constexpr std::size_t VERY_MANY = 100000;
#endif

TEST_F(BadSavedFigures, VeryManyComponentsTakeTheirTimeAndNoMore) {
    constexpr std::size_t COUNT = VERY_MANY;
    std::string components;
    std::string const empty = "<content key=\"component\"/>";
    components.reserve(COUNT * empty.size());
    for (std::size_t i = 0; i < COUNT; ++i)
        components += empty;
    Loaded const loaded(File(components));
    ASSERT_EQ(loaded.reports.size(), COUNT);
    EXPECT_EQ(loaded.reports.back().outcome, DeltaReport::NOT_UNDERSTOOD);
    EXPECT_GE(loaded.SaveAgain().size(), components.size());
}

// Each looks for an id that isn't there, in a figure in which there is nothing to be found.
TEST_F(BadSavedFigures, TensOfThousandsOfChangesThatFailTakeTheirTimeAndNoMore) {
    std::string const deletion =
        Component("<int key=\"action\" value=\"2\"/><text key=\"id\" value=\"gone\"/>");
    std::string components;
    for (int i = 0; i < 20000; ++i)
        components += deletion;
    Loaded const loaded(File(components), FramedFigure(drawing.Sheet()));
    ASSERT_EQ(loaded.reports.size(), 20000u);
    EXPECT_EQ(loaded.reports.back().outcome, DeltaReport::FAILED);
}

TEST_F(BadSavedFigures, UnknownComponentsAreKeptAsTheyAreAndReported) {
    std::string const bytes = File(
        "<content key=\"component\"><text key=\"type\" value=\"from_the_future\"/>"
        "<content key=\"x\"><int key=\"n\" value=\"3\"/></content>"
        "<text key=\"later\" value-hex=\"00ff\"/></content><content key=\"component\"/>");
    Loaded const loaded(bytes);
    ASSERT_EQ(loaded.reports.size(), 2u);
    EXPECT_EQ(loaded.reports[0].outcome, DeltaReport::NOT_UNDERSTOOD);
    EXPECT_NE(loaded.Report(0).find("from_the_future"), std::string::npos);
    EXPECT_TRUE(loaded.figure->GetFormatGridOn());
    auto const again = Read(loaded.SaveAgain());
    auto const before = Read(bytes);
    ASSERT_EQ(again.figures[0].components.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(test::LinesOf(*again.figures[0].components[i].content),
                  test::LinesOf(*before.figures[0].components[i].content));
    }
}

TEST_F(BadSavedFigures, WrongTypesMissingFieldsAndNumbersThatAreNoneFailForThatChangeAlone) {
    std::string const action = "<int key=\"action\" value=\"3\"/>";
    std::string const move = "<text key=\"type\" value=\"move_delta\"/>";
    Loaded const loaded(
        File(Component(action + move) +
             Component(action + move + "<text key=\"offset\" value=\"far\"/>") +
             Component(action + move + "<point key=\"offset\" x=\"nan\" y=\"0\" z=\"0\"/>") +
             Component(action + move + "<point key=\"offset\" x=\"inf\" y=\"0\" z=\"0\"/>") +
             Component(action + "<text key=\"type\" value=\"setting_delta\"/><text key=\"id\" "
                                "value=\"a\"/><text key=\"setting_type\" value=\"SIZE\"/>") +
             Component(action + move + "<point key=\"offset\" x=\"1\" y=\"0\" z=\"0\"/>")));
    ASSERT_EQ(loaded.reports.size(), 6u);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(loaded.reports[i].outcome, DeltaReport::NOT_UNDERSTOOD) << loaded.Report(i);
    EXPECT_EQ(loaded.reports[5].outcome, DeltaReport::APPLIED);
    EXPECT_EQ(Read(loaded.SaveAgain()).figures[0].components.size(), 6u);
}

TEST_F(BadSavedFigures, FilesThatAreNoneAreOneClearMessage) {
    std::string const whole = File("");
    EXPECT_NE(ErrorOf(whole.substr(0, whole.size() / 2)).find("no whole XML"), std::string::npos);
    EXPECT_NE(ErrorOf("").find("f:1:1"), std::string::npos);
    EXPECT_NE(ErrorOf("<svg/>").find("another kind of file: it holds 'svg'"), std::string::npos);
    for (char const* other : {"", "(kicad_sch (version 20230121))", "\x1f\x8b\x08", "{}"})
        EXPECT_EQ(ErrorOf(other), "f:1:1: this is another kind of file: it holds no XML") << other;
    EXPECT_NE(ErrorOf("<figrep-figures/>").find("no saved figure"), std::string::npos);
    std::string newer = whole;
    newer.replace(newer.find("value=\"1\"") + 7, 1, "2");
    EXPECT_NE(ErrorOf(newer).find("newer program"), std::string::npos);
    for (char const* version : {"<int key=\"content_version\" value=\"0\"/>",
                                "<int key=\"content_version\" value=\"-1\"/>",
                                "<text key=\"content_version\" value=\"1\"/>", ""}) {
        std::string odd = whole;
        odd.replace(odd.find("<int"), odd.find("<bool") - odd.find("<int"), version);
        EXPECT_NE(ErrorOf(odd).find("version"), std::string::npos) << version;
    }
    EXPECT_NE(ErrorOf(File("<int key=\"n\" value=\"many\"/>")).find("f:5:"), std::string::npos);
    EXPECT_NE(ErrorOf(File("<blob key=\"n\"/>")).find("'blob'"), std::string::npos);
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "<content key=\"x\">";
    for (int i = 0; i < 100000; ++i)
        deep += "</content>";
    EXPECT_NE(ErrorOf(File(deep)).find("too deeply"), std::string::npos);
    MemoryFiles files;
    EXPECT_NE(ReadSavedFigures(files, "gone").error->ToString().find("no such file"),
              std::string::npos);
}

/// One damage to the bytes of a file.
void DamageBytes(std::string& bytes, test::Random& random) {
    std::size_t const at = random.Below(bytes.size());
    switch (random.Below(3)) {
        case 0:
            bytes[at] = static_cast<char>(random.Next());
            break;
        case 1:
            bytes.erase(at, random.Below(20));
            break;
        default:
            bytes.insert(at, bytes.substr(random.Below(bytes.size()), 9));
    }
}

/// One damage that mostly leaves a file that can be read.
void DamageLines(Strings& lines, test::Random& random) {
    std::size_t const one = random.Below(lines.size());
    std::size_t const other = random.Below(lines.size());
    switch (random.Below(4)) {
        case 0:
            std::swap(lines[one], lines[other]);
            break;
        case 1:
            lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(one));
            break;
        case 2:
            lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(one),
                         std::string(lines[other]));
            break;
        default:
            auto const start = lines[other].find(" value=\"");
            if (start == std::string::npos) break;
            auto const end = lines[other].find('"', start + 8);
            lines[one] =
                WithAttribute(lines[one], "value", lines[other].substr(start + 8, end - start - 8));
    }
}

TEST_F(BadSavedFigures, TenThousandDamagedFilesNeverHarm) {
    int readable = 0;
    int failing = 0;
    test::Random random(11);
    Strings files;
    for (std::uint64_t seed = 1; seed <= 10; ++seed)
        files.push_back(SavedWithAllKinds(seed));
    for (int round = 0; round < 10000; ++round) {
        std::string bytes = files[random.Below(files.size())];
        Strings lines = LinesOfText(bytes);
        bool const byLine = random.OneIn(2);
        for (std::size_t i = 1 + random.Below(4); i > 0; --i) {
            if (byLine) {
                DamageLines(lines, random);
            } else {
                DamageBytes(bytes, random);
            }
        }
        int const left = ExpectNothingByHalf(byLine ? Joined(lines) : bytes, round % 10 == 0);
        ASSERT_FALSE(HasFailure()) << "round " << round;
        if (left >= 0) ++readable;
        if (left > 0) ++failing;
    }
    EXPECT_GE(readable, 2000);
    EXPECT_GE(failing, 1000);
}

}  // namespace
}  // namespace fighost::testing
