// Each rule on a deck of a few lines, against text written by hand.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "deck/fault.h"
#include "prepare/rules.h"
#include "prepared.h"

namespace
{
// A deck of one block, prepared: what stands between *KEYWORD and *END.
std::string block(const std::string& lines)
{
    std::string deck = prepared_text("*KEYWORD\n" + lines + "*END\n");
    EXPECT_TRUE(deck.starts_with("*KEYWORD\n"));
    EXPECT_TRUE(deck.ends_with("*END\n"));
    return deck.substr(9, deck.size() - 9 - 5);
}

// ---- cards ---------------------------------------------------------------------------------------------------------

TEST(Cards, MoveANumberToItsFieldsLastColumn)
{
    EXPECT_EQ(block("*NODE\n1       0.5                         7.0             2.5\n"),
              "*NODE\n       1             0.5             7.0             2.5\n");
}

TEST(Cards, LeaveAZeroWhereItIs)
{
    const std::string node = "*NODE\n       1             0.5  0.0                        2.5\n";
    EXPECT_EQ(block(node), node);
}

TEST(Cards, MoveAZeroInWhichANumberSeemsToGoOn)
{
    EXPECT_EQ(block("*SECTION_SPH\n         10                  1.0\n"),
              "*SECTION_SPH\n         1         0         1.0\n");
}

TEST(Cards, KeepWhatStandsBehindTheLastField)
{
    EXPECT_EQ(block("*NODE\n       10.5                          0.0             2.5       0       0  a corner\n"),
              "*NODE\n       1             0.5             0.0             2.5       0       0  a corner\n");
}

TEST(Cards, AreThoseOfADeckWhoseLinesEndInCarriageReturnsAlone)
{
    EXPECT_EQ(prepared_text("*KEYWORD\r*NODE\r1       0.5                         7.0             2.5\r*END\r"),
              "*KEYWORD\n*NODE\n       1             0.5             7.0             2.5\n*END\n");
}

TEST(Cards, WriteCommasAsColumns)
{
    EXPECT_EQ(block("*NODE\n1,0.5,,-2.5\n*MAT_ELASTIC\n1,7850.,2.1e+11,0.3\n"),
              "*NODE\n       1             0.5                            -2.5\n"
              "*MAT_ELASTIC\n         1     7850.   2.1e+11       0.3\n");
}

TEST(Cards, ShortenANumberThatDoesNotFit)
{
    EXPECT_EQ(block("*MAT_ELASTIC\n1,7850.000000000,1234567.890123\n"),
              "*MAT_ELASTIC\n         1     7850. 1234567.9\n");
}

TEST(Cards, PutParametersIn)
{
    EXPECT_EQ(block("*PARAMETER\nR        a       2.5\nI        n         7\n"
                    "*NODE\n      &n              &a             -&a          <&a*2>\n"),
              "*PARAMETER\nR        a       2.5\nI        n         7\n"
              "*NODE\n       7             2.5            -2.5              5.\n");
}

TEST(Cards, WriteExponentsWithTheirLetter)
{
    EXPECT_EQ(block("*NODE\n       1           2.5-3           1.0D2             0.0\n"),
              "*NODE\n       1          2.5E-3           1.0E2             0.0\n");
}

TEST(Cards, TakeANumberOutOfTheNextField)
{
    EXPECT_EQ(block("*NODE\n       1            0.125           0.25             0.5\n"),
              "*NODE\n       1           0.125            0.25             0.5\n");
}

TEST(Cards, WriteLongFieldsInStandardColumns)
{
    EXPECT_EQ(block("*NODE +\n                   1                 0.5                                -2.5\n"),
              "*NODE\n       1             0.5                            -2.5\n");
}

TEST(Cards, SayWhenANumberHasNoRoom)
{
    prepare::Summary summary;
    EXPECT_EQ(prepared_text("*KEYWORD\n*NODE %\n1234567890             0.5             0.0             0.0\n*END\n",
                            &summary),
              "*KEYWORD\n*NODE\n????????             0.5             0.0             0.0\n*END\n");
    ASSERT_EQ(summary.not_carried.size(), 1U);
    EXPECT_EQ(summary.not_carried[0].first.code, "MD114");
    EXPECT_EQ(summary.not_carried[0].first.place.line, 3U);
}

TEST(Cards, ReplaceTabsByBlanks)
{
    EXPECT_EQ(block("*NODE\n       1\t     0.5\t     0.0\t     2.5\n"),
              "*NODE\n       1             0.5             0.0             2.5\n");
}

TEST(Cards, LeaveATabBehindTheLastNumber)
{
    const std::string node = "*NODE\n       1             0.5\t\n";
    EXPECT_EQ(block(node), node);
    EXPECT_EQ(block("*NODE\n       1  0.5\t\n").substr(0, 30), "*NODE\n       1             0.5");
}

TEST(Cards, LeaveWordsAndTwoNumbersInAField)
{
    const std::string nodes = "*NODE\n       1         0.5 0.7            left             0.0\n";
    EXPECT_EQ(block(nodes), nodes);
}

TEST(Cards, DoNotMakeANumberRunIntoTwoOthers)
{
    const std::string card = "*SET_NODE\n         1       7  1       1\n";
    EXPECT_EQ(block(card), card);
}

TEST(Cards, AreLeftAloneWhereTheConverterSkipsTheKeyword)
{
    const std::string beams = "*ELEMENT_BEAM\n1,2,3,4\n*CONTROL_ENERGY\n2,2\n";
    EXPECT_EQ(block(beams), beams);
}

TEST(Cards, StopAtAParameterThatIsNotDefined)
{
    try {
        prepared_text("*KEYWORD\n*NODE\n       1            &len             0.0             0.0\n*END\n");
        FAIL();
    } catch (const deck::Fault& fault) {
        EXPECT_EQ(fault.problem().code, "MD123");
        EXPECT_EQ(fault.problem().place.line, 3U);
        EXPECT_EQ(fault.problem().place.column, 21U);
    }
}

TEST(Cards, StopAtAnUndefinedParameterInSetsAndOptionsToo)
{
    for (const char* deck : {"*SET_PART_COLUMN\n&sid\n*END\n", "*SET_NODE_GENERAL\n      &sid\nALL\n*END\n",
                             "*PART_INERTIA\nbar\n         1         1         1\n      &x\n*END\n"})
        EXPECT_THROW(prepared_text(deck), deck::Fault) << deck;
}

// ---- keyword lines -------------------------------------------------------------------------------------------------

TEST(KeywordLines, AreCleaned)
{
    EXPECT_EQ(prepared_text("*keyword LONG=S\r\n*node  $ mesh\r\n       1             0.5\r\n*End"),
              "*KEYWORD LONG=S\n*NODE\n       1             0.5\n*END\n");
    EXPECT_EQ(prepared_text("*KEYWORD\n*NODE\n"), "*KEYWORD\n*NODE\n*END\n");
}

TEST(KeywordLines, LoseTheFormatsOfADeckThatIsWrittenAnew)
{
    EXPECT_EQ(prepared_text("*KEYWORD LONG=Y MEMORY=2m\n*NODE\n                   1                 0.5\n"
                            "*DEFINE_TABLE\n                   1\n*NODE -\n       2             0.5\n*END\n"),
              "*KEYWORD MEMORY=2m\n*NODE\n       1             0.5\n"
              "*DEFINE_TABLE +\n                   1\n*NODE\n       2             0.5\n*END\n");
}

TEST(KeywordLines, HaveNamesForNumbers)
{
    EXPECT_EQ(block("*MAT_001\n         1    7850.0   2.1e+11       0.3\n*EOS_002_TITLE\nx\n         1\n"),
              "*MAT_ELASTIC\n         1    7850.0   2.1e+11       0.3\n*EOS_JWL_TITLE\nx\n         1\n");
}

TEST(KeywordLines, GetAndLoseTitles)
{
    EXPECT_EQ(block("*EOS_LINEAR_POLYNOMIAL\n         1\n\n         2\n\n"),
              "*EOS_LINEAR_POLYNOMIAL_TITLE\nEOS_LINEAR_POLYNOMIAL\n         1\n\n"
              "*EOS_LINEAR_POLYNOMIAL_TITLE\nEOS_LINEAR_POLYNOMIAL\n         2\n\n");
    EXPECT_EQ(block("*MAT_JOHNSON_HOLMQUIST_CERAMICS_TITLE\nalumina\n         1\n\n\n"),
              "*MAT_JOHNSON_HOLMQUIST_CERAMICS\n         1\n\n\n");
    EXPECT_EQ(block("*CONTACT_SINGLE_SURFACE_TITLE\n         1all\n         0\n         0\n         0\n"),
              "*CONTACT_SINGLE_SURFACE_ID\n         1all\n         0\n         0\n         0\n");
}

// ---- blocks --------------------------------------------------------------------------------------------------------

TEST(Blocks, GiveEachDefinitionAKeywordLine)
{
    EXPECT_EQ(block("*SECTION_SPH\n         1\n$ the other\n         2\n\n"),
              "*SECTION_SPH\n         1\n$ the other\n*SECTION_SPH\n         2\n\n");
    EXPECT_EQ(block("*BOUNDARY_SPC_NODE_ID\n         9wall\n         1\n         2\n"),
              "*BOUNDARY_SPC_NODE_ID\n         9wall\n         1\n*BOUNDARY_SPC_NODE_ID\n         9wall\n         2\n");
}

TEST(Blocks, GetTheirMissingCards)
{
    EXPECT_EQ(block("*SECTION_SHELL\n         1         2\n$ nothing\n"),
              "*SECTION_SHELL\n         1         2\n$ nothing\n         0\n");
}

TEST(Blocks, LoseBlankLinesInLists)
{
    EXPECT_EQ(block("*NODE\n\n       1             0.5\n  \n       2             0.5\n\n"),
              "*NODE\n       1             0.5\n       2             0.5\n");
    const std::string heading = "*PART\n\n         1         1         1\n";
    EXPECT_EQ(block(heading), heading);
    EXPECT_EQ(block("*PART\none\n         1         1         1\n\n"), "*PART\none\n         1         1         1\n");
    EXPECT_EQ(block("*PART\none\n         1         1         1\n\n         2         1         1\n"),
              "*PART\none\n         1         1         1\n\n         2         1         1\n");
}

TEST(Blocks, LoseOptionsOfParts)
{
    prepare::Summary summary;
    EXPECT_EQ(prepared_text("*KEYWORD\n*PART_INERTIA\nshot\n         1         1         1\n"
                            "       0.0       0.0       0.0      12.0         1\n       1.0\n       0.0\n       1.0\n"
                            "other\n         2         1         1\n       0.0\n       0.0\n       0.0\n*END\n",
                            &summary),
              "*KEYWORD\n*PART\nshot\n         1         1         1\nother\n         2         1         1\n*END\n");
    ASSERT_EQ(summary.not_carried.size(), 1U);
    EXPECT_EQ(summary.not_carried[0].first.code, "MD208");
    EXPECT_EQ(summary.not_carried[0].second, 6U);
}

TEST(Blocks, ThatEndAPassStandLast)
{
    EXPECT_EQ(block("*DEFINE_COORDINATE_VECTOR\n         1       1.0\n*BOUNDARY_SPC_NODE\n         1\n*NODE\n"),
              "*BOUNDARY_SPC_NODE\n         1\n*NODE\n*DEFINE_COORDINATE_VECTOR\n         1       1.0\n");
}

TEST(Solids, OnTwoLinesAreWrittenOnOne)
{
    EXPECT_EQ(block("*ELEMENT_SOLID\n      11       1\n       1       2       3       4       5       6       7       8"
                    "       0       0\n"),
              "*ELEMENT_SOLID\n      11       1       1       2       3       4       5       6       7       8\n");
}

// ---- sets ----------------------------------------------------------------------------------------------------------

const std::string mesh =
    "*NODE\n       1             0.5\n       2             1.5\n       4             2.5\n       9             3.5\n"
    "*ELEMENT_SPH\n       4      31             1.0\n       2      31             1.0\n";

TEST(Sets, OfRangesListWhatIsDefinedInThem)
{
    EXPECT_EQ(block("*SET_NODE_LIST_GENERATE\n         3       0.5\n         2         4         9        12\n" + mesh),
              "*SET_NODE_LIST\n         3       0.5\n         2         4         9\n" + mesh);
    EXPECT_EQ(
        block("*SET_NODE_LIST_GENERATE_INCREMENT_TITLE\nodd\n         3\n         1         9         4\n" + mesh),
        "*SET_NODE_LIST_TITLE\nodd\n         3\n         1         9\n" + mesh);
}

TEST(Sets, OfPartsAndBoxesListTheirNodes)
{
    EXPECT_EQ(block("*SET_NODE_GENERAL\n         3\n      PART        31\n      NODE         1\n" + mesh),
              "*SET_NODE_LIST\n         3\n         1         2         4\n" + mesh);
    const std::string box = "*DEFINE_BOX\n         7       1.0       3.0      -1.0       1.0      -1.0       1.0\n";
    EXPECT_EQ(block("*SET_NODE_GENERAL\n         3\n       BOX         7\n" + box + mesh),
              "*SET_NODE_LIST\n         3\n         2         4\n" + box + mesh);
}

TEST(Sets, OfSetsListTheMembersOfThose)
{
    const std::string others = "*SET_NODE_LIST\n         1\n         9         2\n"
                               "*SET_NODE_COLUMN\n         2\n         4\n         2\n";
    EXPECT_EQ(block("*SET_NODE_ADD\n         3\n         1         2\n" + others),
              "*SET_NODE_LIST\n         3\n         2         4         9\n*SET_NODE_LIST\n         1\n"
              "         9         2\n*SET_NODE_LIST\n         2\n         2         4\n");
}

TEST(Sets, ThatAskForMoreStayAsTheyAre)
{
    const std::string sets = "*SET_NODE_GENERAL\n         3\n     DPART        31\n"
                             "*SET_NODE_ADD\n         4\n         8\n*SET_NODE_ADD\n         5\n         5\n";
    EXPECT_EQ(block(sets), sets);
}

// ---- files ---------------------------------------------------------------------------------------------------------

TEST(Files, HaveTheirContentInTheirPlace)
{
    const TemporaryFolder folder;
    write_file("model.k", "*KEYWORD\n*INCLUDE\n$ the mesh\nmesh.k\n*END\n");
    write_file("mesh.k", "$ from the mesher\n*KEYWORD\n*NODE\n1,0.5\n*END\nnothing\n");
    EXPECT_EQ(prepared("model.k"), "*KEYWORD\n$ the mesh\n$ from the mesher\n*NODE\n       1             0.5\n*END\n");
    EXPECT_EQ(prepared("model.k", nullptr, {}, true),
              "$ from model.k:1\n*KEYWORD\n$ the mesh\n$ from the mesher\n$ from mesh.k:3\n*NODE\n"
              "       1             0.5\n$ from model.k:5\n*END\n");
}

TEST(Files, AreShiftedAndMoved)
{
    const TemporaryFolder folder;
    write_file("model.k", "*KEYWORD\n*DEFINE_TRANSFORMATION\n         3\nTRANSL           1.0       0.0       0.0\n"
                          "*INCLUDE_TRANSFORM\nmesh.k\n      1000      2000        30\n\n\n         3\n*END\n");
    write_file("mesh.k", "*NODE\n       1             0.5             0.0             2.0\n"
                         "*ELEMENT_SPH\n       1       4             1.0\n*SET_NODE\n         5\n         1\n");
    EXPECT_EQ(prepared("model.k"),
              "*KEYWORD\n*DEFINE_TRANSFORMATION\n         3\nTRANSL           1.0       0.0       0.0\n"
              "*NODE\n    1001             1.5             0.0             2.0\n"
              "*ELEMENT_SPH\n    1001      34             1.0\n*SET_NODE\n         5\n      1001\n*END\n");
}

TEST(Files, ThatAreMissingStopEverything)
{
    const TemporaryFolder folder;
    write_file("model.k", "*KEYWORD\n*INCLUDE\nmesh.k\nload.k\n*END\n");
    std::vector<deck::Problem> problems;
    EXPECT_THROW(prepare::Preparation("model.k", &problems), deck::Fault);
    ASSERT_EQ(problems.size(), 2U);
    EXPECT_EQ(problems[0].code, "MD122");
    EXPECT_EQ(problems[1].place.line, 4U);
}

// ---- changes -------------------------------------------------------------------------------------------------------

TEST(Changes, TellTheLineBeforeAndAfter)
{
    const TemporaryFolder folder;
    write_file("model.k", "*KEYWORD\n*SECTION_SPH\n         1\n2\n*END\n");
    std::vector<std::string> told;
    prepared("model.k", nullptr, [&](const prepare::Change& change) {
        told.push_back(std::string(change.code) + " " + std::string(change.file) + ":" + std::to_string(change.line) +
                       ">" + std::to_string(change.line_in_output) + " " + std::string(change.before) + "|" +
                       std::string(change.after));
    });
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0], "MD205 model.k:4>4 |*SECTION_SPH");
    EXPECT_EQ(told[1], "MD102 model.k:4>5 2|         2");
}

TEST(Rules, HaveACodeEach)
{
    for (const prepare::Rule& rule : prepare::rules()) EXPECT_NE(check::find_code(rule.code), nullptr) << rule.code;
}
}  // namespace
