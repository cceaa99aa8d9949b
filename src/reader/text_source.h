// Where the characters of an input stream come from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>

// A place in a text, in characters from its beginning.
using Position = std::uint64_t;

// A file or a text in memory, opened once and read from any place. Several input streams may read one source.
class TextSource
{
public:
    constexpr TextSource() = default;
    ~TextSource() { close(); }
    TextSource(const TextSource&) = delete;
    TextSource& operator=(const TextSource&) = delete;

    // Opens a regular file; false when there is none, or when it cannot be read.
    bool open(const char* file_name);

    // Reads a file that somebody else has opened for reading and closes later, with the length that it has now; false
    // when it cannot be read.
    bool use(std::FILE* file);

    // Reads text in memory, which must outlive the source's use of it.
    void use(std::string_view text);

    void close();
    [[nodiscard]] bool is_open() const { return open_; }
    [[nodiscard]] bool in_memory() const { return file_ == nullptr; }

    // The characters of the text, and whether its last line lacks its newline.
    [[nodiscard]] Position size() const { return size_; }
    [[nodiscard]] bool newline_missing() const { return newline_missing_; }

    // Copies up to `wanted` characters from the position on, and tells how many; fewer only at the text's end, or when
    // reading fails: then `failure` becomes the error's number, or stays 0 when the file has become shorter.
    std::size_t read(char* destination, Position position, std::size_t wanted, int& failure);

private:
    std::FILE* file_ = nullptr;
    std::string_view text_;
    Position size_ = 0;
    Position file_at_ = 0;  // where the file itself stands
    bool newline_missing_ = false;
    bool open_ = false;
    bool own_ = false;  // the file is closed with the source
};
