#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "check/formats.h"
#include "commands/commands.h"
#include "deck/fault.h"
#include "deck/keyword_line.h"

namespace commands
{
void add_explain(CLI::App& program, int& status)
{
    CLI::App* const command = program.add_subcommand("explain", "What a finding means, and what to do about it");
    const auto code = std::make_shared<std::string>();
    command->add_option("CODE", *code, "the code of a finding, such as MD101")->required();
    command->callback([code, &status] {
        const std::string_view text = check::explanation(deck::to_upper(*code));
        if (text.empty()) throw deck::Fault("there is no finding " + *code);
        std::cout << text << '\n' << std::flush;
        if (!std::cout) throw deck::Fault("standard output: it cannot be written");
        status = clean;
    });
}
}  // namespace commands
