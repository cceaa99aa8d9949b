#include "driver/system.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <new>
#include <system_error>
#include <thread>

#include "driver/own_files.h"

namespace fs = std::filesystem;

namespace
{
constexpr std::array ending_signals = {SIGINT, SIGTERM, SIGHUP};

// Ends the process by the very signal, once its files are gone.
void end_by_signal(int number)
{
    remove_own_files();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

sigset_t ending_set()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int number : ending_signals) sigaddset(&set, number);
    return set;
}

std::int64_t nanoseconds(const timespec& time)
{
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

FileState state_from(const struct stat& found)
{
    FileState state;
    state.kind = S_ISREG(found.st_mode)   ? FileState::Kind::regular
                 : S_ISDIR(found.st_mode) ? FileState::Kind::folder
                                          : FileState::Kind::other;
    state.device = found.st_dev;
    state.number = found.st_ino;
    state.size = static_cast<std::uint64_t>(found.st_size);
    state.modified = nanoseconds(found.st_mtim);
    state.changed = nanoseconds(found.st_ctim);
    state.mode = found.st_mode & 07777U;
    state.owner = found.st_uid;
    state.group = found.st_gid;
    return state;
}

FileState unknown_state()
{
    FileState state;
    state.error = errno;
    return state;
}
}  // namespace

void prepare_standard_streams()
{
    int place = open("/dev/null", O_RDWR);
    while (place >= 0 && place <= STDERR_FILENO) place = dup(place);
    if (place >= 0) close(place);
}

void prepare_for_sudden_ends()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const int number : ending_signals) {
        struct sigaction action {
        };
        if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;  // as nohup wants it
        action.sa_handler = end_by_signal;
        action.sa_mask = ending_set();
        sigaction(number, &action, nullptr);
    }
    std::set_new_handler(end_without_memory);
}

SignalsHeld::SignalsHeld()
{
    const sigset_t set = ending_set();
    sigprocmask(SIG_BLOCK, &set, nullptr);
}

SignalsHeld::~SignalsHeld()
{
    const sigset_t set = ending_set();
    sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

bool progress_is_seen()
{
    const char* const kind = std::getenv("TERM");
    return isatty(STDERR_FILENO) != 0 && kind != nullptr && std::string_view(kind) != "dumb";
}

std::uint64_t process_number()
{
    return static_cast<std::uint64_t>(getpid());
}

fs::path path_of(std::string_view name)
{
    return name;
}

bool same_name(const fs::path& a, const fs::path& b)
{
    return a == b;
}

fs::path target_of(fs::path name)
{
    constexpr int most_links = 40;
    std::error_code none;
    for (int links = 0; links < most_links; ++links) {
        const fs::path next = fs::read_symlink(name, none);
        if (none) break;
        name = name.parent_path() / next;
    }
    return name;
}

FileState state_of(const fs::path& file)
{
    struct stat found {
    };
    return stat(file.c_str(), &found) == 0 ? state_from(found) : unknown_state();
}

FileState state_of(std::FILE* file)
{
    struct stat found {
    };
    return fstat(fileno(file), &found) == 0 ? state_from(found) : unknown_state();
}

std::FILE* open_file(const fs::path& file, const char* mode)
{
    return std::fopen(file.c_str(), mode);
}

std::FILE* open_to_read(const fs::path& file)
{
    const int descriptor = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    return descriptor < 0 ? nullptr : fdopen(descriptor, "rb");
}

int write_error(const fs::path& file)
{
    const int descriptor = open(file.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return errno;
    close(descriptor);
    return 0;
}

std::FILE* create_locked(const fs::path& file)
{
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) return nullptr;
    flock(descriptor, LOCK_EX | LOCK_NB);  // where there are no locks, nobody takes the file for abandoned
    struct stat found {
    };
    if (fstat(descriptor, &found) != 0 || found.st_nlink == 0) {  // another run was quicker than the lock
        close(descriptor);
        errno = EEXIST;
        return nullptr;
    }
    return fdopen(descriptor, "w+b");
}

void FileLock::keep(std::FILE* file)
{
    release();
    handle_ = fcntl(fileno(file), F_DUPFD_CLOEXEC, 0);
}

void FileLock::release()
{
    if (handle_ >= 0) close(static_cast<int>(handle_));
    handle_ = -1;
}

void dress_like(std::FILE* file, const FileState& other)
{
    const FileState own = state_of(file);
    const int descriptor = fileno(file);
    if (own.group != other.group && fchown(descriptor, static_cast<uid_t>(-1), other.group) != 0) errno = 0;
    if (own.owner != other.owner && fchown(descriptor, other.owner, static_cast<gid_t>(-1)) != 0) errno = 0;
    if (own.mode != other.mode) fchmod(descriptor, other.mode);
}

int rename_over(const fs::path& file, const fs::path& name)
{
    std::error_code failed;
    fs::rename(file, name, failed);
    return failed.value();
}

void remove_file(const char* file)
{
    unlink(file);
}

void remove_abandoned(const fs::path& file)
{
    const int descriptor = open(file.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return;
    struct stat opened {
    };
    struct stat named {
    };
    const bool abandoned = flock(descriptor, LOCK_EX | LOCK_NB) == 0 && fstat(descriptor, &opened) == 0 &&
                           S_ISREG(opened.st_mode) && lstat(file.c_str(), &named) == 0 &&
                           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
    if (abandoned) unlink(file.c_str());
    close(descriptor);
}

FolderLock::FolderLock(const fs::path& folder) : handle_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    for (int tries = 0; handle_ >= 0 && tries < 100; ++tries) {
        if (flock(static_cast<int>(handle_), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

FolderLock::~FolderLock()
{
    if (handle_ >= 0) close(static_cast<int>(handle_));
}
