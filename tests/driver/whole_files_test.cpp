// A run's files are its own until they are whole: what a folder holds when a run was killed, ended by a signal, lost
// its disk or its memory, or met another run.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "driver/output_file.h"
#include "support/runs.h"

namespace fs = std::filesystem;

namespace
{
const char* const output_names[] = {"model.card",   "model.geom", "model.sets",
                                    "debug.morvex", "keywords.k", "accel_def.kinc"};

std::string nodes(int count, std::string_view coordinate)
{
    std::string deck = "*NODE\n";
    for (int i = 0; i < count; ++i) {
        deck += "       1";
        deck.append(16 - coordinate.size(), ' ').append(coordinate);
        deck += "             0.0             0.1       0       0\n";
    }
    return deck;
}

// A folder in which a run has left everything of a small model.
class WholeFiles : public testing::Test
{
protected:
    WholeFiles()
    {
        write_file("input.morvex", every_flag("model.k"));
        write_file("model.k", model);
        run_command(program());
        before_ = outputs("model.");
    }

    void expect_as_before() const
    {
        for (const auto& [name, text] : outputs("model.")) EXPECT_TRUE(text == before(name)) << name;
        EXPECT_EQ(files(), all_files);
    }

    [[nodiscard]] std::string before(std::string_view name) const
    {
        for (const auto& [file, text] : before_)
            if (file == name) return text;
        return "no output has this name";
    }

