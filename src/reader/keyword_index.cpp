#include "reader/keyword_index.h"

#include <algorithm>

namespace
{
constexpr std::size_t longest_line = 10;  // bytes of 64 bits
constexpr unsigned bits = 7;
constexpr unsigned more = 1U << bits;  // marks a byte that others follow
}  // namespace

void KeywordIndex::add(Position position, std::string_view line)
{
    const unsigned initial = line.size() > 1 ? Initials::number_of(line[1]) : 0;
    Position code = (position - last_) << Initials::bits | initial;
    last_ = position;
    if (blocks_.empty() || block_size - blocks_.back()->used < longest_line) {
        blocks_.push_back(std::make_unique_for_overwrite<Block>());
        blocks_.back()->first = position;
        blocks_.back()->first_initial = initial;
        return;
    }
    Block& block = *blocks_.back();
    for (; code >= more; code >>= bits) block.bytes[block.used++] = static_cast<unsigned char>(code | more);
    block.bytes[block.used++] = static_cast<unsigned char>(code);
}

std::optional<Position> KeywordIndex::find(Position position, Place& place, Initials wanted) const
{
    if (blocks_.empty()) return {};
    const bool near = place.block < blocks_.size() && place.position <= position &&
                      (place.block + 1 == blocks_.size() || position < blocks_[place.block + 1]->first);
    if (!near) {
        const std::size_t block = block_of(position);
        place = {block, 0, blocks_[block]->first, blocks_[block]->first_initial};
    }
    while (place.position < position || !wanted.has_number(place.initial))
        if (!step(place)) return {};
    return place.position;
}

// The last block that begins at or before the position, or the first.
std::size_t KeywordIndex::block_of(Position position) const
{
    const auto behind = std::upper_bound(blocks_.begin() + 1, blocks_.end(), position,
                                         [](Position p, const auto& block) { return p < block->first; });
    return static_cast<std::size_t>(behind - blocks_.begin()) - 1;
}

// Goes on to the next line; false when there is none.
bool KeywordIndex::step(Place& place) const
{
    const Block& block = *blocks_[place.block];
    if (place.next == block.used) {
        if (place.block + 1 == blocks_.size()) return false;
        ++place.block;
        place.next = 0;
        place.position = blocks_[place.block]->first;
        place.initial = blocks_[place.block]->first_initial;
        return true;
    }
    Position code = 0;
    for (unsigned shift = 0;; shift += bits) {
        const Position byte = block.bytes[place.next++];
        code |= (byte & (more - 1)) << shift;
        if (byte < more) break;
    }
    place.position += code >> Initials::bits;
    place.initial = static_cast<unsigned>(code & ((1U << Initials::bits) - 1));
    return true;
}
