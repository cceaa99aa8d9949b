#include "loading/loading.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
using BoundaryPass = FreshRun;
using BoundaryNonReflecting = FreshRun;
using BoundaryPrescribedMotion = FreshRun;
using BoundarySpc = FreshRun;
using BoundarySphSymmetry = FreshRun;
using BoundarySymmetryFailure = FreshRun;

// ---- the pass

// A block of two cards, and what its keyword leaves: a line that begins so in the main deck or in the log, nothing, or
// the end of the pass.
struct Case {
    std::string_view keyword;
    std::string_view trace;
};
constexpr std::string_view nothing = "nothing";
constexpr std::string_view end_of_pass_here = "end of the pass";
constexpr std::string_view is_skipped = "skipped";

std::string block(std::string_view keyword)
{
    return std::string(keyword) + "\n" + card({"5"}) + card({"6"});
}

void expect_trace(const Case& expected)
{
    SCOPED_TRACE(expected.keyword);
    const Written out = convert(boundary_keywords, block(expected.keyword) + "*LOAD_BEHIND\n*END\n");
    const std::string skip_line = std::string(expected.keyword) + " . . . skipped";
    const std::string recognized_line = std::string(expected.keyword) + " . . . recognized keyword";
    const bool goes_on = lines_equal(out.log, "*LOAD_BEHIND . . . skipped") == 1;
    EXPECT_EQ(goes_on, expected.trace != end_of_pass_here);
    if (expected.trace == nothing) {
        EXPECT_EQ(out.log, "\n*LOAD_BEHIND . . . skipped\n");
        EXPECT_EQ(out.deck, "");
    } else if (expected.trace == end_of_pass_here) {
        EXPECT_EQ(out.log, "");
        EXPECT_EQ(out.deck, "");
    } else if (expected.trace == is_skipped) {
        EXPECT_EQ(out.log, "\n" + skip_line + "\n\n*LOAD_BEHIND . . . skipped\n");
        EXPECT_EQ(out.deck, "");
    } else {
        EXPECT_GE(lines_equal(out.log, recognized_line), 1U);
        EXPECT_EQ(lines_equal(out.log, skip_line), 0U);
        EXPECT_GE(lines_with(out.deck + out.log, expected.trace), 1U);
    }
}

TEST_F(BoundaryPass, EveryRowActsOnItsKeyword)
{
    constexpr Case cases[] = {
        {"*BOUNDARY_NON_REFLECTING_2D", is_skipped},
        {"*BOUNDARY_NON_REFLECTING", " Non-reflecting boundary set:"},
        {"*BOUNDARY_PRESCRIBED_MOTION_RIGID", is_skipped},
        {"*BOUNDARY_PRESCRIBED_MOTION", "       vid:         0"},
        {"*BOUNDARY_PRESCRIBED_MOTION_SET", "!Prescribed motion set:"},
        {"*BOUNDARY_SPC", "no unused variables"},
        {"*BOUNDARY_SPC_SET", " Nodal SPC set:"},
        {"*BOUNDARY_SPH_SYMMETRY_PLANE", " SPH symmetry plane:"},
        {"*BOUNDARY_SYMMETRY_FAILURE", " Symmetry plane with failure set:"},
        {"*BOUNDARY", is_skipped},
        {"*BOUNDARY_CYCLIC", is_skipped},
        {"*DEFINE_BOX_DRAWBEAD", is_skipped},
        {"*DEFINE_BOX", " Box definition:"},
        {"*DEFINE_COORDINATE_NODES", " Local coordinate system nodes:"},
        {"*DEFINE_COORDINATE_SYSTEM", " Local coordinate system:"},
        {"*DEFINE_COORDINATE", end_of_pass_here},
        {"*DEFINE_COORDINATE_VECTOR", end_of_pass_here},
        {"*INITIAL_VELOCITY_KINEMATICS", is_skipped},
        {"*INITIAL_VELOCITY_GENERATION", "     phase: 0.000e+00"},
        {"*INITIAL_VELOCITY_NODE", is_skipped},
        {"*INITIAL_VELOCITY_RIGID_BODY", is_skipped},
        {"*INITIAL_VELOCITY", "    nsidex:         0"},
        {"*INITIAL_DETONATION", " Detonation point definition:"},
        {"*INITIAL", is_skipped},
        {"*INITIAL_STRESS_SHELL", is_skipped},
        {"*LOAD_BLAST", " Blast Load (CONWEP) Definition:"},
        {"*LOAD_NODE", "no unused variables"},
        {"*LOAD_NODE_POINT", " Nodal forces:"},
        {"*LOAD_SEGMENT_SET_NONUNIFORM", is_skipped},
        {"*LOAD_SEGMENT_SET", " Pressure loads set:"},
        {"*LOAD_SEGMENT_NONUNIFORM", is_skipped},
        {"*LOAD_SEGMENT", " Pressure loads:"},
        {"*LOAD", is_skipped},
        {"*LOAD_BODY_Z", is_skipped},
        {"*END", end_of_pass_here},
        {"*ENDING", end_of_pass_here},
    };
    for (const Case& expected : cases) expect_trace(expected);
}

