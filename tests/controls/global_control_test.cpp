// "Global Contact, Hourglass, & Viscosity Control": the lines of each kind of deck, and the values of the keyword deck.
#include "support/control_lines.h"

using GlobalControl = FreshRun;

namespace
{
// The section line by line, for run settings at their defaults.
std::string expected(const Flags& flags)
{
    const bool d = flags.defflag == 1;
    const bool s = flags.stndflag == 0;
    std::string deck;
    if (s || d)
        deck += "!------------------------------------------------\n"
                "! Global Contact, Hourglass, & Viscosity Control\n"
                "!------------------------------------------------ \n"
                "\n";
    if (s) {
        deck += line(" Element deletion flag                 : %10i", 1);
        deck += "   !--- 0=no deletion, 1=elements removed or converted to particles (default)\n";
        deck += line(" Particle conversion activation        : %5i%5i", 1, 1);
        deck += "   !--- 0=off, 1=SPH, 2=simple particles (legacy);\n";
        deck += line("%54s!--- 1=1 particle per element, 8=8 particles per solid and 4 per shell\n", " ");
    }
    if (d) {
        deck += "\n" + line("!Global contact penalty scale factor   : %10.2f", 0.1);
        deck += "   !--- Do not change, change scale factors in contact section instead\n";
    }
    if (d && s) {
        deck += line(" Hourglass stabilization method        : %10i", 2) + "   !--- Available Hourglass Methods:\n";
        deck += line("%59s!--- 1=Standard DYNA3D (default)\n", " ");
        deck += line("%59s!--- 2=Flanagan-Belytschko (viscous form)\n", " ");
        deck += line("%59s!--- 3=Flanagan-Belytschko w/ exact volume integration (viscous form)\n", " ");
        deck += line("%59s!--- 4=Stiffness form of type 2\n", " ");
        deck += line("%59s!--- 5=Stiffness form of type 3\n", " ");
        deck += line(" Hourglass stabilization coefficient   : %10.2f\n", 0.1);
        deck += line(" Bulk viscosity type for shock capture : %10i", 1) + "        !--- 1=Standard DYNA3D\n";
        deck += line(" Quadratic bulk viscosity coefficient  : %10.1f\n", 1.5);
        deck += line(" Linear bulk viscosity coefficient     : %10.2f\n", 0.06);
    }
    if (d) {
        deck += line("!Part specific particle conversion scheme: %5i%5i%5i%5i", 1, 2, 1, 8);
        deck += "   !---PID; ID_type (1-part set; 2-part)\n";
        deck += line("                                           %20s   !---switch (0=no conversion, 1=convert to sph, "
                     "2=convert to simple particles)\n",
                     " ");
        deck += line("                                           %20s   !---option (1=one particle/element, 8=eight "
                     "particles/element)\n",
                     " ");
        deck +=
            "\n" + line("!--------------------------------------- %10s%10s%10s%10s", "fcrit", "freq", "tstart", "tend");
        deck += line("%3s!---Fraction of critical damping; frequency (rad/time) to be damped\n", " ");
        deck += line("!Mass proportional Rayleigh damping    : %10.2f%10.2f%10.2f%10.2e", 0.0, 0.0, 0.0, 0.0);
        deck += line("%3s!---Start time; end time\n\n", " ");
        deck +=
            line("!--------------------------------------- %10s%10s%10s%10s%10s", "id", "id_type", "beta", "e", "pr");
        deck += line("%3s!---part id; id type 1=psid, 2=pid; stiffness constant\n", " ");
        deck += line("!Stiffness proportional Rayleigh damping:%10.1i%10.1i%10.2f%10.3e%10.2f", 0, 0, 0.0, 0.0, 0.3);
        deck += line("%3s!---Effective modulus; effective Poisson's ratio\n\n", " ");
    }
    return deck + "\n\n";
}

std::string written()
{
    return convert(global_control, "").deck;
}
}  // namespace

TEST_F(GlobalControl, EachKindOfDeckHasItsLines)
{
    for (const Flags& flags : all_flags) {
        set_flags(flags);
        EXPECT_EQ(written(), expected(flags)) << flags.defflag << flags.stndflag;
    }
}

TEST_F(GlobalControl, AConciseDeckWithStandardsHasOnlyTheTwoNewlines)
{
    for (const int flag : {1, 2, -1}) {
        stndflag = flag;
        EXPECT_EQ(written(), "\n\n");
    }
}

TEST_F(GlobalControl, ValuesOfTheDeck)
{
    defflag = 1;
    convert(control_pass, "*CONTROL_CONTACT\n" + card({"0.25"}) + "\n*CONTROL_HOURGLASS\n" + card({"5", "0.05"}) +
                              "*CONTROL_BULK_VISCOSITY\n" + card({"2.04", "0.126", "2"}) + "*END\n");
    const std::string deck = written();
    EXPECT_EQ(lines_equal(deck,
                          "!Global contact penalty scale factor   :       0.25   !--- Do not change, change scale "
                          "factors in contact section instead"),
              1U);
    EXPECT_EQ(
        lines_equal(deck, " Hourglass stabilization method        :          5   !--- Available Hourglass Methods:"),
        1U);
    EXPECT_EQ(lines_equal(deck, " Hourglass stabilization coefficient   :       0.05"), 1U);
    EXPECT_EQ(lines_equal(deck, " Bulk viscosity type for shock capture :          1        !--- 1=Standard DYNA3D"),
              1U);
    EXPECT_EQ(lines_equal(deck, " Quadratic bulk viscosity coefficient  :        2.0"), 1U);
    EXPECT_EQ(lines_equal(deck, " Linear bulk viscosity coefficient     :       0.13"), 1U);
}

TEST_F(GlobalControl, TheTitleRuleHasATrailingBlankOnlyBelow)
{
    const std::string deck = written();
    EXPECT_EQ(lines_equal(deck, "!" + std::string(48, '-')), 1U);
    EXPECT_EQ(lines_equal(deck, "!" + std::string(48, '-') + " "), 1U);
}
