#include "check/number_set.h"

#include <algorithm>

namespace check
{
namespace
{
constexpr int low_bits = 16;
constexpr std::size_t most_few = 2048;  // half the size of the bits
constexpr std::size_t words = (std::size_t{1} << low_bits) / 64;

std::int64_t upper_of(std::int64_t number)
{
    return number >> low_bits;
}

std::uint16_t low_of(std::int64_t number)
{
    return static_cast<std::uint16_t>(number & 0xFFFF);
}

std::uint64_t bit_of(std::uint16_t low)
{
    return std::uint64_t{1} << (low % 64);
}
}  // namespace

bool NumberSet::Chunk::insert(std::uint16_t low)
{
    if (!bits.empty()) {
        std::uint64_t& word = bits[low / 64];
        const bool is_new = (word & bit_of(low)) == 0;
        word |= bit_of(low);
        return is_new;
    }
    if (few.empty() || few.back() < low) {
        few.push_back(low);
    } else {
        const auto place = std::lower_bound(few.begin(), few.end(), low);
        if (*place == low) return false;
        few.insert(place, low);
    }
    if (few.size() <= most_few) return true;
    bits.assign(words, 0);
    for (const std::uint16_t one : few) bits[one / 64] |= bit_of(one);
    few = {};
    return true;
}

bool NumberSet::Chunk::contains(std::uint16_t low) const
{
    if (!bits.empty()) return (bits[low / 64] & bit_of(low)) != 0;
    return std::binary_search(few.begin(), few.end(), low);
}

bool NumberSet::insert(std::int64_t number)
{
    const std::int64_t upper = upper_of(number);
    if (last_ == nullptr || last_upper_ != upper) {
        last_ = &chunks_[upper];
        last_upper_ = upper;
    }
    return last_->insert(low_of(number));
}

const NumberSet::Chunk* NumberSet::chunk(std::int64_t upper) const
{
    const auto found = chunks_.find(upper);
    return found == chunks_.end() ? nullptr : &found->second;
}

bool NumberSet::contains(std::int64_t number) const
{
    const Chunk* const found = last_ != nullptr && last_upper_ == upper_of(number) ? last_ : chunk(upper_of(number));
    return found != nullptr && found->contains(low_of(number));
}

bool NumberSet::is_within(const NumberSet& one, const NumberSet& other) const
{
    const auto inside = [&](std::int64_t number) { return one.contains(number) || other.contains(number); };
    for (const auto& [upper, mine] : chunks_) {
        const std::int64_t base = upper * (std::int64_t{1} << low_bits);
        for (const std::uint16_t low : mine.few)
            if (!inside(base + low)) return false;
        for (std::size_t word = 0; word < mine.bits.size(); ++word)
            for (std::uint64_t rest = mine.bits[word]; rest != 0; rest &= rest - 1) {
                std::int64_t bit = 0;
                while ((rest >> bit & 1) == 0) ++bit;
                if (!inside(base + static_cast<std::int64_t>(word * 64) + bit)) return false;
            }
    }
    return true;
}
}  // namespace check
