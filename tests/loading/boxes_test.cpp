#include "loading/loading.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
using DefineBox = FreshRun;
using CoordinateNodes = FreshRun;
using CoordinateSystem = FreshRun;

const std::string box_heads = "\n Box definition:\n"
                              "!     bvid       xmin       xmax       ymin       ymax       zmin       zmax\n";

TEST_F(DefineBox, EachCardIsABox)
{
    const Written out = convert_block(definebox, "*DEFINE_BOX\n" + card({"7", "-1", "1", "-2", "2", "-3.5", "3.5"}) +
                                                     card({"8"}) + "*END\n");
    EXPECT_EQ(out.deck, box_heads + "         7 -1.000e+00  1.000e+00 -2.000e+00  2.000e+00 -3.500e+00  3.500e+00\n" +
                            box_heads +
                            "         8  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*DEFINE_BOX . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*DEFINE_BOX . . . recognized keyword\n"
                       "no unused variables\n");
}

TEST_F(DefineBox, TheAdaptiveFormHasASecondCardWhichIsLogged)
{
    const Written out =
        convert_block(definebox, "*DEFINE_BOX_ADAPTIVE\n" + card({"7", "1", "2", "3", "4", "5", "6", "99"}) +
                                     card({"11", "3"}) + card({"8", "1"}) + card({"12", "4"}) + "*END\n");
    EXPECT_EQ(out.deck, box_heads + "         7  1.000e+00  2.000e+00  3.000e+00  4.000e+00  5.000e+00  6.000e+00\n" +
                            box_heads +
                            "         8  1.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*DEFINE_BOX_ADAPTIVE . . . recognized keyword\n"
                       "unused variables:\n"
                       "       pid:        11\n"
                       "     level:         3\n"
                       "\n*DEFINE_BOX_ADAPTIVE . . . recognized keyword\n"
                       "unused variables:\n"
                       "       pid:        12\n"
                       "     level:         4\n");
}

TEST_F(DefineBox, TheCoarsenFormHasOneCardAndAFlag)
{
    const Written out =
        convert_block(definebox, "*DEFINE_BOX_COARSEN\n" + card({"7", "1", "2", "3", "4", "5", "6", "1"}) +
                                     card({"8", "1", "2", "3", "4", "5", "6", "0"}) + "*END\n");
    EXPECT_EQ(lines_equal(out.deck, " Box definition:"), 2U);
    EXPECT_EQ(out.log, "\n*DEFINE_BOX_COARSEN . . . recognized keyword\n"
                       "unused variables:\n"
                       "     iflag:         1\n"
                       "\n*DEFINE_BOX_COARSEN . . . recognized keyword\n"
                       "unused variables:\n"
                       "     iflag:         0\n");
}

TEST_F(DefineBox, TheSphFormHasASecondCardWhichIsLogged)
{
    const Written out = convert_block(definebox, "*DEFINE_BOX_SPH\n" + card({"7", "1", "2", "3", "4", "5", "6", "21"}) +
                                                     "$ comment\n" + card({"22", "23"}) + "*END\n");
    EXPECT_EQ(out.deck, box_heads + "         7  1.000e+00  2.000e+00  3.000e+00  4.000e+00  5.000e+00  6.000e+00\n");
    EXPECT_EQ(out.log, "\n*DEFINE_BOX_SPH . . . recognized keyword\n"
                       "unused variables:\n"
                       "       vid:        21\n"
                       "      lcid:        22\n"
                       "        vd:        23\n");
}

TEST_F(DefineBox, ATitleIsDroppedAndOnlyTheFirstBoxConverted)
{
    struct Form {
        std::string_view keyword;
        std::string_view unused;
    };
    constexpr Form forms[] = {
        {"*DEFINE_BOX_TITLE", "no unused variables\n"},
        {"*DEFINE_BOX_ADAPTIVE_TITLE", "unused variables:\n       pid:         8\n     level:         0\n"},
        {"*DEFINE_BOX_COARSEN_TITLE", "unused variables:\n     iflag:         0\n"},
        {"*DEFINE_BOX_SPH_TITLE",
         "unused variables:\n       vid:         0\n      lcid:         8\n        vd:         0\n"},
    };
    for (const Form& form : forms) {
        const std::string keyword{form.keyword};
        const Written out = convert(boundary_keywords, keyword + "\nfirst box\n" + card({"7"}) + card({"8"}) +
                                                           card({"9"}) + card({"10"}) + "*LOAD_BEHIND\n*END\n");
        EXPECT_EQ(out.deck,
                  box_heads + "         7  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n");
        EXPECT_EQ(out.log, "\n" + keyword + " . . . recognized keyword\nignored title line\n" +
                               std::string(form.unused) + "\n*LOAD_BEHIND . . . skipped\n");
    }
}

