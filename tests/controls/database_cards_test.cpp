// The *DATABASE keywords of the control pass: what they store, log and announce.
#include "support/control_lines.h"

using HistoryInterval = FreshRun;

TEST_F(HistoryInterval, IsStoredAndTheRestLogged)
{
    for (const std::string keyword : {"*DATABASE_NODOUT", "*DATABASE_ELOUT"}) {
        const Written written =
            convert(control_keywords, keyword + "\n" + card({"1.0e-5", "2", "3", "4", "0.5", "6"}) + "*END\n");
        EXPECT_EQ(run_settings.hist_dt, 1.0e-5f);
        EXPECT_EQ(written.log, "\n" + keyword +
                                   " . . . recognized keyword\n"
                                   "unused variables:\n"
                                   "    binary:         2\n"
                                   "      lcur:         3\n"
                                   "     ioopt:         4\n"
                                   "     dthff: 5.000e-01\n"
                                   "     binhf:         6\n");
        EXPECT_EQ(written.terminal, "");
    }
}

TEST_F(HistoryInterval, TheLaterOfTwoBlocksWins)
{
    convert(control_keywords,
            "*DATABASE_NODOUT\n" + card({"1.0e-5"}) + "*DATABASE_ELOUT\n" + card({"2.0e-5"}) + "*END\n");
    EXPECT_EQ(run_settings.hist_dt, 2.0e-5f);
    convert(control_keywords,
            "*DATABASE_ELOUT\n" + card({"2.0e-5"}) + "*DATABASE_NODOUT\n" + card({"1.0e-5"}) + "*END\n");
    EXPECT_EQ(run_settings.hist_dt, 1.0e-5f);
    convert(control_keywords, "*DATABASE_ELOUT\n" + card({"2.0e-5"}) + "*DATABASE_NODOUT\n" + card({""}) + "*END\n");
    EXPECT_EQ(run_settings.hist_dt, 0.0f);
}

using Dump = FreshRun;

