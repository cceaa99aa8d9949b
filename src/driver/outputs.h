// The outputs of a run, from their creation to their names.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "driver/output_file.h"
#include "reader/run.h"

// An output that the run may write: its stream, its name, and the flag that a failure clears.
struct Output {
    ~Output() { stream.close(); }

    OutputStream& stream;
    const char* name;
    int* flag;  // null: the keyword copy, which no flag asks for
    OutputFile file{};
};

// All of them. What is not finished when this goes away leaves what was there before the run.
class Outputs
{
public:
    // Tells of each output that is the deck, the control file or another output, by its name or through a link; true
    // when there is one: nothing may be written then.
    [[nodiscard]] bool collide() const;

    // Creates an output and opens its stream; the first one in a folder removes what killed runs have left there. When
    // that fails the fault is told, and the run goes on without it: its flag is cleared, but for that of the
    // accelerometers, whose name the main deck carries all the same.
    void create(const OutputStream& stream);

    // Closes every output and gives those that are whole their names; one that is not leaves what was there before, its
    // fault is told, and its flag cleared.
    void finish();

    // Leaves everything as it was before the run, and clears the flags.
    void discard();

private:
    static void fail(Output& output, const std::string& reason);

    std::vector<std::filesystem::path> folders_;  // those without leftovers

    // In the order in which they take their names: what the main deck includes before it, and the log last of all, so
    // that a log with its last line stands beside a whole set of files.
    std::array<Output, 6> all_{{{setfile, file_names.sets, &setflag},
                                {geomfile, file_names.geom, &geomflag},
                                {accelfile, accel_file_name, &accelflag},
                                {keyword_of, keyword_copy_name, nullptr},
                                {inpfile, file_names.card, &cardflag},
                                {outfile, debug_file_name, &debflag}}};
};
