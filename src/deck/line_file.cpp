#include "deck/line_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <system_error>
#include <utility>
#include <vector>

#include <sys/stat.h>

#include "deck/fault.h"

namespace deck
{

namespace
{
constexpr std::size_t piece = std::size_t{1} << 17;

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

[[noreturn]] void fail(const std::filesystem::path& path, const std::string& why)
{
    Place place;
    place.file = path.string();
    throw Fault(problem_at(std::move(place), {}, "cannot be read: " + why));
}
}  // namespace

// What is there while the file is open. The unread text is buffer[begin, end).
struct LineFile::Open {
    std::unique_ptr<std::FILE, Close> file;
    std::vector<char> buffer;
    std::size_t begin = 0;
    std::size_t end = 0;
    bool at_end = false;
};

LineFile::LineFile(std::filesystem::path path, LineEnds ends) : path_(std::move(path)), ends_(ends)
{
    open();
}

LineFile::~LineFile() = default;
LineFile::LineFile(LineFile&&) noexcept = default;
LineFile& LineFile::operator=(LineFile&&) noexcept = default;

void LineFile::open()
{
    struct stat status {
    };
    if (::stat(path_.c_str(), &status) != 0) fail(path_, std::generic_category().message(errno));
    if (!S_ISREG(status.st_mode)) fail(path_, "not a regular file");
    auto open = std::make_unique<Open>();
    open->file.reset(std::fopen(path_.c_str(), "rb"));
    if (!open->file) fail(path_, std::generic_category().message(errno));
    std::setvbuf(open->file.get(), nullptr, _IONBF, 0);  // the pieces are large
    if (offset_ != 0 && ::fseeko(open->file.get(), static_cast<off_t>(offset_), SEEK_SET) != 0)
        fail(path_, std::generic_category().message(errno));
    open_ = std::move(open);
}

// Reads more of the file behind the unread text, which moves to the buffer's begin; false at the file's end.
bool LineFile::fill()
{
    Open& o = *open_;
    if (o.at_end) return false;
    if (o.begin > 0) std::memmove(o.buffer.data(), o.buffer.data() + o.begin, o.end - o.begin);
    o.end -= std::exchange(o.begin, 0);
    if (o.buffer.size() - o.end < piece) o.buffer.resize(o.end + piece);
    errno = 0;
    const std::size_t count = std::fread(o.buffer.data() + o.end, 1, o.buffer.size() - o.end, o.file.get());
    if (count == 0 && std::ferror(o.file.get()) != 0) fail(path_, std::generic_category().message(errno));
    if (ends_ == LineEnds::as_meant && offset_ == 0 && o.end == 0) find_line_end({o.buffer.data(), count});
    o.end += count;
    o.at_end = count == 0;
    return count > 0;
}

// By what the file begins with.
void LineFile::find_line_end(std::string_view beginning)
{
    const bool newlines = beginning.find('\n') != std::string_view::npos;
    line_end_ = newlines || beginning.find('\r') == std::string_view::npos ? '\n' : '\r';
}

bool LineFile::next(Line& line)
{
    if (!open_) open();
    Open& o = *open_;
    std::size_t searched = 0;
    const char* newline = nullptr;
    do {
        const char* const unread = o.buffer.data() + o.begin;
        const std::size_t length = o.end - o.begin;
        if (length > searched)
            newline = static_cast<const char*>(std::memchr(unread + searched, line_end_, length - searched));
        searched = length;
        if (newline == nullptr && length > longest_line)
            fail(path_, "line " + std::to_string(lines_ + 1) + " is longer than " + std::to_string(longest_line) +
                            " characters");
    } while (newline == nullptr && fill());

    const char* const text = o.buffer.data() + o.begin;
    std::size_t length = o.end - o.begin;
    if (newline != nullptr) length = static_cast<std::size_t>(newline - text);
    if (newline == nullptr && length == 0) return false;
    const std::size_t taken = length + (newline != nullptr ? 1 : 0);
    o.begin += taken;
    offset_ += taken;
    line.number = ++lines_;
    line.newline = newline != nullptr && line_end_ == '\n';
    line.carriage_return = line_end_ == '\r' ? newline != nullptr : length > 0 && text[length - 1] == '\r';
    line.text = std::string_view(text, length - (line.carriage_return && line_end_ == '\n' ? 1 : 0));
    return true;
}

int LineFile::peek()
{
    if (!open_) open();
    if (open_->begin == open_->end && !fill()) return -1;
    return static_cast<unsigned char>(open_->buffer[open_->begin]);
}

void LineFile::suspend()
{
    open_.reset();
}

}  // namespace deck
