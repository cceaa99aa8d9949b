// "SPH Control Section": the lines of each kind of deck, and the values of the keyword deck.
#include "support/control_lines.h"

using Sph = FreshRun;

namespace
{
struct Values {
    int boxid = 0;
    double birth = 0.0;
    double death = 1.0e10;
    double deactivation_velocity = 1.0e6;
    int memory = 0;
};

std::string box_deactivation(const Flags& flags, const Values& values)
{
    std::string deck = "\n" + line(" SPH deactivation:                           %10s", " ");
    deck += "   !--- vtype:  0=box volume ID (BVID),\n";
    deck += "!---   vid     vtype    option     birth     death       ";
    deck += " !---         1=sphere volume ID (SVID)\n";
    deck += line("%10i%10i%10i%10.3e%10.3e", 1, 0, 2, values.birth, values.death);
    deck += "        !--- option: 0=no deactivation,\n";
    deck += line("%58s!---         1=delete from domain,\n", " ");
    deck += line("%58s!---         2=convert to simple particles\n", " ") + "\n";
    deck += " Box Definition:\n";
    deck += "!---  bvid      Xmin      Xmax      Ymin      Ymax      Zmin      Zmax\n";
    deck += line("%10i%10i%10i%10i%10i%10i%10i", 1, -100, 100, -100, 100, -100, 100) + "\n" + "\n";
    if (flags.defflag == 1) {
        deck += "!Sphere Definition:\n";
        deck += "!---  svid         x         y         z    radius\n";
        deck += line("!%9i%10i%10i%10i%10i", 1, 0, 0, 0, 1) + "\n";
    }
    return deck;
}

// What stands between the smoothing lengths and the place of the particle count.
std::string settings(const Flags& flags, const Values& values)
{
    const bool d = flags.defflag == 1;
    const bool s = flags.stndflag == 0;
    std::string deck;
    if (s) {
        deck += line(" Global smoothing length limits       : %5.1f%5.1f", 0.1, 10.0);
        deck += "        !--- minimum smoothing length; maximum smoothing length\n";
        deck += line("%58s!--- (ratio relative to initial smoothing length)\n", " ");
        deck += line(" SPH artificial viscosity             : %2i%5.1f%5.1f%5.1f", 1, 1.0, 2.0, 0.1);
        deck += " !--- 0=off,1=on; alpha; beta; epsilon\n";
        deck += line(" SPH formulation                      : %10i", 1) +
                "        !--- 0=conservative, 1=non-conservative\n";
        deck += line(" SPH part interaction                 : %10i", 1) + "        !--- 0=HE 1=All Others \n";
        deck +=
            line(" SPH particle contact scheme          : %10i", 1) + "        !--- 0= Penalty Based ; 1= LaGrangian\n";
        deck += line(" SPH lagrange multiplier max iteration: %10i\n", 7);
        deck += line(" Renormalization frequency            : %10i", 10);
        deck += "        !--- integer, cycles between sph renormalization\n";
    }
    deck += line(" SPH velocity gradient renormalization: %10i", 0) + "        !--- 0=off, 1=on\n";
    if (d && s) {
        deck += line("!SPH multistep scheme                 : %10i", 0) + "        !--- 0=off, 1=on\n";
        deck += line("!Smoothing length                     : %5i%5.1f%5i", 1, 1.5, values.memory);
        deck += "   !--- pid; factor; neighbors\n";
        deck += line("!SPH particle contact scale factor    : %10.2f", 0.01);
        deck += "        !--- penalty scale factor for SPH particle-to-particle penalty-based contact force\n";
        deck += line("!SPH lagrange multiplier max iteration: %10i\n", 7);
        deck += line("!SPH boundary particle unit threshold : %10.1f", 0.9);
        deck += "        !--- threshold value used to determine if a particle is on boundary\n";
        deck += line("!SPH particle thickness factor        : %10.1f", 1.0);
        deck += "        !--- scale factor for SPH particle thickness to calculate solid contact\n";
        deck += line("!SPH exclude partition direction      : %10.1f", 1.0);
        deck += "        !--- 0=no exclusion; 1=exclude x-dir, 2=exclude y-dir, 3=exclude z-dir, <0=random selection\n";
        deck += line("!Repartition frequency                : %10i\n", 500);
        deck += line("!Repartition overlap threshold        : %10.1f\n", 1.0);
        deck += line("!SPH repartition for memory           : %10i\n", 1);
        deck += line(" Reset lonely particles               : %10i", 0) + "        !--- 0=off, 1=on\n";
    }
    return deck;
}

std::string particle_count()
{
    return line(" Initial number of SPH per processor  : %10i", 0) +
           "        !--- initial guess of number of particle in each processor\n" +
           line("%58s!--- (current number assumes one processor)\n", " ") +
           line(" SPH max number of nearest neighbors  : %10i", 200) + "\n";
}

std::string criteria(const Flags& flags, const Values& values)
{
    std::string deck = "\n" + line(" SPH deactivation velocity:                  %10s", " ");
    deck += "       !--- option: 0=no deactivation and deletion,\n";
    deck += "!---option   deact_vel  delete_vel   t_start     t_end       ";
    deck += " !---         1=particle deactivation and deletion,\n";
    deck += line("%10i%12.3e%12.3e%10.3e%10.3e\n", 1, values.deactivation_velocity, 1.0e7, values.birth, values.death);
    deck += "\n" + line(" SPH deactivation timestep:                  %10s", " ");
    deck += "       !--- option: 0=no deactivation,\n";
    deck += "!---option  timestep     birth     death                 ";
    deck += "     !---         1=delete from domain,\n";
    deck += line("%10i%10.1f%10.3e%10.3e", 2, -0.5, values.birth, values.death);
    deck += "                      !---         2=convert to simple particles\n";
    if (flags.defflag != 1) return deck;

    deck += "\n" + line("!SPH deactivation density:                  %10s", " ");
    deck += "        !--- option: 0=no deactivation,\n";
    deck += "!---option     min_den     max_den   t_start     t_end       ";
    deck += " !---         1=delete from domain,\n";
    deck += line("!%9i%12.3e%12.3e%10.3e%10.3e", 1, 1.0, 1.0e10, values.birth, values.death);
    deck += "        !---         2=convert to simple particles\n";
    deck += "\n" + line("!SPH deactivation pressure:                %9s", " ");
    deck += "         !--- option: 0=no deactivation,\n";
    deck += "!---option    min_pres    max_pres   t_start     t_end       ";
    deck += " !---         1=delete from domain,\n";
    deck += line("!%9i%12.3e%12.3e%10.3e%10.3e", 1, 1.0e10, 1.0e20, values.birth, values.death);
    deck += "        !---         2=convert to simple particles\n";
    deck += "\n" + line("!SPH deactivation energy:                   %9s", " ");
    deck += "         !--- option: 0=no deactivation,\n";
    deck += "!---option      min_ie      max_ie   t_start     t_end       ";
    deck += " !---         1=delete from domain,\n";
    deck += line("!%9i%12.3e%12.3e%10.3e%10.3e", 1, 1.0e10, 1.0e20, values.birth, values.death);
    deck += "        !---         2=convert to simple particles\n";
    return deck + "\n\n";
}

// The section of a deck without particle parts.
std::string expected(const Flags& flags, const Values& values)
{
    std::string deck = opening("SPH Control Section") + settings(flags, values);
    if (flags.defflag == 1 && flags.stndflag == 0) deck += particle_count();
    if (values.boxid == 0) deck += box_deactivation(flags, values);
    return deck + criteria(flags, values);
}
}  // namespace

