#include "support/material_lines.h"

namespace
{
using Hourglass = FreshRun;

TEST_F(Hourglass, WritesTheDefinitionAndAlwaysLogsAnIgnoredTitle)
{
    const Written out =
        convert_block(hourglass, "*HOURGLASS\n"
                                 "   SOFT-HG         5     0.126         1       1.5      0.06        17        18\n"
                                 "*END\n");
    EXPECT_EQ(out.deck, " Hourglass formulation definition:    SOFT-HG       5    0.13       1    1.50    0.06\n");
    EXPECT_EQ(out.log, "\n"
                       "*HOURGLASS . . . recognized keyword\n"
                       "ignored title line\n"
                       "unused variables:\n"
                       "        qb: 1.700e+01\n"
                       "        qw: 1.800e+01\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(Hourglass, TitleIsReadAndDropped)
{
    const Written out = convert_block(hourglass, "*HOURGLASS_TITLE\n"
                                                 "        99         4\n"
                                                 "         7         3\n"
                                                 "*END\n");
    EXPECT_EQ(out.deck, " Hourglass formulation definition:          7       3    0.00       1    0.00    0.00\n");
    EXPECT_EQ(lines_equal(out.log, "ignored title line"), 1u);
}

TEST_F(Hourglass, OtherOptionsHaveNoTitle)
{
    const Written out = convert_block(hourglass, "*HOURGLASS_TITL\n"
                                                 "         7         3\n"
                                                 "*END\n");
    EXPECT_EQ(out.deck, " Hourglass formulation definition:          7       3    0.00       1    0.00    0.00\n");
}

TEST_F(Hourglass, TypeAboveFiveBecomesOne)
{
    const Written out = convert_block(hourglass, "*HOURGLASS\n"
                                                 "         7         6\n"
                                                 "*END\n");
    EXPECT_EQ(out.deck, " Hourglass formulation definition:          7       1    0.00       1    0.00    0.00\n");
    EXPECT_EQ(out.log, "\n"
                       "*HOURGLASS . . . recognized keyword\n"
                       "ignored title line\n"
                       "unused variables:\n"
                       "        qb: 0.000e+00\n"
                       "        qw: 0.000e+00\n"
                       "       ihq:         6 . . . Changing to 1 in Kestrune input\n");
    EXPECT_EQ(out.terminal, "\n"
                            "Warning: type 6 is not available for hourglass\n"
                            "Changing hourglass type to 1\n");
}

TEST_F(Hourglass, TypesUpToFivePassUnchanged)
{
    for (const std::string ihq : {" 5", " 0", "-2"}) {
        const Written out = convert_block(hourglass, "*HOURGLASS\n"
                                                     "         7        " +
                                                         ihq +
                                                         "\n"
                                                         "*END\n");
        EXPECT_EQ(out.deck,
                  " Hourglass formulation definition:          7      " + ihq + "    0.00       1    0.00    0.00\n");
        EXPECT_EQ(out.terminal, "");
    }
}

TEST_F(Hourglass, BlankBulkViscosityTypeBecomesOneSilently)
{
    const Written out = convert_block(hourglass, "*HOURGLASS\n"
                                                 "         7         1     0.001               1.251     0.066\n"
                                                 "*END\n");
    EXPECT_EQ(out.deck, " Hourglass formulation definition:          7       1    0.00       1    1.25    0.07\n");
    EXPECT_EQ(out.terminal, "");
    EXPECT_EQ(lines_with(out.log, "     qtype:"), 0u);
}

TEST_F(Hourglass, OtherBulkViscosityTypesBecomeOneWithAWarning)
{
    for (const std::string ibq : {" 2", "-2"}) {
        const Written out = convert_block(hourglass, "*HOURGLASS\n"
                                                     "         7         1       0.1        " +
                                                         ibq +
                                                         "\n"
                                                         "*END\n");
        EXPECT_EQ(out.deck, " Hourglass formulation definition:          7       1    0.10       1    0.00    0.00\n");
        EXPECT_EQ(line_with(out.log, "     qtype:"),
                  "     qtype:        " + ibq + " . . . Changing to 1 in Kestrune input");
        EXPECT_EQ(out.terminal, "\nWarning: type " + ibq.substr(ibq.find_first_not_of(' ')) +
                                    " is not available for bulk viscosity\n"
                                    "Changing bulk viscosity type to 1\n");
    }
}

TEST_F(Hourglass, BothTypesMayChange)
{
    const Written out = convert_block(hourglass, "*HOURGLASS\n"
                                                 "         7         9       0.1         3\n"
                                                 "*END\n");
    EXPECT_EQ(out.deck, " Hourglass formulation definition:          7       1    0.10       1    0.00    0.00\n");
    EXPECT_EQ(out.log, "\n"
                       "*HOURGLASS . . . recognized keyword\n"
                       "ignored title line\n"
                       "unused variables:\n"
                       "        qb: 0.000e+00\n"
                       "        qw: 0.000e+00\n"
                       "       ihq:         9 . . . Changing to 1 in Kestrune input\n"
                       "     qtype:         3 . . . Changing to 1 in Kestrune input\n");
    EXPECT_EQ(out.terminal, "\n"
                            "Warning: type 9 is not available for hourglass\n"
                            "Changing hourglass type to 1\n"
                            "\n"
                            "Warning: type 3 is not available for bulk viscosity\n"
                            "Changing bulk viscosity type to 1\n");
}

TEST_F(Hourglass, OnlyTheFirstDefinitionOfABlockIsConverted)
{
    const Written out = convert(hourglass_keywords, "*HOURGLASS\n"
                                                    "         7         1\n"
                                                    "         8         1\n"
                                                    "*HOURGLASS\n"
                                                    "         9         1\n"
                                                    "*END\n");
    EXPECT_EQ(lines_with(out.deck, " Hourglass formulation definition: "), 2u);
    EXPECT_EQ(lines_with(out.deck, " Hourglass formulation definition:          8"), 0u);
}
}  // namespace
