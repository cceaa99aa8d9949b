// The names of the files of a run.
#pragma once

#include <string>
#include <string_view>

#include "reader/run.h"

// The deck's name up to the dot before an extension of one to three characters; else the name with a dot behind it.
std::string base_name(std::string_view deck);

// Sets file_names from the deck's name; false when that is too long.
bool set_file_names(std::string_view deck);
