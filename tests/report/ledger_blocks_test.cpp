// What a ledger says of the blocks of small decks.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "accounted.h"
#include "report/ledger.h"

namespace
{
using report::Block;
using report::Ledger;

constexpr std::size_t lcflag = 7;

RunFlags without_curves()
{
    RunFlags flags = every_output;
    flags[lcflag] = 0;
    return flags;
}

// A line for each block: its place, its keyword, what became of it, and by whom.
std::string told(const Ledger& ledger)
{
    std::string text;
    for (const Block& block : ledger.blocks) {
        text += block.file + ":" + std::to_string(block.line) + "-" + std::to_string(block.last_line) + " " +
                block.keyword + " " + std::string(words(block.outcome));
        text += (block.procedure.empty() ? "" : " by " + block.procedure) + "\n";
    }
    return text;
}

// The number of a block with the keyword: the first, or a later one.
const Block& block_of(const Ledger& ledger, std::string_view keyword, std::size_t further = 0)
{
    for (const Block& block : ledger.blocks)
        if (block.keyword == keyword && further-- == 0) return block;
    throw std::runtime_error("no " + std::string(keyword));
}

// The lines that a block has made.
std::string made(const Block& block)
{
    std::string text;
    for (const report::Lines& lines : block.output) {
        std::istringstream stream(contents("out/" + lines.file));
        std::string line;
        for (std::size_t number = 1; std::getline(stream, line); ++number)
            if (number >= lines.first && number <= lines.last) text += line + "\n";
    }
    return text;
}

bool has_code(const Ledger& ledger, const Block& block, std::string_view code)
{
    return std::any_of(block.findings.begin(), block.findings.end(),
                       [&](std::size_t finding) { return ledger.findings[finding].code == code; });
}

Ledger ledger_of(std::string_view deck, const RunFlags& flags = every_output, bool prepare = true)
{
    write_file("model.k", deck);
    Ledger ledger = account_for("model.k", "out", flags, prepare);
    for (const std::string& fault : faults(ledger, "out", "model.k", true)) ADD_FAILURE() << fault;
    return ledger;
}

class LedgerBlocks : public testing::Test
{
protected:
    TemporaryFolder folder_;
};

constexpr std::string_view deck_with_all_outcomes = "*KEYWORD\n"
                                                    "*TITLE\n"
                                                    "plate\n"
                                                    "*INCLUDE\n"
                                                    "mesh.k\n"
                                                    "*DATABASE_GLSTAT\n"
                                                    "       1.0\n"
                                                    "*DEFINE_CURVE\n"
                                                    "         1\n"
                                                    "                 0.0                 1.0\n"
                                                    "*FREQUENCY_DOMAIN\n"
                                                    "         1\n"
                                                    "*END\n"
                                                    "*NODE\n"
                                                    "       2             0.0             0.0             0.0\n";
constexpr std::string_view included_mesh = "*KEYWORD\n"
                                           "*NODE\n"
                                           "       1             0.5             0.0             0.0\n"
                                           "*END\n"
                                           "*PART\n"
                                           "behind\n";

TEST_F(LedgerBlocks, HaveEveryOutcomeInTheOrderOfTheDeck)
{
    write_file("mesh.k", included_mesh);
    const Ledger ledger = ledger_of(deck_with_all_outcomes, without_curves());
    EXPECT_EQ(told(ledger), "model.k:1-1 *KEYWORD converted\n"
                            "model.k:2-3 *TITLE converted by titlecard\n"
                            "model.k:4-5 *INCLUDE converted by prepare\n"
                            "mesh.k:1-1 *KEYWORD converted by prepare\n"
                            "mesh.k:2-3 *NODE converted by node\n"
                            "mesh.k:4-4 *END converted by prepare\n"
                            "mesh.k:5-6 *PART after the end\n"
                            "model.k:6-7 *DATABASE_GLSTAT skipped\n"
                            "model.k:8-10 *DEFINE_CURVE passed over\n"
                            "model.k:11-12 *FREQUENCY_DOMAIN not known\n"
                            "model.k:13-13 *END converted\n"
                            "model.k:14-15 *NODE after the end\n");
    EXPECT_EQ(made(block_of(ledger, "*TITLE")), " Title                       : plate\n");
    const report::Totals sums = totals(ledger);
    EXPECT_EQ(sums.blocks, 12U);
    EXPECT_EQ(sums.by_outcome[0], 7U);
    EXPECT_EQ(sums.by_outcome[4], 2U);
    EXPECT_FALSE(is_lost(ledger, block_of(ledger, "*DATABASE_GLSTAT")));  // an output request, which is a note
    EXPECT_TRUE(is_lost(ledger, block_of(ledger, "*DEFINE_CURVE")));
    EXPECT_TRUE(is_lost(ledger, block_of(ledger, "*FREQUENCY_DOMAIN")));
    EXPECT_FALSE(is_lost(ledger, block_of(ledger, "*PART")));
}

TEST_F(LedgerBlocks, OfAnUnpreparedDeckAreThoseOfItsOwnFile)
{
    write_file("mesh.k", included_mesh);
    const Ledger ledger = ledger_of(deck_with_all_outcomes, without_curves(), false);
    EXPECT_EQ(told(ledger), "model.k:1-1 *KEYWORD converted\n"
                            "model.k:2-3 *TITLE converted by titlecard\n"
                            "model.k:4-5 *INCLUDE not known\n"
                            "model.k:6-7 *DATABASE_GLSTAT skipped\n"
                            "model.k:8-10 *DEFINE_CURVE passed over\n"
                            "model.k:11-12 *FREQUENCY_DOMAIN not known\n"
                            "model.k:13-13 *END converted\n"
                            "model.k:14-15 *NODE after the end\n");
    EXPECT_TRUE(has_code(ledger, block_of(ledger, "*INCLUDE"), "MD121"));
}

TEST_F(LedgerBlocks, HaveTheLinesOfTheirCardsWithTheHeadingOfTheFirst)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*NODE\n"
                                    "       1             0.5             0.0             0.0\n"
                                    "*NODE\n"
                                    "       2             1.5             0.0             0.0\n"
                                    "       3             2.5             0.0             0.0\n"
                                    "*END\n");
    const std::string first = made(block_of(ledger, "*NODE")), second = made(block_of(ledger, "*NODE", 1));
    EXPECT_TRUE(first.starts_with("\nNode Definition:\n!--- nid ")) << first;
    EXPECT_EQ(std::count(first.begin(), first.end(), '\n'), 4);
    EXPECT_EQ(lines_with(first, "       1 "), 1U);
    EXPECT_EQ(lines_with(second, "       2 "), 1U);
    EXPECT_EQ(lines_with(second, "       3 "), 1U);
    EXPECT_EQ(std::count(second.begin(), second.end(), '\n'), 2);
}

