// Convert: prepare a deck, run the converter on it, account for everything and draw it, all in one folder.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "check/check.h"
#include "commands/commands.h"
#include "commands/open_page.h"
#include "commands/own_folder.h"
#include "commands/preparation.h"
#include "commands/settings.h"
#include "deck/deck_reader.h"
#include "deck/fault.h"
#include "driver/control_file.h"
#include "driver/driver.h"
#include "driver/file_names.h"
#include "driver/system.h"
#include "prepare/prepare.h"
#include "reader/observer.h"
#include "reader/run.h"
#include "report/account.h"
#include "report/conversion_surface.h"
#include "report/counter.h"
#include "report/ledger.h"
#include "report/make_ledger.h"
#include "report/page.h"

namespace commands
{
namespace
{
namespace fs = std::filesystem;

constexpr const char* ledger_name = "ledger.json";
constexpr const char* page_name = "report.html";

struct Arguments {
    std::string deck;
    std::string folder;
    std::vector<std::string> settings;
    bool as_it_is = false;
    bool force = false;
    bool open = false;
};

// ---- names ---------------------------------------------------------------------------------------------------------

// "model.k" becomes "model-kestrune"; it is made where the command runs.
fs::path default_folder(const fs::path& deck)
{
    const std::string base = base_name(deck.filename().string());
    return base.substr(0, base.size() - 1) + "-kestrune";
}

// The name that the deck has in the folder: its own, as far as a control file can hold it.
std::string name_in_folder(const fs::path& deck)
{
    ControlFile control = initial_settings();
    control.sourcefile = deck.filename().string();
    std::string name = read_settings(control_file_text(control)).control.sourcefile;
    const std::string_view taken[] = {control_file_name, ledger_name, page_name, OwnFolder::lock_name};
    if (name.empty()) throw deck::Fault(deck.string() + ": no control file can hold the deck's name");
    if (!set_file_names(name)) throw deck::Fault(deck.string() + ": the deck's name is longer than 79 characters");
    if (std::find(std::begin(taken), std::end(taken), name) != std::end(taken))
        throw deck::Fault(deck.string() + ": the folder needs the deck's name for something else");
    return name;
}

// A folder that this program made has a ledger that says so.
bool is_ours(const fs::path& folder)
{
    std::ifstream file(folder / ledger_name, std::ios::binary);
    std::string head(256, '\0');
    file.read(head.data(), static_cast<std::streamsize>(head.size()));
    return head.find(R"("tool": "morvex-deck convert")") != std::string::npos;
}

bool lies_in(const fs::path& file, const fs::path& folder)
{
    std::error_code failed;
    const fs::path inner = fs::weakly_canonical(file, failed);
    const fs::path outer = fs::weakly_canonical(folder, failed);
    return std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first == outer.end();
}

// No folder is replaced that holds what is read.
void refuse_own_input(const fs::path& input, const fs::path& folder)
{
    if (lies_in(input, folder)) throw deck::Fault(folder.string() + ": it holds a file of the deck, " + input.string());
}

// ---- settings ------------------------------------------------------------------------------------------------------

bool has_particles(const fs::path& deck)
{
    deck::DeckReader reader(deck, [](const deck::Problem&) {});
    while (reader.next_block())
        if (reader.block().keyword.name.starts_with("*ELEMENT_SPH")) return true;
    return false;
}

// Those of the control file beside the deck when that names it; else load curves are converted, too, and the particle
// section only where there are particles.
ControlFile settings_for(const Arguments& arguments, const fs::path& converted, const std::string& name)
{
    const fs::path deck = arguments.deck;
    ControlFile settings = check::settings_for(deck);
    if (fs::path(settings.sourcefile).filename() != deck.filename()) {
        set_flag(settings, "lcflag", 1);
        set_flag(settings, "sphflag", has_particles(converted) ? 1 : 0);
    }
    for (const auto& [flag, value] : settings_of(arguments.settings))
        if (!set_flag(settings, flag, value)) throw deck::Fault("there is no setting " + flag);
    settings.sourcefile = name;
    return settings;
}

// ---- words ---------------------------------------------------------------------------------------------------------

// A line for each thing that makes a conversion unusable.
void tell_why(const report::Ledger& ledger)
{
    constexpr std::size_t most = 8;
    const std::vector<std::string> reasons = report::disagreements(ledger);
    for (std::size_t i = 0; i < std::min(most, reasons.size()); ++i)
        std::cout << "  " << deck::in_one_line(reasons[i]) << '\n';
    if (reasons.size() > most) std::cout << "  and " << reasons.size() - most << " more: see " << ledger_name << '\n';
}

// "model-kestrune: converted with losses: 12 blocks converted, 2 skipped"
void tell(const report::Ledger& ledger, const fs::path& folder)
{
    constexpr const char* verdicts[] = {"converted whole", "converted with losses", "not usable"};
    std::cout << folder.string() << ": " << verdicts[static_cast<std::size_t>(report::verdict(ledger))];
    const report::Totals totals = report::totals(ledger);
    const char* between = ": ";
    for (std::size_t i = 0; i < std::size(totals.by_outcome); ++i) {
        if (totals.by_outcome[i] == 0) continue;
        std::cout << between << totals.by_outcome[i]
                  << (i == 0 ? totals.by_outcome[i] == 1 ? " block " : " blocks " : " ")
                  << report::words(static_cast<report::Outcome>(i));
        between = ", ";
    }
    std::cout << '\n';
    tell_why(ledger);
}

// ---- the steps -----------------------------------------------------------------------------------------------------

// What preparing has told, for the ledger.
struct Prepared {
    report::Origins origins;
    prepare::Summary summary;
    std::vector<deck::SourceFile> sources;
};

void write_file(const OwnFolder& folder, const std::string& name, const std::function<void(std::ostream&)>& write)
{
    errno = 0;
    std::ofstream file(folder.path() / name, std::ios::binary);
    try {
        file.exceptions(std::ios::badbit | std::ios::failbit);  // at once, while the reason is known
        write(file);
        file.close();
    } catch (const std::ios_base::failure&) {
        throw deck::Fault((folder.place() / name).string() + ": " +
                          (errno != 0 ? std::strerror(errno) : "it cannot be written"));
    }
}

Prepared write_deck(const Arguments& arguments, const OwnFolder& folder, const std::string& name)
{
    Prepared prepared;
    refuse_own_input(arguments.deck, folder.place());
    if (arguments.as_it_is) {
        std::error_code failed;
        fs::copy_file(arguments.deck, folder.path() / name, failed);
        if (failed) throw deck::Fault(arguments.deck + ": " + failed.message());
        return prepared;
    }
    const prepare::Preparation preparation = preparation_of(arguments.deck);
    prepared.sources = preparation.files();
    for (const deck::SourceFile& file : prepared.sources) refuse_own_input(file.path, folder.place());
    write_file(folder, name, [&](std::ostream& stream) {
        prepared.summary = preparation.write(stream, {.origin = prepared.origins.taker()});
    });
    return prepared;
}

// The converter works in the current folder.
class InFolder
{
public:
    explicit InFolder(const fs::path& folder) : before_(fs::current_path()) { fs::current_path(folder); }
    ~InFolder()
    {
        std::error_code ignored;
        fs::current_path(before_, ignored);
    }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

private:
    fs::path before_;
};

void run_converter(const OwnFolder& folder, const ControlFile& settings, report::Account& account)
{
    write_file(folder, control_file_name, [&](std::ostream& stream) { stream << control_file_text(settings); });
    const InFolder in(folder.path());
    OutputStream unheard;  // the findings say what the converter's warnings say, and where
    unheard.open(static_cast<OutputStream::Sink>(nullptr), nullptr);
    warnings = &unheard;
    reset_run();
    observer = &account;
    const bool whole = convert_here(settings);
    observer = nullptr;
    reset_run();
    warnings = nullptr;
    if (!whole) throw deck::Fault(folder.place().string() + ": the conversion failed");
}

report::Ledger ledger_of(const Arguments& arguments, const OwnFolder& folder, const ControlFile& settings,
                         const report::Account& account, const Prepared& prepared)
{
    report::Conversion conversion{arguments.deck, folder.path(), settings.sourcefile, settings};
    if (!arguments.as_it_is) {
        conversion.origins = &prepared.origins;
        conversion.not_carried = &prepared.summary.not_carried;
        conversion.sources = &prepared.sources;
    }
    report::Ledger ledger = report::make_ledger(account, conversion);
    ledger.in = report::count_deck(folder.path() / settings.sourcefile);
    ledger.out = report::count_written(folder.path(), settings.sourcefile);
    return ledger;
}

void write_report(const report::Ledger& ledger, const OwnFolder& folder)
{
    const report::Surface surface = report::surface_of_conversion(folder.path(), ledger);
    write_file(folder, page_name,
               [&](std::ostream& stream) { report::write_page(stream, ledger, surface, folder.path()); });
}

int convert_deck(const Arguments& arguments)
{
    prepare_for_sudden_ends();
    const fs::path deck = arguments.deck;
    const std::string name = name_in_folder(deck);
    OwnFolder folder(arguments.folder.empty() ? default_folder(deck) : fs::path(arguments.folder),
                     [&](const fs::path& place) { return arguments.force && is_ours(place); });
    report::Ledger ledger;
    {
        const Prepared prepared = write_deck(arguments, folder, name);
        const ControlFile settings = settings_for(arguments, folder.path() / name, name);
        report::Account account;
        run_converter(folder, settings, account);
        ledger = ledger_of(arguments, folder, settings, account, prepared);
    }
    ledger.faults = report::faults(ledger, folder.path(), arguments.deck, false);
    write_file(folder, ledger_name, [&](std::ostream& stream) { report::write_json(stream, ledger); });
    write_report(ledger, folder);
    folder.put_in_place();
    tell(ledger, arguments.folder.empty() ? default_folder(deck) : fs::path(arguments.folder));
    if (arguments.open && !open_page(folder.place() / page_name))
        std::cerr << "morvex-deck: nothing opens " << (folder.place() / page_name).string() << '\n';
    return report::verdict(ledger) == report::Verdict::whole ? clean : found;
}
}  // namespace

void add_convert(CLI::App& program, int& status)
{
    CLI::App* const command =
        program.add_subcommand("convert", "Prepare, run morvex, account for everything, draw it: one folder");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("DECK", arguments->deck, "the keyword deck")->required();
    command->add_option("-d,--folder", arguments->folder, "the folder to make (the deck's base name and -kestrune)")
        ->type_name("FOLDER");
    command->add_option("--set", arguments->settings, "a setting of input.morvex, such as tranflag=1")
        ->type_name("NAME=VALUE")
        ->take_all();
    command->add_flag("--no-prepare", arguments->as_it_is, "convert the deck as it stands");
    command->add_flag("--force", arguments->force, "replace a folder that this command made");
    command->add_flag("--open", arguments->open, "show the report when it is there");
    command->callback([arguments, &status] { status = convert_deck(*arguments); });
}
}  // namespace commands
