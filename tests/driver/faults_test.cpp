// Faults of the surroundings: each is told in one line on standard error and by exit status 2, the input stays as it
// was, and the outputs that do not suffer from it are written as ever.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>

#include "support/runs.h"

namespace fs = std::filesystem;

namespace
{
const char* const output_names[] = {"model.card",   "model.geom", "model.sets",
                                    "debug.morvex", "keywords.k", "accel_def.kinc"};
const std::string no_space = "No space left on device";

// A folder with the model and a control file that asks for everything, and what a run writes when nothing is wrong.
class Faults : public testing::Test
{
protected:
    Faults()
    {
        {
            const TemporaryFolder own;
            prepare();
            run_command(program());
            clean_ = outputs("model.");
        }
        prepare();
    }

    void prepare() const
    {
        write_file("model.k", model);
        write_file("input.morvex", control);
    }

    void expect_input_unchanged() const
    {
        EXPECT_EQ(contents("model.k"), model);
        EXPECT_EQ(contents("input.morvex"), control);
    }

    [[nodiscard]] std::string clean(std::string_view name) const
    {
        for (const auto& [file, text] : clean_)
            if (file == name) return text;
        return "no output has this name";
    }

    // Compares an output with what it is when nothing is wrong.
    void expect_clean(const std::string& name) const { EXPECT_EQ(masked(contents(name)), clean(name)) << name; }

    [[nodiscard]] const auto& all_clean() const { return clean_; }

    static void expect_one_line(const Outcome& outcome, const std::string& file, const std::string& reason)
    {
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "morvex: " + file + ": " + reason + "\n");
    }

    const std::string control = every_flag("model.k");

private:
    TemporaryFolder folder_;
    std::vector<std::pair<std::string, std::string>> clean_;
};

using FullDisk = Faults;
using InTheWay = Faults;
using OwnInput = Faults;
using SameOutput = Faults;
using ChangingDeck = Faults;
using StandardStreams = Faults;
using Killed = Faults;
using ControlFileFault = Faults;

// The program with no more rights than the files' modes give, whoever runs the tests.
class NoRights : public Faults
{
protected:
    NoRights()
    {
        write_file("probe", "");
        fs::permissions("probe", fs::perms::none);
        for (const std::string candidate : {"", "setpriv --bounding-set=-dac_override,-dac_read_search "})
            if (run_command(candidate + "cat probe").status == 1) command_ = candidate + program();
        fs::remove("probe");
    }

    void SetUp() override { ASSERT_FALSE(command_.empty()) << "this user has all rights, and setpriv takes none away"; }

    [[nodiscard]] const std::string& program_without_rights() const { return command_; }

private:
    std::string command_;
};

// A deck whose geometry file is far larger than the other outputs.
std::string many_nodes()
{
    std::string deck = "*NODE\n";
    for (int i = 0; i < 5000; ++i) deck += "       1             0.0             0.0             0.1       0       0\n";
    return deck + "*END\n";
}

// Waits until so many entries are in the present folder.
bool holds(std::ptrdiff_t entries)
{
    for (int i = 0; i < 1000; ++i) {
        if (std::distance(fs::directory_iterator("."), fs::directory_iterator()) == entries) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}
}  // namespace

// ---- full disk -----------------------------------------------------------------------------------------------------

TEST_F(FullDisk, IsReportedForTheMainDeck)
{
    fs::create_symlink("/dev/full", "model.card");
    const Outcome outcome = run_command(program(), "yes\n");
    expect_one_line(outcome, "model.card", no_space);
    EXPECT_FALSE(contains(outcome.out, "Kestrune main input file"));
    for (const char* name : {"model.geom", "model.sets", "debug.morvex", "keywords.k", "accel_def.kinc"})
        expect_clean(name);
    expect_input_unchanged();
}

TEST_F(FullDisk, IsReportedForTheGeometryFile)
{
    fs::create_symlink("/dev/full", "model.geom");
    const Outcome outcome = run_command(program());
    expect_one_line(outcome, "model.geom", no_space);
    EXPECT_FALSE(contains(outcome.out, "Kestrune geometry file"));
    for (const char* name : {"model.card", "model.sets", "debug.morvex", "keywords.k", "accel_def.kinc"})
        expect_clean(name);
    expect_input_unchanged();
}

