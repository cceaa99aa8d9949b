#include "report/node_table.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace report
{

namespace
{
constexpr std::size_t most_ranges = std::size_t{1} << 20;

// Numbers beyond 32 bits do not reach the solver; no element finds a node by one.
bool fits(std::int64_t id)
{
    return id >= 0 && id <= std::numeric_limits<std::uint32_t>::max();
}
}  // namespace

bool NodeTable::before(const Node& a, const Node& b)
{
    if (a.id != b.id) return a.id < b.id;
    const auto bits = [](const std::array<float, 3>& at) { return std::bit_cast<std::array<std::uint32_t, 3>>(at); };
    return bits(a.at) < bits(b.at);
}

void NodeTable::add(std::int64_t id, const std::array<float, 3>& at)
{
    if (!fits(id)) return;
    const Node node{static_cast<std::uint32_t>(id), at};
    if (!nodes_.empty() && nodes_.back().id >= node.id) ascending_ = false;
    nodes_.push_back(node);
}

void NodeTable::seal()
{
    if (!ascending_) std::sort(nodes_.begin(), nodes_.end(), before);
    first_.clear();
    if (nodes_.empty()) return;
    lowest_ = nodes_.front().id;
    const std::size_t numbers = nodes_.back().id - lowest_;
    shift_ = 0;
    while (numbers >> shift_ >= most_ranges) ++shift_;
    first_.reserve((numbers >> shift_) + 2);
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        while (first_.size() <= (nodes_[i].id - lowest_) >> shift_) first_.push_back(static_cast<std::uint32_t>(i));
    first_.push_back(static_cast<std::uint32_t>(nodes_.size()));
}

const std::array<float, 3>* NodeTable::find(std::int64_t id) const
{
    if (!fits(id) || first_.empty()) return nullptr;
    const auto wanted = static_cast<std::uint32_t>(id);
    if (wanted < lowest_) return nullptr;
    const std::size_t range = (wanted - lowest_) >> shift_;
    if (range + 1 >= first_.size()) return nullptr;
    const auto begin = nodes_.begin() + first_[range];
    const auto end = nodes_.begin() + first_[range + 1];
    const auto found =
        std::lower_bound(begin, end, wanted, [](const Node& node, std::uint32_t number) { return node.id < number; });
    return found != end && found->id == wanted ? &found->at : nullptr;
}

}  // namespace report
