// What a run needs of the operating system and the standard library does not have. Elsewhere than on POSIX systems the
// substitutes do without: no locks, no signals, coarser times.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

// ---- the process ---------------------------------------------------------------------------------------------------

// A process may be started with its standard streams closed. The files of the run would then take their places, and
// what is meant for the terminal would end up in them: so the places are filled first.
void fill_standard_streams();

// A reader of standard output that goes away, or a limit on the size of files, is a failed write, not the end of the
// run. A signal that ends the run, and a lack of memory, remove the files that are still the run's own; a lack of
// memory is told in a line on standard error and by status 2.
void prepare_for_sudden_ends();

// While it lives, the signals that end the run from the keyboard or by `kill` wait.
class SignalsHeld
{
public:
    SignalsHeld();
    ~SignalsHeld();
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;
};

// ---- files ---------------------------------------------------------------------------------------------------------

struct FileState {
    enum class Kind { missing, regular, folder, other };

    Kind kind = Kind::missing;
    int error = 0;             // why nothing is known of it
    std::uint64_t device = 0;  // with number: which file it is
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t modified = 0;  // nanoseconds
    std::int64_t changed = 0;
    unsigned mode = 0;
    unsigned owner = 0;
    unsigned group = 0;

    bool operator==(const FileState&) const = default;
    [[nodiscard]] bool same_file(const FileState& other) const
    {
        return kind != Kind::missing && other.kind != Kind::missing && device == other.device && number == other.number;
    }
};

FileState state_of(const std::filesystem::path& file);  // links are followed
FileState state_of(std::FILE* file);

// Opens a file to read it without waiting for a writer; null and errno when that fails.
std::FILE* open_to_read(const char* name);

// 0 when the file may be written to, else why not. It stays as it is.
int write_error(const std::filesystem::path& file);

// Creates a file that was not there, for writing and reading back, and locks it: so others see that its run lives. Null
// and errno when that fails.
std::FILE* create_locked(const std::filesystem::path& file);

// Keeps the lock of such a file when the file is closed.
class FileLock
{
public:
    FileLock() = default;
    ~FileLock() { release(); }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    void keep(std::FILE* file);
    void release();

private:
    int descriptor_ = -1;
};

// Gives a new file the mode of another, and its owner and group as far as the user may.
void dress_like(std::FILE* file, const FileState& other);

// Removes a file that create_locked made, unless its run lives.
void remove_abandoned(const std::filesystem::path& file);

// The process's number, for names.
long process_number();

// The files that are removed when the run ends suddenly; `file` must stay where it is until it is forgotten.
void remember_own(const std::string& file);
void forget_own(const std::string& file);

// While it lives, no other run puts files in place in this folder: waits for a second at most.
class FolderLock
{
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int folder_ = -1;
};
