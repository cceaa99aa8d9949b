// What the fuzzers share.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

// Every fuzzer compares what the program makes of an input with a second derivation of it. A difference ends the run as
// a crash does, so that the input is kept.
inline void expect(bool holds, std::string_view what)
{
    if (holds) return;
    std::fprintf(stderr, "fuzzer: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
}
