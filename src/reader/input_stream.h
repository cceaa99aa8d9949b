// The stream that decks are read from: a bounded window over a text, character by character or a line's columns at
// once.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "reader/keyword_index.h"
#include "reader/text_source.h"

// A text, read through a window of fixed size, so that memory does not grow with the file.
//
// The text never ends: a last line without a newline reads as if it had one, and behind the text stand endless "*END"
// lines. A stream that is not open holds nothing but these. So no loop over keyword lines can hang.
class InputStream
{
public:
    static constexpr std::size_t smallest_window = 128;  // holds a card, a keyword line and a step back

    constexpr InputStream() = default;
    ~InputStream() { close(); }
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    // Opens a regular file; false when there is none, or when it cannot be read. `window` is in bytes.
    bool open(const char* file_name, std::size_t window);

    // Reads a source that is open, and stays so until the stream is closed or opened again.
    void open(TextSource& source, std::size_t window);

    // Reads text that is already in memory, which must outlive the stream's use of it.
    void open_text(std::string_view text, std::size_t window);

    void close();
    [[nodiscard]] bool is_open() const { return source_ != nullptr; }

    // The index of the keyword lines of this very file, or null: then keyword lines are searched for.
    void use_index(const KeywordIndex* index);

    // Tells the listener how many bytes each read from the file has delivered; until the stream is closed, or watched
    // by null.
    using Listener = void (*)(void* context, std::size_t bytes);
    void watch(Listener listener, void* context)
    {
        listener_ = listener;
        listener_context_ = context;
    }

    // The next character.
    char next()
    {
        if (cursor_ == filled_) fill(1);
        return *cursor_++;
    }

    // The next character, which stays unread.
    char peek()
    {
        if (cursor_ == filled_) fill(1);
        return *cursor_;
    }

    // Makes the character before the position the next one.
    void back()
    {
        if (cursor_ == begin_)
            seek(position() - 1);
        else
            --cursor_;
    }

    [[nodiscard]] Position position() const { return base_ + static_cast<Position>(cursor_ - begin_); }
    void seek(Position position);
    void rewind() { seek(0); }

    // True when the position is behind the last character that the file holds.
    [[nodiscard]] bool at_end() const { return position() >= size_; }

    // The characters that the file holds.
    [[nodiscard]] Position size() const { return size_; }

    // The next n columns of the line, fewer when its newline comes first; never the newline. Nothing is consumed. The
    // view lasts until the stream is used again. n must be smaller than the window.
    std::string_view ahead(std::size_t n)
    {
        const auto unread = static_cast<std::size_t>(filled_ - cursor_);
        if (unread < n && (unread == 0 || std::memchr(cursor_, '\n', unread) == nullptr)) fill(n);
        n = std::min(n, static_cast<std::size_t>(filled_ - cursor_));
        const auto* newline = static_cast<const char*>(std::memchr(cursor_, '\n', n));
        return {cursor_, newline != nullptr ? static_cast<std::size_t>(newline - cursor_) : n};
    }

    // The whole rest of the line without its newline; false when the line is longer than `longest` or does not fit into
    // the window. Nothing is consumed. The view lasts until the stream is used again.
    bool whole_line(std::string_view& line, std::size_t longest = std::string_view::npos - 1);

    // Consumes n characters, which must be known to be in the window (seen through ahead or whole_line).
    void advance(std::size_t n) { cursor_ += n; }

    // Reads and discards up to and including the next newline.
    void skip_line();

    // Moves to the next character that is a "*" at the present position or at the beginning of a later line. Lines
    // without one of the initials may be passed by.
    void to_keyword(Initials wanted = Initials::all());

    // Why reading failed, in words; empty when it did not. After a failure the text reads as if the file ended there.
    // It is kept until the stream is opened again.
    [[nodiscard]] std::string failure() const;

private:
    static constexpr int became_shorter = -1;

    void start(std::size_t window);
    void begin_at(Position position);
    void fill(std::size_t wanted);
    std::size_t read(char* destination, Position position, std::size_t wanted);
    [[nodiscard]] char beyond(Position position) const;

    std::unique_ptr<char[]> window_;
    std::size_t capacity_ = 0;
    char* begin_ = nullptr;   // the window's first character
    char* cursor_ = nullptr;  // the next character
    char* filled_ = nullptr;  // behind the last character in the window
    Position base_ = 0;       // position of the window's first character
    Position size_ = 0;       // characters in the file
    std::size_t stride_ = 0;  // how much the next read takes: little after a jump, more as reading goes on
    bool newline_missing_ = false;
    TextSource* source_ = nullptr;
    TextSource own_;  // of a stream that was opened by name or on text
    const KeywordIndex* index_ = nullptr;
    KeywordIndex::Place found_;  // the keyword line that was found last
    Listener listener_ = nullptr;
    void* listener_context_ = nullptr;
    int failure_ = 0;  // errno, or became_shorter
};
