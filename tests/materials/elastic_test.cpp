#include "support/material_lines.h"

namespace
{
using Elastic = FreshRun;
using IsotropicElasticFailure = FreshRun;
using IsotropicElasticPlastic = FreshRun;
using PlasticKinematic = FreshRun;
using Rigid = FreshRun;

TEST_F(Elastic, WritesModulusAndRatioThenFourBlankSlots)
{
    const Written out =
        convert_block(matelastic, "*MAT_ELASTIC\n"
                                  "  STEEL-01        12        13        14        15        16        17\n"
                                  "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:   STEEL-01          1  1.200e+01   Elastic             \n"
                            "!        e\n"
                            " 1.300e+01\n"
                            "!       pr\n"
                            " 1.400e+01\n" +
                            blank_slots(4));
    EXPECT_EQ(out.log, "\n"
                       "*MAT_ELASTIC . . . recognized keyword\n"
                       "unused variables:\n"
                       "        da: 1.500e+01\n"
                       "        db: 1.600e+01\n"
                       "         k: 1.700e+01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(IsotropicElasticFailure, PositiveFailureStrainSetsEflag)
{
    const Written out =
        convert_block(matisotropicelasticfail, "*MAT_ISOTROPIC_ELASTIC_FAILURE\n"
                                               "         7        12        13        14        15        16\n"
                                               "       0.1        22        23        24\n"
                                               "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         13  1.200e+01   Iso-Elastic-Failure \n"
                            "!     smod       sigy       etan         fs         fp\n"
                            " 1.300e+01  1.400e+01  1.500e+01  1.000e-01  2.200e+01\n"
                            "!     bulk\n"
                            " 1.600e+01\n"
                            "!    eflag      pflag\n"
                            " 1.000e+00  0.000e+00\n" +
                            blank_slots(3));
    EXPECT_EQ(out.log, "\n"
                       "*MAT_ISOTROPIC_ELASTIC_FAILURE . . . recognized keyword\n"
                       "unused variables:\n"
                       "       rem: 2.300e+01\n"
                       "      trem: 2.400e+01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(IsotropicElasticFailure, WarnsOfAZeroBulkModulusAndWritesTheMaterial)
{
    const Written out = convert_block(matisotropicelasticfail, "*MAT_ISOTROPIC_ELASTIC_FAILURE\n"
                                                               "         7        12        13        14        15\n"
                                                               "       0.0        22        23        24\n"
                                                               "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         13  1.200e+01   Iso-Elastic-Failure \n"
                            "!     smod       sigy       etan         fs         fp\n"
                            " 1.300e+01  1.400e+01  1.500e+01  0.000e+00  2.200e+01\n"
                            "!     bulk\n"
                            " 0.000e+00\n"
                            "!    eflag      pflag\n"
                            " 0.000e+00  0.000e+00\n" +
                            blank_slots(3));
    EXPECT_EQ(out.log, "\n"
                       "*MAT_ISOTROPIC_ELASTIC_FAILURE . . . recognized keyword\n"
                       "unused variables:\n"
                       "       rem: 2.300e+01\n"
                       "      trem: 2.400e+01\n");
    EXPECT_EQ(out.terminal, "\n"
                            "Warning: Bulk Modulus set to 0.0!\n");
}

TEST_F(IsotropicElasticFailure, NegativeFailureStrainLeavesEflagZero)
{
    const Written out =
        convert_block(matisotropicelasticfail, "*MAT_ISOTROPIC_ELASTIC_FAILURE\n"
                                               "         7        12        13        14        15        16\n"
                                               "      -0.1\n"
                                               "*END\n");
    EXPECT_NE(out.deck.find("!    eflag      pflag\n 0.000e+00  0.000e+00\n"), std::string::npos);
}

TEST_F(IsotropicElasticPlastic, WritesItsGroupBulkAndFourBlankSlots)
{
    const Written out =
        convert_block(matisotropicelasticplas, "*MAT_ISOTROPIC_ELASTIC_PLASTIC\n"
                                               "         7        12        13        14        15        16\n"
                                               "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         12  1.200e+01   Iso-Elastic-Plastic \n"
                            "!     smod       sigy       etan\n"
                            " 1.300e+01  1.400e+01  1.500e+01\n"
                            "!     bulk\n"
                            " 1.600e+01\n" +
                            blank_slots(4));
    EXPECT_EQ(out.log, "\n"
                       "*MAT_ISOTROPIC_ELASTIC_PLASTIC . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(IsotropicElasticPlastic, WarnsOfAZeroBulkModulusAndWritesTheMaterial)
{
    const Written out =
        convert_block(matisotropicelasticplas, "*MAT_ISOTROPIC_ELASTIC_PLASTIC\n"
                                               "         7        12        13        14        15          \n"
                                               "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         12  1.200e+01   Iso-Elastic-Plastic \n"
                            "!     smod       sigy       etan\n"
                            " 1.300e+01  1.400e+01  1.500e+01\n"
                            "!     bulk\n"
                            " 0.000e+00\n" +
                            blank_slots(4));
    EXPECT_EQ(out.log, "\n"
                       "*MAT_ISOTROPIC_ELASTIC_PLASTIC . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "\n"
                            "Warning: Bulk Modulus set to 0.0!\n");
}

TEST_F(IsotropicElasticPlastic, NegativeBulkModulusIsNotWarnedOf)
{
    const Written out =
        convert_block(matisotropicelasticplas, "*MAT_ISOTROPIC_ELASTIC_PLASTIC\n"
                                               "         7        12        13        14        15       -16\n"
                                               "*END\n");
    EXPECT_NE(out.deck.find("!     bulk\n-1.600e+01\n"), std::string::npos);
    EXPECT_EQ(out.terminal, "");
}

TEST_F(PlasticKinematic, WritesFiveSingleParametersAndOneBlankSlot)
{
    const Written out =
        convert_block(matplastickinematic, "*MAT_PLASTIC_KINEMATIC\n"
                                           "         7        12        13        14        15        16        17\n"
                                           "        21        22        23        24\n"
                                           "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7          3  1.200e+01   Kin/Iso-Elas-Plastic\n"
                            "!     ymod\n"
                            " 1.300e+01\n"
                            "!       pr\n"
                            " 1.400e+01\n"
                            "!     sigy\n"
                            " 1.500e+01\n"
                            "!     etan\n"
                            " 1.600e+01\n"
                            "!     beta\n"
                            " 1.700e+01\n"
                            "!    blank\n"
                            "         0\n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_PLASTIC_KINEMATIC . . . recognized keyword\n"
                       "unused variables:\n"
                       "       src: 2.100e+01\n"
                       "       srp: 2.200e+01\n"
                       "        fs: 2.300e+01\n"
                       "        vp: 2.400e+01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Rigid, ConstraintsSetIcopt)
{
    const Written out =
        convert_block(matrigid, "*MAT_RIGID\n"
                                "         7        12        13        14        15        16        17        18\n"
                                "        21        22        23\n"
                                "        31        32        33        34        35        36\n"
                                "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         20  1.200e+01   Rigid               \n"
                            "!     ymod\n"
                            " 1.300e+01\n"
                            "!       pr\n"
                            " 1.400e+01\n"
                            "!    icopt\n"
                            " 1.000e+00\n"
                            "!     con1\n"
                            " 2.200e+01\n"
                            "!     con2\n"
                            " 2.300e+01\n"
                            "!    blank\n"
                            "         0\n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_RIGID . . . recognized keyword\n"
                       "unused variables:\n"
                       "         n: 1.500e+01\n"
                       "    couple: 1.600e+01\n"
                       "         m: 1.700e+01\n"
                       "     alias: 1.800e+01\n"
                       "       cmo: 2.100e+01\n"
                       "        a1: 3.100e+01\n"
                       "        a2: 3.200e+01\n"
                       "        a3: 3.300e+01\n"
                       "        v1: 3.400e+01\n"
                       "        v2: 3.500e+01\n"
                       "        v3: 3.600e+01\n");
    EXPECT_EQ(out.terminal, "");
}

// A rigid material with CON1 and CON2 in ten columns each.
std::string constrained(const std::string& con1_and_con2)
{
    return convert_block(matrigid, "*MAT_RIGID\n"
                                   "         7        12        13        14\n"
                                   "          " +
                                       con1_and_con2 +
                                       "\n"
                                       "        31\n"
                                       "*END\n")
        .deck;
}

TEST_F(Rigid, WithoutConstraintsIcoptIsZero)
{
    EXPECT_NE(constrained("       0.0       0.0")
                  .find("!    icopt\n 0.000e+00\n!     con1\n 0.000e+00\n!     con2\n 0.000e+00\n"),
              std::string::npos);
}

TEST_F(Rigid, EitherConstraintSetsIcopt)
{
    for (const std::string constraints :
         {"       1.0       0.0", "       0.0      -1.0", "      -1.0       0.0", "       1.0      -1.0"})
        EXPECT_NE(constrained(constraints).find("!    icopt\n 1.000e+00\n"), std::string::npos) << constraints;
}
}  // namespace
