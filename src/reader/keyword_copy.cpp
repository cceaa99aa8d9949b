#include "reader/keyword_copy.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "reader/observer.h"
#include "reader/run.h"

namespace
{
// The copy is made in pieces of at most 49 characters, each treated as if it were a line; the newline counts.
constexpr std::size_t piece_length = 49;

struct Filter {
    std::string_view prefix;
    bool whole_block = false;  // the keyword line goes too
};

// sic: compared with the line as it stands, so a keyword in lower case is copied with its block
constexpr Filter filters[] = {
    {"*NODE"},
    {"*ELEMENT_SHELL_THICKNESS"},
    {"*ELEMENT_SHELL"},
    {"*ELEMENT_SPH"},
    {"*ELEMENT_SOLID"},
    {"*SET_NODE"},  // and *SET_NODE_LIST
    {"*SET_PART"},  // and *SET_PART_LIST
    {"*SET_SEGMENT"},
    {"*SET_SHELL"},        // and *SET_SHELL_LIST
    {"*SET_SOLID", true},  // and *SET_SOLID_LIST; sic: the only block that vanishes with its keyword line
};

const Filter* filter_for(std::string_view piece)
{
    const auto* found = std::find_if(std::begin(filters), std::end(filters),
                                     [=](const Filter& filter) { return piece.starts_with(filter.prefix); });
    return found == std::end(filters) ? nullptr : found;
}

// Appends to the copy what stands in the deck from `begin` on, and to its index when a keyword line begins here.
void copy(std::string_view piece, Position begin, bool& line_begins)
{
    if (observer != nullptr) observer->copies(begin, keyword_of.position());
    if (line_begins && piece.front() == '*') copy_index.add(keyword_of.position(), piece);
    text(keyword_of, piece);
    line_begins = piece.back() == '\n';
}

// True when no piece of the line can be taken for a keyword line: then the line is copied whole.
bool plain(std::string_view line)
{
    for (std::size_t piece = 0; piece < line.size(); piece += piece_length)
        if (line[piece] == '*') return false;
    return true;
}
}  // namespace

void keyword_filter()
{
    infile_geom.to_keyword();
}

void keyword_writer()
{
    deck_index.clear();
    copy_index.clear();
    bool deck_line_begins = true;
    bool copy_line_begins = true;
    while (!infile_geom.at_end()) {
        const Position begin = infile_geom.position();
        std::string_view line;
        if (deck_line_begins && infile_geom.whole_line(line) && plain(line) &&
            begin + line.size() < infile_geom.size()) {
            infile_geom.advance(line.size() + 1);
            copy({line.data(), line.size() + 1}, begin, copy_line_begins);
            continue;
        }

        char piece[piece_length];
        std::size_t length = infile_geom.ahead(piece_length).copy(piece, piece_length);
        infile_geom.advance(length);
        if (deck_line_begins && piece[0] == '*') deck_index.add(begin, {piece, length});
        deck_line_begins = length < piece_length && !infile_geom.at_end();
        if (deck_line_begins) piece[length++] = infile_geom.next();

        const Filter* const filter = filter_for({piece, length});
        if (filter != nullptr) {
            const Position behind = infile_geom.position();
            keyword_filter();
            if (infile_geom.position() != behind) deck_line_begins = true;
            if (filter->whole_block) continue;
        }
        if (length > 0) copy({piece, length}, begin, copy_line_begins);
    }
}
