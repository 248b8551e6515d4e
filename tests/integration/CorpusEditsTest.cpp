// Random edits of real designs, saved and applied when the design is opened again.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <host/Picture.h>
#include <session/Session.h>
#include <session/edits/Edits.h>
#include <session/query/Inventory.h>
#include <support/Corpus.h>
#include <support/LiveObjects.h>
#include <support/Random.h>

namespace fighost {
namespace {

using figrep::test::Random;
using Strings = std::vector<std::string>;

constexpr std::size_t EDITS = 20;
constexpr std::size_t DESIGNS = 12;
constexpr std::uintmax_t LARGEST = 600000;  // bytes of the root sheet, so that the test stays short

/// Makes up edits in the words that a user types.
class EditMaker {
public:
    EditMaker(Session const& session, std::uint64_t seed) : random_(seed) {
        for (ItemEntry const& item : ListItems(session)) {
            bool const named = item.type == "BlockInstance" || item.type == "SubNet" ||
                               item.type == "PortNode" || item.type == "SubHighway";
            bool const byId = item.type == "TextGraphic" || item.type == "GenericGraphic";
            if (named && !item.name.empty()) names_.push_back(item.name);
            if ((named || byId) && !item.id.empty()) names_.push_back(item.id);
        }
    }

    bool HasNames() const { return !names_.empty(); }

    Edit Next() {
        static Strings const verbs = {"hide",   "hide",   "show",   "isolate", "show-all",
                                      "move",   "move",   "rotate", "scale",   "mirror",
                                      "colour", "colour", "fill",   "delete",  "background",
                                      "undo",   "redo"};
        std::string const verb = verbs[random_.Below(verbs.size())];
        Strings words;
        bool const alone = verb == "show-all" || verb == "undo" || verb == "redo";
        if (!alone && verb != "background") {
            for (std::size_t i = 1 + random_.Below(3); i > 0; --i)
                words.push_back(names_[random_.Below(names_.size())]);
        }
        std::string const value = ValueFor(verb);
        if (!value.empty()) words.push_back(value);
        auto const parsed = ParseEdit(verb, words);
        EXPECT_TRUE(parsed.edit) << verb << ": " << parsed.problem;
        return parsed.edit.value_or(Edit());
    }

private:
    std::string Number(double scale) { return std::to_string((random_.Unit() - 0.5) * scale); }
    std::string MaybePoint() {
        return random_.OneIn(2) ? "" : "@" + Number(200) + "," + Number(200);
    }
    std::string ValueFor(std::string const& verb) {
        if (verb == "move") return Number(40) + "," + Number(40);
        if (verb == "rotate") return Number(720) + MaybePoint();
        if (verb == "scale") return std::to_string(0.25 + 2 * random_.Unit()) + MaybePoint();
        if (verb == "mirror") return (random_.OneIn(2) ? "x" : "y") + MaybePoint();
        if (verb == "colour" || verb == "fill" || verb == "background") {
            static char const* const digits = "0123456789abcdef";
            std::string color = "#";
            while (color.size() < 7)
                color += digits[random_.Below(16)];
            return color;
        }
        return {};
    }

