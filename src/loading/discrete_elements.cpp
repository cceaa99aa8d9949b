// The section "Discrete Element Definitions": templates alone, no keyword is read for it.
#include "loading/loading.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
// clang-format off
constexpr char definition[] =
    "!Discrete element definition:\n"
    "!--- deid     id  type    id  type   dmid      sf     Opt   "
    "!deid--discrete elem id; id--elem end nodes/node sets; type: 0=node 1=node set\n"
    "                                                            !dmid--discrete elem mid; sf--scale factor\n"
    "                                                            !opt--no current function\n"
    "\n";

constexpr char linear_spring[] =
    "!!*** Linear spring material ***\n"
    "! Discrete element material definition:\n"
    "!!---    dmid   type\n"
    "!           1      1\n"
    "!!---       k (force/displ.)\n"
    "!       value\n"
    "\n";

constexpr char nonlinear_spring[] =
    "!!*** Nonlinear spring material ***\n"
    "! Discrete element material definition:\n"
    "!!---    dmid   type\n"
    "!           4      4\n"
    "!!---    lcid (force/displ.)\n"
    "!           4\n"
    "\n";

constexpr char nonlinear_damper[] =
    "!!*** Nonlinear damper material ***\n"
    "! Discrete element material definition:\n"
    "!!---    dmid   type\n"
    "!           5      5\n"
    "!!---    lcid (force/vel.)\n"
    "!           5\n";
// clang-format on
}  // namespace

void discrete_elements()
{
    banner(inpfile, "Discrete Element Definitions");
    text(inpfile, "\n");
    text(inpfile, definition);
    text(inpfile, linear_spring);
    text(inpfile, nonlinear_spring);
    text(inpfile, nonlinear_damper);
    text(inpfile, "\n\n");
}
