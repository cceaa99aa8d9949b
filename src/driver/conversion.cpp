#include "driver/conversion.h"

#include <string>

#include "controls/controls.h"
#include "driver/faults.h"
#include "driver/progress.h"
#include "driver/sections.h"
#include "reader/keyword_copy.h"
#include "reader/run.h"

namespace
{
void write_keyword_copy()
{
    infile_geom.open(deck_source, stream_window);
    {
        const Progress progress("keyword copy", infile_geom);
        keyword_writer();
    }
    if (const std::string failure = infile_geom.failure(); !failure.empty()) report_fault(file_names.deck, failure);
    infile_geom.close();
    if (keyword_of.read_back(copy_source)) return;
    const std::string failure = keyword_of.failure();
    report_fault(keyword_copy_name, failure.empty() ? "it cannot be read" : failure);
    cardflag = 0;  // the main deck and the accelerometers are made from the copy
    accelflag = 0;
}
}  // namespace

void begin_conversion()
{
    print(outfile, "Opening %s file\n", file_names.deck);
}

void convert_deck()
{
    write_keyword_copy();
    run_settings = {};
    edflag = 0;
    write_sections();
    rewrite_particle_count();
    text(outfile, "\n **************** FINISHED **************** \n");
}
