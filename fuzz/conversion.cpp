// A whole conversion in memory, from the flags and the deck to every output, against a second one: with the smallest
// window, in which nothing may differ, or, where the first digit is 4 or more, against the second derivation of set and
// geometry file.
//
// The first thirteen bytes are the flags in the order of the control file, as digits; the rest is the deck.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "driver/control_file.h"
#include "driver/conversion.h"
#include "driver/faults.h"
#include "driver/file_names.h"
#include "fuzz.h"
#include "reader/run.h"
#include "support/plain_bulk.h"

namespace
{
constexpr std::size_t program_window = 8192;  // holds a whole deck, as the program's does, and is quickly had

// What one conversion leaves behind.
struct Outputs {
    std::string card, geometry, sets, accelerometers, log, copy, warnings;
    std::uint64_t particle_count_position = 0;
    int particles = 0;

    bool operator==(const Outputs&) const = default;
};

void convert(std::string_view settings, std::string_view deck, std::size_t window, Outputs& outputs)
{
    static OutputStream collected;
    reset_run();
    stream_window = window;
    for (std::size_t i = 0; i < control_flags.size(); ++i) *control_flags[i].variable = settings[i] & 3;
    debflag = 1;
    expect(set_file_names("model.k"), "the deck's name");
    for (std::string* const text : {&outputs.card, &outputs.geometry, &outputs.sets, &outputs.accelerometers})
        text->clear();  // of what the flags leave out
    outfile.open(outputs.log);
    keyword_of.open(outputs.copy);
    if (cardflag == 1) inpfile.open(outputs.card);
    if (geomflag == 1) geomfile.open(outputs.geometry);
    if (setflag == 1) setfile.open(outputs.sets);
    if (accelflag == 1) accelfile.open(outputs.accelerometers);
    collected.open(outputs.warnings);
    warnings = &collected;
    deck_source.use(deck);
    begin_conversion();
    convert_deck();
    for (OutputStream* const stream : {&outfile, &keyword_of, &inpfile, &geomfile, &setfile, &accelfile, &collected})
        stream->close();
    outputs.particle_count_position = particle_count_position;
    outputs.particles = counts.particles;
}

// What a section's second derivation writes.
const std::string& plainly(void (*section)(), OutputStream& stream, std::string_view deck)
{
    static std::string written;
    reset_run();
    infile.open_text(deck, program_window);
    stream.open(written);
    section();
    infile.close();
    stream.close();
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
    static Outputs outputs;
    static Outputs others;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    if (input.size() < control_flags.size()) return 0;
    const std::string_view settings = input.substr(0, control_flags.size());
    const std::string_view deck = input.substr(control_flags.size());
    convert(settings, deck, program_window, outputs);
    if ((settings.front() & 4) != 0) {
        const bool geometry_wanted = geomflag == 1;
        const bool sets_wanted = setflag == 1;
        if (geometry_wanted)
            expect(plainly(plain_geometry_section, geomfile, deck) == outputs.geometry, "another geometry file");
        if (sets_wanted) expect(plainly(plain_set_section, setfile, deck) == outputs.sets, "another set file");
    } else {
        convert(settings, deck, InputStream::smallest_window, others);
        expect(others == outputs, "the smallest window makes a difference");
    }
    expect(fault_status() == 0, "a fault");
    return 0;
}
