#include "loading/contact_options.h"

#include "reader/run.h"

namespace
{
constexpr const char* contact_schemes[] = {
    "0=Range search based single surface",
    "1=Nearest node based single surface",
    "2=Slave/Master multiple surfaces",
    "3=Lagrange multiplier method",
};
}  // namespace

void write_contact_options(const ContactOptions& options)
{
    text(inpfile, "!--- Global contact options\n");
    print(inpfile, " Contact scheme                       : %10i", options.scheme);
    text(inpfile, "   !--- -1=off\n");
    for (const char* scheme : contact_schemes) print(inpfile, "%53s!--- %s\n", " ", scheme);
    print(inpfile, " Max segments per node                : %10i\n", 16);
    print(inpfile, " Iterations between NN search         : %10i\n", options.searches);
    print(inpfile, " Parallel efficiency threshold        : %10.1f\n", 0.9);
    print(inpfile, " Fix initial penetration              :%3i %5.1e", 0, 0.0001);
    text(inpfile, "   !--- 0=off, 1=on;  Tolerance (final/initial penetration)\n");
    text(inpfile, "\n");

    text(inpfile, "!--- Contact type 3 options\n");
    print(inpfile, "!Contact constraint type              : %10i", 0);
    text(inpfile, "   !--- 0=velocity, 1=displacement\n");
    print(inpfile, "!Max number of contact iterations     : %10i\n", 4);
    text(inpfile, "\n");

    text(inpfile, "!--- Penalty based contact options\n");
    print(inpfile, " Element penalty formulation          : %10i", options.soft);
    text(inpfile, "   !--- 0=Standard penalty, 1=Soft material penalty\n");
    print(inpfile, " Element penalty scale factor         : %10.1f", options.penalty_scale);
    text(inpfile, "   !--- Defined for both standard and soft penalty formulations\n");
    print(inpfile, "!Part specific element scale factor   : %5i%5.1f", 2, 1.0);
    text(inpfile, "   !--- PID  PSF \n");  // sic: the trailing blank
    if (options.shell_thickness != 0.0f && options.shell_thickness != 1.0f)
        print(inpfile, " Shell thickness scale factor         : %10.1f\n", options.shell_thickness);
    else
        print(inpfile, "!Shell thickness scale factor         : %10.1f\n", options.shell_thickness);
    print(inpfile, " Particle penalty formulation         : %10i", 0);
    text(inpfile, "   !--- 0=Standard penalty, 1=Soft material penalty\n");
    print(inpfile, " Particle penalty scale factor        : %10.1f", 1.0);
    text(inpfile, "   !--- controls contact based on element surfaces\n");
    print(inpfile, "!Part specific particle scale factor  : %5i%5.1f", 4, 1.0);
    text(inpfile, "   !--- PID  PSF\n");
    text(inpfile, "\n");

    text(inpfile, "!--- Contact type 2 options\n");
}

// sic: several values and comments differ from those of the first contact: the scheme and its "off", the contact
// iterations, the nearest-neighbour iterations, the parallel efficiency.
void write_default_contact_options()
{
    text(inpfile, "!--- Global contact options\n");
    print(inpfile, " Contact scheme                             : %10i", 3);
    text(inpfile, "   !--- 1=off\n");
    for (const char* scheme : contact_schemes) print(inpfile, "%59s!--- %s\n", " ", scheme);
    text(inpfile, "!--- Contact type 3 options\n");
    print(inpfile, "!Contact constraint type                    : %10i", 0);
    text(inpfile, "   !--- 0=velocity, 1=displacement\n");
    print(inpfile, " Max number of contact iterations           : %10i\n", 15);
    print(inpfile, " Curvature based adaptive contact option    : %10i", 0);
    text(inpfile, "   !--- 0=off(default), 1=center, 2=corners, 3=both; \n");
    if (comprehensive()) {
        print(inpfile, "!Contact preconditioning scheme             : %10i", 0);
        text(inpfile, "   !--- 0=point Jacobian (default), 1=legacy\n");
        print(inpfile, "!Contact convergence tolerance              : %10.3e\n", 1.0e-6);
        print(inpfile, "!Aspect ratio based adaptive contact option : %10i", 0);
        text(inpfile, "   !--- 0=off(default), 1=on \n");
        print(inpfile, "!Part Set Excluded from Contact             : %5i%5i", 1, 2);
        text(inpfile, "   !---sid1, sid2, etc.\n");
        text(inpfile, "!--- Additional contact options\n");
        print(inpfile, "!Max segments per node                      : %10i\n", 16);
    }
    print(inpfile, " Iterations between NN search               : %10i\n", 1);
    if (comprehensive()) {
        print(inpfile, "!Particle penalty formulation               : %10i", 0);
        text(inpfile, "   !--- 0=standard formulation, 1=soft material formulation\n");
        print(inpfile, "!Particle penalty scale factor              : %10.1f\n", 1.0);
        print(inpfile, "!Part specific particle penalty scale factor: %5i%5.1f", 1, 1.0);
        text(inpfile, "   !--- pid; scale factor\n");
        print(inpfile, "!Shell thickness scale factor               : %10.1f\n", 0.5);
        print(inpfile, "!Part specific shell thickness scale factor :%3i %5.1e", 0, 0.5);
        text(inpfile, "   !--- pid; scale factor\n\n");
        text(inpfile, "!Tied node outlier detection threshold      :  4.00000E+00\n");
        print(inpfile, " Parallel efficiency threshold              : %10.1f\n", 0.8);
    }
    print(inpfile, "!Fix initial penetration                    :%3i %5.1e", 0, 0.0001);
    text(inpfile, "   !--- 0=off, 1=on;  Tolerance (final/initial penetration)\n");
    text(inpfile, "\n");
}

void write_thermal_and_friction_template()
{
    text(inpfile, "!--- Thermal contact options\n");
    print(inpfile, "!Thermal contact gap tolerance              : %10.1f\n\n", 0.1);
    print(inpfile, "!-------------------------------------------  %10s%10s%10s%10s\n", "pid1", "pid2", "s_coef",
          "d_coef");
    print(inpfile, "!Friction pair definition                   : %10.1i%10.1i%10.2f%10.2f\n", 1, 2, 0.2, 0.15);
}

void write_tied_node_template()
{
    text(inpfile, "\n!--- Tied node options\n");
    text(inpfile, "!Tied node definition:\n");
    print(inpfile, "!%9s %8s %8s %8s %8s %8s %7s %7s %7s %7s",  //
          "slvid", "stype", "mstrsid", "effstr", "pcut", "sn", "ss", "n", "m", "radius");
    text(inpfile, "    !---slave node/segment id; slave set type, 0=node 1=segment; master segment set id\n");
    print(inpfile, "!%9i %8i %8i %8.1f %8.1f %8.1f %7.1f %7.1f %7.1f %7.1f",  //
          1, 1, 1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    text(inpfile,
         "    !---effective plastic fail strain; cutoff pressure; normal force at failure; shear force at failure\n");
    print(inpfile, "%91s!---exponent for normal force; exponent for shear force\n", " ");
    print(inpfile, "%91s!---searching radius for searching tied slave-master node pairs\n", " ");
}
