// The main deck's "Plot Options": what the solver writes into its plot files.
#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
enum Gate { always, standalone_only };

struct Dump {
    const char* label;
    int value;
    Gate gate = always;
    const char* comment = "";
};

constexpr Dump dumps[] = {
    {"Dump node velocity", 1, standalone_only, "       !--- 0=off, 1=on (same for all \"Dump\" options)"},
    {"Dump node acceleration", 1},
    {"Dump node mass", 1, standalone_only},
    {"Dump node angular momentum", 0},
    {"Dump node angular velocity", 0},
    {"Dump solid element index", 1, standalone_only},
    {"Dump solid element rank", 1},
    {"Dump solid element effective strain", 1},
    {"Dump solid element yield function", 1},
    {"Dump solid element stress tensor", 1},
    {"Dump solid element material type", 1, standalone_only},
    {"Dump solid element part id", 1, standalone_only},
    {"Dump solid element history variables", 0},
    {"Dump solid element internal energy", 1, standalone_only},
    {"Dump shell element index", 1, standalone_only},
    {"Dump solid element material type", 1, standalone_only},  // sic: "solid" among the shells, twice
    {"Dump solid element part id", 1, standalone_only},
    {"Dump shell element rank", 0},
    {"Dump shell element effective strain", 0},
    {"Dump shell element yield function", 0},
    {"Dump shell element stress tensor", 0},
    {"Dump shell element history variables", 0},
    {"Dump particle velocity", 1, standalone_only},
    {"Dump particle acceleration", 0},
    {"Dump particle mass", 1, standalone_only},
    {"Dump particle rank", 0},
    {"Dump SPH rank", 0},
    {"Dump SPH number of neighbors", 0},
    {"Dump SPH part id", 1, standalone_only},
    {"Dump SPH mass", 1},
    {"Dump SPH initial density", 0},
    {"Dump SPH initial smoothing length", 0},
    {"Dump SPH density", 1, standalone_only},
    {"Dump SPH smoothing length", 1},
    {"Dump SPH velocity", 1, standalone_only},
    {"Dump SPH acceleration", 0},
    {"Dump SPH stress", 1, always, "       !--- used to derive pressure"},
    {"Dump SPH effective strain", 1},
    {"Dump SPH bulk viscosity", 0},
    {"Dump SPH internal energy", 1, standalone_only},
    {"Dump SPH failure flag", 0},
    {"Dump SPH correction for contact", 0},
    {"Dump SPH integral unit", 0, always, "       !--- used to find boundary particles"},
    {"Dump SPH boundary normal", 0, always, "       !--- normal vector for boundary particles"},
    {"Dump SPH sound speed", 0},
    {"Dump SPH history variables", 0},
};

constexpr char file_type[] =
    " Plot file type                       :          2       !--- 1=FieldView format, 2=VisIt format, 3=both\n";

constexpr char base_name[] =
    " Plot file base name                  :   kestrune       !--- Defaults: qarn (Fieldview), kestrune (VisIt)\n";
}  // namespace

void plot_options()
{
    banner(inpfile, "Plot Options        ");  // sic: eight trailing blanks
    text(inpfile, "\n");
    if (standalone()) text(inpfile, file_type);
    text(inpfile, base_name);
    for (const Dump& dump : dumps)
        if (dump.gate == always || standalone())
            print(inpfile, " %-37s: %10i%s\n", dump.label, dump.value, dump.comment);
    text(inpfile, "\n\n");
}
