#include "support/process.h"

#include <sys/wait.h>

#include <cstdlib>

#include "support/convert.h"

namespace
{
const char* const epoch = "SOURCE_DATE_EPOCH=1709640000 ";  // 2024-03-05
}  // namespace

Outcome run_command(const std::string& command, const std::string& input)
{
    const TemporaryName folder;
    const std::string base = folder.path().string();
    write_file(base + "/in", input);
    const std::string line =
        std::string(epoch) + command + " <'" + base + "/in' >'" + base + "/out' 2>'" + base + "/err'";
    const int status = std::system(line.c_str());
    Outcome outcome;
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    outcome.out = contents(base + "/out");
    outcome.err = contents(base + "/err");
    return outcome;
}

namespace
{
// The command in that variable, or the program that was built with the tests.
std::string command(const char* variable, const char* built)
{
    const char* const given = std::getenv(variable);
    return given != nullptr ? given : built;
}

std::string variant()
{
    return command("MORVEX_TEST_VARIANT", MORVEX_VARIANT);
}
}  // namespace

std::string program()
{
    const char* const window = std::getenv("MORVEX_TEST_WINDOW");
    return window == nullptr ? command("MORVEX_TEST_PROGRAM", MORVEX_PROGRAM) : variant() + " " + window;
}
std::string tiny_window_program()
{
    return variant() + " 128";
}
