// A first look at a deck with all its files: what stops, and what later blocks decide about earlier ones.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <vector>

#include "deck/deck_reader.h"

namespace prepare
{

struct Survey {
    std::vector<deck::SourceFile> files;
    std::vector<deck::Problem> problems;  // in the order in which they were met
    bool standard_deck = false;           // the deck's own format must go: some block needs it to
    bool reads_files = false;             // it includes others
    bool has_questions = false;           // sets that are no lists
    bool has_end = false;                 // of the main deck
    bool ends_in_newline = true;
    std::size_t last_line = 0;              // of the main deck
    std::size_t last_of_boundary_pass = 0;  // block from 1: what stands before it must not end the pass
    std::map<deck::FileNumber, std::size_t> carriage_returns;  // files with some: the first line that has one
};

// Throws deck::Fault when the main deck cannot be read.
Survey survey(const std::filesystem::path& deck);

// True when the deck cannot be prepared with this problem.
bool stops(const deck::Problem& problem);

// *DEFINE_COORDINATE_..., at which the converter stops looking for boundary and initial conditions.
bool ends_boundary_pass(std::string_view keyword);

}  // namespace prepare
