// A run of the converter that is watched, and whose outputs are dropped.
#pragma once

#include <filesystem>

#include "check/reading.h"
#include "driver/control_file.h"

namespace check
{

// Throws deck::Fault when the deck cannot be read. The flags of the run stay set: reset_run() ends it.
Reading watched_run(const std::filesystem::path& deck, const ControlFile& settings);

}  // namespace check
