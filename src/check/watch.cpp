#include "check/watch.h"

#include <algorithm>

#include "deck/keyword_line.h"
#include "reader/run.h"

namespace check
{
// ---- the keyword copy ----------------------------------------------------------------------------------------------

void CopyMap::add(Position deck, Position copy)
{
    if (!parts_.empty() && deck - parts_.back().deck == copy - parts_.back().copy) return;
    parts_.push_back({copy, deck});
}

Position CopyMap::to_deck(Position copy)
{
    if (parts_.empty()) return copy;
    if (copy < parts_[last_].copy || (last_ + 1 < parts_.size() && copy >= parts_[last_ + 1].copy)) {
        const auto next = std::upper_bound(parts_.begin(), parts_.end(), copy,
                                           [](Position position, const Part& part) { return position < part.copy; });
        last_ = next == parts_.begin() ? 0 : static_cast<std::size_t>(next - parts_.begin()) - 1;
    }
    return parts_[last_].deck + (copy - parts_[last_].copy);
}

void Watch::copies(Position deck, Position copy)
{
    copy_map_.add(deck, copy);
}

// ---- passes and keyword lines --------------------------------------------------------------------------------------

Watch::Watch() : line_(deck_source, {})
{
    reading_.pass_ends.resize(passes().size());
}

void Watch::reads_deck(bool deck)
{
    flush();
    deck_ = deck;
    if (!keywords_.empty()) return;
    KeywordIndex::Place place;
    for (auto begin = deck_index.find(0, place); begin; begin = deck_index.find(*begin + 1, place))
        keywords_.push_back(*begin);
    for (const Position begin : keywords_) reading_.blocks.push_back({begin, 0, 0});
    line_.set_keywords(keywords_);
}

void Watch::pass_begins(const Pass& pass)
{
    flush();
    pass_ = index_of(pass);
}

// The block in which the position is, keyword line included; no_block before the first and behind the deck's end.
BlockNumber Watch::block_of(Position position)
{
    if (position >= deck_source.size()) return no_block;
    const auto next = std::upper_bound(keywords_.begin(), keywords_.end(), position);
    if (next == keywords_.begin()) return no_block;
    return static_cast<BlockNumber>(next - keywords_.begin()) - 1;
}

void Watch::keyword_line(Position begin)
{
    flush();
    const Position position = to_deck(begin);
    const bool behind = !deck_ && begin >= copy_source.size();
    const BlockNumber block = behind ? no_block : block_of(position);
    if (in_row_) {
        looked_up_ = block;
        return;
    }
    loaded_ = block;
    loaded_at_ = behind ? deck_source.size() : position;
}

void Watch::row_begins(const PassRow* row)
{
    flush();
    const PassSet pass = pass_ < passes().size() ? PassSet{1} << pass_ : 0;
    if (loaded_ != no_block) reading_.blocks[loaded_].reached_by |= pass;
    if (row == nullptr) return;
    if (row->action.treatment == Treatment::end_of_pass) {
        if (pass_ < passes().size()) reading_.pass_ends[pass_] = {true, row->prefix == "*END", loaded_at_};
        return;
    }
    in_row_ = true;
    row_block_ = loaded_;
    looked_up_ = no_block;
    const bool converted = row->action.treatment == Treatment::converted;
    if (converted && loaded_ != no_block) reading_.blocks[loaded_].converted_by |= pass;
    marks_.push_back({outfile.position(), converted ? loaded_ : no_block});
}

void Watch::row_ends()
{
    flush();
    in_row_ = false;
}

// ---- lines ---------------------------------------------------------------------------------------------------------

// The block for which the line of a position is read: that of the row, unless the row looks something up elsewhere.
BlockNumber Watch::owner_of(Position position)
{
    if (looked_up_ == no_block) return row_block_;
    const bool in_own = row_block_ != no_block && position >= reading_.blocks[row_block_].begin &&
                        (row_block_ + 1 == reading_.blocks.size() || position < reading_.blocks[row_block_ + 1].begin);
    if (!in_own || looked_up_ == row_block_) return looked_up_;
    looked_up_ = no_block;
    return row_block_;
}

void Watch::note(Position position, int width, ReadAs as)
{
    if (!line_.holds(position)) {
        flush();
        const bool new_line = line_.begin() == added_;
        line_.go_to(position);
        new_line_follows_ = new_line && line_.follows();
    }
    const BlockNumber owner = owner_of(position);
    if (owner != pattern_block_) flush();
    pattern_block_ = owner;
    Position column = position - line_.begin();
    if (position >= line_.end() && !pattern_.empty()) column = pattern_.back().column + pattern_.back().width;
    pattern_.push_back({static_cast<std::uint32_t>(column), static_cast<std::uint16_t>(width), as});
}

void Watch::field(const FieldRead& field)
{
    note(to_deck(field.begin), field.width, field.number ? ReadAs::number : ReadAs::word);
}

void Watch::text_read(Position begin, Position)
{
    note(to_deck(begin), 0, ReadAs::text);
}

PatternNumber Watch::number_of(const Pattern& pattern)
{
    for (const PatternNumber last : last_patterns_)
        if (last < reading_.patterns.size() && reading_.patterns[last] == pattern) return last;
    std::vector<std::uint64_t> key;
    for (const ReadField& field : pattern)
        key.push_back(std::uint64_t{field.column} << 32 | std::uint64_t{field.width} << 8 |
                      static_cast<std::uint64_t>(field.as));
    const auto [place, is_new] =
        pattern_numbers_.try_emplace(std::move(key), static_cast<PatternNumber>(reading_.patterns.size()));
    if (is_new) reading_.patterns.push_back(pattern);
    last_patterns_[0] = last_patterns_[1];
    last_patterns_[1] = place->second;
    return place->second;
}

// Ends what is read of the present line.
void Watch::flush()
{
    if (pattern_.empty()) return;
    add_line(line_.begin(), number_of(pattern_));
    pattern_.clear();
}

void Watch::add_line(Position begin, PatternNumber pattern)
{
    const bool follows = new_line_follows_;
    added_ = begin;
    new_line_follows_ = false;
    if (follows && reading_.lines.back().block == pattern_block_) {
        LinesRead& lines = reading_.lines.back();
        if (lines.count == 1) lines.patterns[1] = pattern;
        if (lines.patterns[lines.count % 2] == pattern) {
            lines.last = begin;
            ++lines.count;
            return;
        }
    }
    reading_.lines.push_back({begin, begin, {pattern, pattern}, pattern_block_, 1});
}

// ---- the debug log -------------------------------------------------------------------------------------------------

void Watch::take_log(void* watch, std::uint64_t position, std::string_view characters)
{
    Watch& self = *static_cast<Watch*>(watch);
    for (;;) {
        const std::size_t newline = characters.find('\n');
        self.log_line_.append(characters.substr(0, newline));
        if (newline == std::string_view::npos) return;
        while (self.marks_.size() > 1 && self.marks_[1].position <= self.log_line_begin_) self.marks_.pop_front();
        const bool known = !self.marks_.empty() && self.marks_.front().position <= self.log_line_begin_;
        self.take_log_line(self.log_line_, known ? self.marks_.front().block : no_block);
        self.log_line_.clear();
        characters.remove_prefix(newline + 1);
        position += newline + 1;
        self.log_line_begin_ = position;
    }
}

// "      grav:         1 . . . Changed to 0": a field, and what became of it.
void Watch::take_log_line(std::string_view line, BlockNumber block)
{
    constexpr std::string_view dots = " . . . ";
    constexpr std::size_t name_width = 10;
    if (block == no_block || line.empty()) return;
    if (line.front() == '*' && line.find(dots) != std::string_view::npos) {
        end_group();
        group_block_ = block;
        group_open_ = true;
        group_.refused = line.ends_with("skipped");
        return;
    }
    if (!group_open_ || line.size() <= name_width) return;
    const std::size_t colon = line.find(':', name_width);
    const std::string_view name = deck::trimmed(line.substr(0, colon));
    if (colon == std::string_view::npos || colon + 1 == line.size() || name.find(' ') != std::string_view::npos) return;
    const std::size_t remark = line.find(dots, colon);
    const std::string_view said = remark == std::string_view::npos ? "" : line.substr(remark + dots.size());
    if (said.starts_with("Chang"))
        group_.replaced.push_back({std::string(name), std::string(said)});
    else if (!said.starts_with("Applied"))
        group_.unused.emplace_back(name);
}

void Watch::end_group()
{
    if (!group_open_) return;
    std::string key = group_.refused ? "refused" : "";
    for (const std::string& name : group_.unused) key.append("\n").append(name);
    for (const LogShape::Replaced& field : group_.replaced) key.append("\n!").append(field.field).append(field.by);
    const auto [place, is_new] =
        shape_numbers_.try_emplace(std::move(key), static_cast<ShapeNumber>(reading_.shapes.size()));
    if (is_new) reading_.shapes.push_back(std::move(group_));
    reading_.log[group_block_].push_back(place->second);
    group_ = {};
    group_open_ = false;
}

// ---- the end -------------------------------------------------------------------------------------------------------

Reading Watch::take_reading()
{
    flush();
    end_group();
    std::stable_sort(reading_.lines.begin(), reading_.lines.end(),
                     [](const LinesRead& a, const LinesRead& b) { return a.first < b.first; });
    return std::move(reading_);
}

BlockNumber Reading::block_at(Position begin) const
{
    const auto found = std::lower_bound(blocks.begin(), blocks.end(), begin,
                                        [](const BlockRead& block, Position place) { return block.begin < place; });
    return found == blocks.end() || found->begin != begin ? no_block : static_cast<BlockNumber>(found - blocks.begin());
}
}  // namespace check
