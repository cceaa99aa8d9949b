// Size and shape of one element.
#pragma once

#include <array>
#include <cstdint>

#include "report/vector.h"

namespace report
{

struct Shape {
    double size = 0;           // volume of a solid, negative when it is inside out; area of a shell
    Vector moment{};           // the integral of the position over it: size by centre
    double quality = 0;        // scaled Jacobian: 1 for a cube, a square and the regular form of the other kinds; 0 or
                               // less when flat or inside out somewhere
    double shortest_edge = 0;  // between different nodes
};

// A solid of eight nodes in the usual order. Nodes that repeat, or are 0, make tetrahedra, wedges and pyramids of it.
// Volume and moment are exact integrals of the trilinear form; of a tetrahedron, whose eight nodes bound only half of
// it in that form, of the body between its four corners.
Shape shape_of_solid(const std::array<std::int64_t, 8>& nodes, const std::array<Vector, 8>& at);

// A shell of four nodes; a triangle when the fourth repeats the third, or is 0. The area of a warped one is that of its
// projection on its mean plane.
Shape shape_of_shell(const std::array<std::int64_t, 4>& nodes, const std::array<Vector, 4>& at);

// True for a triangle.
inline bool is_triangle(const std::array<std::int64_t, 4>& nodes)
{
    return nodes[3] == nodes[2] || nodes[3] == 0;
}

// The nodes with those before them in the place of zeros.
std::array<std::int64_t, 8> without_zeros(std::array<std::int64_t, 8> nodes);

}  // namespace report
