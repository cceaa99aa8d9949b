// The fields of a card as the deck means them, whatever the style in which they are written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "deck/card_fields.h"
#include "deck/card_format.h"
#include "deck/layout.h"
#include "deck/parameters.h"
#include "deck/transformation.h"

namespace report
{

class CardMeaning
{
public:
    // `parameters` are those at the present line, and must outlive this.
    explicit CardMeaning(const deck::Parameters& parameters) : parameters_(&parameters) {}

    // `change` is that of the block's file, and must last as long as the block.
    void begin_block(deck::Format format, bool bulk, const deck::ContentChange& change);

    // True when cards stand in standard columns and nothing is done to what they say.
    [[nodiscard]] bool is_plain() const { return plain_; }

    // Takes a card apart. Where a text has no meaning as a number (a word, an undefined parameter) it counts as what
    // the converter makes of it, since it is the findings that tell of it.
    void read(std::string_view line, const deck::CardLayout& card);

    // Of a field of the layout; 0 and empty where the card has none.
    [[nodiscard]] double real(std::size_t field) const;
    [[nodiscard]] std::int64_t integer(std::size_t field) const;  // without its fraction
    [[nodiscard]] std::string_view text(std::size_t field) const;

private:
    struct Meaning {
        double value = 0;
        std::string text;
    };
    [[nodiscard]] Meaning meaning_of(const deck::FieldText& field) const;
    void shift(const deck::CardLayout& card);
    void transform();

    const deck::Parameters* parameters_;
    const deck::ContentChange* change_ = nullptr;
    deck::Format format_ = deck::Format::standard;
    bool bulk_ = false;
    bool plain_ = true;
    std::string expanded_;
    std::vector<deck::FieldText> fields_;
    std::vector<Meaning> meanings_;
};

// The number without its fraction, or the nearest that 64 bits hold.
std::int64_t whole_part(double value);

}  // namespace report
