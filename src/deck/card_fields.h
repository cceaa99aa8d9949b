// Cards taken apart into the texts of their fields.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "deck/card_format.h"
#include "deck/layout.h"

namespace deck
{

// A field's text on a card.
struct FieldText {
    std::string_view text;   // in columns: the field's whole width, shorter where the line ends in it, empty behind;
                             // in free format: what stands between the commas
    std::size_t column = 0;  // of its first character, from 0
    std::size_t width = 0;   // columns of the field in the block's format
    const Field* field = nullptr;  // null for texts of a free card beyond the layout
    bool cut = false;              // in columns: the line ends inside the field, behind its first column
};

// True when the card is in free format: it has a comma and numeric fields. A heading is never free; an id card (a
// number, then a heading) is when a comma ends the number. Commas in an "<expression>" do not count.
bool is_free(std::string_view line, const CardLayout& card);

// The fields of a card in the layout's order. Fields beyond the line's end are there, with empty texts.
void split_card(std::string_view line, const CardLayout& card, Format format, bool bulk, std::vector<FieldText>& to);
std::vector<FieldText> split_card(std::string_view line, const CardLayout& card, Format format, bool bulk);

// What stands behind the last field of the layout, from its first character that is no blank; column from 0.
FieldText behind_fields(std::string_view line, const CardLayout& card, Format format, bool bulk);

// The line with blanks for its tabs, at stops of eight columns.
std::string with_tabs_expanded(std::string_view line);

}  // namespace deck
