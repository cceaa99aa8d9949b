// What the tests of materials share.
//
// The decks are numbered: field 3 of card 2 holds 23, so that a value in the output tells where it came from.
#pragma once

#include <string>

#include "materials/materials.h"
#include "support/fresh_run.h"

inline const std::string material_header =
    "\n!--------------------------- MID       MTYP    Density   Title ------------------------\n";
inline const std::string eos_header =
    "\n!------------------------- EOSID     EOSTYP      Title --------------------------------\n";

// The lines of that many unused slots.
inline std::string blank_slots(int count)
{
    std::string lines;
    while (count-- > 0) lines += "!    blank\n         0\n";
    return lines;
}
