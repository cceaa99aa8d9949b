// Sets of identifiers: some bytes for each number when they are scattered, a bit when they are dense.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace check
{

class NumberSet
{
public:
    // False when the number was there already.
    bool insert(std::int64_t number);
    [[nodiscard]] bool contains(std::int64_t number) const;
    [[nodiscard]] bool empty() const { return chunks_.empty(); }

    // True when every number is in one of the two others.
    [[nodiscard]] bool is_within(const NumberSet& one, const NumberSet& other) const;

private:
    // 65536 numbers that share their upper bits: sorted while they are few, then a bit each.
    struct Chunk {
        std::vector<std::uint16_t> few;
        std::vector<std::uint64_t> bits;  // empty while they are few
        bool insert(std::uint16_t low);
        [[nodiscard]] bool contains(std::uint16_t low) const;
    };
    [[nodiscard]] const Chunk* chunk(std::int64_t upper) const;

    std::unordered_map<std::int64_t, Chunk> chunks_;
    mutable std::int64_t last_upper_ = 0;  // of the chunk that was used last
    mutable Chunk* last_ = nullptr;
};

}  // namespace check
