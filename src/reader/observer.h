// The seam for those who watch a run: what the converter reads, as it reads it.
//
// It is null in a plain run. Positions are of infile: the keyword copy, or in the set and geometry
// sections the deck. Where the outputs stand, an observer asks the streams themselves.
#pragma once

#include <string_view>

#include "reader/run.h"

struct Pass;
struct PassRow;

// A field that was read.
struct FieldRead {
    Position begin;               // of its first column
    int width;                    // columns of the field
    std::string_view characters;  // those that the line holds of it, at most width; they last for the call
    bool empty;                   // its last column is blank, or the line ends before it
    bool number;                  // read as a number; else as text
    double value;                 // of a number; 0 when it is empty
};

class Observer
{
public:
    Observer() = default;
    virtual ~Observer() = default;
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;

    // The keyword copy goes on at `copy` with the deck's characters from `deck` on. Told in the copy's order.
    virtual void copies(Position deck, Position copy)
    {
        static_cast<void>(deck);
        static_cast<void>(copy);
    }

    // infile has been opened: on the deck, or on the keyword copy.
    virtual void reads_deck(bool deck) = 0;

    // A pass begins at the beginning of infile.
    virtual void pass_begins(const Pass& pass) = 0;

    // A keyword line has been loaded into cbuffer, by a pass or by a look-up; it begins at the position.
    virtual void keyword_line(Position begin) = 0;

    // The row that the pass takes for it, null when it has none; and the end of what the row runs, if it runs anything.
    virtual void row_begins(const PassRow* row) = 0;
    virtual void row_ends() = 0;

    // A field was read. One beyond its line's end begins at the newline.
    virtual void field(const FieldRead& field) = 0;

    // Characters were read that are no field of a card: a title, a heading; up to but without the end.
    virtual void text_read(Position begin, Position end) = 0;
};

inline constinit Observer* observer = nullptr;

// Where the card's columns begin of which the bulk handlers cut their fields.
inline constinit Position watched_columns = 0;

// Tells the observer of the characters that are read while this lives, but for a line's end.
class Watched
{
public:
    Watched() : begin_(infile.position()) {}
    ~Watched()
    {
        if (observer != nullptr) tell();
    }
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;

private:
    void tell() const;

    Position begin_;
};
