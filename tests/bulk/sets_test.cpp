// The set file, and the index of the sets in the main deck.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "bulk/bulk.h"
#include "reader/run.h"
#include "support/every_way.h"
#include "support/fresh_run.h"

namespace
{
using Sets = FreshRun;

const std::string opening = "!------------------------------------------------\n"
                            "! Set Definitions\n"
                            "!------------------------------------------------\n";
const std::string closing = "\n\n";

std::string blanks(std::size_t count)
{
    return std::string(count, ' ');
}

const std::string no_title = blanks(80);

// The title left-aligned in 80 columns.
std::string padded(const std::string& title)
{
    return title + blanks(80 - title.size());
}

// What stands between opening and closing.
std::string sets_of(std::string_view deck)
{
    const std::string text = convert_every_way(set_section, deck).sets;
    EXPECT_TRUE(text.starts_with(opening));
    EXPECT_TRUE(text.ends_with(closing));
    return text.substr(opening.size(), text.size() - opening.size() - closing.size());
}

std::string log_of(std::string_view deck)
{
    return convert_every_way(set_section, deck).log;
}

// The rows of a node set with these member cards.
std::string members_of(const std::string& cards)
{
    const std::string text = sets_of("*SET_NODE\n         5\n" + cards + "*END\n");
    const std::string header = "\n Node set definition    :    5           " + no_title + "\n";
    EXPECT_TRUE(text.starts_with(header));
    return text.substr(header.size());
}

const std::string unused_zeros = "unused variables:\n"
                                 "       da1: 0.000e+00\n"
                                 "       da2: 0.000e+00\n"
                                 "       da3: 0.000e+00\n"
                                 "       da4: 0.000e+00\n";
}  // namespace

TEST_F(Sets, DeckWithoutSetsGivesTheBannerAndTwoEmptyLines)
{
    const Written written = convert_every_way(set_section, "*NODE\n       1\n*MAT\n*END\n");
    EXPECT_EQ(written.sets, opening + closing);
    EXPECT_EQ(written.log, "");
    EXPECT_EQ(written.deck, "");
}

// ---- members -------------------------------------------------------------------------------------------------------

TEST_F(Sets, TenMembersOnTwoCardsAreARowOfEightAndOneOfTwo)
{
    EXPECT_EQ(sets_of("*SET_NODE_LIST\n"
                      "         7\n"
                      "         1         2         3         4         5         6         7         8\n"
                      "         9        10\n"
                      "*END\n"),
              "\n Node set definition    :    7           " + no_title +
                  "\n"
                  "         1         2         3         4         5         6         7         8\n"
                  "         9        10\n");
}

TEST_F(Sets, BlankFieldsBetweenMembersLeaveNoGaps)
{
    EXPECT_EQ(members_of("         1                   3                             6\n"
                         "                   7                             8         9        10        11\n"
                         "        12\n"),
              "         1         3         6         7         8         9        10        11\n"
              "        12\n");
}

TEST_F(Sets, ZerosAreNoMembers)
{
    EXPECT_EQ(members_of("         0         1         0        00        -0       0.9      text         2\n"),
              "         1         2\n");
}

TEST_F(Sets, EightMembersAreOneRowAndNoMore)
{
    EXPECT_EQ(members_of("         1         2         3         4         5         6         7         8\n"),
              "         1         2         3         4         5         6         7         8\n");
    EXPECT_EQ(members_of("         1         2         3         4\n"
                         "         5         6         7         8\n"),
              "         1         2         3         4         5         6         7         8\n");
}

TEST_F(Sets, SetWithoutMembersHasNoRow)
{
    EXPECT_EQ(members_of(""), "");
    EXPECT_EQ(members_of("\n"), "");
    EXPECT_EQ(members_of("         0\n"), "");
}

TEST_F(Sets, MembersAreIntegersOfThirtyTwoBits)
{
    EXPECT_EQ(members_of("       1.9        -3       1e3       3e9      0x10        +5  00000012\n"
                         "12345678902147483647-2147483648\n"),
              "         1        -3      1000-2147483648        16         5        121234567890\n"
              "2147483647-214748364\n");
}

