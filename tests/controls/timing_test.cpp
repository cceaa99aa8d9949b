// "Timing and Data Control Section": the lines of each kind of deck, and the values that the keyword deck decides.
#include "support/control_lines.h"

using Timing = FreshRun;

namespace
{
// The section line by line, for run settings at their defaults.
std::string expected(const Flags& flags)
{
    const bool d = flags.defflag == 1;
    const bool s = flags.stndflag == 0;
    std::string deck = opening("Timing and Data Control Section");
    deck += line(" Solution Type                  : %10i", 0);
    deck += line("%8s!--- 0=explicit structural, 1=thermal, 2=CLE, 3=eulerian, 4=implicit structural, 5=coupled "
                 "thermal-structural, 6=6-DOF solver\n",
                 " ");
    if (d) {
        deck += "\n";
        deck +=
            line("!-------------                        %10s%10s%10s%10s%10s%10s%10s%10s  Needed for solution type 6\n",
                 "PSID", "xmin", "xmax", "ymin", "ymax", "zmin", "zmax", "dtmax");
        deck += line("!SIXDOF input                   :     %10i%10.2e%10.2e%10.2e%10.2e%10.2e%10.2e%10.2e\n", 1,
                     -1.0e20, 1.0e20, -1.0e20, 1.0e20, 0.0, 1.0e20, 0.01);
        deck += "\n";
    }
    if (s) {
        deck += line("!Global memory size             : %10.3e", 0.6);
        deck += line("%8s!--- Initial memory allocation in Gbyte\n", " ");
    }
    deck += line(" Termination time               : %10.3e\n", 0.005);
    if (d) {
        deck += line("!Initial time step              : %10.3e\n", 1.0e-7);
        deck += line("!Max time step                  : %10i", 0);
        deck += line("%8s!--- LCID defining max time step as a function of sim time\n", " ") + "\n";
        deck += line("!Minimum time step for termination: %8.3f", 0.001);
        deck += line("%8s!---Ratio of initial time step to current time step\n", " ") + "\n";
    }
    deck += line(" Time step scale factor         : %10i%5i", 0, 1) + line("%3s!--- tssfac, lcid\n", " ");
    deck += line(" Plot state frequency           : %10i%5i", 1, 1);
    deck += line("%3s!--- Reference value; option - 0=constant interval,\n", " ");
    deck += line(" Time history frequency         : %10.3e%5i", 1.0e-6, 0);
    deck += line("%3s!--- 1=LCID of interval vs. sim time, 2=constant number of cycles\n", " ");
    deck += line(" Restart frequency              : %10.3e%5i", 0.001, 0);
    deck += line("%3s!--- 3=LCID of plot time list, 4=wall clock time (hours)\n", " ");
    deck += line(" Running restart frequency      : %10i%5i\n", 3, 4);
    if (d) {
        deck += line("!Restart file base name         : %10s", "kestrune");
        deck += line("%8s!--- e.g. kestrune.rst.00001\n", " ");
        deck += line("!Running restart file base name : %10s\n", "kestrune");
    }
    deck += line(" Number of running restart files: %10i\n", 3) + "\n";
    deck += line("!-------------------------------- %10s%10s%10s%10s\n", "elem#", "tstart", "freq", "ftype");
    deck += line("!Time step outlier deletion     : %10i%10.2f%10i%10i\n", 0, 0.0, 0, 0) + "\n";
    if (s) deck += line(" Status report frequency        : %10i%5i\n", 5000, 2);
    if (d) deck += "\n!Standard output option         :   0   !0- no stdout-* files, 1-otherwise\n\n";
    if (d && s) {
        deck += line("!Node history                   : %10i", 0);
        deck += line("%8s!--- 0=off, 1=on; define history sets in .sets file\n", " ");
        deck += line("!Element history                : %10i\n", 0);
        deck += line("!SPH history                    : %10i\n", 0) + "\n";
    }
    if (d) {
        deck += "!Load cell history              :\n";
        deck += line("!--- %5s%11s%11s%11s%11s%11s", "lcid", "elset", "n1", "n2", "n3", "fq");
        deck += line("%6s!--- load cell id; cross section element set;\n", " ");
        deck += line("!%9i%11i%11i%11i%11i%11.3e", 1, 1, 2, 3, 4, 0.001);
        deck += line("%6s!--- normals; output time interval\n\n", " ");
    }
    if (d && s) {
        deck += line("!Binary history file format     : %10i", 0);
        deck += line("%8s!--- 0=blocks based on cycle, 1=blocks based on entity\n", " ");
    }
    return deck + "\n\n";
}

std::string written()
{
    return convert(timing_control, "").deck;
}
}  // namespace

TEST_F(Timing, EachKindOfDeckHasItsLines)
{
    for (const Flags& flags : all_flags) {
        set_flags(flags);
        EXPECT_EQ(written(), expected(flags)) << flags.defflag << flags.stndflag;
    }
}

TEST_F(Timing, OnlyDefflagOneIsComprehensive)
{
    for (const int flag : {2, -1}) {
        defflag = flag;
        EXPECT_EQ(written(), expected({0, 0}));
    }
}

