// The faces of solids, as hexahedra have them and as their degenerate forms do.
#pragma once

#include <array>
#include <cstdint>

namespace report
{

using Corners = std::array<std::int32_t, 8>;  // numbers of nodes; degenerate forms repeat them
using Face = std::array<std::int32_t, 4>;     // against the clock seen from outside; a triangle's last two are the same

constexpr int faces_of_solid = 6;

// True when there are four nodes in all.
bool is_tetrahedron(const Corners& corners);

// The face of that place, 0 to 5; false when the solid has none there, or it has no area.
bool face_of_solid(const Corners& corners, bool tetrahedron, int place, Face& face);

}  // namespace report
