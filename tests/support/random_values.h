// Numbers and titles of random models.
#pragma once

#include <string>

#include "support/random.h"

namespace models
{
// A positive number of at most nine characters, in one of the forms that decks have: 3, 0.25, 7., .5, 1.5E-03.
std::string random_positive(Random& random);

// One of either sign; nothing, one time in five.
std::string random_real(Random& random);

// Words of up to 60 characters that begin with a letter.
std::string random_title(Random& random);
}  // namespace models
