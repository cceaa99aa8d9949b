// What can be seen of a mesh: the faces that one element has alone, and particles.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "report/count.h"

namespace report
{

// Faces of one part stand together. A triangle's last two nodes are the same.
struct Surface {
    struct Part {
        std::int64_t id = 0;
        std::size_t first_face = 0;
        std::size_t faces = 0;
        std::size_t first_particle = 0;
        std::size_t particles = 0;
    };
    struct Members {  // of a set, or of what a boundary condition is laid upon
        std::string title;
        SetKind kind = SetKind::node;
        std::int64_t id = 0;
        std::vector<std::uint32_t> nodes;  // places in node_ids, of those that are seen; of segments the corners
    };

    std::vector<float> positions;                       // three for each node that is seen
    std::vector<std::uint32_t> node_ids;                // its number
    std::vector<std::array<std::uint32_t, 4>> faces;    // places in node_ids
    std::vector<std::uint32_t> face_elements;           // the element's number
    std::vector<std::array<std::uint32_t, 8>> corners;  // of the elements of the faces: their nodes' numbers
    std::vector<std::uint32_t> particles;               // places in node_ids
    std::vector<std::uint32_t> particle_elements;
    std::vector<Part> parts;
    std::vector<Members> sets;
    std::size_t all_faces = 0;      // before thinning
    std::size_t all_particles = 0;  // before thinning
};

}  // namespace report