TEST_F(Sets, LeftAlignedAndCutMembersAreLost)
{
    EXPECT_EQ(members_of("1         2                  3         4\n"
                         "        5\n"
                         "         6        7\n"),
              "         3         4         6\n");
}

TEST_F(Sets, CommentsAndBlankLinesAmongMemberCards)
{
    EXPECT_EQ(members_of("$ one\n         1\n$ two\n$\n\n         2\n$ three\n"), "         1         2\n");
}

// ---- the two characters behind the eighth field --------------------------------------------------------------------

namespace
{
const std::string eight = "         1         2         3         4         5         6         7         8";
const std::string row_of_eight = eight + "\n";
}  // namespace

TEST_F(Sets, CardOfEightyColumnsIsFollowedByTheNextLine)
{
    EXPECT_EQ(members_of(eight + "\n         9\n"), row_of_eight + "         9\n");
}

TEST_F(Sets, CarriageReturnBehindEightyColumnsMakesAnEmptyCard)
{
    EXPECT_EQ(members_of(eight + "\r\n         9\r\n"), row_of_eight + "         9\n");
}

TEST_F(Sets, TextBehindEightyColumnsIsReadAsAFurtherCard)
{
    // One column is consumed; the next is the first of a further card in mid-line.
    EXPECT_EQ(members_of(eight + "x        99\n        10\n"), row_of_eight + "        99        10\n");
    EXPECT_EQ(members_of(eight + "         99\n        10\n"), row_of_eight + "        99        10\n");
    EXPECT_EQ(members_of(eight + "x\n        10\n"), row_of_eight + "        10\n");
    EXPECT_EQ(members_of(eight + "xy\n        10\n"), row_of_eight + "        10\n");
}

TEST_F(Sets, DollarInColumnEightyTwoIsAComment)
{
    EXPECT_EQ(members_of(eight + " $       99\n        10\n"), row_of_eight + "        10\n");
    // In column 81 it is the consumed one.
    EXPECT_EQ(members_of(eight + "$        99\n        10\n"), row_of_eight + "        99        10\n");
}

TEST_F(Sets, StarInColumnEightyTwoEndsTheSetAndIsAKeyword)
{
    const std::string deck = "*SET_NODE\n         5\n" + eight + " *set_beam x\n        10\n*END\n";
    EXPECT_EQ(sets_of(deck), "\n Node set definition    :    5           " + no_title + "\n" + row_of_eight);
    EXPECT_EQ(log_of(deck), "\n*SET_NODE . . . recognized keyword\n" + unused_zeros + "\n*SET_BEAM X . . . skipped\n");
}

TEST_F(Sets, StarInColumnEightyOneIsConsumed)
{
    EXPECT_EQ(members_of(eight + "*        99\n        10\n"), row_of_eight + "        99        10\n");
}

TEST_F(Sets, LineOfTwoFullCardsIsReadAsTwo)
{
    EXPECT_EQ(members_of(eight + " " + eight + "\n        10\n"), row_of_eight + row_of_eight + "        10\n");
}

// ---- card 1, headers and index -------------------------------------------------------------------------------------

TEST_F(Sets, HeaderOfEachType)
{
    EXPECT_EQ(sets_of("*SET_NODE\n         1\n*SET_SOLID\n         2\n*SET_SHELL\n         3\n*SET_PART\n         4\n"
                      "*SET_SEGMENT\n         5\n*END\n"),
              "\n Node set definition    :    1           " + no_title + "\n" +
                  "\n Element set definition :    2           " + no_title + "\n" +
                  "\n Element set definition :    3           " + no_title + "\n" +
                  "\n Part set definition    :    4           " + no_title + "\n" +
                  "\n Segment set definition :    5           " + no_title + "\n");
}

TEST_F(Sets, SetWithoutATitleEndsInEightyBlanks)
{
    const std::string header = line_with(sets_of("*SET_PART\n         4\n*END\n"), " Part set");
    EXPECT_EQ(header, " Part set definition    :    4           " + blanks(80));
}

