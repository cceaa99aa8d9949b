#include "support/material_lines.h"

namespace
{
using LinearPolynomial = FreshRun;
using Jwl = FreshRun;
using Gruneisen = FreshRun;
using IgnitionAndGrowth = FreshRun;

TEST_F(LinearPolynomial, RelativeVolumeIsAlwaysOne)
{
    const Written out = convert_block(
        eoslinearpoly, "*EOS_LINEAR_POLYNOMIAL_TITLE\n"
                       "water\n"
                       "   WATER-1        12        13        14        15        16        17        18\n"
                       "        21        22\n"
                       "*END\n");
    EXPECT_EQ(out.deck, eos_header +
                            " EOS definition:         WATER-1          1                    water\n"
                            "!       c0         c1         c2         c3         c4         c5         c6         e0\n"
                            " 1.200e+01  1.300e+01  1.400e+01  1.500e+01  1.600e+01  1.700e+01  1.800e+01  2.100e+01\n"
                            "!       v0\n"
                            " 1.000e+00\n");
    EXPECT_EQ(out.log, "\n"
                       "*EOS_LINEAR_POLYNOMIAL_TITLE . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(LinearPolynomial, WithoutATitleHasTheDefaultTitle)
{
    const Written out = convert_block(eoslinearpoly, "*EOS_LINEAR_POLYNOMIAL\n"
                                                     "         7\n"
                                                     "        21        22\n"
                                                     "*END\n");
    EXPECT_EQ(line_with(out.deck, " EOS"), " EOS definition:               7          1     Linear Polynomial     ");
}

TEST_F(Jwl, WritesOneGroup)
{
    const Written out =
        convert_block(eosjwl, "*EOS_JWL\n"
                              "         7        12        13        14        15        16        17        18\n"
                              "*END\n");
    EXPECT_EQ(out.deck,
              eos_header + " EOS definition:               7          2      JWL                \n"
                           "!        a          b         r1         r2      omega         e0         v0      blank\n"
                           " 1.200e+01  1.300e+01  1.400e+01  1.500e+01  1.600e+01  1.700e+01  1.800e+01          0\n");
    EXPECT_EQ(out.log, "\n"
                       "*EOS_JWL . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Jwl, BlankRelativeVolumeIsZero)
{
    const Written out = convert_block(eosjwl, "*EOS_JWL_TITLE\n"
                                              "TNT\n"
                                              "         7        12        13        14        15        16        17\n"
                                              "*END\n");
    EXPECT_EQ(out.deck,
              eos_header + " EOS definition:               7          2                      TNT\n"
                           "!        a          b         r1         r2      omega         e0         v0      blank\n"
                           " 1.200e+01  1.300e+01  1.400e+01  1.500e+01  1.600e+01  1.700e+01  0.000e+00          0\n");
    EXPECT_EQ(out.log, "\n"
                       "*EOS_JWL_TITLE . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Gruneisen, TakesTheRelativeVolumeFromCardTwo)
{
    const Written out =
        convert_block(eosmgrun, "*EOS_GRUNEISEN\n"
                                "         7        12        13        14        15        16        17        18\n"
                                "        21\n"
                                "*END\n");
    EXPECT_EQ(out.deck,
              eos_header + " EOS definition:               7          4       Mie Gruneisen     \n"
                           "!        C         s1         s2         s3      gamma          a         e0         v0\n"
                           " 1.200e+01  1.300e+01  1.400e+01  1.500e+01  1.600e+01  1.700e+01  1.800e+01  2.100e+01\n");
    EXPECT_EQ(out.log, "\n"
                       "*EOS_GRUNEISEN . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Gruneisen, TitleFormHasItsTitle)
{
    const Written out = convert_block(eosmgrun, "*EOS_GRUNEISEN_TITLE\n"
                                                "steel\n"
                                                "         7\n"
                                                "        21\n"
                                                "*END\n");
    EXPECT_EQ(line_with(out.deck, " EOS"), " EOS definition:               7          4                    steel");
}

TEST_F(IgnitionAndGrowth, WritesSixGroupsWithTwoQuotients)
{
    const Written out =
        convert_block(eosigrb, "*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE\n"
                               "         7        12        13        14        15        16        17        18\n"
                               "        21        22        23        24        25        26        27        28\n"
                               "        31        32      34.0      44.0        35        36        37        38\n"
                               "        41        42        43        44        45        46\n"
                               "*END\n");
    EXPECT_EQ(out.deck,
              eos_header + " EOS definition:               7          7      Ignition and Growth\n"
                           "!       ae         be        r1e        r2e         we        cve      blank      blank\n"
                           " 1.800e+01  2.100e+01  2.300e+01  2.400e+01  5.000e-01  4.400e+01          0          0\n"
                           "!       ap         bp        r1p        r2p         wp        cvp      blank      blank\n"
                           " 1.200e+01  1.300e+01  1.400e+01  1.500e+01  5.000e-01  3.400e+01          0          0\n"
                           "!        I          a          b          x     Figmax      blank      blank      blank\n"
                           " 2.600e+01  3.600e+01  1.600e+01  3.500e+01  2.500e+01          0          0          0\n"
                           "!       G1          c          d          y     FG1max      blank      blank      blank\n"
                           " 2.700e+01  3.200e+01  3.100e+01  2.800e+01  4.500e+01          0          0          0\n"
                           "!       G2          e          g          z     FG2max      blank      blank      blank\n"
                           " 4.100e+01  4.300e+01  4.200e+01  4.400e+01  4.600e+01          0          0          0\n"
                           "!      enq      temp0     switch      blank      blank      blank      blank      blank\n"
                           " 3.700e+01  3.800e+01          0          0          0          0          0          0\n");
    EXPECT_EQ(out.log, "\n"
                       "*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(IgnitionAndGrowth, BlankHeatCapacitiesGiveNonFiniteQuotients)
{
    const Written out =
        convert_block(eosigrb, "*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE_TITLE\n"
                               "PBX\n"
                               "         7        12        13        14        15        16        17        18\n"
                               "        21                  23        24        25        26        27        28\n"
                               "        31        32                            35        36        37        38\n"
                               "        41        42        43        44        45        46\n"
                               "*END\n");
    EXPECT_EQ(out.deck,
              eos_header + " EOS definition:               7          7                      PBX\n"
                           "!       ae         be        r1e        r2e         we        cve      blank      blank\n"
                           " 1.800e+01  2.100e+01  2.300e+01  2.400e+01       -nan  0.000e+00          0          0\n"
                           "!       ap         bp        r1p        r2p         wp        cvp      blank      blank\n"
                           " 1.200e+01  1.300e+01  1.400e+01  1.500e+01        inf  0.000e+00          0          0\n"
                           "!        I          a          b          x     Figmax      blank      blank      blank\n"
                           " 2.600e+01  3.600e+01  1.600e+01  3.500e+01  2.500e+01          0          0          0\n"
                           "!       G1          c          d          y     FG1max      blank      blank      blank\n"
                           " 2.700e+01  3.200e+01  3.100e+01  2.800e+01  4.500e+01          0          0          0\n"
                           "!       G2          e          g          z     FG2max      blank      blank      blank\n"
                           " 4.100e+01  4.300e+01  4.200e+01  4.400e+01  4.600e+01          0          0          0\n"
                           "!      enq      temp0     switch      blank      blank      blank      blank      blank\n"
                           " 3.700e+01  3.800e+01          0          0          0          0          0          0\n");
    EXPECT_EQ(out.log, "\n"
                       "*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE_TITLE . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}
}  // namespace
