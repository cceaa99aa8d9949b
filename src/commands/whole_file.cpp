#include "commands/whole_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <system_error>

#include "deck/fault.h"

namespace fs = std::filesystem;

namespace commands
{
namespace
{
deck::Fault cannot_be_written(const std::string& name, int reason)
{
    return deck::Fault(name + ": " + (reason != 0 ? std::strerror(reason) : "it cannot be written"));
}

// A device or a pipe is written directly; of a link, the file that it leads to is replaced.
bool is_written_directly(const fs::path& path)
{
    std::error_code ignored;
    return fs::exists(path, ignored) && !fs::is_regular_file(path, ignored);
}

void write_directly(const fs::path& path, const std::function<void(std::ostream&)>& write)
{
    std::ofstream file(path, std::ios::binary);
    write(file);
    file.close();
    if (!file) throw cannot_be_written(path.string(), errno);
}
}  // namespace

void write_whole(const fs::path& path, const std::function<void(std::ostream&)>& write)
{
    errno = 0;
    if (path.empty()) {
        write(std::cout);
        if (!std::cout.flush()) throw cannot_be_written("standard output", errno);
        return;
    }
    if (is_written_directly(path)) return write_directly(path, write);

    std::error_code failed;
    fs::path target = fs::weakly_canonical(path, failed);
    if (failed) target = path;
    const fs::path own = target.string() + "." + std::to_string(std::random_device()()) + ".part";
    try {
        write_directly(own, write);
        if (fs::exists(target, failed)) fs::permissions(own, fs::status(target).permissions(), failed);
        fs::rename(own, target);
    } catch (const fs::filesystem_error& error) {
        fs::remove(own, failed);
        throw deck::Fault(path.string() + ": " + error.code().message());
    } catch (...) {
        fs::remove(own, failed);
        throw;
    }
}
}  // namespace commands