TEST_F(Sets, IdentifierWiderThanItsColumnsIsWhole)
{
    EXPECT_EQ(sets_of("*SET_PART\n1234567890\n*END\n"),
              "\n Part set definition    :1234567890           " + no_title + "\n");
}

TEST_F(Sets, TitledVariantsShowTheirTitle)
{
    for (const std::string keyword_line : {"*SET_NODE_TITLE", "*SET_NODE_LIST_TITLE", "*set_node_list_title_x"}) {
        EXPECT_EQ(sets_of(keyword_line + "\n$ comment\nthe title\n$ comment\n         4\n         9\n*END\n"),
                  "\n Node set definition    :    4           " + padded("the title") + "\n         9\n")
            << keyword_line;
    }
    for (const std::string keyword_line :
         {"*SET_SOLID_TITLE", "*SET_SOLID_LIST_TITLE", "*SET_SHELL_TITLE", "*SET_SHELL_LIST_TITLE"}) {
        EXPECT_EQ(sets_of(keyword_line + "\nthe title\n         4\n         9\n*END\n"),
                  "\n Element set definition :    4           " + padded("the title") + "\n         9\n")
            << keyword_line;
    }
    for (const std::string keyword_line : {"*SET_PART_TITLE", "*SET_PART_LIST_TITLE"}) {
        EXPECT_EQ(sets_of(keyword_line + "\nthe title\n         4\n         9\n*END\n"),
                  "\n Part set definition    :    4           " + padded("the title") + "\n         9\n")
            << keyword_line;
    }
    for (const std::string keyword_line : {"*SET_SEGMENT_TITLE", "*SET_SEGMENT_LIST_TITLE"}) {
        EXPECT_EQ(sets_of(keyword_line + "\nthe title\n         4\n         9\n*END\n"),
                  "\n Segment set definition :    4           " + padded("the title") +
                      "\n         9         0         0         0\n")
            << keyword_line;
    }
}

TEST_F(Sets, OtherVariantsHaveNoTitleCard)
{
    for (const std::string keyword_line : {"*SET_NODE_TITL", "*SET_NODE_LIST_TITL", "*SET_NODE_LIST_SMOOTH",
                                           "*SET_NODE_TITEL", "*SET_NODE_COLLECT_TITLE"}) {
        EXPECT_EQ(sets_of(keyword_line + "\n         4\n         9\n*END\n"),
                  "\n Node set definition    :    4           " + no_title + "\n         9\n")
            << keyword_line;
    }
    EXPECT_EQ(sets_of("*SET_SEGMENT_COLLECT_TITLE\n         4\n         9\n*END\n"),
              "\n Segment set definition :    4           " + no_title +
                  "\n         9         0         0         0\n");
}

TEST_F(Sets, TitlesOfAboutEightyCharacters)
{
    for (const std::size_t length : {1U, 78U, 80U, 81U, 100U}) {
        const std::string title(length, 't');
        EXPECT_EQ(sets_of("*SET_NODE_TITLE\n" + title + "\n         4\n*END\n"),
                  "\n Node set definition    :    4           " + padded(title.substr(0, 80)) + "\n");
    }
    // A title of 79 characters keeps its newline, and the line breaks there.
    EXPECT_EQ(sets_of("*SET_NODE_TITLE\n" + std::string(79, 't') + "\n         4\n*END\n"),
              "\n Node set definition    :    4           " + std::string(79, 't') + "\n\n");
}

TEST_F(Sets, CommentsBeforeCardOneAreSkippedAndItsRestIsDiscarded)
{
    EXPECT_EQ(sets_of("*SET_NODE\n$ one\n$ two\n         4       1.0       2.0       3.0       4.0      MECH       77\n"
                      "         9\n*END\n"),
              "\n Node set definition    :    4           " + no_title + "\n         9\n");
}

TEST_F(Sets, AttributesAreLoggedAsUnused)
{
    EXPECT_EQ(log_of("*SET_NODE\n         4       1.5      -2.5       0.1     1e+10\n         9\n*END\n"),
              "\n*SET_NODE . . . recognized keyword\n"
              "unused variables:\n"
              "       da1: 1.500e+00\n"
              "       da2:-2.500e+00\n"
              "       da3: 1.000e-01\n"
              "       da4: 1.000e+10\n");
}

