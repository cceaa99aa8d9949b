#include "check/line_at.h"

#include <algorithm>
#include <cstring>

namespace check
{
bool LineAt::fill(Position position)
{
    if (position >= deck_->size()) return false;
    if (position >= window_begin_ && position < window_end_) return true;
    if (window_ == nullptr) window_ = std::make_unique_for_overwrite<char[]>(window_size);
    int ignored = 0;  // the run itself tells of a deck that cannot be read
    window_begin_ = position;
    window_end_ = position + deck_->read(window_.get(), position, window_size, ignored);
    return window_end_ > position;
}

char LineAt::at(Position position)
{
    return fill(position) ? window_[static_cast<std::size_t>(position - window_begin_)] : '\n';
}

// The newline at or behind the position; the deck's end where there is none.
Position LineAt::newline_from(Position position)
{
    while (fill(position)) {
        const char* const from = window_.get() + (position - window_begin_);
        const auto length = static_cast<std::size_t>(window_end_ - position);
        if (const void* const found = std::memchr(from, '\n', length); found != nullptr)
            return position + static_cast<Position>(static_cast<const char*>(found) - from);
        position = window_end_;
    }
    return std::max(position, deck_->size());
}

void LineAt::begin_line(Position begin)
{
    begin_ = begin;
    end_ = newline_from(begin);
}

void LineAt::go_to(Position position)
{
    if (holds(position)) return;
    const auto next = std::upper_bound(keywords_.begin(), keywords_.end(), position);
    const Position keyword = next == keywords_.begin() ? 0 : *(next - 1);
    follows_ = position > end_ && begin_ <= end_;
    if (!follows_ || keyword > end_ + 1) {
        follows_ = false;
        begin_line(keyword);
    } else {
        begin_line(end_ + 1);
    }
    while (position > end_ && end_ < deck_->size()) {
        if (at(begin_) != '$') follows_ = false;
        begin_line(end_ + 1);
    }
}
}  // namespace check
