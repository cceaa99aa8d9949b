// The section "Boundary and Initial Conditions Definition": one pass converts boundary conditions, boxes, coordinate
// systems, initial conditions and loads in the deck's order; templates follow.
#include "loading/boundary.h"
#include "loading/loading.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
// Where accelerometers are asked for, coordinate nodes become these, in a file of their own.
void coordinate_nodes()
{
    if (accelflag == 0) definecoordnodes();
}

constexpr PassRow boundary_rows[] = {
    {"*BOUNDARY_NON_REFLECTING_2D", skipped},
    {"*BOUNDARY_NON_REFLECTING", bnonreflect},
    {"*BOUNDARY_PRESCRIBED_MOTION_RIGID", skipped},
    {"*BOUNDARY_PRESCRIBED_MOTION", bprescribedmotion},
    {"*BOUNDARY_SPC", bspc},
    {"*BOUNDARY_SPH_SYMMETRY_PLANE", bsphsym},
    {"*BOUNDARY_SYMMETRY_FAILURE", bsymwfail},
    {"*BOUNDARY", skipped},
    {"*DEFINE_BOX_DRAWBEAD", skipped},
    {"*DEFINE_BOX", definebox},
    {"*DEFINE_COORDINATE_NODES", coordinate_nodes},
    {"*DEFINE_COORDINATE_SYSTEM", definecoordsystem},
    {"*DEFINE_COORDINATE", end_of_pass},  // sic: what stands behind any other coordinate keyword is not converted
    {"*INITIAL_VELOCITY_KINEMATICS", skipped},
    {"*INITIAL_VELOCITY_GENERATION", ivelogen},
    {"*INITIAL_VELOCITY_NODE", skipped},
    {"*INITIAL_VELOCITY_RIGID_BODY", skipped},
    {"*INITIAL_VELOCITY", ivelocity},
    {"*INITIAL_DETONATION", idetonat},
    {"*INITIAL", skipped},
    {"*LOAD_BLAST", loadblast},
    {"*LOAD_NODE", loadnode},
    {"*LOAD_SEGMENT_SET_NONUNIFORM", skipped},
    {"*LOAD_SEGMENT_SET", loadsegset},
    {"*LOAD_SEGMENT_NONUNIFORM", skipped},
    {"*LOAD_SEGMENT", loadseg},
    {"*LOAD", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(boundary_rows));

constexpr Conversion boundary_conversions[] = {
    {bnonreflect, "bnonreflect", "Non-reflecting boundary set"},
    {bprescribedmotion, "bprescribedmotion", "Prescribed motion, Prescribed motion set, as comments"},
    {bspc, "bspc", "Nodal SPC node, Nodal SPC set"},
    {bsphsym, "bsphsym", "SPH symmetry plane"},
    {bsymwfail, "bsymwfail", "Symmetry plane with failure set"},
    {definebox, "definebox", "Box definition"},
    {coordinate_nodes, "definecoordnodes", "Local coordinate system nodes, unless accelflag is set"},
    {definecoordsystem, "definecoordsystem", "Local coordinate system"},
    {ivelogen, "ivelogen", "Initial velocity definition"},
    {ivelocity, "ivelocity", "Initial velocity definition"},
    {idetonat, "idetonat", "Detonation point definition"},
    {loadblast, "loadblast", "Blast Load (CONWEP) Definition"},
    {loadnode, "loadnode", "Nodal forces, Nodal forces set"},
    {loadsegset, "loadsegset", "Pressure loads set"},
    {loadseg, "loadseg", "Pressure loads"},
};
}  // namespace

const Pass boundary_keywords{"boundary and initial conditions", boundary_rows, boundary_conversions};

void boundary_section()
{
    const bool comprehensive = defflag == 1;
    banner(inpfile, "Boundary and Initial Conditions Definition");
    text(inpfile, "\n");
    run_pass(boundary_keywords);
    text(inpfile, "\n");
    write_initial_velocity_template();
    if (comprehensive) write_boundary_templates();
    text(inpfile, "\n\n");
}