TEST_F(Sets, IgnoredTitleIsLoggedBeforeTheAttributes)
{
    for (const std::string keyword_line : {"*SET_NODE_TITLE", "*SET_SHELL_LIST_TITLE", "*SET_PART_TITLE"})
        EXPECT_EQ(log_of(keyword_line + "\ntitle\n         4\n*END\n"),
                  "\n" + keyword_line + " . . . recognized keyword\nignored title line\n" + unused_zeros);
}

TEST_F(Sets, SolidSetReadsItsIdentifierAlone)
{
    EXPECT_EQ(log_of("*SET_SOLID\n         4       1.5      -2.5\n         9\n*END\n"),
              "\n*SET_SOLID . . . recognized keyword\nno unused variables\n");
    EXPECT_EQ(log_of("*SET_SOLID_LIST_TITLE\ntitle\n         4\n*END\n"),
              "\n*SET_SOLID_LIST_TITLE . . . recognized keyword\nignored title line\nno unused variables\n");
}

TEST_F(Sets, WithoutCardflagTheSetFileIsCompleteAndTheMainDeckUntouched)
{
    setflag = 1;
    const Written written =
        convert_every_way(set_section, "*SET_NODE\n         4\n         9\n*SET_SEGMENT\n         5\n*END\n");
    EXPECT_EQ(written.sets, opening + "\n Node set definition    :    4           " + no_title + "\n         9\n" +
                                "\n Segment set definition :    5           " + no_title + "\n" + closing);
    EXPECT_EQ(written.deck, "");
}

TEST_F(Sets, IndexInTheMainDeck)
{
    cardflag = 1;
    std::snprintf(file_names.sets, sizeof file_names.sets, "model.sets");
    const Written written = convert_every_way(set_section, "*SET_NODE\n         1\n"
                                                           "*SET_SOLID_TITLE\nsolids\n         2\n"
                                                           "*SET_SHELL_TITLE\nshells\n         3\n"
                                                           "*SET_PART\n   1234567\n"
                                                           "*SET_SEGMENT_TITLE\nsegments\n         5\n"
                                                           "*SET_SEGMENT\n  12345678\n"
                                                           "*SET_BEAM\n         6\n"
                                                           "*END\n");
    const std::string rule = "!-----------------------------------------------------------\n";
    EXPECT_EQ(rule.size(), 1U + 59U + 1U);
    EXPECT_EQ(written.deck, rule + "! Set Definitions in " + blanks(70) + "model.sets                  |\n" + rule +
                                "!    SID    TYPE   TITLE                                   |\n"
                                "!      1    node   " +
                                no_title +
                                "|\n"
                                "!      2   solid   " +
                                padded("solids") +
                                "|\n"
                                "!      3   shell   " +
                                padded("shells") +
                                "|\n"
                                "!1234567    part   " +
                                no_title +
                                "|\n"
                                "!      5 segment   " +
                                blanks(32) +
                                "segments|\n"
                                "!12345678 segment   " +
                                blanks(40) + "|\n" + rule + "\n\n");
}

TEST_F(Sets, SegmentTitleLongerThanFortyCharactersIsWholeInTheIndex)
{
    cardflag = 1;
    const std::string title(60, 't');
    EXPECT_EQ(line_with(convert_every_way(set_section, "*SET_SEGMENT_TITLE\n" + title + "\n         5\n*END\n").deck,
                        "!      5"),
              "!      5 segment   " + title + "|");
}

TEST_F(Sets, OnlyCardflagOneWritesTheIndex)
{
    for (const int flag : {0, 2, -1}) {
        cardflag = flag;
        EXPECT_EQ(convert_every_way(set_section, "*SET_NODE\n         4\n*END\n").deck, "") << flag;
    }
}

TEST_F(Sets, NodeSetsAreCounted)
{
    sets_of("*SET_NODE\n         1\n*SET_NODE_LIST\n         2\n*SET_PART\n         3\n*SET_NODE_GENERAL\n         4\n"
            "*SET_NODE_TITLE\ntitle\n         5\n*END\n");
    EXPECT_EQ(counts.node_sets, 3);
}

