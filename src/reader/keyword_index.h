// Where a file's keyword lines stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "reader/text_source.h"

// The positions of the lines that begin with "*", in ascending order. A deck may consist of nothing else, so they are
// kept as distances, seven bits to a byte, in blocks: one or two bytes for most lines, five for those behind a gap of
// 256 MiB; and the index grows without being copied.
class KeywordIndex
{
public:
    // A line that was found, from which the next search goes on.
    struct Place {
        std::size_t block = static_cast<std::size_t>(-1);
        std::size_t next = 0;  // byte of the distance to the line behind it
        Position position = 0;
    };

    void clear() { *this = {}; }

    // Adds a line, which stands behind all others.
    void add(Position position);

    // The first line at or behind the position, which is cheap to find near the place; nothing when there is none.
    std::optional<Position> find(Position position, Place& place) const;

    // The memory that it takes.
    [[nodiscard]] std::size_t bytes() const
    {
        return blocks_.capacity() * sizeof blocks_.front() + blocks_.size() * sizeof(Block);
    }

private:
    static constexpr std::size_t block_size = 1000;

    struct Block {
        Position first = 0;  // its first line; the bytes are the distances of the others, each from the one before
        std::size_t used = 0;
        unsigned char bytes[block_size];
    };

    [[nodiscard]] std::size_t block_of(Position position) const;
    bool step(Place& place) const;

    std::vector<std::unique_ptr<Block>> blocks_;
    Position last_ = 0;
};