TEST_F(Dump, CarriesTheCycleCountAsANegativeNumber)
{
    const Written written =
        convert_block(database_dump, "*DATABASE_BINARY_D3DUMP\n" + card({"5000", "1", "2", "3", "4"}) + "*END\n");
    EXPECT_EQ(run_settings.dump_cycles, -5000);
    EXPECT_EQ(written.log, "\n*DATABASE_BINARY_D3DUMP . . . recognized keyword\n"
                           "unused variables:\n"
                           "      lcdt:         1\n"
                           "      beam:         2\n"
                           "     npltc:         3\n"
                           "    psetid:         4\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(Dump, ABlankOrFractionalCountIsTruncated)
{
    convert_block(database_dump, "*DATABASE_BINARY_D3DUMP\n\n*END\n");
    EXPECT_EQ(run_settings.dump_cycles, 0);
    convert_block(database_dump, "*DATABASE_BINARY_D3DUMP\n" + card({"5.9"}) + "*END\n");
    EXPECT_EQ(run_settings.dump_cycles, -5);
    convert_block(database_dump, "*DATABASE_BINARY_D3DUMP\n" + card({"-7"}) + "*END\n");
    EXPECT_EQ(run_settings.dump_cycles, 7);
}

TEST_F(Dump, ACountBeyond32BitsIsTheSmallestIntegerAlsoWhenNegated)
{
    constexpr int smallest = -2147483647 - 1;
    for (const std::string_view count : {"1.0e10", "-1.0e10", "nan"}) {
        convert_block(database_dump, "*DATABASE_BINARY_D3DUMP\n" + card({count}) + "*END\n");
        EXPECT_EQ(run_settings.dump_cycles, smallest);
    }
}

using RunningRestart = FreshRun;

TEST_F(RunningRestart, StoresCyclesAndCount)
{
    const Written written =
        convert_block(database_runrsf, "*DATABASE_BINARY_RUNRSF\n" + card({"1000", "5", "2", "3", "4"}) + "*END\n");
    EXPECT_EQ(run_settings.rsf_cycles, -1000);
    EXPECT_EQ(run_settings.rsf_count, 5);
    EXPECT_EQ(written.log, "\n*DATABASE_BINARY_RUNRSF . . . recognized keyword\n"
                           "unused variables:\n"
                           "      beam:         2\n"
                           "     npltc:         3\n"
                           "    psetid:         4\n");
    EXPECT_EQ(written.terminal, "");
}

using Plot = FreshRun;

TEST_F(Plot, AnIntervalWithoutACurve)
{
    const Written written = convert_block(
        database_plot, "*DATABASE_BINARY_D3PLOT\n" + card({"1.0e-4", "", "2", "3", "4"}) + card({"3"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_dt, 1.0e-4f);
    EXPECT_EQ(run_settings.plot_mode, 0);
    EXPECT_EQ(written.log, "\n*DATABASE_BINARY_D3PLOT . . . recognized keyword\n"
                           "unused variables:\n"
                           "      lcdt:         0\n"
                           "      beam:         2\n"
                           "     npltc:         3\n"
                           "    psetid:         4\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(Plot, ACurveOfTimes)
{
    const Written written = convert_block(database_plot, "*DATABASE_BINARY_D3PLOT\n" + card({"1.0e-4", "7"}) +
                                                             "$    ioopt\n" + card({"3"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_dt, 7.0f);
    EXPECT_EQ(run_settings.plot_mode, 2);
    EXPECT_EQ(written.log, "\n*DATABASE_BINARY_D3PLOT . . . recognized keyword\n"
                           "unused variables:\n"
                           "        dt: 1.000e-04\n"
                           "      beam:         0\n"
                           "     npltc:         0\n"
                           "    psetid:         0\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(Plot, ACurveOfIntervals)
{
    const Written written =
        convert_block(database_plot, "*DATABASE_BINARY_D3PLOT\n" + card({"", "7"}) + card({"1"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_dt, 7.0f);
    EXPECT_EQ(run_settings.plot_mode, 1);
    EXPECT_EQ(lines_with(written.log, "     ioopt"), 0U);
    EXPECT_EQ(written.terminal, "");
}

TEST_F(Plot, OptionTwoIsTakenForOneWithAWarning)
{
    const Written written =
        convert_block(database_plot, "*DATABASE_BINARY_D3PLOT\n" + card({"", "7"}) + card({"2"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_mode, 1);
    EXPECT_EQ(written.log, "\n*DATABASE_BINARY_D3PLOT . . . recognized keyword\n"
                           "unused variables:\n"
                           "        dt: 0.000e+00\n"
                           "      beam:         0\n"
                           "     npltc:         0\n"
                           "    psetid:         0\n"
                           "     ioopt:         2 . . . Changed to ioopt=1 for Kestrune input\n");
    EXPECT_EQ(written.terminal, "\nWarning: Assuming ioopt=1 for *DATABASE_BINARY_D3PLOT\n");
}

TEST_F(Plot, OptionTwoWithoutACurveGivesNoWarning)
{
    const Written written =
        convert_block(database_plot, "*DATABASE_BINARY_D3PLOT\n" + card({"1.0e-4"}) + card({"2"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_mode, 0);
    EXPECT_EQ(lines_with(written.log, "     ioopt"), 0U);
    EXPECT_EQ(written.terminal, "");
}

TEST_F(Plot, AnUnknownOptionLeavesTheModeOfTheBlockBefore)
{
    convert(control_keywords, "*DATABASE_BINARY_D3PLOT\n" + card({"", "7"}) + card({"3"}) +
                                  "*DATABASE_BINARY_D3PLOT\n" + card({"", "8"}) + card({"4"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_mode, 2);
    EXPECT_EQ(run_settings.plot_dt, 8.0f);
}

TEST_F(Plot, OptionZeroResetsTheModeOfTheBlockBefore)
{
    convert(control_keywords, "*DATABASE_BINARY_D3PLOT\n" + card({"", "7"}) + card({"3"}) +
                                  "*DATABASE_BINARY_D3PLOT\n" + card({"", "8"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_mode, 0);
    EXPECT_EQ(run_settings.plot_dt, 8.0f);
}

TEST_F(Plot, WithoutACurveTheModeIsZeroWhateverTheBlockBeforeSaid)
{
    convert(control_keywords, "*DATABASE_BINARY_D3PLOT\n" + card({"", "7"}) + card({"3"}) +
                                  "*DATABASE_BINARY_D3PLOT\n" + card({"0.5"}) + card({"4"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_mode, 0);
    EXPECT_EQ(run_settings.plot_dt, 0.5f);
}

TEST_F(Plot, TheSecondCardIsReadAlsoWhenTheFirstHasMoreColumns)
{
    convert_block(database_plot,
                  "*DATABASE_BINARY_D3PLOT\n" + card({"", "7", "", "", "", "2"}) + card({"3"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_mode, 2);
}

TEST_F(Plot, AMissingSecondCardLeavesTheNextKeyword)
{
    const Written written =
        convert(control_keywords, "*DATABASE_BINARY_D3PLOT\n" + card({"", "7"}) +
                                      "$ only one card\n*CONTROL_SOLUTION\n" + card({"2"}) + "*END\n");
    EXPECT_EQ(run_settings.plot_mode, 0);
    EXPECT_EQ(run_settings.plot_dt, 7.0f);
    EXPECT_EQ(run_settings.soln, 2);
    EXPECT_EQ(lines_equal(written.log, "*CONTROL_SOLUTION . . . recognized keyword"), 1U);
}
