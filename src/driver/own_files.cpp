#include "driver/own_files.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>

#include "driver/system.h"

namespace
{
using Name = const std::filesystem::path::value_type*;

// Read by signal handlers.
std::array<std::atomic<Name>, 8> own_files{};
static_assert(std::atomic<Name>::is_always_lock_free);
}  // namespace

void remember_own(const std::filesystem::path& file)
{
    for (std::atomic<Name>& place : own_files) {
        Name empty = nullptr;
        if (place.compare_exchange_strong(empty, file.c_str())) return;
    }
}

void forget_own(const std::filesystem::path& file)
{
    for (std::atomic<Name>& place : own_files) {
        Name name = file.c_str();
        if (place.compare_exchange_strong(name, nullptr)) return;
    }
}

void remove_own_files()
{
    for (const std::atomic<Name>& file : own_files)
        if (const Name name = file.load(); name != nullptr) remove_file(name);
}

void end_without_memory()
{
    remove_own_files();
    std::fflush(stdout);
    std::fputs("morvex: there is not enough memory for this deck\n", stderr);
    std::_Exit(2);
}
