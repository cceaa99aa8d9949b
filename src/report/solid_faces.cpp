#include "report/solid_faces.h"

#include <algorithm>
#include <cstddef>

namespace report
{

namespace
{
constexpr int hexahedron[faces_of_solid][4] = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                               {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};

// A tetrahedron's four nodes in the order of its card: the first three seen against the clock from the fourth.
constexpr int tetrahedron_faces[4][3] = {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};

bool face_of_tetrahedron(const Corners& corners, int place, Face& face)
{
    if (place >= 4) return false;
    std::array<std::int32_t, 4> nodes{};
    std::size_t count = 0;
    for (const std::int32_t node : corners)
        if (std::find(nodes.begin(), nodes.begin() + count, node) == nodes.begin() + count) nodes.at(count++) = node;
    const auto& three = tetrahedron_faces[place];
    for (std::size_t i = 0; i < 3; ++i) face[i] = nodes.at(static_cast<std::size_t>(three[i]));
    face[3] = face[2];
    return true;
}

bool are_distinct(const Face& face, std::size_t count)
{
    for (std::size_t i = 1; i < count; ++i)
        if (std::find(face.begin(), face.begin() + i, face[i]) != face.begin() + i) return false;
    return true;
}
}  // namespace

bool is_tetrahedron(const Corners& corners)
{
    if (corners[6] != corners[7] && corners[2] != corners[3]) return false;
    Corners sorted = corners;
    std::sort(sorted.begin(), sorted.end());
    return std::unique(sorted.begin(), sorted.end()) - sorted.begin() == 4;
}

bool face_of_solid(const Corners& corners, bool tetrahedron, int place, Face& face)
{
    if (tetrahedron) return face_of_tetrahedron(corners, place, face);
    const auto& four = hexahedron[place];
    std::size_t count = 0;
    for (const int corner : four) {
        const std::int32_t node = corners[static_cast<std::size_t>(corner)];
        if (count == 0 || face[count - 1] != node) face[count++] = node;
    }
    if (count > 1 && face[count - 1] == face[0]) --count;
    if (count < 3 || !are_distinct(face, count)) return false;
    if (count == 3) face[3] = face[2];
    return true;
}

}  // namespace report
