// The section "Boundary and Initial Conditions Definition": one pass converts boundary conditions, boxes, coordinate
// systems, initial conditions and loads in the deck's order; templates follow.
#include "loading/boundary.h"
#include "loading/loading.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
constexpr PassRow boundary_rows[] = {
    {"*BOUNDARY_NON_REFLECTING_2D", skipped},
    {"*BOUNDARY_NON_REFLECTING", handler<bnonreflect>, "Non-reflecting boundary set"},
    {"*BOUNDARY_PRESCRIBED_MOTION_RIGID", skipped},
    {"*BOUNDARY_PRESCRIBED_MOTION", handler<bprescribedmotion>,
     "Prescribed motion, Prescribed motion set, as comments"},
    {"*BOUNDARY_SPC", handler<bspc>, "Nodal SPC node, Nodal SPC set"},
    {"*BOUNDARY_SPH_SYMMETRY_PLANE", handler<bsphsym>, "SPH symmetry plane"},
    {"*BOUNDARY_SYMMETRY_FAILURE", handler<bsymwfail>, "Symmetry plane with failure set"},
    {"*BOUNDARY", skipped},
    {"*DEFINE_BOX_DRAWBEAD", skipped},
    {"*DEFINE_BOX", handler<definebox>, "Box definition"},
    {"*DEFINE_COORDINATE_NODES",
     handler<definecoordnodes>,
     "Local coordinate system nodes",
     {"with `accelflag` 0", [] { return accelflag == 0; }}},
    {"*DEFINE_COORDINATE_NODES", passed_over},  // they become accelerometers, in a file of their own
    {"*DEFINE_COORDINATE_SYSTEM", handler<definecoordsystem>, "Local coordinate system"},
    {"*DEFINE_COORDINATE", end_of_pass},  // sic: what stands behind any other coordinate keyword is not converted
    {"*INITIAL_VELOCITY_KINEMATICS", skipped},
    {"*INITIAL_VELOCITY_GENERATION", handler<ivelogen>, "Initial velocity definition"},
    {"*INITIAL_VELOCITY_NODE", skipped},
    {"*INITIAL_VELOCITY_RIGID_BODY", skipped},
    {"*INITIAL_VELOCITY", handler<ivelocity>, "Initial velocity definition"},
    {"*INITIAL_DETONATION", handler<idetonat>, "Detonation point definition"},
    {"*INITIAL", skipped},
    {"*LOAD_BLAST", handler<loadblast>, "Blast Load (CONWEP) Definition"},
    {"*LOAD_NODE", handler<loadnode>, "Nodal forces, Nodal forces set"},
    {"*LOAD_SEGMENT_SET_NONUNIFORM", skipped},
    {"*LOAD_SEGMENT_SET", handler<loadsegset>, "Pressure loads set"},
    {"*LOAD_SEGMENT_NONUNIFORM", skipped},
    {"*LOAD_SEGMENT", handler<loadseg>, "Pressure loads"},
    {"*LOAD", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(boundary_rows));
}  // namespace

const Pass boundary_keywords{"boundary and initial conditions", boundary_rows};

void boundary_section()
{
    banner(inpfile, "Boundary and Initial Conditions Definition");
    text(inpfile, "\n");
    run_pass(boundary_keywords);
    text(inpfile, "\n");
    write_initial_velocity_template();
    if (comprehensive()) write_boundary_templates();
    text(inpfile, "\n\n");
}
