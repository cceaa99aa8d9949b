// The geometry file: nodes, shells, solids and particles.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "bulk/bulk.h"
#include "reader/run.h"
#include "support/every_way.h"
#include "support/fresh_run.h"

namespace
{
using Geometry = FreshRun;

const std::string opening = "!------------------------------------------------\n"
                            "! Geometry Definitions\n"
                            "!------------------------------------------------\n";
const std::string closing = "\n\n";

const std::string node_heading =
    "\n"
    "Node Definition:\n"
    "!--- nid                    x                    y                    z    tc    rc\n";
const std::string shell_heading = "\n"
                                  " Shell Element Definition:\n"
                                  "!--- eid      pid         n1         n2         n3         n4\n"
                                  "!------------- t1         t2         t3         t4       beta\n";
const std::string solid_heading =
    "\n"
    " Solid Element Definition:\n"
    "!--- eid      pid       n1       n2       n3       n4       n5       n6       n7       n8\n";
const std::string particle_heading = "\n"
                                     " SPH Element Definition:\n"
                                     "!--- nid      pid             mass\n";

const std::string no_thickness = "        0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n";

// What stands between opening and closing.
std::string geometry_of(std::string_view deck)
{
    const std::string text = convert_every_way(geometry_section, deck).geometry;
    EXPECT_TRUE(text.starts_with(opening));
    EXPECT_TRUE(text.ends_with(closing));
    return text.substr(opening.size(), text.size() - opening.size() - closing.size());
}

std::string log_of(std::string_view deck)
{
    return convert_every_way(geometry_section, deck).log;
}

std::size_t count(std::string_view text, std::string_view part)
{
    std::size_t found = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) ++found;
    return found;
}
}  // namespace

TEST_F(Geometry, DeckWithoutBulkBlocksGivesTheBannerAndTwoEmptyLines)
{
    EXPECT_EQ(convert_every_way(geometry_section, "*MAT_ELASTIC\n         1\n*END\n").geometry, opening + closing);
    EXPECT_EQ(log_of("*MAT_ELASTIC\n         1\n*END\n"), "");
}

TEST_F(Geometry, MainDeckAndSetFileAreNotTouched)
{
    cardflag = 1;
    const Written written = convert_every_way(geometry_section, "*NODE\n       1\n*SET_NODE\n         1\n*END\n");
    EXPECT_EQ(written.deck, "");
    EXPECT_EQ(written.sets, "");
    EXPECT_EQ(written.terminal, "");
}

// ---- nodes ---------------------------------------------------------------------------------------------------------

TEST_F(Geometry, NodeCard)
{
    EXPECT_EQ(geometry_of("*NODE\n"
                          "       7             1.5           -2.25           1.0e3       1       7\n"
                          "*END\n"),
              node_heading + "       7  1.5000000000000e+00 -2.2500000000000e+00  1.0000000000000e+03     1     7\n");
}

TEST_F(Geometry, CoordinatesAreRoundedToSinglePrecision)
{
    EXPECT_EQ(geometry_of("*NODE\n"
                          "       1             0.1        16777217            1e39\n"
                          "       2            -0.0             nan            -inf       0       0\n"
                          "*END\n"),
              node_heading + "       1  1.0000000149012e-01  1.6777216000000e+07                  inf     0     0\n"
                             "       2 -0.0000000000000e+00                  nan                 -inf     0     0\n");
}

TEST_F(Geometry, NodeCardThatEndsEarlyIsZeroFromThereOn)
{
    EXPECT_EQ(geometry_of("*NODE\n"
                          "       1             1.5\n"
                          "       2             1.5            2.5\n"
                          "       3\n"
                          "      4\n"
                          "\n"
                          "*END\n"),
              node_heading + "       1  1.5000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n"
                             "       2  1.5000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n"
                             "       3  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n"
                             "       0  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n"
                             "       0  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n");
}

TEST_F(Geometry, LeftAlignedFieldsAreZero)
{
    EXPECT_EQ(geometry_of("*NODE\n"
                          "1       1.5             2.5                          3.51              2\n"
                          "*END\n"),
              node_heading + "       0  0.0000000000000e+00  0.0000000000000e+00  3.5000000000000e+00     0     2\n");
}

