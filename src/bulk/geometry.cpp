// The geometry file: its passes over the deck, in the order node, shell, solid, particle.
#include "bulk/bulk.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
constexpr PassRow node_rows[] = {
    {"*NODE_RIGID", skipped},     {"*NODE_SCALAR", skipped},
    {"*NODE_TRANSFORM", skipped}, {"*NODE", handler<node>, "Node Definition"},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(node_rows));

constexpr PassRow shell_rows[] = {
    {"*ELEMENT_SHELL_BETA", handler<eshellt>, "Shell Element Definition", "four nodes"},
    {"*ELEMENT_SHELL_DOF", skipped},
    {"*ELEMENT_SHELL_MCID", skipped},
    {"*ELEMENT_SHELL_OFFSET", skipped},
    {"*ELEMENT_SHELL_THICKNESS", handler<eshellt>, "Shell Element Definition", "four nodes"},
    {"*ELEMENT_SHELL", handler<eshell>, "Shell Element Definition", "four nodes"},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(shell_rows));

constexpr PassRow solid_rows[] = {
    {"*ELEMENT_SOLID_ORTHO", skipped},
    {"*ELEMENT_SOLID_DOF", skipped},
    {"*ELEMENT_SOLID_TET", skipped},
    {"*ELEMENT_SOLID", handler<esolid>, "Solid Element Definition", "on one line, eight nodes"},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(solid_rows));

constexpr PassRow sph_element_rows[] = {
    {"*ELEMENT_SPH", handler<esph>, "SPH Element Definition"},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(sph_element_rows));

}  // namespace

const Pass node_keywords{"nodes", node_rows};
const Pass shell_keywords{"shells", shell_rows};
const Pass solid_keywords{"solids", solid_rows};
const Pass sph_element_keywords{"particles", sph_element_rows};

void geometry_section()
{
    banner(geomfile, "Geometry Definitions");
    run_pass(node_keywords);
    run_pass(shell_keywords);
    run_pass(solid_keywords);
    run_pass(sph_element_keywords);
    text(geomfile, "\n\n");
}
