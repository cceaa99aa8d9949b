#include "same/random_deck.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "support/random.h"

namespace
{
// How much of a deck is wrong, and how its lines end.
struct Dirt {
    std::size_t one_in;  // so many lines, about one is spoiled
    std::string line_end;
};

Dirt dirt(Random& random)
{
    constexpr std::array<std::size_t, 4> shares = {1000, 20, 8, 3};
    return {random.pick(shares), random.one_in(5) ? "\r\n" : "\n"};
}

// ---- fields and cards ----------------------------------------------------------------------------------------------

// Small numbers, so that identifiers meet.
std::string identifier(Random& random)
{
    return std::to_string(random.one_in(8) ? random.below(100000) : random.below(12));
}

std::string real(Random& random)
{
    std::string value = random.one_in(5) ? "-" : "";
    value += random.one_in(6) ? "" : std::to_string(random.bits() >> random.below(32));
    value += '.';
    value += random.text(random.below(6), "0123456789");
    if (random.one_in(4)) value += random.pick(std::array{"e-3", "E+05", "e9", "-4", "D2", "E-40", "e39", "E+0"});
    return value;
}

std::string oddity(Random& random)
{
    return random.pick(std::array{"-0",    "007",  "+5",          "nan",        "-nan", "inf", "-inf",  "0x1f", "1e99",
                                  "text",  "3e9",  "2147483647",  "2147483648", "-3e9", "1D3", "5\t",   "\t5",  "5\r",
                                  "$",     "*",    "1.9",         "-1.9",       "&p",   "1,2", "1e-46", ".",    "-",
                                  "1 2",   "1e+",  "-2147483649", "999999999",  "1.0 ", "  ",  "0.0",   "1e20", "+",
                                  "99999", "1e-8", "0.5",         "-1",         "-2",   "0X2", "1E400", "%s",   "%n"});
}

// What a field holds: right-aligned where it fits, sometimes too wide, sometimes left-aligned.
std::string field(Random& random, std::size_t width)
{
    std::string value;
    switch (random.below(12)) {
    case 0:
        return std::string(width, ' ');
    case 1:
        value = oddity(random);
        break;
    case 2:
        value = random.text(1 + random.below(width), "0123456789.+-eE xX\tinfaINF");
        break;
    case 3:
        value = random.text(width, "0123456789");  // touches its neighbours
        break;
    case 4:
    case 5:
    case 6:
        value = real(random);
        break;
    default:
        value = identifier(random);
    }
    value.resize(std::min(value.size(), width));
    const std::string blanks(width - value.size(), ' ');
    return random.one_in(12) ? value + blanks : blanks + value;
}

std::string title(Random& random)
{
    static constexpr std::string_view letters = "a title of 12 words, %s \"quoted\" $ * ; TITLE";
    return random.text(random.one_in(4) ? 40 + random.below(60) : random.below(30), letters);
}

// The columns that the cards of a block have.
struct Layout {
    std::size_t first_width, first_count, width, count;
};

Layout layout(Random& random)
{
    static constexpr Layout usual = {10, 8, 10, 0};
    static constexpr Layout others[] = {{8, 1, 16, 5},  {8, 10, 8, 0},  {8, 2, 16, 1}, {20, 4, 20, 0},
                                        {16, 5, 16, 0}, {10, 1, 70, 1}, {9, 8, 11, 2}, {5, 16, 5, 0}};
    return random.one_in(3) ? random.pick(others) : usual;
}

std::string card(Random& random, const Layout& layout)
{
    std::string line;
    for (std::size_t i = 0; i < layout.first_count; ++i) line += field(random, layout.first_width);
    for (std::size_t i = 0; i < layout.count; ++i) line += field(random, layout.width);
    if (random.one_in(4)) line.resize(line.find_last_not_of(' ') + 1);  // as editors save it
    if (random.one_in(8)) line.resize(random.below(line.size() + 1));
    return line;
}

// ---- spoiling ------------------------------------------------------------------------------------------------------

void spoil(std::string& line, Random& random)
{
    const std::size_t at = random.below(line.size() + 1);
    switch (random.below(12)) {
    case 0:
        line.resize(at);
        break;
    case 1:
        line.insert(at, 1, random.pick(std::string_view(" \t\r$*.-0x\0", 10)));
        break;
    case 2:
        line.erase(at, 1 + random.below(3));
        break;
    case 3:
        line += random.pick(std::array{" $ note", "*", " *NODE", "  *END", " *SET_NODE", " $", "$", "\t", " ", "*END"});
        break;
    case 4:
        line += random.text(random.below(300), "0123456789       $*x.");
        break;
    case 5:
        line.resize(line.find_last_not_of(" \t") + 1);
        break;
    case 6:
        line.insert(0, random.one_in(2) ? " " : "$");
        break;
    default: {  // another value, in its columns or not
        const std::size_t start = random.one_in(4) ? at : at / 10 * 10;
        line.resize(std::max(line.size(), start + 10), ' ');
        line.replace(start, 10, field(random, 10));
    }
    }
}

std::string keyword_line(std::string keyword, Random& random, const Dirt& dirt)
{
    if (random.one_in(4))
        keyword += random.pick(std::array{"_ID", "_TITLE", "_SET", "_NODE", "_SET_ID", "_NODE_ID", "_LIST", "_SPH",
                                          "_LIST_TITLE", "_GENERATE", "_2D", "_LOCAL", "_THERMAL", "_", "ID"});
    if (random.one_in(10))
        std::transform(keyword.begin(), keyword.end(), keyword.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (!random.one_in(dirt.one_in)) return keyword;
    switch (random.below(5)) {
    case 0:
        return keyword + std::string(1 + random.below(60), ' ');
    case 1:
        return keyword + "_" + random.text(20 + random.below(60), "A_LONG_OPTION ");
    case 2:
        return keyword.substr(0, 1 + random.below(keyword.size()));
    case 3:
        return keyword + random.pick(std::array{" $ note", "\t", "*", ", 1", "  9"});
    default:
        spoil(keyword, random);
        return keyword;
    }
}

// ---- blocks --------------------------------------------------------------------------------------------------------

void add_line(std::string& deck, std::string line, Random& random, const Dirt& dirt)
{
    if (random.one_in(dirt.one_in)) spoil(line, random);
    if (random.one_in(12)) deck += (random.one_in(2) ? "$ comment" : "$*END") + dirt.line_end;
    if (random.one_in(4 * dirt.one_in)) deck += dirt.line_end;
    if (random.one_in(4 * dirt.one_in)) return;  // a missing card
    deck += line + dirt.line_end;
}

std::string random_block(const std::string& keyword, Random& random, const Dirt& dirt)
{
    std::string block = keyword_line(keyword, random, dirt) + dirt.line_end;
    const Layout columns = layout(random);
    if (block.find("TITLE") != std::string::npos || random.one_in(4)) add_line(block, title(random), random, dirt);
    for (std::size_t cards = random.below(9); cards > 0; --cards)
        add_line(block, card(random, random.one_in(10) ? layout(random) : columns), random, dirt);
    return block;
}

// The lines of a block that was right once.
std::string spoiled_block(std::string_view block, Random& random, const Dirt& dirt)
{
    std::string spoiled;
    while (!block.empty()) {
        const std::string_view line = block.substr(0, block.find('\n'));
        block.remove_prefix(std::min(line.size() + 1, block.size()));
        if (spoiled.empty() && line.starts_with('*'))
            spoiled =
                (random.one_in(8) ? keyword_line(std::string(line), random, dirt) : std::string(line)) + dirt.line_end;
        else
            add_line(spoiled, std::string(line), random, dirt);
    }
    return spoiled;
}

bool is_end(std::string_view block)
{
    return block.size() >= 4 && (block.starts_with("*END") || block.starts_with("*end"));
}
}  // namespace

DeckWriter::DeckWriter(std::vector<std::string> keywords, const std::vector<std::string>& decks)
    : keywords_(std::move(keywords))
{
    for (const std::string& deck : decks) {
        for (std::size_t start = 0; start < deck.size();) {
            const std::size_t end = std::min(deck.find("\n*", start), deck.size() - 1) + 1;
            const std::string block = deck.substr(start, end - start);
            if (block.size() < 4000 && !is_end(block)) blocks_.push_back(block);
            start = end;
        }
    }
    std::sort(blocks_.begin(), blocks_.end());
    blocks_.erase(std::unique(blocks_.begin(), blocks_.end()), blocks_.end());
    std::erase_if(keywords_, is_end);
}

std::string DeckWriter::deck(std::uint32_t number) const
{
    Random random(number);
    const Dirt of_deck = dirt(random);
    std::string deck;
    const std::size_t most = number % 100 == 0 ? 5000 : 60;  // some decks are larger than what is in memory at a time
    for (std::size_t blocks = 10 + random.below(most); blocks > 0; --blocks)
        deck += random.one_in(2) ? random_block(random.pick(keywords_), random, of_deck)
                                 : spoiled_block(random.pick(blocks_), random, of_deck);
    if (!random.one_in(6)) deck += (random.one_in(8) ? "*end" : "*END") + of_deck.line_end;
    if (random.one_in(12)) deck += random_block(random.pick(keywords_), random, of_deck);
    if (random.one_in(12)) deck.resize(random.below(deck.size()));
    return deck;
}

std::string DeckWriter::flags(std::uint32_t number)
{
    Random random(number);
    std::string digits;
    for (int flag = 0; flag < 13; ++flag) digits += random.one_in(3) ? static_cast<char>('0' + random.below(4)) : '1';
    if (!random.one_in(20)) digits[0] = '1';  // without a main deck there is little to compare
    std::string lines = flag_lines(digits);
    if (random.one_in(8)) spoil(lines, random);
    return lines;
}

std::string flag_lines(std::string_view digits)
{
    static constexpr std::array<std::string_view, 13> names = {
        "cardflag", "setflag",  "geomflag", "defflag", "stndflag", "contflag", "icflag",
        "lcflag",   "tranflag", "amrflag",  "sphflag", "plotflag", "accelflag"};
    std::string lines;
    for (std::size_t i = 0; i < names.size(); ++i)
        lines.append(names[i]).append(" : ").append(digits.substr(i, 1)).append("\n");
    return lines;
}
