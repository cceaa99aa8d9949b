// Fields that are not read as they mean.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "deck/card_fields.h"
#include "deck/parameters.h"

namespace check
{

// A card in standard columns that the converter has read, and which of its fields it has read.
struct ReadCard {
    std::string_view line;
    bool carriage_return = false;
    const std::vector<deck::FieldText>* fields = nullptr;
    std::uint32_t read = 0;  // a bit for each field
};

// A misreading, and where it is.
struct Misread {
    std::string_view code;
    std::size_t column = 0;  // from 0, of the first character
    std::size_t end = 0;
    const deck::Field* field = nullptr;  // null: the whole card
    std::string text;
    std::string read_as;
    std::string why;     // the message behind the field's name
    bool mended = true;  // by prepare
};

// Appends what of the card is misread. `lost` gets a bit for each field whose text does not say what it means.
void find_misread(const ReadCard& card, const deck::Parameters& parameters, std::vector<Misread>& to,
                  std::uint32_t& lost);

// The same for parameters alone: of a card that nobody reads, those that have no value.
void find_undefined(const std::vector<deck::FieldText>& fields, const deck::Parameters& parameters,
                    std::vector<Misread>& to);

// A number as messages show it.
std::string shown(double number);

// True when the text is a whole number, or a plain real, that both read alike where it ends its field.
bool is_plain(std::string_view text, bool integer);

inline bool is_blank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

}  // namespace check
