// The program as its user sees it: what it says, what it asks, which files it leaves.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "support/runs.h"

namespace
{
constexpr std::string_view nodes = "*KEYWORD\n"
                                   "*NODE\n"
                                   "       1             0.0             0.0             0.1       0       0\n"
                                   "*END\n";

const std::string headings =
    "\nsourcefile  cardflag   setflag  geomflag   defflag  stndflag  contflag    icflag    lcflag  tranflag   amrflag"
    "   sphflag  plotflag accelflag\n";

const std::string question =
    "model.card already exists, but will be overwritten with the current settings (cardflag=1). Do you wish to "
    "continue? (yes/no)\n";

const std::string no_contact = "\nWarning: No contact card found - Contact turned off\n";
const std::string generated = "\nThe following output files were generated:\n";
const std::string finished = "\n **************** FINISHED **************** \n\n";
const std::string log_finished = "\n **************** FINISHED **************** \n";

// What the program says up to the question, for settings with cardflag 1 alone.
const std::string start_with_card =
    "\nReading input file\n"
    "Printing concise input deck\n" +
    headings +
    "   model.k         1         0         0         0         0         0         0         0         0         0"
    "         0         0         0\n\n"
    "Opening model.k file\n";

class Program : public testing::Test
{
protected:
    TemporaryFolder folder;
};

using ControlFileMissing = Program;
using DeckMissing = Program;
using Terminal = Program;
using Question = Program;
using FilesOfARun = Program;
using Sections = Program;
using IncludedFiles = Program;
using DebugLog = Program;
using ParticleCount = Program;
using Arguments = Program;

Outcome run(std::string_view deck, const std::string& control, const std::string& input = "")
{
    write_file("model.k", deck);
    write_file("input.morvex", control);
    return run_command(program(), input);
}

// Leaves a main deck that an earlier run may have made.
void old_main_deck()
{
    write_file("model.card", "old\n");
}
}  // namespace

// ---- start-up ------------------------------------------------------------------------------------------------------

TEST_F(ControlFileMissing, DefaultOneIsWrittenAndTheRunEndsWithStatus1)
{
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "\nReading input file\n"
                           "\nError: input.morvex file does not exit . . . creating new input.morvex . . .\n"
                           "Please modify input.morvex file as needed and rerun morvex\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(files(), "input.morvex");
}

TEST_F(ControlFileMissing, NextRunTakesTheDefaultOne)
{
    run_command(program());
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "\nReading input file\n"
              "Printing concise input deck\n" +
                  headings +
                  "kestrune.k         1         1         1         0         0         1         1         0         0"
                  "         0         1         1         0\n\n"
                  "There is no kestrune.k file\n");
    EXPECT_EQ(files(), "debug.morvex input.morvex");
}

TEST_F(DeckMissing, RunEndsWithStatus0AndAnEmptyDebugLog)
{
    write_file("input.morvex", every_flag("model.k"));
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "morvex: model.k: No such file or directory\n");
    EXPECT_EQ(outcome.out,
              "\nReading input file\n"
              "Printing comprehensive input deck\n" +
                  headings +
                  "   model.k         1         1         1         1         0         1         1         1         1"
                  "         1         1         1         1\n\n"
                  "There is no model.k file\n");
    EXPECT_EQ(files(), "debug.morvex input.morvex");
    EXPECT_EQ(contents("debug.morvex"), "");
}

TEST_F(DeckMissing, EmptyControlFileNamesNoDeck)
{
    write_file("input.morvex", "");
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "\nReading input file\n"
              "Printing concise input deck\n" +
                  headings +
                  "                   0         0         0         0         0         0         0         0         0"
                  "         0         0         0         0\n\n"
                  "There is no  file\n");
    EXPECT_EQ(files(), "debug.morvex input.morvex");
}

