// The surface of a converted model, with what the deck lays upon it and what became of its parts.
#pragma once

#include <filesystem>

#include "report/ledger.h"
#include "report/surface.h"

namespace report
{

// From the files in the folder: the deck that was converted, under the ledger's name for it, and the outputs. Throws
// deck::Fault when one cannot be read.
Surface surface_of_conversion(const std::filesystem::path& folder, const Ledger& ledger,
                              const SurfaceLimits& limits = {});

}  // namespace report
