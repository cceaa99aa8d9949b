// Where a file's keyword lines stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "reader/text_source.h"

// A set of initials: characters behind the "*" of a keyword line, letters in upper or lower case alike, all that are no
// letters as one.
class Initials
{
public:
    static constexpr Initials all() { return Initials(~std::uint32_t{0}); }
    constexpr Initials() = default;

    constexpr void add(char initial) { members_ |= std::uint32_t{1} << number_of(initial); }
    [[nodiscard]] constexpr bool has(char initial) const { return has_number(number_of(initial)); }
    [[nodiscard]] constexpr bool has_number(unsigned number) const { return (members_ >> number & 1) != 0; }

    static constexpr unsigned bits = 5;  // of a number

    // 1 to 26 for the letters, else 0.
    static constexpr unsigned number_of(char initial)
    {
        const auto letter = static_cast<unsigned>((initial | 0x20) - 'a');
        return letter < 26 ? letter + 1 : 0;
    }

private:
    explicit constexpr Initials(std::uint32_t members) : members_(members) {}

    std::uint32_t members_ = 0;
};

// The positions of the lines that begin with "*", in ascending order, and their initials. A deck may consist of nothing
// else, so each line is kept as its distance from the one before and its initial, seven bits to a byte, in blocks: two
// or three bytes for most lines, five for those behind a gap of 8 MiB; and the index grows without being copied.
class KeywordIndex
{
public:
    // A line that was found, from which the next search goes on.
    struct Place {
        std::size_t block = static_cast<std::size_t>(-1);
        std::size_t next = 0;  // byte of the distance to the line behind it
        Position position = 0;
        unsigned initial = 0;  // its number
    };

    void clear() { *this = {}; }

    // Adds a line, which stands behind all others; of its characters, newline included, the first decide.
    void add(Position position, std::string_view line);

    // The first line at or behind the position that has one of the initials, which is cheap to find near the place;
    // nothing when there is none.
    std::optional<Position> find(Position position, Place& place, Initials wanted = Initials::all()) const;

    // The memory that it takes.
    [[nodiscard]] std::size_t bytes() const
    {
        return blocks_.capacity() * sizeof blocks_.front() + blocks_.size() * sizeof(Block);
    }

private:
    static constexpr std::size_t block_size = 1000;

    struct Block {
        Position first = 0;  // its first line
        unsigned first_initial = 0;
        std::size_t used = 0;  // the bytes are the other lines
        unsigned char bytes[block_size];
    };

    [[nodiscard]] std::size_t block_of(Position position) const;
    bool step(Place& place) const;

    std::vector<std::unique_ptr<Block>> blocks_;
    Position last_ = 0;
};
