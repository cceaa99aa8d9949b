// What a model counts: numbers, sizes and mass, from a deck or from what was written of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
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

    bool operator==(const SetCount&) const = default;
};

// One of the elements whose shape is worst.
struct BadElement {
    std::int64_t id = 0;
    std::int64_t part = 0;
    double shape = 0;  // 1 is a cube or a square; 0 or less is flat or turned inside out
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
};

// What differs between deck and written files, a sentence each; empty when nothing does. Integers are compared exactly;
// sizes, masses and centres within what the written digits can hold.
std::vector<std::string> differences(const Count& in, const Count& out);

}  // namespace report