    Random random_;
    Strings names_;
};

Strings Pictures(Session const& session) {
    Strings pictures;
    for (SessionSheet const& sheet : session.GetSheets())
        pictures.push_back(test::Picture(sheet.figure));
    return pictures;
}

/// Does edits until `EDITS` of them were possible, or too few are.
std::size_t EditAtRandom(Session& session, std::uint64_t seed) {
    EditMaker maker(session, seed);
    if (!maker.HasNames()) return 0;
    Editor editor(session);
    std::size_t done = 0;
    for (std::size_t tries = 0; done < EDITS && tries < 20 * EDITS; ++tries) {
        if (!editor.Do(maker.Next())) ++done;
    }
    return done;
}

/// Opens the design again with the saved figures; all changes must apply, the pictures be `live`.
void ExpectReopenedAlike(std::string const& root, std::string const& bytes, Strings const& live) {
    std::string const path =
        (std::filesystem::temp_directory_path() /
         ("figrep-corpus-edits-" + std::to_string(std::hash<std::string>()(bytes))))
            .string();
    std::ofstream(path, std::ios::binary) << bytes;
    SessionOptions options;
    options.saved = path;
    auto const opened = Session::Open(root, options);
    std::filesystem::remove(path);
    ASSERT_TRUE(opened.session) << opened.error->ToString();
    for (SavedReport const& report : opened.session->GetSavedReports())
        EXPECT_EQ(report.delta.outcome, DeltaReport::APPLIED) << report.delta.ToString();
    Strings const again = Pictures(*opened.session);
    ASSERT_EQ(again.size(), live.size());
    for (std::size_t i = 0; i < live.size(); ++i)
        EXPECT_TRUE(again[i] == live[i]) << opened.session->GetSheets()[i].path;
    EXPECT_EQ(opened.session->SaveFigures(), bytes) << "saving twice gives the same file";
}

TEST(CorpusEdits, SavedAndAppliedAgainThePicturesAreThoseOfTheLiveFigures) {
    SKIP_WITHOUT_CORPUS();
    std::uint64_t seed = 0;
    std::size_t tested = 0;
    for (std::string const& root : corpus::RootSheets()) {
        if (tested == DESIGNS) break;
        if (std::filesystem::file_size(root) > LARGEST) continue;
        SCOPED_TRACE(root);
        std::string bytes;
        Strings live;
        {
            auto const opened = Session::Open(root);
            if (!opened.session) continue;
            std::size_t const done = EditAtRandom(*opened.session, ++seed);
            if (done < EDITS) continue;
            live = Pictures(*opened.session);
            bytes = opened.session->SaveFigures();
        }
        ExpectReopenedAlike(root, bytes, live);
        ++tested;
    }
    EXPECT_GE(tested, 10u);
}

// A move taken back brings things where they were, but for the last digits of their places.
void ExpectAlikeWithinRounding(Strings const& pictures, Strings const& wanted) {
    ASSERT_EQ(pictures.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_TRUE(test::AreAlike(pictures[i], wanted[i])) << "picture " << i;
}

TEST(CorpusEdits, AllUndoneThePicturesAreThoseOfTheUntouchedFigures) {
    SKIP_WITHOUT_CORPUS();
    std::uint64_t seed = 100;
    std::size_t tested = 0;
    for (std::string const& root : corpus::RootSheets()) {
        if (tested == 4) break;
        if (std::filesystem::file_size(root) > LARGEST) continue;
        auto const opened = Session::Open(root);
        if (!opened.session) continue;
        SCOPED_TRACE(root);
        Strings const plain = Pictures(*opened.session);
        EditAtRandom(*opened.session, ++seed);
        Strings const edited = Pictures(*opened.session);
        std::size_t undone = 0;
        while (opened.session->GetHistory().Undo())
            ++undone;
        ExpectAlikeWithinRounding(Pictures(*opened.session), plain);
        while (undone-- > 0)
            ASSERT_TRUE(opened.session->GetHistory().Redo());
        ExpectAlikeWithinRounding(Pictures(*opened.session), edited);
        ++tested;
    }
}

TEST(CorpusEdits, NothingIsLeftAliveWhenTheDesignIsClosed) {
    SKIP_WITHOUT_CORPUS();
    std::uint64_t seed = 200;
    std::size_t tested = 0;
    for (std::string const& root : corpus::RootSheets()) {
        if (tested == 4) break;
        if (std::filesystem::file_size(root) > LARGEST) continue;
        ++seed;
        auto const left = figrep::test::ObjectsLeftBy([&] {
            auto const opened = Session::Open(root);
            ASSERT_TRUE(opened.session);
            EditAtRandom(*opened.session, seed);
            for (int i = 0; i < 5; ++i)
                opened.session->GetHistory().Undo();
        });
        EXPECT_EQ(left, 0) << root;
        ++tested;
    }
}

}  // namespace
}  // namespace fighost