TEST_F(BoundaryPass, AKeywordOneCharacterOffItsRowFallsToTheNextThatMatches)
{
    constexpr Case cases[] = {
        {"*BOUNDARY_NON_REFLECTING_2X", " Non-reflecting boundary set:"},
        {"*BOUNDARY_NON_REFLECTINX", is_skipped},
        {"*BOUNDARY_PRESCRIBED_MOTION_RIGIX", "       vid:         0"},
        {"*BOUNDARY_PRESCRIBED_MOTIOX", is_skipped},
        {"*BOUNDARY_SPX", is_skipped},
        {"*BOUNDARY_SPH_SYMMETRY_PLANX", is_skipped},
        {"*BOUNDARY_SYMMETRY_FAILURX", is_skipped},
        {"*BOUNDARX", nothing},
        {"*DEFINE_BOX_DRAWBEAX", " Box definition:"},
        {"*DEFINE_BOY", nothing},
        {"*DEFINE_COORDINATE_NODEX", end_of_pass_here},
        {"*DEFINE_COORDINATE_SYSTEX", end_of_pass_here},
        {"*DEFINE_COORDINATX", nothing},
        {"*INITIAL_VELOCITY_KINEMATICX", "    nsidex:         0"},
        {"*INITIAL_VELOCITY_GENERATIOX", "    nsidex:         0"},
        {"*INITIAL_VELOCITY_NODX", "    nsidex:         0"},
        {"*INITIAL_VELOCITY_RIGID_BODX", "    nsidex:         0"},
        {"*INITIAL_VELOCITX", is_skipped},
        {"*INITIAL_DETONATIOX", is_skipped},
        {"*INITIAX", nothing},
        {"*LOAD_BLASX", is_skipped},
        {"*LOAD_NODX", is_skipped},
        {"*LOAD_SEGMENT_SET_NONUNIFORX", " Pressure loads set:"},
        {"*LOAD_SEGMENT_SEX", " Pressure loads:"},
        {"*LOAD_SEGMENT_NONUNIFORX", " Pressure loads:"},
        {"*LOAD_SEGMENX", is_skipped},
        {"*LOAX", nothing},
        {"*ENX", nothing},
    };
    for (const Case& expected : cases) expect_trace(expected);
}

TEST_F(BoundaryPass, KeywordsOfOtherSectionsLeaveNoTrace)
{
    for (const std::string_view keyword : {"*PART", "*DEFINE_CURVE", "*CONTACT_AUTOMATIC_GENERAL", "*KEYWORD"})
        expect_trace({keyword, nothing});
}

