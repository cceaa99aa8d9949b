// Bulk sections, converted in all the ways that must not differ: by their second derivation, and through windows of
// several sizes, with and without the index of keyword lines.
#pragma once

#include <string_view>

#include "reader/run.h"
#include "support/convert.h"

// Both bulk sections, as a run writes them.
void bulk_sections();

// What the section (set_section, geometry_section or bulk_sections) writes, the same in every way; a difference is a
// failure of the test. Counts begin at 0 each time.
Written convert_every_way(void (*section)(), std::string_view deck);
