#include "commands/open_page.h"

#include <string>

#if __has_include(<spawn.h>) && __has_include(<unistd.h>)
#include <spawn.h>
#include <unistd.h>
#elif defined(_WIN32)
#include <windows.h>

#include <shellapi.h>
#endif

namespace commands
{

#if __has_include(<spawn.h>) && __has_include(<unistd.h>)

bool open_page(const std::filesystem::path& page)
{
#if defined(__APPLE__)
    std::string opener = "open";
#else
    std::string opener = "xdg-open";
#endif
    std::string name = page.string();
    char* const arguments[] = {opener.data(), name.data(), nullptr};
    pid_t process = 0;
    return posix_spawnp(&process, opener.c_str(), nullptr, nullptr, arguments, environ) == 0;
}

#elif defined(_WIN32)

bool open_page(const std::filesystem::path& page)
{
    return reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"open", page.c_str(), nullptr, nullptr, SW_SHOWNORMAL)) >
           32;
}

#else

bool open_page(const std::filesystem::path&)
{
    return false;
}

#endif

}  // namespace commands
