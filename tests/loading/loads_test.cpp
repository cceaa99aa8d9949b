#include "loading/loading.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
using LoadBlast = FreshRun;
using LoadNode = FreshRun;
using LoadSegmentSet = FreshRun;
using LoadSegment = FreshRun;

// ---- *LOAD_BLAST

const std::string blast_block = "*LOAD_BLAST\n" + card({"1000", "30", "-1", "2", "5e-5", "5", "1"}) +
                                card({"0.002205", "0.03281", "1000", "1.45e-5"});

// The SSID column of the first blast definition.
std::string blast_set(const Written& out)
{
    constexpr std::string_view heads = "wgt        xbo        ybo        zbo\n";
    const std::size_t at = out.deck.find(heads);
    return at == std::string::npos ? "no blast" : out.deck.substr(at + heads.size(), 10);
}

TEST_F(LoadBlast, TheDefinitionCarriesTheMarkedSegmentSet)
{
    const Written out = convert(boundary_keywords, blast_block + "*LOAD_SEGMENT_SET\n" + card({"7", "-2"}) + "*END\n");
    EXPECT_EQ(out.deck, "\n Blast Load (CONWEP) Definition:\n"
                        "!     ssid        wgt        xbo        ybo        zbo\n"
                        "         7  1.000e+03  3.000e+01 -1.000e+00  2.000e+00\n"
                        "!      tbo      isurf\n"
                        " 5.000e-05          1\n"
                        "!    iunit        cfm        cfl        cft        cfp\n"
                        "         5  2.205e-03  3.281e-02  1.000e+03  1.450e-05\n");
    EXPECT_EQ(out.log, "\n*LOAD_BLAST . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*LOAD_SEGMENT_SET . . . recognized keyword\n"
                       "not needed for CONWEP in Kestrune\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(LoadBlast, TheSegmentSetMayStandAheadOfTheBlastAndBehindOthers)
{
    const Written out = convert(boundary_keywords, "*LOAD_SEGMENT_SET\n" + card({"6", "3", "1.5"}) +
                                                       "*LOAD_SEGMENT_SET\n" + card({"7", "-2"}) + blast_block +
                                                       "*LOAD_SEGMENT_SET\n" + card({"8", "-2"}) + "*END\n");
    EXPECT_EQ(blast_set(out), "         7");
    EXPECT_EQ(lines_equal(out.deck, " Pressure loads set:"), 1U);
    EXPECT_EQ(lines_equal(out.deck, "         6          3  1.500e+00  0.000e+00"), 1U);
}

TEST_F(LoadBlast, WithoutAMarkedSetTheLastOneCounts)
{
    const Written out = convert(boundary_keywords, "*LOAD_SEGMENT_SET\n" + card({"6", "3"}) + blast_block +
                                                       "*LOAD_SEGMENT_SET\n" + card({"7", "4"}) + "*END\n");
    EXPECT_EQ(blast_set(out), "         7");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(LoadBlast, OnlyTheFirstCardOfABlockCounts)
{
    const Written out = convert(boundary_keywords,
                                "*LOAD_SEGMENT_SET\n" + card({"6", "3"}) + card({"7", "-2"}) + blast_block + "*END\n");
    EXPECT_EQ(blast_set(out), "         6");
}

TEST_F(LoadBlast, ATitledBlockIsReadBehindItsTitle)
{
    const Written out =
        convert(boundary_keywords, blast_block + "*LOAD_SEGMENT_SET_ID\n" + card({"55", "-2"}) + card({"7", "-2"}) +
                                       "*LOAD_SEGMENT_SET\n" + card({"8"}) + "*END\n");
    EXPECT_EQ(blast_set(out), "         7");
}

TEST_F(LoadBlast, ANonuniformBlockCountsToo)
{
    const Written out =
        convert(boundary_keywords, blast_block + "*LOAD_SEGMENT_SET_NONUNIFORM\n" + card({"9", "1"}) + "*END\n");
    EXPECT_EQ(blast_set(out), "         9");
}

TEST_F(LoadBlast, AnEmptyBlockCountsAsSetZero)
{
    const Written out = convert(boundary_keywords, "*LOAD_SEGMENT_SET\n" + card({"6", "3"}) + blast_block +
                                                       "*LOAD_SEGMENT_SET\n$ no card\n*END\n");
    EXPECT_EQ(blast_set(out), "         0");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(LoadBlast, ADeckWithoutSegmentSetsIsWarnedAboutAndGetsSetZero)
{
    const Written out = convert(boundary_keywords, blast_block + "*LOAD_SEGMENT\n" + card({"1"}) +
                                                       "*END\n*LOAD_SEGMENT_SET\n" + card({"9", "-2"}));
    EXPECT_EQ(blast_set(out), "         0");
    EXPECT_EQ(out.terminal, "\nWarning: No *LOAD_SEGMENT_SET found for *LOAD_BLAST, using segment set 0\n");
    EXPECT_EQ(lines_equal(out.deck, " Pressure loads:"), 1U);  // the pass goes on behind the blast
}

TEST_F(LoadBlast, ASecondPairOfCardsIsLoggedUnderTheKeywordThatTheLookUpStoppedAt)
{
    const Written out = convert(boundary_keywords, blast_block + card({"2000"}) + card({"1"}) + "*LOAD_SEGMENT_SET\n" +
                                                       card({"7", "-2"}) + "*LOAD_BEHIND\n*END\n");
    EXPECT_EQ(lines_equal(out.deck, " Blast Load (CONWEP) Definition:"), 2U);
    EXPECT_EQ(lines_with(out.deck, "         7  2.000e+03"), 1U);
    EXPECT_EQ(out.log, "\n*LOAD_BLAST . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*LOAD_SEGMENT_SET . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*LOAD_SEGMENT_SET . . . recognized keyword\n"
                       "not needed for CONWEP in Kestrune\n"
                       "\n*LOAD_BEHIND . . . skipped\n");
}

TEST_F(LoadBlast, EachLaterBlockIsLoggedInTheSameWay)
{
    // its keyword line shows until its first look-up, though what is found is known by then
    const std::string two_pairs = blast_block + card({"2000"}) + card({"1"});
    const Written out = convert(boundary_keywords, two_pairs + "*LOAD_SEGMENT_SET\n" + card({"7", "-2"}) + two_pairs +
                                                       card({"3000"}) + card({"1"}) + "*END\n");
    EXPECT_EQ(lines_with(out.deck, "         7  1.000e+03"), 2U);
    EXPECT_EQ(lines_with(out.deck, "         7  2.000e+03"), 2U);
    EXPECT_EQ(lines_with(out.deck, "         7  3.000e+03"), 1U);
    const std::string first = "\n*LOAD_BLAST . . . recognized keyword\nno unused variables\n";
    const std::string later = "\n*LOAD_SEGMENT_SET . . . recognized keyword\nno unused variables\n";
    const std::string set = "\n*LOAD_SEGMENT_SET . . . recognized keyword\nnot needed for CONWEP in Kestrune\n";
    EXPECT_EQ(out.log, first + later + set + first + later + later);
}

TEST_F(LoadBlast, TheLookUpReturnsIntoTheLineThatItLeft)
{
    // the rest of the second card is no keyword line, whatever it holds
    const Written out = convert(boundary_keywords, "*LOAD_BLAST\n" + card({"1"}) + std::string(40, ' ') +
                                                       "*LOAD_NO_KEYWORD\n" + card({"2"}) + card({"3"}) +
                                                       "*LOAD_SEGMENT_SET\n" + card({"7", "-2"}) + "*END\n");
    EXPECT_EQ(lines_with(out.deck, "         7  1.000e+00"), 1U);
    EXPECT_EQ(lines_with(out.deck, "         7  2.000e+00"), 1U);
    EXPECT_EQ(lines_with(out.log, "*LOAD_NO_KEYWORD"), 0U);
}

// ---- *LOAD_NODE

TEST_F(LoadNode, EachCardOfASetBlockIsAGroup)
{
    const Written out = convert_block(loadnode, "*LOAD_NODE_SET\n" + card({"7", "3", "2", "-1.5", "4", "5", "6", "8"}) +
                                                    card({"9", "1", "2"}) + "*END\n");
    const std::string heads =
        "\n Nodal forces set:\n"
        "!     nsid        dir       lcid         sf       csid         m1         m2         m3\n";
    EXPECT_EQ(out.deck,
              heads + "         7          3          2 -1.500e+00          4          5          6          8\n" +
                  heads + "         9          1          2  0.000e+00          0          0          0          0\n");
    EXPECT_EQ(out.log, "\n*LOAD_NODE_SET . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*LOAD_NODE_SET . . . recognized keyword\n"
                       "no unused variables\n");
}

TEST_F(LoadNode, APointBlockNamesItsNodes)
{
    const Written out = convert_block(loadnode, "*LOAD_NODE_POINT\n" + card({"100", "3", "2", "1"}) + "*END\n");
    EXPECT_EQ(out.deck, "\n Nodal forces:\n"
                        "!      nid        dir       lcid         sf       csid         m1         m2         m3\n"
                        "       100          3          2  1.000e+00          0          0          0          0\n");
}

TEST_F(LoadNode, NeitherPointNorSetIsLoggedAndNotWritten)
{
    const Written out = convert_block(loadnode, "*LOAD_NODE_BODY\n" + card({"1"}) + card({"2"}) + "*END\n");
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(out.log, "\n*LOAD_NODE_BODY . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*LOAD_NODE_BODY . . . recognized keyword\n"
                       "no unused variables\n");
}

// ---- *LOAD_SEGMENT_SET

const std::string set_heads = "\n Pressure loads set:\n"
                              "!     ssid       lcid         sf         t0\n";

TEST_F(LoadSegmentSet, TheArrivalTimeBecomesTheStartTime)
{
    const Written out = convert_block(loadsegset, "*LOAD_SEGMENT_SET\n" + card({"7", "3", "2.5", "0.125", "9"}) +
                                                      card({"8", "-1"}) + "*END\n");
    EXPECT_EQ(out.deck, set_heads + "         7          3  2.500e+00  1.250e-01\n" + set_heads +
                            "         8         -1  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*LOAD_SEGMENT_SET . . . recognized keyword\n"
                       "unused variables:\n"
                       "        dt: 9.000e+00\n"
                       "\n*LOAD_SEGMENT_SET . . . recognized keyword\n"
                       "unused variables:\n"
                       "        dt: 0.000e+00\n");
}

TEST_F(LoadSegmentSet, AMarkedSetIsLeftToTheBlastAndTheNextCardConverted)
{
    const Written out =
        convert_block(loadsegset, "*LOAD_SEGMENT_SET\n" + card({"7", "-2"}) + card({"8", "1"}) + "*END\n");
    EXPECT_EQ(out.deck, set_heads + "         8          1  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*LOAD_SEGMENT_SET . . . recognized keyword\n"
                       "not needed for CONWEP in Kestrune\n"
                       "\n*LOAD_SEGMENT_SET . . . recognized keyword\n"
                       "unused variables:\n"
                       "        dt: 0.000e+00\n");
}

TEST_F(LoadSegmentSet, AnIdBlockConvertsOnlyItsFirstCard)
{
    const Written out = convert(boundary_keywords, "*LOAD_SEGMENT_SET_ID\ntitle\n" + card({"7", "3"}) +
                                                       card({"8", "3"}) + "*LOAD_BEHIND\n*END\n");
    EXPECT_EQ(out.deck, set_heads + "         7          3  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*LOAD_SEGMENT_SET_ID . . . recognized keyword\n"
                       "ignored title line\n"
                       "unused variables:\n"
                       "        dt: 0.000e+00\n"
                       "\n*LOAD_BEHIND . . . skipped\n");
}

TEST_F(LoadSegmentSet, AMarkedSetIsTheOneCardOfAnIdBlockAndItsTitleIsNotLogged)
{
    const Written out =
        convert_block(loadsegset, "*LOAD_SEGMENT_SET_ID\ntitle\n" + card({"7", "-2"}) + card({"8", "3"}) + "*END\n");
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(out.log, "\n*LOAD_SEGMENT_SET_ID . . . recognized keyword\n"
                       "not needed for CONWEP in Kestrune\n");
}

// ---- *LOAD_SEGMENT

const std::string segment_heads =
    "\n Pressure loads:\n"
    "!     lcid         n1         n2         n3         n4         sf         sf         sf         sf         t0\n";

TEST_F(LoadSegment, EveryNodeHasTheSegmentsScaleFactor)
{
    const Written out = convert_block(loadseg, "*LOAD_SEGMENT\n" + card({"3", "2.5", "0.5", "11", "12", "13", "14"}) +
                                                   card({"4"}) + "*END\n");
    EXPECT_EQ(out.deck, segment_heads +
                            "         3         11         12         13         14  2.500e+00  2.500e+00  2.500e+00"
                            "  2.500e+00  5.000e-01\n" +
                            segment_heads +
                            "         4          0          0          0          0  0.000e+00  0.000e+00  0.000e+00"
                            "  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*LOAD_SEGMENT . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*LOAD_SEGMENT . . . recognized keyword\n"
                       "no unused variables\n");
}

TEST_F(LoadSegment, AHigherOrderSegmentLosesItsExtraNodes)
{
    const Written out = convert_block(loadseg, "*LOAD_SEGMENT\n" + card({"3", "1", "0", "11", "12", "13", "14", "15"}) +
                                                   card({"16", "17", "18"}) + card({"4"}) + "*END\n");
    EXPECT_EQ(lines_equal(out.deck, " Pressure loads:"), 2U);
    EXPECT_EQ(lines_with(out.deck, "         3         11         12         13         14  1.000e+00"), 1U);
    EXPECT_EQ(out.log, "\n*LOAD_SEGMENT . . . recognized keyword\n"
                       "unused variables:\n"
                       "        n5:        15\n"
                       "        n6:        16\n"
                       "        n7:        17\n"
                       "        n8:        18\n"
                       "\n*LOAD_SEGMENT . . . recognized keyword\n"
                       "no unused variables\n");
}

TEST_F(LoadSegment, AMarkedSegmentIsRefusedWithItsSecondCard)
{
    const Written out = convert_block(loadseg, "*LOAD_SEGMENT\n" + card({"-2", "1", "0", "1", "2", "3", "4", "5"}) +
                                                   card({"6", "7", "8"}) + card({"4"}) + "*END\n");
    EXPECT_EQ(lines_equal(out.deck, " Pressure loads:"), 1U);
    EXPECT_EQ(out.log, "\n*LOAD_SEGMENT . . . recognized keyword\n"
                       "CONWEP only available for segment sets in Kestrune\n"
                       "\n*LOAD_SEGMENT . . . recognized keyword\n"
                       "no unused variables\n");
}

TEST_F(LoadSegment, AnIdBlockConvertsOnlyItsFirstCardGroup)
{
    const Written out =
        convert(boundary_keywords, "*LOAD_SEGMENT_ID\ntitle\n" + card({"3", "1", "0", "1", "2", "3", "4", "5"}) +
                                       card({"6", "7", "8"}) + card({"4"}) + "*LOAD_BEHIND\n*END\n");
    EXPECT_EQ(lines_equal(out.deck, " Pressure loads:"), 1U);
    EXPECT_EQ(out.log, "\n*LOAD_SEGMENT_ID . . . recognized keyword\n"
                       "ignored title line\n"
                       "unused variables:\n"
                       "        n5:         5\n"
                       "        n6:         6\n"
                       "        n7:         7\n"
                       "        n8:         8\n"
                       "\n*LOAD_BEHIND . . . skipped\n");
}
}  // namespace
