// What is to be edited by hand before the solver runs.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "report/ledger.h"

namespace report
{

// One thing to look at, with what this deck has there.
struct ByHand {
    std::string_view topic;             // "Timing"
    std::string_view text;              // what to do, and why
    std::vector<std::size_t> findings;  // in Ledger::findings, that give the deck's own value
    std::vector<std::size_t> blocks;    // in Ledger::blocks, that it is about; the first few
    std::size_t all_blocks = 0;
    // Lines of the main deck, with their numbers; those of the first few places where it stands.
    std::vector<std::pair<std::size_t, std::string>> written;
    std::size_t written_places = 0;
    std::size_t written_left_out = 0;  // places
};

// The list for this conversion, in the order of the main deck's sections. Throws deck::Fault when the main deck cannot
// be read.
std::vector<ByHand> by_hand(const Ledger& ledger, const std::filesystem::path& folder);

// The main deck's name in the folder; empty when there is none.
std::string main_deck(const Ledger& ledger);

// The name in the folder of the deck that was converted.
std::string converted_deck(const Ledger& ledger);

}  // namespace report
