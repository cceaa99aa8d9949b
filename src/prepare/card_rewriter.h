// Cards as the converter reads them: every number in standard columns, at the right edge of its field.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "deck/card_fields.h"
#include "deck/deck_reader.h"
#include "deck/field_number.h"
#include "deck/layout.h"
#include "deck/line_file.h"
#include "deck/parameters.h"
#include "deck/transformation.h"

namespace prepare
{

// How the cards of a block are written, and what is to be done to all of them.
struct CardStyle {
    deck::Format format = deck::Format::standard;
    bool bulk = false;                            // is_bulk() of the keyword
    const deck::ContentChange* change = nullptr;  // of the block's file; null when there is none
};

// What cannot be written as it is meant.
struct Trouble {
    std::string_view code;
    std::size_t column = 0;  // from 1
    std::string message;
};

// What became of a card.
struct Rewritten {
    std::string text;
    std::string_view code;     // of the first cause
    std::string_view message;  // that tells of it
    std::vector<Trouble> troubles;
};

// Why a card cannot be written at all.
struct Undefined {
    std::size_t column = 0;  // from 1
    std::string why;
};

// Throws it as a fault of the line that the card stands in.
[[noreturn]] void stop_at(const deck::DeckReader& reader, deck::FileNumber file, std::size_t line,
                          const Undefined& undefined);

class CardRewriter
{
public:
    // `parameters` are those at the present line, and must outlive this.
    explicit CardRewriter(const deck::Parameters& parameters) : parameters_(&parameters) {}

    // Writes the card in `to` and returns true; false, when it stands well as it is (only `to.troubles` counts then).
    // `read`: the converter reads it; one that is not read is left alone unless its block's columns change. The values
    // of the card are given to `walk`. Throws Undefined.
    bool rewrite(std::string_view line, const deck::CardLayout& card, bool read, const CardStyle& style,
                 deck::CardWalk& walk, Rewritten& to);

private:
    // A field as it is meant.
    struct Meaning {
        deck::FieldNumber::Form form = deck::FieldNumber::Form::empty;
        double value = 0;
        std::string text;
        std::string_view code;  // of what is done to its text; empty when nothing is
    };

    void understand(const CardStyle& style, deck::CardWalk& walk);
    void evaluate(const deck::FieldText& field, Meaning& meaning);
    void join_across(std::size_t index);
    void shift(const deck::ContentChange& change, const deck::CardWalk& walk);
    void transform(const deck::Transformation& transformation);
    [[nodiscard]] bool differs(std::size_t index, std::string_view line, std::size_t column) const;
    [[nodiscard]] bool seems_to_go_on(std::size_t index, std::string_view line) const;
    [[nodiscard]] bool would_touch(std::size_t index) const;
    bool touch_up(std::string_view line, std::string_view blanks_for_tabs, bool read, bool all, Rewritten& to);
    bool compose(std::string_view line, const deck::CardLayout& card, bool read, const CardStyle& style, Rewritten& to);
    static void behind(std::string_view line, const deck::CardLayout& card, const CardStyle& style, Rewritten& to);
    const deck::CardLayout& with_all_columns(const deck::CardLayout& card);

    struct Extended {
        std::vector<deck::Field> fields;
        deck::CardLayout card;
    };

    const deck::Parameters* parameters_;
    std::vector<deck::FieldText> fields_;
    std::vector<Meaning> meanings_;
    std::string expanded_;
    std::map<const deck::CardLayout*, Extended> extended_;
};

// True when every field of the line, in standard columns, is blank or a plain number at its right edge, and nothing
// else in it could mean otherwise.
bool is_plainly_strict(std::string_view line, const deck::CardLayout& card);

}  // namespace prepare
