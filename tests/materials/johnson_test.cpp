#include "support/material_lines.h"

namespace
{
using JohnsonCookMaterial = FreshRun;
using SimplifiedJohnsonCook = FreshRun;
using Ceramics = FreshRun;

TEST_F(JohnsonCookMaterial, WritesSflagZeroAndDflagOneWhateverTheCardsHold)
{
    const Written out = convert_block(
        matjohnsoncook, "*MAT_JOHNSON_COOK\n"
                        "         7        12        13        14        15        16        17        18\n"
                        "        21        22        23        24        25        26        27        28\n"
                        "        31        32        33        34        35        36        37        38\n"
                        "        41        42\n"
                        "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         15  1.200e+01   Johnson Cook        \n"
                            "!     smod          a          b          n          c          m         tm         tr\n"
                            " 1.300e+01  2.100e+01  2.200e+01  2.300e+01  2.400e+01  2.500e+01  2.600e+01  2.700e+01\n"
                            "!     epso         cp       pcut     ispall       iter      sflag\n"
                            " 2.800e+01  3.100e+01  3.200e+01  3.300e+01  3.400e+01  0.000e+00\n"
                            "!       d1         d2         d3         d4         d5      dflag\n"
                            " 3.500e+01  3.600e+01  3.700e+01  3.800e+01  4.100e+01  1.000e+00\n"
                            "!    blank\n"
                            "         0\n"
                            "!     beta        eta      eps_0\n"
                            "       0.0        0.0        0.0\n"
                            "!     ymod         pr        dtf\n"
                            " 1.400e+01  1.500e+01  1.600e+01\n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_JOHNSON_COOK . . . recognized keyword\n"
                       "unused variables:\n"
                       "        vp: 1.700e+01\n"
                       "    rateop: 1.800e+01\n"
                       "       c2p: 4.200e+01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(SimplifiedJohnsonCook, BecomesTheFullMaterialWithFixedValues)
{
    const Written out = convert_block(
        matsimpjohnsoncook, "*MAT_SIMPLIFIED_JOHNSON_COOK\n"
                            "         7        12    2.0e11       0.3        15\n"
                            "        21        22        23        24        25        26        27        28\n"
                            "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         15  1.200e+01   Johnson Cook        \n"
                            "!     smod          a          b          n          c          m         tm         tr\n"
                            " 7.692e+10  2.100e+01  2.200e+01  2.300e+01  2.400e+01  1.000e+00  1.000e+20  2.980e+02\n"
                            "!     epso         cp       pcut     ispall       iter      sflag\n"
                            " 2.800e+01  1.000e+10 -1.000e+20  0.000e+00  0.000e+00  0.000e+00\n"
                            "!       d1         d2         d3         d4         d5      dflag\n"
                            " 2.500e+01  0.000e+00  0.000e+00  0.000e+00  0.000e+00  1.000e+00\n"
                            "!    blank\n"
                            "         0\n"
                            "!     beta        eta      eps_0\n"
                            "       0.0        0.0        0.0\n"
                            "!     ymod         pr        dtf\n"
                            " 2.000e+11  3.000e-01  0.000e+00\n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_SIMPLIFIED_JOHNSON_COOK . . . recognized keyword\n"
                       "unused variables:\n"
                       "      smax: 2.600e+01\n"
                       "    sigsat: 2.700e+01\n"
                       "        vp: 1.500e+01\n");
    EXPECT_EQ(out.terminal, "\n"
                            "Warning: Some variables are unavailable when transfering simplifed jc\n"
                            "to the full johnson cook model\n");
}

// The value under "smod" for E and PR in ten columns each.
std::string shear_modulus(const std::string& e_and_pr)
{
    const Written out = convert_block(matsimpjohnsoncook, "*MAT_SIMPLIFIED_JOHNSON_COOK\n"
                                                          "         7        12" +
                                                              e_and_pr +
                                                              "\n"
                                                              "        21        22        23        24\n"
                                                              "*END\n");
    const std::size_t labels = out.deck.find("!     smod");
    return out.deck.substr(out.deck.find('\n', labels) + 1, 10);
}

TEST_F(SimplifiedJohnsonCook, RatioOfMinusOneGivesANonFiniteShearModulus)
{
    EXPECT_EQ(shear_modulus("    2.0e11      -1.0"), "       inf");
    EXPECT_EQ(shear_modulus("       0.0      -1.0"), "      -nan");
    EXPECT_EQ(shear_modulus("    2.0e11       nan"), "       nan");
}

// 2 (1 + 3e38) is beyond single precision, though not beyond double.
TEST_F(SimplifiedJohnsonCook, ShearModulusIsWorkedOutInSinglePrecision)
{
    EXPECT_EQ(shear_modulus("    2.0e11    3.0e38"), " 0.000e+00");
}

TEST_F(Ceramics, WritesThreeGroupsAndTwoFlagsWithOneDecimal)
{
    const Written out = convert_block(
        matjohnsonholmquistceramic, "*MAT_JOHNSON_HOLMQUIST_CERAMICS\n"
                                    "         7        12        13        14        15        16        17        18\n"
                                    "        21        22        23        24        25        26\n"
                                    "        31        32        33        34        35        36\n"
                                    "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         43  1.200e+01   JH Ceramic          \n"
                            "!        g          a          b          c          m          n\n"
                            " 1.300e+01  1.400e+01  1.500e+01  1.600e+01  1.700e+01  1.800e+01\n"
                            "!     epsi          t      sfmax        hel       phel       beta\n"
                            " 2.100e+01  2.200e+01  2.300e+01  2.400e+01  2.500e+01  2.600e+01\n"
                            "!       d1         d2         k1         k2         k3         fs\n"
                            " 3.100e+01  3.200e+01  3.300e+01  3.400e+01  3.500e+01  3.600e+01\n"
                            "! ten_fail   plst_str\n"
                            "       1.0        1.0\n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_JOHNSON_HOLMQUIST_CERAMICS . . . recognized keyword\n"
                       "no unused variable:\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Ceramics, TitleFormReadsItsTitleAsCardOne)
{
    const Written out = convert_block(
        matjohnsonholmquistceramic, "*MAT_JOHNSON_HOLMQUIST_CERAMICS_TITLE\n"
                                    "alumina  A        99\n"
                                    "         7        12        13        14        15        16        17        18\n"
                                    "        21        22        23        24        25        26\n"
                                    "        31        32        33        34        35        36\n"
                                    "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition: alumina  A         43  9.900e+01   JH Ceramic          \n"
                            "!        g          a          b          c          m          n\n"
                            " 0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n"
                            "!     epsi          t      sfmax        hel       phel       beta\n"
                            " 7.000e+00  1.200e+01  1.300e+01  1.400e+01  1.500e+01  1.600e+01\n"
                            "!       d1         d2         k1         k2         k3         fs\n"
                            " 2.100e+01  2.200e+01  2.300e+01  2.400e+01  2.500e+01  2.600e+01\n"
                            "! ten_fail   plst_str\n"
                            "       1.0        1.0\n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_JOHNSON_HOLMQUIST_CERAMICS_TITLE . . . recognized keyword\n"
                       "no unused variable:\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Ceramics, OnlyTheSpellingWithoutItsSReadsATitle)
{
    const std::string cards = "alumina\n"
                              "         7        12        13        14        15        16        17        18\n"
                              "        21        22        23        24        25        26\n"
                              "        31        32        33        34        35        36\n"
                              "*END\n";
    const Written titled = convert_block(matjohnsonholmquistceramic, "*MAT_JOHNSON_HOLMQUIST_CERAMIC_TITLE\n" + cards);
    EXPECT_EQ(line_with(titled.deck, " Material"),
              " Material Definition:          7         43  1.200e+01                alumina");
    const Written longer = convert_block(matjohnsonholmquistceramic, "*MAT_JOHNSON_HOLMQUIST_CERAMIC_TITLES\n" + cards);
    EXPECT_EQ(line_with(longer.deck, " Material"),
              " Material Definition:          0         43  0.000e+00   JH Ceramic          ");
}
}  // namespace
