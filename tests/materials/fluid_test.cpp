#include "support/material_lines.h"

namespace
{
using ElasticPlasticHydro = FreshRun;
using HighExplosiveBurn = FreshRun;
using Null = FreshRun;

TEST_F(ElasticPlasticHydro, WithoutSpallHasNoSpallCard)
{
    const Written out = convert_block(
        matelasticplastichydro, "*MAT_ELASTIC_PLASTIC_HYDRO\n"
                                "         7        12        13        14        15        16        17        18\n"
                                "        21        22        23        24        25        26        27        28\n"
                                "        31        32        33        34        35        36        37        38\n"
                                "        41        42        43        44        45        46        47        48\n"
                                "        51        52        53        54        55        56        57        58\n"
                                "*END\n");
    EXPECT_EQ(out.deck,
              material_header +
                  " Material Definition:          7         10  1.200e+01   Iso-Elas-Plas-Hydro \n"
                  "!        g       sigy         ep         pc         a1         a2     ispall      blank\n"
                  " 1.300e+01  1.400e+01  1.500e+01  1.600e+01  0.000e+00  0.000e+00  0.000e+00          0\n"
                  "!       fs     epflag      sflag      blank      blank      blank      blank      blank\n"
                  " 1.700e+01  1.000e+00          0          0          0          0          0          0\n"
                  "!     eps1       eps2       eps3       eps4       eps5       eps6       eps7       eps8\n"
                  " 2.100e+01  2.200e+01  2.300e+01  2.400e+01  2.500e+01  2.600e+01  2.700e+01  2.800e+01 \n"
                  "!     eps9      eps10      eps11      eps12      eps13      eps14      eps15      eps16\n"
                  " 3.100e+01  3.200e+01  3.300e+01  3.400e+01  3.500e+01  3.600e+01  3.700e+01  3.800e+01 \n"
                  "!      es1        es2        es3        es4        es5        es6        es7        es8\n"
                  " 4.100e+01  4.200e+01  4.300e+01  4.400e+01  4.500e+01  4.600e+01  4.700e+01  4.800e+01 \n"
                  "!      es9       es10       es11       es12       es13       es14       es15       es16\n"
                  " 5.100e+01  5.200e+01  5.300e+01  5.400e+01  5.500e+01  5.600e+01  5.700e+01  5.800e+01 \n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_ELASTIC_PLASTIC_HYDRO . . . recognized keyword\n"
                       "unused variables:\n"
                       "     charl: 1.800e+01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(ElasticPlasticHydro, NegativeFailureStrainLeavesEpflagZero)
{
    const Written out =
        convert_block(matelasticplastichydro, "*MAT_ELASTIC_PLASTIC_HYDRO\n"
                                              "         7        12        13        14        15        16      -0.5\n"
                                              "\n\n\n\n"
                                              "*END\n");
    EXPECT_EQ(line_with(out.deck, "-5.000e-01"),
              "-5.000e-01  0.000e+00          0          0          0          0          0          0");
}

TEST_F(ElasticPlasticHydro, SpallReadsItsCardBeforeTheCurve)
{
    const Written out = convert_block(
        matelasticplastichydro, "*MAT_ELASTIC_PLASTIC_HYDRO_SPALL\n"
                                "         7        12        13        14        15        16       0.0        18\n"
                                "        21        22        23\n"
                                "        31        32        33        34        35        36        37        38\n"
                                "        41        42        43        44        45        46        47        48\n"
                                "        51        52        53        54        55        56        57        58\n"
                                "        61        62        63        64        65        66        67        68\n"
                                "*END\n");
    EXPECT_EQ(out.deck,
              material_header +
                  " Material Definition:          7         10  1.200e+01   Iso-Elas-Plas-Hydro \n"
                  "!        g       sigy         ep         pc         a1         a2     ispall      blank\n"
                  " 1.300e+01  1.400e+01  1.500e+01  1.600e+01  2.100e+01  2.200e+01  2.300e+01          0\n"
                  "!       fs     epflag      sflag      blank      blank      blank      blank      blank\n"
                  " 0.000e+00  0.000e+00          0          0          0          0          0          0\n"
                  "!     eps1       eps2       eps3       eps4       eps5       eps6       eps7       eps8\n"
                  " 3.100e+01  3.200e+01  3.300e+01  3.400e+01  3.500e+01  3.600e+01  3.700e+01  3.800e+01 \n"
                  "!     eps9      eps10      eps11      eps12      eps13      eps14      eps15      eps16\n"
                  " 4.100e+01  4.200e+01  4.300e+01  4.400e+01  4.500e+01  4.600e+01  4.700e+01  4.800e+01 \n"
                  "!      es1        es2        es3        es4        es5        es6        es7        es8\n"
                  " 5.100e+01  5.200e+01  5.300e+01  5.400e+01  5.500e+01  5.600e+01  5.700e+01  5.800e+01 \n"
                  "!      es9       es10       es11       es12       es13       es14       es15       es16\n"
                  " 6.100e+01  6.200e+01  6.300e+01  6.400e+01  6.500e+01  6.600e+01  6.700e+01  6.800e+01 \n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_ELASTIC_PLASTIC_HYDRO_SPALL . . . recognized keyword\n"
                       "unused variables:\n"
                       "     charl: 1.800e+01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(ElasticPlasticHydro, OptionsOtherThanSpallHaveNoSpallCard)
{
    const Written out = convert_block(matelasticplastichydro, "*MAT_ELASTIC_PLASTIC_HYDRO_STOCHASTIC\n"
                                                              "         7        12\n"
                                                              "        21        22        23\n"
                                                              "\n\n\n"
                                                              "*END\n");
    EXPECT_EQ(lines_with(out.deck, " 0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00"
                                   "          0"),
              1u);
    EXPECT_EQ(lines_with(out.deck, " 2.100e+01  2.200e+01  2.300e+01  0.000e+00"), 1u);
}

// A block with that BETA, in ten columns.
std::string burn_block(const std::string& beta)
{
    return "*MAT_HIGH_EXPLOSIVE_BURN\n"
           "         7        12        13        14" +
           beta +
           "        16        17        18\n"
           "*END\n";
}

std::string burn_definition(const std::string& ilopt)
{
    return material_header +
           " Material Definition:          7          8  1.200e+01   HE Burn             \n"
           "!        d        pcj      ilopt\n"
           " 1.300e+01  1.400e+01  " +
           ilopt + "\n" + blank_slots(5);
}

// The note is the line on a BETA that is not available.
std::string burn_log(const std::string& note)
{
    return "\n"
           "*MAT_HIGH_EXPLOSIVE_BURN . . . recognized keyword\n"
           "unused variables:\n" +
           note +
           "         k: 1.600e+01\n"
           "         g: 1.700e+01\n"
           "      sigy: 1.800e+01\n";
}

TEST_F(HighExplosiveBurn, BetaOneSetsIloptSilently)
{
    const Written out = convert_block(matheburn, burn_block("       1.0"));
    EXPECT_EQ(out.deck, burn_definition("1.000e+00"));
    EXPECT_EQ(out.log, burn_log(""));
    EXPECT_EQ(out.terminal, "");
}

TEST_F(HighExplosiveBurn, BetaTwoClearsIloptSilently)
{
    const Written out = convert_block(matheburn, burn_block("       2.0"));
    EXPECT_EQ(out.deck, burn_definition("0.000e+00"));
    EXPECT_EQ(out.log, burn_log(""));
    EXPECT_EQ(out.terminal, "");
}

TEST_F(HighExplosiveBurn, BlankBetaIsReportedAsNotAvailable)
{
    const Written out = convert_block(matheburn, burn_block("          "));
    EXPECT_EQ(out.deck, burn_definition("0.000e+00"));
    EXPECT_EQ(out.log, burn_log("      beta: 0.000e+00 . . . Changed ilopt to 0.0 in Kestrune input\n"));
    EXPECT_EQ(out.terminal, "\n"
                            "Warning: Beta=0.000000 is not an available option in Kestrune.\n"
                            "Assuming ilopt=0.0\n");
}

TEST_F(HighExplosiveBurn, AnyOtherBetaIsReportedWithItsValue)
{
    const Written between = convert_block(matheburn, burn_block("       1.5"));
    EXPECT_EQ(between.deck, burn_definition("0.000e+00"));
    EXPECT_EQ(between.log, burn_log("      beta: 1.500e+00 . . . Changed ilopt to 0.0 in Kestrune input\n"));
    EXPECT_EQ(between.terminal, "\n"
                                "Warning: Beta=1.500000 is not an available option in Kestrune.\n"
                                "Assuming ilopt=0.0\n");
    const Written no_number = convert_block(matheburn, burn_block("       nan"));
    EXPECT_EQ(no_number.deck, burn_definition("0.000e+00"));
    EXPECT_EQ(no_number.log, burn_log("      beta:       nan . . . Changed ilopt to 0.0 in Kestrune input\n"));
    EXPECT_EQ(no_number.terminal, "\n"
                                  "Warning: Beta=nan is not an available option in Kestrune.\n"
                                  "Assuming ilopt=0.0\n");
}

TEST_F(Null, LeavesErosionToTheFailureDefinition)
{
    const Written out =
        convert_block(matnull, "*MAT_NULL\n"
                               "         7        12        13        14        15        16        17        18\n"
                               "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7          9  1.200e+01   Fluid               \n"
                            "!       pc         mu\n"
                            " 1.300e+01  1.400e+01\n" +
                            blank_slots(5));
    EXPECT_EQ(out.log, "\n"
                       "*MAT_NULL . . . recognized keyword\n"
                       "unused variables:\n"
                       "        ym: 1.700e+01\n"
                       "        pr: 1.800e+01\n");
    EXPECT_EQ(out.terminal, "");
}
}  // namespace
