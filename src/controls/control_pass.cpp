// The pass that collects run_settings before the main deck is written.
#include "controls/controls.h"
#include "reader/keyword.h"

namespace
{
constexpr PassRow control_rows[] = {
    {"*TITLE", titlecard},
    {"*CONTROL_BULK_VISCOSITY", cviscosity},
    {"*CONTROL_CONTACT", ccontact},
    {"*CONTROL_HOURGLASS", chourglass},
    {"*CONTROL_SOLUTION", csolution},
    {"*CONTROL_SPH", passed_over},  // the SPH section has a pass of its own
    {"*CONTROL_TERMINATION", term},
    {"*CONTROL_TIMESTEP", tstep},
    {"*CONTROL", skipped},
    {"*DATABASE_BINARY_D3DUMP", database_dump},
    {"*DATABASE_BINARY_D3PLOT", database_plot},
    {"*DATABASE_BINARY_RUNRSF", database_runrsf},
    {"*DATABASE_HISTORY_NODE_SET", passed_over},  // the history lines, too
    {"*DATABASE_HISTORY_SOLID_SET", passed_over},
    {"*DATABASE_HISTORY_SHELL_SET", passed_over},
    {"*DATABASE_HISTORY_NODE", passed_over, [] { return !keyword_is("*DATABASE_HISTORY_NODE_"); }},
    {"*DATABASE_HISTORY_SOLID", passed_over, [] { return !keyword_is("*DATABASE_HISTORY_SOLID_"); }},
    {"*DATABASE_HISTORY_SHELL", passed_over, [] { return !keyword_is("*DATABASE_HISTORY_SHELL_"); }},
    {"*DATABASE_NODOUT", database},
    {"*DATABASE_ELOUT", database},
    {"*DATABASE", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(control_rows));

constexpr Conversion control_conversions[] = {
    {titlecard, "titlecard", "title of the main deck"},
    {cviscosity, "cviscosity", "bulk viscosity lines"},
    {ccontact, "ccontact", "contact penalty scale factor line"},
    {chourglass, "chourglass", "hourglass stabilization lines"},
    {csolution, "csolution", "solution type line"},
    {term, "term", "nothing: the termination time is a fixed value"},
    {tstep, "tstep", "maximum time step line"},
    {database_dump, "database_dump", "restart frequency line"},
    {database_plot, "database_plot", "nothing: the plot frequency is a fixed value"},
    {database_runrsf, "database_runrsf", "running restart frequency line"},
    {database, "database", "time history frequency line"},
};
}  // namespace

const Pass control_keywords{"control", control_rows, control_conversions};

void control_pass()
{
    run_pass(control_keywords);
}
