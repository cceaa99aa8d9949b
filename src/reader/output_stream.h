// The streams that decks, sets, meshes and the debug log are written to.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "reader/text_source.h"

// A file, a text in memory or anything else that takes characters, written through a buffer. Lines end with "\n" on
// every system. The first failure sticks: what is written after it is dropped, and the driver reports it at the end of
// the run.
class OutputStream
{
public:
    constexpr OutputStream() = default;
    ~OutputStream() { close(); }
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;

    // Creates the file, or empties it; false when that fails.
    bool open(const char* file_name);

    // Writes to a file that stands at its beginning, and that somebody else closes later.
    void open(std::FILE* file);

    // Writes to a text in memory, which is emptied first.
    void open(std::string& text);

    // Hands over the characters as the buffer fills, each piece with its position: those of overwrite stand at an
    // earlier one. A null sink drops them; position() counts all the same.
    using Sink = void (*)(void* context, std::uint64_t position, std::string_view characters);
    void open(Sink sink, void* context);

    // Writes out what is buffered and closes what open(name) has opened; failure() tells whether all was written.
    void close();
    [[nodiscard]] bool is_open() const { return open_; }

    // Opens the source on what has been written, through the file's own handle or in memory; the stream must not be
    // written to after that. False when it cannot be read back.
    bool read_back(TextSource& source);

    void append(std::string_view characters);

    // Room for n characters in the buffer, to be filled by the caller up to `end`, which commit takes. n is at most
    // largest_row.
    static constexpr std::size_t largest_row = 1024;
    char* room(std::size_t n)
    {
        if (buffer_ == nullptr || capacity - used_ < n) make_room();
        return buffer_.get() + used_;
    }
    void commit(const char* end) { used_ = static_cast<std::size_t>(end - buffer_.get()); }

    // Formats as printf does.
    [[gnu::format(printf, 2, 0)]] void print(const char* format, std::va_list values);

    // The characters written so far.
    [[nodiscard]] std::uint64_t position() const { return written_ + used_; }

    // Writes characters over those that stand at an earlier position, beyond the end where they reach it; what is
    // written next stands behind the end again.
    void overwrite(std::uint64_t position, std::string_view characters);

    // Why writing failed, in words; empty when it did not. It is kept until the stream is opened again.
    [[nodiscard]] std::string failure() const;

private:
    // Files are written in pieces of whole pages, which begin where a page begins: a system makes a new file's pages
    // for them in far less time than for pieces of any length.
    static constexpr std::size_t piece = 131072;
    static constexpr std::size_t capacity = piece + largest_row;

    void start();
    void make_room();
    void flush();
    void write_out(std::size_t n);
    bool deliver(std::uint64_t position, std::string_view characters);
    void fail();

    std::unique_ptr<char[]> buffer_;
    std::size_t used_ = 0;
    std::uint64_t written_ = 0;
    std::FILE* file_ = nullptr;
    std::string* text_ = nullptr;
    Sink sink_ = nullptr;
    void* sink_context_ = nullptr;
    bool open_ = false;
    bool own_ = false;  // the file is closed with the stream
    int failure_ = 0;   // errno
};

// Writes a line's values as printf does; the format is checked against the values when the program is compiled.
[[gnu::format(printf, 2, 3)]] void print(OutputStream& stream, const char* format, ...);

// Writes text as it stands, for lines without values: "%" is a character like any other.
void text(OutputStream& stream, std::string_view lines);
