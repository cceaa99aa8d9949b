// Indexes of keyword lines, made from the text and taken apart.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "reader/keyword_index.h"

using Positions = std::vector<Position>;

// Where the lines of the text begin that begin with "*".
inline Positions keyword_lines(std::string_view text)
{
    Positions lines;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '*' && (i == 0 || text[i - 1] == '\n')) lines.push_back(i);
    return lines;
}

// Of lines that begin with no letter behind their "*".
inline KeywordIndex index_of(const Positions& lines)
{
    KeywordIndex index;
    for (const Position line : lines) index.add(line, "*");
    return index;
}

inline KeywordIndex index_of(std::string_view text)
{
    KeywordIndex index;
    for (const Position line : keyword_lines(text)) index.add(line, text.substr(static_cast<std::size_t>(line)));
    return index;
}

inline Positions positions(const KeywordIndex& index)
{
    Positions lines;
    KeywordIndex::Place place;
    Position from = 0;
    while (const std::optional<Position> line = index.find(from, place)) {
        lines.push_back(*line);
        from = *line + 1;
    }
    return lines;
}
