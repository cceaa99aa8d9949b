// The main deck's "SPH Control Section". Lines that begin with "!" are offered to the analyst, inactive.
#include <cstdio>

#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
constexpr char particle_settings[] =
    " Global smoothing length limits       :   0.1 10.0        !--- minimum smoothing length; maximum smoothing length\n"
    "                                                          !--- (ratio relative to initial smoothing length)\n"
    " SPH artificial viscosity             :  1  1.0  2.0  0.1 !--- 0=off,1=on; alpha; beta; epsilon\n"
    " SPH formulation                      :          1        !--- 0=conservative, 1=non-conservative\n"
    " SPH part interaction                 :          1        !--- 0=HE 1=All Others \n"
    " SPH particle contact scheme          :          1        !--- 0= Penalty Based ; 1= LaGrangian\n"
    " SPH lagrange multiplier max iteration:          7\n"
    " Renormalization frequency            :         10        !--- integer, cycles between sph renormalization\n";

constexpr char gradient_renormalization[] =
    " SPH velocity gradient renormalization:          0        !--- 0=off, 1=on\n";

constexpr char multistep[] = "!SPH multistep scheme                 :          0        !--- 0=off, 1=on\n";

// sic: the last line is active, though it stands among those that are only offered
constexpr char optional_particle_settings[] =
    "!SPH particle contact scale factor    :       0.01        !--- penalty scale factor for SPH particle-to-particle penalty-based contact force\n"
    "!SPH lagrange multiplier max iteration:          7\n"
    "!SPH boundary particle unit threshold :        0.9        !--- threshold value used to determine if a particle is on boundary\n"
    "!SPH particle thickness factor        :        1.0        !--- scale factor for SPH particle thickness to calculate solid contact\n"
    "!SPH exclude partition direction      :        1.0        !--- 0=no exclusion; 1=exclude x-dir, 2=exclude y-dir, 3=exclude z-dir, <0=random selection\n"
    "!Repartition frequency                :        500\n"
    "!Repartition overlap threshold        :        1.0\n"
    "!SPH repartition for memory           :          1\n"
    " Reset lonely particles               :          0        !--- 0=off, 1=on\n";

constexpr char nearest_neighbors[] = " SPH max number of nearest neighbors  :        200\n";

constexpr char box_heading[] =
    "\n"
    " SPH deactivation:                                        !--- vtype:  0=box volume ID (BVID),\n"
    "!---   vid     vtype    option     birth     death        !---         1=sphere volume ID (SVID)\n";

constexpr char box_definition[] = " Box Definition:\n"
                                  "!---  bvid      Xmin      Xmax      Ymin      Ymax      Zmin      Zmax\n"
                                  "         1      -100       100      -100       100      -100       100\n"
                                  "\n";

constexpr char sphere_definition[] = "!Sphere Definition:\n"
                                     "!---  svid         x         y         z    radius\n"
                                     "!        1         0         0         0         1\n";

constexpr char velocity_heading[] =
    "\n"
    " SPH deactivation velocity:                                   !--- option: 0=no deactivation and deletion,\n"
    "!---option   deact_vel  delete_vel   t_start     t_end        !---         1=particle deactivation and deletion,\n";

constexpr char timestep_heading[] =
    "\n"
    " SPH deactivation timestep:                                   !--- option: 0=no deactivation,\n"
    "!---option  timestep     birth     death                      !---         1=delete from domain,\n";

constexpr char density_heading[] =
    "\n"
    "!SPH deactivation density:                                    !--- option: 0=no deactivation,\n"
    "!---option     min_den     max_den   t_start     t_end        !---         1=delete from domain,\n";

// sic: the first comment stands one column to the left of the others
constexpr char pressure_heading[] =
    "\n"
    "!SPH deactivation pressure:                                  !--- option: 0=no deactivation,\n"
    "!---option    min_pres    max_pres   t_start     t_end        !---         1=delete from domain,\n";

