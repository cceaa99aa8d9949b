#include "loading/loading.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
using InitialVelocity = FreshRun;
using InitialVelocityGeneration = FreshRun;
using InitialDetonation = FreshRun;

const std::string velocity_heads =
    "\n Initial velocity definition:\n"
    "!       id       styp         vx         vy         vz      omega       !--- styp: Define type of ID\n";
const std::string axis_heads =
    "!       px         py         pz         qx         qy         qz       !---       1=Part Set ID\n";
const std::string no_axis =
    " 0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00       !---       2=Part ID\n";

TEST_F(InitialVelocity, ANodeSetMovesWithoutTurning)
{
    const Written out =
        convert_block(ivelocity, "*INITIAL_VELOCITY\n" + card({"5"}) + "$ comment\n" +
                                     card({"100.0", "-2", "3", "4", "5", "6"}) + card({"6"}) + card({"1"}) + "*END\n");
    EXPECT_EQ(out.deck,
              velocity_heads +
                  "         5          0  1.000e+02 -2.000e+00  3.000e+00  0.000e+00       !---       0=Node Set ID\n" +
                  axis_heads + no_axis + velocity_heads +
                  "         6          0  1.000e+00  0.000e+00  0.000e+00  0.000e+00       !---       0=Node Set ID\n" +
                  axis_heads + no_axis);
    EXPECT_EQ(out.log, "\n*INITIAL_VELOCITY . . . recognized keyword\n"
                       "unused variables:\n"
                       "    nsidex:         0\n"
                       "     boxid:         0\n"
                       "    irigid:         0\n"
                       "       vxr: 4.000e+00\n"
                       "       vyr: 5.000e+00\n"
                       "       vzr: 6.000e+00\n"
                       "\n*INITIAL_VELOCITY . . . recognized keyword\n"
                       "unused variables:\n"
                       "    nsidex:         0\n"
                       "     boxid:         0\n"
                       "    irigid:         0\n"
                       "       vxr: 0.000e+00\n"
                       "       vyr: 0.000e+00\n"
                       "       vzr: 0.000e+00\n");
    EXPECT_EQ(out.terminal, "");
}

constexpr std::string_view options_warning =
    "\nWarning: The boxid, nsidex, and irigid options are not available on the\n"
    "*INITIAL_VELOCITY card.  This keyword is being skipped.\n";

TEST_F(InitialVelocity, AnyOptionSkipsItsGroupAlone)
{
    // boxid, irigid, a negative nsidex: groups of two cards
    for (const std::string& first : {card({"5", "", "3"}), card({"5", "0", "0", "1"}), card({"5", "-2"})}) {
        const Written out = convert_block(ivelocity, "*INITIAL_VELOCITY\n" + first + card({"100.0"}) + card({"6"}) +
                                                         card({"1"}) + "*END\n");
        EXPECT_EQ(
            out.deck,
            velocity_heads +
                "         6          0  1.000e+00  0.000e+00  0.000e+00  0.000e+00       !---       0=Node Set ID\n" +
                axis_heads + no_axis);
        EXPECT_EQ(out.terminal, options_warning);
        EXPECT_TRUE(
            out.log.starts_with("\n*INITIAL_VELOCITY . . . skipped\n\n*INITIAL_VELOCITY . . . recognized keyword\n"));
    }
}

TEST_F(InitialVelocity, ExemptedNodesHaveAThirdCard)
{
    const Written out = convert_block(ivelocity, "*INITIAL_VELOCITY\n" + card({"5", "2"}) + card({"1"}) + card({"8"}) +
                                                     card({"6"}) + card({"1"}) + "*END\n");
    EXPECT_EQ(lines_with(out.deck, " Initial velocity definition:"), 1U);
    EXPECT_EQ(lines_with(out.deck, "         6          0  1.000e+00"), 1U);
    EXPECT_EQ(out.terminal, options_warning);
    EXPECT_EQ(lines_equal(out.log, "*INITIAL_VELOCITY . . . skipped"), 1U);
}

