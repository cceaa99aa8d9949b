// Settings of input.morvex on the command line.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace commands
{

// "lcflag=1", as the arguments of --set say it. Throws CLI::ValidationError for anything else.
std::vector<std::pair<std::string, int>> settings_of(const std::vector<std::string>& texts);

}  // namespace commands
