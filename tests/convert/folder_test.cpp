// morvex-deck convert as a user runs it: the folder it makes, what it refuses, and what is left when it ends before its
// time.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <map>
#include <string>
#include <thread>

#include "support/convert.h"
#include "support/process.h"
#include "support/runs.h"

namespace
{
namespace fs = std::filesystem;

const std::string deck_program = MORVEX_DECK_PROGRAM;

class ConvertFolder : public testing::Test
{
protected:
    static Outcome convert(const std::string& arguments) { return run_command(deck_program + " convert " + arguments); }

    static std::string names_in(const fs::path& folder)
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        std::string joined;
        for (const std::string& name : names) joined += (joined.empty() ? "" : " ") + name;
        return joined;
    }

    static std::map<std::string, std::string> contents_of(const fs::path& folder)
    {
        std::map<std::string, std::string> all;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            all[entry.path().filename().string()] = contents(entry.path());
        return all;
    }

    const TemporaryFolder folder;
};

const std::string all_names =
    "debug.morvex input.morvex keywords.k ledger.json model.card model.geom model.k model.sets report.html";

// A model that takes a while: a row of solids.
std::string long_model(int solids)
{
    std::string text = "*KEYWORD\n*PART\nrow\n         1         1         1\n*SECTION_SOLID\n         1         1\n"
                       "*MAT_ELASTIC\n         1    7.8e-9  210000.0       0.3\n*NODE\n";
    char line[128];
    for (int i = 0; i <= solids; ++i)
        for (int corner = 0; corner < 4; ++corner) {
            std::snprintf(line, sizeof line, "%8d%16.4f%16.4f%16.4f\n", 4 * i + corner + 1, 1.0 * i,
                          corner == 1 || corner == 2 ? 1.0 : 0.0, corner >= 2 ? 1.0 : 0.0);
            text += line;
        }
    text += "*ELEMENT_SOLID\n";
    for (int i = 0; i < solids; ++i) {
        const int n = 4 * i;
        std::snprintf(line, sizeof line, "%8d%8d%8d%8d%8d%8d%8d%8d%8d%8d\n", i + 1, 1, n + 1, n + 2, n + 3, n + 4,
                      n + 5, n + 6, n + 7, n + 8);
        text += line;
    }
    return text + "*END\n";
}
}  // namespace

TEST_F(ConvertFolder, HoldsTheDeckItsSettingsWhatTheConverterWritesTheLedgerAndTheReport)
{
    write_file("model.k", std::string(model));
    const Outcome outcome = convert("model.k");
    EXPECT_LE(outcome.status, 1) << outcome.err;
    EXPECT_EQ(names_in("."), "model-kestrune model.k");
    EXPECT_EQ(names_in("model-kestrune"), all_names);
}

TEST_F(ConvertFolder, PlainRunInItWritesTheSameBytes)
{
    for (const std::string name :
         {"bird-strike/bird.k", "blast-plate/plate.k", "explosive-cylinder/charge.k", "taylor-bar/taylor.k"}) {
        convert(MORVEX_EXAMPLES "/" + name + " -d made --force");
        const std::map<std::string, std::string> before = contents_of("made");
        fs::current_path("made");
        const Outcome outcome = run_command(program(), "yes\n");
        fs::current_path("..");
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(contents_of("made"), before) << name;
    }
}

TEST_F(ConvertFolder, LoadCurvesAreConvertedAndParticleSectionsOnlyWithParticles)
{
    write_file("with.k", "*KEYWORD\n*ELEMENT_SPH\n       1       1             1.0\n*END\n");
    write_file("without.k", "*KEYWORD\n*NODE\n       1             0.0             0.0             0.0\n*END\n");
    convert("with.k");
    convert("without.k");
    EXPECT_TRUE(contains(contents("with-kestrune/input.morvex"), " lcflag       :  1 "));
    EXPECT_TRUE(contains(contents("with-kestrune/input.morvex"), " sphflag      :  1 "));
    EXPECT_TRUE(contains(contents("without-kestrune/input.morvex"), " lcflag       :  1 "));
    EXPECT_TRUE(contains(contents("without-kestrune/input.morvex"), " sphflag      :  0 "));
}

TEST_F(ConvertFolder, SettingsOfTheControlFileThatNamesTheDeckHoldAndArgumentsStandAboveThem)
{
    write_file("model.k", std::string(model));
    write_file("input.morvex", settings("model.k", {{"cardflag", 1}, {"geomflag", 1}, {"setflag", 1}, {"amrflag", 1}}));
    convert("model.k --set tranflag=1 --set lcflag=0");
    const std::string made = contents("model-kestrune/input.morvex");
    EXPECT_TRUE(contains(made, " amrflag      :  1 "));
    EXPECT_TRUE(contains(made, " tranflag     :  1 "));
    EXPECT_TRUE(contains(made, " lcflag       :  0 "));
    EXPECT_TRUE(contains(made, " icflag       :  0 "));
}

