// "Restart Control Section" and "Partition Section".
#include "support/control_lines.h"

using Restart = FreshRun;
using Partition = FreshRun;

TEST_F(Restart, SevenInactiveSettingsInEveryDeck)
{
    for (const Flags& flags : all_flags) {
        set_flags(flags);
        EXPECT_EQ(convert(restart_control, "").deck, "!------------------------------------------------\n"
                                                     "! Restart Control Section\n"
                                                     "!------------------------------------------------\n"
                                                     "\n"
                                                     "! Restart file                          : \n"
                                                     "! AMR Restart file                      : \n"
                                                     "! Delete contact definition             : \n"
                                                     "! General contact part removal          : \n"
                                                     "! General contact part set removal      : \n"
                                                     "! Delete part                           : \n"
                                                     "! Delete part set                       : \n"
                                                     "\n"
                                                     "\n");
    }
}

TEST_F(Partition, EachKindOfDeckHasItsLines)
{
    const std::string always =
        opening("Partition Section") + line("  Repartition for contact calculation           : %5i", 2) +
        line("%5s!--- 0=balance for number of surf segments\n", " ") +
        line("                                                  %10s!--- 1=minimize cost of contact algorithm\n", " ") +
        line("                                                  %10s!--- 2=balance contact detection and contact "
             "algorithm costs\n\n",
             " ");
    const std::string unless_standards = "! Overlap element computation with communication:" +
                                         line("%5s!--- Defaults should only be changed by advaced users\n", " ") +
                                         "! Section size of solid element groups          : \n"
                                         "! Section size of shell element groups          : \n" +
                                         line("! Surface partition                             : %5i\n", 2) +
                                         line("! Weight factor of penalty force calculation    : %5.1f\n", 3.0) +
                                         line("! Weight factor of nearest neighbor search      : %5.1f\n", 1.0) +
                                         "\n\n";
    for (const Flags& flags : all_flags) {
        set_flags(flags);
        EXPECT_EQ(convert(partition, "").deck, flags.stndflag == 0 ? always + unless_standards : always)
            << flags.defflag << flags.stndflag;
    }
}

TEST_F(Partition, WithStandardsItEndsBehindOneEmptyLine)
{
    stndflag = 2;
    EXPECT_TRUE(convert(partition, "").deck.ends_with("contact algorithm costs\n\n"));
    EXPECT_FALSE(convert(partition, "").deck.ends_with("\n\n\n"));
}
