#include <string>

#include "loading/loading.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
const std::string heads = " Tied node definition:\n"
                          "!    slvid    stype  mstrsid   effstr     pcut       sn      ss       n       m  radius\n";

// A definition line: from slvid to effstr, the five columns that are always zero, radius, and the heading.
std::string definition(const std::string& first_columns, const std::string& radius, const std::string& heading)
{
    return first_columns + "      0.0      0.0     0.0     0.0     0.0" + radius + "   !---" + heading +
           std::string(80 - heading.size(), ' ') + "\n";
}

// Cards 1 to 3 of a contact between segment sets.
std::string contact_cards(const char* ssid, const char* msid, const char* sstyp, const char* fs, const char* fd)
{
    return card({ssid, msid, sstyp}) + card({fs, fd}) + "\n";
}

// The line of a contact whose cards are all blank.
std::string blank_definition(const std::string& heading)
{
    return definition("         0        1        0      0.0", "     0.0", heading);
}

struct TiedNodes : FreshRun {
    TiedNodes() { contflag = 2; }
};

Written titled(const std::string& cards)
{
    return convert(contact_keywords, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID\n" + cards + "*END\n");
}
}  // namespace

TEST_F(TiedNodes, FrictionFieldsBecomeFailureStrainAndSearchRadius)
{
    const Written out = titled("         1 glue\n" + contact_cards("10", "20", "0", "0.5", "2.0"));
    EXPECT_EQ(out.deck, heads + definition("        10        1       20      0.5", "     2.0", "glue"));
    EXPECT_EQ(out.log, "");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(TiedNodes, NodeSetBecomesTypeZeroAndOtherTypesPassThrough)
{
    const Written nodes = titled("         1 glue\n" + contact_cards("10", "20", "4", "", ""));
    EXPECT_EQ(nodes.deck, heads + definition("        10        0       20      0.0", "     0.0", "glue"));

    for (const char* type : {"1", "2", "3", "5", "6"}) {
        reset_run();
        contflag = 2;
        const Written other = titled("         1 glue\n" + contact_cards("10", "20", type, "", ""));
        EXPECT_EQ(other.deck, heads + definition("        10        " + std::string(type) + "       20      0.0",
                                                 "     0.0", "glue"));
    }
}

TEST_F(TiedNodes, SecondBlockWritesNoSecondHeadLine)
{
    const Written out = convert(contact_keywords, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID\n"
                                                  "         1 one\n" +
                                                      contact_cards("10", "20", "0", "0.5", "2.0") +
                                                      "*CONTACT_AUTOMATIC_NODES_TO_SURFACE_ID\n"
                                                      "         2 two\n" +
                                                      contact_cards("30", "40", "4", "", "") + "*END\n");
    EXPECT_EQ(out.deck, heads + definition("        10        1       20      0.5", "     2.0", "one") +
                            definition("        30        0       40      0.0", "     0.0", "two"));
    EXPECT_EQ(counts.tied_nodes, 2);
}

TEST_F(TiedNodes, CountsOnFromTheGivenCount)
{
    counts.tied_nodes = 5;
    const Written out = convert_block(surfcon2tnodes, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID\n         1 glue\n" +
                                                          blank_contact_cards + "*END\n");
    EXPECT_EQ(counts.tied_nodes, 6);
    EXPECT_EQ(out.deck, blank_definition("glue"));
}

TEST_F(TiedNodes, CardAIsReadAndDropped)
{
    const Written out = titled("         1 glue\n" + blank_contact_cards + card({"1", "0.1"}));
    EXPECT_EQ(out.deck, heads + blank_definition("glue"));
    EXPECT_EQ(out.log, "");
}

// ---- the ID card

TEST_F(TiedNodes, TitledBlockLosesTheFirstCharacterOfItsIdCard)
{
    const Written out = titled("         1glue\n" + blank_contact_cards);
    EXPECT_EQ(out.deck, heads + blank_definition("lue"));
}

TEST_F(TiedNodes, CommentLinesBeforeTheIdCardKeepItsFirstCharacter)
{
    const Written out = titled("$      cid heading\n$\n         1glue\n" + blank_contact_cards);
    EXPECT_EQ(out.deck, heads + blank_definition("glue"));
}

TEST_F(TiedNodes, BlockWithoutIdIsReadOneCardOutOfStep)
{
    const Written out = convert(contact_keywords, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE\n" +
                                                      card({"10", "20"}) +       // taken as the ID card
                                                      card({"3.5", "4", "4"}) +  // taken as card 1
                                                      card({"1.5", "2.5"}) +     // taken as card 2
                                                      "*END\n" +                 // taken as card 3
                                                      "*END\n");
    EXPECT_EQ(out.deck, heads + definition("         3        0        4      1.5", "     2.5", "        20"));
    EXPECT_EQ(counts.tied_nodes, 1);
}

TEST_F(TiedNodes, BlockWithoutIdTakesACommentLineForItsIdCard)
{
    const Written out = convert(contact_keywords, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE\n"
                                                  "$  ssid    and the rest\n" +
                                                      contact_cards("10", "20", "0", "0.5", "2.0") + "*END\n");
    EXPECT_EQ(out.deck, heads + definition("        10        1       20      0.5", "     2.0", " and the rest"));
}

TEST_F(TiedNodes, CommentsStandBeforeTheCardsBehindTheIdCard)
{
    const Written out = titled("         1 glue\n"
                               "$ 1\n" +
                               card({"10", "20", "0"}) + "$ 2\n" + card({"0.5", "2.0"}) +
                               "$ 3\n\n"
                               "$ a\n" +
                               card({"1"}) + "$ end\n");
    EXPECT_EQ(out.deck, heads + definition("        10        1       20      0.5", "     2.0", "glue"));
    EXPECT_EQ(out.log, "");
}

TEST_F(TiedNodes, ReadingStopsBehindTheLastFieldOfCardA)
{
    // what stands there, in mid-line, is the next keyword line
    const std::string card_a = std::string(80, ' ') + "*CONTACT_TIED\n";
    const Written out = titled("         1 glue\n" + blank_contact_cards + card_a);
    EXPECT_EQ(out.deck, heads + blank_definition("glue"));
    EXPECT_EQ(out.log, "\n*CONTACT_TIED . . . skipped\n");
}

TEST_F(TiedNodes, IdCardThatEndsInItsIdentifierHasAnEmptyHeading)
{
    const Written out = titled("         1\n" + contact_cards("10", "20", "0", "0.5", "2.0"));
    EXPECT_EQ(out.deck, heads + definition("        10        1       20      0.5", "     2.0", ""));
}

TEST_F(TiedNodes, EmptyIdCardOfATitledBlockGivesWayToTheNextLine)
{
    const Written out = titled("\n"
                               "         1glue\n" +
                               contact_cards("10", "20", "0", "0.5", "2.0"));
    EXPECT_EQ(out.deck, heads + definition("        10        1       20      0.5", "     2.0", "glue"));
}

TEST_F(TiedNodes, HeadingKeepsItsFirst79Characters)
{
    const std::string long_heading = std::string(78, 'a') + "bcd";
    const Written out = titled("         1 " + long_heading + "\n" + contact_cards("10", "20", "0", "0.5", "2.0"));
    EXPECT_EQ(out.deck,
              heads + definition("        10        1       20      0.5", "     2.0", std::string(78, 'a') + "b"));
}
