#include "support/material_lines.h"

namespace
{
using MooneyRivlin = FreshRun;
using Viscoelastic = FreshRun;

TEST_F(MooneyRivlin, IsOfType27AndItsDefaultTitleOverflows)
{
    const Written out = convert_block(matmooney, "*MAT_MOONEY-RIVLIN_RUBBER\n"
                                                 "         7        12        13        14        15        16\n"
                                                 "        21        22        23        24\n"
                                                 "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7         27  1.200e+01   M-R Rubber            \n"
                            "!        a          b         nu\n"
                            " 1.400e+01  1.500e+01  1.300e+01\n" +
                            blank_slots(5));
    EXPECT_EQ(out.log, "\n"
                       "*MAT_MOONEY-RIVLIN_RUBBER . . . recognized keyword\n"
                       "unused variables:\n"
                       "       ref: 1.600e+01\n"
                       "       sgl: 2.100e+01\n"
                       "        sw: 2.200e+01\n"
                       "        st: 2.300e+01\n"
                       "      lcid: 2.400e+01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Viscoelastic, WritesBetaWithTwoDecimalsAndMflagWithOne)
{
    const Written out = convert_block(matviscoelastic, "*MAT_VISCOELASTIC\n"
                                                       "         7        12        13        14        15     0.126\n"
                                                       "*END\n");
    EXPECT_EQ(out.deck, material_header +
                            " Material Definition:          7          6  1.200e+01   Viscoelastic        \n"
                            "!     bulk\n"
                            " 1.300e+01\n"
                            "!       g0\n"
                            " 1.400e+01\n"
                            "!     ginf\n"
                            " 1.500e+01\n"
                            "!     beta\n"
                            "      0.13\n"
                            "!    mflag\n"
                            "       0.0\n"
                            "!    blank\n"
                            "         0\n");
    EXPECT_EQ(out.log, "\n"
                       "*MAT_VISCOELASTIC . . . recognized keyword\n"
                       "no unused variables\n");
    EXPECT_EQ(out.terminal, "");
}
}  // namespace
