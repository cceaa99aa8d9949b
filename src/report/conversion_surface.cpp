#include "report/conversion_surface.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "report/deck_facts.h"

namespace report
{

namespace
{
constexpr std::size_t most_conditions = 2000;

// Blocks by their lines in the converted deck.
class BlocksByLine
{
public:
    explicit BlocksByLine(const Ledger& ledger)
    {
        for (const Block& block : ledger.blocks)
            if (block.prepared_line != 0) blocks_.push_back(&block);
        std::sort(blocks_.begin(), blocks_.end(),
                  [](const Block* one, const Block* other) { return one->prepared_line < other->prepared_line; });
    }

    // Null when the line is in none.
    [[nodiscard]] const Block* at(std::size_t line) const
    {
        const auto behind =
            std::upper_bound(blocks_.begin(), blocks_.end(), line,
                             [](std::size_t wanted, const Block* block) { return wanted < block->prepared_line; });
        if (behind == blocks_.begin()) return nullptr;
        const Block* const block = *std::prev(behind);
        return line <= block->prepared_last_line ? block : nullptr;
    }

private:
    std::vector<const Block*> blocks_;
};

// Of the part's card, its section and its material: the first that was not converted, else that all were.
std::string outcome_of(const Surface::Part& part, const DeckFacts& facts, const BlocksByLine& blocks)
{
    const auto known = facts.parts.find(part.id);
    if (known == facts.parts.end()) return "";
    std::string outcome;
    const auto take = [&](std::size_t line) {
        const Block* const block = blocks.at(line);
        if (block != nullptr && (outcome.empty() || outcome == words(Outcome::converted)))
            outcome = words(block->outcome);
    };
    take(known->second.line);
    if (const auto section = facts.sections.find(known->second.section); section != facts.sections.end())
        take(section->second);
    if (const auto material = facts.materials.find(known->second.material); material != facts.materials.end())
        take(material->second);
    return outcome;
}

// What is laid upon a set has the set's members.
void lay_upon_set(Surface& surface, const LaidUpon& laid)
{
    const auto set = std::find_if(surface.sets.begin(), surface.sets.end(), [&](const Surface::Members& candidate) {
        return candidate.laid.empty() && candidate.kind == laid.kind && candidate.id == laid.id;
    });
    if (set == surface.sets.end()) return;
    Surface::Members members = *set;
    members.laid = laid.keyword;
    surface.sets.push_back(members);
}

template <class Numbers, class Number>
void add_place(Surface& surface, const Numbers& numbers, std::int64_t wanted, const Number& number)
{
    const auto found =
        std::lower_bound(numbers.begin(), numbers.end(), wanted,
                         [&](const auto& each, std::int64_t value) { return std::int64_t{number(each)} < value; });
    if (found != numbers.end() && number(*found) == wanted)
        surface.members.push_back(static_cast<std::uint32_t>(found - numbers.begin()));
}

void lay_upon_each(Surface& surface, const LaidUpon& laid)
{
    Surface::Members members{.kind = laid.kind, .first = surface.members.size(), .all = laid.members.size()};
    members.laid = laid.keyword;
    for (const std::int64_t member : laid.members) {
        if (laid.kind == SetKind::part)
            add_place(surface, surface.parts, member, [](const Surface::Part& part) { return part.id; });
        else
            add_place(surface, surface.node_numbers, member, [](std::int32_t node) { return node; });
    }
    members.count = surface.members.size() - members.first;
    surface.sets.push_back(members);
}
}  // namespace

Surface surface_of_conversion(const std::filesystem::path& folder, const Ledger& ledger, const SurfaceLimits& limits)
{
    Surface surface = surface_of(
        [&](ModelVisitor& visitor, const Pieces& pieces) { read_written(folder, ledger.deck, visitor, pieces); },
        limits);
    const DeckFacts facts =
        deck_facts(folder / ledger.deck, limits.members - std::min(limits.members, surface.members.size()));
    const BlocksByLine blocks(ledger);
    for (Surface::Part& part : surface.parts) part.outcome = outcome_of(part, facts, blocks);
    for (std::size_t i = 0; i < facts.laid_upon.size() && i < most_conditions; ++i) {
        const LaidUpon& laid = facts.laid_upon[i];
        if (laid.id != 0)
            lay_upon_set(surface, laid);
        else
            lay_upon_each(surface, laid);
    }
    return surface;
}

}  // namespace report
