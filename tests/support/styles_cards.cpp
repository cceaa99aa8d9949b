// Styles of single cards and of the columns of whole blocks and decks.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/style_helpers.h"

namespace models
{
namespace
{
bool movable(const Field& field)
{
    return field.kind != Kind::name && field.spelled.empty() && !field.left && !field.value.empty() &&
           field.value.size() < static_cast<std::size_t>(field.width);
}

bool plain(const Card& card)
{
    return !card.is_title() && card.form == Card::Form::columns;
}

bool has_value(const Card& card)
{
    return std::any_of(card.fields.begin(), card.fields.end(), [](const Field& f) { return !f.value.empty(); });
}

// Changes one card of a block, or every one, by a function that tells whether it could.
template <class Change>
bool change_cards(Spelling& spelling, Random& random, Change&& change)
{
    const auto possible = [&](const Card& card) {
        Card copy = card;
        return plain(card) && has_value(card) && change(copy);
    };
    Block* const block = pick_block(spelling, random, [&](const Block& candidate) {
        return std::any_of(candidate.cards.begin(), candidate.cards.end(), possible);
    });
    if (block == nullptr) return false;
    std::vector<Card*> cards;
    for (Card& card : block->cards)
        if (possible(card)) cards.push_back(&card);
    const bool all = random.one_in(4);
    Card* const one = random.pick(cards);
    for (Card* const card : cards) {
        if (!all && card != one) continue;
        change(*card);
        card->changed = true;
    }
    block->retouched = true;
    return true;
}

bool one_left_aligned(Spelling& spelling, Random& random)
{
    return change_cards(spelling, random, [which = random.bits()](Card& card) {
        std::vector<Field*> fields;
        for (Field& field : card.fields)
            if (movable(field)) fields.push_back(&field);
        if (fields.empty()) return false;
        fields[which % fields.size()]->left = true;
        return true;
    });
}

bool all_left_aligned(Spelling& spelling, Random& random)
{
    return change_cards(spelling, random, [](Card& card) {
        bool moved = false;
        for (Field& field : card.fields) {
            if (!movable(field)) continue;
            field.left = true;
            moved = true;
        }
        return moved;
    });
}

bool cut_at_the_last_character(Spelling& spelling, Random& random)
{
    return change_cards(spelling, random, [](Card& card) {
        const auto last = std::find_if(card.fields.rbegin(), card.fields.rend(), [](const Field& field) {
            return !field.value.empty() || !field.spelled.empty();
        });
        if (!movable(*last)) return false;
        card.form = Card::Form::cut;
        return true;
    });
}

bool commas(Spelling& spelling, Random& random)
{
    return change_cards(spelling, random, [](Card& card) {
        for (Field& field : card.fields) field.left = false;
        card.form = Card::Form::commas;
        return true;
    });
}

bool tabs(Spelling& spelling, Random& random)
{
    return change_cards(spelling, random, [](Card& card) {
        if (!tabs_fit(card)) return false;
        card.form = Card::Form::tabs;
        return true;
    });
}

// The number with its exponent in another form; empty when it has none.
std::string fortran(const std::string& value, bool with_letter)
{
    const std::size_t at = value.find_first_of("eE");
    if (at == std::string::npos) return {};
    const std::string exponent = value.substr(at + 1);
    if (with_letter) return value.substr(0, at) + "D" + exponent;
    const bool signless = exponent[0] != '+' && exponent[0] != '-';
    return value.substr(0, at) + (signless ? "+" : "") + exponent;
}

bool respell_exponents(Spelling& spelling, Random& random, bool with_letter)
{
    return change_cards(spelling, random, [with_letter](Card& card) {
        bool found = false;
        for (Field& field : card.fields) {
            if (field.kind != Kind::real || !field.spelled.empty()) continue;
            field.spelled = fortran(field.value, with_letter);
            found = found || !field.spelled.empty();
        }
        return found;
    });
}

bool exponents_without_letter(Spelling& spelling, Random& random)
{
    return respell_exponents(spelling, random, false);
}

bool exponents_with_d(Spelling& spelling, Random& random)
{
    return respell_exponents(spelling, random, true);
}

// ---- lists ---------------------------------------------------------------------------------------------------------

bool begins_an_entry(const Block& block, std::size_t card)
{
    if (block.cards[card].is_title()) return false;
    const std::string_view first = block.cards[card].fields[0].name;
    if (begins(block.keyword, "*NODE") || begins(block.keyword, "*ELEMENT")) return first == "nid" || first == "eid";
    return begins(block.keyword, "*SET") && first != "sid";
}

bool blank_line(Spelling& spelling, Random& random)
{
    Block* const block = pick_block(spelling, random, [](const Block& candidate) {
        return !candidate.cards.empty() && begins_an_entry(candidate, candidate.cards.size() - 1);
    });
    if (block == nullptr) return false;
    for (std::size_t tries = 0; tries < 20; ++tries) {
        const std::size_t card = random.below(block->cards.size());
        if (!begins_an_entry(*block, card) || block->cards[card].blank_above) continue;
        block->cards[card].blank_above = true;
        block->retouched = true;
        return true;
    }
    return false;
}

bool solids_on_two_lines(Spelling& spelling, Random& random)
{
    if (spelling.deck.format != Format::standard) return false;
    Block* const block = pick_untouched(
        spelling, random, [](const Block& candidate) { return begins(candidate.keyword, "*ELEMENT_SOLID"); });
    if (block == nullptr) return false;
    for (Card& card : block->cards) {
        card.form = Card::Form::two_lines;
        card.changed = true;
    }
    block->respelled = true;
    return true;
}

// ---- columns of blocks and decks -----------------------------------------------------------------------------------

// A mark goes behind the keyword itself.
bool has_room_for_a_mark(const Block& block)
{
    return block.spelled.find(' ') == std::string::npos;
}

bool has_columns(const Block& block)
{
    return std::any_of(block.cards.begin(), block.cards.end(), plain) && !has_identifier_line(block) &&
           has_room_for_a_mark(block);
}

bool wide_block(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, has_columns);
    if (block == nullptr) return false;
    block->mark = '+';
    block->respelled = true;
    return true;
}

// Real numbers with more digits than a standard field holds, of the same single-precision value.
bool wide_numbers(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, has_columns);
    if (block == nullptr) return false;
    bool found = false;
    for (Card& card : block->cards) {
        for (Field& field : card.fields) {
            if (field.kind != Kind::real || field.value.empty()) continue;
            char text[32];
            const double value = static_cast<double>(std::strtof(field.value.c_str(), nullptr));
            std::snprintf(text, sizeof text, "%.12E", value);
            field.spelled = text;
            found = true;
        }
    }
    if (!found) return false;
    block->mark = '+';
    block->respelled = true;
    return true;
}