TEST_F(LedgerBlocks, ThatPrepareSplitsHaveTheLinesOfAllTheirDefinitions)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*MAT_ELASTIC\n"
                                    "        71    7.8e-9    2.1e+5       0.3\n"
                                    "        72    2.7e-9    7.0e+4       0.3\n"
                                    "*END\n");
    const Block& block = block_of(ledger, "*MAT_ELASTIC");
    EXPECT_EQ(block.procedure, "failure, matelastic");
    const std::string lines = made(block);
    for (const char* const label : {" Failure definition:        71", " Failure definition:        72",
                                    " Material Definition:         71", " Material Definition:         72"})
        EXPECT_EQ(lines_with(lines, label), 1U) << lines;
    EXPECT_EQ(block.output.size(), 2U);
    EXPECT_EQ(block.line, 2U);
    EXPECT_EQ(block.last_line, 4U);
    EXPECT_EQ(block.prepared_last_line, 5U);  // with a keyword line more
}

TEST_F(LedgerBlocks, ThatPrepareMovesKeepTheirPlace)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*DEFINE_COORDINATE_VECTOR\n"
                                    "         1       1.0       0.0       0.0       0.0       1.0       0.0\n"
                                    "*DEFINE_BOX\n"
                                    "         1       0.0       1.0       0.0       1.0       0.0       1.0\n"
                                    "*END\n");
    EXPECT_EQ(told(ledger), "model.k:1-1 *KEYWORD converted\n"
                            "model.k:2-3 *DEFINE_COORDINATE_VECTOR skipped\n"
                            "model.k:4-5 *DEFINE_BOX converted by definebox\n"
                            "model.k:6-6 *END converted\n");
    EXPECT_EQ(block_of(ledger, "*DEFINE_BOX").prepared_line, 2U);
    EXPECT_EQ(block_of(ledger, "*DEFINE_COORDINATE_VECTOR").prepared_line, 4U);
}