TEST_F(InitialVelocityGeneration, VelocityAndAxisAreWrittenAsRead)
{
    const Written out =
        convert_block(ivelogen, "*INITIAL_VELOCITY_GENERATION\n" + card({"4", "2", "10", "1", "2", "3", "7"}) +
                                    card({"0.5", "0.25", "-0.5", "0", "0", "2", "1.5"}) + "*END\n");
    EXPECT_EQ(out.deck,
              velocity_heads +
                  "         4          2  1.000e+00  2.000e+00  3.000e+00  1.000e+01       !---       0=Node Set ID\n" +
                  axis_heads +
                  " 5.000e-01  2.500e-01 -5.000e-01  0.000e+00  0.000e+00  2.000e+00       !---       2=Part ID\n");
    EXPECT_EQ(out.log, "\n*INITIAL_VELOCITY_GENERATION . . . recognized keyword\n"
                       "unused variables:\n"
                       "     phase: 1.500e+00\n");
}

TEST_F(InitialVelocityGeneration, TheTypeIsMappedWhereItDiffers)
{
    struct Mapping {
        std::string_view read;
        std::string_view written;
    };
    for (const auto& [read, written] :
         {Mapping{"0", "0"}, Mapping{"1", "1"}, Mapping{"2", "2"}, Mapping{"3", "0"}, Mapping{"4", "4"}}) {
        const Written out =
            convert_block(ivelogen, "*INITIAL_VELOCITY_GENERATION\n" + card({"4", read}) + card({"0"}) + "*END\n");
        EXPECT_EQ(lines_with(out.deck, "         4          " + std::string(written) + "  0.000e+00"), 1U);
    }
}

TEST_F(InitialVelocityGeneration, EachPairOfCardsIsAGroup)
{
    const Written out = convert_block(ivelogen, "*INITIAL_VELOCITY_GENERATION\n" + card({"4", "1"}) + card({"1"}) +
                                                    card({"5", "1"}) + card({"1"}) + "*END\n");
    EXPECT_EQ(lines_equal(out.deck, " Initial velocity definition:"), 2U);
    EXPECT_EQ(lines_equal(out.log, "     phase: 0.000e+00"), 2U);
}

const std::string detonation_heads = "\n Detonation point definition:\n"
                                     "!      mid         dx         dy         dz      dtime\n";

TEST_F(InitialDetonation, EachCardIsAPoint)
{
    const Written out =
        convert_block(idetonat, "*INITIAL_DETONATION\n" + card({"3", "1", "-2", "3", "1e-5"}) + card({"0"}) + "*END\n");
    EXPECT_EQ(out.deck, detonation_heads + "         3  1.000e+00 -2.000e+00  3.000e+00  1.000e-05\n" +
                            detonation_heads + "         0  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*INITIAL_DETONATION . . . recognized keyword\n"
                       "no unused variables\n"
                       "\n*INITIAL_DETONATION . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(InitialDetonation, AnAcousticBoundaryHasASecondCardAndBecomesPartZero)
{
    const Written out =
        convert_block(idetonat, "*INITIAL_DETONATION\n" + card({"-1", "1", "2", "3", "4"}) +
                                    card({"11", "12", "13", "14", "15", "16"}) + card({"7"}) + "*END\n");
    EXPECT_EQ(out.deck, detonation_heads + "         0  1.000e+00  2.000e+00  3.000e+00  4.000e+00\n" +
                            detonation_heads + "         7  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n");
    EXPECT_EQ(out.log, "\n*INITIAL_DETONATION . . . recognized keyword\n"
                       "unused variables:\n"
                       "       pid:        -1 . . . Changed to 0 for Kestrune input\n"
                       "      peak: 1.100e+01\n"
                       "     decay: 1.200e+01\n"
                       "        xs: 1.300e+01\n"
                       "        ys: 1.400e+01\n"
                       "        zs: 1.500e+01\n"
                       "       nid:        16\n"
                       "\n*INITIAL_DETONATION . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "\nWarning: pid = -1 is not available for detonation point in Kestrune\n"
                            "Changing pid to 0\n");
}
}  // namespace