TEST_F(BoundaryPass, KeywordsAreConvertedInTheDecksOrder)
{
    const Written out = convert(boundary_keywords, "*LOAD_SEGMENT\n" + card({"1"}) + "*boundary_spc_node\n" +
                                                       card({"2"}) + "*DEFINE_BOX\n" + card({"3"}) + "*END\n");
    const std::size_t load = out.deck.find("\n Pressure loads:\n");
    const std::size_t spc = out.deck.find("\n Nodal SPC node:\n");
    const std::size_t box = out.deck.find("\n Box definition:\n");
    ASSERT_NE(box, std::string::npos);
    EXPECT_LT(load, spc);
    EXPECT_LT(spc, box);
}

TEST_F(BoundaryPass, AnotherCoordinateKeywordHidesAllThatStandsBehindIt)
{
    const Written out =
        convert(boundary_keywords, "*BOUNDARY_SPC_NODE\n" + card({"1"}) + "*DEFINE_COORDINATE_VECTOR\n" + card({"1"}) +
                                       "*BOUNDARY_SPC_SET\n" + card({"2"}) + "*END\n");
    EXPECT_EQ(lines_equal(out.deck, " Nodal SPC node:"), 1U);
    EXPECT_EQ(lines_equal(out.deck, " Nodal SPC set:"), 0U);
    EXPECT_EQ(lines_with(out.log, "*DEFINE_COORDINATE_VECTOR"), 0U);
}

// The rest of the one card that counts is no keyword, whatever it holds.
TEST_F(BoundaryPass, ATitledBlockEndsBehindTheLineOfItsCard)
{
    struct Titled {
        std::string_view keyword;
        int cards;
    };
    constexpr Titled blocks[] = {
        {"*BOUNDARY_PRESCRIBED_MOTION_SET_ID", 1},
        {"*BOUNDARY_SPC_NODE_ID", 1},
        {"*DEFINE_BOX_TITLE", 1},
        {"*DEFINE_BOX_SPH_TITLE", 2},
        {"*DEFINE_COORDINATE_NODES_TITLE", 1},
        {"*DEFINE_COORDINATE_SYSTEM_TITLE", 2},
        {"*LOAD_SEGMENT_SET_ID", 1},
        {"*LOAD_SEGMENT_ID", 1},
    };
    for (const Titled& block : blocks) {
        SCOPED_TRACE(block.keyword);
        const std::string deck = std::string(block.keyword) + "\ntitle\n" + (block.cards == 2 ? card({"1"}) : "");
        // a "*" in each column where a field of the card may end
        for (std::size_t columns = 10; columns <= 80; columns += 10) {
            const Written out =
                convert(boundary_keywords, deck + std::string(columns, ' ') + "*LOAD_NO_KEYWORD\n*END\n");
            EXPECT_EQ(lines_with(out.log, "*LOAD_NO_KEYWORD"), 0U);
            EXPECT_EQ(lines_equal(out.log, "ignored title line"), 1U);
        }
    }
}

TEST_F(BoundaryPass, CoordinateNodesLeaveNoTraceWhenTheyAreAccelerometers)
{
    for (const int flag : {1, 2, -1}) {
        accelflag = flag;
        expect_trace({"*DEFINE_COORDINATE_NODES", nothing});
        expect_trace({"*DEFINE_COORDINATE_NODES_TITLE", nothing});
        expect_trace({"*DEFINE_COORDINATE_SYSTEM", " Local coordinate system:"});
    }
}

// ---- *BOUNDARY_NON_REFLECTING

