// A block of the deck under check.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "check/finding.h"
#include "check/passes.h"
#include "check/reading.h"
#include "deck/deck_reader.h"
#include "deck/layout.h"

namespace check
{

// What has become of a block.
enum class Fate {
    structural,   // *KEYWORD, *INCLUDE and their like: it defines nothing by itself
    converted,    //
    passed_over,  // MD203
    skipped,      // MD201, MD202
    lost,         // it has an error of its own, or that of the block before it
    not_followed  // it stands in an include file
};

struct BlockAt {
    const deck::Block* head = nullptr;
    std::size_t index = 0;    // of all blocks in the tree
    std::string keyword;      // as findings show it
    deck::LayoutMatch match;  //
    Fate fate = Fate::structural;
    BlockNumber number = no_block;  // in the reading; of the main deck's blocks alone
    bool skipped = false;           // the converter skips such keywords, wherever they stand
    std::string file;               // as findings name it
    std::size_t file_order = 0;

    [[nodiscard]] bool main() const { return head->file == 0; }
};

// A finding in the block; columns from 0. Without columns it is about the line as a whole.
Finding finding_at(const BlockAt& block, std::string_view code, std::size_t line, std::size_t column, std::size_t end,
                   std::string message);

// Where the line's first and last characters that are no blanks are; 0 and 0 in a blank line.
struct Inked {
    std::size_t begin = 0, end = 0;
};
Inked inked(std::string_view line);

}  // namespace check
