// Counting a model on both sides of a conversion.
#pragma once

#include <filesystem>
#include <string>

#include "report/count.h"

namespace report
{

// What the deck defines, include files and all. Memory is 16 bytes for each node and a little more. Throws deck::Fault
// when the deck cannot be read.
Count count_deck(const std::filesystem::path& deck);

// What the files of a conversion hold, counted again from what was written. What is not there counts nothing. Throws
// deck::Fault when a file cannot be read.
Count count_written(const std::filesystem::path& folder, const std::string& deck);

}  // namespace report
