// A whole conversion, from the flags and the deck to every output file, with the program's window and with the
// smallest. What is written must not differ, and set and geometry file must be what their second derivation writes.
//
// The first thirteen bytes are the flags in the order of the control file, as digits; the rest is the deck.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "driver/faults.h"
#include "driver/file_names.h"
#include "driver/sections.h"
#include "fuzz.h"
#include "reader/keyword_copy.h"
#include "reader/run.h"
#include "support/convert.h"
#include "support/plain_bulk.h"

namespace
{
constexpr std::array<int*, 13> flags = {&cardflag, &setflag,  &geomflag, &defflag, &stndflag, &contflag, &icflag,
                                        &lcflag,   &tranflag, &amrflag,  &sphflag, &plotflag, &accelflag};

constexpr char deck_name[] = "model.k";
constexpr char terminal_name[] = "terminal";

constexpr std::size_t program_window = 262144;

// What one conversion leaves behind, in a fixed order.
using Files = std::vector<std::string>;

Files convert(std::string_view settings, std::size_t window)
{
    reset_run();
    stream_window = window;
    for (std::size_t i = 0; i < flags.size(); ++i) *flags[i] = settings[i] & 3;
    debflag = 1;
    expect(set_file_names(deck_name), "the deck's name");
    expect(std::freopen(terminal_name, "wb", stdout) != nullptr, "no terminal file");

    bool opened = outfile.open(debug_file_name) && infile_geom.open(file_names.deck, stream_window);
    if (accelflag == 1) opened = accelfile.open(accel_file_name) && opened;
    if (cardflag == 1) opened = inpfile.open(file_names.card) && opened;
    if (geomflag == 1) opened = geomfile.open(file_names.geom) && opened;
    if (setflag == 1) opened = setfile.open(file_names.sets) && opened;
    expect(opened, "a file that cannot be opened");
    keyword_writer();
    infile_geom.close();
    write_sections();
    for (OutputStream* const stream : {&inpfile, &geomfile, &setfile, &accelfile, &outfile}) stream->close();
    std::fflush(stdout);

    Files files;
    for (const char* const name : {static_cast<const char*>(file_names.card), static_cast<const char*>(file_names.geom),
                                   static_cast<const char*>(file_names.sets), accel_file_name, debug_file_name,
                                   keyword_copy_name, terminal_name}) {
        files.push_back(contents(name));
        std::filesystem::remove(name);
    }
    files.push_back(std::to_string(particle_count_position) + " " + std::to_string(counts.particles));
    return files;
}

// What a section's second derivation writes into the file.
std::string plain_file(void (*section)(), OutputStream& stream)
{
    reset_run();
    constexpr char name[] = "plain";
    expect(infile.open(deck_name, program_window) && stream.open(name), "a file that cannot be opened");
    section();
    infile.close();
    stream.close();
    std::string written = contents(name);
    std::filesystem::remove(name);
    return written;
}
}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    setenv("SOURCE_DATE_EPOCH", "1709640000", 1);  // the main deck carries the day of the run
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    if (input.size() < flags.size()) return 0;
    const std::string_view settings = input.substr(0, flags.size());
    const std::string_view deck = input.substr(flags.size());
    const TemporaryFolder folder;
    write_file(deck_name, deck);
    const Files files = convert(settings, program_window);
    const bool geometry_wanted = geomflag == 1;
    const bool sets_wanted = setflag == 1;
    if (geometry_wanted) expect(plain_file(plain_geometry_section, geomfile) == files[1], "another geometry file");
    if (sets_wanted) expect(plain_file(plain_set_section, setfile) == files[2], "another set file");
    expect(convert(settings, InputStream::smallest_window) == files, "the smallest window makes a difference");
    expect(contents(deck_name) == deck, "the deck was changed");
    expect(fault_status() == 0, "a fault");
    return 0;
}
