#include "reader/text_source.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "reader/file_position.h"

bool TextSource::open(const char* file_name)
{
    close();
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file_name, ignored)) return false;
    std::FILE* const file = std::fopen(file_name, "rb");
    if (file == nullptr) return false;
    std::setvbuf(file, nullptr, _IONBF, 0);  // the stream's window is the buffer
    const bool readable = use(file);
    if (!readable)
        std::fclose(file);
    else
        own_ = true;
    return readable;
}

bool TextSource::use(std::FILE* file)
{
    close();
    char last = '\n';
    bool readable = seek_file(file, 0, SEEK_END) == 0;
    const std::int64_t length = readable ? tell_file(file) : -1;
    readable = length >= 0;
    if (readable && length > 0)
        readable = seek_file(file, length - 1, SEEK_SET) == 0 && std::fread(&last, 1, 1, file) == 1;
    if (!readable) return false;
    file_ = file;
    size_ = static_cast<Position>(length);
    file_at_ = size_;
    newline_missing_ = last != '\n';
    open_ = true;
    return true;
}

void TextSource::use(std::string_view text)
{
    close();
    text_ = text;
    size_ = text.size();
    newline_missing_ = !text.empty() && text.back() != '\n';
    open_ = true;
}

void TextSource::close()
{
    if (own_) std::fclose(file_);
    file_ = nullptr;
    text_ = {};
    size_ = 0;
    newline_missing_ = false;
    open_ = false;
    own_ = false;
}

std::size_t TextSource::read(char* destination, Position position, std::size_t wanted, int& failure)
{
    if (position >= size_) return 0;
    const auto count = static_cast<std::size_t>(std::min<Position>(wanted, size_ - position));
    if (file_ == nullptr) return text_.copy(destination, count, static_cast<std::size_t>(position));
    std::size_t got = 0;
    errno = 0;
    if (file_at_ == position || seek_file(file_, static_cast<std::int64_t>(position), SEEK_SET) == 0)
        got = std::fread(destination, 1, count, file_);
    file_at_ = position + got;
    if (got < count) failure = errno;
    return got;
}
