// An output of a run: the run's own until it is whole.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

#include "driver/system.h"

// Removes from a folder what runs that no longer live have left of their own files.
void remove_leftovers(const std::filesystem::path& folder);

// Beside its target stands a file of the run's own, which takes the target's name when it is whole; until then what was
// there before stays. A link is followed to its target, and a file that is there already keeps its mode and, as far as
// the user may give them, owner and group. A device or a FIFO is written directly; so is a file in a folder where no
// other one can be created.
class OutputFile
{
public:
    OutputFile() = default;
    ~OutputFile() { discard(); }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Creates the run's own file; false when that fails.
    bool create(const char* name);

    // The open file, to be written to and read back; null when there is none.
    [[nodiscard]] std::FILE* file() const { return file_; }

    // Closes the file, which is whole unless that fails, and removes it then.
    bool close();

    // Gives the closed file its name; false when that fails, and then removes it.
    bool put_in_place();

    // Removes the run's own file.
    void discard();

    // The folder of the target.
    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

    // Why the last step failed, in words.
    [[nodiscard]] const std::string& failure() const { return failure_; }

private:
    bool fail(int error);
    std::FILE* create_own(int& error);

    std::FILE* file_ = nullptr;
    FileLock lock_;  // of the closed file, until it has its name
    std::filesystem::path target_;
    std::filesystem::path folder_;
    std::filesystem::path own_name_;  // empty: written directly, or in place, or not there
    std::string failure_;
};
