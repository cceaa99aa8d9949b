// The geometry file: its passes over the deck, in the order node, shell, solid, particle.
#include "bulk/bulk.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
constexpr PassRow node_rows[] = {
    {"*NODE_RIGID", skipped}, {"*NODE_SCALAR", skipped}, {"*NODE_TRANSFORM", skipped},
    {"*NODE", node},          {"*END", end_of_pass},
};
static_assert(every_row_reachable(node_rows));

constexpr Conversion node_conversions[] = {
    {node, "node", "Node Definition"},
};

constexpr PassRow shell_rows[] = {
    {"*ELEMENT_SHELL_BETA", eshellt},
    {"*ELEMENT_SHELL_DOF", skipped},
    {"*ELEMENT_SHELL_MCID", skipped},
    {"*ELEMENT_SHELL_OFFSET", skipped},
    {"*ELEMENT_SHELL_THICKNESS", eshellt},
    {"*ELEMENT_SHELL", eshell},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(shell_rows));

constexpr Conversion shell_conversions[] = {
    {eshell, "eshell", "Shell Element Definition"},
    {eshellt, "eshellt", "Shell Element Definition"},
};

constexpr PassRow solid_rows[] = {
    {"*ELEMENT_SOLID_ORTHO", skipped}, {"*ELEMENT_SOLID_DOF", skipped}, {"*ELEMENT_SOLID_TET", skipped},
    {"*ELEMENT_SOLID", esolid},        {"*END", end_of_pass},
};
static_assert(every_row_reachable(solid_rows));

constexpr Conversion solid_conversions[] = {
    {esolid, "esolid", "Solid Element Definition"},
};

constexpr PassRow sph_element_rows[] = {
    {"*ELEMENT_SPH", esph},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(sph_element_rows));

constexpr Conversion sph_element_conversions[] = {
    {esph, "esph", "SPH Element Definition"},
};
}  // namespace

const Pass node_keywords{"nodes", node_rows, node_conversions};
const Pass shell_keywords{"shells", shell_rows, shell_conversions};
const Pass solid_keywords{"solids", solid_rows, solid_conversions};
const Pass sph_element_keywords{"particles", sph_element_rows, sph_element_conversions};

void geometry_section()
{
    banner(geomfile, "Geometry Definitions");
    run_pass(node_keywords);
    run_pass(shell_keywords);
    run_pass(solid_keywords);
    run_pass(sph_element_keywords);
    text(geomfile, "\n\n");
}
