#include "prepare/prepare.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "check/formats.h"
#include "commands/commands.h"
#include "commands/preparation.h"
#include "commands/whole_file.h"
#include "deck/fault.h"
#include "reader/run.h"

namespace commands
{
namespace
{
namespace fs = std::filesystem;

struct Arguments {
    std::string deck;
    std::string output;
    std::string changes;
    bool origins = false;
    bool warnings_as_errors = false;
};

// ---- the changes as JSON -------------------------------------------------------------------------------------------

// The deck has what bytes it has; JSON is UTF-8.
std::string json(const nlohmann::ordered_json& value)
{
    return value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

class ChangesFile
{
public:
    ChangesFile(std::ostream& stream, const std::string& deck) : stream_(&stream)
    {
        char version[16];
        std::snprintf(version, sizeof version, "%5.3f", morvex_version);
        *stream_ << "{\n  \"schema\": 1,\n  \"tool\": \"morvex-deck prepare\",\n  \"version\": \"" << version
                 << "\",\n  \"deck\": " << json(fs::path(deck).filename().string()) << ",\n  \"changes\": [";
    }

    void add(const prepare::Change& change)
    {
        const nlohmann::ordered_json row = {{"code", change.code},      {"file", change.file},
                                            {"line", change.line},      {"line_in_output", change.line_in_output},
                                            {"before", change.before},  {"after", change.after},
                                            {"message", change.message}};
        *stream_ << (first_ ? "\n    " : ",\n    ") << json(row);
        first_ = false;
    }

    void finish(const prepare::Summary& summary)
    {
        *stream_ << (first_ ? "],\n" : "\n  ],\n") << "  \"not_carried\": [";
        bool first = true;
        for (const auto& [finding, others] : summary.not_carried) {
            const nlohmann::ordered_json row = {{"code", finding.code},       {"file", finding.place.file},
                                                {"line", finding.place.line}, {"column", finding.place.column},
                                                {"message", finding.message}, {"others_in_block", others}};
            *stream_ << (first ? "\n    " : ",\n    ") << json(row);
            first = false;
        }
        nlohmann::ordered_json totals = {{"changes", summary.changes}, {"by_code", nlohmann::ordered_json::object()}};
        for (const auto& [code, count] : summary.changes_by_code) totals["by_code"][code] = count;
        *stream_ << (first ? "],\n" : "\n  ],\n") << "  \"totals\": " << json(totals) << "\n}\n";
    }

private:
    std::ostream* stream_;
    bool first_ = true;
};

// ---- the command ---------------------------------------------------------------------------------------------------

std::string counted(std::size_t count, const char* one, const char* many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

void tell(const prepare::Summary& summary)
{
    for (const auto& [finding, others] : summary.not_carried)
        std::cerr << check::text_line(finding, others, false) << '\n';
    std::cerr << counted(summary.changes, "change", "changes");
    const char* between = " (";
    for (const auto& [code, count] : summary.changes_by_code) {
        std::cerr << between << code << ' ' << count;
        between = ", ";
    }
    std::cerr << (summary.changes_by_code.empty() ? "" : ")");
    if (!summary.not_carried.empty())
        std::cerr << "; " << counted(summary.not_carried.size(), "thing", "things") << " not carried";
    std::cerr << '\n';
}

void refuse_to_overwrite(const prepare::Preparation& preparation, const std::string& path)
{
    for (const deck::SourceFile& file : preparation.files()) {
        std::error_code ignored;
        if (!path.empty() && fs::equivalent(file.path, path, ignored))
            throw deck::Fault(path + ": it is a file of the deck");
    }
}

// Without a file the deck goes to standard output, but only when it is whole.
prepare::Summary write_deck(const prepare::Preparation& preparation, const Arguments& arguments,
                            const prepare::ChangeReport& report)
{
    prepare::Summary summary;
    const prepare::Options options{arguments.origins};
    if (!arguments.output.empty()) {
        write_whole(arguments.output,
                    [&](std::ostream& stream) { summary = preparation.write(stream, options, report); });
        return summary;
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), &std::fclose);
    if (file == nullptr) throw deck::Fault("a temporary file cannot be made");
    const std::string name = "/proc/self/fd/" + std::to_string(fileno(file.get()));
    std::fstream kept(name, std::ios::in | std::ios::out | std::ios::binary);
    summary = preparation.write(kept, options, report);
    kept.seekg(0);
    if (!kept) throw deck::Fault("a temporary file cannot be written");
    write_whole("", [&](std::ostream& stream) { stream << kept.rdbuf(); });
    return summary;
}

// Parameters that are defined twice; true when there are any.
bool tell_warnings(const prepare::Preparation& preparation)
{
    bool any = false;
    for (const deck::Problem& problem : preparation.problems()) {
        if (problem.severity != deck::Severity::warning) continue;
        std::cerr << deck::to_string(problem) << '\n';
        any = true;
    }
    return any;
}

int prepare_deck(const Arguments& arguments)
{
    const prepare::Preparation preparation = preparation_of(arguments.deck);
    refuse_to_overwrite(preparation, arguments.output);
    refuse_to_overwrite(preparation, arguments.changes);
    prepare::Summary summary;
    if (arguments.changes.empty()) {
        summary = write_deck(preparation, arguments, {});
    } else {
        write_whole(arguments.changes, [&](std::ostream& stream) {
            ChangesFile changes(stream, arguments.deck);
            summary = write_deck(preparation, arguments, [&](const prepare::Change& change) { changes.add(change); });
            changes.finish(summary);
        });
    }
    const bool warned = tell_warnings(preparation) && arguments.warnings_as_errors;
    tell(summary);
    return summary.not_carried.empty() && !warned ? clean : found;
}
}  // namespace

prepare::Preparation preparation_of(const std::string& deck)
{
    std::vector<deck::Problem> problems;
    try {
        return prepare::Preparation(deck, &problems);
    } catch (const deck::Fault&) {
        std::erase_if(problems, [](const deck::Problem& problem) { return !prepare::stops(problem); });
        if (problems.empty()) throw;
        for (std::size_t i = 0; i + 1 < problems.size(); ++i)
            std::cerr << "morvex-deck: " << deck::to_string(problems[i]) << '\n';
        throw deck::Fault(problems.back());
    }
}

void add_prepare(CLI::App& program, int& status)
{
    CLI::App* const command = program.add_subcommand("prepare", "Write the same model so that morvex reads all of it");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("DECK", arguments->deck, "the keyword deck")->required();
    command->add_option("-o,--output", arguments->output, "where the prepared deck goes (standard output)")
        ->type_name("FILE");
    command->add_option("--changes", arguments->changes, "writes every change as JSON")->type_name("FILE");
    command->add_flag("--origins", arguments->origins, "puts \"$ from FILE:LINE\" before each keyword line");
    command->add_flag("--warnings-as-errors", arguments->warnings_as_errors,
                      "ends with status 1 also when there are only warnings");
    command->callback([arguments, &status] { status = prepare_deck(*arguments); });
}
}  // namespace commands
