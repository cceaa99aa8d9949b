#include "reader/output_stream.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

bool OutputStream::open(const char* file_name)
{
    close();
    failure_ = 0;
    errno = 0;
    used_ = 0;
    written_ = 0;
    file_ = std::fopen(file_name, "wb");
    if (file_ == nullptr) {
        fail();
        return false;
    }
    std::setvbuf(file_, nullptr, _IONBF, 0);  // the buffer here is larger
    flush();
    return true;
}

void OutputStream::close()
{
    if (file_ == nullptr) return;
    flush();
    errno = 0;
    if (std::fclose(file_) != 0) fail();
    file_ = nullptr;
}

void OutputStream::fail()
{
    if (failure_ == 0) failure_ = errno != 0 ? errno : EIO;
}

std::string OutputStream::failure() const
{
    return failure_ == 0 ? std::string{} : std::strerror(failure_);
}

void OutputStream::flush()
{
    if (buffer_ == nullptr) buffer_ = std::make_unique_for_overwrite<char[]>(capacity);
    errno = 0;
    if (file_ != nullptr && failure_ == 0 && used_ > 0 && std::fwrite(buffer_.get(), 1, used_, file_) != used_) fail();
    written_ += used_;
    used_ = 0;
}

void OutputStream::append(std::string_view characters)
{
    if (file_ == nullptr) return;
    while (!characters.empty()) {
        if (used_ == capacity) flush();
        const std::size_t n = std::min(capacity - used_, characters.size());
        std::memcpy(buffer_.get() + used_, characters.data(), n);
        used_ += n;
        characters.remove_prefix(n);
    }
}

void OutputStream::print(const char* format, std::va_list values)
{
    if (file_ == nullptr) return;
    std::va_list again;
    va_copy(again, values);
    const int length = std::vsnprintf(buffer_.get() + used_, capacity - used_, format, values);
    if (length >= 0) {
        const auto n = static_cast<std::size_t>(length);
        if (n < capacity - used_) {
            used_ += n;
        } else {
            std::string line(n + 1, '\0');
            std::vsnprintf(line.data(), line.size(), format, again);
            line.pop_back();
            append(line);
        }
    }
    va_end(again);
}

void OutputStream::overwrite(std::uint64_t position, std::string_view characters)
{
    if (file_ == nullptr) return;
    flush();
    if (failure_ != 0) return;
    errno = 0;
    const bool done = std::fseek(file_, static_cast<long>(position), SEEK_SET) == 0 &&
                      std::fwrite(characters.data(), 1, characters.size(), file_) == characters.size() &&
                      std::fseek(file_, 0, SEEK_END) == 0;
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