TEST_F(BoundaryNonReflecting, EachCardIsASegmentSetWithItsFlagsLogged)
{
    const Written out = convert_block(bnonreflect, "*BOUNDARY_NON_REFLECTING\n" + card({"12", "1.5", "-2"}) +
                                                       "$ comment\n" + card({"13"}) + "*END\n");
    EXPECT_EQ(out.deck, "\n Non-reflecting boundary set:\n"
                        "!     SSID\n"
                        "        12\n"
                        "\n Non-reflecting boundary set:\n"
                        "!     SSID\n"
                        "        13\n");
    EXPECT_EQ(out.log, "\n*BOUNDARY_NON_REFLECTING . . . recognized keyword\n"
                       "unused variables:\n"
                       "        ad: 1.500e+00\n"
                       "        as:-2.000e+00\n"
                       "\n*BOUNDARY_NON_REFLECTING . . . recognized keyword\n"
                       "unused variables:\n"
                       "        ad: 0.000e+00\n"
                       "        as: 0.000e+00\n");
}

TEST_F(BoundaryNonReflecting, AnEmptyBlockWritesNothing)
{
    const Written out = convert_block(bnonreflect, "*BOUNDARY_NON_REFLECTING\n$ no card\n*END\n");
    EXPECT_EQ(out.deck + out.log, "");
}

// ---- *BOUNDARY_PRESCRIBED_MOTION

constexpr std::string_view blanks_93 =
    "                                                                                             ";
constexpr std::string_view blanks_89 = blanks_93.substr(4);
static_assert(blanks_93.size() == 93);

std::string motion_heads(bool set)
{
    return std::string(set ? "\n!Prescribed motion set:" : "\n!Prescribed motion:")
        .append(set ? blanks_89 : blanks_93)
        .append("!--- opt: Define type\n")
        .append(set ? "!---  nsid" : "!---   nid")
        .append("        opt       lcid        dof         sf         qx         qy         qz    t_start      t_end"
                "   !---      0=velocities\n");
}

