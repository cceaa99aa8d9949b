// Styles of whole blocks: several definitions in one, cards that are missing, titles that should be there or should
// not.
#include <algorithm>
#include <string>
#include <utility>

#include "support/style_helpers.h"

namespace models
{
namespace
{
// The card that holds what the block defines.
std::size_t first_data_card(const Block& block)
{
    return block.cards.front().is_title() ? 1 : 0;
}

// Puts a copy of the block behind it, in the strict form, with another number in the copy's first field when it
// defines one; the deck's block gets the copy's cards, with or without the title.
bool add_another(Spelling& spelling, Random& random, Block* block, bool defines, bool with_title)
{
    if (block == nullptr) return false;
    const std::size_t count = 1 + random.below(2);
    int behind = block->number;
    for (std::size_t i = 0; i < count; ++i) {
        Block copy = twin(spelling, *block);
        copy.number = new_number(spelling);
        const std::size_t first = first_data_card(copy);
        if (defines) copy.cards[first].fields[0].value = std::to_string(800000 + copy.number);
        if (with_title && first == 1) copy.cards[0].title += std::to_string(i + 2);
        insert_behind(spelling.strict, behind, copy);
        behind = copy.number;
        for (std::size_t card = with_title ? 0 : first; card < copy.cards.size(); ++card) {
            block->cards.push_back(copy.cards[card]);
            block->cards.back().changed = card == (with_title ? 0 : first);
        }
    }
    block->respelled = true;
    return true;
}

bool several_definitions(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        for (const std::string_view family : {"*SECTION", "*MAT", "*EOS", "*HOURGLASS"})
            if (begins(candidate.keyword, family)) return true;
        return false;
    });
    return add_another(spelling, random, block, true, true);
}

bool several_behind_titles(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        const bool family = begins(candidate.keyword, "*DEFINE_BOX") ||
                            begins(candidate.keyword, "*DEFINE_COORDINATE_NODES") ||
                            begins(candidate.keyword, "*DEFINE_COORDINATE_SYSTEM");
        return family && ends(candidate.keyword, "_TITLE");
    });
    return add_another(spelling, random, block, true, true);
}

bool several_behind_an_identifier(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        const bool family = begins(candidate.keyword, "*BOUNDARY") || begins(candidate.keyword, "*LOAD_SEGMENT");
        return family && has_identifier_line(candidate);
    });
    return add_another(spelling, random, block, false, false);
}

// The family of a keyword: *MAT of *MAT_ELASTIC.
std::string_view family(std::string_view keyword)
{
    return keyword.substr(0, keyword.find('_'));
}

// Puts another block of the family behind the block, in both forms: only such a one is missed when its keyword line is
// read as a card. Nothing happens where there is none, or where blocks stand in include files.
void bring_family(Spelling& spelling, const Block& block)
{
    int other = -1;
    for (const Block& candidate : spelling.deck.blocks) {
        if (!candidate.files.empty()) return;
        if (candidate.number != block.number && candidate.number > 0 &&
            family(candidate.keyword) == family(block.keyword))
            other = candidate.number;
    }
    if (other < 0) return;
    const int number = block.number;
    for (Model* const model : {&spelling.deck, &spelling.strict}) {
        const auto found = std::find_if(model->blocks.begin(), model->blocks.end(),
                                        [=](const Block& candidate) { return candidate.number == other; });
        Block moved = std::move(*found);
        model->blocks.erase(found);
        insert_behind(*model, number, std::move(moved));
    }
}

