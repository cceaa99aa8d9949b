#include "commands/own_folder.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "deck/fault.h"

#if defined(__linux__)
#include <fcntl.h>
#endif

namespace fs = std::filesystem;

namespace commands
{
namespace
{
constexpr std::string_view own_mark = ".morvex-part-";  // behind the folder's name; then the process's number

[[noreturn]] void fail(const fs::path& path, const std::string& reason)
{
    throw deck::Fault(path.string() + ": " + reason);
}

void check_place(const fs::path& place, const std::function<bool(const fs::path&)>& replaceable)
{
    std::error_code failed;
    const fs::file_status there = fs::symlink_status(place, failed);
    if (there.type() == fs::file_type::not_found) return;
    if (there.type() == fs::file_type::none) fail(place, failed.message());
    if (there.type() == fs::file_type::symlink) fail(place, "it is a link, which is not replaced");
    if (there.type() != fs::file_type::directory) fail(place, "it is already there, and is no folder");
    if (!replaceable(place)) fail(place, "it is already there");
}

// Both names change places in one step, where the system can do that.
bool exchange(const fs::path& a, const fs::path& b)
{
#if defined(RENAME_EXCHANGE)
    return renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE) == 0;
#else
    static_cast<void>(a);
    static_cast<void>(b);
    return false;
#endif
}
}  // namespace

OwnFolder::OwnFolder(const fs::path& place, Replaceable replaceable)
    : place_(fs::absolute(place).lexically_normal()), replaceable_(std::move(replaceable))
{
    if (!place_.has_filename()) place_ = place_.parent_path();  // "folder/"
    const FolderLock lock(place_.parent_path());                // nobody takes what is just being made for a leftover
    check_place(place_, replaceable_);
    remove_leftovers();
    own_ = place_;
    own_ += std::string(own_mark) + std::to_string(process_number());
    std::error_code failed;
    if (!fs::create_directory(own_, failed)) {
        const fs::path tried = std::exchange(own_, {});
        fail(failed ? place_ : tried, failed ? failed.message() : "it is already there");
    }
    lock_.reset(create_locked(own_ / lock_name));
    if (lock_ == nullptr) {
        const std::string reason = std::strerror(errno);
        fs::remove_all(std::exchange(own_, {}), failed);
        fail(place_, reason);
    }
}

OwnFolder::~OwnFolder()
{
    std::error_code ignored;
    if (!own_.empty()) fs::remove_all(own_, ignored);
}

// A folder of a run that no longer lives has a lock that nobody holds, or none yet, or none any more.
void OwnFolder::remove_leftovers() const
{
    const std::string mark = place_.filename().string() + std::string(own_mark);
    std::error_code failed;
    fs::directory_iterator entry(place_.parent_path(), failed);
    for (; !failed && entry != fs::directory_iterator(); entry.increment(failed)) {
        if (!entry->path().filename().string().starts_with(mark)) continue;
        std::error_code ignored;
        remove_abandoned(entry->path() / lock_name);
        if (!fs::exists(entry->path() / lock_name, ignored)) fs::remove_all(entry->path(), ignored);
    }
}

void OwnFolder::put_in_place()
{
    const FolderLock lock(place_.parent_path());
    const SignalsHeld held;
    check_place(place_, replaceable_);
    std::error_code failed;
    lock_.reset();
    fs::remove(own_ / lock_name, failed);
    if (!exchange(own_, place_)) {
        fs::path before;
        if (fs::exists(place_, failed)) {
            before = place_;
            before += std::string(own_mark) + "before";
            fs::rename(place_, before, failed);
            if (failed) fail(place_, failed.message());
        }
        fs::rename(own_, place_, failed);
        if (failed) {
            const std::string reason = failed.message();
            if (!before.empty()) fs::rename(before, place_, failed);
            fail(place_, reason);
        }
        own_ = before;
    }
    if (!own_.empty()) fs::remove_all(std::exchange(own_, {}), failed);  // what was there before
}

}  // namespace commands
