// The observer of a watched run.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "check/line_at.h"
#include "check/reading.h"
#include "reader/observer.h"

namespace check
{

// Which places of the keyword copy are which of the deck.
class CopyMap
{
public:
    void add(Position deck, Position copy);
    [[nodiscard]] Position to_deck(Position copy);

private:
    struct Part {
        Position copy, deck;
    };
    std::vector<Part> parts_;
    std::size_t last_ = 0;  // where the last position was found
};

// Makes the record of a run. Is told of the debug log by take_log(), the stream's sink.
class Watch final : public Observer
{
public:
    Watch();

    // What has been recorded, when the run is over and the log is closed.
    Reading take_reading();

    static void take_log(void* watch, std::uint64_t position, std::string_view characters);

    void copies(Position deck, Position copy) override;
    void reads_deck(bool deck) override;
    void pass_begins(const Pass& pass) override;
    void keyword_line(Position begin) override;
    void row_begins(const PassRow* row) override;
    void row_ends() override;
    void field(const FieldRead& field) override;
    void text_read(Position begin, Position end) override;

private:
    struct LogMark {
        std::uint64_t position;
        BlockNumber block;
    };

    Position to_deck(Position position) { return deck_ ? position : copy_map_.to_deck(position); }
    BlockNumber block_of(Position position);
    BlockNumber owner_of(Position position);
    void note(Position position, int width, ReadAs as);
    void flush();
    PatternNumber number_of(const Pattern& pattern);
    void add_line(Position begin, PatternNumber pattern);
    void take_log_line(std::string_view line, BlockNumber block);
    void end_group();

    Reading reading_;
    CopyMap copy_map_;
    LineAt line_;
    std::vector<Position> keywords_;  // where the deck's keyword lines begin
    bool deck_ = false;

    std::size_t pass_ = 0;
    BlockNumber loaded_ = no_block;  // the keyword line that was loaded last
    bool in_row_ = false;
    BlockNumber row_block_ = no_block;  // for which the present row runs
    BlockNumber looked_up_ = no_block;  // that a look-up of it has loaded
    Position loaded_at_ = 0;

    // What has been read of the present line.
    Pattern pattern_;
    BlockNumber pattern_block_ = no_block;
    bool new_line_follows_ = false;  // the present line follows the one that was added last
    Position added_ = static_cast<Position>(-1);
    PatternNumber last_patterns_[2] = {};
    std::map<std::vector<std::uint64_t>, PatternNumber> pattern_numbers_;

    // The debug log.
    std::deque<LogMark> marks_;  // whose lines begin where
    std::string log_line_;
    std::uint64_t log_line_begin_ = 0;
    LogShape group_;
    BlockNumber group_block_ = no_block;
    bool group_open_ = false;
    std::map<std::string, ShapeNumber> shape_numbers_;
};

}  // namespace check