TEST_F(LedgerBlocks, BehindTheEndOfTheirPassAreAfterTheEnd)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*DEFINE_COORDINATE_VECTOR\n"
                                    "         1       1.0       0.0       0.0       0.0       1.0       0.0\n"
                                    "*DEFINE_BOX\n"
                                    "         1       0.0       1.0       0.0       1.0       0.0       1.0\n"
                                    "*END\n",
                                    every_output, false);
    EXPECT_EQ(block_of(ledger, "*DEFINE_BOX").outcome, report::Outcome::after_the_end);
    EXPECT_TRUE(has_code(ledger, block_of(ledger, "*DEFINE_BOX"), "MD204"));
    EXPECT_TRUE(is_lost(ledger, block_of(ledger, "*DEFINE_BOX")));
}

TEST_F(LedgerBlocks, WhoseCardsAreRefusedAreSkipped)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*INITIAL_VELOCITY\n"
                                    "         1         0         7\n"
                                    "       1.0       0.0       0.0\n"
                                    "*BOUNDARY_SPC\n"
                                    "         1         0         1\n"
                                    "*BOUNDARY_SPC_NODE\n"
                                    "         1         0         1\n"
                                    "*END\n");
    EXPECT_EQ(block_of(ledger, "*INITIAL_VELOCITY").outcome, report::Outcome::skipped);
    EXPECT_EQ(block_of(ledger, "*BOUNDARY_SPC").outcome, report::Outcome::skipped);
    EXPECT_EQ(block_of(ledger, "*BOUNDARY_SPC_NODE").outcome, report::Outcome::converted);
    EXPECT_EQ(lines_equal(made(block_of(ledger, "*BOUNDARY_SPC_NODE")), " Nodal SPC node:"), 1U);
}

TEST_F(LedgerBlocks, WhoseLinesTheSettingsDoNotWantArePassedOver)
{
    constexpr std::string_view deck = "*KEYWORD\n"
                                      "*CONTROL_BULK_VISCOSITY\n"
                                      "       1.2       0.1         1\n"
                                      "*END\n";
    RunFlags concise = every_output;
    concise[3] = 0;
    const Ledger without = ledger_of(deck, concise);
    EXPECT_EQ(block_of(without, "*CONTROL_BULK_VISCOSITY").outcome, report::Outcome::passed_over);
    EXPECT_TRUE(is_lost(without, block_of(without, "*CONTROL_BULK_VISCOSITY")));
    const Ledger with = ledger_of(deck);
    EXPECT_EQ(block_of(with, "*CONTROL_BULK_VISCOSITY").outcome, report::Outcome::converted);
    EXPECT_EQ(lines_with(made(block_of(with, "*CONTROL_BULK_VISCOSITY")), " Quadratic bulk viscosity coefficient"), 1U);
}

TEST_F(LedgerBlocks, TellWhatIsNotUsedOrReplacedWithItsValue)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*CONTROL_HOURGLASS\n"
                                    "         6       0.1\n"
                                    "*CONTROL_SOLUTION\n"
                                    "         1         5\n"
                                    "*END\n");
    const Block& hourglass = block_of(ledger, "*CONTROL_HOURGLASS");
    ASSERT_EQ(hourglass.replaced.size(), 1U);
    EXPECT_EQ(hourglass.replaced[0].field, "ihq");
    EXPECT_EQ(hourglass.replaced[0].value, "6");
    EXPECT_EQ(hourglass.replaced[0].by, "Changing to 1 in Kestrune input");
    const Block& solution = block_of(ledger, "*CONTROL_SOLUTION");
    ASSERT_EQ(solution.unused.size(), 1U);  // nlq; the others are zero
    EXPECT_EQ(solution.unused[0].field, "nlq");
    EXPECT_EQ(solution.unused[0].value, "5");
    EXPECT_TRUE(has_code(ledger, solution, "MD301"));
}