TEST_F(BoundaryPrescribedMotion, ANodesMotionIsWrittenAsCommentsWithAFixedEndTime)
{
    const Written out =
        convert_block(bprescribedmotion, "*BOUNDARY_PRESCRIBED_MOTION_NODE\n" +
                                             card({"44", "3", "0", "6", "2.5", "7", "1.0e28", "0.25"}) + "*END\n");
    EXPECT_EQ(out.deck, motion_heads(false) +
                            "!       44          0          6          3  2.500e+00  0.000e+00  0.000e+00  0.000e+00"
                            "  0.000e+00  2.000e-04   !---      1=accelerations\n");
    EXPECT_EQ(out.log, "\n*BOUNDARY_PRESCRIBED_MOTION_NODE . . . recognized keyword\n"
                       "unused variables:\n"
                       "       vid:         7\n"
                       "     death: 1.000e+28\n"
                       "     birth: 2.500e-01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(BoundaryPrescribedMotion, EachCardOfASetBlockIsAMotion)
{
    const Written out =
        convert_block(bprescribedmotion, "*BOUNDARY_PRESCRIBED_MOTION_SET\n" + card({"1", "1", "1", "2"}) +
                                             card({"3", "2", "0", "4", "-1"}) + "*END\n");
    EXPECT_EQ(out.deck, motion_heads(true) +
                            "!        1          1          2          1  0.000e+00  0.000e+00  0.000e+00  0.000e+00"
                            "  0.000e+00  2.000e-04   !---      1=accelerations\n" +
                            motion_heads(true) +
                            "!        3          0          4          2 -1.000e+00  0.000e+00  0.000e+00  0.000e+00"
                            "  0.000e+00  2.000e-04   !---      1=accelerations\n");
}

TEST_F(BoundaryPrescribedMotion, AnOffsetDirectionHasASecondCardWhichIsLogged)
{
    const Written out = convert_block(
        bprescribedmotion, "*BOUNDARY_PRESCRIBED_MOTION_SET\n" + card({"1", "9", "0", "2"}) + "$ comment\n" +
                               card({"0.5", "-0.5", "21", "22", "23"}) + card({"5", "1", "0", "2"}) + "*END\n");
    EXPECT_EQ(lines_equal(out.deck, motion_heads(true).substr(1, motion_heads(true).find('\n', 1) - 1)), 2U);
    EXPECT_EQ(out.log, "\n*BOUNDARY_PRESCRIBED_MOTION_SET . . . recognized keyword\n"
                       "unused variables:\n"
                       "       vid:         0\n"
                       "     death: 0.000e+00\n"
                       "     birth: 0.000e+00\n"
                       "   offset1: 5.000e-01\n"
                       "   offset2:-5.000e-01\n"
                       "       mrb:        21\n"
                       "     node1:        22\n"
                       "     node2:        23\n"
                       "\n*BOUNDARY_PRESCRIBED_MOTION_SET . . . recognized keyword\n"
                       "unused variables:\n"
                       "       vid:         0\n"
                       "     death: 0.000e+00\n"
                       "     birth: 0.000e+00\n");
}

TEST_F(BoundaryPrescribedMotion, DirectionsUpToEightHaveOneCard)
{
    for (const std::string_view dof : {"8", "-9"}) {
        const Written out = convert_block(bprescribedmotion, "*BOUNDARY_PRESCRIBED_MOTION_SET\n" + card({"1", dof}) +
                                                                 card({"2", dof}) + "*END\n");
        EXPECT_EQ(lines_with(out.deck, "!Prescribed motion set:"), 2U);
        EXPECT_EQ(lines_with(out.log, "   offset1:"), 0U);
    }
}

TEST_F(BoundaryPrescribedMotion, ADisplacementIsRefusedAndTheNextCardConverted)
{
    const Written out =
        convert_block(bprescribedmotion, "*BOUNDARY_PRESCRIBED_MOTION_NODE\n" + card({"1", "1", "2", "3"}) +
                                             card({"2", "1", "3", "3"}) + card({"3", "1", "1", "3"}) + "*END\n");
    EXPECT_EQ(out.deck, motion_heads(false) +
                            "!        3          1          3          1  0.000e+00  0.000e+00  0.000e+00  0.000e+00"
                            "  0.000e+00  2.000e-04   !---      1=accelerations\n");
    const std::string refusal = "\nWarning: vad for prescribed motion must be less than 2\n"
                                "Skipping *BOUNDARY_PRESCRIBED_MOTION_NODE\n";
    EXPECT_EQ(out.terminal, refusal + refusal);
    EXPECT_EQ(out.log, "\n*BOUNDARY_PRESCRIBED_MOTION_NODE . . . skipped\n"
                       "\n*BOUNDARY_PRESCRIBED_MOTION_NODE . . . skipped\n"
                       "\n*BOUNDARY_PRESCRIBED_MOTION_NODE . . . recognized keyword\n"
                       "unused variables:\n"
                       "       vid:         0\n"
                       "     death: 0.000e+00\n"
                       "     birth: 0.000e+00\n");
}

TEST_F(BoundaryPrescribedMotion, VadFromFourOnHasASecondCardWhichIsRefusedToo)
{
    for (const std::string_view vad : {"4", "5"}) {
        const Written out =
            convert_block(bprescribedmotion, "*BOUNDARY_PRESCRIBED_MOTION_NODE\n" + card({"1", "1", vad}) +
                                                 card({"9", "9", "9"}) + card({"77", "1"}) + "*END\n");
        EXPECT_EQ(out.log, "\n*BOUNDARY_PRESCRIBED_MOTION_NODE . . . skipped\n"
                           "\n*BOUNDARY_PRESCRIBED_MOTION_NODE . . . recognized keyword\n"
                           "unused variables:\n"
                           "       vid:         0\n"
                           "     death: 0.000e+00\n"
                           "     birth: 0.000e+00\n");
        EXPECT_EQ(lines_with(out.deck, "!       77"), 1U);
        EXPECT_EQ(lines_with(out.deck, "!Prescribed motion:"), 1U);
    }
}

TEST_F(BoundaryPrescribedMotion, AnIdBlockConvertsOnlyItsFirstCard)
{
    for (const std::string_view kind : {"NODE", "SET"}) {
        const std::string keyword = "*BOUNDARY_PRESCRIBED_MOTION_" + std::string(kind) + "_ID";
        const Written out =
            convert(boundary_keywords, keyword + "\n" + card({"99", "title"}) + card({"1", "1", "1", "1"}) +
                                           card({"2", "1", "1", "1"}) + "*LOAD_BEHIND\n*END\n");
        EXPECT_EQ(lines_with(out.deck, "!Prescribed motion"), 1U);
        EXPECT_EQ(lines_with(out.deck, "!        1          1          1          1"), 1U);
        EXPECT_EQ(out.log, "\n" + keyword +
                               " . . . recognized keyword\n"
                               "ignored title line\n"
                               "unused variables:\n"
                               "       vid:         0\n"
                               "     death: 0.000e+00\n"
                               "     birth: 0.000e+00\n"
                               "\n*LOAD_BEHIND . . . skipped\n");
    }
}

TEST_F(BoundaryPrescribedMotion, ARefusedCardIsTheOneCardOfAnIdBlock)
{
    const Written out = convert_block(bprescribedmotion, "*BOUNDARY_PRESCRIBED_MOTION_SET_ID\ntitle\n" +
                                                             card({"1", "1", "2"}) + card({"2", "1", "0"}) + "*END\n");
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(out.log, "\n*BOUNDARY_PRESCRIBED_MOTION_SET_ID . . . skipped\n");
    EXPECT_EQ(out.terminal, "\nWarning: vad for prescribed motion must be less than 2\n"
                            "Skipping *BOUNDARY_PRESCRIBED_MOTION_SET_ID\n");
}

TEST_F(BoundaryPrescribedMotion, NeitherNodeNorSetIsLoggedAndNotWritten)
{
    const Written out = convert_block(bprescribedmotion, "*BOUNDARY_PRESCRIBED_MOTION_POINT\n" + card({"1", "1"}) +
                                                             card({"2", "1"}) + "*END\n");
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(lines_equal(out.log, "*BOUNDARY_PRESCRIBED_MOTION_POINT . . . recognized keyword"), 2U);
    EXPECT_EQ(lines_with(out.log, "       vid:"), 2U);
}

// ---- *BOUNDARY_SPC

TEST_F(BoundarySpc, EachCardOfASetBlockIsAGroup)
{
    const Written out = convert_block(bspc, "*BOUNDARY_SPC_SET\n" + card({"7", "2", "1", "0", "1", "0", "1", "0"}) +
                                                card({"8", "0", "1"}) + "*END\n");
    const std::string heads =
        "\n Nodal SPC set:\n"
        "!     nsid       csid         tx         ty         tz         rx         ry         rz\n";
    EXPECT_EQ(out.deck,
              heads + "         7          2          1          0          1          0          1          0\n" +
                  heads + "         8          0          1          0          0          0          0          0\n");
    EXPECT_EQ(out.log, "\n*BOUNDARY_SPC_SET . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*BOUNDARY_SPC_SET . . . recognized keyword\n"
                       "no unused variables\n");
}

TEST_F(BoundarySpc, ANodeBlockNamesItsNodes)
{
    const Written out =
        convert_block(bspc, "*BOUNDARY_SPC_NODE\n" + card({"100", "0", "1", "2", "3", "4", "5", "6"}) + "*END\n");
    EXPECT_EQ(out.deck, "\n Nodal SPC node:\n"
                        "!      nid       csid         tx         ty         tz         rx         ry         rz\n"
                        "       100          0          1          2          3          4          5          6\n");
}

TEST_F(BoundarySpc, AnIdBlockConvertsOnlyItsFirstCard)
{
    for (const std::string_view kind : {"SET", "NODE"}) {
        const std::string keyword = "*BOUNDARY_SPC_" + std::string(kind) + "_ID";
        const Written out = convert(boundary_keywords, keyword + "\n$ comment\ntitle\n" + card({"7"}) + card({"8"}) +
                                                           "*LOAD_BEHIND\n*END\n");
        EXPECT_EQ(lines_with(out.deck, " Nodal SPC"), 1U);
        EXPECT_EQ(lines_with(out.deck, "         7          0"), 1U);
        EXPECT_EQ(out.log, "\n" + keyword +
                               " . . . recognized keyword\n"
                               "ignored title line\n"
                               "no unused variables\n"
                               "\n*LOAD_BEHIND . . . skipped\n");
    }
}

TEST_F(BoundarySpc, ATitleWithNothingBehindItConvertsNothing)
{
    const Written out = convert(boundary_keywords, "*BOUNDARY_SPC_SET_ID\ntitle\n*LOAD_BEHIND\n*END\n");
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(out.log, "\n*LOAD_BEHIND . . . skipped\n");
}

TEST_F(BoundarySpc, AMissingTitleTakesTheNextKeywordLineForIt)
{
    const Written out =
        convert(boundary_keywords, "*BOUNDARY_SPC_SET_ID\n*BOUNDARY_SPC_NODE\n" + card({"7"}) + card({"8"}) + "*END\n");
    EXPECT_EQ(lines_with(out.deck, " Nodal SPC set:"), 1U);
    EXPECT_EQ(lines_with(out.deck, " Nodal SPC node:"), 0U);
}

TEST_F(BoundarySpc, ABlankLineIsACardOfZeros)
{
    const Written out = convert_block(bspc, "*BOUNDARY_SPC_NODE\n\n*END\n");
    EXPECT_EQ(lines_equal(out.deck,
                          "         0          0          0          0          0          0          0          0"),
              1U);
}

TEST_F(BoundarySpc, NeitherNodeNorSetIsLoggedAndNotWritten)
{
    const Written out = convert_block(bspc, "*BOUNDARY_SPC_SEQ\n" + card({"7"}) + card({"8"}) + "*END\n");
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(lines_equal(out.log, "*BOUNDARY_SPC_SEQ . . . recognized keyword"), 2U);
    EXPECT_EQ(lines_equal(out.log, "no unused variables"), 2U);
}

// ---- symmetry planes

TEST_F(BoundarySphSymmetry, EachCardIsAPlaneByTwoPoints)
{
    const Written out =
        convert_block(bsphsym, "*BOUNDARY_SPH_SYMMETRY_PLANE\n" + card({"1", "-2", "3", "4.5", "5e10", "0.001"}) +
                                   card({"1"}) + "*END\n");
    const std::string heads = "\n SPH symmetry plane:\n"
                              "!       px         py         pz         qx         qy         qz\n";
    EXPECT_EQ(out.deck, heads + " 1.000e+00 -2.000e+00  3.000e+00  4.500e+00  5.000e+10  1.000e-03\n" + heads +
                            " 1.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*BOUNDARY_SPH_SYMMETRY_PLANE . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*BOUNDARY_SPH_SYMMETRY_PLANE . . . recognized keyword\n"
                       "no unused variables\n");
}

TEST_F(BoundarySymmetryFailure, TheFailureStressMovesToTheLastColumn)
{
    const Written out =
        convert_block(bsymwfail, "*BOUNDARY_SYMMETRY_FAILURE\n" + card({"9", "700", "1", "2", "3", "4", "5", "6"}) +
                                     card({"10"}) + "*END\n");
    const std::string heads =
        "\n Symmetry plane with failure set:\n"
        "!     ssid         px         py         pz         qx         qy         qz   sigmfail\n";
    EXPECT_EQ(out.deck,
              heads + "         9  1.000e+00  2.000e+00  3.000e+00  4.000e+00  5.000e+00  6.000e+00  7.000e+02\n" +
                  heads + "        10  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*BOUNDARY_SYMMETRY_FAILURE . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*BOUNDARY_SYMMETRY_FAILURE . . . recognized keyword\n"
                       "no unused variables\n");
}
}  // namespace
