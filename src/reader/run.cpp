#include "reader/run.h"

#include "reader/control_flags.h"

void reset_run()
{
    infile.close();
    infile_geom.close();
    for (OutputStream* stream : {&inpfile, &geomfile, &setfile, &accelfile, &outfile, &keyword_of}) stream->close();
    deck_source.close();
    copy_source.close();
    deck_index.clear();
    copy_index.clear();
    cbuffer[0] = '\0';
    file_names = {};
    for (const ControlFlag& flag : control_flags) *flag.variable = 0;
    debflag = 0;
    edflag = 0;
    run_settings = {};
    counts = {};
    particle_sections.reset();
    blast_segments.reset();
    particle_count_position = 0;
    faulty_files.clear();
}
