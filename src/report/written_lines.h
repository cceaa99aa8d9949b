// The written files read back: which lines the characters are in that a block has made, and what the log says of it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

#include "report/account.h"
#include "report/ledger.h"

namespace report
{

// Lines of one output that belong to a block, from 1.
struct BlockLines {
    BlockNumber block = no_block;
    std::size_t first = 0;
    std::size_t last = 0;
};

// The lines of the output, in its order; those that several blocks have a part in once for each. Throws deck::Fault
// when the file cannot be read.
std::vector<BlockLines> written_lines(const std::filesystem::path& file, const Account& account, Output output);

// The debug log's words on a block.
struct Logged {
    std::vector<Unused> unused;
    std::vector<Replaced> replaced;
    std::size_t groups = 0;   // of cards
    std::size_t refused = 0;  // of them
};

// By block. Throws deck::Fault when the log cannot be read.
std::vector<Logged> logged_of(const std::filesystem::path& log, const Account& account);

// A line that a section writes from what handlers have collected: the one that stands `below` lines under the first
// line that begins with the label. It belongs to the last block for which the procedure ran; with `only_if` not always.
struct SettingLine {
    std::string_view label;
    std::size_t below;
    std::string_view procedure;
    bool (*only_if)(const RunSettings&) = nullptr;
};
std::span<const SettingLine> setting_lines();

// The line with the number of particles, which belongs to all their blocks. It is written over whatever stands there;
// where its own line is left out that is the heading of the particles' deactivation.
inline constexpr std::string_view particle_count_label = " Initial number of SPH per processor  :";

}  // namespace report
