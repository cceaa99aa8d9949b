#include "driver/output_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <system_error>

#include "driver/own_files.h"

namespace fs = std::filesystem;

namespace
{
constexpr std::string_view own_prefix = ".morvex-";

// ".morvex-", the process's number, "-" and a number: no other program's file, and never too long.
bool is_own_name(const fs::path& file)
{
    const fs::path last = file.filename();
    std::string plain;  // what is not plain ASCII stands in no such name
    for (const auto c : last.native()) plain += c > 0 && c < 0x7f ? static_cast<char>(c) : '?';
    std::string_view name = plain;
    if (!name.starts_with(own_prefix)) return false;
    name.remove_prefix(own_prefix.size());
    const std::size_t dash = name.find('-');
    if (dash == 0 || dash == std::string_view::npos || dash + 1 == name.size()) return false;
    return name.find_first_not_of("0123456789-") == std::string_view::npos &&
           name.find('-', dash + 1) == std::string_view::npos;
}
}  // namespace

void remove_leftovers(const fs::path& folder)
{
    std::error_code failed;
    fs::directory_iterator entry(folder, failed);
    for (; !failed && entry != fs::directory_iterator(); entry.increment(failed))
        if (is_own_name(entry->path())) remove_abandoned(entry->path());
}

bool OutputFile::create(const char* name)
{
    discard();
    failure_.clear();
    const fs::path path = path_of(name);
    target_ = target_of(path);
    folder_ = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
    const FileState there = state_of(target_);
    if (there.kind == FileState::Kind::missing && there.error != ENOENT) return fail(there.error);
    const bool in_own_file = there.kind == FileState::Kind::missing || there.kind == FileState::Kind::regular;
    if (!in_own_file) {
        file_ = open_file(path, "wb");
        return file_ != nullptr || fail(errno);
    }
    const bool replaces = there.kind == FileState::Kind::regular;
    if (const int error = replaces ? write_error(target_) : 0; error != 0) return fail(error);
    int error = 0;
    file_ = create_own(error);
    if (file_ != nullptr && replaces) dress_like(file_, there);
    if (file_ == nullptr && replaces) file_ = open_file(target_, "w+b");
    return file_ != nullptr || fail(error);
}

// A new file beside the target, under a name that nobody has.
std::FILE* OutputFile::create_own(int& error)
{
    constexpr int most_tries = 10'000;
    static int number = 0;
    const SignalsHeld held;
    for (int tries = 0; tries < most_tries; ++tries) {
        own_name_ =
            folder_ / (std::string(own_prefix) + std::to_string(process_number()) + "-" + std::to_string(++number));
        errno = 0;
        std::FILE* const file = create_locked(own_name_);
        if (file != nullptr) {
            remember_own(own_name_);
            return file;
        }
        error = errno;
        if (error != EEXIST) break;
    }
    own_name_.clear();
    return nullptr;
}

bool OutputFile::fail(int error)
{
    failure_ = std::strerror(error != 0 ? error : EIO);
    return false;
}

bool OutputFile::close()
{
    if (file_ == nullptr) return true;
    if (!own_name_.empty()) lock_.keep(file_);
    errno = 0;
    const bool closed = std::fclose(file_) == 0;
    const int error = errno;
    file_ = nullptr;
    if (closed) return true;
    discard();
    return fail(error);
}

bool OutputFile::put_in_place()
{
    if (!close()) return false;
    if (own_name_.empty()) return true;
    if (const int error = rename_over(own_name_, target_); error != 0) {
        discard();
        return fail(error);
    }
    forget_own(own_name_);
    own_name_.clear();
    lock_.release();
    return true;
}

void OutputFile::discard()
{
    if (file_ != nullptr) std::fclose(file_);
    file_ = nullptr;
    if (own_name_.empty()) return;
    remove_file(own_name_.c_str());
    forget_own(own_name_);
    own_name_.clear();
    lock_.release();
}
