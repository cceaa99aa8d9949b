// What a run needs of the operating system and the standard library does not have: system_posix.cpp and
// system_windows.cpp are its two halves, of which a build takes one.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string_view>

// ---- the process ---------------------------------------------------------------------------------------------------

// A process may be started with its standard streams closed. The files of the run would then take their places, and
// what is meant for the terminal would end up in them: so the places are filled first. What is written on standard
// output and error is the same bytes on every system, with UTF-8 on a console.
void prepare_standard_streams();

// A reader of standard output that goes away, or a limit on the size of files, is a failed write, not the end of the
// run. What ends the run from outside (a signal; the console's Ctrl+C or its closing) and a lack of memory remove the
// files that are still the run's own; a lack of memory is told in a line on standard error and by status 2.
void prepare_for_sudden_ends();

// While it lives, what ends the run from outside waits. They do not nest.
class SignalsHeld
{
public:
    SignalsHeld();
    ~SignalsHeld();
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;
};

// True when standard error is a terminal that goes back to a line's beginning at "\r".
bool progress_is_seen();

// The process's number, for names.
std::uint64_t process_number();

// ---- names ---------------------------------------------------------------------------------------------------------

// The path that a name in a control file stands for: its bytes; on Windows, UTF-8, or the system's code page where it
// is none.
std::filesystem::path path_of(std::string_view name);

// True when both names stand for one file of a folder: on Windows, capitals are not told from small letters.
bool same_name(const std::filesystem::path& a, const std::filesystem::path& b);

// The file that a name stands for, which need not be there yet: links are followed.
std::filesystem::path target_of(std::filesystem::path name);

// ---- files ---------------------------------------------------------------------------------------------------------
// Errors are numbers of errno.

struct FileState {
    enum class Kind { missing, regular, folder, other };

    Kind kind = Kind::missing;
    int error = 0;             // why nothing is known of it
    std::uint64_t device = 0;  // with number: which file it is
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t modified = 0;  // nanoseconds
    std::int64_t changed = 0;   // as are mode, owner and group, 0 where the system has none
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

// As fopen does; the mode has a "b".
std::FILE* open_file(const std::filesystem::path& file, const char* mode);

// Opens a file to read it without waiting for a writer; null and errno when that fails.
std::FILE* open_to_read(const std::filesystem::path& file);

// 0 when the file may be written to and replaced, else why not. It stays as it is.
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
    std::intptr_t handle_ = -1;
};

// Gives a new file the mode of another, and its owner and group as far as the user may. On Windows a file has the
// permissions of its folder.
void dress_like(std::FILE* file, const FileState& other);

// Gives a file another name in its folder, in place of the file that has it, if any; 0, or why that failed.
int rename_over(const std::filesystem::path& file, const std::filesystem::path& name);

// Removes a file, or does nothing when that fails; safe in a signal handler.
void remove_file(const std::filesystem::path::value_type* file);

// Removes a file that create_locked made, unless its run lives.
void remove_abandoned(const std::filesystem::path& file);

// While it lives, no other run puts files in place in this folder: waits for a second at most.
class FolderLock
{
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    std::intptr_t handle_ = -1;
};
