// The report: one page of HTML that tells of a conversion, and needs nothing beside itself.
#pragma once

#include <filesystem>
#include <iosfwd>

#include "report/ledger.h"
#include "report/surface.h"

namespace report
{

// Writes the page, of at most 25 million bytes. Cards and lines are read from the files in `folder`: the deck that was
// converted and the outputs.
void write_page(std::ostream& to, const Ledger& ledger, const Surface& surface, const std::filesystem::path& folder);

}  // namespace report
