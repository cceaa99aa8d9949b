// All findings about a deck, from what the converter has read of it and what it means.
#pragma once

#include <filesystem>
#include <vector>

#include "check/collector.h"
#include "check/finding.h"
#include "check/reading.h"

namespace check
{

// The flags of the run must be those of the reading. Throws deck::Fault when the deck cannot be read.
void find_all(const std::filesystem::path& deck, const Reading& reading, Collector& findings,
              std::vector<NotChecked>& not_checked);

}  // namespace check
