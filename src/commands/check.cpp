#include "check/check.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "check/formats.h"
#include "commands/commands.h"
#include "commands/settings.h"
#include "commands/whole_file.h"
#include "deck/fault.h"

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace commands
{
namespace
{
struct Arguments {
    std::string deck;
    std::vector<std::string> settings;
    std::string format = "text";
    std::string output;
    bool all = false;
    bool quiet = false;
    bool warnings_as_errors = false;
};

bool is_terminal()
{
#if __has_include(<unistd.h>)
    return isatty(STDOUT_FILENO) != 0;
#else
    return false;
#endif
}

int check_deck(const Arguments& arguments)
{
    check::Options options;
    options.settings = settings_of(arguments.settings);
    options.all = arguments.all || arguments.format != "text";
    const check::Result result = check::check_deck(arguments.deck, options);
    if (!arguments.quiet)
        write_whole(arguments.output, [&](std::ostream& stream) {
            if (arguments.format == "json")
                check::write_json(stream, result);
            else if (arguments.format == "sarif")
                check::write_sarif(stream, result);
            else
                check::write_text(stream, result,
                                  {.all = arguments.all, .colour = arguments.output.empty() && is_terminal()});
        });
    const check::Totals totals = check::totals(result);
    return totals.errors > 0 || (arguments.warnings_as_errors && totals.warnings > 0) ? found : clean;
}
}  // namespace

void add_check(CLI::App& program, int& status)
{
    CLI::App* const command = program.add_subcommand("check", "What morvex would lose or misread in a deck, and where");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("DECK", arguments->deck, "the keyword deck")->required();
    command->add_option("--set", arguments->settings, "a setting of input.morvex for this check, such as lcflag=1")
        ->type_name("NAME=VALUE")
        ->take_all();
    command->add_option("--format", arguments->format, "text, json or sarif")
        ->check(CLI::IsMember({"text", "json", "sarif"}));
    command->add_option("--output", arguments->output, "write to a file")->type_name("FILE");
    command->add_flag("--all", arguments->all, "show each finding, also when its code repeats in a block");
    command->add_flag("--quiet", arguments->quiet, "nothing but the exit status");
    command->add_flag("--warnings-as-errors", arguments->warnings_as_errors, "a warning gives status 1, too");
    command->callback([arguments, &status] { status = check_deck(*arguments); });
}
}  // namespace commands