TEST_F(DefineBox, AnotherOptionIsReadAsAPlainBox)
{
    const Written out = convert_block(definebox, "*DEFINE_BOX_LOCAL\n" + card({"7"}) + card({"8"}) + "*END\n");
    EXPECT_EQ(lines_equal(out.deck, " Box definition:"), 2U);
    EXPECT_EQ(lines_equal(out.log, "no unused variables"), 2U);
    EXPECT_EQ(lines_equal(out.log, "ignored title line"), 0U);
}

const std::string nodes_heads = "\n Local coordinate system nodes:\n"
                                "!     csid         n1         n2         n3\n";

TEST_F(CoordinateNodes, EachCardIsASystemWithItsDirectionLoggedAsText)
{
    const Written out =
        convert_block(definecoordnodes, "*DEFINE_COORDINATE_NODES\n" + card({"5", "11", "12", "13", "1", "Z"}) +
                                            card({"6", "21", "22", "23"}) + "*END\n");
    EXPECT_EQ(out.deck, nodes_heads + "         5         11         12         13\n" + nodes_heads +
                            "         6         21         22         23\n");
    EXPECT_EQ(out.log, "\n*DEFINE_COORDINATE_NODES . . . recognized keyword\n"
                       "unused variables:\n"
                       "      flag:         1\n"
                       "       dir:         Z\n"
                       "\n*DEFINE_COORDINATE_NODES . . . recognized keyword\n"
                       "unused variables:\n"
                       "      flag:         0\n"
                       "       dir:         0\n");
}

TEST_F(CoordinateNodes, ATitleIsDroppedAndOnlyTheFirstSystemConverted)
{
    const Written out =
        convert(boundary_keywords, "*DEFINE_COORDINATE_NODES_TITLE\nframe\n" + card({"5", "11", "12", "13"}) +
                                       card({"6", "21", "22", "23"}) + "*LOAD_BEHIND\n*END\n");
    EXPECT_EQ(out.deck, nodes_heads + "         5         11         12         13\n");
    EXPECT_EQ(out.log, "\n*DEFINE_COORDINATE_NODES_TITLE . . . recognized keyword\n"
                       "ignored title line\n"
                       "unused variables:\n"
                       "      flag:         0\n"
                       "       dir:         0\n"
                       "\n*LOAD_BEHIND . . . skipped\n");
}

const std::string system_heads =
    "\n Local coordinate system:\n"
    "!     csid         ox         oy         oz         px         py         pz         qx         qy         qz\n";

TEST_F(CoordinateSystem, OriginAxisAndPlanePointsStandInThatOrder)
{
    const Written out = convert_block(definecoordsystem,
                                      "*DEFINE_COORDINATE_SYSTEM\n" + card({"3", "0", "0", "0", "1", "0", "0", "9"}) +
                                          "$ comment\n" + card({"0", "1", "0"}) +
                                          card({"4", "1", "2", "3", "4", "5", "6"}) + card({"7", "8", "9"}) + "*END\n");
    EXPECT_EQ(out.deck, system_heads +
                            "         3  0.000e+00  0.000e+00  0.000e+00  1.000e+00  0.000e+00  0.000e+00"
                            "  0.000e+00  1.000e+00  0.000e+00\n" +
                            system_heads +
                            "         4  1.000e+00  2.000e+00  3.000e+00  4.000e+00  5.000e+00  6.000e+00"
                            "  7.000e+00  8.000e+00  9.000e+00\n");
    EXPECT_EQ(out.log, "\n*DEFINE_COORDINATE_SYSTEM . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*DEFINE_COORDINATE_SYSTEM . . . recognized keyword\n"
                       "no unused variables\n");
}

TEST_F(CoordinateSystem, ATitleIsDroppedAndOnlyTheFirstSystemConverted)
{
    const Written out =
        convert(boundary_keywords, "*DEFINE_COORDINATE_SYSTEM_TITLE\nframe\n" + card({"3", "1"}) + card({"2"}) +
                                       card({"4"}) + card({"5"}) + "*LOAD_BEHIND\n*END\n");
    EXPECT_EQ(out.deck, system_heads + "         3  1.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00"
                                       "  2.000e+00  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*DEFINE_COORDINATE_SYSTEM_TITLE . . . recognized keyword\n"
                       "ignored title line\n"
                       "no unused variables\n"
                       "\n*LOAD_BEHIND . . . skipped\n");
}

TEST_F(CoordinateSystem, AMissingSecondCardTakesTheNextKeywordLineForIt)
{
    const Written out = convert(boundary_keywords,
                                "*DEFINE_COORDINATE_SYSTEM\n" + card({"3", "1"}) + "*LOAD_FIRST\n*LOAD_SECOND\n*END\n");
    EXPECT_EQ(lines_with(out.deck, "         3  1.000e+00"), 1U);
    EXPECT_EQ(lines_with(out.log, "*LOAD_FIRST"), 0U);
    EXPECT_EQ(lines_with(out.log, "*LOAD_SECOND"), 1U);
}
}  // namespace
