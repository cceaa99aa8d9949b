#include "driver/driver.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "driver/control_file.h"
#include "driver/conversion.h"
#include "driver/deck_file.h"
#include "driver/faults.h"
#include "driver/file_names.h"
#include "driver/outputs.h"
#include "driver/progress.h"
#include "driver/system.h"
#include "reader/run.h"

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

// Asks before an existing main deck is overwritten.
bool may_write_main_deck()
{
    if (state_of(path_of(file_names.card)).kind == FileState::Kind::missing) return true;
    std::printf("%s already exists, but will be overwritten with the current settings (cardflag=1). Do you wish to "
                "continue? (yes/no)\n",
                file_names.card);
    std::fflush(stdout);
    char answer[5] = "";
    if (std::scanf("%4s", answer) != 1) return false;
    return std::string_view(answer).starts_with("yes");  // sic: "yess" will do, "YES" will not
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

// The end of a run that converts nothing: the log, and with accelerometers their empty file, are there all the same.
int end_early(Outputs& outputs)
{
    outputs.finish();
    return fault_status();
}

// A deck that is not there is no fault; one that is there and cannot be read is.
int end_without_deck(const std::string& name, const DeckFile& deck, bool name_fits, Outputs& outputs)
{
    std::printf("There is no %s file\n", name.c_str());
    if (!name_fits)
        report_fault(control_file_name, "the name of the keyword deck is longer than 79 characters");
    else if (name.empty())
        tell(control_file_name, "it names no keyword deck");
    else if (deck.missing())
        tell(name, deck.failure());
    else
        report_fault(name, deck.failure());
    return end_early(outputs);
}

// Creates the outputs that come behind the question about the main deck, and writes all of them.
void write_outputs(const DeckFile& deck, Outputs& outputs)
{
    if (cardflag == 1) outputs.create(inpfile);
    if (geomflag == 1) outputs.create(geomfile);
    if (setflag == 1) outputs.create(setfile);
    outputs.create(keyword_of);
    convert_deck();
    if (deck.changed()) report_fault(file_names.deck, "it changed while it was being read");
    if (is_faulty(file_names.deck)) outputs.discard();
    outputs.finish();
}

// From the open deck and log to the summary.
int convert(const DeckFile& deck, Outputs& outputs)
{
    std::printf("Opening %s file\n", file_names.deck);
    begin_conversion();
    if (accelflag == 1) outputs.create(accelfile);
    if (cardflag == 1) {
        if (!may_write_main_deck()) {
            std::printf("exiting\n");
            return end_early(outputs);
        }
        if (outputs.collide()) {  // names may have become links while the question waited
            outputs.discard();
            return fault_status();
        }
    }
    write_outputs(deck, outputs);
    print_summary();
    return fault_status();
}

int run()
{
    std::printf("\nReading input file\n");
    const ControlFileRead read = readinputs(control_file_name);
    if (read.missing) return write_default_control_file();
    if (!read.failure.empty()) {
        report_fault(control_file_name, read.failure);
        return fault_status();
    }
    const std::string& name = read.control.sourcefile;
    take_settings(read.control);
    print_settings(read.control);

    Outputs outputs;
    DeckFile deck;
    const bool name_fits = set_file_names(name);
    if (name_fits && outputs.collide()) return fault_status();
    // opened before the debug log is created, which may be what the deck is called
    const bool opened = name_fits && deck.open();
    outputs.create(outfile);
    return opened ? convert(deck, outputs) : end_without_deck(name, deck, name_fits, outputs);
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

bool convert_here(const ControlFile& control)
{
    take_settings(control);
    Outputs outputs;
    DeckFile deck;
    if (!set_file_names(control.sourcefile)) {
        report_fault(control_file_name, "the name of the keyword deck is longer than 79 characters");
        return false;
    }
    if (outputs.collide()) return false;
    if (!deck.open()) {
        report_fault(control.sourcefile, deck.failure());
        return false;
    }
    outputs.create(outfile);
    begin_conversion();
    if (accelflag == 1) outputs.create(accelfile);
    write_outputs(deck, outputs);
    return fault_status() == 0;
}

int morvex(int argc, char* argv[])
{
    start_progress_clock();
    prepare_standard_streams();
    prepare_for_sudden_ends();
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
    return finish_standard_output(run());
}
