// Files as lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace deck
{

// A file's place in the list of a deck's files: 0 is the main deck. A file that is included twice has two numbers.
using FileNumber = std::uint32_t;

// One line as it stands. The view lasts until the next line is read.
struct Line {
    std::string_view text;         // without CR and newline
    FileNumber file = 0;           //
    std::size_t number = 0;        // from 1
    bool carriage_return = false;  // one CR stood before the newline, at the file's end, or in the newline's place
    bool newline = true;           // false in a last line without one, and in a file whose lines end in CR alone
};

// True for a line that is a comment: it begins with "$".
inline bool is_comment(std::string_view text)
{
    return !text.empty() && text.front() == '$';
}

// What ends the lines of a file: newlines, as the converter reads; or carriage returns in a file without newlines.
enum class LineEnds { newlines, as_meant };

// The longest line that is read; in a longer one the file cannot be read (it is no deck).
inline constexpr std::size_t longest_line = 1 << 20;

// Reads a regular file line by line, with a buffer of some hundred kilobytes. It can be closed and goes on later
// where it was, so that a deep tree of files needs one open file only.
class LineFile
{
public:
    // Throws Fault when there is no such file, it is no regular file, or it cannot be opened or read.
    explicit LineFile(std::filesystem::path path, LineEnds ends = LineEnds::newlines);
    ~LineFile();
    LineFile(LineFile&&) noexcept;
    LineFile& operator=(LineFile&&) noexcept;
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;

    // The next line, but for its file number; false at the end. Throws Fault when reading fails or a line is too long.
    bool next(Line& line);

    // Looks at the next line's first character without reading it: -1 at the end.
    int peek();

    // Closes the file and frees the buffer; next() opens it again.
    void suspend();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    // The lines that have been read so far.
    [[nodiscard]] std::size_t lines_read() const { return lines_; }

private:
    struct Open;
    void open();
    bool fill();
    void find_line_end(std::string_view beginning);

    std::filesystem::path path_;
    std::uint64_t offset_ = 0;  // of the next line
    std::size_t lines_ = 0;     // that have been read
    LineEnds ends_;
    char line_end_ = '\n';
    std::unique_ptr<Open> open_;
};

}  // namespace deck