TEST_F(FullDisk, IsReportedForTheSetFile)
{
    fs::create_symlink("/dev/full", "model.sets");
    const Outcome outcome = run_command(program());
    expect_one_line(outcome, "model.sets", no_space);
    EXPECT_FALSE(contains(outcome.out, "Kestrune set file"));
    for (const char* name : {"model.card", "model.geom", "debug.morvex", "keywords.k", "accel_def.kinc"})
        expect_clean(name);
    expect_input_unchanged();
}

TEST_F(FullDisk, IsReportedForTheDebugLog)
{
    fs::create_symlink("/dev/full", "debug.morvex");
    const Outcome outcome = run_command(program());
    expect_one_line(outcome, "debug.morvex", no_space);
    EXPECT_FALSE(contains(outcome.out, "Debug file"));
    for (const char* name : {"model.card", "model.geom", "model.sets", "keywords.k", "accel_def.kinc"})
        expect_clean(name);
    expect_input_unchanged();
}

TEST_F(FullDisk, IsReportedForTheAccelerometerFile)
{
    fs::create_symlink("/dev/full", "accel_def.kinc");
    const Outcome outcome = run_command(program());
    expect_one_line(outcome, "accel_def.kinc", no_space);
    EXPECT_FALSE(contains(outcome.out, "Kestrune accelerometer file"));
    for (const char* name : {"model.card", "model.geom", "model.sets", "debug.morvex", "keywords.k"})
        expect_clean(name);
    expect_input_unchanged();
}

TEST_F(FullDisk, IsReportedForTheKeywordCopyAndNothingMadeFromItIsListed)
{
    fs::create_symlink("/dev/full", "keywords.k");
    const Outcome outcome = run_command(program());
    expect_one_line(outcome, "keywords.k", no_space);
    EXPECT_FALSE(contains(outcome.out, "Kestrune main input file"));
    EXPECT_FALSE(contains(outcome.out, "Kestrune accelerometer file"));
    EXPECT_TRUE(contains(outcome.out, "Kestrune geometry file   : model.geom\n"));
    EXPECT_TRUE(contains(outcome.out, "Kestrune set file        : model.sets\n"));
    expect_clean("model.geom");
    expect_clean("model.sets");
    expect_input_unchanged();
}

TEST_F(FullDisk, IsReportedForTheDebugLogAlsoWhenTheAnswerIsNo)
{
    fs::create_symlink("/dev/full", "debug.morvex");
    write_file("model.card", "old\n");
    const Outcome outcome = run_command(program(), "no\n");
    expect_one_line(outcome, "debug.morvex", no_space);
    EXPECT_TRUE(outcome.out.ends_with("exiting\n"));
    EXPECT_EQ(contents("model.card"), "old\n");
}

TEST_F(FullDisk, IsReportedForEveryFileThatSuffers)
{
    for (const char* name : output_names) fs::create_symlink("/dev/full", name);
    const Outcome outcome = run_command(program(), "yes\n");
    EXPECT_EQ(outcome.status, 2);
    for (const char* name : {"model.geom", "model.sets", "debug.morvex", "keywords.k"})
        EXPECT_EQ(lines_equal(outcome.err, std::string("morvex: ") + name + ": " + no_space), 1u) << name;
    EXPECT_TRUE(contains(outcome.out, "\nThe following output files were generated:\n\n ****"));
    expect_input_unchanged();
}

TEST_F(FullDisk, LimitOnTheSizeOfFilesIsAFailedWrite)
{
    write_file("model.k", many_nodes());
    ASSERT_EQ(run_command(program()).status, 0);
    const auto whole = outputs("model.");
    ASSERT_GT(contents("model.geom").size(), 100000u);
    for (const char* name : output_names) fs::remove(name);

    const Outcome outcome = run_command("sh -c 'ulimit -f 128; exec " + program() + "'");
    expect_one_line(outcome, "model.geom", "File too large");
    EXPECT_LT(contents("model.geom").size(), 100000u);
    for (const auto& [name, text] : whole)
        if (name != "model.geom") {
            EXPECT_EQ(masked(contents(name)), text) << name;
        }
    EXPECT_EQ(contents("model.k"), many_nodes());
}

TEST_F(FullDisk, DefaultControlFileIsNotLeftHalfWritten)
{
    fs::remove("input.morvex");
    Running running("sh -c 'ulimit -f 0; exec " + program() + " 2>&1'");
    EXPECT_EQ(running.status(), 2);
    EXPECT_TRUE(contains(running.output(), "morvex: input.morvex: File too large\n"));
    EXPECT_EQ(files(), "model.k");
}

