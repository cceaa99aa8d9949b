// What becomes of a block by its keyword line alone.
#pragma once

#include <string>
#include <string_view>

#include "deck/deck_reader.h"
#include "deck/layout.h"

namespace prepare
{

struct KeywordForm {
    std::string line;                              // the keyword line that is written
    std::string_view code;                         // why it differs; empty when only its end does, or nothing
    std::string_view message;                      //
    deck::LayoutMatch match;                       // of the cards as they stand
    bool drops_heading = false;                    // its title or id card goes
    std::string adds_title;                        // a title before each definition; empty: none
    bool drops_options = false;                    // cards of options go, and with them what they say
    deck::Format format = deck::Format::standard;  // of its cards as they stand
    bool rewritten = false;                        // its cards can be written anew
};

// `standard_deck`: the deck's own long or ten-column format is taken away, and no block may rely on it.
KeywordForm form_of(const deck::Block& block, bool standard_deck);

// The *KEYWORD line without the settings LONG and I10; the line as it stands, cleaned, when it has neither.
std::string without_formats(const deck::KeywordLine& line);

// True when the converter reads the keyword's cards by that layout, so that they are to be strict.
bool is_rewritten(const deck::LayoutMatch& match);

// True when the block's format puts fields into other columns than the converter reads.
bool has_other_columns(const deck::LayoutMatch& match, deck::Format format);

}  // namespace prepare
