#include "support/material_lines.h"

namespace
{
using Steinberg = FreshRun;

const std::string cards = "         7        12        13        14        15        16        17        18\n"
                          "        21        22        23        24        25        26        27        28\n"
                          "        31        32        33        34        35        36        37        38\n"
                          "        41        42        43        44        45        46        47        48\n"
                          "*END\n";

// The title is right-aligned in twenty columns.
std::string definition(const std::string& title)
{
    return material_header + " Material Definition:          7         11  1.200e+01   " + title +
           "\n"
           "!       G0     sigma0       beta          n     gammai    epsflag      sflag    volflag\n"
           " 1.300e+01  1.400e+01  1.500e+01  1.600e+01  1.700e+01  0.000e+00  0.000e+00  0.000e+00\n"
           "!   sigmam          b     bprime          h          f\n"
           " 1.800e+01  2.100e+01  2.200e+01  2.300e+01  2.400e+01\n"
           "!        A        Tm0     gamma0          a       pcut      Troom      Debye       fvol\n"
           " 2.500e+01  2.600e+01  2.700e+01  2.800e+01  3.100e+01  0.000e+00  0.000e+00  0.000e+00\n"
           "!   ispall     Rprime    fstrain       nfit       ivar       minl       maxl\n"
           " 3.200e+01  3.300e+01  0.000e+00  0.000e+00  0.000e+00  3.500e+01  3.600e+01\n"
           "!      ec0        ec1        ec2        ec3        ec4\n"
           " 3.700e+01  3.800e+01  4.100e+01  4.200e+01  4.300e+01\n"
           "!      ec5        ec6        ec7        ec8        ec9\n"
           " 4.400e+01  4.500e+01  4.600e+01  4.700e+01  4.800e+01\n";
}

TEST_F(Steinberg, WritesSixGroupsAndLogsNothing)
{
    const Written out = convert_block(matsteinberg, "*MAT_STEINBERG_TITLE\ncopper\n" + cards);
    EXPECT_EQ(out.deck, definition("              copper"));
    EXPECT_EQ(out.log, "");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Steinberg, WithoutATitleHasTheDefaultTitle)
{
    const Written out = convert_block(matsteinberg, "*MAT_STEINBERG\n" + cards);
    EXPECT_EQ(out.deck, definition("          Steinberg "));
    EXPECT_EQ(out.log, "");
    EXPECT_EQ(out.terminal, "");
}
}  // namespace
