// A whole conversion inside the test's own process, as fast as it gets: property tests make thousands.
#pragma once

#include <array>
#include <string>
#include <string_view>

// The control file's thirteen flags, in its order.
using RunFlags = std::array<int, 13>;
inline constexpr RunFlags every_output = {1, 1, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 0};

// What one run of the program leaves behind for a deck model.k; empty where a flag leaves the file out.
struct RunOutputs {
    std::string deck;
    std::string geometry;
    std::string sets;
    std::string accelerometers;
    std::string log;
    std::string keyword_copy;

    // True when what the solver reads is the same; the debug log and the keyword copy are for people.
    [[nodiscard]] bool same_model(const RunOutputs& other) const;
};

RunOutputs run_whole(std::string_view deck, const RunFlags& flags = every_output);
