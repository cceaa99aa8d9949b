// Decks that people wrote, from the folders that the build was given.
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "deck/deck_reader.h"
#include "support/convert.h"

namespace fs = std::filesystem;

namespace
{
std::vector<fs::path> decks_in(const fs::path& folder)
{
    std::vector<fs::path> decks;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file() && entry.path().filename() != "README.md") decks.push_back(entry.path());
    return decks;
}

// Every deck is read without a fault, byte for byte, and only files and parameters that are missing are told.
void expect_read_whole(const fs::path& folder)
{
    const std::set<std::string> expected = {"MD122", "MD123", "MD402"};
    for (const fs::path& path : decks_in(folder)) {
        SCOPED_TRACE(path.string());
        std::string copy;
        const auto add = [&](std::string_view line, bool carriage_return, bool newline) {
            copy += line;
            if (carriage_return) copy += '\r';
            if (newline) copy += '\n';
        };
        deck::DeckReader reader(path, [&](const deck::Problem& problem) {
            EXPECT_TRUE(expected.contains(problem.code)) << to_string(problem);
        });
        while (reader.next_block()) {
            const deck::Block block = reader.block();
            if (block.file == 0 && !block.keyword.name.empty())
                add(block.keyword.text, block.carriage_return, block.newline);
            for (deck::Line line; reader.next_line(line);)
                if (line.file == 0) add(line.text, line.carriage_return, line.newline);
        }
        EXPECT_TRUE(copy == contents(path));
    }
}

#ifdef MORVEX_REAL_DECKS
TEST(RealDecks, AreReadWhole)
{
    expect_read_whole(MORVEX_REAL_DECKS);
}
#endif

#ifdef MORVEX_REAL_TREES
TEST(RealTrees, AreReadWhole)
{
    expect_read_whole(MORVEX_REAL_TREES);
}
#endif
}  // namespace