TEST_F(ConvertFolder, SettingThatThereIsNotEndsWithStatus2AndNoFolder)
{
    write_file("model.k", std::string(model));
    EXPECT_EQ(convert("model.k --set lcflags=1").status, 2);
    EXPECT_EQ(convert("model.k --set lcflag").status, 2);
    EXPECT_EQ(convert("model.k --set lcflag=99999999999").status, 2);
    EXPECT_EQ(names_in("."), "model.k");
}

TEST_F(ConvertFolder, TakesAnyName)
{
    write_file("model.k", std::string(model));
    for (const std::string name :
         {"with blanks", "it's", "say \"so\"", "-dash", "a$b;c&d", "\xc3\xa4\xe2\x82\xac", "<b>"}) {
        fs::remove_all(name);
        std::string quoted = "'";
        for (const char c : name) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
        const Outcome outcome = convert("model.k --folder=" + quoted + "'");
        EXPECT_LE(outcome.status, 1) << name << ": " << outcome.err;
        EXPECT_EQ(names_in(name), all_names) << name;
    }
}

TEST_F(ConvertFolder, ExistingFolderIsRefused)
{
    write_file("model.k", std::string(model));
    fs::create_directory("model-kestrune");
    write_file("model-kestrune/mine", "mine");
    for (const std::string arguments : {"model.k", "model.k --force"}) {
        const Outcome outcome = convert(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_TRUE(contains(outcome.err, "model-kestrune: it is already there")) << outcome.err;
        EXPECT_EQ(names_in("."), "model-kestrune model.k");
        EXPECT_EQ(names_in("model-kestrune"), "mine");
    }
}

TEST_F(ConvertFolder, OwnFolderIsReplacedAsAWholeWhenForced)
{
    write_file("model.k", std::string(model));
    convert("model.k");
    const std::map<std::string, std::string> before = contents_of("model-kestrune");
    write_file("model-kestrune/stray", "left from another time");
    EXPECT_EQ(convert("model.k").status, 2);
    EXPECT_TRUE(fs::exists("model-kestrune/stray"));
    EXPECT_LE(convert("model.k --force").status, 1);
    EXPECT_EQ(contents_of("model-kestrune"), before);
    EXPECT_EQ(names_in("."), "model-kestrune model.k");
}

TEST_F(ConvertFolder, FileOrLinkInItsPlaceStays)
{
    write_file("model.k", std::string(model));
    write_file("model-kestrune", "a file");
    EXPECT_EQ(convert("model.k --force").status, 2);
    EXPECT_EQ(contents("model-kestrune"), "a file");
    convert("model.k -d other");
    fs::create_directory_symlink("other", "link");
    EXPECT_EQ(convert("model.k -d link --force").status, 2);
    EXPECT_TRUE(fs::is_symlink("link"));
}

TEST_F(ConvertFolder, FolderThatHoldsTheDeckIsNotReplaced)
{
    write_file("model.k", std::string(model));
    convert("model.k");
    const std::map<std::string, std::string> before = contents_of("model-kestrune");
    const Outcome outcome = convert("model-kestrune/model.k -d model-kestrune --force");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(contains(outcome.err, "it holds a file of the deck")) << outcome.err;
    EXPECT_EQ(contents_of("model-kestrune"), before);
}

TEST_F(ConvertFolder, DeckWhoseNameNoControlFileHoldsIsRefused)
{
    const std::string longest = std::string(77, 'a') + ".k";
    write_file("!model.k", std::string(model));
    write_file("a" + longest, std::string(model));
    write_file(longest, std::string(model));
    EXPECT_EQ(convert("'!model.k'").err, "morvex-deck: !model.k: no control file can hold the deck's name\n");
    EXPECT_EQ(convert("a" + longest).err,
              "morvex-deck: a" + longest + ": the deck's name is longer than 79 characters\n");
    EXPECT_EQ(convert(longest).err, "");
}

TEST_F(ConvertFolder, DeckWhoseNameIsNeededForSomethingElseIsRefused)
{
    for (const std::string name :
         {"ledger.json", "report.html", "input.morvex", "keywords.k", "debug.morvex", "unfinished"}) {
        write_file(name, std::string(model));
        const Outcome outcome = convert(name + " -d made");
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_FALSE(outcome.err.empty());
        EXPECT_EQ(contents(name), model);
        fs::remove(name);
        EXPECT_EQ(names_in("."), "") << name;
    }
}

TEST_F(ConvertFolder, DeckWithBlanksInItsNameStandsThereAsTheControlFileNamesIt)
{
    write_file("my model.k", std::string(model));
    EXPECT_LE(convert("'my model.k'").status, 1);
    EXPECT_TRUE(fs::exists("my model-kestrune/mymodel.k"));
    EXPECT_TRUE(fs::exists("my model-kestrune/mymodel.card"));
}

TEST_F(ConvertFolder, MissingDeckOrIncludeFileEndsWithStatus2AndNoFolder)
{
    write_file("model.k", "*KEYWORD\n*INCLUDE\nmissing.k\n*END\n");
    EXPECT_EQ(convert("model.k").status, 2);
    EXPECT_EQ(convert("none.k").status, 2);
    EXPECT_EQ(names_in("."), "model.k");
    EXPECT_LE(convert("--no-prepare model.k").status, 1);
}

TEST_F(ConvertFolder, FilesOutsideTheDecksFolderAreNamedFromThereWhereverTheCommandRuns)
{
    fs::create_directories("models/main");
    fs::create_directories("elsewhere");
    write_file("models/main/model.k", "*KEYWORD\n*INCLUDE\n../nodes.k\n*END\n");
    write_file("models/nodes.k", "*NODE\n       1             0.5             0.0             0.0\n");
    const std::string here = fs::current_path().string();
    EXPECT_LE(convert("models/main/model.k -d made1").status, 1);
    fs::current_path("models/main");
    EXPECT_LE(convert("model.k -d ../../made2").status, 1);
    fs::current_path("../../elsewhere");
    EXPECT_LE(convert("'" + here + "/models/main/model.k' -d ../made3").status, 1);
    fs::current_path("..");
    const std::map<std::string, std::string> made = contents_of("made1");
    EXPECT_TRUE(contains(made.at("ledger.json"), "\"../nodes.k\""));
    EXPECT_FALSE(contains(made.at("ledger.json"), here));
    EXPECT_FALSE(contains(made.at("report.html"), here));
    EXPECT_EQ(contents_of("made2"), made);
    EXPECT_EQ(contents_of("made3"), made);
}

TEST_F(ConvertFolder, ConversionWithoutAKeywordAMainDeckOrAMeshIsNotUsableAndSaysWhy)
{
    write_file("text.k", "This is no deck.\n");
    write_file("model.k", std::string(model));
    const Outcome text = convert("text.k");
    EXPECT_EQ(text.status, 1);
    EXPECT_EQ(text.out, "text-kestrune: not usable\n  the deck has no keyword line\n");
    EXPECT_TRUE(contains(contents("text-kestrune/ledger.json"), "\"the deck has no keyword line\""));
    EXPECT_EQ(convert("model.k -d card --set cardflag=0").status, 1);
    EXPECT_TRUE(contains(contents("card/ledger.json"), "\"no main deck is written: cardflag is not 1\""));
    EXPECT_EQ(convert("model.k -d geom --set geomflag=0").status, 1);
    EXPECT_TRUE(contains(contents("geom/ledger.json"), "\"no mesh is written: geomflag is not 1\""));
    for (const std::string made : {"text-kestrune", "card", "geom"})
        EXPECT_TRUE(contains(contents(made + "/ledger.json"), "\"verdict\": \"not usable\"")) << made;
}

TEST_F(ConvertFolder, WithoutPreparingTheDeckStandsThereAsItIs)
{
    const std::string text = "*keyword\n*NODE\n1,0.5,0.25,1.0\n*END\n";
    write_file("model.k", text);
    convert("--no-prepare model.k");
    EXPECT_EQ(contents("model-kestrune/model.k"), text);
}

TEST_F(ConvertFolder, FullDiskLeavesNoFolder)
{
    write_file("model.k", long_model(2000));
    for (const int blocks : {1, 8, 100, 300, 600}) {
        const Outcome outcome =
            run_command("ulimit -f " + std::to_string(blocks) + "; " + deck_program + " convert model.k");
        EXPECT_EQ(outcome.status, 2) << blocks;
        EXPECT_TRUE(contains(outcome.err, "File too large") || contains(outcome.err, "the conversion failed"))
            << outcome.err;
        EXPECT_FALSE(contains(outcome.err, "part-")) << outcome.err;
        EXPECT_EQ(names_in("."), "model.k") << blocks;
    }
}

TEST_F(ConvertFolder, KilledRunLeavesNoFolderAndTheNextOneClearsUp)
{
    write_file("model.k", long_model(20000));
    const auto begin = std::chrono::steady_clock::now();
    convert("model.k -d whole");
    const auto whole = std::chrono::steady_clock::now() - begin;
    const std::map<std::string, std::string> expected = contents_of("whole");
    for (int moment = 1; moment <= 10; ++moment) {
        Running running("exec " + deck_program + " convert model.k -d made");
        std::this_thread::sleep_for(whole * moment / 11);
        running.signal(SIGKILL);
        running.status();
        if (fs::exists("made")) {  // it was quicker this time
            EXPECT_EQ(contents_of("made"), expected);
        }
        fs::remove_all("made");
    }
    convert("model.k -d made");
    EXPECT_EQ(contents_of("made"), expected);
    EXPECT_EQ(names_in("."), "made model.k whole");
}

TEST_F(ConvertFolder, KilledReplacementLeavesTheOldOrTheNewFolderWhole)
{
    write_file("model.k", long_model(20000));
    const auto begin = std::chrono::steady_clock::now();
    convert("model.k -d made");
    const auto whole = std::chrono::steady_clock::now() - begin;
    const std::map<std::string, std::string> expected = contents_of("made");
    for (int moment = 1; moment <= 10; ++moment) {
        Running running("exec " + deck_program + " convert model.k -d made --force");
        std::this_thread::sleep_for(whole * moment / 10);
        running.signal(SIGKILL);
        running.status();
        EXPECT_EQ(contents_of("made"), expected) << moment;
    }
}
