// Numbers as they stand in the rows of the bulk files.
//
// The C library's printf defines every result. The quick ways are taken only where they give the same bytes.
#pragma once

#include <cstdint>

// Each writes at `to` and returns the end of what it wrote. There must be room for `width` + 7 or 32 characters,
// whichever is more: what stands behind the end is written over, eight characters at a time.

// "%<width>li"
char* write_integer(char* to, std::int64_t value, int width);

// "%<width>.<digits>e" of a single-precision value; digits is 3, 8 or 13.
template <int digits>
char* write_real(char* to, float value, int width);
