// morvex-deck check as a user runs it: what it writes where, and its exit status.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "support/convert.h"
#include "support/process.h"

namespace
{
namespace fs = std::filesystem;

const std::string program_path = MORVEX_DECK_PROGRAM;

const std::string clean_deck = "*KEYWORD\n"
                               "*NODE\n"
                               "       1             0.5             0.0             0.0\n"
                               "*END\n";
const std::string wrong_deck = "*KEYWORD\n"
                               "*NODE\n"
                               "       1        0.5                  0.0             0.0\n"
                               "*END\n";
const std::string warned_deck = "*KEYWORD\n"
                                "*RIGIDWALL_PLANAR\n"
                                "         0\n"
                                "*END\n";

class Command : public testing::Test
{
protected:
    static Outcome check(const std::string& arguments) { return run_command(program_path + " check " + arguments); }

    const TemporaryFolder folder;
};
}  // namespace

TEST_F(Command, CleanDeckEndsWithStatus0)
{
    write_file("model.k", clean_deck);
    const Outcome outcome = check("model.k");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "0 errors, 0 warnings, 0 notes\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Command, ErrorEndsWithStatus1)
{
    write_file("model.k", wrong_deck);
    const Outcome outcome = check("model.k");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out,
              "model.k:3:17: error: \"        0.5     \" in field x of *NODE is read as 0: it does not reach "
              "the field's last column [MD101]\n"
              "1 error, 0 warnings, 0 notes\n");
}

TEST_F(Command, WarningEndsWithStatus1OnlyWhenAsked)
{
    write_file("model.k", warned_deck);
    EXPECT_EQ(check("model.k").status, 0);
    EXPECT_EQ(check("--warnings-as-errors model.k").status, 1);
}

TEST_F(Command, QuietTellsByItsStatusAlone)
{
    write_file("model.k", wrong_deck);
    const Outcome outcome = check("--quiet model.k");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out + outcome.err, "");
}

TEST_F(Command, LeavesTheDeckAloneAndNothingBeside)
{
    write_file("model.k", wrong_deck);
    check("model.k");
    EXPECT_EQ(contents("model.k"), wrong_deck);
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}

TEST_F(Command, DeckInAnotherFolderIsNamedFromThere)
{
    fs::create_directory("folder");
    write_file("folder/model.k", wrong_deck);
    EXPECT_TRUE(check("folder/model.k").out.starts_with("model.k:3:17: error: "));
}

TEST_F(Command, SettingIsOverridden)
{
    write_file("model.k", "*KEYWORD\n*DEFINE_CURVE\n         5\n                 0.0                 1.0\n*END\n");
    EXPECT_NE(check("model.k").out.find("[MD203]"), std::string::npos);
    EXPECT_EQ(check("--set lcflag=1 model.k").out.find("[MD203]"), std::string::npos);
}

TEST_F(Command, WrongArgumentsEndWithStatus2)
{
    write_file("model.k", clean_deck);
    for (const char* const wrong : {"", "--set lcflag model.k", "--set lcflag=x model.k", "--set nosuchflag=1 model.k",
                                    "--format xml model.k", "--no-such-option model.k"}) {
        const Outcome outcome = check(wrong);
        EXPECT_EQ(outcome.status, 2) << wrong;
        EXPECT_EQ(outcome.out, "") << wrong;
        EXPECT_NE(outcome.err, "") << wrong;
    }
}

TEST_F(Command, DeckThatCannotBeReadEndsWithStatus2)
{
    fs::create_directory("folder");
    for (const char* const deck : {"missing.k", "folder"}) {
        const Outcome outcome = check(deck);
        EXPECT_EQ(outcome.status, 2) << deck;
        EXPECT_EQ(outcome.out, "") << deck;
        EXPECT_NE(outcome.err.find(deck), std::string::npos) << outcome.err;
    }
}

TEST_F(Command, OutputFileIsWrittenWhole)
{
    write_file("model.k", wrong_deck);
    EXPECT_EQ(check("--format json --output findings.json model.k").out, "");
    EXPECT_EQ(nlohmann::json::parse(contents("findings.json")).at("totals").at("errors"), 1);
}

TEST_F(Command, OutputThatCannotBeWrittenEndsWithStatus2)
{
    write_file("model.k", wrong_deck);
    const Outcome outcome = check("--output no/such/folder/findings model.k");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err, "");
    EXPECT_EQ(check("--output /dev/full model.k").status, 2);
}

TEST_F(Command, SameDeckGivesTheSameBytes)
{
    write_file("model.k", wrong_deck);
    EXPECT_EQ(check("--format sarif model.k").out, check("--format sarif model.k").out);
}
