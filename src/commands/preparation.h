// The preparation that two commands begin with.
#pragma once

#include <string>

#include "prepare/prepare.h"

namespace commands
{

// Looks a deck through. Throws deck::Fault with the last of the problems that stop it, and tells the others on standard
// error.
prepare::Preparation preparation_of(const std::string& deck);

}  // namespace commands
