#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "commands/commands.h"
#include "deck/fault.h"
#include "reader/run.h"

namespace commands
{
namespace
{
std::string version()
{
    char text[32];
    std::snprintf(text, sizeof text, "morvex-deck %5.3f", morvex_version);
    return text;
}

int complain(const std::string& line)
{
    std::fputs(("morvex-deck: " + line + "\n").c_str(), stderr);
    return unusable;
}
}  // namespace

int morvex_deck(int argc, char* argv[])
{
    CLI::App program("Tells what of a keyword deck morvex would lose or misread, and mends it.", "morvex-deck");
    program.set_version_flag("--version", version());
    program.require_subcommand(1);
    int status = clean;
    add_check(program, status);
    add_convert(program, status);
    add_explain(program, status);
    add_prepare(program, status);
    for (CLI::App* const command : program.get_subcommands({})) command->set_version_flag("--version", version());
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? clean : unusable;
    } catch (const deck::Fault& fault) {
        return complain(deck::to_string(fault.problem()));
    } catch (const std::bad_alloc&) {
        return complain("there is not enough memory");
    } catch (const std::exception& error) {
        return complain(error.what());
    }
    return status;
}
}  // namespace commands