TEST_F(DeckMissing, OldDebugLogIsEmptied)
{
    write_file("input.morvex", settings("model.k", {{"cardflag", 1}}));
    write_file("debug.morvex", "of an earlier run\n");
    old_main_deck();
    EXPECT_EQ(run_command(program()).status, 0);
    EXPECT_EQ(contents("debug.morvex"), "");
    EXPECT_EQ(contents("model.card"), "old\n");
}

TEST_F(DeckMissing, DeckThatIsAFolderCannotBeRead)
{
    std::filesystem::create_directory("model.k");
    write_file("input.morvex", every_flag("model.k"));
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(outcome.out.ends_with("There is no model.k file\n"));
    EXPECT_EQ(files(), "debug.morvex input.morvex model.k");
}

TEST_F(DeckMissing, DeckThatIsAPipeIsNotWaitedFor)
{
    ASSERT_EQ(run_command("mkfifo model.k").status, 0);
    write_file("input.morvex", every_flag("model.k"));
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(outcome.out.ends_with("There is no model.k file\n"));
}

TEST_F(DeckMissing, CarriageReturnsOfTheControlFileDoNotHideTheDeck)
{
    const Outcome outcome = run(model, "\xEF\xBB\xBFsourcefile:model.k\r\ngeomflag:1\r\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(contains(outcome.out, "Opening model.k file\n"));
    EXPECT_NE(contents("model.geom"), "");
}

TEST_F(DeckMissing, NameOf80CharactersIsAFaultAndNoFileOfItsBeginningIsTouched)
{
    const std::string name(80, 'n');
    write_file(name, model);
    write_file(name.substr(0, 79), model);
    write_file("input.morvex", every_flag(name));
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(outcome.out.ends_with("There is no " + name + " file\n"));
    EXPECT_EQ(lines_with(outcome.err, "morvex: input.morvex: "), 1u);
    EXPECT_EQ(files(), "debug.morvex input.morvex " + name.substr(0, 79) + " " + name);
}

// ---- what the terminal shows ---------------------------------------------------------------------------------------

TEST_F(Terminal, RunWithEveryFlagToTheLetter)
{
    const Outcome outcome = run(nodes, every_flag("model.k", 2, 3));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "\nReading input file\n"
              "Printing comprehensive input deck\n" +
                  headings +
                  "   model.k         1         1         1         1         2         3         1         1         1"
                  "         1         1         1         1\n\n"
                  "Opening model.k file\n" +
                  no_contact + generated +
                  "Kestrune main input file : model.card\n"
                  "Kestrune geometry file   : model.geom\n"
                  "Kestrune set file        : model.sets\n"
                  "Kestrune accelerometer file :  accel_def.kinc\n"
                  "Debug file               : debug.morvex\n" +
                  finished);
}

