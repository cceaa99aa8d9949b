// Pieces of long files.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace report
{

// Lines of a file that are wanted, from 1, first and last included, and for whom.
struct WantedLines {
    std::size_t first = 0;
    std::size_t last = 0;
    std::size_t owner = 0;
};

// The longest piece of a line that is kept, in bytes.
inline constexpr std::size_t longest_excerpt = 200;

// Reads a file once and gives each wanted line, cut behind its first `longest_excerpt` bytes, in the order of the file.
// The ranges may overlap and stand in any order. Throws deck::Fault when the file cannot be read.
void read_lines(const std::filesystem::path& file, std::vector<WantedLines> wanted,
                const std::function<void(const WantedLines&, std::size_t line, std::string text)>& take);

}  // namespace report