TEST_F(Sets, SetsComeInDeckOrderAndOtherKeywordsArePassedOver)
{
    const std::string deck = "*MAT_ELASTIC\n         1\n*SET_PART\n         4\n         7\n*NODE\n       1\n"
                             "*SET_NODE\n         2\n         8\n*DEFINE_SET\n         1\n*END\n";
    EXPECT_EQ(sets_of(deck), "\n Part set definition    :    4           " + no_title + "\n         7\n" +
                                 "\n Node set definition    :    2           " + no_title + "\n         8\n");
    EXPECT_EQ(log_of(deck), "\n*SET_PART . . . recognized keyword\n" + unused_zeros +
                                "\n*SET_NODE . . . recognized keyword\n" + unused_zeros);
}

// ---- segments ------------------------------------------------------------------------------------------------------

TEST_F(Sets, SegmentsAreOneRowACardZerosIncluded)
{
    const std::string deck = "*SET_SEGMENT\n"
                             "         7       0.5       1.5       2.5       3.5 rest\n"
                             "        11        12        13        14       1.0       2.0       3.0       4.0 rest\n"
                             "$ comment\n"
                             "        21        22        23         0       5.0      -6.0\n"
                             "*END\n";
    EXPECT_EQ(sets_of(deck), "\n Segment set definition :    7           " + no_title +
                                 "\n"
                                 "        11        12        13        14\n"
                                 "        21        22        23         0\n");
    EXPECT_EQ(log_of(deck), "\n*SET_SEGMENT . . . recognized keyword\n"
                            "unused variables:\n"
                            "       da1: 5.000e-01\n"
                            "       da2: 1.500e+00\n"
                            "       da3: 2.500e+00\n"
                            "       da4: 3.500e+00\n"
                            "        a1: 5.000e+00 . . . Not all values printed\n"
                            "        a2:-6.000e+00 . . . Not all values printed\n"
                            "        a3: 0.000e+00 . . . Not all values printed\n"
                            "        a4: 0.000e+00 . . . Not all values printed\n");
}

TEST_F(Sets, SegmentSetWithoutCardsLogsZeros)
{
    EXPECT_EQ(log_of("*SET_SEGMENT_TITLE\ntitle\n         7\n*END\n"),
              "\n*SET_SEGMENT_TITLE . . . recognized keyword\n"
              "ignored title line\n" +
                  unused_zeros +
                  "        a1: 0.000e+00 . . . Not all values printed\n"
                  "        a2: 0.000e+00 . . . Not all values printed\n"
                  "        a3: 0.000e+00 . . . Not all values printed\n"
                  "        a4: 0.000e+00 . . . Not all values printed\n");
}

TEST_F(Sets, SegmentCardsMayBeShortBlankOverlongOrFull)
{
    EXPECT_EQ(sets_of("*SET_SEGMENT\n"
                      "         7\n"
                      "        11        12\n"
                      "\n"
                      "1234567890       3e9-999999999       1.9\n"
                      "11        12                13        14\r\n"
                      "*END\n"),
              "\n Segment set definition :    7           " + no_title +
                  "\n"
                  "        11        12         0         0\n"
                  "         0         0         0         0\n"
                  "1234567890-2147483648-999999999         1\n"
                  "         0         0        13        14\n");
}

// ---- rows of the pass ----------------------------------------------------------------------------------------------

