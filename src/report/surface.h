// What can be seen of a mesh: the faces that one element of a part has alone, shells, and particles.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "report/count.h"
#include "report/model.h"

namespace report
{

// Faces and particles of one part stand together, and so do its elements. Places count from 0.
struct Surface {
    struct Part {
        std::int64_t id = 0;
        std::string title{};
        std::int64_t section = 0;
        std::int64_t material = 0;
        std::string outcome{};  // the worst of what became of the part, its section and its material; may be empty
        std::size_t first_face = 0;
        std::size_t faces = 0;
        std::size_t first_particle = 0;
        std::size_t particles = 0;
    };
    // A set, or what a boundary condition, a load or an initial condition is laid upon.
    struct Members {
        std::string title{};
        SetKind kind = SetKind::node;
        std::int64_t id = 0;
        std::size_t first = 0;  // in `members`
        std::size_t count = 0;
        std::string laid{};   // the keyword that lays something upon it; empty of the set itself
        std::size_t all = 0;  // before those that are not seen were left out; segments count once
    };

    std::vector<std::int32_t> node_numbers;            // of those that are seen, ascending
    std::vector<float> positions;                      // three for each of them, from where the first node read is
    std::size_t solids = 0;                            // how many of the elements are; the others are shells
    std::vector<std::int32_t> element_numbers;         // of those that are seen, solids first
    std::vector<std::array<std::int32_t, 8>> corners;  // of solids: numbers of nodes, as the element has them
    std::vector<std::array<std::uint32_t, 4>> faces;   // places of nodes; a triangle's last two are the same
    std::vector<std::uint32_t> face_elements;          // places of elements
    std::vector<std::uint32_t> particles;              // places of nodes
    std::vector<std::int32_t> particle_numbers;        // of the elements
    std::vector<Part> parts;                           // by number
    std::vector<Members> sets;                         // in the order in which they are told
    std::vector<std::uint32_t> members;                // places: of nodes, parts or elements; of segments four nodes
    std::size_t all_faces = 0;                         // before thinning
    std::size_t all_particles = 0;                     // before thinning
};

// How much is held at once, and how much is kept.
struct SurfaceLimits {
    std::size_t open_faces = 600'000;      // whose neighbour has not been read; more are left to another reading
    std::size_t held_elements = 300'000;   // with such faces
    std::size_t kept_elements = 600'000;   // on the surface; more are thinned
    std::size_t kept_particles = 900'000;  // likewise
    std::size_t bytes = 13'000'000;        // of the mesh in a page, before base64; more is thinned
    std::size_t members = 400'000;         // of all sets together
};

// Reads a model, the same each time.
using ReadModel = std::function<void(ModelVisitor& visitor, const Pieces& pieces)>;

// A face that two solids of one part share is inside and is left out; one that two parts share belongs to both, since
// either may be hidden. What is thinned is thinned evenly, whole elements at a time, the same each time.
Surface surface_of(const ReadModel& read, const SurfaceLimits& limits = {});

}  // namespace report
