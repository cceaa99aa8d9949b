// Decks that nobody would write, of every keyword that the program or a golden case knows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class DeckWriter
{
public:
    // Keywords without their newline, and whole decks from which blocks are taken, to be spoiled a little.
    DeckWriter(std::vector<std::string> keywords, const std::vector<std::string>& decks);

    // The deck of that number: the same on every machine.
    [[nodiscard]] std::string deck(std::uint32_t number) const;

    // The lines of a control file with its thirteen flags, mostly switched on; a few are spoiled.
    [[nodiscard]] static std::string flags(std::uint32_t number);

private:
    std::vector<std::string> keywords_;
    std::vector<std::string> blocks_;  // a keyword line and the cards below it
};

// The thirteen flags as lines of a control file, from as many digits.
std::string flag_lines(std::string_view digits);
