// What the report's page holds beside its looks: the ledger and the excerpts, as JSON for its script.
#pragma once

#include <cstddef>
#include <filesystem>
#include <iosfwd>

#include "report/ledger.h"

namespace report
{

// How much of a conversion the page takes in. What is beyond is left out, and the page says so.
struct PageLimits {
    std::size_t blocks = 5'000'000;  // bytes
    std::size_t findings = 3'000'000;
    std::size_t details = 4'000'000;
    std::size_t curve_points = 50'000;  // of all curves together
    std::size_t parts = 5'000;          // and as many sets
    std::size_t files = 1'000;
};

// Limits that keep all of it within so many bytes.
PageLimits limits_within(std::size_t bytes);

// The ledger: blocks in their order, findings, counts. Blocks that lost nothing are the first to be left out.
void write_ledger_data(std::ostream& stream, const Ledger& ledger, const PageLimits& limits);

// What rows open to: the first and last cards of blocks, and the first and last lines made from them; the curves; what
// is to be edited by hand. Read from the files in `folder`; a file that cannot be read is named in its place.
void write_details_data(std::ostream& stream, const Ledger& ledger, const std::filesystem::path& folder,
                        const PageLimits& limits);

}  // namespace report
