// *TITLE and the *CONTROL keywords: what they store, log and announce.
#include "support/control_lines.h"

using TitleCard = FreshRun;

TEST_F(TitleCard, KeepsTheLineAsItStands)
{
    const Written written = convert_block(titlecard, "*TITLE\n$ comment\n  Taylor impact  \n*END\n");
    EXPECT_STREQ(run_settings.title, "  Taylor impact  ");
    EXPECT_EQ(written.log, "\n*TITLE . . . recognized keyword\n"
                           "no unused variables\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(TitleCard, A44CharacterTitleLosesItsNewline)
{
    convert_block(titlecard, "*TITLE\n" + std::string(44, 'x') + "\n*END\n");
    EXPECT_EQ(run_settings.title, std::string(44, 'x'));
}

TEST_F(TitleCard, A45CharacterTitleKeepsItsNewline)
{
    convert_block(titlecard, "*TITLE\n" + std::string(45, 'x') + "\n*END\n");
    EXPECT_EQ(run_settings.title, std::string(45, 'x') + "\n");
}

TEST_F(TitleCard, LongerTitlesKeepTheirFirst46Characters)
{
    for (const std::size_t length : {46U, 47U, 60U, 1000U, 100000U}) {
        convert(control_pass, "*TITLE\n" + std::string(45, 'x') + "y" + std::string(length - 46, 'z') +
                                  "\n*CONTROL_SOLUTION\n" + card({"3"}) + "*END\n");
        EXPECT_EQ(run_settings.title, std::string(45, 'x') + "y") << length;
        EXPECT_EQ(run_settings.soln, 3) << "the keyword behind the title is found";
        run_settings.soln = 0;
    }
}

TEST_F(TitleCard, AnEmptyLineIsAnEmptyTitle)
{
    convert_block(titlecard, "*TITLE\n\n*END\n");
    EXPECT_STREQ(run_settings.title, "");
}

TEST_F(TitleCard, ATitleThatBeginsWithLsDynaIsReplaced)
{
    convert_block(titlecard, "*TITLE\nLS-DYNA keyword deck by somebody\n*END\n");
    EXPECT_STREQ(run_settings.title, "Kestrune Input Deck");
}

TEST_F(TitleCard, AnyOtherTitleIsNot)
{
    for (const std::string title : {"LS-DYN", "LS_DYNA deck", "Ls-Dyna deck", " LS-DYNA deck", "My LS-DYNA deck"}) {
        convert_block(titlecard, "*TITLE\n" + title + "\n*END\n");
        EXPECT_EQ(run_settings.title, title);
    }
}

TEST_F(TitleCard, AMissingTitleTakesTheNextKeywordLine)
{
    convert(control_pass, "*TITLE\n*CONTROL_SOLUTION\n" + card({"3"}) + "*END\n");
    EXPECT_STREQ(run_settings.title, "*CONTROL_SOLUTION");
    EXPECT_EQ(run_settings.soln, 0);
}

using BulkViscosity = FreshRun;

TEST_F(BulkViscosity, Type1IsStoredQuietly)
{
    const Written written = convert_block(cviscosity, "*CONTROL_BULK_VISCOSITY\n$       Q1        Q2      TYPE\n" +
                                                          card({"2.5", "0.25", "1"}) + "*END\n");
    EXPECT_EQ(run_settings.q1, 2.5f);
    EXPECT_EQ(run_settings.q2, 0.25f);
    EXPECT_EQ(run_settings.qtype, 1);
    EXPECT_EQ(written.log, "\n*CONTROL_BULK_VISCOSITY . . . recognized keyword\n"
                           "no unused variables\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(BulkViscosity, OtherTypesBecome1WithAWarning)
{
    for (const int type : {-1, 2, -2}) {
        const Written written = convert_block(cviscosity, "*CONTROL_BULK_VISCOSITY\n" +
                                                              card({"1.5", "0.06", std::to_string(type)}) + "*END\n");
        EXPECT_EQ(run_settings.qtype, 1);
        EXPECT_EQ(written.log, "\n*CONTROL_BULK_VISCOSITY . . . recognized keyword\n"
                               "unused variables:\n" +
                                   line("     qtype:%10i . . . Changing to 1 in Kestrune input\n", type));
        EXPECT_EQ(written.terminal, line("\nWarning: type %i is not available for bulk viscosity\n", type) +
                                        "Changing bulk viscosity type to 1\n");
    }
}

TEST_F(BulkViscosity, ABlankCardStoresZerosAndWarnsOfType0)
{
    for (const std::string& blank : {std::string{}, std::string(80, ' ')}) {
        reset_run();
        const Written written = convert_block(cviscosity, "*CONTROL_BULK_VISCOSITY\n" + blank + "\n*END\n");
        EXPECT_EQ(run_settings.q1, 0.0f);
        EXPECT_EQ(run_settings.q2, 0.0f);
        EXPECT_EQ(run_settings.qtype, 1);
        EXPECT_EQ(written.terminal, "\nWarning: type 0 is not available for bulk viscosity\n"
                                    "Changing bulk viscosity type to 1\n");
        EXPECT_EQ(written.log, "\n*CONTROL_BULK_VISCOSITY . . . recognized keyword\n"
                               "unused variables:\n"
                               "     qtype:         0 . . . Changing to 1 in Kestrune input\n");
    }
}

TEST_F(BulkViscosity, ANumberThatIsNotRightAlignedReadsAsZero)
{
    convert_block(cviscosity, "*CONTROL_BULK_VISCOSITY\n"
                              "2.5           0.25         1\n"
                              "*END\n");
    EXPECT_EQ(run_settings.q1, 0.0f);
    EXPECT_EQ(run_settings.q2, 0.0f);  // its last column is blank as well
}

using Hourglass = FreshRun;

TEST_F(Hourglass, TypesUpTo5AndNegativeOnesPass)
{
    for (const int type : {1, 2, 3, 4, 5, -1, -6}) {
        const Written written =
            convert_block(chourglass, "*CONTROL_HOURGLASS\n" + card({std::to_string(type), "0.25"}) + "*END\n");
        EXPECT_EQ(run_settings.ihq, type);
        EXPECT_EQ(run_settings.qh, 0.25f);
        EXPECT_EQ(written.log, "\n*CONTROL_HOURGLASS . . . recognized keyword\n"
                               "no unused variables\n");
        EXPECT_EQ(written.terminal, "");
    }
}

TEST_F(Hourglass, ABlankTypeBecomes1WithoutAWarning)
{
    const Written written = convert_block(chourglass, "*CONTROL_HOURGLASS\n" + card({"", "0.25"}) + "*END\n");
    EXPECT_EQ(run_settings.ihq, 1);
    EXPECT_EQ(run_settings.qh, 0.25f);
    EXPECT_EQ(written.log, "\n*CONTROL_HOURGLASS . . . recognized keyword\n"
                           "no unused variables\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(Hourglass, TypesFrom6OnBecome1WithAWarning)
{
    for (const int type : {6, 7, 10}) {
        const Written written =
            convert_block(chourglass, "*CONTROL_HOURGLASS\n" + card({std::to_string(type), ""}) + "*END\n");
        EXPECT_EQ(run_settings.ihq, 1);
        EXPECT_EQ(run_settings.qh, 0.0f);
        EXPECT_EQ(written.log, "\n*CONTROL_HOURGLASS . . . recognized keyword\n"
                               "unused variables:\n" +
                                   line("       ihq:%10i . . . Changing to 1 in Kestrune input\n", type));
        EXPECT_EQ(written.terminal,
                  line("\nWarning: type %i is not available for hourglass\n", type) + "Changing hourlgass type to 1\n");
    }
}

using ControlContact = FreshRun;

TEST_F(ControlContact, StoresTheScaleFactorAndLogsTheRest)
{
    const Written written = convert_block(
        ccontact, "*CONTROL_CONTACT\n"
                  "$   slsfac    rwpnal    islchk    shlthk    penopt    thkchg     orien    enmass\n" +
                      card({"0.75", "1.5", "2", "3", "4", "5", "6", "7"}) +
                      "$   usrstr    usrfrc     nsbcs    interm     xpene     ssthk      ecdt   tiedprj\n" +
                      card({"8", "9", "10", "11", "12.5", "13", "14", "15"}) + card({"16"}) + "*END\n");
    EXPECT_EQ(run_settings.slsfac, 0.75f);
    EXPECT_EQ(written.log, "\n*CONTROL_CONTACT . . . recognized keyword\n"
                           "additional options ignored on cards 3 and up\n"
                           "unused variables:\n"
                           "    rwpnal: 1.500e+00\n"
                           "    shlthk:         3\n"
                           "    islchk:         2\n"
                           "    penopt:         4\n"
                           "    thkchg:         5\n"
                           "     orien:         6\n"
                           "    enmass:         7\n"
                           "    usrstr:         8\n"
                           "    usrfrc:         9\n"
                           "     nsbcs:        10\n"
                           "    interm:        11\n"
                           "     xpene: 1.250e+01\n"
                           "     ssthk:        13\n"
                           "      ecdt:        14\n"
                           "   tiedprj:        15\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(ControlContact, BlankCardsLogZeros)
{
    const Written written = convert_block(ccontact, "*CONTROL_CONTACT\n\n\n*END\n");
    EXPECT_EQ(run_settings.slsfac, 0.0f);
    EXPECT_EQ(written.log, "\n*CONTROL_CONTACT . . . recognized keyword\n"
                           "additional options ignored on cards 3 and up\n"
                           "unused variables:\n"
                           "    rwpnal: 0.000e+00\n"
                           "    shlthk:         0\n"
                           "    islchk:         0\n"
                           "    penopt:         0\n"
                           "    thkchg:         0\n"
                           "     orien:         0\n"
                           "    enmass:         0\n"
                           "    usrstr:         0\n"
                           "    usrfrc:         0\n"
                           "     nsbcs:         0\n"
                           "    interm:         0\n"
                           "     xpene: 0.000e+00\n"
                           "     ssthk:         0\n"
                           "      ecdt:         0\n"
                           "   tiedprj:         0\n");
}

TEST_F(ControlContact, CardTwoIsReadAlsoWhenCardOneHasMoreColumns)
{
    const Written written = convert_block(
        ccontact, "*CONTROL_CONTACT\n" + card({"0.5", "", "", "", "", "", "", "", "99"}) + card({"8"}) + "*END\n");
    EXPECT_EQ(lines_equal(written.log, "    usrstr:         8"), 1U);
}

using Solution = FreshRun;

TEST_F(Solution, IsStoredWithoutARangeCheck)
{
    for (const int solution : {0, 6, 7, -3, 99}) {
        const Written written = convert_block(
            csolution, "*CONTROL_SOLUTION\n" + card({std::to_string(solution), "2", "3", "101"}) + "*END\n");
        EXPECT_EQ(run_settings.soln, solution);
        EXPECT_EQ(written.log, "\n*CONTROL_SOLUTION . . . recognized keyword\n"
                               "unused variables:\n"
                               "       nlq:         2\n"
                               "     isnan:         3\n"
                               "     lcint:       101\n");
        EXPECT_EQ(written.terminal, "");
    }
}

TEST_F(Solution, AFieldCutByTheLineEndReadsAsZero)
{
    const Written written = convert_block(csolution, "*CONTROL_SOLUTION\n         1        25        7\n*END\n");
    EXPECT_EQ(run_settings.soln, 1);
    EXPECT_EQ(lines_equal(written.log, "       nlq:        25"), 1U);
    EXPECT_EQ(lines_equal(written.log, "     isnan:         0"), 1U);
}

TEST_F(Solution, WhatStandsBehindItsLastFieldIsLeftUnread)
{
    // a "*" there begins a keyword line, though in mid-line
    convert(control_pass, "*CONTROL_SOLUTION\n"
                          "         1         0         0         0*TITLE\n"
                          "behind the card\n"
                          "*END\n");
    EXPECT_EQ(run_settings.soln, 1);
    EXPECT_STREQ(run_settings.title, "behind the card");
}

using Termination = FreshRun;

TEST_F(Termination, StoresTheEndTimeAndLogsTheRest)
{
    const Written written =
        convert_block(term, "*CONTROL_TERMINATION\n" + card({"0.02", "500", "0.125", "2.5", "1000.0"}) + "*END\n");
    EXPECT_EQ(run_settings.endtim, 0.02f);
    EXPECT_EQ(written.log, "\n*CONTROL_TERMINATION . . . recognized keyword\n"
                           "unused variables:\n"
                           "    endcyc:       500\n"
                           "     dtmin: 1.250e-01\n"
                           "    endeng: 2.500e+00\n"
                           "    endmas: 1.000e+03\n");
    EXPECT_EQ(written.terminal, "");
}

using TimeStep = FreshRun;

TEST_F(TimeStep, StoresItsThreeValuesAndLogsTheRest)
{
    const Written written =
        convert_block(tstep, "*CONTROL_TIMESTEP\n" + card({"1.0e-7", "0.9", "1", "2.0e-9", "-1.5e-6", "12", "3", "4"}) +
                                 card({"5"}) + "*END\n");
    EXPECT_EQ(run_settings.dtinit, 1.0e-7f);
    EXPECT_EQ(run_settings.tssfac, 0.9f);
    EXPECT_EQ(run_settings.lctm, 12);
    EXPECT_EQ(written.log, "\n*CONTROL_TIMESTEP . . . recognized keyword\n"
                           "additional options ignored on card 2\n"
                           "unused variables:\n"
                           "      isdo:         1\n"
                           "   tslimit: 2.000e-09\n"
                           "     dt2ms:-1.500e-06\n"
                           "     erode:         3\n"
                           "     msist:         4\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(TimeStep, TheCurveIsReadAsARealAndTruncated)
{
    convert_block(tstep, "*CONTROL_TIMESTEP\n" + card({"", "", "", "", "", "3.7"}) + "*END\n");
    EXPECT_EQ(run_settings.lctm, 3);
    convert_block(tstep, "*CONTROL_TIMESTEP\n" + card({"", "", "", "", "", "-3.7"}) + "*END\n");
    EXPECT_EQ(run_settings.lctm, -3);
}

TEST_F(TimeStep, TheCurveGoesThroughSinglePrecision)
{
    convert_block(tstep, "*CONTROL_TIMESTEP\n" + card({"", "", "", "", "", "16777217"}) + "*END\n");
    EXPECT_EQ(run_settings.lctm, 16777216);
}

TEST_F(TimeStep, ACurveBeyond32BitsIsTheSmallestInteger)
{
    convert_block(tstep, "*CONTROL_TIMESTEP\n" + card({"", "", "", "", "", "1.0e10"}) + "*END\n");
    EXPECT_EQ(run_settings.lctm, -2147483647 - 1);
}

TEST_F(TimeStep, ABlankScaleFactorReplacesTheDefault)
{
    convert_block(tstep, "*CONTROL_TIMESTEP\n" + card({"1.0e-7"}) + "*END\n");
    EXPECT_EQ(run_settings.tssfac, 0.0f);
}

TEST_F(TimeStep, WhatStandsBehindItsLastFieldIsDiscarded)
{
    const std::string fields = "    1.0E-7       0.9         0         0         0         0         0         0";
    convert(control_pass, "*CONTROL_TIMESTEP\n" + fields + "*TITLE\nbehind the card\n*END\n");
    EXPECT_EQ(run_settings.tssfac, 0.9f);
    EXPECT_STREQ(run_settings.title, " ");
}
