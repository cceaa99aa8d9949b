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
    {"*BOUNDARY_NON_REFLECTING", handler<bnonreflect>, "Non-reflecting boundary set", "without `AD` and `AS`"},
    {"*BOUNDARY_PRESCRIBED_MOTION_RIGID", skipped},
    {"*BOUNDARY_PRESCRIBED_MOTION", handler<bprescribedmotion>, "Prescribed motion, Prescribed motion set, as comments",
     "`_NODE` and `_SET`; velocities and accelerations; as comments"},
    {"*BOUNDARY_SPC", handler<bspc>, "Nodal SPC node, Nodal SPC set", "`_NODE` and `_SET`"},
    {"*BOUNDARY_SPH_SYMMETRY_PLANE", handler<bsphsym>, "SPH symmetry plane"},
    {"*BOUNDARY_SYMMETRY_FAILURE", handler<bsymwfail>, "Symmetry plane with failure set"},
    {"*BOUNDARY", skipped},
    {"*DEFINE_BOX_DRAWBEAD", skipped},
    {"*DEFINE_BOX", handler<definebox>, "Box definition", "without what `_ADAPTIVE`, `_COARSEN` and `_SPH` add"},
    {"*DEFINE_COORDINATE_NODES",
     handler<definecoordnodes>,
     "Local coordinate system nodes",
     "without `FLAG` and `DIR`",
     {"with `accelflag` 0", [] { return accelflag == 0; }}},
    {"*DEFINE_COORDINATE_NODES", passed_over, "",
     "without `FLAG` and `DIR`"},  // they become accelerometers, in a file of their own
    {"*DEFINE_COORDINATE_SYSTEM", handler<definecoordsystem>, "Local coordinate system",
     "the first seven fields and the second card"},
    {"*DEFINE_COORDINATE", end_of_pass, "",
     "ends the section of boundary conditions and loads"},  // sic: what stands behind any other coordinate keyword is
                                                            // not converted
    {"*INITIAL_VELOCITY_KINEMATICS", skipped},
    {"*INITIAL_VELOCITY_GENERATION", handler<ivelogen>, "Initial velocity definition", "without `IVATN` and `PHASE`"},
    {"*INITIAL_VELOCITY_NODE", skipped},
    {"*INITIAL_VELOCITY_RIGID_BODY", skipped},
    {"*INITIAL_VELOCITY", handler<ivelocity>, "Initial velocity definition",
     "translations of node sets; skipped with box, exempted nodes or `IRIGID`"},
    {"*INITIAL_DETONATION", handler<idetonat>, "Detonation point definition",
     "no acoustic boundaries, with a `PID` below 0"},
    {"*INITIAL", skipped},
    {"*LOAD_BLAST", handler<loadblast>, "Blast Load (CONWEP) Definition", "one segment set for all blasts"},
    {"*LOAD_NODE", handler<loadnode>, "Nodal forces, Nodal forces set", "`_POINT` and `_SET`"},
    {"*LOAD_SEGMENT_SET_NONUNIFORM", skipped},
    {"*LOAD_SEGMENT_SET", handler<loadsegset>, "Pressure loads set", "without `DT`"},
    {"*LOAD_SEGMENT_NONUNIFORM", skipped},
    {"*LOAD_SEGMENT", handler<loadseg>, "Pressure loads", "four nodes; not for blasts"},
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