// The last card of a block is left out: its fields are 0.
bool missing_card(Spelling& spelling, Random& random)
{
    static constexpr std::string_view keywords[] = {"*SECTION_SHELL",         "*EOS_GRUNEISEN",
                                                    "*EOS_LINEAR_POLYNOMIAL", "*MAT_ISOTROPIC_ELASTIC_FAILURE",
                                                    "*MAT_JOHNSON_COOK",      "*MAT_MOONEY-RIVLIN_RUBBER",
                                                    "*MAT_PLASTIC_KINEMATIC", "*MAT_RIGID"};
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        for (const std::string_view keyword : keywords)
            if (begins(candidate.keyword, keyword)) return true;
        return false;
    });
    if (block == nullptr) return false;
    for (Block* const form : {block, &twin(spelling, *block)})
        for (Field& field : form->cards.back().fields) field.value.clear();
    block->cards.back().form = Card::Form::missing;
    block->cards.back().changed = true;
    block->respelled = true;
    if (random.one_in(2)) bring_family(spelling, *block);
    return true;
}

// These convert only with a title; without one, it is the keyword.
bool without_title(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        return candidate.spelled.empty() &&
               (candidate.keyword == "*EOS_LINEAR_POLYNOMIAL_TITLE" || candidate.keyword == "*MAT_STEINBERG_TITLE");
    });
    if (block == nullptr) return false;
    block->spelled = block->keyword.substr(0, block->keyword.size() - 6);
    twin(spelling, *block).cards[0].title = block->spelled.substr(1);
    block->cards.erase(block->cards.begin());
    block->respelled = true;
    return true;
}

// This one converts only without: the title has no place in what is written.
bool with_title(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        return candidate.spelled.empty() && candidate.keyword == "*MAT_JOHNSON_HOLMQUIST_CERAMICS";
    });
    if (block == nullptr) return false;
    block->spelled = block->keyword + "_TITLE";
    block->cards.insert(block->cards.begin(), title_card("boron carbide"));
    block->respelled = true;
    return true;
}

// A block that the converter does not convert, and at which it stops looking for boundary conditions.
bool ends_the_pass(Spelling& spelling, Random& random)
{
    std::vector<Block>& blocks = spelling.deck.blocks;
    if (blocks.size() < 2) return false;
    Block vector;
    vector.number = new_number(spelling);
    vector.keyword = "*DEFINE_COORDINATE_VECTOR";
    Card card;
    card.fields = {integer_field("cid", 70000 + vector.number)};
    for (const std::string_view name : {"xx", "yx", "zx", "xv", "yv", "zv"})
        card.fields.push_back({name, 10, Kind::real, std::to_string(random.below(10)) + ".5", {}, false});
    vector.cards.push_back(std::move(card));
    spelling.strict.blocks.push_back(vector);
    vector.spelled = vector.keyword;
    const std::size_t at = 1 + random.below(blocks.size() - 1);
    blocks.insert(blocks.begin() + static_cast<std::ptrdiff_t>(at), std::move(vector));
    return true;
}

// *PART_CONTACT has a third card, which goes with its option.
bool part_with_contact(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        return candidate.spelled.empty() && candidate.keyword == "*PART";
    });
    if (block == nullptr) return false;
    std::vector<Card> cards;
    for (Card& card : block->cards) {
        const bool title = card.is_title();
        cards.push_back(std::move(card));
        if (title) continue;
        Card contact;
        for (const std::string_view name : {"fs", "fd", "dc", "vc"})
            contact.fields.push_back({name, 10, Kind::real, "0." + std::to_string(1 + random.below(9)), {}, false});
        contact.changed = true;
        cards.push_back(std::move(contact));
    }
    block->cards = std::move(cards);
    block->spelled = "*PART_CONTACT";
    block->respelled = true;
    return true;
}

constexpr Style table[] = {
    {"several definitions in a block", "MD205", true, true, several_definitions},
    {"several definitions behind titles", "MD205", true, true, several_behind_titles},
    {"several cards behind an identifier", "MD205", true, false, several_behind_an_identifier},
    {"a missing card", "MD207", true, true, missing_card},
    {"no title where there should be one", "MD209", true, true, without_title},
    {"a title where there should be none", "MD209", true, true, with_title},
    {"a block that ends the pass", "MD204", true, true, ends_the_pass},
    {"a part with contact values", "MD208", true, true, part_with_contact},
};
}  // namespace

std::span<const Style> styles_of_blocks()
{
    return table;
}
}  // namespace models
