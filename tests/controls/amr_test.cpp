// "AMR Section": the lines of each kind of deck.
#include "support/control_lines.h"

using Amr = FreshRun;

namespace
{
std::string blocks(bool d)
{
    std::string deck;
    deck += "!AMR domain definition:\n";
    deck += line("!%10s%10s%10s%10s%10s%10s\n", "xmin", "ymin", "zmin", "xmax", "ymax", "zmax");
    deck += line("!%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    deck += "!   if the domain could be worked into square with the block definition these would be minimum\n\n";

    deck += "!AMR background definition:\n";
    deck += line("!%10s%10s%10s%10s%10s%10s", "rho", "press", "vx", "vy", "vz", "switch");
    deck += line("%3s!--switch=0 enable Lagrange surface interaction with background properties\n", " ");
    deck += line("!%10.3e%10.3e%10.3e%10.3e%10.3e%10i", 0.001204, 1013250.0, 0.0, 0.0, 0.0, 0);
    deck += line("%3s!--switch=1 offset Lagrange surface interaction with background properties\n\n", " ");

    deck += "!AMR minimum cell size definition: 0.3\n\n";

    deck += "!AMR flooding definition:\n";
    deck += line("!%10s%10s%10s%10s%10s%10s%10s%10s\n", "sx", "sy", "sz", "rho", "press", "vx", "vy", "vz");
    deck += line("!%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e\n\n", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);

    if (d) {
        deck += "!AMR sphere domain definition:\n";
        deck +=
            line("!%10s%10s%10s%10s%10s%10s%10s%10s%10s\n", "xc", "yc", "zc", "radius", "ro", "po", "vx", "vy", "vz");
        deck += line("!%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e\n\n", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0,
                     0.0, 0.0);

        deck += "!AMR box domain definition:\n";
        deck += line("!%10s%10s%10s%10s%10s%10s%10s%10s\n", "xmin", "ymin", "zmin", "xmax", "ymax", "zmax", "ro", "po");
        deck += line("!%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e\n", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
        deck += line("!%10s%10s%10s\n", "vx", "vy", "vz");
        deck += line("!%10.3e%10.3e%10.3e\n\n", 0.0, 0.0, 0.0);
    }

    deck += "!AMR Ideal gas EOS definition:\n";
    deck += line("!%10s%10s\n", "k", "rs");
    deck += line("!%10.2f%10.3e\n\n", 1.4, 2871000.0);

    deck += "!AMR JWL EOS definition:\n";
    deck += line("!%10s%10s%10s%10s%10s%10s%10s\n", "a", "b", "r1", "r2", "omega", "ro", "cv");
    deck += line("!%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e\n\n", 3.712e12, 3.231e10, 4.15, 0.95, 0.3, 1.6, 1.0);

    deck += "!AMR SESAME EOS definition:\n";
    deck += line("!%18s%10s%10s%10s%10s%10s%10s\n", "table file name", "runit", "punit", "eunit", "poff", "eoff",
                 "criterion");
    deck +=
        line("!%18s%10.1e%10.1e%10.1e%10.1e%10.1e%10.1e\n\n", "aWater7154.ses", 1.0, 1.0e10, 1.0e10, 0.0, 0.0, 1.0e-4);

    deck += "!AMR HE REFINEMENT DEFINITION:\n";
    deck += "!    HE_PartID   Size   TEnd\n\n";

    deck += "!AMR Lagrangian Part Conversion:\n";
    deck += line("!%10s%10s%10s\n\n", "psid", "type", "t_conv");

    if (d) {
        deck += "!AMR boundary condition definition:\n";
        deck += line("!%10s%10s%10s%10s%10s%10s%10s", "bcid", "bc-type", "dens", "pres", "vx", "vy", "vz");
        deck += "   !--- bc-type: 1=far-field; 2=static wall; 3=inflow\n";
        deck += line("!%10i%10i%10.3e%10.3e%10.3e%10.1f%10.1f\n\n", 1, 3, 0.0012, 1010000.0, 470000.0, 0.0, 0.0);

        deck += "!AMR domain boundary definition:\n";
        deck += line("!%10s%10s%10s%10s%10s%10s\n", "xl", "xu", "yl", "yu", "zl", "zu");
        deck += line("!%10i%10i%10i%10i%10i%10i\n\n", 1, 1, 1, 1, 1, 1);

        deck += "!AMR segment boundary condition:\n";
        deck += line("!%10s%10s%10s%10s\n", "sid", "dens", "press", "mach");
        deck += line("!%10i%10.f%10.1f%10.1f\n\n", 1, 1.0, 1.5, 1.2);

        deck += line("!AMR eulerian tracer frequency         : %10.3e%10i\n", 1.0e-6, 0);
    }
    return deck;
}

std::string solver_controls(bool d, bool s)
{
    std::string deck;
    if (s) {
        deck += line("!AMR initial and maximum CFL           : %10.1e%10.1e", 1.0e-4, 0.8);
        deck += line("%5s!--initialization ts scale factor; steady-state ts scale factor\n", " ");
        deck += line("!AMR maximum solution difference       : %10i\n", 0);
        deck += line("!AMR FIRST-ORDER SCHEME                : %10i", 0);
        deck += line("%15s!--1=use the first-order scheme\n", " ");
        deck += line(" AMR INTERFACE SCHEME                  : %10i", 1);
        deck += line("%15s!--1=the second-order interface scheme\n", " ");
        deck += line(" AMR LEAST SQUARE PRESSURE INTERPOLATION:%9i", 1);
        deck += line("%15s!--1=the least-square pressure interpolation\n", " ");
        deck += line(" AMR interface synchronization         : %10i%10i", 1, 0);
        deck +=
            line("%5s!--0=delayed synchronization until Eulerian timestep, 1=forced synchronization based on Lagrange "
                 "surfaces\n",
                 " ");
        deck += line("!AMR interface movement step factor    : %10.1f\n", 0.9);
        deck += line(" AMR refine derefine criteria          : %10.2f%10.2f", 0.1, 0.05);
        deck += line("%5s!--refinement factor; derefinement factor\n", " ");
        deck += line(" AMR output CLE warning                : %10i", 0) + line("%15s!--0=off, 1=on\n", " ");
    }
    deck += line(" AMR plot state frequency              : %10s%10i", "APSFLC", 3) + line("%5s!--value; option\n", " ");
    deck += line("!AMR plot file type                    : %10i", 2) + line("%15s!--1=.uns, 2=.vld, 3=both\n", " ");
    deck += "!AMR plot file base name               : kestrune\n";
    deck += line("!AMR termination time                  : %10.3e\n", 2.0e-4);
    deck += "!AMR eulerian tracer point definition:\n";
    deck += line("!%10s%10s%10s%10s\n", "id", "x", "y", "z");
    deck += line("!%10i%10.f%10.1f%10.1f\n", 1, 1.0, 1.0, 1.0);
    deck += line("!%10i%10.f%10.1f%10.1f\n\n", 2, 3.0, 6.0, 3.4);
    deck += line("!AMR minimum time step scale factor    : %10i", -1);
    deck += line("%15s!-- >0=scale factor value -1=deactivate (default)\n", " ");
    if (d) {
        deck += line("!SPH drag coefficient                  : %10.2f\n", 0.0);
        deck += line("!AMR ignored segment set               : %10i%10i\n", 1, 1);
    }
    deck += line("!AMR ignored parts                     : %10i%10i", 1, 1);
    deck += line("%5s!--part or set id; type (1-part set,2-part)\n\n", " ");
    deck += line("!AMR part history definition           : %10i%10i", 1, 1);
    deck += line("%5s!--part or set id; type (1-part set,2-part)\n\n", " ");
    if (d) {
        deck += "!AMR segment history set:\n";
        deck += line("!%10s%10s%10s%10s%10s\n", "id", "n1", "n2", "n3", "n4");
        deck += line("!%10i%10i%10i%10i%10i\n", 1, 1, 2, 3, 4);
        deck += line("!%10i%10i%10i%10i%10i\n\n", 2, 5, 6, 7, 8);
        deck += "!AMR restart file                      : \n";
    }
    return deck;
}
}  // namespace

TEST_F(Amr, EachKindOfDeckHasItsLines)
{
    for (const Flags& flags : all_flags) {
        set_flags(flags);
        const bool d = flags.defflag == 1;
        const bool s = flags.stndflag == 0;
        EXPECT_EQ(convert(amr_section, "").deck, opening("AMR Section") + blocks(d) + solver_controls(d, s))
            << flags.defflag << flags.stndflag;
    }
}

TEST_F(Amr, TheEmptyLinesBehindItAreNotItsOwn)
{
    EXPECT_TRUE(convert(amr_section, "").deck.ends_with("!--part or set id; type (1-part set,2-part)\n\n"));
    defflag = 1;
    EXPECT_TRUE(convert(amr_section, "").deck.ends_with("!AMR restart file                      : \n"));
}
