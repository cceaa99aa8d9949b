// Styles of sets: ranges, what the mesh has, columns, other sets. In the strict form each is a list of its members,
// sorted, each of them once.
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <set>
#include <string>
#include <utility>

#include "support/style_helpers.h"

namespace models
{
namespace
{
struct Family {
    std::string_view keyword;
    SetKind kind;
    std::string_view range;   // behind the keyword
    std::string_view single;  // option of _GENERAL that lists members; empty when there is no _GENERAL
    bool column;              // has _COLUMN
};

constexpr Family families[] = {
    {"*SET_NODE", SetKind::node, "_LIST_GENERATE", "NODE", true},
    {"*SET_PART", SetKind::part, "_LIST_GENERATE", "", true},
    {"*SET_SHELL", SetKind::shell, "_LIST_GENERATE", "ELEM", true},
    {"*SET_SOLID", SetKind::solid, "_GENERATE", "ELEM", false},
};

const Family* family_of(const Block& block)
{
    for (const Family& family : families)
        if (begins(block.keyword, family.keyword)) return &family;
    return nullptr;
}

// A set that is a plain list in the deck; null when there is none.
template <class Test>
Block* pick_set(Spelling& spelling, Random& random, Test&& test)
{
    return pick_untouched(spelling, random, [&](const Block& block) {
        const Family* const family = family_of(block);
        return family != nullptr && block.spelled.empty() && test(*family);
    });
}

bool any_family(const Family&)
{
    return true;
}

// Everything of this kind that is defined, in ascending order.
std::vector<long> defined(const Model& model, SetKind kind)
{
    std::vector<long> ids;
    if (kind == SetKind::node)
        for (const NodeFact& node : nodes_of(model)) ids.push_back(node.id);
    if (kind == SetKind::part)
        for (const PartFact& part : parts_of(model)) ids.push_back(std::stol(part.id));
    if (kind == SetKind::shell)
        for (const ElementFact& shell : shells_of(model)) ids.push_back(shell.id);
    if (kind == SetKind::solid)
        for (const ElementFact& solid : solids_of(model)) ids.push_back(solid.id);
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::vector<long> sorted(std::vector<long> members)
{
    std::sort(members.begin(), members.end());
    members.erase(std::unique(members.begin(), members.end()), members.end());
    return members;
}

// The cards before a set's members: its title and its number.
std::size_t head(const Block& block)
{
    return block.cards.front().is_title() ? 2 : 1;
}

std::vector<long> members_of(const Block& block)
{
    std::vector<long> members;
    for (std::size_t i = head(block); i < block.cards.size(); ++i)
        for (const Field& field : block.cards[i].fields) members.push_back(whole(field));
    return members;
}

void give_cards(Block& block, const std::vector<Card>& cards)
{
    block.cards.resize(head(block));
    block.cards.insert(block.cards.end(), cards.begin(), cards.end());
}

// Writes the set under another keyword with other cards, and its members as a list in the strict form.
bool respell(Spelling& spelling, Block& block, std::string_view option, const std::vector<Card>& cards,
             const std::vector<long>& members)
{
    if (members.empty() || cards.empty()) return false;
    Block& strict_block = twin(spelling, block);
    give_cards(strict_block, list_cards(sorted(members)));
    const Family& family = *family_of(block);
    const bool title = block.cards.front().is_title();
    block.spelled = std::string(family.keyword).append(option).append(title ? "_TITLE" : "");
    give_cards(block, cards);
    block.respelled = true;
    return true;
}

// A block of its own behind *KEYWORD, in both forms.
void insert_in_front(Spelling& spelling, Block block)
{
    spelling.strict.blocks.insert(spelling.strict.blocks.begin() + 1, block);
    spelling.deck.blocks.insert(spelling.deck.blocks.begin() + 1, std::move(block));
}

Card numbers(const std::vector<long>& values)
{
    return list_cards(values).front();
}

// ---- ranges --------------------------------------------------------------------------------------------------------

// The first and the last number of a range, which need not be defined themselves.
std::pair<long, long> random_range(const std::vector<long>& ids, Random& random)
{
    const std::size_t from = random.below(ids.size());
    const std::size_t to = std::min(ids.size() - 1, from + random.below(12));
    const long below = from == 0 ? 1 : ids[from - 1] + 1;
    const long above = to + 1 == ids.size() ? ids[to] + 5 : ids[to + 1] - 1;
    const bool wide = random.one_in(3);
    return {wide ? below : ids[from], wide ? above : ids[to]};
}

bool generate(Spelling& spelling, Random& random)
{
    Block* const block = pick_set(spelling, random, any_family);
    if (block == nullptr) return false;
    const Family& family = *family_of(*block);
    const std::vector<long> ids = defined(spelling.strict, family.kind);
    std::vector<long> ends;
    std::vector<long> members;
    for (std::size_t i = 1 + random.below(6); i > 0; --i) {
        const auto [from, to] = random_range(ids, random);
        ends.insert(ends.end(), {from, to});
        for (const long id : ids)
            if (from <= id && id <= to) members.push_back(id);
    }
    return respell(spelling, *block, family.range, list_cards(ends), members);
}

bool generate_with_increment(Spelling& spelling, Random& random)
{
    Block* const block = pick_set(spelling, random, any_family);
    if (block == nullptr) return false;
    const Family& family = *family_of(*block);
    const std::vector<long> ids = defined(spelling.strict, family.kind);
    std::vector<Card> cards;
    std::vector<long> members;
    for (std::size_t i = 1 + random.below(2); i > 0; --i) {
        const long from = random.pick(ids);
        const long to = random_range(ids, random).second;
        if (to < from) continue;
        const long step = 1 + static_cast<long>(random.below(4));
        cards.push_back(numbers({from, to, step}));
        for (const long id : ids)
            if (from <= id && id <= to && (id - from) % step == 0) members.push_back(id);
    }
    return respell(spelling, *block, std::string(family.range) + "_INCREMENT", cards, members);
}

bool column(Spelling& spelling, Random& random)
{
    Block* const block = pick_set(spelling, random, [](const Family& family) { return family.column; });
    if (block == nullptr) return false;
    const std::vector<long> members = members_of(*block);
    std::vector<Card> cards;
    for (const long member : members) {
        cards.push_back(numbers({member}));
        if (random.one_in(6)) cards.back().fields.push_back({"a1", 10, Kind::real, "0.5", {}, false});
    }
    return respell(spelling, *block, "_COLUMN", cards, members);
}

// ---- what the mesh has ---------------------------------------------------------------------------------------------

Card general_card(std::string_view option, const std::vector<long>& values)
{
    Card card;
    card.fields = {{"option", 10, Kind::name, std::string(option), {}, false}};
    for (const long value : values) card.fields.push_back(integer_field("e", value));
    return card;
}

// Seven to a card behind the option.
std::vector<Card> general_list(std::string_view option, const std::vector<long>& members)
{
    std::vector<Card> cards;
    for (std::size_t i = 0; i < members.size(); i += 7) {
        const auto from = members.begin() + static_cast<std::ptrdiff_t>(i);
        const auto to = members.begin() + static_cast<std::ptrdiff_t>(std::min(i + 7, members.size()));
        cards.push_back(general_card(option, {from, to}));
    }
    return cards;
}

// The nodes or elements of a part.
std::vector<long> members_of_part(const Model& model, SetKind kind, long part)
{
    std::vector<long> members;
    if (kind == SetKind::node)
        for (const ParticleFact& particle : particles_of(model))
            if (particle.part == part) members.push_back(particle.node);
    const auto take = [&](const std::vector<ElementFact>& elements, SetKind of) {
        for (const ElementFact& element : elements) {
            if (element.part != part) continue;
            if (kind == of) members.push_back(element.id);
            if (kind == SetKind::node) members.insert(members.end(), element.nodes.begin(), element.nodes.end());
        }
    };
    take(shells_of(model), SetKind::shell);
    take(solids_of(model), SetKind::solid);
    return members;
}

bool has_general(const Family& family)
{
    return !family.single.empty();
}

bool general_members(Spelling& spelling, Random& random)
{
    Block* const block = pick_set(spelling, random, has_general);
    if (block == nullptr) return false;
    const std::vector<long> members = members_of(*block);
    return respell(spelling, *block, "_GENERAL", general_list(family_of(*block)->single, members), members);
}

bool general_all(Spelling& spelling, Random& random)
{
    Block* const block = pick_set(spelling, random, has_general);
    if (block == nullptr) return false;
    return respell(spelling, *block, "_GENERAL", {general_card("ALL", {})},
                   defined(spelling.strict, family_of(*block)->kind));
}

bool general_part(Spelling& spelling, Random& random)
{
    Block* const block = pick_set(spelling, random, has_general);
    if (block == nullptr) return false;
    const SetKind kind = family_of(*block)->kind;
    std::vector<long> parts;
    std::vector<long> members;
    for (const long part : defined(spelling.strict, SetKind::part)) {
        const std::vector<long> found = members_of_part(spelling.strict, kind, part);
        if (found.empty() || parts.size() == 7 || (!parts.empty() && random.one_in(2))) continue;
        parts.push_back(part);
        members.insert(members.end(), found.begin(), found.end());
    }
    if (parts.empty()) return false;
    return respell(spelling, *block, "_GENERAL", {general_card("PART", parts)}, members);
}

std::string short_text(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.4f", value);
    return text;
}

// The nodes in a box, none of which is on its border.
bool general_box(Spelling& spelling, Random& random)
{
    Block* const block = pick_set(spelling, random, [](const Family& family) { return family.kind == SetKind::node; });
    if (block == nullptr) return false;
    const std::vector<NodeFact> nodes = nodes_of(spelling.strict);
    const std::array<double, 3>& center = random.pick(nodes).at;
    const double reach = static_cast<double>(random.below(4)) + 0.03;  // the lattices have steps of a tenth or more
    Block box;
    box.number = new_number(spelling);
    box.keyword = "*DEFINE_BOX";
    box.cards.emplace_back();
    const long number = 700000 + box.number;
    box.cards[0].fields.push_back(integer_field("boxid", number));
    static constexpr std::string_view names[] = {"xmn", "xmx", "ymn", "ymx", "zmn", "zmx"};
    for (std::size_t i = 0; i < 6; ++i)
        box.cards[0].fields.push_back(
            {names[i], 10, Kind::real, short_text(center[i / 2] + (i % 2 == 0 ? -reach : reach)), {}, false});
    std::vector<long> members;
    for (const NodeFact& node : nodes) {
        bool inside = true;
        for (std::size_t axis = 0; axis < 3; ++axis) inside = inside && std::abs(node.at[axis] - center[axis]) < reach;
        if (inside) members.push_back(node.id);
    }
    if (!respell(spelling, *block, "_GENERAL", {general_card("BOX", {number})}, members)) return false;
    insert_in_front(spelling, std::move(box));
    return true;
}

// Segments by their nodes. Nobody says in which order they are to be: they are sorted in both forms.
bool general_segments(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        return candidate.spelled.empty() && begins(candidate.keyword, "*SET_SEGMENT");
    });
    if (block == nullptr) return false;
    std::set<std::array<long, 4>> segments;
    for (std::size_t i = head(*block); i < block->cards.size(); ++i) {
        const std::vector<Field>& f = block->cards[i].fields;
        segments.insert({whole(f[0]), whole(f[1]), whole(f[2]), whole(f[3])});
    }
    std::vector<Card> list;
    std::vector<Card> general;
    for (const std::array<long, 4>& s : segments) {
        list.push_back(numbers({s[0], s[1], s[2], s[3]}));
        general.push_back(general_card("SEG", {s[0], s[1], s[2], s[3]}));
    }
    give_cards(twin(spelling, *block), list);
    block->spelled = "*SET_SEGMENT_GENERAL";
    if (block->cards.front().is_title()) block->spelled += "_TITLE";
    give_cards(*block, general);
    block->respelled = true;
    return true;
}

// ---- other sets ----------------------------------------------------------------------------------------------------

bool add_sets(Spelling& spelling, Random& random)
{
    Block* const block = pick_set(spelling, random, any_family);
    if (block == nullptr) return false;
    const Family& family = *family_of(*block);
    const std::vector<long> ids = defined(spelling.strict, family.kind);
    std::vector<long> sets;
    std::vector<long> members;
    std::vector<Block> others;
    for (std::size_t i = 1 + random.below(3); i > 0; --i) {
        Block other;
        other.number = new_number(spelling) + static_cast<int>(others.size());
        other.keyword = std::string(family.keyword) + (family.kind == SetKind::solid ? "" : "_LIST");
        sets.push_back(600000 + other.number);
        other.cards.emplace_back();
        other.cards[0].fields.push_back(integer_field("sid", sets.back()));
        std::vector<long> some;
        for (std::size_t count = 1 + random.below(10); count > 0; --count) some.push_back(random.pick(ids));
        some = sorted(some);
        give_cards(other, list_cards(some));
        members.insert(members.end(), some.begin(), some.end());
        others.push_back(std::move(other));
    }
    if (!respell(spelling, *block, "_ADD", list_cards(sets), members)) return false;
    for (Block& other : others) {
        other.respelled = true;  // what is in it is settled
        insert_in_front(spelling, std::move(other));
    }
    return true;
}

constexpr Style table[] = {
    {"a set of ranges", "MD201", true, false, generate},
    {"a set of ranges with increments", "MD201", true, false, generate_with_increment},
    {"a set in a column", "MD201", true, false, column},
    {"a set of members by kind", "MD201", true, false, general_members},
    {"a set of all", "MD201", true, false, general_all},
    {"a set of parts' members", "MD201", true, false, general_part},
    {"a set of a box's nodes", "MD201", true, false, general_box},
    {"a set of segments by kind", "MD201", true, false, general_segments},
    {"a set of sets", "MD201", true, false, add_sets},
};
}  // namespace

std::span<const Style> styles_of_sets()
{
    return table;
}
}  // namespace models
