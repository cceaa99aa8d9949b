// The written files read back: which lines the characters are in that a block has made, and what the log says of it.
#pragma once

#include <cstddef>
#include <filesystem>
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

// True for a line of the main deck in which values of several blocks can stand: of settings that are collected, and the
// number of particles.
bool is_shared_line(std::string_view line);

}  // namespace report
