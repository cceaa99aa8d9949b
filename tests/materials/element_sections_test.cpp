#include "support/material_lines.h"

namespace
{
using SectionSolid = FreshRun;
using SectionShell = FreshRun;
using SectionSph = FreshRun;

const std::string formulation_header = "\n!---------------------------------- FORMID     EFORM\n";

TEST_F(SectionSolid, FormulationsOneAndTwoPassUnchanged)
{
    const Written one = convert_block(sectionsolid, "*SECTION_SOLID\n"
                                                    "   BLOCK-1         1        13\n"
                                                    "*END\n");
    EXPECT_EQ(one.deck, formulation_header + " Element formulation definition:   BLOCK-1         1\n");
    EXPECT_EQ(one.log, "\n"
                       "*SECTION_SOLID . . . recognized keyword\n"
                       "unused variables:\n"
                       "       aet:        13\n");
    EXPECT_EQ(one.terminal, "");
    const Written two = convert_block(sectionsolid, "*SECTION_SOLID\n"
                                                    "         7         2\n"
                                                    "*END\n");
    EXPECT_EQ(two.deck, formulation_header + " Element formulation definition:         7         2\n");
    EXPECT_EQ(two.terminal, "");
}

TEST_F(SectionSolid, OtherFormulationBecomesOneWithAWarning)
{
    const Written out = convert_block(sectionsolid, "*SECTION_SOLID\n"
                                                    "         7        10\n"
                                                    "*END\n");
    EXPECT_EQ(out.deck, formulation_header + " Element formulation definition:         7         1\n");
    EXPECT_EQ(out.log, "\n"
                       "*SECTION_SOLID . . . recognized keyword\n"
                       "unused variables:\n"
                       "       aet:         0\n"
                       "    elform:        10 . . . Changed to 1 for Kestrune input\n");
    EXPECT_EQ(out.terminal, "\n"
                            "Warning: Element formulation 10 not available\n"
                            "Assuming default element form for section solid          7\n");
}

TEST_F(SectionSolid, BlankFormulationIsWarnedOfToo)
{
    const Written out = convert_block(sectionsolid, "*SECTION_SOLID\n"
                                                    "         7\n"
                                                    "*END\n");
    EXPECT_EQ(out.deck, formulation_header + " Element formulation definition:         7         1\n");
    EXPECT_EQ(out.terminal, "\n"
                            "Warning: Element formulation 0 not available\n"
                            "Assuming default element form for section solid          7\n");
}

TEST_F(SectionSolid, TitleIsReadAndDropped)
{
    const Written out = convert_block(sectionsolid, "*SECTION_SOLID_TITLE\n"
                                                    "        99         2\n"
                                                    "         7         1\n"
                                                    "*END\n");
    EXPECT_EQ(out.deck, formulation_header + " Element formulation definition:         7         1\n");
    EXPECT_EQ(out.log, "\n"
                       "*SECTION_SOLID_TITLE . . . recognized keyword\n"
                       "ignored title line\n"
                       "unused variables:\n"
                       "       aet:         0\n");
}

TEST_F(SectionSolid, OtherOptionIsNoted)
{
    const Written out = convert_block(sectionsolid, "*SECTION_SOLID_ALE\n"
                                                    "         7         1\n"
                                                    "*END\n");
    EXPECT_EQ(out.log, "\n"
                       "*SECTION_SOLID_ALE . . . recognized keyword\n"
                       "additional options ignored on cards 2 and up\n"
                       "unused variables:\n"
                       "       aet:         0\n");
}

TEST_F(SectionSolid, OnlyTheFirstSectionOfABlockIsConvertedAndEachHasItsHeader)
{
    const Written out = convert(section_keywords, "*SECTION_SOLID\n"
                                                  "         7         1\n"
                                                  "         8         1\n"
                                                  "*SECTION_SOLID\n"
                                                  "         9         2\n"
                                                  "*END\n");
    EXPECT_EQ(out.deck, formulation_header + " Element formulation definition:         7         1\n" +
                            formulation_header + " Element formulation definition:         9         2\n");
}

TEST_F(SectionShell, WritesTheFormulationAndBothCards)
{
    const Written out =
        convert_block(sectionshell, "*SECTION_SHELL\n"
                                    "   SHELL-1         2    0.8333        14        15        16        17        18\n"
                                    "        21        22        23        24        25        26        27        28\n"
                                    "*END\n");
    EXPECT_EQ(out.deck, formulation_header + " Element formulation definition:   SHELL-1       102\n"
                                             "!        shf       nip    output      irid    refloc\n"
                                             "         0.8        14        15        16        25\n"
                                             "!         t1        t2        t3        t4\n"
                                             "   2.100e+01 2.200e+01 2.300e+01 2.400e+01\n");
    EXPECT_EQ(out.log, "\n"
                       "*SECTION_SHELL . . . recognized keyword\n"
                       "unused variables:\n"
                       "     icomp:        17\n"
                       "    settyp:        18\n"
                       "     marea: 2.600e+01\n"
                       "      idof: 2.700e+01\n"
                       "    edgset:        28\n");
    EXPECT_EQ(out.terminal, "");
}

TEST_F(SectionShell, FormulationsZeroToFiveAreMappedSilently)
{
    for (const std::string elform : {"0", "1", "2", "3", "4", "5"}) {
        const Written out = convert_block(sectionshell, "*SECTION_SHELL\n"
                                                        "         7         " +
                                                            elform +
                                                            "\n"
                                                            "        21\n"
                                                            "*END\n");
        EXPECT_EQ(line_with(out.deck, " Element"), " Element formulation definition:         7       10" + elform);
        EXPECT_EQ(out.terminal, "");
        EXPECT_EQ(lines_with(out.log, "    elform:"), 0u);
    }
}

TEST_F(SectionShell, OtherFormulationsBecomeTheDefaultWithAWarning)
{
    for (const std::string elform : {"         6", "        16", "        -1", "9999999999"}) {
        const std::string kept = elform == "9999999999" ? "-2147483648" : elform;
        const std::string bare = kept.substr(kept.find_first_not_of(' '));
        const Written out = convert_block(sectionshell, "*SECTION_SHELL\n"
                                                        "         7" +
                                                            elform +
                                                            "\n"
                                                            "        21\n"
                                                            "*END\n");
        EXPECT_EQ(line_with(out.deck, " Element"), " Element formulation definition:         7       100");
        EXPECT_EQ(line_with(out.log, "    elform:"), "    elform:" + kept + " . . . Changed to 100 for Kestrune input");
        EXPECT_EQ(out.terminal, "\nWarning: Element formulation " + bare +
                                    " not available\n"
                                    "Assuming default element form for section shell          7\n");
    }
}

TEST_F(SectionShell, TitleIsReadAndDroppedAndOtherOptionsAreNoted)
{
    const Written titled = convert_block(sectionshell, "*SECTION_SHELL_TITLE\n"
                                                       "        99\n"
                                                       "         7         2\n"
                                                       "        21\n"
                                                       "*END\n");
    EXPECT_EQ(line_with(titled.deck, " Element"), " Element formulation definition:         7       102");
    EXPECT_TRUE(titled.log.starts_with("\n"
                                       "*SECTION_SHELL_TITLE . . . recognized keyword\n"
                                       "ignored title line\n"
                                       "unused variables:\n"));
    const Written efg = convert_block(sectionshell, "*SECTION_SHELL_EFG\n"
                                                    "         7         2\n"
                                                    "        21\n"
                                                    "*END\n");
    EXPECT_TRUE(efg.log.starts_with("\n"
                                    "*SECTION_SHELL_EFG . . . recognized keyword\n"
                                    "additional options ignored on cards 3 and up\n"
                                    "unused variables:\n"));
}

TEST_F(SectionSph, IsAlwaysFormulation200)
{
    const Written out =
        convert_block(sectionsph, "*SECTION_SPH\n"
                                  "     SPH-1        12        13        14        15        16        17\n"
                                  "*END\n");
    EXPECT_EQ(out.deck, formulation_header + " Element formulation definition:     SPH-1       200\n");
    EXPECT_EQ(out.log, "\n"
                       "*SECTION_SPH . . . recognized keyword\n"
                       "unused variables:\n"
                       "      cslh: 1.200e+01\n"
                       "      hmin: 1.300e+01\n"
                       "      hmax: 1.400e+01\n"
                       "    sphini: 1.500e+01\n"
                       "     death: 1.600e+01\n"
                       "     start: 1.700e+01\n");
}

TEST_F(SectionSph, TitleIsReadAndDropped)
{
    const Written out = convert_block(sectionsph, "*SECTION_SPH_TITLE\n"
                                                  "        99\n"
                                                  "         7\n"
                                                  "*END\n");
    EXPECT_EQ(line_with(out.deck, " Element"), " Element formulation definition:         7       200");
    EXPECT_TRUE(out.log.starts_with("\n"
                                    "*SECTION_SPH_TITLE . . . recognized keyword\n"
                                    "ignored title line\n"
                                    "unused variables:\n"));
}

TEST_F(SectionSph, TensorWithATitleReadsTheTitleAsItsCard)
{
    const Written out = convert_block(sectionsph, "*SECTION_SPH_TENSOR_TITLE\n"
                                                  "        99\n"
                                                  "         7\n"
                                                  "*END\n");
    EXPECT_EQ(line_with(out.deck, " Element"), " Element formulation definition:        99       200");
    EXPECT_TRUE(out.log.starts_with("\n"
                                    "*SECTION_SPH_TENSOR_TITLE . . . recognized keyword\n"
                                    "additional options ignored on cards 2 and up\n"
                                    "unused variables:\n"));
}

TEST_F(SectionSph, TensorIsNoted)
{
    const Written out = convert_block(sectionsph, "*SECTION_SPH_TENSOR\n"
                                                  "         7\n"
                                                  "*END\n");
    EXPECT_EQ(line_with(out.deck, " Element"), " Element formulation definition:         7       200");
    EXPECT_TRUE(out.log.starts_with("\n"
                                    "*SECTION_SPH_TENSOR . . . recognized keyword\n"
                                    "additional options ignored on cards 2 and up\n"
                                    "unused variables:\n"));
}

TEST_F(SectionSph, OptionsOtherThanTensorAreNotNoted)
{
    for (const std::string keyword : {"*SECTION_SPH_ELLIPSE", "*SECTION_SPH_TENSO"}) {
        const Written out = convert_block(sectionsph, keyword + "\n"
                                                                "         7\n"
                                                                "*END\n");
        EXPECT_TRUE(out.log.starts_with("\n" + keyword +
                                        " . . . recognized keyword\n"
                                        "unused variables:\n"))
            << keyword;
    }
}
}  // namespace
