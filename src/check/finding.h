// What check says about a deck.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "deck/fault.h"

namespace check
{

// One row for each code. The codes are stable for ever; their texts may improve.
struct Code {
    std::string_view code;    // "MD101"
    std::string_view title;   // what it is, in a line
    deck::Severity severity;  // where it does not depend on the place
    bool mended_by_prepare;   // likewise
};

std::span<const Code> codes();

// Null when there is no such code.
const Code* find_code(std::string_view code);

// A finding at its place.
struct Finding {
    deck::Place place;
    deck::Severity severity = deck::Severity::error;
    std::string code;
    std::string keyword;  // of its block, as findings show it: "*NODE"; empty outside of blocks
    std::string field;    // empty where no field is meant
    std::string text;     // the field's characters, or the line's, as they stand; empty where none are meant
    std::string read_as;  // what the converter reads instead; empty where that is not the point
    std::string message;
    bool mended_by_prepare = false;
    std::size_t block = 0;       // which block of the deck: those of one code and severity are folded
    std::size_t file_order = 0;  // of its file in the order of the deck
    std::size_t others = 0;      // further ones of this code in this block that were not kept
};

// A finding with the severity, and what prepare does, from the table of codes.
Finding finding(std::string_view code, deck::Place place, std::string message);

// Kinds of blocks whose cards nobody knows.
struct NotChecked {
    std::string keyword;
    std::size_t count = 0;
    std::string reason;
};

// All that a run of check has found, in the order of the deck: file, line, column, code.
struct Result {
    std::string deck;  // as it was named
    std::vector<std::pair<std::string, int>> settings;
    std::vector<Finding> findings;
    std::vector<NotChecked> not_checked;
};

struct Totals {
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;
};

Totals totals(const Result& result);

// Puts the findings into the order of the deck.
void sort(Result& result);

}  // namespace check
