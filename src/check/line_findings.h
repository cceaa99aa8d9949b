// Findings about the keyword lines of the main deck, as they are written.
#pragma once

#include <string>
#include <string_view>

#include "check/passes.h"
#include "deck/deck_reader.h"

namespace check
{

// What is wrong with how a keyword line is written; an empty code when nothing is.
struct KeywordLineFlaw {
    std::string_view code;
    bool error = false;
    std::size_t column = 0;  // from 0
    std::size_t end = 0;
    std::string message;
    bool joins = false;  // the next keyword line is joined to it in the keyword copy
    bool hides = false;  // a title or id is read as a card
};

KeywordLineFlaw flaw_of(const deck::Block& block, Outcome outcome);

// True for the titles that are written into an output.
bool title_is_written(std::string_view keyword);

}  // namespace check
