// The mesh as the page holds it: a header in JSON, and arrays in base64.
#pragma once

#include <cstddef>
#include <iosfwd>

#include "report/surface.h"

namespace report
{

// Bytes of the arrays, before base64. Positions count though they may not be known yet; members of sets do not.
std::size_t mesh_size(const Surface& surface);

// Writes script elements: "mesh", the header, which names the others, and one for each array. Real numbers are of
// single precision, little-endian. Whole numbers are packed: each is the difference from the one `packed` places before
// it, its sign in the lowest bit, seven bits a byte, the lowest first; the highest bit of a byte says that another
// follows.
void write_mesh_data(std::ostream& stream, const Surface& surface);

}  // namespace report
