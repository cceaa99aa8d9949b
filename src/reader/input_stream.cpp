#include "reader/input_stream.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

namespace
{
constexpr std::size_t first_stride = 4096;  // a jump to a keyword line rarely needs more
constexpr std::size_t cache_line = 64;
constexpr std::string_view end_line = "*END\n";
}  // namespace

bool InputStream::open(const char* file_name, std::size_t window)
{
    close();
    if (!own_.open(file_name)) return false;
    open(own_, window);
    return true;
}

void InputStream::open_text(std::string_view text, std::size_t window)
{
    close();
    own_.use(text);
    open(own_, window);
}

void InputStream::open(TextSource& source, std::size_t window)
{
    if (&source != &own_) close();
    source_ = &source;
    size_ = source.size();
    newline_missing_ = source.newline_missing();
    start(window);
}

void InputStream::close()
{
    own_.close();
    source_ = nullptr;
    size_ = 0;
    newline_missing_ = false;
    index_ = nullptr;
    listener_ = nullptr;
    base_ = 0;
    cursor_ = filled_ = begin_;
}

void InputStream::start(std::size_t window)
{
    window = std::max(window, smallest_window);
    if (capacity_ != window) window_ = std::make_unique_for_overwrite<char[]>(window + cache_line);
    capacity_ = window;
    begin_at(0);
    stride_ = first_stride;
    failure_ = 0;
}

void InputStream::use_index(const KeywordIndex* index)
{
    index_ = index;
    found_ = {};
}

void InputStream::seek(Position position)
{
    const auto held = static_cast<Position>(filled_ - begin_);
    if (position >= base_ && position - base_ <= held) {
        cursor_ = begin_ + (position - base_);
        return;
    }
    begin_at(position);
    stride_ = first_stride;
}

// Empties the window, which begins at the position from now on. A character stands in its cache line where it stands in
// the file: so the system copies a tenth faster.
void InputStream::begin_at(Position position)
{
    const auto memory = reinterpret_cast<std::uintptr_t>(window_.get());
    base_ = position;
    begin_ = window_.get() + static_cast<std::size_t>((position - memory) % cache_line);
    cursor_ = filled_ = begin_;
}

// Reads on until at least `wanted` characters stand unread in the window. The character before the position stays
// there too, for back() and for telling a line's beginning.
void InputStream::fill(std::size_t wanted)
{
    if (window_ == nullptr) start(smallest_window);
    if (cursor_ - begin_ > 1) {
        const char* const kept = cursor_ - 1;
        const auto length = static_cast<std::size_t>(filled_ - kept);
        begin_at(position() - 1);
        std::memmove(begin_, kept, length);
        cursor_ = begin_ + 1;
        filled_ = begin_ + length;
    }
    for (auto unread = static_cast<std::size_t>(filled_ - cursor_); unread < wanted;
         unread = static_cast<std::size_t>(filled_ - cursor_)) {
        const auto used = static_cast<std::size_t>(filled_ - begin_);
        const std::size_t count = std::min(capacity_ - used, std::max(stride_, wanted - unread));
        filled_ += read(filled_, base_ + used, count);
        stride_ = std::min(stride_ * 4, capacity_);
    }
}

// Delivers up to `wanted` characters of the text, and at least one.
std::size_t InputStream::read(char* destination, Position position, std::size_t wanted)
{
    std::size_t got = 0;
    if (position < size_) {
        const auto in_text = static_cast<std::size_t>(std::min<Position>(wanted, size_ - position));
        int failure = 0;
        got = source_->read(destination, position, in_text, failure);
        if (listener_ != nullptr) listener_(listener_context_, got);
        if (got < in_text) {
            failure_ = failure != 0 ? failure : became_shorter;
            size_ = position + got;
            newline_missing_ = true;
        }
    }
    if (got == 0)
        for (; got < std::min(wanted, smallest_window); ++got) destination[got] = beyond(position + got);
    return got;
}

std::string InputStream::failure() const
{
    if (failure_ == 0) return {};
    return failure_ == became_shorter ? "it became shorter while it was being read" : std::strerror(failure_);
}

// The character at a position behind the file's last one.
char InputStream::beyond(Position position) const
{
    const Position end_lines = size_ + (newline_missing_ ? 1 : 0);
    if (position < end_lines) return '\n';
    return end_line[static_cast<std::size_t>((position - end_lines) % end_line.size())];
}

bool InputStream::whole_line(std::string_view& line, std::size_t longest)
{
    std::size_t searched = 0;
    for (;;) {
        const auto unread = static_cast<std::size_t>(filled_ - cursor_);
        const std::size_t seen = std::min(unread, longest + 1);
        if (seen > searched) {
            const auto* newline = static_cast<const char*>(std::memchr(cursor_ + searched, '\n', seen - searched));
            if (newline != nullptr) {
                line = {cursor_, static_cast<std::size_t>(newline - cursor_)};
                return true;
            }
            searched = seen;
        }
        if (searched > longest || (unread + 1 >= capacity_ && window_ != nullptr)) return false;
        fill(unread + 1);
    }
}

void InputStream::skip_line()
{
    for (;;) {
        if (cursor_ == filled_) fill(1);
        auto* newline = static_cast<char*>(std::memchr(cursor_, '\n', static_cast<std::size_t>(filled_ - cursor_)));
        if (newline != nullptr) {
            cursor_ = newline + 1;
            return;
        }
        cursor_ = filled_;
    }
}

void InputStream::to_keyword(Initials wanted)
{
    if (peek() == '*') {
        const std::string_view line = ahead(2);
        if (index_ == nullptr || line.size() < 2 || wanted.has(line[1])) return;
        skip_line();
    }
    if (index_ != nullptr && position() < size_) {
        const std::optional<Position> line = index_->find(position(), found_, wanted);
        seek(line.has_value() && *line < size_ ? *line : size_ + (newline_missing_ ? 1 : 0));
        return;
    }
    for (;;) {  // the character before cursor_ is always in the window here
        for (char* from = cursor_; from < filled_;) {
            auto* star = static_cast<char*>(std::memchr(from, '*', static_cast<std::size_t>(filled_ - from)));
            if (star == nullptr) break;
            if (star > begin_ && star[-1] == '\n') {
                cursor_ = star;
                return;
            }
            from = star + 1;
        }
        cursor_ = filled_;
        fill(1);
    }
}
