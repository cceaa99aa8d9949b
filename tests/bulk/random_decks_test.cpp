// Decks that nobody would write: every way of converting them gives the same files.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "reader/run.h"
#include "support/every_way.h"
#include "support/fresh_run.h"
#include "support/random.h"

namespace
{
using RandomDecks = FreshRun;

// What a field may hold, right-aligned as far as it fits.
std::string field(Random& random, std::size_t width)
{
    std::string value;
    switch (random.below(16)) {
    case 0:
        return std::string(width, ' ');
    case 1:
        value = random.text(1 + random.below(width), "0123456789.+-eE xX\tinfaINF");
        break;
    case 2:
        value = random.pick(std::array{"0",    "-0",   "00",   "007",  "+5",  "nan",        "-nan", "inf",
                                       "-inf", "0x1f", "1e99", "text", "3e9", "2147483647", "-3e9", "1D3",
                                       "5\t",  "5\r",  "$",    "*",    "1.9", "-1.9"});
        break;
    case 3:
        value = random.text(width, "0123456789");  // touches its neighbours
        break;
    case 4:  // left-aligned
        value = std::to_string(random.below(10000));
        value.resize(width, ' ');
        break;
    case 5:
    case 6:
    case 7:
        if (random.one_in(2)) value += '-';
        value += std::to_string(random.below(100));
        value += '.';
        value += random.text(random.below(width), "0123456789");
        if (random.one_in(3)) value += random.one_in(2) ? "e-3" : "E+05";
        break;
    default:
        value = std::to_string(random.bits() >> random.below(32));
    }
    value.resize(std::min(value.size(), width));
    return std::string(width - value.size(), ' ') + value;
}

std::string card(Random& random, std::size_t first_width, std::size_t first_count, std::size_t width, std::size_t count)
{
    std::string line;
    for (std::size_t i = 0; i < first_count; ++i) line += field(random, first_width);
    for (std::size_t i = 0; i < count; ++i) line += field(random, width);
    switch (random.below(10)) {
    case 0:
        line.resize(random.below(line.size() + 1));
        break;
    case 1:
        line += random.text(random.below(30), "0123456789 $*x");
        break;
    case 2:
        if (random.one_in(4)) line += random.text(random.below(300), "0123456789      $*x");
        break;
    case 3:
        line.resize(line.find_last_not_of(' ') + 1);  // as editors save it
        break;
    case 4:
        line += random.pick(std::array{" $ note", "*", " *NODE", "  *END", " *SET_NODE", " $", "$", "\t", " "});
        break;
    default:
        break;
    }
    return line;
}

std::string random_deck(Random& random)
{
    struct Block {
        const char* keyword_line;
        std::size_t first_width, first_count, width, count;
    };
    static constexpr Block blocks[] = {
        {"*NODE", 8, 1, 16, 3},           {"*NODE_MERGE", 8, 1, 16, 4},
        {"*node", 8, 1, 16, 3},           {"*NODE_RIGID", 8, 1, 16, 3},
        {"*ELEMENT_SHELL", 8, 10, 8, 0},  {"*ELEMENT_SHELL", 8, 6, 8, 0},
        {"*ELEMENT_SOLID", 8, 10, 8, 0},  {"*ELEMENT_SOLID_TET", 8, 10, 8, 0},
        {"*ELEMENT_SPH", 8, 2, 16, 1},    {"*SET_NODE", 10, 8, 10, 0},
        {"*SET_NODE_LIST", 10, 8, 10, 0}, {"*SET_NODE_TITLE", 10, 8, 10, 0},
        {"*SET_PART", 10, 8, 10, 0},      {"*SET_PART_LIST_TITLE", 10, 8, 10, 0},
        {"*SET_SHELL", 10, 8, 10, 0},     {"*SET_SHELL_LIST", 10, 8, 10, 0},
        {"*SET_SOLID", 10, 8, 10, 0},     {"*SET_SOLID_LIST_TITLE", 10, 8, 10, 0},
        {"*SET_SEGMENT", 10, 8, 10, 0},   {"*SET_SEGMENT_TITLE", 10, 4, 10, 2},
        {"*SET_NODE_ADD", 10, 8, 10, 0},  {"*MAT_ELASTIC", 10, 8, 10, 0},
    };
    static constexpr Block shells_with_thickness[] = {{"*ELEMENT_SHELL_THICKNESS", 8, 10, 8, 0}, {"", 16, 5, 16, 0}};
    const std::string line_end = random.one_in(4) ? "\r\n" : "\n";
    const bool dirty = !random.one_in(4);
    std::string deck;
    for (std::size_t blocks_left = 10 + random.below(60); blocks_left > 0; --blocks_left) {
        const bool thick = random.one_in(6);
        const Block& block = thick ? shells_with_thickness[0] : random.pick(blocks);
        deck += block.keyword_line;
        deck += line_end;
        const std::string_view keyword_line = block.keyword_line;
        if (keyword_line.ends_with("TITLE") && !(dirty && random.one_in(10)))
            deck += random.text(random.one_in(3) ? 76 + random.below(8) : random.below(60), "a title ") + line_end;
        for (std::size_t cards = random.below(12); cards > 0; --cards) {
            if (random.one_in(8)) deck += random.one_in(2) ? "$ comment" + line_end : "$*" + line_end;
            if (dirty && random.one_in(25)) deck += line_end;
            deck += card(random, block.first_width, block.first_count, block.width, block.count) + line_end;
            const Block& second = shells_with_thickness[1];
            if (thick && !(dirty && random.one_in(15)))
                deck += card(random, second.first_width, second.first_count, second.width, second.count) + line_end;
        }
    }
    if (!random.one_in(5)) deck += "*END" + line_end;
    if (random.one_in(10)) deck.resize(random.below(deck.size()));
    return deck;
}
}  // namespace

TEST_F(RandomDecks, EveryWayOfConvertingThemGivesTheSameFiles)
{
    cardflag = 1;
    Random random(31);
    std::size_t written = 0;
    for (int i = 0; i < 120; ++i) {
        const std::string deck = random_deck(random);
        const Written files = convert_every_way(bulk_sections, deck);
        written += files.geometry.size() + files.sets.size();
        ASSERT_FALSE(HasFailure()) << "deck " << i << ":\n" << deck;
    }
    EXPECT_GT(written, 1000000U);  // the decks are not all refused
}

TEST_F(RandomDecks, CardsOfRandomTextGiveTheSameFiles)
{
    cardflag = 1;
    Random random(32);
    constexpr std::array keywords = {"*NODE",        "*ELEMENT_SHELL", "*ELEMENT_SHELL_BETA", "*ELEMENT_SOLID",
                                     "*ELEMENT_SPH", "*SET_NODE",      "*SET_SEGMENT",        "*SET_SOLID_TITLE"};
    for (int i = 0; i < 80; ++i) {
        std::string deck;
        for (int block = 0; block < 30; ++block) {
            deck += random.pick(keywords);
            deck += '\n';
            deck += random.text(random.below(600), "0123456789 .-+e$*xX\t\r\n           \n1234567890\n");
            deck += '\n';
        }
        convert_every_way(bulk_sections, deck);
        ASSERT_FALSE(HasFailure()) << "deck " << i << ":\n" << deck;
    }
}
