// Which keyword does what in the pass that collects the run settings.
#include "support/control_lines.h"

using ControlPass = FreshRun;

TEST_F(ControlPass, KeywordsThatAreConvertedAreLoggedAsRecognized)
{
    for (const std::string keyword :
         {"*TITLE", "*CONTROL_BULK_VISCOSITY", "*CONTROL_CONTACT", "*CONTROL_HOURGLASS", "*CONTROL_SOLUTION",
          "*CONTROL_TERMINATION", "*CONTROL_TIMESTEP", "*DATABASE_BINARY_D3DUMP", "*DATABASE_BINARY_D3PLOT",
          "*DATABASE_BINARY_RUNRSF", "*DATABASE_NODOUT", "*DATABASE_ELOUT"})
        EXPECT_EQ(first_log_line(control_keywords, keyword), keyword + " . . . recognized keyword");
}

TEST_F(ControlPass, OneCharacterOffIsAnotherKeyword)
{
    for (const std::string keyword :
         {"*CONTROL_BULK_VISCOSITI", "*CONTROL_CONTACS", "*CONTROL_HOURGLASZ", "*CONTROL_SOLUTIOM", "*CONTROL_SPG",
          "*CONTROL_TERMINATIOM", "*CONTROL_TIMESTEQ", "*DATABASE_BINARY_D3DUMB", "*DATABASE_BINARY_D3PLOS",
          "*DATABASE_BINARY_RUNRSG", "*DATABASE_HISTORY_NODA", "*DATABASE_HISTORY_SOLIT", "*DATABASE_HISTORY_SHELM",
          "*DATABASE_HISTORY_NODE_SEU", "*DATABASE_HISTORY_SOLID_SEU", "*DATABASE_HISTORY_SHELL_SEU",
          "*DATABASE_NODOUS", "*DATABASE_ELOUS"})
        EXPECT_EQ(first_log_line(control_keywords, keyword), keyword + " . . . skipped");
    for (const std::string keyword : {"*TITLF", "*CONTROM_SPH", "*DATABASF", "*PART"})
        EXPECT_EQ(first_log_line(control_keywords, keyword), "") << keyword;
}

TEST_F(ControlPass, PrefixesTakeLongerKeywordsToo)
{
    for (const std::string keyword :
         {"*TITLE_OF_THIS", "*CONTROL_TIMESTEP_2", "*CONTROL_CONTACTS", "*DATABASE_ELOUT_B"})
        EXPECT_EQ(first_log_line(control_keywords, keyword), keyword + " . . . recognized keyword");
}

TEST_F(ControlPass, WhatOtherSectionsReadLeavesNoLogLine)
{
    for (const std::string keyword :
         {"*CONTROL_SPH", "*CONTROL_SPH_INCOMPRESSIBLE", "*DATABASE_HISTORY_NODE_SET", "*DATABASE_HISTORY_SOLID_SET",
          "*DATABASE_HISTORY_SHELL_SET", "*DATABASE_HISTORY_NODE_SET_LOCAL", "*DATABASE_HISTORY_NODE",
          "*DATABASE_HISTORY_SOLID", "*DATABASE_HISTORY_SHELL", "*DATABASE_HISTORY_NODES"})
        EXPECT_EQ(convert(control_keywords, keyword + "\n" + card({"1"}) + "*END\n").log, "") << keyword;
}

TEST_F(ControlPass, OtherControlAndDatabaseKeywordsAreSkipped)
{
    EXPECT_EQ(convert(control_keywords, "*CONTROL_ENERGY\n"
                                        "         2         2\n"
                                        "*DATABASE_GLSTAT\n"
                                        "  1.00E-04\n"
                                        "*END\n")
                  .log,
              "\n*CONTROL_ENERGY . . . skipped\n"
              "\n*DATABASE_GLSTAT . . . skipped\n");
}

TEST_F(ControlPass, HistoryKeywordsWithAFurtherSuffixAreSkipped)
{
    for (const std::string keyword : {"*DATABASE_HISTORY_NODE_ID", "*DATABASE_HISTORY_SOLID_ID",
                                      "*DATABASE_HISTORY_SHELL_ID", "*DATABASE_HISTORY_NODE_"})
        EXPECT_EQ(first_log_line(control_keywords, keyword), keyword + " . . . skipped");
}

