#include <string>

#include "loading/loading.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
const std::string accelerometer_banner = "!------------------------------------------------\n"
                                         "! Accelerometer Definition\n"
                                         "!------------------------------------------------\n"
                                         "\n";

const std::string recognized = " . . . recognized keyword using accelerometer functionality\n"
                               "printed definitions\n"
                               "Accelerometer history:\n"
                               "Node history:\n";

using Accelerometers = FreshRun;
}  // namespace

TEST_F(Accelerometers, TitleNamesTheAccelerometer)
{
    const Written out = convert(accelerometers, "*DEFINE_COORDINATE_NODES_TITLE\nacc1\n" +
                                                    card({"1", "11", "12", "13", "1", "X"}) + "*END\n");
    EXPECT_EQ(out.accelerometers, accelerometer_banner +
                                      "\n Accelerometer history        :\n"
                                      "!ac_id        nid         n1         n2         n3\n"
                                      " acc1         11         11         12         13\n"
                                      "\n"
                                      " Node history                 :         11        12        13     !  acc1" +
                                      std::string(76, ' ') + "\n\n");
    EXPECT_EQ(out.log, "\n*DEFINE_COORDINATE_NODES_TITLE" + recognized);
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Accelerometers, HeadIsRightAlignedOverALongerTitle)
{
    const Written out = convert(accelerometer_keywords, "*DEFINE_COORDINATE_NODES_TITLE\n"
                                                        "$ comment\n"
                                                        "left door\n"
                                                        "$ comment\n" +
                                                            card({"1", "11", "12", "13"}) + "*END\n");
    EXPECT_EQ(out.accelerometers, "\n Accelerometer history        :\n"
                                  "!    ac_id        nid         n1         n2         n3\n"
                                  " left door         11         11         12         13\n"
                                  "\n"
                                  " Node history                 :         11        12        13     !  left door" +
                                      std::string(71, ' ') + "\n\n");
}

TEST_F(Accelerometers, TitledKeywordConvertsOnlyItsFirstCard)
{
    const Written out =
        convert(accelerometer_keywords, "*DEFINE_COORDINATE_NODES_TITLE\nacc1\n" + card({"1", "11", "12", "13"}) +
                                            card({"2", "21", "22", "23"}) + "*END\n");
    EXPECT_EQ(lines_with(out.accelerometers, " Node history"), 1u);
    EXPECT_EQ(lines_with(out.accelerometers, " acc1         11"), 1u);
    EXPECT_EQ(out.log, "\n*DEFINE_COORDINATE_NODES_TITLE" + recognized);
}

TEST_F(Accelerometers, TitleWithNothingBehindItConvertsNothing)
{
    const Written out = convert(accelerometer_keywords, "*DEFINE_COORDINATE_NODES_TITLE\nacc1\n"
                                                        "*DEFINE_COORDINATE_NODES_TITLE\nacc2\n" +
                                                            card({"2", "21", "22", "23"}) + "*END\n");
    EXPECT_EQ(lines_with(out.accelerometers, " Node history"), 1u);
    EXPECT_EQ(lines_with(out.accelerometers, " acc2 "), 1u);
}

TEST_F(Accelerometers, TwoTitledKeywordsGiveTwoGroupsInDeckOrder)
{
    const Written out =
        convert(accelerometer_keywords, "*DEFINE_COORDINATE_NODES_TITLE\nacc1\n" + card({"1", "11", "12", "13"}) +
                                            "*DEFINE_COORDINATE_NODES_TITLE\nacc2\n" + card({"2", "21", "22", "23"}) +
                                            "*END\n");
    EXPECT_EQ(lines_with(out.accelerometers, " Accelerometer history        :"), 2u);
    const auto first = out.accelerometers.find("\n acc1         11         11         12         13\n");
    const auto second = out.accelerometers.find("\n acc2         21         21         22         23\n");
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(second, std::string::npos);
    EXPECT_LT(first, second);
}

TEST_F(Accelerometers, UntitledKeywordConvertsEveryCardUnderAnEmptyName)
{
    const Written out = convert(accelerometer_keywords, "*DEFINE_COORDINATE_NODES\n" + card({"1", "11", "12", "13"}) +
                                                            "$ comment\n" + card({"2", "21", "22", "23"}) + "*END\n");
    EXPECT_EQ(out.accelerometers, "\n Accelerometer history        :\n"
                                  "!ac_id        nid         n1         n2         n3\n"
                                  "          11         11         12         13\n"
                                  "\n"
                                  " Node history                 :         11        12        13     !  " +
                                      std::string(80, ' ') +
                                      "\n\n"
                                      "\n Accelerometer history        :\n"
                                      "!ac_id        nid         n1         n2         n3\n"
                                      "          21         21         22         23\n"
                                      "\n"
                                      " Node history                 :         21        22        23     !  " +
                                      std::string(80, ' ') + "\n\n");
    EXPECT_EQ(out.log, "\n*DEFINE_COORDINATE_NODES" + recognized + "\n*DEFINE_COORDINATE_NODES" + recognized);
}

TEST_F(Accelerometers, NodeSetCountIsWrittenNowhere)
{
    const std::string deck = "*DEFINE_COORDINATE_NODES_TITLE\nacc1\n" + card({"1", "11", "12", "13"}) + "*END\n";
    const Written none = convert(accelerometers, deck);
    counts.node_sets = 77;
    const Written many = convert(accelerometers, deck);
    EXPECT_EQ(many.accelerometers, none.accelerometers);
    EXPECT_EQ(lines_with(many.accelerometers, " acc1"), 1u);
}

TEST_F(Accelerometers, OtherKeywordsArePassedOverInSilence)
{
    const Written out =
        convert(accelerometers, "*DEFINE_COORDINATE_NODET\n" + card({"1", "11", "12", "13"}) +
                                    "*DEFINE_COORDINATE_SYSTEM\n" + card({"1"}) + "*END\n" +
                                    "*DEFINE_COORDINATE_NODES\n" + card({"1", "11", "12", "13"}) + "*END\n");
    EXPECT_EQ(out.accelerometers, accelerometer_banner);
    EXPECT_EQ(out.log, "");
}

TEST_F(Accelerometers, PassGoesOnBehindAnUnknownKeyword)
{
    const Written out =
        convert(accelerometer_keywords, "*ENE\n*DEFINE_COORDINATE_NODES\n" + card({"1", "11", "12", "13"}) + "*END\n");
    EXPECT_EQ(lines_with(out.accelerometers, " Node history"), 1u);
}