TEST_F(FullDisk, DefaultControlFileIsNotLeftHalfWrittenBehindALink)
{
    fs::remove("input.morvex");
    fs::create_symlink("elsewhere", "input.morvex");
    Running running("sh -c 'ulimit -f 0; exec " + program() + " 2>&1'");
    EXPECT_EQ(running.status(), 2);
    EXPECT_TRUE(contains(running.output(), "morvex: input.morvex: File too large\n"));
    EXPECT_EQ(files(), "input.morvex model.k");
    EXPECT_TRUE(fs::is_symlink("input.morvex"));
}

// ---- missing rights ------------------------------------------------------------------------------------------------

TEST_F(NoRights, ReadOnlyFolderIsReportedForEveryOutput)
{
    fs::permissions(".", fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome outcome = run_command(program_without_rights());
    fs::permissions(".", fs::perms::owner_all);
    EXPECT_EQ(outcome.status, 2);
    for (const char* name : output_names)
        EXPECT_EQ(lines_equal(outcome.err, std::string("morvex: ") + name + ": Permission denied"), 1u) << name;
    EXPECT_EQ(lines_with(outcome.err, ""), std::size(output_names));
    EXPECT_TRUE(contains(outcome.out, "\nThe following output files were generated:\n\n ****"));
    EXPECT_EQ(files(), "input.morvex model.k");
    expect_input_unchanged();
}

TEST_F(NoRights, ReadOnlyFolderWithoutAControlFileIsReported)
{
    fs::remove("input.morvex");
    fs::permissions(".", fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome outcome = run_command(program_without_rights());
    fs::permissions(".", fs::perms::owner_all);
    expect_one_line(outcome, "input.morvex", "Permission denied");
    EXPECT_FALSE(contains(outcome.out, "Please modify"));
}

TEST_F(NoRights, ReadOnlyOutputIsReportedAndStays)
{
    write_file("model.sets", "kept\n");
    fs::permissions("model.sets", fs::perms::owner_read);
    const Outcome outcome = run_command(program_without_rights());
    expect_one_line(outcome, "model.sets", "Permission denied");
    EXPECT_EQ(contents("model.sets"), "kept\n");
    expect_clean("model.geom");
    expect_input_unchanged();
}

TEST_F(NoRights, DeckThatMayNotBeReadIsReported)
{
    fs::permissions("model.k", fs::perms::none);
    const Outcome outcome = run_command(program_without_rights());
    expect_one_line(outcome, "model.k", "Permission denied");
    EXPECT_TRUE(outcome.out.ends_with("There is no model.k file\n"));
    EXPECT_EQ(files(), "debug.morvex input.morvex model.k");
}

TEST_F(NoRights, KeywordCopyIsReadBackThroughTheHandleThatWroteIt)
{
    write_file("keywords.k", "");
    fs::permissions("keywords.k", fs::perms::owner_write);
    EXPECT_EQ(run_command(program_without_rights()).status, 0);
    EXPECT_EQ(fs::status("keywords.k").permissions(), fs::perms::owner_write) << "the file keeps its mode";
    fs::permissions("keywords.k", fs::perms::owner_all);
    EXPECT_EQ(outputs("model."), all_clean());
}

TEST_F(NoRights, OldOutputsInAReadOnlyFolderAreWrittenWhereTheyAre)
{
    for (const char* name : output_names) write_file(name, "old\n");
    fs::permissions(".", fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome outcome = run_command(program_without_rights(), "yes\n");
    fs::permissions(".", fs::perms::owner_all);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outputs("model."), all_clean());
}

TEST_F(NoRights, ControlFileThatMayNotBeReadIsReportedAndStays)
{
    fs::permissions("input.morvex", fs::perms::owner_write);
    const Outcome outcome = run_command(program_without_rights());
    fs::permissions("input.morvex", fs::perms::owner_all);
    expect_one_line(outcome, "input.morvex", "Permission denied");
    EXPECT_EQ(files(), "input.morvex model.k");
    expect_input_unchanged();
}

TEST_F(NoRights, FolderOfTheDeckThatNobodyMayWriteToIsReported)
{
    fs::create_directory("locked");
    fs::rename("model.k", "locked/model.k");
    write_file("input.morvex", every_flag("locked/model.k"));
    fs::permissions("locked", fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome outcome = run_command(program_without_rights());
    fs::permissions("locked", fs::perms::owner_all);
    EXPECT_EQ(outcome.status, 2);
    for (const char* name : {"locked/model.card", "locked/model.geom", "locked/model.sets"})
        EXPECT_EQ(lines_equal(outcome.err, std::string("morvex: ") + name + ": Permission denied"), 1u) << name;
    EXPECT_EQ(lines_with(outcome.err, ""), 3u);
    EXPECT_FALSE(contains(outcome.out, "Kestrune main input file"));
    EXPECT_FALSE(contains(outcome.out, "Kestrune geometry file"));
    EXPECT_FALSE(contains(outcome.out, "Kestrune set file"));
    EXPECT_EQ(files(), "accel_def.kinc debug.morvex input.morvex keywords.k locked");
}

// ---- something that is no file stands at an output's name -----------------------------------------------------------

TEST_F(InTheWay, FolderAtAnOutputsNameIsReported)
{
    for (const char* name : output_names) {
        fs::create_directory(name);
        const Outcome outcome = run_command(program(), "yes\n");
        expect_one_line(outcome, name, "Is a directory");
        EXPECT_FALSE(contains(outcome.out, std::string(": ") + name)) << name;
        for (const char* other : {"model.geom", "model.sets"})
            if (other != std::string(name)) expect_clean(other);
        for (const char* other : output_names) fs::remove(other);
        expect_input_unchanged();
    }
}

TEST_F(InTheWay, KeywordCopyThatCannotBeReadBackIsReported)
{
    fs::create_symlink("/dev/null", "keywords.k");
    const Outcome outcome = run_command(program());
    expect_one_line(outcome, "keywords.k", "it cannot be read");
    EXPECT_FALSE(contains(outcome.out, "Kestrune main input file"));
    expect_clean("model.geom");
    expect_clean("model.sets");
    expect_input_unchanged();
}

TEST_F(InTheWay, LinkToNowhereIsFollowedLikeAnyOther)
{
    fs::create_symlink("elsewhere", "model.geom");
    EXPECT_EQ(run_command(program()).status, 0);
    EXPECT_EQ(contents("elsewhere"), clean("model.geom"));
}

TEST_F(InTheWay, LinkIntoAMissingFolderIsReported)
{
    fs::create_symlink("missing/elsewhere", "model.geom");
    expect_one_line(run_command(program()), "model.geom", "No such file or directory");
    expect_clean("model.sets");
}

TEST_F(InTheWay, LinkThatLeadsInACircleIsReported)
{
    fs::create_symlink("model.geom", "model.geom");
    expect_one_line(run_command(program()), "model.geom", "Too many levels of symbolic links");
    expect_clean("model.sets");
}

// ---- an output that is the run's own input --------------------------------------------------------------------------

TEST_F(OwnInput, SymbolicLinkFromAnOutputToTheDeckIsRefused)
{
    for (const char* name : output_names) {
        fs::create_symlink("model.k", name);
        const Outcome outcome = run_command(program(), "yes\n");
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_EQ(lines_with(outcome.err, ""), 1u) << name;
        EXPECT_TRUE(outcome.err.starts_with("morvex: " + std::string(name) + ": ")) << outcome.err;
        EXPECT_TRUE(contains(outcome.err, "model.k")) << outcome.err;
        EXPECT_EQ(fs::exists("model.sets"), name == std::string("model.sets")) << "nothing is written";
        fs::remove(name);
        EXPECT_EQ(files(), "input.morvex model.k") << name;
        expect_input_unchanged();
    }
}

TEST_F(OwnInput, HardLinkFromAnOutputToTheDeckIsRefused)
{
    for (const char* name : output_names) {
        fs::create_hard_link("model.k", name);
        const Outcome outcome = run_command(program(), "yes\n");
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_EQ(lines_with(outcome.err, "morvex: " + std::string(name) + ": "), 1u) << outcome.err;
        fs::remove(name);
        EXPECT_EQ(files(), "input.morvex model.k") << name;
        expect_input_unchanged();
    }
}

TEST_F(OwnInput, DeckThatIsALinkToAnOutputIsRefused)
{
    for (const char* name : output_names) {
        fs::rename("model.k", name);
        fs::create_symlink(name, "model.k");
        const Outcome outcome = run_command(program(), "yes\n");
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_EQ(lines_with(outcome.err, "morvex: " + std::string(name) + ": "), 1u) << outcome.err;
        expect_input_unchanged();
        fs::remove("model.k");
        fs::rename(name, "model.k");
        EXPECT_EQ(files(), "input.morvex model.k") << name;
    }
}

TEST_F(OwnInput, LinkFromAnOutputToTheControlFileIsRefused)
{
    for (const char* name : output_names) {
        for (const bool symbolic : {true, false}) {
            if (symbolic)
                fs::create_symlink("input.morvex", name);
            else
                fs::create_hard_link("input.morvex", name);
            const Outcome outcome = run_command(program(), "yes\n");
            EXPECT_EQ(outcome.status, 2) << name;
            EXPECT_EQ(lines_with(outcome.err, "morvex: " + std::string(name) + ": "), 1u) << outcome.err;
            EXPECT_TRUE(contains(outcome.err, "input.morvex")) << outcome.err;
            fs::remove(name);
            EXPECT_EQ(files(), "input.morvex model.k") << name;
            expect_input_unchanged();
        }
    }
}

TEST_F(OwnInput, DeckWithTheNameOfAFixedOutputIsRefused)
{
    for (const std::string name : {"debug.morvex", "keywords.k", "accel_def.kinc", "./keywords.k"}) {
        fs::remove("model.k");
        write_file(name, model);
        write_file("input.morvex", every_flag(name));
        const std::string before = files();
        const Outcome outcome = run_command(program(), "yes\n");
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_EQ(lines_with(outcome.err, "morvex: "), 1u) << outcome.err;
        EXPECT_EQ(lines_with(outcome.err, ""), 1u) << outcome.err;
        EXPECT_EQ(contents(name), model) << name;
        EXPECT_EQ(files(), before) << name;
        fs::remove(name);
    }
}

TEST_F(OwnInput, MissingDeckWithTheNameOfAFixedOutputIsMissing)
{
    for (const std::string name : {"debug.morvex", "keywords.k", "accel_def.kinc"}) {
        const TemporaryFolder own;
        write_file("input.morvex", every_flag(name));
        const Outcome outcome = run_command(program());
        EXPECT_EQ(outcome.status, 0) << name;
        EXPECT_TRUE(outcome.out.ends_with("There is no " + name + " file\n")) << outcome.out;
        EXPECT_EQ(files(), "debug.morvex input.morvex") << name;
        EXPECT_EQ(contents("debug.morvex"), "") << name;
    }
}

TEST_F(OwnInput, DeckNamedAccelDefKincIsFineWithoutAccelerometers)
{
    fs::rename("model.k", "accel_def.kinc");
    write_file("input.morvex", settings("accel_def.kinc", {{"geomflag", 1}}));
    EXPECT_EQ(run_command(program()).status, 0);
    EXPECT_EQ(contents("accel_def.kinc"), model);
    EXPECT_EQ(contents("accel_def.kinc.geom"), clean("model.geom"));
}

TEST_F(OwnInput, DeckNamedLikeAnOutputOfAnotherDeckIsFine)
{
    for (const std::string suffix : {"card", "geom", "sets"}) {
        const TemporaryFolder own;
        const std::string name = "x." + suffix;
        write_file(name, model);
        write_file("input.morvex", settings(name, {{"cardflag", 1}, {"geomflag", 1}, {"setflag", 1}}));
        EXPECT_EQ(run_command(program()).status, 0);
        EXPECT_EQ(contents(name), model);
        EXPECT_EQ(contents(name + ".geom"), clean("model.geom"));
    }
}

TEST_F(OwnInput, ControlFileAsDeckIsFine)
{
    const std::string own_control = every_flag("input.morvex");
    write_file("input.morvex", own_control);
    EXPECT_EQ(run_command(program()).status, 0);
    EXPECT_EQ(contents("input.morvex"), own_control);
}

TEST_F(OwnInput, LinkFromAnOutputThatIsNotWantedIsFine)
{
    fs::create_symlink("model.k", "model.card");
    fs::create_hard_link("model.k", "accel_def.kinc");
    write_file("input.morvex", settings("model.k", {{"geomflag", 1}}));
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(contents("model.k"), model);
    expect_clean("model.geom");
}

TEST_F(OwnInput, DeckThatIsALinkToAFileElsewhereIsFine)
{
    fs::create_directory("decks");
    fs::rename("model.k", "decks/model.k");
    fs::create_symlink("decks/model.k", "model.k");
    EXPECT_EQ(run_command(program()).status, 0);
    EXPECT_EQ(outputs("model."), all_clean());
    expect_input_unchanged();
}

// ---- two outputs that are one file ----------------------------------------------------------------------------------

TEST_F(SameOutput, IsRefusedAndTheFileStays)
{
    for (const bool symbolic : {true, false}) {
        for (const auto& [one, other] : {std::pair{"model.card", "model.geom"},
                                         {"model.geom", "model.sets"},
                                         {"keywords.k", "debug.morvex"},
                                         {"model.sets", "accel_def.kinc"},
                                         {"debug.morvex", "model.geom"},
                                         {"keywords.k", "model.geom"}}) {
            write_file(one, "kept\n");
            if (symbolic)
                fs::create_symlink(one, other);
            else
                fs::create_hard_link(one, other);
            const std::string before = files();
            const Outcome outcome = run_command(program(), "yes\n");
            EXPECT_EQ(outcome.status, 2) << one << " " << other;
            EXPECT_EQ(lines_with(outcome.err, "morvex: "), 1u) << outcome.err;
            EXPECT_TRUE(contains(outcome.err, one)) << outcome.err;
            EXPECT_TRUE(contains(outcome.err, other)) << outcome.err;
            EXPECT_EQ(contents(one), "kept\n") << one << " " << other;
            EXPECT_EQ(files(), before);
            expect_input_unchanged();
            fs::remove(one);
            fs::remove(other);
        }
    }
}

TEST_F(SameOutput, IsRefusedAlsoWhenTheFileIsNotThereYet)
{
    fs::create_symlink("elsewhere", "model.geom");
    fs::create_symlink("elsewhere", "model.sets");
    Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(lines_with(outcome.err, "morvex: "), 1u) << outcome.err;
    EXPECT_FALSE(fs::exists("elsewhere"));

    fs::remove("model.sets");
    fs::remove("model.geom");
    fs::create_symlink("model.sets", "model.geom");
    outcome = run_command(program());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(lines_with(outcome.err, "morvex: "), 1u) << outcome.err;
    EXPECT_EQ(files(), "input.morvex model.geom model.k");
    expect_input_unchanged();
}

TEST_F(SameOutput, DeviceMayTakeSeveralOutputs)
{
    fs::create_symlink("/dev/null", "model.geom");
    fs::create_symlink("/dev/null", "model.sets");
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    expect_clean("model.card");
}

// ---- a deck that changes under the run ------------------------------------------------------------------------------

TEST_F(ChangingDeck, ThatBecomesShorterIsReported)
{
    for (const std::size_t length : {std::size_t{200}, std::size_t{0}, model.size() - 1}) {
        prepare();
        write_file("model.card", "old\n");
        Running running;
        running.read_until("(yes/no)\n");
        fs::resize_file("model.k", length);
        running.type("yes\n");
        EXPECT_EQ(running.status(), 2) << length;
        EXPECT_EQ(running.errors(), "morvex: model.k: it became shorter while it was being read\n") << length;
        EXPECT_TRUE(running.output().ends_with(" **************** FINISHED **************** \n\n")) << length;
        EXPECT_EQ(contents("model.k"), model.substr(0, length));
        EXPECT_EQ(contents("input.morvex"), control);
    }
}

TEST_F(ChangingDeck, LargeOneThatBecomesShorterIsReported)
{
    const std::string large = many_nodes() + many_nodes() + many_nodes();
    write_file("model.k", large);
    write_file("model.card", "old\n");
    for (const std::string& variant : {program(), tiny_window_program()}) {
        Running running(variant);
        running.read_until("(yes/no)\n");
        fs::resize_file("model.k", large.size() / 2);
        running.type("yes\n");
        EXPECT_EQ(running.status(), 2) << variant;
        EXPECT_EQ(running.errors(), "morvex: model.k: it became shorter while it was being read\n") << variant;
        write_file("model.k", large);
    }
}

TEST_F(ChangingDeck, ThatIsTakenAwayIsReported)
{
    write_file("model.card", "old\n");
    Running running;
    running.read_until("(yes/no)\n");
    fs::remove("model.k");
    running.type("yes\n");
    EXPECT_EQ(running.status(), 2);
    EXPECT_EQ(lines_with(running.errors(), "morvex: model.k: "), 1u) << running.errors();
    EXPECT_EQ(lines_with(running.errors(), ""), 1u) << running.errors();
}

TEST_F(ChangingDeck, ThatIsReplacedIsReported)
{
    write_file("model.card", "old\n");
    Running running;
    running.read_until("(yes/no)\n");
    write_file("other", "*NODE\n" + std::string(model));
    fs::rename("other", "model.k");
    running.type("yes\n");
    EXPECT_EQ(running.status(), 2);
    EXPECT_EQ(lines_with(running.errors(), "morvex: model.k: "), 1u) << running.errors();
    EXPECT_EQ(contents("model.k"), "*NODE\n" + std::string(model));
}

TEST_F(ChangingDeck, ThatIsOverwrittenWithoutANewSizeIsReported)
{
    write_file("model.card", "old\n");
    Running running;
    running.read_until("(yes/no)\n");
    std::string changed(model);
    changed.replace(changed.find("one of each"), 3, "two");
    write_file("model.k", changed);
    fs::last_write_time("model.k", fs::last_write_time("model.k") + std::chrono::hours(1));
    running.type("yes\n");
    EXPECT_EQ(running.status(), 2);
    EXPECT_EQ(running.errors(), "morvex: model.k: it changed while it was being read\n");
    EXPECT_EQ(contents("model.k"), changed);
}

TEST_F(ChangingDeck, ThatBecomesLongerWithoutANewTimeIsReported)
{
    write_file("model.card", "old\n");
    Running running;
    running.read_until("(yes/no)\n");
    const fs::file_time_type time = fs::last_write_time("model.k");
    write_file("model.k", std::string(model) + "*PART\n");
    fs::last_write_time("model.k", time);
    running.type("yes\n");
    EXPECT_EQ(running.status(), 2);
    EXPECT_EQ(running.errors(), "morvex: model.k: it changed while it was being read\n");
}

// The main deck is a pipe, so that the run waits in the midst of writing it, and of reading the copy.
TEST_F(ChangingDeck, WhoseCopyBecomesShorterIsReported)
{
    std::string deck;
    for (int i = 0; i < 2000; ++i) deck += "*PART\nheading\n         7         7         7\n";
    write_file("model.k", deck + "*END\n");
    write_file("input.morvex", settings("model.k", {{"cardflag", 1}}));
    ASSERT_EQ(mkfifo("model.card", 0600), 0);
    Running running(tiny_window_program());
    running.read_until("(yes/no)\n");
    running.type("yes\n");
    const int pipe = open("model.card", O_RDONLY);
    int waiting = 0;
    for (int i = 0; i < 5000 && waiting < 65536; ++i) {
        ASSERT_EQ(ioctl(pipe, FIONREAD, &waiting), 0);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    ASSERT_EQ(waiting, 65536) << "the pipe is full";
    for (const auto& entry : fs::directory_iterator("."))  // the copy has not got its name yet
        if (entry.is_regular_file() && entry.path() != "./model.k" && entry.file_size() >= deck.size())
            fs::resize_file(entry, deck.size() / 2);
    char characters[4096];
    while (read(pipe, characters, sizeof characters) > 0) {}
    close(pipe);
    EXPECT_EQ(running.status(), 2);
    EXPECT_EQ(running.errors(), "morvex: keywords.k: it became shorter while it was being read\n");
}

// ---- standard streams -----------------------------------------------------------------------------------------------

TEST_F(StandardStreams, ClosedStandardInputDoesNoHarmWhenNothingIsAsked)
{
    EXPECT_EQ(run_command("sh -c 'exec " + program() + " <&-'").status, 0);
    EXPECT_EQ(outputs("model."), all_clean());
}

TEST_F(StandardStreams, ClosedStandardOutputLeavesNoTextInTheOutputs)
{
    const Outcome outcome = run_command("sh -c 'exec " + program() + " >&-'");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outputs("model."), all_clean());
}

TEST_F(StandardStreams, AllClosedLeaveNoTextInTheOutputs)
{
    EXPECT_EQ(run_command("sh -c 'exec " + program() + " <&- >&- 2>&-'").status, 0);
    EXPECT_EQ(outputs("model."), all_clean());
}

TEST_F(StandardStreams, FaultWithClosedStandardErrorStillShowsInTheStatus)
{
    fs::create_symlink("/dev/full", "model.geom");
    EXPECT_EQ(run_command("sh -c 'exec " + program() + " 2>&-'").status, 2);
    for (const char* name : {"model.card", "model.sets", "debug.morvex", "keywords.k", "accel_def.kinc"})
        expect_clean(name);
}

TEST_F(StandardStreams, FullDiskUnderStandardOutputIsReportedAndTheOutputsAreWhole)
{
    const Outcome outcome = run_command("sh -c 'exec " + program() + " >/dev/full'");
    expect_one_line(outcome, "standard output", no_space);
    EXPECT_EQ(outputs("model."), all_clean());
    expect_input_unchanged();
}

TEST_F(StandardStreams, FullDiskUnderTheHelpTextIsReported)
{
    for (const char* argument : {"--help", "--version"}) {
        const Outcome outcome = run_command("sh -c 'exec " + program() + " " + argument + " >/dev/full'");
        EXPECT_EQ(outcome.status, 2) << argument;
        EXPECT_EQ(lines_with(outcome.err, "morvex: standard output: "), 1u) << argument;
    }
}

TEST_F(StandardStreams, ReaderOfStandardOutputThatWentAwayIsReportedAndTheOutputsAreWhole)
{
    write_file("model.card", "old\n");
    Running running;
    running.read_until("(yes/no)\n");
    running.close_output();
    running.type("yes\n");
    EXPECT_EQ(running.status(), 2);
    EXPECT_EQ(running.errors(), "morvex: standard output: Broken pipe\n");
    EXPECT_EQ(outputs("model."), all_clean());
    expect_input_unchanged();
}

TEST_F(StandardStreams, ReaderOfOneCharacterDoesNoHarm)
{
    run_command("sh -c '" + program() + " | head -c 1'");
    for (int i = 0; i < 1000 && !contains(contents("debug.morvex"), "FINISHED"); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(outputs("model."), all_clean());
}

// ---- killed ---------------------------------------------------------------------------------------------------------

TEST_F(Killed, WhileItWaitsForTheAnswerItHasTouchedNothing)
{
    write_file("model.card", "old\n");
    {
        Running running;
        running.read_until("(yes/no)\n");
        running.kill();
        EXPECT_EQ(running.status(), 128 + 9);
    }
    EXPECT_EQ(contents("model.card"), "old\n");
    EXPECT_FALSE(fs::exists("debug.morvex"));
    expect_input_unchanged();

    EXPECT_EQ(run_command(program(), "yes\n").status, 0);
    EXPECT_EQ(outputs("model."), all_clean());
    EXPECT_FALSE(contains(files(), ".morvex-")) << "what the killed run left is gone";
}

TEST_F(Killed, AmongItsOutputsTheNextRunWritesThemWhole)
{
    ASSERT_EQ(mkfifo("model.sets", 0600), 0);  // the run waits here for a reader that never comes
    {
        Running running;
        ASSERT_TRUE(holds(7)) << "log, accelerometers, main deck and geometry file, beside deck, control file and FIFO";
        running.kill();
        EXPECT_EQ(running.status(), 128 + 9);
    }
    fs::remove("model.sets");
    expect_input_unchanged();

    EXPECT_EQ(run_command(program(), "yes\n").status, 0);
    EXPECT_EQ(outputs("model."), all_clean());
}

TEST_F(Killed, AnswerThatNeverComesEndsWithItsInput)
{
    write_file("model.card", "old\n");
    Running running;
    running.read_until("(yes/no)\n");
    running.close_input();
    EXPECT_EQ(running.status(), 0);
    EXPECT_TRUE(running.output().ends_with("exiting\n"));
    EXPECT_EQ(contents("model.card"), "old\n");
}

// ---- the control file -----------------------------------------------------------------------------------------------

TEST_F(ControlFileFault, FolderAtItsNameIsReported)
{
    fs::remove("input.morvex");
    fs::create_directory("input.morvex");
    expect_one_line(run_command(program()), "input.morvex", "Is a directory");
    EXPECT_EQ(files(), "input.morvex model.k");
}

TEST_F(ControlFileFault, LinkIntoAMissingFolderIsReported)
{
    fs::remove("input.morvex");
    fs::create_symlink("missing/elsewhere", "input.morvex");
    const Outcome outcome = run_command(program());
    expect_one_line(outcome, "input.morvex", "No such file or directory");
    EXPECT_FALSE(contains(outcome.out, "Please modify"));
}

TEST_F(ControlFileFault, LinkToNowhereIsFilledWithTheDefaults)
{
    fs::remove("input.morvex");
    fs::create_symlink("elsewhere", "input.morvex");
    EXPECT_EQ(run_command(program()).status, 1);
    EXPECT_TRUE(contains(contents("elsewhere"), " sourcefile   :  kestrune.k\n"));
}
