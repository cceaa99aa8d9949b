#include "prepare/solids.h"

#include <algorithm>
#include <utility>

#include "deck/card_fields.h"
#include "deck/keyword_line.h"

namespace prepare
{

namespace
{
constexpr std::size_t column = 8;
}

bool is_on_two_lines(std::string_view first_card, deck::Format format)
{
    const deck::CardLayout& card = deck::find_layout("*ELEMENT_SOLID").layout->cards[0];
    const std::string line = deck::with_tabs_expanded(first_card);
    const std::vector<deck::FieldText> fields = deck::split_card(line, card, format, true);
    const auto is_empty = [](const deck::FieldText& field) { return deck::trimmed(field.text).empty(); };
    return !is_empty(fields[0]) && !is_empty(fields[1]) && std::all_of(fields.begin() + 2, fields.end(), is_empty);
}

void SolidJoiner::take_first(std::string_view text, std::size_t line)
{
    first_ = text;
    line_ = line;
    waiting_ = true;
}

std::optional<std::string> SolidJoiner::with_nodes(std::string_view nodes)
{
    if (!std::exchange(waiting_, false)) return std::nullopt;
    std::string whole = first_;
    whole.resize(2 * column, ' ');
    whole += nodes.substr(0, 8 * column);
    return whole;
}

}  // namespace prepare
