#include <gtest/gtest.h>
#include <host/XmlChecker.h>
#include <host/cli/RunProgram.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <set>

namespace fighost::test {
namespace {

using nlohmann::json;

std::string const EXAMPLE = FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch";

Outcome Figrep(std::vector<std::string> const& arguments, std::string const& input = {}) {
    return RunProgram("figrep", arguments, input);
}

TEST(Program, VersionAndHelpAreNoErrors) {
    Outcome const version = Figrep({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_EQ(version.out.substr(0, 7), "figrep ");
    for (std::vector<std::string> command : {std::vector<std::string>{},
                                             {"render"},
                                             {"info"},
                                             {"list"},
                                             {"trace"},
                                             {"find"},
                                             {"pick"},
                                             {"dump"}}) {
        command.push_back("--help");
        Outcome const help = Figrep(command);
        EXPECT_EQ(help.code, 0);
        EXPECT_NE(help.out.find("Exit codes"), std::string::npos);
    }
}

TEST(Program, WrongUsageExitsWithOneAndPrintsNoData) {
    for (std::vector<std::string> const& arguments :
         {std::vector<std::string>{},
          {"nonsense"},
          {"render", EXAMPLE},
          {"info"},
          {"list", "colours", EXAMPLE},
          {"info", EXAMPLE, "--sparkle"},
          {"trace", EXAMPLE, "no such net"},
          {"find", EXAMPLE},
          {"find", EXAMPLE, "U2", "--sheet", "no such sheet"},
          {"render", EXAMPLE, "-o", "x.bmp"},
          {"render", EXAMPLE, "-o", "x.svg", "--crossings", "y"},
          {"render", EXAMPLE, "-o", "-", "--background", "blurple"},
          {"render", EXAMPLE, "-o", "-", "--sheet", "/", "--theme", "sepia"},
          {"render", EXAMPLE, "-o", "-", "--sheet", "/", "--highlight", "no such net"},
          {"render", EXAMPLE, "-o", "-", "--sheet", "/", "--highlight", "/SDA=blurple"},
          {"render", EXAMPLE, "-o", "-", "--sheet", "no such sheet"}}) {
        Outcome const outcome = Figrep(arguments);
        EXPECT_EQ(outcome.code, 1) << testing::PrintToString(arguments);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err, "");
    }
}

TEST(Program, SeveralSheetsNeedAPlaceForTheirNames) {
    TemporaryFolder folder;
    Outcome const outcome = Figrep({"render", EXAMPLE, "-o", folder.Path("a.svg")});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.err.find("%s"), std::string::npos);
    EXPECT_TRUE(folder.Files().empty());
}

TEST(Program, UnreadableInputExitsWithThreeAndNamesTheFile) {
    for (char const* command : {"info", "render"}) {
        std::vector<std::string> arguments = {command, "/nowhere/x.kicad_sch"};
        if (std::string(command) == "render") arguments.insert(arguments.end(), {"-o", "-"});
        Outcome const outcome = Figrep(arguments);
        EXPECT_EQ(outcome.code, 3);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find("/nowhere/x.kicad_sch"), std::string::npos);
    }
}

TEST(Program, BrokenInputIsToldWithLineAndColumn) {
    TemporaryFolder folder;
    std::string const path = folder.Path("broken.kicad_sch");
    WriteFile(path, "(kicad_sch\n  (version 20231120)\n  (wire \"never closed");
    Outcome const outcome = Figrep({"info", path});
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(outcome.err.substr(0, path.size() + 2), path + ":3") << outcome.err;
}

TEST(Program, UnwritableOutputExitsWithFourAndLeavesNothing) {
    TemporaryFolder folder;
    std::string const path = folder.Path("missing/a.svg");
    Outcome const outcome = Figrep({"render", EXAMPLE, "--sheet", "/", "-o", path});
    EXPECT_EQ(outcome.code, 4);
    EXPECT_NE(outcome.err.find(path), std::string::npos);
    EXPECT_TRUE(folder.Files().empty());
}

TEST(Program, FullDeviceExitsWithFour) {
    EXPECT_EQ(
        Figrep({"render", EXAMPLE, "--sheet", "/", "-o", "/dev/full", "--format", "svg"}).code, 4);
}

TEST(Program, EverySheetBecomesAWellFormedPicture) {
    TemporaryFolder folder;
    Outcome const outcome = Figrep({"render", EXAMPLE, "-o", folder.Path("p-%s.svg")});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    std::vector<std::string> const files = folder.Files();
    EXPECT_EQ(files, (std::vector<std::string>{"p-Controller.svg", "p-Display.svg", "p-Power.svg",
                                               "p-Sensor_indoors.svg", "p-Sensor_outdoors.svg",
                                               "p-weather-station.svg"}));
    for (std::string const& file : files) {
        XmlDocument const document = CheckXml(ReadFile(folder.Path(file)));
        EXPECT_EQ(document.mistake, "") << file;
        EXPECT_TRUE(document.HasUniqueIds()) << file;
    }
}

XmlDocument PictureOf(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"render", EXAMPLE, "--sheet", "Controller", "-o", "-"});
    Outcome const outcome = Figrep(arguments);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return CheckXml(outcome.out);
}

