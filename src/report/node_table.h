// The nodes of a model by their numbers: 16 bytes each, looked up in almost constant time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace report
{

// Coordinates are single precision, which is what the converter carries and the solver gets.
class NodeTable
{
public:
    void add(std::int64_t id, const std::array<float, 3>& at);

    // Puts them in order. To be called when all are there, and before find().
    void seal();

    // Null when there is no such node. Of several with one number one is found, the same whatever their order was.
    [[nodiscard]] const std::array<float, 3>* find(std::int64_t id) const;

    [[nodiscard]] std::size_t size() const { return nodes_.size(); }

private:
    struct Node {
        std::uint32_t id = 0;
        std::array<float, 3> at{};
    };
    static bool before(const Node& a, const Node& b);

    std::deque<Node> nodes_;            // does not move what is there when it grows
    std::vector<std::uint32_t> first_;  // of each range of numbers: its first node's place
    std::uint32_t lowest_ = 0;          // number
    int shift_ = 0;                     // a range has 2^shift numbers
    bool ascending_ = true;
};

}  // namespace report