TEST_F(Terminal, RunWithoutFlagsNamesTheDebugFileAlone)
{
    const Outcome outcome = run(nodes, settings("model.k"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "\nReading input file\n"
              "Printing concise input deck\n" +
                  headings +
                  "   model.k         0         0         0         0         0         0         0         0         0"
                  "         0         0         0         0\n\n"
                  "Opening model.k file\n" +
                  generated + "Debug file               : debug.morvex\n" + finished);
}

TEST_F(Terminal, OtherValueOfDefflagIsNeitherConciseNorComprehensive)
{
    for (const int value : {2, -1}) {
        const Outcome outcome = run(nodes, settings("model.k", {{"defflag", value}}));
        EXPECT_TRUE(outcome.out.starts_with("\nReading input file\n" + headings)) << value;
    }
}

TEST_F(Terminal, SettingsAreShownAsTheyWereRead)
{
    const Outcome outcome = run(nodes, "sourcefile:model.k\ncardflag:-2147483648\nsetflag:010\nplotflag:12345678901\n");
    EXPECT_TRUE(contains(outcome.out,
                         "\n   model.k-2147483648         8         0         0         0         0         0         0"
                         "         0         0         0-539222987         0\n\n"));
}

TEST_F(Terminal, LongDeckNameWidensItsColumn)
{
    write_file("a-long-name.k", nodes);
    write_file("input.morvex", settings("a-long-name.k"));
    EXPECT_TRUE(contains(run_command(program()).out, "accelflag\na-long-name.k         0 "));
}

// ---- the question --------------------------------------------------------------------------------------------------

TEST_F(Question, IsNotAskedWhenThereIsNoMainDeck)
{
    const Outcome outcome = run(nodes, settings("model.k", {{"cardflag", 1}}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, start_with_card + no_contact + generated +
                               "Kestrune main input file : model.card\nDebug file               : debug.morvex\n" +
                               finished);
}

TEST_F(Question, YesOverwritesTheMainDeck)
{
    old_main_deck();
    const Outcome outcome = run(nodes, settings("model.k", {{"cardflag", 1}}), "yes\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, start_with_card + question + no_contact + generated +
                               "Kestrune main input file : model.card\nDebug file               : debug.morvex\n" +
                               finished);
    EXPECT_TRUE(contains(contents("model.card"), "!  Kestrune Input Deck\n"));
    EXPECT_FALSE(contains(contents("model.card"), "old"));
}

TEST_F(Question, WhateverBeginsWithYesIsYes)
{
    for (const char* answer : {"yes please\n", "yesterday\n", "yess\n", "yes", "\n\n  \tyes\n", "yes/no\n"}) {
        old_main_deck();
        const Outcome outcome = run(nodes, settings("model.k", {{"cardflag", 1}}), answer);
        EXPECT_TRUE(outcome.out.starts_with(start_with_card + question + no_contact + generated)) << answer;
        EXPECT_NE(contents("model.card"), "old\n") << answer;
    }
}

TEST_F(Question, AnythingElseIsNo)
{
    for (const char* answer : {"no\n", "y\n", "ye\n", "YES\n", "Yes\n", "eyes\n", "y e s\n", "\"yes\"\n", "\n", ""}) {
        old_main_deck();
        const Outcome outcome =
            run(nodes, settings("model.k", {{"cardflag", 1}, {"geomflag", 1}, {"setflag", 1}}), answer);
        EXPECT_EQ(outcome.status, 0) << answer;
        EXPECT_TRUE(outcome.out.ends_with("Opening model.k file\n" + question + "exiting\n")) << answer;
        EXPECT_EQ(contents("model.card"), "old\n") << answer;
        EXPECT_EQ(files(), "debug.morvex input.morvex model.card model.k") << answer;
        EXPECT_EQ(contents("debug.morvex"), "Opening model.k file\n") << answer;
    }
}

TEST_F(Question, ClosedStandardInputIsNo)
{
    old_main_deck();
    write_file("model.k", nodes);
    write_file("input.morvex", settings("model.k", {{"cardflag", 1}}));
    const Outcome outcome = run_command("sh -c 'exec " + program() + " <&-'");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.ends_with(question + "exiting\n"));
    EXPECT_EQ(contents("model.card"), "old\n");
}

TEST_F(Question, NoLeavesAnEmptyAccelerometerFile)
{
    old_main_deck();
    run(model, every_flag("model.k"), "no\n");
    EXPECT_EQ(files(), "accel_def.kinc debug.morvex input.morvex model.card model.k");
    EXPECT_EQ(contents("accel_def.kinc"), "");
}

TEST_F(Question, IsShownBeforeTheAnswerIsAwaited)
{
    old_main_deck();
    write_file("model.k", nodes);
    write_file("input.morvex", settings("model.k", {{"cardflag", 1}}));
    Running running;
    EXPECT_EQ(running.read_until("(yes/no)\n"), start_with_card + question);
    EXPECT_EQ(contents("model.card"), "old\n");
    running.type("yes\n");
    EXPECT_EQ(running.status(), 0);
    EXPECT_NE(contents("model.card"), "old\n");
}

TEST_F(Question, IsNotAskedWithoutAMainDeckToWrite)
{
    old_main_deck();
    for (const int cardflag : {0, 2}) {
        const Outcome outcome = run(nodes, settings("model.k", {{"cardflag", cardflag}, {"setflag", 1}}));
        EXPECT_EQ(outcome.status, 0);
        EXPECT_FALSE(contains(outcome.out, "yes/no"));
        EXPECT_EQ(contents("model.card"), "old\n");
    }
}

TEST_F(Question, IsNotAskedForTheOtherOutputs)
{
    write_file("model.geom", "old\n");
    write_file("model.sets", "old\n");
    write_file("accel_def.kinc", "old\n");
    const Outcome outcome = run(model, every_flag("model.k"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_FALSE(contains(outcome.out, "yes/no"));
    for (const char* name : {"model.geom", "model.sets", "accel_def.kinc"})
        EXPECT_FALSE(contents(name).starts_with("old")) << name;
}

// ---- which files a run leaves --------------------------------------------------------------------------------------

TEST_F(FilesOfARun, NamesWithAndWithoutExtensionGiveTheSameOutputs)
{
    for (const char* deck : {"deck.k", "deck"}) {
        const TemporaryFolder own;
        write_file(deck, model);
        write_file("input.morvex", settings(deck, {{"cardflag", 1}, {"geomflag", 1}, {"setflag", 1}}));
        EXPECT_EQ(run_command(program()).status, 0);
        std::filesystem::remove(deck);
        EXPECT_EQ(files(), "debug.morvex deck.card deck.geom deck.sets input.morvex keywords.k");
    }
}

TEST_F(FilesOfARun, EachFlagAddsItsFile)
{
    const std::pair<std::string, std::string> cases[] = {
        {"cardflag", "debug.morvex input.morvex keywords.k model.card model.k"},
        {"geomflag", "debug.morvex input.morvex keywords.k model.geom model.k"},
        {"setflag", "debug.morvex input.morvex keywords.k model.k model.sets"},
        {"accelflag", "accel_def.kinc debug.morvex input.morvex keywords.k model.k"},
        {"defflag", "debug.morvex input.morvex keywords.k model.k"},
    };
    for (const auto& [flag, expected] : cases) {
        const TemporaryFolder own;
        EXPECT_EQ(run(model, settings("model.k", {{flag, 1}})).status, 0);
        EXPECT_EQ(files(), expected) << flag;
    }
}

TEST_F(FilesOfARun, OtherValuesThan1WriteNothing)
{
    for (const int value : {2, -1, 3})
        EXPECT_EQ(
            run(model, settings("model.k", {{"cardflag", value}, {"geomflag", value}, {"setflag", value}})).status, 0);
    EXPECT_EQ(files(), "debug.morvex input.morvex keywords.k model.k");
}

TEST_F(FilesOfARun, SetFileAloneIsCompleteAndIsNamedWithTheDebugFile)
{
    const Outcome outcome = run(model, settings("model.k", {{"setflag", 1}}));
    EXPECT_TRUE(outcome.out.ends_with(generated +
                                      "Kestrune set file        : model.sets\n"
                                      "Debug file               : debug.morvex\n" +
                                      finished));
    EXPECT_EQ(contents("model.sets"), "!------------------------------------------------\n"
                                      "! Set Definitions\n"
                                      "!------------------------------------------------\n"
                                      "\n Node set definition    :   11           " +
                                          std::string(80, ' ') +
                                          "\n         1         2\n"
                                          "\n Segment set definition :   12           " +
                                          std::string(80, ' ') + "\n         1         2         3         4\n\n\n");
}

TEST_F(FilesOfARun, GeometryFileAloneIsComplete)
{
    run(nodes, settings("model.k", {{"geomflag", 1}}));
    EXPECT_EQ(contents("model.geom"),
              "!------------------------------------------------\n"
              "! Geometry Definitions\n"
              "!------------------------------------------------\n"
              "\nNode Definition:\n"
              "!--- nid                    x                    y                    z    tc    rc\n"
              "       1  0.0000000000000e+00  0.0000000000000e+00  1.0000000149012e-01     0     0\n"
              "\n\n");
}

TEST_F(FilesOfARun, AccelerometerFileAloneIsComplete)
{
    run(model, settings("model.k", {{"accelflag", 1}}));
    EXPECT_EQ(contents("accel_def.kinc"), "!------------------------------------------------\n"
                                          "! Accelerometer Definition\n"
                                          "!------------------------------------------------\n"
                                          "\n"
                                          "\n Accelerometer history        :\n"
                                          "!ac_id        nid         n1         n2         n3\n"
                                          " acc1         11         11         12         13\n"
                                          "\n"
                                          " Node history                 :         11        12        13     !  acc1" +
                                              std::string(76, ' ') + "\n\n");
}

TEST_F(FilesOfARun, KeywordCopyLacksTheBulkCards)
{
    run(nodes, settings("model.k"));
    EXPECT_EQ(contents("keywords.k"), "*KEYWORD\n*NODE\n*END\n");
}

TEST_F(FilesOfARun, DeckInAFolderLeavesItsOutputsThere)
{
    std::filesystem::create_directory("decks");
    write_file("decks/model.k", model);
    write_file("input.morvex", settings("decks/model.k", {{"cardflag", 1}, {"geomflag", 1}, {"setflag", 1}}));
    EXPECT_EQ(run_command(program()).status, 0);
    EXPECT_EQ(files(), "debug.morvex decks input.morvex keywords.k");
    std::filesystem::current_path("decks");
    EXPECT_EQ(files(), "model.card model.geom model.k model.sets");
    std::filesystem::current_path("..");
}

TEST_F(FilesOfARun, NameOf79CharactersWorks)
{
    const std::string base(77, 'n');
    write_file(base + ".k", model);
    write_file("input.morvex", settings(base + ".k", {{"cardflag", 1}, {"geomflag", 1}, {"setflag", 1}}));
    EXPECT_EQ(run_command(program()).status, 0);
    EXPECT_EQ(files(), "debug.morvex input.morvex keywords.k " + base + ".card " + base + ".geom " + base + ".k " +
                           base + ".sets");
    EXPECT_TRUE(contains(contents(base + ".card"), "#Include: \"" + base + ".geom\"\n"));
}

TEST_F(FilesOfARun, DeckAndControlFileStayAsTheyWere)
{
    const std::string control = every_flag("model.k");
    run(model, control);
    EXPECT_EQ(contents("model.k"), model);
    EXPECT_EQ(contents("input.morvex"), control);
}

// ---- the order of the sections -------------------------------------------------------------------------------------

namespace
{
const std::string rule = "!" + std::string(48, '-') + "\n";

// The section's banner, or where it begins.
std::size_t banner_at(const std::string& main_deck, const std::string& title)
{
    if (title.starts_with("! Set Definitions")) return main_deck.find("!" + std::string(59, '-') + "\n" + title);
    return main_deck.find(rule + title);
}
}  // namespace

TEST_F(Sections, StandInTheirFixedOrder)
{
    run(model, every_flag("model.k"));
    const std::string main_deck = contents("model.card");
    std::size_t last = 0;
    for (const char* title :
         {"! Problem Title and Descriptors\n", "! Timing and Data Control Section\n", "! Status File Control Section\n",
          "! Global Contact, Hourglass, & Viscosity Control\n", "! Contact Section\n",
          "! Boundary and Initial Conditions Definition\n", "! Discrete Element Definitions\n",
          "! Load Curve Definitions\n", "! Transformation Definitions\n", "! Part Descriptions\n", "! AMR Section\n",
          "! SPH Control Section\n", "! Set Definitions in ", "! Plot Options ", "! Restart Control Section\n",
          "! Partition Section\n", "! Included Files\n"}) {
        const std::size_t at = banner_at(main_deck, title);
        ASSERT_NE(at, std::string::npos) << title;
        EXPECT_GT(at, last) << title;
        EXPECT_EQ(main_deck.find(title), main_deck.rfind(title)) << title << "once";
        last = at;
    }
}

TEST_F(Sections, EachIsLeftOutWithoutItsFlag)
{
    const std::pair<const char*, const char*> gates[] = {
        {"icflag", "! Boundary and Initial Conditions Definition\n"},
        {"defflag", "! Discrete Element Definitions\n"},
        {"lcflag", "! Load Curve Definitions\n"},
        {"tranflag", "! Transformation Definitions\n"},
        {"amrflag", "! AMR Section\n"},
        {"sphflag", "! SPH Control Section\n"},
        {"setflag", "! Set Definitions in "},
        {"plotflag", "! Plot Options "},
    };
    for (const int value : {0, 2, -1}) {
        for (const auto& [flag, title] : gates) {
            const TemporaryFolder own;
            run(model, every_flag("model.k") + flag + ":" + std::to_string(value) + "\n");
            const std::string main_deck = contents("model.card");
            EXPECT_FALSE(contains(main_deck, title)) << flag << " " << value;
            for (const auto& [other, other_title] : gates)
                if (other != flag) {
                    EXPECT_TRUE(contains(main_deck, other_title)) << other << " without " << flag;
                }
        }
    }
}

TEST_F(Sections, StatusFileIsLeftOutWithAStandardsFile)
{
    for (const int stndflag : {1, 2, 3}) {
        const TemporaryFolder own;
        run(model, every_flag("model.k", stndflag));
        EXPECT_FALSE(contains(contents("model.card"), "! Status File Control Section\n")) << stndflag;
    }
}

TEST_F(Sections, GlobalAndContactBannersAreLeftOutOfAConciseDeckWithAStandardsFile)
{
    for (const int defflag : {0, 1}) {
        for (const int stndflag : {0, 1}) {
            const TemporaryFolder own;
            run(model, settings("model.k", {{"cardflag", 1}, {"defflag", defflag}, {"stndflag", stndflag}}));
            const bool expected = defflag == 1 || stndflag == 0;
            const std::string main_deck = contents("model.card");
            EXPECT_EQ(contains(main_deck, "! Global Contact, Hourglass, & Viscosity Control\n"), expected);
            EXPECT_EQ(contains(main_deck, "! Contact Section\n"), expected);
        }
    }
}

TEST_F(Sections, ThreeNewlinesStandInPlaceOfAMissingAmrSection)
{
    run(model, settings("model.k", {{"cardflag", 1}, {"plotflag", 1}}));
    const std::string without = contents("model.card");
    const std::string part_section = without.substr(without.find("! Part Descriptions\n"));
    EXPECT_TRUE(contains(part_section, "\n\n\n" + rule + "! Plot Options "));
}

TEST_F(Sections, ThreeNewlinesStandBehindTheAmrSection)
{
    const std::string plot_banner = rule + "! Plot Options ";
    run(model, settings("model.k", {{"cardflag", 1}, {"plotflag", 1}}));
    const std::string without = contents("model.card");
    const std::string control = settings("model.k", {{"cardflag", 1}, {"plotflag", 1}, {"amrflag", 1}});
    run(model, control, "yes\n");
    const std::string with = contents("model.card");

    const std::size_t begin = with.find(rule + "! AMR Section\n");
    const std::size_t end = with.find(plot_banner);
    ASSERT_NE(begin, std::string::npos);
    EXPECT_EQ(with.substr(end - 3, 3), "\n\n\n");
    EXPECT_EQ(with.substr(0, begin) + "\n\n\n" + with.substr(end), without);
}

TEST_F(Sections, MainDeckSectionsAreGoneWithoutCardflagButSetsAndGeometryAreThere)
{
    run(model, every_flag("model.k"));
    const std::string sets = contents("model.sets");
    const std::string geometry = contents("model.geom");
    const std::string accelerometers = contents("accel_def.kinc");
    std::filesystem::remove("model.card");

    run(model, every_flag("model.k") + "cardflag:0\n");
    EXPECT_FALSE(std::filesystem::exists("model.card"));
    EXPECT_EQ(contents("model.sets"), sets);
    EXPECT_EQ(contents("model.geom"), geometry);
    EXPECT_EQ(contents("accel_def.kinc"), accelerometers);
}

TEST_F(Sections, GeometryHasAllKindsFromTheDeckItself)
{
    run(model, settings("model.k", {{"cardflag", 1}, {"geomflag", 1}}));
    const std::string geometry = contents("model.geom");
    EXPECT_EQ(lines_equal(geometry, "Node Definition:"), 1u);
    EXPECT_EQ(lines_equal(geometry, " Shell Element Definition:"), 1u);
    EXPECT_EQ(lines_equal(geometry, " Solid Element Definition:"), 1u);
    EXPECT_EQ(lines_equal(geometry, " SPH Element Definition:"), 1u);
    EXPECT_EQ(lines_equal(geometry, "      12        1   2.50000000e-01"), 1u);
}

// ---- included files ------------------------------------------------------------------------------------------------

namespace
{
std::string included(const std::string& control)
{
    const TemporaryFolder own;
    run(model, control);
    const std::string main_deck = contents("model.card");
    const std::size_t at = main_deck.find(rule + "! Included Files\n");
    return at == std::string::npos ? "no section" : main_deck.substr(at);
}

const std::string included_begin = rule + "! Included Files\n" + rule +
                                   "\n"
                                   "#Include: \"model.geom\"\n"
                                   "#Include: \"model.sets\"\n";
const std::string materials = "#Include: \"/opt/Software/Kestrune/getting_started/include/kestrune.mat_latest\"\n";
}  // namespace

TEST_F(IncludedFiles, EndTheMainDeck)
{
    EXPECT_EQ(included(settings("model.k", {{"cardflag", 1}, {"geomflag", 1}, {"setflag", 1}})),
              included_begin + materials + "\n\n");
}

TEST_F(IncludedFiles, NameGeometryAndSetFileAlsoWhenTheyAreNotWritten)
{
    EXPECT_EQ(included(settings("model.k", {{"cardflag", 1}})), included_begin + materials + "\n\n");
}

TEST_F(IncludedFiles, NameTheAccelerometersBeforeTheMaterials)
{
    EXPECT_EQ(included(settings("model.k", {{"cardflag", 1}, {"accelflag", 1}})),
              included_begin + "#Include: \"accel_def.kinc\"\n" + materials + "\n\n");
}

TEST_F(IncludedFiles, NameTheStandardsFileOfStndflag)
{
    EXPECT_EQ(included(settings("model.k", {{"cardflag", 1}, {"stndflag", 1}})),
              included_begin + materials +
                  "#Include: \"/opt/Software/Kestrune/getting_started/include/ort_standards.kinc_latest\"\n\n\n");
    EXPECT_EQ(included(settings("model.k", {{"cardflag", 1}, {"stndflag", 2}})),
              included_begin + materials +
                  "#Include: \"/opt/Software/Kestrune/includes/zel_general/zel_standards.kinc\"\n\n\n");
    EXPECT_EQ(included(settings("model.k", {{"cardflag", 1}, {"stndflag", 3}})), included_begin + materials + "\n\n");
}

// ---- the debug log -------------------------------------------------------------------------------------------------

TEST_F(DebugLog, BeginsWithTheDeckAndEndsWithFinished)
{
    run("*END\n", settings("model.k"));
    EXPECT_EQ(contents("debug.morvex"), "Opening model.k file\n" + log_finished);
    run(model, every_flag("model.k"));
    EXPECT_TRUE(contents("debug.morvex").starts_with("Opening model.k file\n"));
    EXPECT_TRUE(contents("debug.morvex").ends_with(log_finished));
}

TEST_F(DebugLog, UnknownKeywordsAreReportedAtTheEnd)
{
    run("*ELEMENT_BEAM\n*DEFINE_CURVE_TITLE\n*SET_NODE_LIST\n*NODE\n*AIRBAG\n*END\n",
        settings("model.k", {{"cardflag", 1}, {"geomflag", 1}}));
    EXPECT_EQ(contents("debug.morvex"), "Opening model.k file\n"
                                        "\n*NODE . . . recognized keyword\n"
                                        "no unused variables\n"
                                        "\n*ELEMENT_BEAM . . . skipped\n"
                                        "\n*AIRBAG . . . skipped\n" +
                                            log_finished);
}

TEST_F(DebugLog, UnknownKeywordsAreReportedOnlyWithAMainDeck)
{
    run("*ELEMENT_BEAM\n*END\n", settings("model.k", {{"geomflag", 1}}));
    EXPECT_EQ(contents("debug.morvex"), "Opening model.k file\n" + log_finished);
}

// ---- the particle count --------------------------------------------------------------------------------------------

namespace
{
const std::string count_label = " Initial number of SPH per processor  : ";
}

TEST_F(ParticleCount, IsFilledInAtTheEnd)
{
    run(model, every_flag("model.k"));
    const std::string main_deck = contents("model.card");
    EXPECT_EQ(lines_with(main_deck, count_label), 1u);
    EXPECT_EQ(lines_equal(main_deck,
                          count_label + "         2        !--- initial guess of number of particle in each processor"),
              1u);
    EXPECT_TRUE(main_deck.ends_with("kestrune.mat_latest\"\n\n\n")) << "nothing behind it has moved";
}

TEST_F(ParticleCount, Is0WithoutTheGeometryPasses)
{
    run(model, every_flag("model.k") + "geomflag:0\n");
    EXPECT_EQ(lines_with(contents("model.card"), count_label + "         0        !--- initial guess"), 1u);
}

TEST_F(ParticleCount, IsNotWrittenWithoutAllOfItsFlags)
{
    for (const char* flag : {"defflag", "sphflag"}) {
        const TemporaryFolder own;
        run(model, every_flag("model.k") + flag + ":0\n");
        EXPECT_FALSE(contains(contents("model.card"), count_label)) << flag;
    }
}

TEST_F(ParticleCount, OverwritesWhatFollowsWhenAStandardsFileTookItsLine)
{
    run(model, every_flag("model.k", 1));
    const std::string follows =
        "\n SPH deactivation:                                        !--- vtype:  0=box volume ID (BVID),\n"
        "!---   vid     vtype";
    EXPECT_TRUE(contains(contents("model.card"), count_label + "         2" + follows.substr(50)));
}

// ---- arguments -----------------------------------------------------------------------------------------------------

TEST_F(Arguments, HelpIsShownAndNothingIsTouched)
{
    for (const char* argument : {" --help", " -h"}) {
        const Outcome outcome = run_command(program() + argument);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_TRUE(outcome.out.starts_with("Usage: morvex\n"));
        EXPECT_TRUE(contains(outcome.out, "input.morvex"));
        EXPECT_TRUE(contains(outcome.out, "--version"));
        EXPECT_EQ(files(), "");
    }
}

TEST_F(Arguments, VersionIsShownAndNothingIsTouched)
{
    for (const char* argument : {" --version", " -V"}) {
        const Outcome outcome = run_command(program() + argument);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.out, "morvex 2.601\n");
        EXPECT_EQ(files(), "");
    }
}

TEST_F(Arguments, AnyOtherGetsANoteAndTheRunGoesOn)
{
    write_file("model.k", nodes);
    write_file("input.morvex", settings("model.k", {{"cardflag", 1}}));
    const Outcome plain = run_command(program());
    const auto written = outputs("model.");
    for (const char* arguments : {"model.k", "-v", "--defflag=1 other.k", "''"}) {
        std::filesystem::remove("model.card");
        const Outcome outcome = run_command(program() + " " + arguments);
        EXPECT_EQ(outcome.status, 0) << arguments;
        EXPECT_EQ(outcome.out, plain.out) << arguments;
        EXPECT_EQ(lines_with(outcome.err, ""), 1u) << arguments;
        EXPECT_TRUE(contains(outcome.err, "input.morvex")) << arguments;
        EXPECT_EQ(outputs("model."), written) << arguments;
    }
}
