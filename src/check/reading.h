// What the converter read of a deck, as a watched run records it.
//
// All positions are of the deck. Memory grows with the keyword lines and with the lines that are read unlike their
// neighbours, not with the cards of a regular block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "check/passes.h"
#include "reader/text_source.h"

namespace check
{

enum class ReadAs : std::uint8_t { number, word, text };

// A field where the converter read it; a text has no width, it is read to where its reader ends.
struct ReadField {
    std::uint32_t column = 0;  // from 0; of a field beyond its line's end, where it would have begun
    std::uint16_t width = 0;
    ReadAs as = ReadAs::number;

    bool operator==(const ReadField&) const = default;
};

// All that one handler read of a line.
using Pattern = std::vector<ReadField>;
using PatternNumber = std::uint32_t;

// A keyword line's place in Reading::blocks.
using BlockNumber = std::uint32_t;
inline constexpr BlockNumber no_block = static_cast<BlockNumber>(-1);

// Lines that follow each other, comments between them left out, read by turns after two patterns.
struct LinesRead {
    Position first = 0;  // where the first and the last line begin
    Position last = 0;
    PatternNumber patterns[2] = {};
    BlockNumber block = no_block;  // for which they were read
    std::size_t count = 0;
};

// A keyword line, and what the passes did with it.
struct BlockRead {
    Position begin = 0;
    PassSet reached_by = 0;
    PassSet converted_by = 0;
};

// How a pass ended.
struct PassEnd {
    bool ended = false;
    bool by_end_of_deck = false;  // else by a keyword line that is no *END
    Position at = 0;
};

// What the debug log says of one group of cards.
struct LogShape {
    struct Replaced {
        std::string field;
        std::string by;  // the log's words: "Changed to 1 for Kestrune input"
    };
    std::vector<std::string> unused;  // fields, as the log names them
    std::vector<Replaced> replaced;
    bool refused = false;  // the handler skipped the group
};
using ShapeNumber = std::uint32_t;

struct Reading {
    std::vector<BlockRead> blocks;  // in the deck's order
    std::vector<Pattern> patterns;
    std::vector<LinesRead> lines;    // in the order of their first lines
    std::vector<PassEnd> pass_ends;  // in the order of passes()
    std::vector<LogShape> shapes;
    std::unordered_map<BlockNumber, std::vector<ShapeNumber>> log;  // a shape for each group

    // The block whose keyword line begins there; no_block when none does.
    [[nodiscard]] BlockNumber block_at(Position begin) const;
};

}  // namespace check
