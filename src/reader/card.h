// Reading the cards of a keyword block: fixed-width fields, titles, and the loop over cards.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "reader/keyword.h"
#include "reader/observer.h"
#include "reader/run.h"

// The field readers work on infile. `open` is the card's line-still-open flag: 1 before its first field; a reader that
// meets the line's end sets it to 0, leaves the newline unread, and from then on every field of the card is empty.
// A field whose last column is blank is empty, whatever stands to its left. Widths are at most 40.

// The field's number; 0 when it is empty.
double fblanks(int width, int* open);

// The field's characters, leading blanks included, into destination, which has room for width + 1; " 0" when it is
// empty.
void readstring(char* destination, int width, int* open);

// A title line as it is kept: its first 80 characters. A line of 79 characters keeps its newline.
struct Title {
    char text[81];
};

// Skips comment lines and reads the next line whole.
Title readtitle();

// A title that is read and dropped.
void skip_title();

// A field of ten characters that is carried as text: section, material and other identifiers.
struct Word {
    char text[11];
};

// How many cards (or groups of cards) of a block are converted. sic: behind a title or an ID card it is often one.
enum CardCount { all_cards, one_card };

// The cards of one block. For a block of any number of cards:
//
//     for (Card card; card.next();) {
//         int id;
//         float x, y;
//         card.read(id, x, y);
//
// and for a fixed card, or the further cards of a group, which are read without a test for a keyword line:
//
//     Card card;
//     card.first(id, x, y);    ...    card.another(z);    ...
//
// What every card of a mesh goes through is defined here, so that it becomes part of the handler's loop.
//
// The fields of a list are read in its order, ten columns each, as its variables' types say: a number as int or float,
// an identifier as Word. Single fields, and those of other widths, are read one a statement or in a braced list, since
// function arguments have no order.
class Card
{
public:
    explicit Card(CardCount count = all_cards) : count_(count) {}

    // Ends the line of the card before, if there was one, skips comment lines, and begins the next card; false at a
    // keyword line, which stays unread, and behind the first card where one card is all.
    bool next()
    {
        if (begun_) infile.skip_line();
        if ((count_ == one_card && taken_) || skip_comments() == '*') return false;
        begun_ = true;
        taken_ = true;
        open_ = 1;
        return true;
    }

    // Skips comment lines, begins a card, whatever its first character, and reads its fields.
    template <class... Fields>
    void first(Fields&... fields)
    {
        begin();
        read(fields...);
    }

    // Discards the rest of the line, skips comment lines, begins a further card, whatever its first character, and
    // reads its fields.
    template <class... Fields>
    void another(Fields&... fields)
    {
        if (begun_) infile.skip_line();
        begin();
        read(fields...);
    }

    // Reads the card's next fields.
    template <class... Fields>
    void read(Fields&... fields)
    {
        (read_field(fields), ...);
    }

    // Discards the rest of the line, its newline included.
    static void end_line();

    // The card's columns up to the n-th, fewer when its line ends before; they are consumed. n is at most 80. The view
    // lasts until infile is read again.
    std::string_view columns(std::size_t n)
    {
        const std::string_view line = infile.ahead(n + 1);
        watched_columns = infile.position();
        begun_ = line.size() > n;
        infile.advance(begun_ ? n : line.size() + 1);  // a newline so near is consumed with the columns
        return line.substr(0, n);
    }

    double number(int width = 10) { return fblanks(width, &open_); }
    float real(int width = 10);
    int integer(int width = 10);
    std::int64_t integer64(int width);
    Word word();

private:
    void begin();
    void read_field(int& field) { field = integer(); }
    void read_field(float& field) { field = real(); }
    void read_field(Word& field) { field = word(); }

    CardCount count_;
    int open_ = 0;
    bool begun_ = false;  // a card was begun, and the rest of its line is unread
    bool taken_ = false;  // a card was begun
};
