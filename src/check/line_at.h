// Which line of the deck a position is in.
#pragma once

#include <memory>
#include <span>

#include "reader/text_source.h"

namespace check
{

// Finds the line of a position by going on from the last one, or from the keyword line before it. Reads the source
// through a window of its own.
class LineAt
{
public:
    // `keywords` are the positions of the deck's keyword lines. Both must outlive this.
    LineAt(TextSource& deck, std::span<const Position> keywords) : deck_(&deck), keywords_(keywords) {}

    // Goes to the line that the position is in; its newline is part of it.
    void go_to(Position position);

    [[nodiscard]] bool holds(Position position) const { return position >= begin_ && position <= end_; }
    [[nodiscard]] Position begin() const { return begin_; }
    [[nodiscard]] Position end() const { return end_; }  // of its newline

    // True when only comments stood between the line before go_to and the one behind it.
    [[nodiscard]] bool follows() const { return follows_; }

    // Forgets where it was.
    void set_keywords(std::span<const Position> keywords) { keywords_ = keywords; }

private:
    static constexpr std::size_t window_size = 65536;

    char at(Position position);
    bool fill(Position position);
    Position newline_from(Position position);
    void begin_line(Position begin);

    TextSource* deck_;
    std::span<const Position> keywords_;
    std::unique_ptr<char[]> window_;
    Position window_begin_ = 0;
    Position window_end_ = 0;
    Position begin_ = 1;  // behind the end: no line yet
    Position end_ = 0;
    bool follows_ = false;
};

}  // namespace check