constexpr char energy_heading[] =
    "\n"
    "!SPH deactivation energy:                                     !--- option: 0=no deactivation,\n"
    "!---option      min_ie      max_ie   t_start     t_end        !---         1=delete from domain,\n";

constexpr char optional_criterion[] = "!%9i%12.3e%12.3e%10.3e%10.3e"
                                      "        !---         2=convert to simple particles\n";

void sample_smoothing_length()
{
    print(inpfile,
          "!Smoothing length                     : %5i%5.1f%5i"
          "   !--- pid; factor; neighbors\n",
          1, 1.5, run_settings.sph_memory);
}

constexpr char particle_count_line[] = " Initial number of SPH per processor  : %10i";

// The first line is written again when the particles have been counted.
void particle_count()
{
    print(inpfile, particle_count_line, counts.particles);
    text(inpfile,
         "        !--- initial guess of number of particle in each processor\n"
         "                                                          !--- (current number assumes one processor)\n");
    text(inpfile, nearest_neighbors);
}

void box_deactivation(float birth, float death)
{
    text(inpfile, box_heading);
    print(inpfile,
          "%10i%10i%10i%10.3e%10.3e"
          "        !--- option: 0=no deactivation,\n"
          "                                                          !---         1=delete from domain,\n"
          "                                                          !---         2=convert to simple particles\n"
          "\n",
          1, 0, 2, birth, death);
    text(inpfile, box_definition);
}

void velocity_deactivation(float birth, float death)
{
    const float maxv = run_settings.sph_maxv;
    text(inpfile, velocity_heading);
    print(inpfile, "%10i%12.3e%12.3e%10.3e%10.3e\n", 1, maxv != 0.0f ? maxv : 1.0e6f, 1.0e7, birth, death);
}

void timestep_deactivation(float birth, float death)
{
    text(inpfile, timestep_heading);
    print(inpfile,
          "%10i%10.1f%10.3e%10.3e"
          "                      !---         2=convert to simple particles\n",
          2, -0.5, birth, death);
}

void optional_deactivation(float birth, float death)
{
    text(inpfile, density_heading);
    print(inpfile, optional_criterion, 1, 1.0, 1.0e10, birth, death);
    text(inpfile, pressure_heading);
    print(inpfile, optional_criterion, 1, 1.0e10, 1.0e20, birth, death);
    text(inpfile, energy_heading);
    print(inpfile, optional_criterion, 1, 1.0e10, 1.0e20, birth, death);
}
}  // namespace

void sph_control()
{
    banner(inpfile, "SPH Control Section");
    text(inpfile, "\n");
    run_pass(sph_keywords);
    run_pass(sph_part_keywords);  // a smoothing-length line for each particle part

    if (standalone()) text(inpfile, particle_settings);
    text(inpfile, gradient_renormalization);
    if (comprehensive() && standalone()) {
        text(inpfile, multistep);
        sample_smoothing_length();
        text(inpfile, optional_particle_settings);
    }
    particle_count_position = inpfile.position();  // sic: also when the line that belongs there is left out
    if (comprehensive() && standalone()) particle_count();

    const float birth = run_settings.sph_start;
    const float death = run_settings.sph_dt;
    if (run_settings.sph_boxid == 0) {
        box_deactivation(birth, death);
        if (comprehensive()) text(inpfile, sphere_definition);
    }
    velocity_deactivation(birth, death);
    timestep_deactivation(birth, death);
    if (!comprehensive()) return;  // sic: without the empty lines that end the other sections
    optional_deactivation(birth, death);
    text(inpfile, "\n\n");
}

void rewrite_particle_count()
{
    if (cardflag != 1 || !comprehensive() || sphflag != 1) return;
    char line[64];
    const int length = std::snprintf(line, sizeof line, particle_count_line, counts.particles);
    inpfile.overwrite(particle_count_position, {line, static_cast<std::size_t>(length)});
}