std::string GroundOf(XmlDocument const& document) {
    for (XmlElement const& rectangle : document.Named("rect")) {
        if (rectangle.attributes.count("class")) return rectangle.attributes.at("fill");
    }
    return "none";
}

TEST(Program, ThemeAndBackgroundChooseTheGround) {
    EXPECT_EQ(GroundOf(PictureOf({})), "#ffffff");
    EXPECT_EQ(GroundOf(PictureOf({"--theme", "dark"})), "#1b212c");
    EXPECT_EQ(GroundOf(PictureOf({"--theme", "print", "--background", "ivory"})), "#fffff0");
    EXPECT_EQ(GroundOf(PictureOf({"--theme", "dark", "--background", "none"})), "none");
}

TEST(Program, DarkBackgroundAloneMeansTheDarkTheme) {
    auto const inks = [](std::vector<std::string> const& arguments) {
        std::vector<std::string> strokes;
        for (XmlElement const& path : PictureOf(arguments).Named("path"))
            strokes.push_back(path.attributes.count("stroke") ? path.attributes.at("stroke") : "");
        return strokes;
    };
    auto const dark = inks({"--background", "black", "--theme", "dark"});
    EXPECT_EQ(inks({"--background", "black"}), dark);
    EXPECT_NE(inks({"--background", "black", "--theme", "light"}), dark);
    EXPECT_EQ(inks({"--background", "ivory"}), inks({}));
}

TEST(Program, NoFrameLeavesOutFrameAndTitleBlock) {
    auto const types = [](XmlDocument const& document) {
        std::set<std::string> found;
        for (XmlElement const& group : document.Named("g")) {
            if (group.attributes.count("data-type")) found.insert(group.attributes.at("data-type"));
        }
        return found;
    };
    std::set<std::string> all = types(PictureOf({}));
    EXPECT_EQ(all.erase("Format"), 1u);
    EXPECT_EQ(all.erase("TitleBlock"), 1u);
    EXPECT_EQ(types(PictureOf({"--no-frame"})), all);
}

TEST(Program, HighlightedNetsAreMarkedAndColoured) {
    XmlDocument const document = PictureOf({"--highlight", "/SDA", "--highlight", "/SCL=#123456"});
    std::set<std::string> nets;
    for (XmlElement const& group : document.Named("g")) {
        auto const& attributes = group.attributes;
        bool const marked = attributes.count("class") && attributes.at("class") == "highlight";
        if (marked) nets.insert(attributes.at("data-net"));
    }
    EXPECT_EQ(nets, (std::set<std::string>{"/SCL", "/SDA"}));
    std::set<std::string> strokes;
    for (XmlElement const& path : document.Named("path")) {
        if (path.attributes.count("stroke")) strokes.insert(path.attributes.at("stroke"));
    }
    EXPECT_TRUE(strokes.count("#123456"));
    EXPECT_TRUE(strokes.count("#e61a99")) << "the first colour of the theme";
}

