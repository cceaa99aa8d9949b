// The pass that collects run_settings before the main deck is written.
#include "controls/controls.h"
#include "reader/keyword.h"

namespace
{
constexpr PassRow control_rows[] = {
    {"*TITLE", handler<titlecard>, "title of the main deck", "46 characters"},
    {"*CONTROL_BULK_VISCOSITY", handler<cviscosity>, "bulk viscosity lines, with `defflag` 1 and `stndflag` 0",
     "type 1; in the comprehensive deck alone"},
    {"*CONTROL_CONTACT", handler<ccontact>, "contact penalty scale factor line, a comment, with `defflag` 1",
     "`SLSFAC` alone, as a comment in the comprehensive deck"},
    {"*CONTROL_HOURGLASS", handler<chourglass>, "hourglass stabilization lines, with `defflag` 1 and `stndflag` 0",
     "types up to 5; in the comprehensive deck alone"},
    {"*CONTROL_SOLUTION", handler<csolution>, "solution type line", "`SOLN` alone"},
    {"*CONTROL_SPH", passed_over},  // the SPH section has a pass of its own
    {"*CONTROL_TERMINATION", handler<term>, "nothing: the termination time is a fixed value",
     "read, but the termination time is a fixed value"},
    {"*CONTROL_TIMESTEP", handler<tstep>, "maximum time step line, a comment, with `defflag` 1",
     "`LCTM` alone, as a comment in the comprehensive deck"},
    {"*CONTROL", skipped},
    {"*DATABASE_BINARY_D3DUMP", handler<database_dump>, "restart frequency line",
     "turns restarts on, at the interval of the histories"},
    {"*DATABASE_BINARY_D3PLOT", handler<database_plot>, "nothing: the plot frequency is a fixed value",
     "read, but the plot frequency is a fixed value"},
    {"*DATABASE_BINARY_RUNRSF", handler<database_runrsf>, "running restart frequency line",
     "turns running restarts on, at the interval of the histories"},
    {"*DATABASE_HISTORY_NODE_SET", passed_over},  // the history lines, too
    {"*DATABASE_HISTORY_SOLID_SET", passed_over},
    {"*DATABASE_HISTORY_SHELL_SET", passed_over},
    {"*DATABASE_HISTORY_NODE", passed_over, "", "", without_option},
    {"*DATABASE_HISTORY_SOLID", passed_over, "", "", without_option},
    {"*DATABASE_HISTORY_SHELL", passed_over, "", "", without_option},
    {"*DATABASE_NODOUT", handler<database>, "time history frequency line", "`DT` alone, for all histories"},
    {"*DATABASE_ELOUT", handler<database>, "time history frequency line", "`DT` alone, for all histories"},
    {"*DATABASE", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(control_rows));

}  // namespace

const Pass control_keywords{"control", control_rows};

void control_pass()
{
    run_pass(control_keywords);
}
