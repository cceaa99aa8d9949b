#include "driver/driver.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "driver/control_file.h"
#include "driver/conversion.h"
#include "driver/faults.h"
#include "driver/file_names.h"
#include "driver/progress.h"
#include "reader/run.h"

namespace fs = std::filesystem;

namespace
{
constexpr char help[] =
    "Usage: morvex\n"
    "Converts a model in the LS-DYNA keyword format to an input deck for the Kestrune solver.\n"
    "\n"
    "morvex runs in the current folder and takes its settings from the control file input.morvex there;\n"
    "when there is none, it writes one with default settings to be edited, and ends with status 1.\n"
    "\n"
    "  -h, --help     show this text and exit\n"
    "  -V, --version  show the version and exit\n"
    "\n"
    "Exit status: 0 converted (or nothing to do), 1 default control file written, 2 a file could not be\n"
    "read or written.\n";

// ---- the process ---------------------------------------------------------------------------------------------------

// A process may be started with its standard streams closed. The files of the run would then take their places, and
// what is meant for the terminal would end up in them: so the places are filled first.
void fill_standard_streams()
{
    static std::FILE* kept[3];  // open until the process ends
    for (std::FILE*& stream : kept) stream = std::fopen("/dev/null", "r+");
}

// A reader of standard output that goes away, or a limit on the size of files, is a failed write, not the end of the
// run.
void take_signals_as_errors()
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

// ---- settings ------------------------------------------------------------------------------------------------------

// The settings as the terminal shows them, once they are taken.
void print_settings(const ControlFile& control)
{
    if (comprehensive()) std::printf("Printing comprehensive input deck\n");
    if (defflag == 0) std::printf("Printing concise input deck\n");
    std::printf("\n%10s", "sourcefile");
    for (const ControlFlag& flag : control_flags) std::printf("%10s", flag.name.data());
    std::printf("\n%10s", control.sourcefile.c_str());
    for (const int value : control.values) std::printf("%10i", value);
    std::printf("\n\n");
}

// ---- files ---------------------------------------------------------------------------------------------------------

// The files that this run would create.
std::vector<const char*> outputs()
{
    std::vector<const char*> names = {debug_file_name, keyword_copy_name};
    if (accelflag == 1) names.push_back(accel_file_name);
    if (cardflag == 1) names.push_back(file_names.card);
    if (geomflag == 1) names.push_back(file_names.geom);
    if (setflag == 1) names.push_back(file_names.sets);
    return names;
}

// The file that a name stands for, which need not be there yet: links are followed.
fs::path target(fs::path name)
{
    std::error_code failed;
    for (int links = 0; links < 40 && fs::is_symlink(name, failed); ++links)
        name = name.parent_path() / fs::read_symlink(name, failed);
    const fs::path absolute = fs::absolute(name, failed);
    const fs::path whole = fs::weakly_canonical(absolute, failed);
    return failed ? absolute : whole;
}

// True when both names stand for one file. A device may take several outputs.
bool same_file(const char* a, const char* b)
{
    std::error_code ignored;
    if (fs::exists(a, ignored) || fs::exists(b, ignored))
        return fs::is_regular_file(a, ignored) && fs::equivalent(a, b, ignored);
    return target(a) == target(b);
}

// True when an output is the deck, the control file or another output, by its name or through a link: nothing is
// written then.
bool outputs_collide()
{
    std::error_code ignored;
    const std::vector<const char*> names = outputs();
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (const char* input : {static_cast<const char*>(file_names.deck), control_file_name})
            if (fs::exists(input, ignored) && same_file(names[i], input))
                report_fault(names[i], std::string("the run would write over its own input ") + input);
        for (std::size_t j = 0; j < i; ++j)
            if (same_file(names[i], names[j]))
                report_fault(names[i], std::string("it is the same file as ") + names[j]);
    }
    return fault_status() != 0;
}

// Creates an output; when that fails the run goes on without it.
void create(OutputStream& stream, const char* name, int* flag = nullptr)
{
    if (stream.open(name)) return;
    report_fault(name, stream.failure());
    if (flag != nullptr) *flag = 0;
}

// Closes an output; the flag of one that was not written whole is cleared.
void finish(OutputStream& stream, const char* name, int& flag)
{
    stream.close();
    if (stream.failure().empty()) return;
    report_fault(name, stream.failure());
    flag = 0;
}

// Asks before an existing main deck is overwritten.
bool may_write_main_deck()
{
    std::error_code ignored;
    if (!fs::exists(file_names.card, ignored)) return true;
    std::printf("%s already exists, but will be overwritten with the current settings (cardflag=1). Do you wish to "
                "continue? (yes/no)\n",
                file_names.card);
    std::fflush(stdout);
    char answer[5] = "";
    if (std::scanf("%4s", answer) != 1) return false;
    return std::string_view(answer).starts_with("yes");  // sic: "yess" will do, "YES" will not
}