TEST_F(Sph, WithoutControlSphTheDefaultsHold)
{
    for (const Flags& flags : all_flags) {
        set_flags(flags);
        const Written written = convert(sph_control, "*KEYWORD\n*END\n");
        EXPECT_EQ(written.deck, expected(flags, {})) << flags.defflag << flags.stndflag;
        EXPECT_EQ(written.log, "");
        EXPECT_EQ(written.terminal, "");
    }
}

TEST_F(Sph, OnlyDefflagOneIsComprehensive)
{
    for (const int flag : {2, -1}) {
        defflag = flag;
        EXPECT_EQ(convert(sph_control, "*END\n").deck, expected({0, 0}, {}));
    }
}

TEST_F(Sph, ValuesOfTheDeck)
{
    const std::string deck = "*CONTROL_SPH\n" + card({"1", "3", "2.5", "3", "99", "0", "0.5", "500.0"}) + "*END\n";
    for (const Flags& flags : all_flags) {
        run_settings = {};
        set_flags(flags);
        EXPECT_EQ(
            convert(sph_control, deck).deck,
            expected(flags, {.boxid = 3, .birth = 0.5, .death = 2.5, .deactivation_velocity = 500.0, .memory = 99}))
            << flags.defflag << flags.stndflag;
    }
}

TEST_F(Sph, ABoxOfTheDeckLeavesOutTheSolversBox)
{
    defflag = 1;
    const std::string deck = convert(sph_control, "*CONTROL_SPH\n" + card({"", "3"}) + "*END\n").deck;
    for (const std::string beginning : {" SPH deactivation:", "!---   vid", " Box Definition", "!Sphere Definition"})
        EXPECT_EQ(lines_with(deck, beginning), 0U) << beginning;
}

