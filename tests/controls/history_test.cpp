// *DATABASE_HISTORY keywords in the main deck.
#include "support/control_lines.h"

using History = FreshRun;

namespace
{
const std::string node_heading = " Node history: \n" + line("!---- NID1 %10s %10s %10s %10s %10s %10s %10s\n", "NID2",
                                                            "NID3", "NID4", "NID5", "NID6", "NID7", "NID8");
const std::string element_heading =
    " Element history: \n" +
    line("!---- EID1 %10s %10s %10s %10s %10s %10s %10s\n", "EID2", "EID3", "EID4", "EID5", "EID6", "EID7", "EID8");
}  // namespace

TEST_F(History, TenNodesOnTwoCards)
{
    const Written written =
        convert(history, "*DATABASE_HISTORY_NODE\n"
                         "$      id1       id2       id3       id4       id5       id6       id7       id8\n"
                         "        11        12        13        14        15        16        17        18\n"
                         "        19        20\n"
                         "*END\n");
    EXPECT_EQ(written.deck, " Node history: \n"
                            "!---- NID1       NID2       NID3       NID4       NID5       NID6       NID7       NID8\n"
                            "        11         12         13         14         15         16         17         18 \n"
                            "        19         20 \n"
                            "\n");
    EXPECT_EQ(written.log, "\n*DATABASE_HISTORY_NODE . . . recognized keyword\n"
                           "no unused variables\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(History, ElementsHaveAHeadingOfTheirOwn)
{
    for (const std::string keyword : {"*DATABASE_HISTORY_SOLID", "*DATABASE_HISTORY_SHELL"}) {
        const Written written = convert(history, keyword + "\n" + card({"5", "6"}) + "*END\n");
        EXPECT_EQ(written.deck,
                  " Element history: \n"
                  "!---- EID1       EID2       EID3       EID4       EID5       EID6       EID7       EID8\n"
                  "         5          6 \n"
                  "\n");
        EXPECT_EQ(written.log, "\n" + keyword + " . . . recognized keyword\nno unused variables\n");
    }
}

TEST_F(History, HeadingsAreElevenColumnsApart)
{
    const std::string deck = convert(history, "*DATABASE_HISTORY_NODE\n*DATABASE_HISTORY_SHELL\n*END\n").deck;
    EXPECT_EQ(deck, node_heading + "\n" + element_heading + "\n");
}

TEST_F(History, IdentifiersFillLinesOfEightWhateverTheCardsHold)
{
    const Written written =
        convert(history, "*DATABASE_HISTORY_NODE\n" + card({"1", "", "2", "0", "3"}) + card({"4", "5", "6", "7"}) +
                             "\n" + card({"", "", "8", "", "", "", "", "9"}) + "*END\n");
    EXPECT_EQ(written.deck,
              node_heading +
                  "         1          2          3          4          5          6          7          8 \n"
                  "         9 \n"
                  "\n");
}

TEST_F(History, ExactlyEightIdentifiersEndTheirLineOnce)
{
    const Written written =
        convert(history, "*DATABASE_HISTORY_NODE\n" + card({"1", "2", "3", "4", "5", "6", "7", "8"}) + "*END\n");
    EXPECT_EQ(written.deck,
              node_heading +
                  "         1          2          3          4          5          6          7          8 \n"
                  "\n");
}

TEST_F(History, OnlyEightFieldsOfACardAreRead)
{
    const Written written = convert(history, "*DATABASE_HISTORY_NODE\n" + card({"", "", "", "", "", "", "", "8", "9"}) +
                                                 card({"10"}) + "*END\n");
    EXPECT_EQ(written.deck, node_heading + "         8         10 \n\n");
}

TEST_F(History, AnIdentifierOfMoreThanTenColumnsCannotBeRead)
{
    EXPECT_EQ(convert(history, "*DATABASE_HISTORY_NODE\n1234567890\n*END\n").deck, node_heading + "1234567890 \n\n");
}

TEST_F(History, EachSetHasALine)
{
    EXPECT_EQ(convert(history, "*DATABASE_HISTORY_NODE_SET\n" + card({"3", "", "4"}) + "*END\n").deck,
              " Node history set               :          3\n"
              " Node history set               :          4\n"
              "\n");
    for (const std::string keyword : {"*DATABASE_HISTORY_SOLID_SET", "*DATABASE_HISTORY_SHELL_SET"}) {
        const Written written = convert(history, keyword + "\n" + card({"3"}) + card({"4"}) + "*END\n");
        EXPECT_EQ(written.deck, " Element history set            :          3\n"
                                " Element history set            :          4\n"
                                "\n");
        EXPECT_EQ(written.log, "\n" + keyword + " . . . recognized keyword\nno unused variables\n");
    }
}

TEST_F(History, EightSetsAreFollowedByOneEmptyLine)
{
    const std::string deck =
        convert(history, "*DATABASE_HISTORY_NODE_SET\n" + card({"1", "2", "3", "4", "5", "6", "7", "8"}) + "*END\n")
            .deck;
    EXPECT_EQ(lines_with(deck, " Node history set               : "), 8U);
    EXPECT_TRUE(deck.ends_with("         8\n\n"));
}

TEST_F(History, AnEmptyBlockKeepsHeadingAndEmptyLine)
{
    EXPECT_EQ(convert(history, "*DATABASE_HISTORY_SOLID\n*DATABASE_HISTORY_NODE_SET\n*END\n").deck,
              element_heading + "\n\n");
}

TEST_F(History, BlocksFollowTheOrderOfTheDeck)
{
    EXPECT_EQ(convert(history, "*DATABASE_HISTORY_SHELL_SET\n" + card({"9"}) + "*NODE\n*DATABASE_HISTORY_NODE\n" +
                                   card({"7"}) + "*END\n")
                  .deck,
              " Element history set            :          9\n\n" + node_heading + "         7 \n\n");
}

TEST_F(History, KeywordsWithAFurtherSuffixAndAllOthersLeaveNoTrace)
{
    for (const std::string keyword :
         {"*DATABASE_HISTORY_NODE_ID", "*DATABASE_HISTORY_NODE_LOCAL", "*DATABASE_HISTORY_SOLID_ID",
          "*DATABASE_HISTORY_SHELL_ID", "*DATABASE_HISTORY_NODE_SEU", "*DATABASE_HISTORY_NODA",
          "*DATABASE_HISTORY_SOLIT", "*DATABASE_HISTORY_SHELM", "*DATABASE_HISTORY_BEAM", "*DATABASE_NODOUT",
          "*CONTROL_SPH", "*TITLE"}) {
        const Written written = convert(history, keyword + "\n" + card({"1"}) + "*END\n");
        EXPECT_EQ(written.deck, "") << keyword;
        EXPECT_EQ(written.log, "") << keyword;
    }
}

TEST_F(History, PrefixesTakeLongerKeywordsToo)
{
    EXPECT_EQ(convert(history, "*DATABASE_HISTORY_NODE_SET_LOCAL\n" + card({"3"}) + "*END\n").deck,
              " Node history set               :          3\n\n");
    EXPECT_EQ(convert(history, "*DATABASE_HISTORY_NODES\n" + card({"3"}) + "*END\n").deck,
              node_heading + "         3 \n\n");
}