TEST_F(LedgerBlocks, ShareLinesThatHoldValuesOfBoth)
{
    const std::string interval = "*DATABASE_NODOUT\n    1.0e-6\n";
    const std::string dumps = "*DATABASE_BINARY_D3DUMP\n       100\n";
    const Ledger both = ledger_of("*KEYWORD\n" + interval + dumps + "*END\n");
    EXPECT_EQ(lines_with(made(block_of(both, "*DATABASE_NODOUT")), " Time history frequency"), 1U);
    EXPECT_EQ(lines_with(made(block_of(both, "*DATABASE_NODOUT")), " Restart frequency"), 1U);
    EXPECT_EQ(lines_with(made(block_of(both, "*DATABASE_BINARY_D3DUMP")), " Restart frequency"), 1U);
    const Ledger one = ledger_of("*KEYWORD\n" + interval + "*END\n");
    EXPECT_EQ(lines_with(made(block_of(one, "*DATABASE_NODOUT")), " Restart frequency"), 0U);
}

TEST_F(LedgerBlocks, ThatALaterOneOverridesHaveNoLine)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*CONTROL_SOLUTION\n"
                                    "         1\n"
                                    "*CONTROL_SOLUTION\n"
                                    "         2\n"
                                    "*END\n");
    EXPECT_TRUE(block_of(ledger, "*CONTROL_SOLUTION").output.empty());
    EXPECT_EQ(lines_with(made(block_of(ledger, "*CONTROL_SOLUTION", 1)), " Solution Type"), 1U);
}

TEST_F(LedgerBlocks, OfParticlesShareTheirNumber)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*ELEMENT_SPH\n"
                                    "       1       1             0.1\n"
                                    "*ELEMENT_SPH\n"
                                    "       2       1             0.1\n"
                                    "*END\n");
    for (const std::size_t further : {0U, 1U}) {
        const std::string lines = made(block_of(ledger, "*ELEMENT_SPH", further));
        EXPECT_EQ(lines_with(lines, " Initial number of SPH per processor  :          2"), 1U) << lines;
    }
}