    const std::string all_files = "accel_def.kinc debug.morvex input.morvex keywords.k model.card model.geom model.k "
                                  "model.sets";
    std::vector<std::pair<std::string, std::string>> before_;

private:
    TemporaryFolder folder_;
};

using Sudden = WholeFiles;
using TwoRuns = WholeFiles;
using Targets = WholeFiles;
using WhileAsking = WholeFiles;
using Limits = WholeFiles;
using BadDeck = WholeFiles;

double seconds_of_a_run()
{
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(run_command(program(), "yes\n").status, 0);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

mode_t mode_of(const char* file)
{
    struct stat found {
    };
    return stat(file, &found) == 0 ? found.st_mode & 07777U : 0;
}
}  // namespace

// ---- sudden ends ---------------------------------------------------------------------------------------------------

TEST_F(Sudden, KillLeavesEveryFileWholeAndTheNextRunTakesTheRestAway)
{
    const std::string large = nodes(100'000, "2.5") + std::string(model);
    write_file("model.k", large);
    const double whole = seconds_of_a_run();
    const auto after = outputs("model.");
    bool left_something = false;
    for (int moment = 0; moment < 20; ++moment) {
        write_file("model.k", model);
        ASSERT_EQ(run_command(program(), "yes\n").status, 0);
        EXPECT_EQ(files(), all_files);
        write_file("model.k", large);
        {
            Running running;
            running.type("yes\n");
            std::this_thread::sleep_for(std::chrono::duration<double>(whole * moment / 20));
            running.kill();
            running.status();
        }
        const auto found = outputs("model.");
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_TRUE(found[i].second == before_[i].second || found[i].second == after[i].second)
                << found[i].first << " at moment " << moment;
        left_something = left_something || files() != all_files;
    }
    EXPECT_TRUE(left_something) << "no kill came while the run had files of its own";
    ASSERT_EQ(run_command(program(), "yes\n").status, 0);
    EXPECT_EQ(outputs("model."), after);
    EXPECT_EQ(files(), all_files);
}

TEST_F(Sudden, SignalsThatEndTheRunLeaveWhatWasThereAndNothingElse)
{
    for (const auto& [name, number] : {std::pair{"INT", SIGINT}, {"TERM", SIGTERM}, {"HUP", SIGHUP}}) {
        Running running;
        running.read_until("(yes/no)\n");
        EXPECT_NE(files(), all_files) << "it has files of its own";
        running.signal(number);
        EXPECT_EQ(running.status(), 128 + number) << name;
        expect_as_before();
    }
}

TEST_F(Sudden, SignalsThatTheRunWasStartedToIgnoreStayIgnored)
{
    Running running("sh -c 'trap \"\" HUP; exec " + program() + "'");
    running.read_until("(yes/no)\n");
    running.signal(SIGHUP);
    running.type("yes\n");
    EXPECT_EQ(running.status(), 0);
    expect_as_before();
}

TEST_F(Sudden, FilesOfARunThatLivesStay)
{
    Running running;
    running.read_until("(yes/no)\n");
    const std::string during = files();
    EXPECT_EQ(run_command(program(), "no\n").status, 0);
    EXPECT_EQ(files(), during);
    running.type("yes\n");
    EXPECT_EQ(running.status(), 0);
    expect_as_before();
}

TEST_F(Sudden, FilesThatOnlyLookLikeARunsStay)
{
    const std::vector<std::string> names = {".morvex-",     ".morvex-1",     ".morvex-1-",  ".morvex--1",
                                            ".morvex-1-2x", ".morvex-1-2-3", "x.morvex-1-2"};
    for (const std::string& name : names) write_file(name, "kept");
    fs::create_directory(".morvex-1-1");
    fs::create_symlink("model.k", ".morvex-1-2");
    write_file(".morvex-1-3", "left by a run that was killed");
    EXPECT_EQ(run_command(program(), "yes\n").status, 0);
    for (const std::string& name : names) EXPECT_EQ(contents(name), "kept") << name;
    EXPECT_TRUE(fs::is_directory(".morvex-1-1"));
    EXPECT_TRUE(fs::is_symlink(".morvex-1-2"));
    EXPECT_FALSE(fs::exists(".morvex-1-3"));
    EXPECT_EQ(contents("model.k"), model);
}

// ---- two runs ------------------------------------------------------------------------------------------------------

TEST_F(TwoRuns, AtOnceEachWriteWholeFilesOfTheirModelFiftyTimes)
{
    const auto own = [](std::string_view coordinate, std::string_view title) {
        return nodes(3000, coordinate) + "*TITLE\n" + std::string(title) + "\n" + std::string(model);
    };
    std::vector<std::vector<std::pair<std::string, std::string>>> expected;
    const std::pair<std::string, std::string> decks[] = {{"a", own("1.5", "the first")},
                                                         {"b", own("7.5", "the second")}};
    for (const auto& [name, deck] : decks) {
        write_file(name + ".k", deck);
        write_file("input.morvex", every_flag(name + ".k"));
        ASSERT_EQ(run_command(program()).status, 0);
        expected.push_back(outputs(name + "."));
    }
    ASSERT_NE(expected[0][4].second, expected[1][4].second) << "keyword copies that tell the models apart";
    for (int round = 0; round < 50; ++round) {
        write_file("input.morvex", every_flag("a.k"));
        Running first;
        first.read_until("(yes/no)\n");
        write_file("input.morvex", every_flag("b.k"));
        Running second;
        second.read_until("(yes/no)\n");
        first.type("yes\n");
        second.type("yes\n");
        EXPECT_EQ(first.status(), 0);
        EXPECT_EQ(second.status(), 0);
        const auto a = outputs("a.");
        const auto b = outputs("b.");
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(a[i], expected[0][i]);
            EXPECT_EQ(b[i], expected[1][i]);
        }
        const bool first_came_last = a[3] == expected[0][3];
        for (std::size_t i = 3; i < a.size(); ++i)
            ASSERT_EQ(a[i], expected[first_came_last ? 0 : 1][i]) << "round " << round << ": files of two models";
    }
}

// ---- where outputs lead --------------------------------------------------------------------------------------------

TEST_F(Targets, NewFilesHaveTheModeOfAnyNewFileAndOldOnesKeepTheirs)
{
    fs::remove("model.geom");
    fs::permissions("model.sets", fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
    EXPECT_EQ(run_command("sh -c 'umask 027; exec " + program() + "'", "yes\n").status, 0);
    EXPECT_EQ(mode_of("model.geom"), 0640U);
    EXPECT_EQ(mode_of("model.sets"), 0604U);
    expect_as_before();
}

TEST_F(Targets, LinkStaysAndItsFileIsReplacedWhereItIs)
{
    fs::create_directory("elsewhere");
    fs::rename("model.geom", "elsewhere/mesh");
    fs::create_symlink("elsewhere/mesh", "model.geom");
    write_file("elsewhere/mesh", "old\n");
    EXPECT_EQ(run_command(program(), "yes\n").status, 0);
    EXPECT_TRUE(fs::is_symlink("model.geom"));
    EXPECT_EQ(outputs("model."), before_);
    EXPECT_EQ(std::distance(fs::directory_iterator("elsewhere"), fs::directory_iterator()), 1);
}

TEST_F(Targets, FifoGetsTheOutputItself)
{
    fs::remove("model.geom");
    ASSERT_EQ(mkfifo("model.geom", 0600), 0);
    const Outcome outcome = run_command("sh -c 'cat model.geom >mesh & " + program() + "; wait'", "yes\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(contents("mesh"), before_[1].second);
    EXPECT_TRUE(fs::is_fifo("model.geom"));
}

TEST_F(Targets, FailureLeavesTheOldFile)
{
    write_file("model.k", nodes(5000, "2.5") + std::string(model));
    const Outcome outcome = run_command("sh -c 'ulimit -f 128; exec " + program() + "'", "yes\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "morvex: model.geom: File too large\n");
    EXPECT_EQ(contents("model.geom"), before_[1].second);
    EXPECT_EQ(files(), all_files);
}

TEST_F(Targets, FailedCloseIsAFailure)
{
    OutputFile output;
    ASSERT_TRUE(output.create("model.geom"));
    ASSERT_EQ(close(fileno(output.file())), 0);  // behind its back
    EXPECT_FALSE(output.close());
    EXPECT_EQ(output.failure(), "Bad file descriptor");
    EXPECT_TRUE(output.put_in_place()) << "nothing is left to put in place";
    expect_as_before();
}

// ---- while the question waits --------------------------------------------------------------------------------------

TEST_F(WhileAsking, NothingIsTouched)
{
    Running running;
    running.read_until("(yes/no)\n");
    EXPECT_EQ(outputs("model."), before_);
}

TEST_F(WhileAsking, OutputThatBecomesALinkToTheDeckIsRefused)
{
    for (const bool symbolic : {true, false}) {
        for (const char* name : output_names) {
            const std::string old = contents(name);
            Running running;
            running.read_until("(yes/no)\n");
            fs::remove(name);
            if (symbolic)
                fs::create_symlink("model.k", name);
            else
                fs::create_hard_link("model.k", name);
            running.type("yes\n");
            EXPECT_EQ(running.status(), 2) << name;
            EXPECT_EQ(lines_with(running.errors(), "morvex: " + std::string(name) + ": "), 1u) << running.errors();
            EXPECT_EQ(contents("model.k"), model) << name;
            fs::remove(name);
            write_file(name, old);
            EXPECT_EQ(files(), all_files) << name;
        }
    }
}

TEST_F(WhileAsking, DeckThatChangesInAnyWayIsReportedAndNothingIsWritten)
{
    const fs::file_time_type time = fs::last_write_time("model.k");
    std::string other(model);
    std::replace(other.begin(), other.end(), '1', '3');
    const auto edit = [&] { write_file("model.k", other); };
    const auto edit_and_hide = [&] {
        write_file("model.k", other);
        fs::last_write_time("model.k", time);
    };
    const auto replace = [&] {
        write_file("new", other + "$\n");
        fs::rename("new", "model.k");
    };
    const auto replace_and_hide = [&] {
        write_file("new", other);
        fs::last_write_time("new", time);
        fs::rename("new", "model.k");
    };
    const auto take_away = [&] { fs::remove("model.k"); };
    for (const std::function<void()>& change :
         {std::function<void()>(edit), std::function<void()>(edit_and_hide), std::function<void()>(replace),
          std::function<void()>(replace_and_hide), std::function<void()>(take_away)}) {
        write_file("model.k", model);
        fs::last_write_time("model.k", time);
        Running running;
        running.read_until("(yes/no)\n");
        change();
        running.type("yes\n");
        EXPECT_EQ(running.status(), 2);
        EXPECT_EQ(running.errors(), "morvex: model.k: it changed while it was being read\n");
        write_file("model.k", model);
        expect_as_before();
    }
}

// ---- limits --------------------------------------------------------------------------------------------------------

#if defined(__has_feature)
#define MORVEX_TEST_HAS_FEATURE(feature) __has_feature(feature)
#else
#define MORVEX_TEST_HAS_FEATURE(feature) 0
#endif
#if !defined(__SANITIZE_ADDRESS__) && !MORVEX_TEST_HAS_FEATURE(address_sanitizer)  // which needs terabytes of addresses
TEST_F(Limits, OnMemoryEndInALineAndNothingIsTouched)
{
    std::string stars;
    for (int i = 0; i < 10'000'000; ++i) stars += "*\n";
    write_file("model.k", stars);
    int ended = 0;
    for (int kilobytes = 12'000; kilobytes <= 32'000 && ended < 3; kilobytes += 2'000) {
        const Outcome outcome =
            run_command("sh -c 'ulimit -v " + std::to_string(kilobytes) + "; exec " + program() + "'", "yes\n");
        if (outcome.status != 2) continue;
        ++ended;
        EXPECT_EQ(outcome.err, "morvex: there is not enough memory for this deck\n");
        expect_as_before();
    }
    EXPECT_GT(ended, 0);
}
#endif

TEST_F(Limits, OnOpenFilesLeaveEveryFileWhole)
{
    int failed = 0;
    for (int most = 5; most <= 20; ++most) {
        const Outcome outcome =
            run_command("sh -c 'ulimit -n " + std::to_string(most) + "; exec " + program() + "'", "yes\n");
        EXPECT_EQ(files(), all_files) << most;
        for (const char* name : {"model.card", "model.geom", "model.sets", "keywords.k"})
            EXPECT_TRUE(masked(contents(name)) == before(name)) << name << " with " << most;
        if (outcome.status == 0) continue;
        ++failed;
        EXPECT_EQ(outcome.status, 2) << most;
        EXPECT_TRUE(contains(outcome.err, ": Too many open files\n")) << outcome.err;
    }
    EXPECT_GT(failed, 0);
    EXPECT_LT(failed, 12) << "fifteen are enough";
}

// ---- a deck that is there and cannot be read -----------------------------------------------------------------------

TEST_F(BadDeck, IsToldWithItsReasonAndStatus2)
{
    fs::create_directory("folder.k");
    fs::create_symlink("loop.k", "loop.k");
    ASSERT_EQ(mkfifo("fifo.k", 0600), 0);
    for (const auto& [name, reason] : {std::pair{"folder.k", "Is a directory"},
                                       {"loop.k", "Too many levels of symbolic links"},
                                       {"fifo.k", "it is not a regular file"}}) {
        write_file("input.morvex", every_flag(name));
        const Outcome outcome = run_command(program());
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_TRUE(outcome.out.ends_with("There is no " + std::string(name) + " file\n")) << outcome.out;
        EXPECT_EQ(outcome.err, "morvex: " + std::string(name) + ": " + reason + "\n");
    }
}

TEST_F(BadDeck, MissingOneIsToldAndNoFault)
{
    for (const std::string name : {"missing.k", "missing/model.k", "model.k/model.k"}) {
        write_file("input.morvex", every_flag(name));
        const Outcome outcome = run_command(program());
        EXPECT_EQ(outcome.status, 0) << name;
        EXPECT_TRUE(outcome.out.ends_with("There is no " + name + " file\n")) << outcome.out;
        EXPECT_EQ(lines_with(outcome.err, "morvex: " + name + ": "), 1u) << outcome.err;
    }
    write_file("input.morvex", "");
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "morvex: input.morvex: it names no keyword deck\n");
}