TEST_F(Sets, KeywordsThatAreSkipped)
{
    for (const std::string keyword_line :
         {"*SET_NODE_ADD", "*SET_NODE_COLUMN", "*SET_NODE_GENERAL", "*SET_NODE_LIST_GENERATE", "*SET_PART_ADD",
          "*SET_PART_COLUMN", "*SET_PART_LIST_GENERATE", "*SET_SEGMENT_GENERAL", "*SET_SHELL_ADD", "*SET_SHELL_COLUMN",
          "*SET_SHELL_GENERAL", "*SET_SHELL_LIST_GENERATE", "*SET_SOLID_ADD", "*SET_SOLID_GENERAL",
          "*SET_SOLID_GENERATE", "*SET_BEAM", "*SET", "*SETS", "*SET_2D_SEGMENT",
          // longer ones
          "*SET_NODE_ADD_ADVANCED", "*SET_NODE_GENERAL_TITLE", "*SET_NODE_LIST_GENERATE_TITLE",
          "*SET_SEGMENT_GENERAL_TITLE", "*SET_SHELL_GENERAL_TITLE", "*SET_SOLID_GENERATE_TITLE",
          // only "*SET_SHELL_LIST_GEN" is compared
          "*SET_SHELL_LIST_GEN", "*SET_SHELL_LIST_GENERAL", "*SET_SHELL_LIST_GENIUS",
          // one character off a row that is converted
          "*SET_NOD", "*SET_PAR", "*SET_SEGMEN", "*SET_SHEL", "*SET_SOLI"}) {
        const std::string deck = keyword_line + "\n         4\n         9\n*END\n";
        const Written written = convert_every_way(set_section, deck);
        EXPECT_EQ(written.sets, opening + closing) << keyword_line;
        EXPECT_EQ(written.log, "\n" + keyword_line + " . . . skipped\n");
    }
}

TEST_F(Sets, OneCharacterLessAndTheKeywordIsConverted)
{
    for (const std::string keyword_line : {"*SET_NODE_AD",
                                           "*SET_NODE_COLUM",
                                           "*SET_NODE_GENERA",
                                           "*SET_NODE_LIST_GENERAT",
                                           "*SET_PART_AD",
                                           "*SET_PART_COLUM",
                                           "*SET_PART_LIST_GENERAT",
                                           "*SET_SEGMENT_GENERA",
                                           "*SET_SHELL_AD",
                                           "*SET_SHELL_COLUM",
                                           "*SET_SHELL_GENERA",
                                           "*SET_SHELL_LIST_GE",
                                           "*SET_SOLID_AD",
                                           "*SET_SOLID_GENERA",
                                           "*SET_SOLID_GENERAT",
                                           "*SET_NODE",
                                           "*SET_PART",
                                           "*SET_SEGMENT",
                                           "*SET_SHELL",
                                           "*SET_SOLID",
                                           "*SET_SOLID_LIST_GENERATE",
                                           "*SET_SHELL_GENERATE",
                                           "*SET_PART_GENERAL"}) {
        const std::string log = log_of(keyword_line + "\n         4\n*END\n");
        EXPECT_TRUE(log.starts_with("\n" + keyword_line + " . . . recognized keyword\n")) << log;
    }
}

TEST_F(Sets, RowsOfTheTable)
{
    EXPECT_EQ(set_keywords.rows.size(), 22U);
    EXPECT_EQ(first_match(set_keywords, "*ENDING")->action.treatment, Treatment::end_of_pass);
    EXPECT_EQ(first_match(set_keywords, "*SE"), nullptr);
    EXPECT_EQ(first_match(set_keywords, "*NODE"), nullptr);
}

TEST_F(Sets, WhatFollowsEndIsNotConverted)
{
    EXPECT_EQ(sets_of("*END\n*SET_NODE\n         4\n*END\n"), "");
}

TEST_F(Sets, DeckWithoutEndIsConvertedToItsLastCard)
{
    for (const std::string rest : {"         9\n", "         9"})
        EXPECT_EQ(sets_of("*SET_NODE\n         4\n" + rest),
                  "\n Node set definition    :    4           " + no_title + "\n         9\n");
    EXPECT_EQ(sets_of("*SET_NODE\n         4"), "\n Node set definition    :    4           " + no_title + "\n");
    EXPECT_EQ(sets_of("*SET_NODE\n         4\n" + eight),
              "\n Node set definition    :    4           " + no_title + "\n" + row_of_eight);
}

TEST_F(Sets, MissingCardOneTakesTheKeywordLineThatFollows)
{
    const std::string deck = "*SET_NODE\n*SET_PART\n         4\n         9\n*END\n";
    EXPECT_EQ(sets_of(deck), "\n Node set definition    :    0           " + no_title + "\n         4         9\n");
    EXPECT_EQ(log_of(deck), "\n*SET_NODE . . . recognized keyword\n" + unused_zeros);
}