TEST_F(ControlPass, KeywordsOfOtherFamiliesLeaveNoTrace)
{
    const Written written = convert(control_keywords, "*PART\nheading\n" + card({"1", "1", "1"}) + "*KEYWORD\n*END\n");
    EXPECT_EQ(written.log, "");
    EXPECT_EQ(written.deck, "");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(ControlPass, EndStopsThePass)
{
    convert(control_pass, "*END\n*CONTROL_SOLUTION\n" + card({"6"}) + "*END\n");
    EXPECT_EQ(run_settings.soln, 0);
}

TEST_F(ControlPass, LowerCaseKeywordsAreRecognized)
{
    convert(control_pass, "*Control_Solution\n" + card({"6"}) + "*End\n");
    EXPECT_EQ(run_settings.soln, 6);
}

TEST_F(ControlPass, DefaultsHoldWithoutControlKeywords)
{
    convert(control_pass, "*KEYWORD\n*END\n");
    EXPECT_STREQ(run_settings.title, " ");
    EXPECT_EQ(run_settings.q1, 1.5f);
    EXPECT_EQ(run_settings.q2, 0.06f);
    EXPECT_EQ(run_settings.qtype, 1);
    EXPECT_EQ(run_settings.slsfac, 0.1f);
    EXPECT_EQ(run_settings.ihq, 2);
    EXPECT_EQ(run_settings.qh, 0.1f);
    EXPECT_EQ(run_settings.soln, 0);
    EXPECT_EQ(run_settings.endtim, 0.0f);
    EXPECT_EQ(run_settings.dtinit, 0.0f);
    EXPECT_EQ(run_settings.tssfac, 0.6f);
    EXPECT_EQ(run_settings.lctm, 0);
    EXPECT_EQ(run_settings.plot_dt, 0.0f);
    EXPECT_EQ(run_settings.plot_mode, 0);
    EXPECT_EQ(run_settings.hist_dt, 0.0f);
    EXPECT_EQ(run_settings.dump_cycles, 0);
    EXPECT_EQ(run_settings.rsf_cycles, 0);
    EXPECT_EQ(run_settings.rsf_count, 0);
    EXPECT_EQ(run_settings.sph_boxid, 0);
    EXPECT_EQ(run_settings.sph_dt, 1.0e10f);
    EXPECT_EQ(run_settings.sph_start, 0.0f);
    EXPECT_EQ(run_settings.sph_maxv, 0.0f);
    EXPECT_EQ(run_settings.sph_memory, 0);
}

TEST_F(ControlPass, ControlSphIsNotReadHere)
{
    convert(control_pass, "*CONTROL_SPH\n" + card({"1", "3", "2.0", "3", "150"}) + "*END\n");
    EXPECT_EQ(run_settings.sph_boxid, 0);
    EXPECT_EQ(run_settings.sph_dt, 1.0e10f);
    EXPECT_EQ(run_settings.sph_memory, 0);
}

TEST_F(ControlPass, ALaterBlockOverwritesAnEarlierOne)
{
    convert(control_pass, "*CONTROL_SOLUTION\n" + card({"1"}) + "*TITLE\nfirst\n*TITLE\nsecond\n*CONTROL_SOLUTION\n" +
                              card({"2"}) + "*END\n");
    EXPECT_EQ(run_settings.soln, 2);
    EXPECT_STREQ(run_settings.title, "second");
}

TEST_F(ControlPass, FurtherCardsOfABlockAreSkipped)
{
    convert(control_pass, "*CONTROL_SOLUTION\n" + card({"4"}) + card({"7"}) + "*CONTROL_TERMINATION\n" + card({"0.5"}) +
                              card({"9.0"}) + "*END\n");
    EXPECT_EQ(run_settings.soln, 4);
    EXPECT_EQ(run_settings.endtim, 0.5f);
}

TEST_F(ControlPass, AMissingCardTakesTheNextKeywordLineForOne)
{
    const Written written = convert(control_pass, "*CONTROL_SOLUTION\n*CONTROL_HOURGLASS\n" + card({"5", "0.2"}) +
                                                      "*CONTROL_TERMINATION\n" + card({"0.5"}) + "*END\n");
    EXPECT_EQ(run_settings.soln, 0);
    EXPECT_EQ(run_settings.ihq, 2);
    EXPECT_EQ(run_settings.endtim, 0.5f);
    EXPECT_EQ(lines_with(written.log, "*CONTROL_HOURGLASS"), 0U);
}

TEST_F(ControlPass, AHandlerThatTakesTheEndForACardStillComesToAnEnd)
{
    convert(control_pass, "*CONTROL_CONTACT\n" + card({"0.5"}) + "*END\n");
    EXPECT_EQ(run_settings.slsfac, 0.5f);
}
