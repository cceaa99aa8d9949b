// Load curves, as their blocks in a deck define them.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "report/ledger.h"

namespace report
{

struct Curve {
    std::size_t block = 0;  // in Ledger::blocks
    double id = 0;
    std::string title;
    std::vector<double> abscissas;  // shifted and scaled, as the main deck has them
    std::vector<double> ordinates;
    std::size_t points = 0;  // there are; those beyond `most_points` of all curves together are left out
};

// The curves of the deck that was converted. Throws deck::Fault when it cannot be read.
std::vector<Curve> read_curves(const Ledger& ledger, const std::filesystem::path& folder, std::size_t most_points);

}  // namespace report