TEST_F(Geometry, NodeIdentifiersHaveSixtyFourBitsConstraintsThirtyTwo)
{
    EXPECT_EQ(geometry_of("*NODE\n"
                          "     3e9               0               0               0     3e9    -1.9\n"
                          "    1e99               0               0               0     nan99999999\n"
                          "*END\n"),
              node_heading +
                  "3000000000  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00 -2147483648    -1\n"
                  "-9223372036854775808  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00 -2147483648 "
                  "99999999\n");
}

TEST_F(Geometry, FieldsThatAreNoPlainIntegersAreConverted)
{
    EXPECT_EQ(
        geometry_of("*NODE\n"
                    "    12.9\n"
                    "   1.5e3\n"
                    "00000012\n"
                    "      -7\n"
                    "      +7\n"
                    "    0x1f\n"
                    "      no\n"
                    "12345678\n"
                    "    1 23\n"
                    "*END\n"),
        node_heading + [] {
            std::string rows;
            for (const char* nid : {"12", "1500", "12", "-7", "7", "31", "0", "12345678", "1"})
                rows += std::string(8 - std::string_view(nid).size(), ' ') + nid +
                        "  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n";
            return rows;
        }());
}

TEST_F(Geometry, NodeBlockIsLoggedOnce)
{
    EXPECT_EQ(log_of("*NODE\n       1\n       2\n*node_merge  set\n*END\n"),
              "\n*NODE . . . recognized keyword\nno unused variables\n"
              "\n*NODE_MERGE  SET . . . recognized keyword\nno unused variables\n");
}

TEST_F(Geometry, TwoNodeBlocksHaveOneHeadingAndTheNodesInDeckOrder)
{
    EXPECT_EQ(geometry_of("*NODE\n       2\n*MAT\n       9\n*NODE\n$ comment\n       1\n*END\n"),
              node_heading + "       2  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n"
                             "       1  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n");
    EXPECT_EQ(counts.nodes, 2);
}

TEST_F(Geometry, EmptyFirstBlockWritesItsHeadingAndTheNextBlockWritesItAgain)
{
    EXPECT_EQ(geometry_of("*NODE\n*NODE\n       1\n*NODE\n       2\n*END\n"),
              node_heading + node_heading +
                  "       1  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n"
                  "       2  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n");
    EXPECT_EQ(geometry_of("*ELEMENT_SHELL\n*ELEMENT_SHELL_THICKNESS\n*END\n"), shell_heading + shell_heading);
    EXPECT_EQ(geometry_of("*ELEMENT_SOLID\n*ELEMENT_SOLID\n*END\n"), solid_heading + solid_heading);
    EXPECT_EQ(geometry_of("*ELEMENT_SPH\n$\n*ELEMENT_SPH\n*END\n"), particle_heading + particle_heading);
}

TEST_F(Geometry, NodeVariantsThatAreSkipped)
{
    EXPECT_EQ(log_of("*NODE_RIGID_SURFACE\n       1\n*NODE_SCALAR\n       1\n*NODE_TRANSFORM\n       1\n"
                     "*NODE_RIGID\n*NODE_SCALAR_VALUE\n*END\n"),
              "\n*NODE_RIGID_SURFACE . . . skipped\n"
              "\n*NODE_SCALAR . . . skipped\n"
              "\n*NODE_TRANSFORM . . . skipped\n"
              "\n*NODE_RIGID . . . skipped\n"
              "\n*NODE_SCALAR_VALUE . . . skipped\n");
    EXPECT_EQ(geometry_of("*NODE_RIGID_SURFACE\n       1\n*NODE_SCALAR\n       1\n*NODE_TRANSFORM\n       1\n*END\n"),
              "");
}

TEST_F(Geometry, OtherNodeVariantsArePlainNodes)
{
    for (const std::string keyword_line :
         {"*NODES", "*NODE_MERGE", "*NODE_RIGI", "*NODE_SCALA", "*NODE_TRANSFOR", "*NODE_THICKNESS", "*node"}) {
        EXPECT_EQ(geometry_of(keyword_line + "\n       1\n*END\n"),
                  node_heading +
                      "       1  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n")
            << keyword_line;
    }
    EXPECT_EQ(geometry_of("*NOD\n       1\n*NOD_E\n       1\n*END\n"), "");
    EXPECT_EQ(log_of("*NOD\n       1\n*NOD_E\n       1\n*END\n"), "");
}

