// The main deck's "Timing and Data Control Section". Lines that begin with "!" are offered to the analyst, inactive.
#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
// sic: zmin is 0.0, the other lower bounds are not
constexpr char sixdof[] =
    "\n"
    "!-------------                              PSID      xmin      xmax      ymin      ymax      zmin      zmax     dtmax  Needed for solution type 6\n"
    "!SIXDOF input                   :              1 -1.00e+20  1.00e+20 -1.00e+20  1.00e+20  0.00e+00  1.00e+20  1.00e-02\n"
    "\n";

constexpr char memory_size[] =
    "!Global memory size             :  6.000e-01        !--- Initial memory allocation in Gbyte\n";

// sic: a fixed value, whatever *CONTROL_TERMINATION says
constexpr char termination_time[] = " Termination time               :  5.000e-03\n";

constexpr char initial_time_step[] = "!Initial time step              :  1.000e-07\n";

constexpr char minimum_time_step[] =
    "!Minimum time step for termination:    0.001        !---Ratio of initial time step to current time step\n"
    "\n";

// sic: fixed values, whatever *CONTROL_TIMESTEP and *DATABASE_BINARY_D3PLOT say
constexpr char scale_factor_and_plot_frequency[] =
    " Time step scale factor         :          0    1   !--- tssfac, lcid\n"
    " Plot state frequency           :          1    1   !--- Reference value; option - 0=constant interval,\n";

constexpr char restart_names[] = "!Restart file base name         :   kestrune        !--- e.g. kestrune.rst.00001\n"
                                 "!Running restart file base name :   kestrune\n";

constexpr char restart_files_and_outliers[] =
    " Number of running restart files:          3\n"
    "\n"
    "!--------------------------------      elem#    tstart      freq     ftype\n"
    "!Time step outlier deletion     :          0      0.00         0         0\n"
    "\n";

constexpr char status_frequency[] = " Status report frequency        :       5000    2\n";

constexpr char standard_output[] = "\n"
                                   "!Standard output option         :   0   !0- no stdout-* files, 1-otherwise\n"
                                   "\n";

constexpr char history_switches[] =
    "!Node history                   :          0        !--- 0=off, 1=on; define history sets in .sets file\n"
    "!Element history                :          0\n"
    "!SPH history                    :          0\n"
    "\n";

constexpr char load_cells[] =
    "!Load cell history              :\n"
    "!---  lcid      elset         n1         n2         n3         fq      !--- load cell id; cross section element set;\n"
    "!        1          1          2          3          4  1.000e-03      !--- normals; output time interval\n"
    "\n";

constexpr char history_format[] =
    "!Binary history file format     :          0        !--- 0=blocks based on cycle, 1=blocks based on entity\n";

void solution_type()
{
    print(
        inpfile,
        " Solution Type                  : %10i"
        "%8s!--- 0=explicit structural, 1=thermal, 2=CLE, 3=eulerian, 4=implicit structural, 5=coupled thermal-structural, 6=6-DOF solver\n",
        run_settings.soln, " ");
}

void maximum_time_step()
{
    print(inpfile,
          "!Max time step                  : %10i"
          "%8s!--- LCID defining max time step as a function of sim time\n"
          "\n",
          run_settings.lctm, " ");
}

// sic: all by the time history interval; the dump and running restart requests only tell whether it is used
void output_frequencies()
{
    const float interval = run_settings.hist_dt;
    print(inpfile,
          " Time history frequency         : %10.3e%5i"
          "%3s!--- 1=LCID of interval vs. sim time, 2=constant number of cycles\n",
          interval != 0.0f ? interval : 1.0e-6f, 0, " ");
    print(inpfile,
          " Restart frequency              : %10.3e%5i"
          "%3s!--- 3=LCID of plot time list, 4=wall clock time (hours)\n",
          run_settings.dump_cycles != 0 ? interval : 0.001f, 0, " ");
    if (run_settings.rsf_cycles != 0)
        print(inpfile, " Running restart frequency      : %10.3e%5i\n", interval, 0);
    else
        print(inpfile, " Running restart frequency      : %10i%5i\n", 3, 4);
}
}  // namespace

void timing_control()
{
    banner(inpfile, "Timing and Data Control Section");
    text(inpfile, "\n");
    solution_type();
    if (comprehensive()) text(inpfile, sixdof);
    if (standalone()) text(inpfile, memory_size);
    text(inpfile, termination_time);
    if (comprehensive()) {
        text(inpfile, initial_time_step);
        maximum_time_step();
        text(inpfile, minimum_time_step);
    }
    text(inpfile, scale_factor_and_plot_frequency);
    output_frequencies();
    if (comprehensive()) text(inpfile, restart_names);
    text(inpfile, restart_files_and_outliers);
    if (standalone()) text(inpfile, status_frequency);
    if (comprehensive()) text(inpfile, standard_output);
    if (comprehensive() && standalone()) text(inpfile, history_switches);
    if (comprehensive()) text(inpfile, load_cells);
    if (comprehensive() && standalone()) text(inpfile, history_format);
    text(inpfile, "\n\n");
}
