// What the styles share: finding something to spell otherwise.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "support/models.h"
#include "support/random.h"
#include "support/styles.h"

namespace models
{
// A block that still stands as in the strict form and passes the test; null when there is none.
template <class Test>
Block* pick_block(Spelling& spelling, Random& random, Test&& test)
{
    std::vector<Block*> found;
    for (Block* const block : all_blocks(spelling.deck))
        if (block->number > 0 && !block->respelled && test(*block)) found.push_back(block);
    return found.empty() ? nullptr : random.pick(found);
}

// The same for a block none of whose cards is written otherwise either.
template <class Test>
Block* pick_untouched(Spelling& spelling, Random& random, Test&& test)
{
    return pick_block(spelling, random, [&](const Block& block) { return !block.retouched && test(block); });
}

// The block in the strict form.
inline Block& twin(Spelling& spelling, const Block& block)
{
    for (Block& other : spelling.strict.blocks)
        if (other.number == block.number) return other;
    return spelling.strict.blocks.front();  // never: numbers are kept
}

// A number that no block has.
inline int new_number(const Spelling& spelling)
{
    int last = 0;
    for (const Block& block : spelling.strict.blocks) last = last < block.number ? block.number : last;
    return last + 1;
}

// Puts a block behind another one, in the strict form.
inline void insert_behind(Model& model, int number, Block block)
{
    for (auto at = model.blocks.begin(); at != model.blocks.end(); ++at) {
        if (at->number != number) continue;
        model.blocks.insert(at + 1, std::move(block));
        return;
    }
}

// How many files the deck includes.
inline std::size_t count_files(Spelling& spelling)
{
    std::size_t count = 0;
    for (const Block* const block : all_blocks(spelling.deck)) count += block->files.size();
    return count;
}

inline bool has_identifier_line(const Block& block)
{
    return ends(block.keyword, "_ID") && !block.cards.empty() && block.cards.front().is_title();
}
}  // namespace models