// ---- shells --------------------------------------------------------------------------------------------------------

TEST_F(Geometry, PlainShellIsTwoLinesWithoutThickness)
{
    EXPECT_EQ(geometry_of("*ELEMENT_SHELL\n"
                          "      11       2     101     102     103     104\n"
                          "*END\n"),
              shell_heading + "      11        2        101        102        103        104\n" + no_thickness);
}

TEST_F(Geometry, ShellWithEightNodesLosesTheLastFour)
{
    const std::string deck = "*ELEMENT_SHELL\n"
                             "      11       2     101     102     103     104     105     106     107     108\n"
                             "      12       2     201     202     203     204     205     206     207     208\n"
                             "*END\n";
    EXPECT_EQ(geometry_of(deck), shell_heading + "      11        2        101        102        103        104\n" +
                                     no_thickness + "      12        2        201        202        203        204\n" +
                                     no_thickness);
    EXPECT_EQ(log_of(deck), "\n*ELEMENT_SHELL . . . recognized keyword\n"
                            "unused variables:\n"
                            "        n5:       205 . . . Not all values printed\n"
                            "        n6:       206 . . . Not all values printed\n"
                            "        n7:       207 . . . Not all values printed\n"
                            "        n8:       208 . . . Not all values printed\n");
}

TEST_F(Geometry, OnlyTheLastShellOfABlockIsLogged)
{
    EXPECT_EQ(log_of("*ELEMENT_SHELL\n"
                     "      11       2     101     102     103     104     105     106     107     108\n"
                     "      12       2     201     202     203     204       0     3e9     0.9\n"
                     "*END\n"),
              "\n*ELEMENT_SHELL . . . recognized keyword\n"
              "unused variables:\n"
              "        n5:         0 . . . Not all values printed\n"
              "        n6:3000000000 . . . Not all values printed\n"
              "        n7:         0 . . . Not all values printed\n"
              "        n8:         0 . . . Not all values printed\n");
}

TEST_F(Geometry, EmptyShellBlockLogsZeros)
{
    const std::string zeros = " . . . recognized keyword\n"
                              "unused variables:\n"
                              "        n5:         0 . . . Not all values printed\n"
                              "        n6:         0 . . . Not all values printed\n"
                              "        n7:         0 . . . Not all values printed\n"
                              "        n8:         0 . . . Not all values printed\n";
    EXPECT_EQ(log_of("*ELEMENT_SHELL\n*ELEMENT_SHELL_BETA\n*END\n"),
              "\n*ELEMENT_SHELL" + zeros + "\n*ELEMENT_SHELL_BETA" + zeros);
}

TEST_F(Geometry, ShellWithThickness)
{
    const std::string deck = "*ELEMENT_SHELL_THICKNESS\n"
                             "      11       2     101     102     103     104     105     106     107     108\n"
                             "$ comment\n"
                             "            0.25             0.5            0.75             1.0           -45.0\n"
                             "      12       2     201     202     203     204     205     206     207     208\n"
                             "            1.25             1.5            1.75             2.0            45.0\n"
                             "*END\n";
    EXPECT_EQ(geometry_of(deck), shell_heading + "      11        2        101        102        103        104\n"
                                                 "        2.500e-01  5.000e-01  7.500e-01  1.000e+00 -4.500e+01\n"
                                                 "      12        2        201        202        203        204\n"
                                                 "        1.250e+00  1.500e+00  1.750e+00  2.000e+00  4.500e+01\n");
    EXPECT_EQ(log_of(deck), "\n*ELEMENT_SHELL_THICKNESS . . . recognized keyword\n"
                            "unused variables:\n"
                            "        n5:       205 . . . Not all values printed\n"
                            "        n6:       206 . . . Not all values printed\n"
                            "        n7:       207 . . . Not all values printed\n"
                            "        n8:       208 . . . Not all values printed\n");
}

