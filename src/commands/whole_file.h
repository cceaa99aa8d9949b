// Output files that are there whole or not at all.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>

namespace commands
{

// Writes a file beside its place and renames it when it is whole: a run that fails, or is killed, leaves what was there
// before. An empty path is standard output. Throws deck::Fault when it cannot be written.
void write_whole(const std::filesystem::path& path, const std::function<void(std::ostream&)>& write);

}  // namespace commands
