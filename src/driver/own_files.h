// The run's own files, which go when the run ends suddenly.
#pragma once

#include <filesystem>

// Files that are removed when the run ends suddenly; `file` must stay where it is until it is forgotten.
void remember_own(const std::filesystem::path& file);
void forget_own(const std::filesystem::path& file);

// For signal handlers: removes them all.
void remove_own_files();

// Removes them, tells of the lack of memory on standard error and ends the process with status 2.
[[noreturn]] void end_without_memory();