TEST_F(Geometry, ShellWithThicknessAndAngle)
{
    for (const std::string keyword_line :
         {"*ELEMENT_SHELL_THICKNESS", "*ELEMENT_SHELL_BETA", "*ELEMENT_SHELL_THICKNESS_BETA",
          "*ELEMENT_SHELL_BETA_OFFSET", "*ELEMENT_SHELL_THICKNESSES", "*element_shell_beta"}) {
        EXPECT_EQ(geometry_of(keyword_line + "\n"
                                             "      11       2     101     102     103     104\n"
                                             "            0.25             0.5            0.75             1.0"
                                             "           -45.0\n"
                                             "*END\n"),
                  shell_heading + "      11        2        101        102        103        104\n"
                                  "        2.500e-01  5.000e-01  7.500e-01  1.000e+00 -4.500e+01\n")
            << keyword_line;
    }
}

TEST_F(Geometry, ShellWithThicknessHasThirtyTwoBits)
{
    const std::string card = "     3e9     3e9     3e9     3e9     3e9     3e9     3e9     3e9     3e9     3e9\n";
    EXPECT_EQ(geometry_of("*ELEMENT_SHELL\n" + card + "*END\n"),
              shell_heading + "3000000000 3000000000 3000000000 3000000000 3000000000 3000000000\n" + no_thickness);
    const std::string deck = "*ELEMENT_SHELL_THICKNESS\n" + card + "\n*END\n";
    EXPECT_EQ(geometry_of(deck), shell_heading +
                                     "-2147483648 -2147483648 -2147483648 -2147483648 -2147483648 -2147483648\n" +
                                     no_thickness);
    EXPECT_EQ(log_of(deck), "\n*ELEMENT_SHELL_THICKNESS . . . recognized keyword\n"
                            "unused variables:\n"
                            "        n5:-2147483648 . . . Not all values printed\n"
                            "        n6:-2147483648 . . . Not all values printed\n"
                            "        n7:-2147483648 . . . Not all values printed\n"
                            "        n8:-2147483648 . . . Not all values printed\n");
}

TEST_F(Geometry, MissingThicknessCardTakesTheKeywordLineThatFollows)
{
    const std::string deck = "*ELEMENT_SHELL_THICKNESS\n"
                             "      11       2     101     102     103     104\n"
                             "*ELEMENT_SHELL\n"
                             "      12       2     201     202     203     204\n"
                             "             0.5             0.5             0.5             0.5\n"
                             "*END\n";
    EXPECT_EQ(geometry_of(deck), shell_heading + "      11        2        101        102        103        104\n" +
                                     no_thickness +
                                     "      12        2        201        202        203        204\n"
                                     "        5.000e-01  5.000e-01  5.000e-01  5.000e-01  0.000e+00\n");
    EXPECT_EQ(log_of(deck).find("*ELEMENT_SHELL . . ."), std::string::npos);
}

TEST_F(Geometry, BothKindsOfShellsShareOneHeadingAndOneCount)
{
    EXPECT_EQ(geometry_of("*ELEMENT_SHELL_THICKNESS\n"
                          "       1       2     101     102     103     104\n"
                          "             0.5\n"
                          "*ELEMENT_SHELL\n"
                          "       2       2     101     102     103     104\n"
                          "*END\n"),
              shell_heading +
                  "       1        2        101        102        103        104\n"
                  "        5.000e-01  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n"
                  "       2        2        101        102        103        104\n" +
                  no_thickness);
    EXPECT_EQ(counts.shells, 2);
}

TEST_F(Geometry, ShellVariantsThatAreSkipped)
{
    const std::string deck = "*ELEMENT_SHELL_DOF\n       1\n*ELEMENT_SHELL_MCID\n       1\n"
                             "*ELEMENT_SHELL_OFFSET\n       1\n*ELEMENT_SHELL_OFFSET_COMPOSITE\n       1\n*END\n";
    EXPECT_EQ(log_of(deck), "\n*ELEMENT_SHELL_DOF . . . skipped\n"
                            "\n*ELEMENT_SHELL_MCID . . . skipped\n"
                            "\n*ELEMENT_SHELL_OFFSET . . . skipped\n"
                            "\n*ELEMENT_SHELL_OFFSET_COMPOSITE . . . skipped\n");
    EXPECT_EQ(geometry_of(deck), "");
}