bool ten_column_block(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        return (begins(candidate.keyword, "*NODE") || begins(candidate.keyword, "*ELEMENT")) && has_columns(candidate);
    });
    if (block == nullptr) return false;
    block->mark = '%';
    block->respelled = true;
    return true;
}

// True when nothing in the deck is written in a form that goes by columns of its own.
bool free_for_a_format(Spelling& spelling)
{
    if (spelling.deck.format != Format::standard) return false;
    for (const Block* const block : all_blocks(spelling.deck)) {
        if (block->number < 0 && block->files.empty()) return false;  // parameters
        if (has_identifier_line(*block) && !has_room_for_a_mark(*block)) return false;
        if (std::any_of(block->cards.begin(), block->cards.end(),
                        [](const Card& card) { return card.form == Card::Form::two_lines; }))
            return false;
        for (const IncludeFile& file : block->files)
            if (file.keyword) return false;
    }
    return spelling.deck.blocks.front().spelled.empty();
}

bool wide_deck(Spelling& spelling, Random& random)
{
    if (!free_for_a_format(spelling)) return false;
    spelling.deck.format = Format::wide;
    spelling.deck.blocks.front().spelled = "*KEYWORD LONG=Y";
    for (Block* const block : all_blocks(spelling.deck)) {
        // the columns of a line with an identifier and a heading are left as they are
        const bool standard = has_identifier_line(*block) || (has_columns(*block) && random.one_in(8));
        if (standard && block->mark == ' ') block->mark = '-';
    }
    return true;
}

bool ten_column_deck(Spelling& spelling, Random&)
{
    if (!free_for_a_format(spelling)) return false;
    bool found = false;
    for (const Block* const block : all_blocks(spelling.deck))
        found = found || begins(block->keyword, "*NODE") || begins(block->keyword, "*ELEMENT");
    if (!found) return false;
    spelling.deck.format = Format::ten;
    spelling.deck.blocks.front().spelled = "*KEYWORD I10=Y";
    return true;
}

constexpr Style table[] = {
    {"a number at the left edge of its field", "MD101", true, true, one_left_aligned},
    {"numbers at the left edges of their fields", "MD101", true, true, all_left_aligned},
    {"a number that the line's end cuts off", "MD102", true, true, cut_at_the_last_character},
    {"commas", "MD103", true, true, commas},
    {"exponents without a letter", "MD105", true, true, exponents_without_letter},
    {"exponents with a D", "MD105", true, true, exponents_with_d},
    {"tabs", "MD109", true, true, tabs},
    {"a blank line in a list", "MD112", true, true, blank_line},
    {"solids on two lines", "MD110", true, true, solids_on_two_lines},
    {"a long block", "MD108", true, true, wide_block},
    {"a long block with numbers of many digits", "MD108", true, true, wide_numbers},
    {"a block of ten columns", "MD108", true, true, ten_column_block},
    {"a long deck", "MD108", true, true, wide_deck},
    {"a deck of ten columns", "MD108", true, true, ten_column_deck},
};
}  // namespace

std::span<const Style> styles_of_cards()
{
    return table;
}
}  // namespace models