TEST_F(Timing, TheConciseDeckAsItReads)
{
    EXPECT_EQ(
        written(),
        "!------------------------------------------------\n"
        "! Timing and Data Control Section\n"
        "!------------------------------------------------\n"
        "\n"
        " Solution Type                  :          0        !--- 0=explicit structural, 1=thermal, 2=CLE, "
        "3=eulerian, 4=implicit structural, 5=coupled thermal-structural, 6=6-DOF solver\n"
        "!Global memory size             :  6.000e-01        !--- Initial memory allocation in Gbyte\n"
        " Termination time               :  5.000e-03\n"
        " Time step scale factor         :          0    1   !--- tssfac, lcid\n"
        " Plot state frequency           :          1    1   !--- Reference value; option - 0=constant interval,\n"
        " Time history frequency         :  1.000e-06    0   !--- 1=LCID of interval vs. sim time, 2=constant "
        "number of cycles\n"
        " Restart frequency              :  1.000e-03    0   !--- 3=LCID of plot time list, 4=wall clock time "
        "(hours)\n"
        " Running restart frequency      :          3    4\n"
        " Number of running restart files:          3\n"
        "\n"
        "!--------------------------------      elem#    tstart      freq     ftype\n"
        "!Time step outlier deletion     :          0      0.00         0         0\n"
        "\n"
        " Status report frequency        :       5000    2\n"
        "\n"
        "\n");
}

TEST_F(Timing, SolutionTypeComesFromTheDeck)
{
    convert(control_pass, "*CONTROL_SOLUTION\n" + card({"-12"}) + "*END\n");
    EXPECT_EQ(lines_with(written(), " Solution Type                  :        -12        !--- 0=explicit"), 1U);
}

TEST_F(Timing, TerminationTimeDoesNot)
{
    convert(control_pass, "*CONTROL_TERMINATION\n" + card({"0.02"}) + "*END\n");
    EXPECT_EQ(run_settings.endtim, 0.02f);
    EXPECT_EQ(lines_equal(written(), " Termination time               :  5.000e-03"), 1U);
}

TEST_F(Timing, MaximumTimeStepNamesTheCurve)
{
    defflag = 1;
    convert(control_pass, "*CONTROL_TIMESTEP\n" + card({"1.0e-8", "0.5", "", "", "", "3.7"}) + "*END\n");
    const std::string deck = written();
    EXPECT_EQ(lines_equal(deck,
                          "!Max time step                  :          3        !--- LCID defining max time step as a "
                          "function of sim time"),
              1U);
    EXPECT_EQ(lines_equal(deck, "!Initial time step              :  1.000e-07"), 1U);
    EXPECT_EQ(lines_with(deck, " Time step scale factor         :          0    1   !"), 1U);
}

TEST_F(Timing, PlotFrequencyIsTheSameForEachPlotMode)
{
    for (const int mode : {0, 1, 2}) {
        run_settings.plot_mode = mode;
        run_settings.plot_dt = 0.5f;
        EXPECT_EQ(written(), expected({0, 0}));
    }
}

TEST_F(Timing, AHistoryIntervalOfTheDeck)
{
    convert(control_pass, "*DATABASE_NODOUT\n" + card({"1.0e-5"}) + "*END\n");
    const std::string deck = written();
    EXPECT_EQ(lines_with(deck, " Time history frequency         :  1.000e-05    0   !---"), 1U);
    EXPECT_EQ(lines_with(deck, " Restart frequency              :  1.000e-03    0   !---"), 1U);
    EXPECT_EQ(lines_equal(deck, " Running restart frequency      :          3    4"), 1U);
}

TEST_F(Timing, ADumpRequestTakesTheHistoryInterval)
{
    convert(control_pass,
            "*DATABASE_NODOUT\n" + card({"1.0e-5"}) + "*DATABASE_BINARY_D3DUMP\n" + card({"5000"}) + "*END\n");
    EXPECT_EQ(lines_with(written(), " Restart frequency              :  1.000e-05    0   !---"), 1U);
}

TEST_F(Timing, ADumpRequestWithoutAHistoryIntervalGivesZero)
{
    convert(control_pass, "*DATABASE_BINARY_D3DUMP\n" + card({"5000"}) + "*END\n");
    const std::string deck = written();
    EXPECT_EQ(lines_with(deck, " Restart frequency              :  0.000e+00    0   !---"), 1U);
    EXPECT_EQ(lines_with(deck, " Time history frequency         :  1.000e-06    0   !---"), 1U);
}

TEST_F(Timing, ABlankDumpRequestIsNone)
{
    convert(control_pass,
            "*DATABASE_NODOUT\n" + card({"1.0e-5"}) + "*DATABASE_BINARY_D3DUMP\n" + card({""}) + "*END\n");
    EXPECT_EQ(lines_with(written(), " Restart frequency              :  1.000e-03    0   !---"), 1U);
}

TEST_F(Timing, ARunningRestartRequestTakesTheHistoryInterval)
{
    convert(control_pass,
            "*DATABASE_ELOUT\n" + card({"2.5e-5"}) + "*DATABASE_BINARY_RUNRSF\n" + card({"100", "7"}) + "*END\n");
    const std::string deck = written();
    EXPECT_EQ(lines_equal(deck, " Running restart frequency      :  2.500e-05    0"), 1U);
    EXPECT_EQ(lines_equal(deck, " Number of running restart files:          3"), 1U);
}

TEST_F(Timing, ARunningRestartRequestWithoutAHistoryIntervalGivesZero)
{
    convert(control_pass, "*DATABASE_BINARY_RUNRSF\n" + card({"100", "7"}) + "*END\n");
    EXPECT_EQ(lines_equal(written(), " Running restart frequency      :  0.000e+00    0"), 1U);
}