TEST_F(Geometry, OtherShellVariantsArePlainShells)
{
    for (const std::string keyword_line :
         {"*ELEMENT_SHELLS", "*ELEMENT_SHELL_COMPOSITE", "*ELEMENT_SHELL_BET", "*ELEMENT_SHELL_DO",
          "*ELEMENT_SHELL_MCI", "*ELEMENT_SHELL_OFFSE", "*ELEMENT_SHELL_THICKNES", "*element_shell"}) {
        EXPECT_EQ(geometry_of(keyword_line + "\n      11\n*END\n"),
                  shell_heading + "      11        0          0          0          0          0\n" + no_thickness)
            << keyword_line;
    }
    EXPECT_EQ(geometry_of("*ELEMENT_SHEL\n      11\n*ELEMENT_BEAM\n      11\n*END\n"), "");
}

// ---- solids --------------------------------------------------------------------------------------------------------

TEST_F(Geometry, SolidCardPassesAllTenValues)
{
    const std::string deck = "*ELEMENT_SOLID\n"
                             "      11       2     101     102     103     104     105     106     107     108\n"
                             "      12       2     201     202     203     204     204     204     204     204\n"
                             "      13       2     1.9      -1     3e9\n"
                             "*END\n";
    EXPECT_EQ(geometry_of(deck),
              solid_heading +
                  "      11        2      101      102      103      104      105      106      107      108\n"
                  "      12        2      201      202      203      204      204      204      204      204\n"
                  "      13        2        1       -1 3000000000        0        0        0        0        0\n");
    EXPECT_EQ(log_of(deck), "\n*ELEMENT_SOLID . . . recognized keyword\nno unused variables\n");
    EXPECT_EQ(counts.solids, 3);
}

TEST_F(Geometry, CardsMayTouchTheirNeighboursAndGoOnBehindTheirFields)
{
    EXPECT_EQ(geometry_of("*ELEMENT_SOLID\n"
                          "12345678876543211111111122222222333333334444444455555555666666667777777788888888 rest *END\n"
                          "*END\n"),
              solid_heading + "12345678 87654321 11111111 22222222 33333333 44444444 55555555 66666666 77777777 "
                              "88888888\n");
}

TEST_F(Geometry, CarriageReturnsDoNotDisturbFullCards)
{
    EXPECT_EQ(geometry_of("*ELEMENT_SOLID\r\n"
                          "      11       2     101     102     103     104     105     106     107     108\r\n"
                          "      12\r\n"
                          "*END\r\n"),
              solid_heading +
                  "      11        2      101      102      103      104      105      106      107      108\n"
                  "      12        0        0        0        0        0        0        0        0        0\n");
}

TEST_F(Geometry, SolidVariantsThatAreSkipped)
{
    const std::string deck = "*ELEMENT_SOLID_ORTHO\n       1\n*ELEMENT_SOLID_DOF\n       1\n"
                             "*ELEMENT_SOLID_TET4TOTET10\n       1\n*ELEMENT_SOLID_TET\n*END\n";
    EXPECT_EQ(log_of(deck), "\n*ELEMENT_SOLID_ORTHO . . . skipped\n"
                            "\n*ELEMENT_SOLID_DOF . . . skipped\n"
                            "\n*ELEMENT_SOLID_TET4TOTET10 . . . skipped\n"
                            "\n*ELEMENT_SOLID_TET . . . skipped\n");
    EXPECT_EQ(geometry_of(deck), "");
}

TEST_F(Geometry, OtherSolidVariantsArePlainSolids)
{
    for (const std::string keyword_line : {"*ELEMENT_SOLIDS", "*ELEMENT_SOLID_ORTH", "*ELEMENT_SOLID_DO",
                                           "*ELEMENT_SOLID_TE", "*ELEMENT_SOLID_H20", "*element_solid"}) {
        EXPECT_EQ(geometry_of(keyword_line + "\n      11\n*END\n"),
                  solid_heading +
                      "      11        0        0        0        0        0        0        0        0        0\n")
            << keyword_line;
    }
    EXPECT_EQ(geometry_of("*ELEMENT_SOLI\n      11\n*END\n"), "");
}

// ---- particles -----------------------------------------------------------------------------------------------------

TEST_F(Geometry, ParticleCard)
{
    const std::string deck = "*ELEMENT_SPH\n"
                             "       1       2        1.25e-03\n"
                             "     3e9    -2.7            -0.1 and more\n"
                             "       3\n"
                             "*END\n";
    EXPECT_EQ(geometry_of(deck), particle_heading + "       1        2   1.24999997e-03\n"
                                                    "-2147483648       -2  -1.00000001e-01\n"
                                                    "       3        0   0.00000000e+00\n");
    EXPECT_EQ(log_of(deck), "\n*ELEMENT_SPH . . . recognized keyword\nno unused variables\n");
}

