#include "reader/output_stream.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "reader/file_position.h"
#include "reader/format.h"

bool OutputStream::open(const char* file_name)
{
    close();
    failure_ = 0;
    errno = 0;
    std::FILE* const file = std::fopen(file_name, "wb");
    if (file == nullptr) {
        fail();
        return false;
    }
    open(file);
    own_ = true;
    return true;
}

void OutputStream::open(std::FILE* file)
{
    start();
    file_ = file;
    std::setvbuf(file_, nullptr, _IONBF, 0);  // the buffer here is larger
}

void OutputStream::open(std::string& text)
{
    start();
    text_ = &text;
    text_->clear();
}

void OutputStream::open(Sink sink, void* context)
{
    start();
    sink_ = sink;
    sink_context_ = context;
}

// Closes what was open and begins anew, without a place to write to.
void OutputStream::start()
{
    close();
    failure_ = 0;
    used_ = 0;
    written_ = 0;
    make_room();
    open_ = true;
}

void OutputStream::close()
{
    if (!open_) return;
    flush();
    errno = 0;
    if (own_ && std::fclose(file_) != 0) fail();
    file_ = nullptr;
    text_ = nullptr;
    sink_ = nullptr;
    open_ = false;
    own_ = false;
}

bool OutputStream::read_back(TextSource& source)
{
    flush();
    if (failure_ != 0) return false;
    if (file_ != nullptr) return source.use(file_) && source.size() == written_;
    if (text_ == nullptr) return false;
    source.use(*text_);
    return true;
}

void OutputStream::fail()
{
    if (failure_ == 0) failure_ = errno != 0 ? errno : EIO;
}

std::string OutputStream::failure() const
{
    return failure_ == 0 ? std::string{} : std::strerror(failure_);
}

// Makes room for a row at least.
void OutputStream::make_room()
{
    if (buffer_ == nullptr) buffer_ = std::make_unique_for_overwrite<char[]>(capacity);
    if (used_ >= piece) write_out(piece);
}

void OutputStream::flush()
{
    write_out(used_);
}

// Delivers the buffer's first n characters.
void OutputStream::write_out(std::size_t n)
{
    if (n == 0) return;  // a stream that was never open has no buffer
    errno = 0;
    if (open_ && failure_ == 0 && !deliver(written_, {buffer_.get(), n})) fail();
    written_ += n;
    used_ -= n;
    std::memmove(buffer_.get(), buffer_.get() + n, used_);
}

// Writes characters behind all others, or at an earlier place where the file already stands.
bool OutputStream::deliver(std::uint64_t position, std::string_view characters)
{
    if (file_ != nullptr) return std::fwrite(characters.data(), 1, characters.size(), file_) == characters.size();
    if (text_ != nullptr) text_->replace(static_cast<std::size_t>(position), characters.size(), characters);
    if (sink_ != nullptr) sink_(sink_context_, position, characters);
    return true;
}

void OutputStream::append(std::string_view characters)
{
    if (!open_) return;
    while (!characters.empty()) {
        if (used_ == capacity) make_room();
        const std::size_t n = std::min(capacity - used_, characters.size());
        std::memcpy(buffer_.get() + used_, characters.data(), n);
        used_ += n;
        characters.remove_prefix(n);
    }
}

void OutputStream::print(const char* format, std::va_list values)
{
    if (!open_) return;
    std::va_list again;
    va_copy(again, values);
    const int length = format_values(buffer_.get() + used_, capacity - used_, format, values);
    if (length >= 0) {
        const auto n = static_cast<std::size_t>(length);
        if (n < capacity - used_) {
            used_ += n;
        } else {
            std::string line(n + 1, '\0');
            format_values(line.data(), line.size(), format, again);
            line.pop_back();
            append(line);
        }
    }
    va_end(again);
}

void OutputStream::overwrite(std::uint64_t position, std::string_view characters)
{
    if (!open_) return;
    flush();
    if (failure_ != 0) return;
    errno = 0;
    const bool done = (file_ == nullptr || seek_file(file_, static_cast<std::int64_t>(position), SEEK_SET) == 0) &&
                      deliver(position, characters) && (file_ == nullptr || seek_file(file_, 0, SEEK_END) == 0);
    if (!done) fail();
    written_ = std::max(written_, position + characters.size());
}

void print(OutputStream& stream, const char* format, ...)
{
    std::va_list values;
    va_start(values, format);
    stream.print(format, values);
    va_end(values);
}

void text(OutputStream& stream, std::string_view lines)
{
    stream.append(lines);
}
