// The main deck's "Global Contact, Hourglass, & Viscosity Control" section. Lines that begin with "!" are offered to
// the analyst, inactive.
#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
// sic: a blank behind the closing rule
constexpr char global_banner[] = "!------------------------------------------------\n"
                                 "! Global Contact, Hourglass, & Viscosity Control\n"
                                 "!------------------------------------------------ \n"
                                 "\n";

constexpr char deletion_and_conversion[] =
    " Element deletion flag                 :          1   !--- 0=no deletion, 1=elements removed or converted to particles (default)\n"
    " Particle conversion activation        :     1    1   !--- 0=off, 1=SPH, 2=simple particles (legacy);\n"
    "                                                      !--- 1=1 particle per element, 8=8 particles per solid and 4 per shell\n";

constexpr char hourglass_methods[] =
    "                                                           !--- 1=Standard DYNA3D (default)\n"
    "                                                           !--- 2=Flanagan-Belytschko (viscous form)\n"
    "                                                           !--- 3=Flanagan-Belytschko w/ exact volume integration (viscous form)\n"
    "                                                           !--- 4=Stiffness form of type 2\n"
    "                                                           !--- 5=Stiffness form of type 3\n";

constexpr char part_conversion_and_damping[] =
    "!Part specific particle conversion scheme:     1    2    1    8   !---PID; ID_type (1-part set; 2-part)\n"
    "                                                                  !---switch (0=no conversion, 1=convert to sph, 2=convert to simple particles)\n"
    "                                                                  !---option (1=one particle/element, 8=eight particles/element)\n"
    "\n"
    "!---------------------------------------      fcrit      freq    tstart      tend   !---Fraction of critical damping; frequency (rad/time) to be damped\n"
    "!Mass proportional Rayleigh damping    :       0.00      0.00      0.00  0.00e+00   !---Start time; end time\n"
    "\n"
    "!---------------------------------------         id   id_type      beta         e        pr   !---part id; id type 1=psid, 2=pid; stiffness constant\n"
    "!Stiffness proportional Rayleigh damping:         0         0      0.00 0.000e+00      0.30   !---Effective modulus; effective Poisson's ratio\n"
    "\n";

void penalty_scale_factor()
{
    print(inpfile,
          "\n"
          "!Global contact penalty scale factor   : %10.2f"
          "   !--- Do not change, change scale factors in contact section instead\n",
          run_settings.slsfac);
}

void hourglass_and_viscosity()
{
    print(inpfile,
          " Hourglass stabilization method        : %10i"
          "   !--- Available Hourglass Methods:\n",
          run_settings.ihq);
    text(inpfile, hourglass_methods);
    print(inpfile, " Hourglass stabilization coefficient   : %10.2f\n", run_settings.qh);
    print(inpfile,
          " Bulk viscosity type for shock capture : %10i"
          "        !--- 1=Standard DYNA3D\n",
          run_settings.qtype);
    print(inpfile, " Quadratic bulk viscosity coefficient  : %10.1f\n", run_settings.q1);
    print(inpfile, " Linear bulk viscosity coefficient     : %10.2f\n", run_settings.q2);
}
}  // namespace

void global_control()
{
    if (comprehensive() || standalone()) text(inpfile, global_banner);
    if (standalone()) text(inpfile, deletion_and_conversion);
    if (comprehensive()) {
        penalty_scale_factor();
        if (standalone()) hourglass_and_viscosity();
        text(inpfile, part_conversion_and_damping);
    }
    text(inpfile, "\n\n");
}