TEST_F(Geometry, ParticlesOfAllBlocksAreCounted)
{
    EXPECT_EQ(
        count(geometry_of("*ELEMENT_SPH\n       1\n       2\n*NODE\n       1\n*ELEMENT_SPH_VOLUME\n       3\n*END\n"),
              particle_heading),
        1U);
    EXPECT_EQ(counts.particles, 3);
    EXPECT_EQ(geometry_of("*ELEMENT_SP\n       1\n*END\n"), "");
    EXPECT_EQ(counts.particles, 0);
}

// ---- the section ---------------------------------------------------------------------------------------------------

TEST_F(Geometry, KindsComeInTheirOrderWhateverTheirOrderInTheDeck)
{
    EXPECT_EQ(geometry_of("*ELEMENT_SPH\n"
                          "       1\n"
                          "*ELEMENT_SOLID\n"
                          "       2\n"
                          "*ELEMENT_SHELL\n"
                          "       3\n"
                          "*NODE\n"
                          "       4\n"
                          "*ELEMENT_SHELL_BETA\n"
                          "       5\n"
                          "\n"
                          "*NODE\n"
                          "       6\n"
                          "*END\n"),
              node_heading +
                  "       4  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n"
                  "       6  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n" +
                  shell_heading + "       3        0          0          0          0          0\n" + no_thickness +
                  "       5        0          0          0          0          0\n" + no_thickness + solid_heading +
                  "       2        0        0        0        0        0        0        0        0        0\n" +
                  particle_heading + "       1        0   0.00000000e+00\n");
}

TEST_F(Geometry, WhatFollowsEndIsNotConverted)
{
    EXPECT_EQ(geometry_of("*END\n*NODE\n       1\n*ELEMENT_SOLID\n       1\n*END\n"), "");
}

TEST_F(Geometry, DeckWithoutEndIsConvertedToItsLastCard)
{
    EXPECT_EQ(geometry_of("*NODE\n       1\n*ELEMENT_SPH\n       2"),
              node_heading + "       1  0.0000000000000e+00  0.0000000000000e+00  0.0000000000000e+00     0     0\n" +
                  particle_heading + "       2        0   0.00000000e+00\n");
}

TEST_F(Geometry, CommentsAndBlankLinesAmongTheCards)
{
    EXPECT_EQ(
        geometry_of("*ELEMENT_SPH\n$ one\n$ two\n       1\n$ three\n       2 $ no comment\n $ a card\n\n$\n*END\n"),
        particle_heading + "       1        0   0.00000000e+00\n"
                           "       2        0   0.00000000e+00\n"
                           "       0        0   0.00000000e+00\n"
                           "       0        0   0.00000000e+00\n");
    EXPECT_EQ(counts.particles, 4);
}

TEST_F(Geometry, CardsLongerThanAnyWindowAreConverted)
{
    EXPECT_EQ(geometry_of("*ELEMENT_SPH\n       1       2             0.5" + std::string(300000, 'x') +
                          "\n       2       2             0.5\n*END\n"),
              particle_heading + "       1        2   5.00000000e-01\n"
                                 "       2        2   5.00000000e-01\n");
}

TEST_F(Geometry, RowsOfTheTables)
{
    EXPECT_EQ(node_keywords.rows.size(), 5U);
    EXPECT_EQ(shell_keywords.rows.size(), 7U);
    EXPECT_EQ(solid_keywords.rows.size(), 5U);
    EXPECT_EQ(sph_element_keywords.rows.size(), 2U);
    for (const Pass* pass : {&node_keywords, &shell_keywords, &solid_keywords, &sph_element_keywords}) {
        ASSERT_NE(first_match(*pass, "*ENDING"), nullptr);
        EXPECT_EQ(first_match(*pass, "*ENDING")->action.treatment, Treatment::end_of_pass);
        EXPECT_EQ(first_match(*pass, "*EN"), nullptr);
        EXPECT_EQ(first_match(*pass, "*MAT"), nullptr);
    }
}
