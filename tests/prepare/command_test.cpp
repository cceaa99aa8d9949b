// The command: its statuses, its files, and what it leaves alone.
#include <gtest/gtest.h>

#include <string>

#include "support/convert.h"
#include "support/process.h"
#include "support/runs.h"

namespace
{
class PrepareCommand : public testing::Test
{
protected:
    int prepare_command(const std::string& arguments)
    {
        ran_ = run_command(std::string(MORVEX_DECK_PROGRAM) + " prepare " + arguments);
        return ran_.status;
    }

    TemporaryFolder folder_;
    Outcome ran_;
};

TEST_F(PrepareCommand, WritesToStandardOutputOrToAFile)
{
    write_file("model.k", "*KEYWORD\n*SET_NODE\n1\n*END\n");
    EXPECT_EQ(prepare_command("model.k"), 0);
    EXPECT_EQ(ran_.out, "*KEYWORD\n*SET_NODE\n         1\n*END\n");
    EXPECT_EQ(ran_.err, "1 change (MD102 1)\n");
    EXPECT_EQ(prepare_command("model.k -o strict.k"), 0);
    EXPECT_EQ(contents("strict.k"), "*KEYWORD\n*SET_NODE\n         1\n*END\n");
    EXPECT_EQ(ran_.out, "");
}

TEST_F(PrepareCommand, WritesTheChangesAsJson)
{
    write_file("model.k", "*KEYWORD\n*SET_NODE\n1\n*END\n");
    EXPECT_EQ(prepare_command("model.k -o strict.k --changes changes.json"), 0);
    EXPECT_TRUE(contains(contents("changes.json"),
                         R"({"code":"MD102","file":"model.k","line":3,"line_in_output":3,"before":"1",)"
                         R"("after":"         1",)"));
    EXPECT_TRUE(contains(contents("changes.json"), R"("totals": {"changes":1,"by_code":{"MD102":1}})"));
}

TEST_F(PrepareCommand, EndsWithOneWhenSomethingIsNotCarried)
{
    write_file("model.k", "*KEYWORD\n*PART_CONTACT\nshot\n         1\n       0.2\n*END\n");
    EXPECT_EQ(prepare_command("model.k"), 1);
    EXPECT_EQ(ran_.out, "*KEYWORD\n*PART\nshot\n         1\n*END\n");
    EXPECT_TRUE(contains(ran_.err, "model.k:5:1: error: "));
    EXPECT_TRUE(contains(ran_.err, "[MD208]"));
}

TEST_F(PrepareCommand, WritesNothingWhenItCannot)
{
    write_file("model.k", "*KEYWORD\n*NODE\n       1            &len\n*INCLUDE\nmesh.k\n*END\n");
    EXPECT_EQ(prepare_command("model.k -o strict.k --changes changes.json"), 2);
    EXPECT_EQ(files(), "model.k");
    EXPECT_TRUE(contains(ran_.err, "model.k:5:1: include file \"mesh.k\" is not found (tried: mesh.k) [MD122]"));
    write_file("mesh.k", "*INCLUDE\nmodel.k\n");
    EXPECT_EQ(prepare_command("model.k -o strict.k"), 2);
    EXPECT_TRUE(contains(ran_.err, "mesh.k:2:1: include file \"model.k\" includes itself [MD122]"));
    write_file("mesh.k", "*NODE\n       2\n");
    EXPECT_EQ(prepare_command("model.k"), 2);
    EXPECT_EQ(ran_.out, "");
    EXPECT_TRUE(contains(ran_.err, "model.k:3:21: \"&len\": parameter len is not defined [MD123]"));
    write_file("mesh.k", "*PARAMETER_EXPRESSION\nR len     1.0/0.0\n");
    EXPECT_EQ(prepare_command("model.k"), 2);
    EXPECT_TRUE(contains(ran_.err, "mesh.k:2:11: parameter len"));
}

TEST_F(PrepareCommand, NeverWritesOverTheDeck)
{
    write_file("model.k", "*KEYWORD\n*INCLUDE\nmesh.k\n*END\n");
    write_file("mesh.k", "*SET_NODE\n1\n");
    EXPECT_EQ(prepare_command("model.k -o mesh.k"), 2);
    EXPECT_EQ(prepare_command("model.k -o ./model.k"), 2);
    EXPECT_EQ(prepare_command("model.k -o strict.k --changes mesh.k"), 2);
    EXPECT_EQ(contents("mesh.k"), "*SET_NODE\n1\n");
    EXPECT_EQ(contents("model.k"), "*KEYWORD\n*INCLUDE\nmesh.k\n*END\n");
}

TEST_F(PrepareCommand, EndsWithTwoWhenItCannotReadOrWrite)
{
    EXPECT_EQ(prepare_command("model.k"), 2);
    EXPECT_EQ(prepare_command(""), 2);
    write_file("model.k", "*KEYWORD\n*END\n");
    EXPECT_EQ(prepare_command("model.k -o no/such/folder/strict.k"), 2);
}

TEST_F(PrepareCommand, TakesWarningsAsErrorsWhenAsked)
{
    write_file("model.k", "*KEYWORD\n*PARAMETER\nR a            1.0\nR a            2.0\n*END\n");
    EXPECT_EQ(prepare_command("model.k"), 0);
    EXPECT_TRUE(contains(ran_.err, "[MD402]"));
    EXPECT_EQ(prepare_command("--warnings-as-errors model.k"), 1);
}
}  // namespace