TEST_F(LedgerBlocks, OfTiesHaveTheEmptyLineBehindThem)
{
    RunFlags flags = every_output;
    flags[5] = 2;
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID\n"
                                    "         1glue\n"
                                    "         1         2         2         2\n"
                                    "       0.1       0.2\n"
                                    "\n"
                                    "*END\n",
                                    flags);
    const std::string lines = made(block_of(ledger, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID"));
    EXPECT_TRUE(lines.starts_with(" Tied node definition:\n")) << lines;
    EXPECT_TRUE(lines.ends_with("\n\n")) << lines;
}

TEST_F(LedgerBlocks, HaveWhatPreparingCouldNotCarryAtItsPlace)
{
    const Ledger ledger = ledger_of("*KEYWORD\n"
                                    "*PART_INERTIA\n"
                                    "wheel\n"
                                    "         1         1         1\n"
                                    "       0.0       0.0       0.0       1.0\n"
                                    "       1.0       0.0       0.0       1.0       0.0       1.0\n"
                                    "       0.0       0.0       0.0\n"
                                    "*END\n");
    const Block& part = block_of(ledger, "*PART_INERTIA");
    const auto carried = std::find_if(part.findings.begin(), part.findings.end(),
                                      [&](std::size_t finding) { return finding >= ledger.findings_of_converted; });
    ASSERT_NE(carried, part.findings.end());
    EXPECT_EQ(ledger.findings[*carried].code, "MD208");
    EXPECT_EQ(ledger.findings[*carried].place.line, 5U);
    EXPECT_EQ(verdict(ledger), report::Verdict::with_losses);
}

// ---- the whole -----------------------------------------------------------------------------------------------------

constexpr std::string_view plain_deck = "*KEYWORD\n"
                                        "*TITLE\n"
                                        "plate\n"
                                        "*NODE\n"
                                        "       1             0.5             0.0             0.0\n"
                                        "*END\n";

TEST_F(LedgerBlocks, AreAllConvertedInAWholeConversion)
{
    Ledger ledger = ledger_of(plain_deck);
    EXPECT_EQ(verdict(ledger), report::Verdict::whole);
    ledger.faults.emplace_back("a line belongs to no block");
    EXPECT_EQ(verdict(ledger), report::Verdict::not_usable);
}

TEST_F(LedgerBlocks, AreNotUsableWithoutGeometry)
{
    RunFlags flags = every_output;
    flags[2] = 0;
    EXPECT_EQ(verdict(ledger_of(plain_deck, flags)), report::Verdict::not_usable);
}

TEST_F(LedgerBlocks, AreWrittenAsJson)
{
    const Ledger ledger = ledger_of(plain_deck);
    std::ostringstream stream;
    write_json(stream, ledger);
    const nlohmann::json json = nlohmann::json::parse(stream.str());
    EXPECT_EQ(json["schema"], 1);
    EXPECT_EQ(json["verdict"], "converted whole");
    EXPECT_EQ(json["totals"]["blocks"], 4);
    EXPECT_EQ(json["totals"]["converted"], 4);
    EXPECT_EQ(json["settings"]["lcflag"], 1);
    const nlohmann::json& node = json["blocks"][2];
    EXPECT_EQ(node["keyword"], "*NODE");
    EXPECT_EQ(node["line"], 4);
    EXPECT_EQ(node["last_line"], 5);
    EXPECT_EQ(node["outcome"], "converted");
    EXPECT_EQ(node["output"][0]["file"], "model.geom");
    const std::string text = stream.str();
    EXPECT_EQ(lines_with(text, "{\"file\":\"model.k\""), 4U);  // a block a line
}

TEST_F(LedgerBlocks, AreWrittenAsJsonWhateverBytesTheirDeckHas)
{
    const Ledger ledger = ledger_of("*KEYWORD\n*TITLE_\xff\"</script>\nx\xfe\n*END\n");
    std::ostringstream stream;
    write_json(stream, ledger);
    EXPECT_EQ(nlohmann::json::parse(stream.str())["blocks"].size(), 3U);
}

TEST_F(LedgerBlocks, AreWrittenTheSameTwice)
{
    std::ostringstream one, other;
    write_json(one, ledger_of(plain_deck));
    write_json(other, ledger_of(plain_deck));
    EXPECT_EQ(one.str(), other.str());
}

TEST_F(LedgerBlocks, BelongToTheUsersFileUnderItsOwnName)
{
    write_file("my model.k", plain_deck);
    for (const bool prepare : {true, false}) {
        const Ledger ledger = account_for("my model.k", "out", every_output, prepare, "mymodel.k");
        EXPECT_EQ(ledger.deck, "mymodel.k");
        EXPECT_EQ(block_of(ledger, "*NODE").file, "my model.k");
        EXPECT_TRUE(faults(ledger, "out", "my model.k", true).empty());
    }
}

// ---- files that change ---------------------------------------------------------------------------------------------

TEST_F(LedgerBlocks, AreHeldAgainstTheFilesThatTheyStandIn)
{
    const Ledger ledger = ledger_of(plain_deck);
    for (const char* const file : {"out/model.card", "out/model.geom", "out/model.sets", "out/model.k", "model.k"}) {
        const std::string before = contents(file);
        std::string digit = before;
        digit[digit.find_last_of("0123456789*-")] ^= 1;
        write_file(file, digit);
        EXPECT_FALSE(faults(ledger, "out", "model.k", true).empty()) << file;
        write_file(file, before.substr(before.find('\n') + 1));
        EXPECT_FALSE(faults(ledger, "out", "model.k").empty()) << file;
        write_file(file, before);
    }
    EXPECT_TRUE(faults(ledger, "out", "model.k", true).empty());
}
}  // namespace