TEST(Program, UnknownNetIsToldWithNetsLikeIt) {
    Outcome const outcome =
        Figrep({"render", EXAMPLE, "--sheet", "/", "-o", "-", "--highlight", "sda"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.err.find("'/SDA'"), std::string::npos) << outcome.err;
}

TEST(Program, PictureHoldsTheDrawingsTextsAndNets) {
    Outcome const outcome = Figrep({"render", EXAMPLE, "--sheet", "Controller", "-o", "-"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    XmlDocument const document = CheckXml(outcome.out);
    ASSERT_EQ(document.mistake, "");
    std::vector<std::string> texts;
    for (XmlElement const& text : document.Named("text"))
        texts.push_back(text.text);
    for (char const* expected : {"U2", "MC328-P", "XTAL1", "D0", "BACKLIGHT", "UART_TX", "RESET"}) {
        EXPECT_NE(std::find(texts.begin(), texts.end(), expected), texts.end()) << expected;
    }
    bool const hasNet = std::any_of(
        document.elements.begin(), document.elements.end(), [](XmlElement const& element) {
            auto const net = element.attributes.find("data-net");
            return net != element.attributes.end() && net->second == "UART_TX";
        });
    EXPECT_TRUE(hasNet);
}

TEST(Program, CrossingsAreArcsUnlessAskedOtherwise) {
    auto arcs = [](std::string const& style) {
        Outcome const outcome =
            Figrep({"render", EXAMPLE, "--sheet", "/", "-o", "-", "--crossings", style});
        std::size_t count = 0;
        for (XmlElement const& path : CheckXml(outcome.out).Named("path")) {
            if (path.attributes.at("d").find('A') != std::string::npos) ++count;
        }
        return count;
    };
    std::size_t const plain = arcs("none");
    EXPECT_GE(arcs("arc"), plain + 6);
    EXPECT_EQ(arcs("gap"), plain);
}

TEST(Program, ArrowsAreDrawnWhenAskedFor) {
    auto areas = [](std::vector<std::string> const& more) {
        std::vector<std::string> arguments = {"render", EXAMPLE, "--sheet", "/", "-o", "-"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        Outcome const outcome = Figrep(arguments);
        EXPECT_EQ(outcome.code, 0) << outcome.err;
        std::size_t count = 0;
        for (XmlElement const& path : CheckXml(outcome.out).Named("path"))
            count += path.attributes.count("fill");
        return count;
    };
    std::size_t const plain = areas({});
    std::size_t const withArrows = areas({"--arrows"});
    EXPECT_GT(withArrows, plain + 5);
    EXPECT_EQ(areas({"--arrows", "--crossings", "none", "--theme", "dark", "--highlight", "/SDA"}),
              withArrows);
}

TEST(Program, BackgroundIsPaintedOrLeftOut) {
    auto backgrounds = [](std::string const& color) {
        Outcome const outcome =
            Figrep({"render", EXAMPLE, "--sheet", "/", "-o", "-", "--background", color});
        std::vector<std::string> fills;
        for (XmlElement const& rect : CheckXml(outcome.out).Named("rect")) {
            fills.push_back(rect.attributes.at("fill"));
        }
        return fills;
    };
    EXPECT_EQ(backgrounds("#123"), std::vector<std::string>{"#112233"});
    EXPECT_EQ(backgrounds("none"), std::vector<std::string>{});
}

TEST(Program, TheSameInputGivesTheSameBytes) {
    std::vector<std::string> const arguments = {"render", EXAMPLE, "--sheet", "/", "-o", "-"};
    EXPECT_EQ(Figrep(arguments).out, Figrep(arguments).out);
}

std::size_t Count(std::string const& text, std::string const& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

unsigned PngWidth(std::string const& png) {
    if (png.size() < 24 || png.substr(1, 3) != "PNG") return 0;
    unsigned width = 0;
    for (std::size_t i = 16; i < 20; ++i)
        width = width * 256 + static_cast<unsigned char>(png[i]);
    return width;
}

TEST(Program, ExtensionChoosesTheFormatAndFormatOverridesIt) {
    TemporaryFolder folder;
    auto begin = [&](std::string const& name, std::vector<std::string> const& more) {
        std::vector<std::string> arguments = {"render", EXAMPLE,           "--sheet", "/",
                                              "-o",     folder.Path(name), "--dpi",   "30"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(Figrep(arguments).code, 0);
        return ReadFile(folder.Path(name)).substr(0, 5);
    };
    EXPECT_EQ(begin("a.svg", {}), "<?xml");
    EXPECT_EQ(begin("a.png", {}).substr(1, 3), "PNG");
    EXPECT_EQ(begin("a.pdf", {}), "%PDF-");
    EXPECT_EQ(begin("b.svg", {"--format", "pdf"}), "%PDF-");
}

TEST(Program, SizeOfAnImageIsByDotsPerInchOrByPixels) {
    auto width = [](std::string const& option, std::string const& value) {
        return PngWidth(
            Figrep({"render", EXAMPLE, "--sheet", "/", "-o", "-", "--format", "png", option, value})
                .out);
    };
    EXPECT_EQ(width("--size", "640"), 640u);
    unsigned const coarse = width("--dpi", "20");
    EXPECT_NEAR(width("--dpi", "40"), 2.0 * coarse, 1);
    EXPECT_GT(coarse, 100u);
}

TEST(Program, ResolutionsThatAreNoUsableNumberAreRefused) {
    for (std::string const number : {"nan", "inf", "0", "-1", "1e9", "many", ""}) {
        Outcome const outcome = Figrep(
            {"render", EXAMPLE, "--sheet", "/", "-o", "-", "--format", "png", "--dpi", number});
        EXPECT_EQ(outcome.code, 1) << number;
        EXPECT_EQ(outcome.out, "") << number;
        EXPECT_NE(outcome.err.find("--dpi"), std::string::npos) << outcome.err;
    }
}

TEST(Program, DocumentHasAPageForEachSheetAndLinksBetweenThem) {
    Outcome const outcome = Figrep({"render", EXAMPLE, "-o", "-", "--format", "pdf"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(Count(outcome.out, "/Type /Page\n") + Count(outcome.out, "/Type /Page "), 6u);
    EXPECT_GT(Count(outcome.out, "/Subtype /Link"), 20u);
    for (char const* name : {"Power", "Controller", "Sensor indoors", "Display"}) {
        EXPECT_NE(outcome.out.find("/Title (" + std::string(name) + ")"), std::string::npos)
            << name;
    }
}

TEST(Program, DocumentOfOneSheetHasNoLinksToSheetsThatAreNotInIt) {
    Outcome const outcome =
        Figrep({"render", EXAMPLE, "--sheet", "Display", "-o", "-", "--format", "pdf"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(Count(outcome.out, "/Subtype /Link"), 0u);
}

TEST(Program, PortsNameEachSheetOnce) {
    json const ports = json::parse(Figrep({"list", "ports", EXAMPLE, "--json"}).out);
    ASSERT_FALSE(ports.empty());
    for (json const& port : ports) {
        std::vector<std::string> sheets = port.at("sheets");
        std::size_t const count = sheets.size();
        std::sort(sheets.begin(), sheets.end());
        sheets.erase(std::unique(sheets.begin(), sheets.end()), sheets.end());
        EXPECT_EQ(sheets.size(), count) << port.at("name");
    }
}

TEST(Program, ReaderThatClosesThePipeEarlyEndsQuietly) {
    TemporaryFolder folder;
    std::string const command = "{ '" FIGREP_BINARY_DIR "/bin/figrep' list items '" + EXAMPLE +
                                "' --json 2>'" + folder.Path("err") + "'; echo $? >'" +
                                folder.Path("code") + "'; } | true";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadFile(folder.Path("code")), "0\n");
    EXPECT_EQ(ReadFile(folder.Path("err")), "");
}

TEST(Program, QuietPrintsNoProgress) {
    TemporaryFolder folder;
    std::string const path = folder.Path("a.svg");
    EXPECT_NE(Figrep({"render", EXAMPLE, "--sheet", "/", "-o", path}).err, "");
    EXPECT_EQ(Figrep({"render", EXAMPLE, "--sheet", "/", "-o", path, "--quiet"}).err, "");
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"a.svg"}) << "no temporary stays";
}

TEST(Program, InfoCountsWhatTheListsHold) {
    Outcome const outcome = Figrep({"info", EXAMPLE, "--json"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    json const info = json::parse(outcome.out);
    json const items = json::parse(Figrep({"list", "items", EXAMPLE, "--json"}).out);
    json const nets = json::parse(Figrep({"list", "nets", EXAMPLE, "--json"}).out);
    std::size_t sum = 0;
    for (auto const& [type, count] : info.at("items").items())
        sum += count.get<std::size_t>();
    EXPECT_EQ(sum, items.size());
    EXPECT_EQ(info.at("nets"), nets.size());
    EXPECT_EQ(info.at("warnings"), 0);
    EXPECT_GE(info.at("crossings").get<int>(), 6);
    EXPECT_EQ(info.at("sheets").size(), 6u);
    for (char const* key : {"id", "type", "name", "sheet"})
        EXPECT_TRUE(items[0].contains(key));
    for (char const* key : {"name", "pins", "sheets", "subnets"}) {
        EXPECT_TRUE(nets[0].contains(key));
    }
}

TEST(Program, ListsHaveOneLinePerEntry) {
    for (char const* what : {"nets", "items", "ports", "sheets"}) {
        Outcome const text = Figrep({"list", what, EXAMPLE});
        Outcome const asJson = Figrep({"list", what, EXAMPLE, "--json"});
        ASSERT_EQ(text.code, 0);
        auto const lines =
            static_cast<std::size_t>(std::count(text.out.begin(), text.out.end(), '\n'));
        EXPECT_EQ(lines, json::parse(asJson.out).size()) << what;
    }
}

TEST(Program, TraceTellsTheWayOfANetInWordsAndAsJson) {
    Outcome const text = Figrep({"trace", EXAMPLE, "UART_TX"});
    EXPECT_EQ(text.code, 0) << text.err;
    EXPECT_NE(text.out.find("port UART_TX"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("-> /Display/"), std::string::npos) << text.out;
    json const trace = json::parse(Figrep({"trace", EXAMPLE, "UART_TX", "--json"}).out);
    EXPECT_EQ(trace.at("net"), "UART_TX");
    EXPECT_EQ(trace.at("sheets").size(), 2u);
    for (char const* key : {"sheet", "reachedByPort", "ports", "pins"})
        EXPECT_TRUE(trace.at("sheets")[0].contains(key)) << key;
}

TEST(Program, TraceAnswersTheSameFromWhatItSaved) {
    TemporaryFolder folder;
    std::string const saved = folder.Path("ways.xml");
    Outcome const written = Figrep({"trace", EXAMPLE, "--save", saved});
    EXPECT_EQ(written.code, 0) << written.err;
    EXPECT_EQ(written.out, "");
    for (std::string const net : {"UART_TX", "/D3", "GND"}) {
        Outcome const live = Figrep({"trace", EXAMPLE, net, "--json"});
        Outcome const read = Figrep({"trace", "--representation", saved, net, "--json"});
        EXPECT_EQ(read.code, 0) << read.err;
        EXPECT_EQ(read.out, live.out) << net;
    }
    EXPECT_EQ(Figrep({"trace", "--representation", saved, "no such net"}).code, 1);
    EXPECT_EQ(Figrep({"trace", "--representation", saved}).code, 1);
    EXPECT_EQ(Figrep({"trace", EXAMPLE}).code, 1);
    EXPECT_EQ(Figrep({"trace", "--representation", folder.Path("gone"), "GND"}).code, 3);
    EXPECT_EQ(Figrep({"trace", EXAMPLE, "--save", folder.Path("no/folder")}).code, 4);
}

TEST(Program, TraceOfAnUnknownNetNamesNetsLikeIt) {
    TemporaryFolder folder;
    std::string const saved = folder.Path("ways.xml");
    ASSERT_EQ(Figrep({"trace", EXAMPLE, "--save", saved}).code, 0);
    for (std::vector<std::string> const& from :
         {std::vector<std::string>{"trace", EXAMPLE}, {"trace", "--representation", saved}}) {
        auto const messageFor = [&](std::string const& net) {
            std::vector<std::string> arguments = from;
            arguments.push_back(net);
            Outcome const outcome = Figrep(arguments);
            EXPECT_EQ(outcome.code, 1);
            EXPECT_EQ(outcome.out, "");
            return outcome.err;
        };
        EXPECT_NE(messageFor("sda").find("did you mean '/SDA'"), std::string::npos) << from[1];
        std::string const unlike = messageFor("nothing at all like it");
        EXPECT_EQ(unlike.find("did you mean"), std::string::npos) << unlike;
    }
}

TEST(EmbeddingExample, PaintsItsTwoParts) {
    Outcome const outcome = RunProgram("embedding", {});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    XmlDocument const document = CheckXml(outcome.out);
    EXPECT_EQ(document.mistake, "");
    std::size_t blocks = 0;
    for (XmlElement const& group : document.Named("g")) {
        auto const type = group.attributes.find("data-type");
        if (type != group.attributes.end() && type->second == "BlockInstance") ++blocks;
    }
    EXPECT_EQ(blocks, 2u);
}

}  // namespace
}  // namespace fighost::test
