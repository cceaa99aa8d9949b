// What a model counts: numbers, sizes and mass, from a deck or from what was written of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace report
{

struct Box {
    std::array<double, 3> low{};
    std::array<double, 3> high{};
    bool empty = true;  // there is no node

    bool operator==(const Box&) const = default;
};

// A part, with what its elements add up to. Mass, volume and centre are in the units of the deck.
struct PartCount {
    std::int64_t id = 0;
    std::size_t definitions = 0;  // 0: elements name it, and nothing defines it
    std::string title;
    std::int64_t section = 0;
    std::int64_t material = 0;
    std::size_t solids = 0;
    std::size_t shells = 0;
    std::size_t particles = 0;
    double volume = 0;  // of solids; of shells area by thickness; of particles mass by density, where there is one
    double mass = 0;    // volume by density; of particles what they carry
    std::array<double, 3> centre{};  // of mass; of volume where there is no density
    bool has_density = false;
    double density = 0;                 // of its material
    std::array<double, 4> thickness{};  // of its section, at the corners of shells
};

enum class SetKind : std::uint8_t { node, part, segment, shell, solid, other };

struct SetCount {
    SetKind kind = SetKind::other;
    std::int64_t id = 0;
    std::string title;
    std::size_t members = 0;
    std::uint64_t digest = 0;  // of what the members are, whatever their order

    bool operator==(const SetCount&) const = default;
};

// One of the elements whose shape is worst.
struct BadElement {
    std::int64_t id = 0;
    std::int64_t part = 0;
    double shape = 0;  // 1 is a cube or a square, or the like of another form; 0 or less is flat or turned inside out

    bool operator==(const BadElement&) const = default;
};

struct Count {
    std::size_t nodes = 0;
    std::size_t solids = 0;
    std::size_t shells = 0;
    std::size_t particles = 0;
    Box box;                       // of the nodes
    std::vector<PartCount> parts;  // by number
    std::vector<SetCount> sets;    // by kind and number
    double smallest_edge = 0;      // of any element; 0 when there is none
    std::int64_t smallest_edge_element = 0;
    std::vector<BadElement> worst;  // at most ten, the worst first

    // Of what the nodes and elements are, whatever their order: numbers and coordinates, parts and nodes, masses of
    // particles. Coordinates and masses as single precision, which is what the converter carries.
    std::uint64_t node_digest = 0;
    std::uint64_t solid_digest = 0;
    std::uint64_t shell_digest = 0;
    std::uint64_t particle_digest = 0;
};

// Which outputs a conversion was asked for.
struct Asked {
    bool main_deck = true;
    bool geometry = true;
    bool sets = true;
};

// By the settings of the control file, a name and a value each.
Asked asked_for(const std::vector<std::pair<std::string, int>>& settings);

// What differs between deck and written files, a sentence each; empty when nothing does. Numbers, identifiers and what
// they name are compared exactly; sizes, masses and centres within what the written digits can hold. What stands in an
// output that was not asked for is not compared: without the main deck neither parts nor thicknesses nor densities.
std::vector<std::string> differences(const Count& in, const Count& out, const Asked& asked = {});

}  // namespace report