TEST_F(Sph, AVelocityOfTheDeckReplacesTheSample)
{
    EXPECT_EQ(lines_equal(convert(sph_control,
                                  "*CONTROL_SPH\n" + card({"", "", "1.0e9", "", "", "", "0.25", "500.0"}) + "*END\n")
                              .deck,
                          "         1   5.000e+02   1.000e+07 2.500e-01 1.000e+09"),
              1U);
    EXPECT_EQ(lines_equal(convert(sph_control, "*CONTROL_SPH\n" + card({"", "", "1.0e9"}) + "*END\n").deck,
                          "         1   1.000e+06   1.000e+07 0.000e+00 1.000e+09"),
              1U);
}

TEST_F(Sph, NegativeValuesCountAsGiven)
{
    const std::string deck =
        convert(sph_control, "*CONTROL_SPH\n" + card({"", "-3", "1.0e9", "", "", "", "0.25", "-500.0"}) + "*END\n")
            .deck;
    EXPECT_EQ(lines_equal(deck, "         1  -5.000e+02   1.000e+07 2.500e-01 1.000e+09"), 1U);
    EXPECT_EQ(lines_with(deck, " SPH deactivation velocity:"), 1U);
    EXPECT_EQ(lines_with(deck, " SPH deactivation:"), 0U);
    EXPECT_EQ(lines_with(deck, " Box Definition"), 0U);
}

TEST_F(Sph, DefaultsOfTheDeactivationAsTheyRead)
{
    const std::string deck = convert(sph_control, "*END\n").deck;
    EXPECT_EQ(
        lines_equal(deck, "         1         0         2 0.000e+00 1.000e+10        !--- option: 0=no deactivation,"),
        1U);
    EXPECT_EQ(lines_equal(deck, "         1   1.000e+06   1.000e+07 0.000e+00 1.000e+10"), 1U);
    EXPECT_TRUE(deck.ends_with(
        "\n         2      -0.5 0.000e+00 1.000e+10                      !---         2=convert to simple particles\n"));
}

TEST_F(Sph, ParticlePartsComeFirstWithTheNeighboursOfControlSph)
{
    defflag = 1;
    // *CONTROL_SPH behind the parts: it is read in a pass of its own before them
    const Written written =
        convert(sph_control, "*PART\nwater\n" + card({"7", "2", "1"}) + "*PART\nplate\n" + card({"8", "1", "1"}) +
                                 "*SECTION_SPH\n" + card({"2"}) + "*SECTION_SOLID\n" + card({"1"}) + "*CONTROL_SPH\n" +
                                 card({"", "", "", "", "150"}) + "*END\n");
    EXPECT_TRUE(written.deck.starts_with(
        opening("SPH Control Section") +
        " Smoothing length                     :     7  1.5  150   !--- pid; factor; neighbors\n"
        " Global smoothing length limits       :   0.1 10.0        !--- minimum"));
    EXPECT_EQ(lines_with(written.deck, " Smoothing length"), 1U);
    EXPECT_EQ(lines_equal(written.deck,
                          "!Smoothing length                     :     1  1.5  150   !--- pid; factor; neighbors"),
              1U);
    EXPECT_EQ(lines_with(written.log, "*CONTROL_SPH . . . recognized keyword"), 1U);
    EXPECT_EQ(lines_with(written.log, "*PART"), 0U);
}

TEST_F(Sph, ThePlaceOfTheParticleCountIsRemembered)
{
    defflag = 1;
    const std::string deck = convert(sph_control, "*END\n").deck;
    EXPECT_EQ(particle_count_position, deck.find(" Initial number of SPH per processor  : "));
    EXPECT_EQ(deck.substr(static_cast<std::size_t>(particle_count_position), 50),
              " Initial number of SPH per processor  :          0");
}

TEST_F(Sph, ThePlaceIsRememberedAlsoWhenTheLineIsLeftOut)
{
    for (const Flags& flags : {Flags{0, 0}, Flags{0, 1}, Flags{1, 1}}) {
        set_flags(flags);
        const std::string deck = convert(sph_control, "*END\n").deck;
        EXPECT_EQ(particle_count_position, deck.find("\n SPH deactivation:")) << flags.defflag << flags.stndflag;
    }
}

TEST_F(Sph, TheConciseSectionEndsWithoutEmptyLines)
{
    const std::string deck = convert(sph_control, "*END\n").deck;
    EXPECT_TRUE(deck.ends_with("2=convert to simple particles\n"));
    defflag = 1;
    EXPECT_TRUE(convert(sph_control, "*END\n").deck.ends_with("2=convert to simple particles\n\n\n"));
}
