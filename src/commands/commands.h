// The commands of morvex-deck.
#pragma once

namespace CLI
{
class App;
}

namespace commands
{

// Exit statuses of every command. A fault of the surroundings ends with `unusable`, and nothing half-written is left.
enum Status {
    clean = 0,    // nothing of severity error
    found = 1,    // at least one error (with --warnings-as-errors a warning, too)
    unusable = 2  // usage, or a file that could not be read or written
};

// Runs the program: one of the commands, as its arguments say.
int morvex_deck(int argc, char* argv[]);

// Each adds its command to the program; when the arguments choose it, it runs and sets the status.
void add_check(CLI::App& program, int& status);
void add_convert(CLI::App& program, int& status);
void add_explain(CLI::App& program, int& status);
void add_prepare(CLI::App& program, int& status);

}  // namespace commands
