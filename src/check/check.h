// Check: what the converter would lose or misread in a deck, and where.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "check/finding.h"
#include "driver/control_file.h"

namespace check
{

struct Options {
    std::vector<std::pair<std::string, int>> settings;  // flags over those of the control file
    bool all = false;  // keep each finding; otherwise one for each code and block, and the number of the others
};

// Runs the converter on the deck, without writing anything, and reads the deck with its include files. Throws
// deck::Fault when the deck cannot be read, or a setting has a name that no flag has. Takes the run of the process for
// itself and leaves it as it is before a run.
Result check_deck(const std::filesystem::path& deck, const Options& options = {});

// The settings with which a deck is converted: those of the control file beside it when that names this deck, else
// those of a new one.
ControlFile settings_for(const std::filesystem::path& deck);

}  // namespace check
