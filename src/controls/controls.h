// Solver controls: the *TITLE, *CONTROL and *DATABASE keywords, and the settings sections of the main deck.
#pragma once

#include "reader/keyword.h"
#include "reader/pass.h"

// Collects run_settings from the keyword copy.
void control_pass();

// The sections, each with its banner, in the order in which the main deck has them.
void header();           // file header
void problem_title();    // "Problem Title and Descriptors"
void timing_control();   // "Timing and Data Control Section"
void status_file();      // "Status File Control Section"
void history();          // history keywords; no banner
void global_control();   // "Global Contact, Hourglass, & Viscosity Control"
void amr_section();      // "AMR Section"
void sph_control();      // "SPH Control Section"
void plot_options();     // "Plot Options"
void restart_control();  // "Restart Control Section"
void partition();        // "Partition Section"

// Writes the particle count, which the geometry passes found, over the line that the SPH section left for it.
void rewrite_particle_count();

// The pass tables, for docs and tests.
extern const Pass control_keywords;
extern const Pass history_keywords;
extern const Pass sph_keywords;
extern const Pass sph_part_keywords;

// A *DATABASE_HISTORY_NODE, _SOLID or _SHELL that ends there: a longer one is another keyword.
inline constexpr Condition without_option{"if no `_` follows", [] {
                                              return !keyword_is("*DATABASE_HISTORY_NODE_") &&
                                                     !keyword_is("*DATABASE_HISTORY_SOLID_") &&
                                                     !keyword_is("*DATABASE_HISTORY_SHELL_");
                                          }};

// Handlers of the control pass.
void titlecard();   // *TITLE
void cviscosity();  // *CONTROL_BULK_VISCOSITY
void ccontact();    // *CONTROL_CONTACT
void chourglass();  // *CONTROL_HOURGLASS
void csolution();   // *CONTROL_SOLUTION
void term();        // *CONTROL_TERMINATION
void tstep();       // *CONTROL_TIMESTEP

void database();         // *DATABASE_NODOUT, *DATABASE_ELOUT
void database_dump();    // *DATABASE_BINARY_D3DUMP
void database_plot();    // *DATABASE_BINARY_D3PLOT
void database_runrsf();  // *DATABASE_BINARY_RUNRSF

// Handlers of the SPH section.
void csph();     // *CONTROL_SPH
void partsph();  // *PART: a smoothing-length line when its section is a *SECTION_SPH
