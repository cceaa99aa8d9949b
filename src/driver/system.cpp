#include "driver/system.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <new>
#include <system_error>
#include <thread>

#if __has_include(<unistd.h>)
#define MORVEX_POSIX 1
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace
{
// Read by signal handlers: the files that go when the run ends suddenly.
std::array<std::atomic<const char*>, 8> own_files{};
static_assert(std::atomic<const char*>::is_always_lock_free);

void remove_own_files()
{
    for (const std::atomic<const char*>& file : own_files)
        if (const char* const name = file.load(); name != nullptr) std::remove(name);
}

[[noreturn]] void end_without_memory()
{
    remove_own_files();
    std::fflush(stdout);
    std::fputs("morvex: there is not enough memory for this deck\n", stderr);
    std::_Exit(2);
}
}  // namespace

void remember_own(const std::string& file)
{
    for (std::atomic<const char*>& place : own_files) {
        const char* empty = nullptr;
        if (place.compare_exchange_strong(empty, file.c_str())) return;
    }
}

void forget_own(const std::string& file)
{
    for (std::atomic<const char*>& place : own_files) {
        const char* name = file.c_str();
        if (place.compare_exchange_strong(name, nullptr)) return;
    }
}

#ifdef MORVEX_POSIX

namespace
{
constexpr std::array ending_signals = {SIGINT, SIGTERM, SIGHUP};

// Ends the process by the very signal, once its files are gone.
void end_by_signal(int number)
{
    for (const std::atomic<const char*>& file : own_files)
        if (const char* const name = file.load(); name != nullptr) unlink(name);
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

void fill_standard_streams()
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

FileState state_of(const std::filesystem::path& file)
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

std::FILE* open_to_read(const char* name)
{
    const int descriptor = open(name, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    return descriptor < 0 ? nullptr : fdopen(descriptor, "rb");
}

int write_error(const std::filesystem::path& file)
{
    const int descriptor = open(file.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return errno;
    close(descriptor);
    return 0;
}

std::FILE* create_locked(const std::filesystem::path& file)
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
    descriptor_ = fcntl(fileno(file), F_DUPFD_CLOEXEC, 0);
}

void FileLock::release()
{
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
}

void dress_like(std::FILE* file, const FileState& other)
{
    const FileState own = state_of(file);
    const int descriptor = fileno(file);
    if (own.group != other.group && fchown(descriptor, static_cast<uid_t>(-1), other.group) != 0) errno = 0;
    if (own.owner != other.owner && fchown(descriptor, other.owner, static_cast<gid_t>(-1)) != 0) errno = 0;
    if (own.mode != other.mode) fchmod(descriptor, other.mode);
}

void remove_abandoned(const std::filesystem::path& file)
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

long process_number()
{
    return getpid();
}

FolderLock::FolderLock(const std::filesystem::path& folder)
    : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    for (int tries = 0; folder_ >= 0 && tries < 100; ++tries) {
        if (flock(folder_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

FolderLock::~FolderLock()
{
    if (folder_ >= 0) close(folder_);
}

#else

void fill_standard_streams()
{
}

void prepare_for_sudden_ends()
{
    std::set_new_handler(end_without_memory);
}

SignalsHeld::SignalsHeld() = default;
SignalsHeld::~SignalsHeld() = default;

FileState state_of(const std::filesystem::path& file)
{
    namespace fs = std::filesystem;
    FileState state;
    std::error_code failed;
    const fs::file_status status = fs::status(file, failed);
    if (!fs::exists(status)) {
        state.error = ENOENT;
        return state;
    }
    state.kind = fs::is_regular_file(status) ? FileState::Kind::regular
                 : fs::is_directory(status)  ? FileState::Kind::folder
                                             : FileState::Kind::other;
    state.number = std::hash<std::string>{}(fs::weakly_canonical(fs::absolute(file, failed), failed).string());
    state.size = fs::file_size(file, failed);
    state.modified = fs::last_write_time(file, failed).time_since_epoch().count();
    return state;
}

FileState state_of(std::FILE*)
{
    return {};  // whoever compares it with another one of the same file finds no difference
}

std::FILE* open_to_read(const char* name)
{
    return std::fopen(name, "rb");
}

int write_error(const std::filesystem::path& file)
{
    std::FILE* const opened = std::fopen(file.string().c_str(), "ab");
    if (opened == nullptr) return errno;
    std::fclose(opened);
    return 0;
}

std::FILE* create_locked(const std::filesystem::path& file)
{
    return std::fopen(file.string().c_str(), "w+bx");
}

void FileLock::keep(std::FILE*)
{
}
void FileLock::release()
{
}
void dress_like(std::FILE*, const FileState&)
{
}
void remove_abandoned(const std::filesystem::path&)
{
}

long process_number()
{
    return static_cast<long>(std::chrono::steady_clock::now().time_since_epoch().count() % 1'000'000'000);
}

FolderLock::FolderLock(const std::filesystem::path&)
{
}
FolderLock::~FolderLock() = default;

#endif