// What tells whether the deck is still the one that was opened: it is read more than once.
using DeckState = std::pair<std::uintmax_t, fs::file_time_type>;

DeckState deck_state()
{
    std::error_code ignored;
    return {fs::file_size(file_names.deck, ignored), fs::last_write_time(file_names.deck, ignored)};
}

// ---- the end of the run --------------------------------------------------------------------------------------------

void finish_files()
{
    finish(inpfile, file_names.card, cardflag);
    finish(geomfile, file_names.geom, geomflag);
    finish(setfile, file_names.sets, setflag);
    finish(accelfile, accel_file_name, accelflag);
    keyword_of.close();
    finish(outfile, debug_file_name, debflag);
}

// Names what was written; a file that could not be written whole has lost its flag.
void print_summary()
{
    std::printf("\nThe following output files were generated:\n");
    if (cardflag == 1) std::printf("Kestrune main input file : %s\n", file_names.card);
    if (geomflag == 1) std::printf("Kestrune geometry file   : %s\n", file_names.geom);
    if (setflag == 1) std::printf("Kestrune set file        : %s\n", file_names.sets);
    if (accelflag == 1) std::printf("Kestrune accelerometer file :%s\n", "  accel_def.kinc");
    if (debflag == 1) std::printf("Debug file               : %s\n", "debug.morvex");
    std::printf("\n **************** FINISHED **************** \n\n");
}

// ---- the run -------------------------------------------------------------------------------------------------------

int write_default_control_file()
{
    std::printf("\nError: %s file does not exit . . . creating new %s . . .\n", control_file_name, control_file_name);
    if (const std::string failure = writeinputs(control_file_name); !failure.empty()) {
        report_fault(control_file_name, failure);
        return fault_status();
    }
    std::printf("Please modify %s file as needed and rerun morvex\n", control_file_name);
    return 1;
}

// The end of a run that converts nothing.
int end_early()
{
    finish(outfile, debug_file_name, debflag);
    return fault_status();
}

int convert()
{
    std::printf("\nReading input file\n");
    const ControlFileRead read = readinputs(control_file_name);
    if (read.missing) return write_default_control_file();
    if (!read.failure.empty()) {
        report_fault(control_file_name, read.failure);
        return fault_status();
    }
    const ControlFile& control = read.control;
    take_settings(control);
    print_settings(control);

    const bool name_fits = set_file_names(control.sourcefile);
    if (!name_fits) report_fault(control_file_name, "the name of the keyword deck is longer than 79 characters");
    if (name_fits && outputs_collide()) return fault_status();
    // asked before the debug log is created, which may be what the deck is called
    const bool deck_exists = name_fits && deck_source.open(file_names.deck);
    create(outfile, debug_file_name, &debflag);
    if (!deck_exists) {
        std::printf("There is no %s file\n", control.sourcefile.c_str());
        return end_early();
    }
    const DeckState deck = deck_state();
    std::printf("Opening %s file\n", file_names.deck);
    begin_conversion();
    if (accelflag == 1) create(accelfile, accel_file_name);
    if (cardflag == 1) {
        if (!may_write_main_deck()) {
            std::printf("exiting\n");
            return end_early();
        }
        create(inpfile, file_names.card, &cardflag);
    }
    if (geomflag == 1) create(geomfile, file_names.geom, &geomflag);
    if (setflag == 1) create(setfile, file_names.sets, &setflag);
    keyword_of.open(keyword_copy_name, "w+b");
    convert_deck();
    if (deck_state() != deck) report_fault(file_names.deck, "it changed while it was being read");
    finish_files();
    print_summary();
    return fault_status();
}

// Standard output is buffered: that it could not be written may show only now.
int finish_standard_output(int status)
{
    errno = 0;
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    report_fault("standard output", std::strerror(errno != 0 ? errno : EIO));
    return fault_status();
}
}  // namespace

int morvex(int argc, char* argv[])
{
    start_progress_clock();
    fill_standard_streams();
    take_signals_as_errors();
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        const bool asks_for_help = argument == "-h" || argument == "--help";
        if (asks_for_help || argument == "-V" || argument == "--version") {
            if (asks_for_help)
                std::fputs(help, stdout);
            else
                std::printf("morvex %5.3f\n", morvex_version);
            return finish_standard_output(0);
        }
    }
    if (argc > 1) std::fputs("morvex: arguments are not used: the settings come from input.morvex\n", stderr);
    return finish_standard_output(convert());
}
