// The main deck's "AMR Section": a template for the adaptive mesh of the solver's Eulerian domain. Lines that begin
// with "!" are offered to the analyst, inactive.
#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
constexpr char domains[] =
    "!AMR domain definition:\n"
    "!      xmin      ymin      zmin      xmax      ymax      zmax\n"
    "! 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00!   if the domain could be worked into square with the block definition these would be minimum\n"
    "\n"
    "!AMR background definition:\n"
    "!       rho     press        vx        vy        vz    switch   !--switch=0 enable Lagrange surface interaction with background properties\n"
    "! 1.204e-03 1.013e+06 0.000e+00 0.000e+00 0.000e+00         0   !--switch=1 offset Lagrange surface interaction with background properties\n"
    "\n"
    "!AMR minimum cell size definition: 0.3\n"
    "\n"
    "!AMR flooding definition:\n"
    "!        sx        sy        sz       rho     press        vx        vy        vz\n"
    "! 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00\n"
    "\n";

constexpr char sphere_and_box_domains[] =
    "!AMR sphere domain definition:\n"
    "!        xc        yc        zc    radius        ro        po        vx        vy        vz\n"
    "! 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00\n"
    "\n"
    "!AMR box domain definition:\n"
    "!      xmin      ymin      zmin      xmax      ymax      zmax        ro        po\n"
    "! 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00\n"
    "!        vx        vy        vz\n"
    "! 0.000e+00 0.000e+00 0.000e+00\n"
    "\n";

constexpr char equations_of_state[] =
    "!AMR Ideal gas EOS definition:\n"
    "!         k        rs\n"
    "!      1.40 2.871e+06\n"
    "\n"
    "!AMR JWL EOS definition:\n"
    "!         a         b        r1        r2     omega        ro        cv\n"
    "! 3.712e+12 3.231e+10 4.150e+00 9.500e-01 3.000e-01 1.600e+00 1.000e+00\n"
    "\n"
    "!AMR SESAME EOS definition:\n"
    "!   table file name     runit     punit     eunit      poff      eoff criterion\n"
    "!    aWater7154.ses   1.0e+00   1.0e+10   1.0e+10   0.0e+00   0.0e+00   1.0e-04\n"
    "\n";

constexpr char refinement_and_conversion[] = "!AMR HE REFINEMENT DEFINITION:\n"
                                             "!    HE_PartID   Size   TEnd\n"
                                             "\n"
                                             "!AMR Lagrangian Part Conversion:\n"
                                             "!      psid      type    t_conv\n"
                                             "\n";

constexpr char boundaries_and_tracers[] =
    "!AMR boundary condition definition:\n"
    "!      bcid   bc-type      dens      pres        vx        vy        vz   !--- bc-type: 1=far-field; 2=static wall; 3=inflow\n"
    "!         1         3 1.200e-03 1.010e+06 4.700e+05       0.0       0.0\n"
    "\n"
    "!AMR domain boundary definition:\n"
    "!        xl        xu        yl        yu        zl        zu\n"
    "!         1         1         1         1         1         1\n"
    "\n"
    "!AMR segment boundary condition:\n"
    "!       sid      dens     press      mach\n"
    "!         1         1       1.5       1.2\n"
    "\n"
    "!AMR eulerian tracer frequency         :  1.000e-06         0\n";

constexpr char solver_settings[] =
    "!AMR initial and maximum CFL           :    1.0e-04   8.0e-01     !--initialization ts scale factor; steady-state ts scale factor\n"
    "!AMR maximum solution difference       :          0\n"
    "!AMR FIRST-ORDER SCHEME                :          0               !--1=use the first-order scheme\n"
    " AMR INTERFACE SCHEME                  :          1               !--1=the second-order interface scheme\n"
    " AMR LEAST SQUARE PRESSURE INTERPOLATION:        1               !--1=the least-square pressure interpolation\n"
    " AMR interface synchronization         :          1         0     !--0=delayed synchronization until Eulerian timestep, 1=forced synchronization based on Lagrange surfaces\n"
    "!AMR interface movement step factor    :        0.9\n"
    " AMR refine derefine criteria          :       0.10      0.05     !--refinement factor; derefinement factor\n"
    " AMR output CLE warning                :          0               !--0=off, 1=on\n";

constexpr char plots_and_termination[] =
    " AMR plot state frequency              :     APSFLC         3     !--value; option\n"
    "!AMR plot file type                    :          2               !--1=.uns, 2=.vld, 3=both\n"
    "!AMR plot file base name               : kestrune\n"
    "!AMR termination time                  :  2.000e-04\n"
    "!AMR eulerian tracer point definition:\n"
    "!        id         x         y         z\n"
    "!         1         1       1.0       1.0\n"
    "!         2         3       6.0       3.4\n"
    "\n"
    "!AMR minimum time step scale factor    :         -1               !-- >0=scale factor value -1=deactivate (default)\n";

constexpr char drag_and_ignored_segments[] = "!SPH drag coefficient                  :       0.00\n"
                                             "!AMR ignored segment set               :          1         1\n";

constexpr char ignored_parts_and_history[] =
    "!AMR ignored parts                     :          1         1     !--part or set id; type (1-part set,2-part)\n"
    "\n"
    "!AMR part history definition           :          1         1     !--part or set id; type (1-part set,2-part)\n"
    "\n";

constexpr char segment_history_and_restart[] = "!AMR segment history set:\n"
                                               "!        id        n1        n2        n3        n4\n"
                                               "!         1         1         2         3         4\n"
                                               "!         2         5         6         7         8\n"
                                               "\n"
                                               "!AMR restart file                      : \n";
}  // namespace

// The empty lines behind the section are the driver's: they stand there also without it.
void amr_section()
{
    banner(inpfile, "AMR Section");
    text(inpfile, "\n");
    text(inpfile, domains);
    if (comprehensive()) text(inpfile, sphere_and_box_domains);
    text(inpfile, equations_of_state);
    text(inpfile, refinement_and_conversion);
    if (comprehensive()) text(inpfile, boundaries_and_tracers);
    if (standalone()) text(inpfile, solver_settings);
    text(inpfile, plots_and_termination);
    if (comprehensive()) text(inpfile, drag_and_ignored_segments);
    text(inpfile, ignored_parts_and_history);
    if (comprehensive()) text(inpfile, segment_history_and_restart);
}
