// The templates that stand behind what was converted: inactive definitions for the analyst to fill in.
#include "loading/boundary.h"
#include "reader/output_stream.h"
#include "reader/run.h"

namespace
{
// clang-format off
constexpr char initial_velocity[] =
    "!Initial velocity definition:\n"
    "!       id       styp         vx         vy         vz      omega       !--- styp: Define type of ID\n"
    "!0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00       !---       0=Node Set ID\n"
    "!       px         py         pz         qx         qy         qz       !---       1=Part Set ID\n"
    "!0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00       !---       2=Part ID\n"
    "\n";

constexpr char pressure_loads[] =
    "!Pressure loads:\n"
    "!     lcid         n1         n2         n3         n4        sf1        sf2        sf3        sf4         t0"
    "   !--- load curve; define nodes of segment\n"
    "!        1          1          3          4          2        1.0        1.0        1.0        1.0        0.0"
    "   !--- define nodal pressure scale factors; initial time\n"
    "!        1          5          7          8          6        1.0        1.0        1.0        1.0        0.0\n"
    "\n";

constexpr char pressure_loads_set[] =
    "!Pressure loads set:\n"
    "!---  ssid       lcid         sf         t0\n"
    "!        1          1        1.0        0.0\n";

constexpr char nodal_forces[] =
    "\n"
    "!Nodal forces:\n"
    "!---   nid        dir       lcid         sf       csid         m1         m2         m3\n"
    "!        1          1          1  1.000e+00          0          0          0          0\n";

constexpr char nodal_forces_set[] =
    "\n"
    "!Nodal forces set:\n"
    "!---  nsid        dir       lcid         sf       csid         m1         m2         m3\n"
    "!        1          1          1  1.000e+00          0          0          0          0\n";

constexpr char nodal_forces_auto_scale[] =
    "\n"
    "!Nodal forces set auto scale:            \n"
    "!---  nsid      type                      !--type: 1=force/node count, 2=force*mass_fraction\n"
    "!        1         2\n";

constexpr PrescribedMotion sample_motion{.id = 1, .dof = 3, .vad = 1, .lcid = 1, .sf = 1.0f};

constexpr char symmetry_failure[] =
    "\n"
    "!Symmetry plane with failure:\n"
    "!--- nsegs         px         py         pz         qx         qy         qz    sigfail\n"
    "!        2          0          0          0          0          0          0    1.0e+10\n"
    "!      sid         n1         n2         n3         n4    sigfail\n"
    "!        1          1          2          3          4    1.0e+10\n"
    "!        2          6          7          8          9    1.0e+10\n";

constexpr char symmetry_failure_set[] =
    "\n"
    "!Symmetry plane with failure set:\n"
    "!---  ssid         px         py         pz         qx         qy         qz    sigfail\n"
    "!        1          0          0          0          0          0          0    1.0e+10\n";

constexpr char sph_symmetry[] =
    "\n"
    "!SPH symmetry plane:\n"
    "!---    px         py         pz         qx         qy         qz\n"
    "!        1          0          0          0          0          0\n";

// sic: "nsid" above a node
constexpr char spc_node[] =
    "\n"
    "!Nodal SPC node:\n"
    "!---  nsid       csid         tx         ty         tz         rx         ry         rz\n"
    "!        3          0          1          0          0          0          0          0\n"
    "!        4          0          1          0          0          0          0          0\n";

constexpr char spc_set[] =
    "\n"
    "!Nodal SPC set:\n"
    "!---  nsid       csid         tx         ty         tz         rx         ry         rz\n"
    "!        1          0          1          1          1          1          1          1\n";

constexpr char coordinate_system[] =
    "\n"
    "!Local coordinate system:\n"
    "!---  csid         ox         oy         oz         px         py         pz         qx         qy         qz\n"
    "!        2        0.0        0.0        0.0        0.5        0.5        0.0        0.0        0.0        0.0\n";

constexpr char coordinate_nodes[] =
    "\n"
    "!Local coordinate system nodes:\n"
    "!---  csid         n1         n2         n3\n"
    "!        2          0          0          0\n";

constexpr char coordinate_spc[] =
    "\n"
    "!Local coordinate system SPC:\n"
    "!---  csid         px         py         pz         qx         qy         qz\n"
    "!        2        0.5        0.5        0.0        0.0        0.0        0.0\n";

constexpr char interactive_action[] =
    "\n"
    "!Interactive action option:\n"
    "!---   sid      stype       freq       crit     param1     param2     param3     param4     param5     param6\n"
    "!        2          2    2.0e-06          1         20       2000          0          1          0          1\n";

constexpr char non_reflecting[] =
    "\n"
    "!Non-reflecting boundary:\n"
    "!---   sid         n1         n2         n3         n4\n"
    "!        1          1          2          3          4\n";

constexpr char non_reflecting_set[] =
    "\n"
    "!Non-reflecting boundary set:\n"
    "!---  ssid\n"
    "!        1\n";

constexpr char gravity[] =
    "\n"
    "!Gravity load definition:\n"
    "!---   dir       lcid         sf     lciddr"
    "     !---dir: define gravitation direction 1=x-axis, 2=y-axis, 3=z-axis;\n"
    "!        1          1        1.0                !---lcid; scale factor; place holder\n";

constexpr char detonation_point[] =
    "\n"
    "!Detonation point definition:\n"
    "!---   pid         dx         dy         dz      dtime\n"
    "!        1        0.0        0.0        0.0        0.0\n"
    "!-------------------------------\n"
    "!             OR                \n"
    "!-------------------------------\n"
    "!Detonation point definition:       pid       nid     Dtime\n";

constexpr char blast_load[] =
    "\n"
    "!Blast Load (CONWEP) Definition:\n"
    "!---  ssid        wgt        xbo        ybo        zbo\n"
    "!        1  1.000e+03       30.0        0.0        0.0\n"
    "!      tbo      isurf\n"
    "!5.000e-05          1\n"
    "!    iunit        cfm        cfl        cft        cfp\n"
    "!        5  2.205e-03  3.281e-02  1.000e+03  1.450e-05\n";
// clang-format on
}  // namespace

void write_initial_velocity_template()
{
    text(inpfile, initial_velocity);
}

void write_boundary_templates()
{
    text(inpfile, pressure_loads);
    text(inpfile, pressure_loads_set);
    text(inpfile, nodal_forces);
    text(inpfile, nodal_forces_set);
    text(inpfile, nodal_forces_auto_scale);
    write_prescribed_motion(Target::node, sample_motion);
    write_prescribed_motion(Target::set, sample_motion);
    text(inpfile, symmetry_failure);
    text(inpfile, symmetry_failure_set);
    text(inpfile, sph_symmetry);
    text(inpfile, spc_node);
    text(inpfile, spc_set);
    text(inpfile, coordinate_system);
    text(inpfile, coordinate_nodes);
    text(inpfile, coordinate_spc);
    text(inpfile, interactive_action);
    text(inpfile, non_reflecting);
    text(inpfile, non_reflecting_set);
    text(inpfile, gravity);
    text(inpfile, detonation_point);
    text(inpfile, blast_load);
}
