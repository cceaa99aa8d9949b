// The conversion driver: from the control file to the summary.
#pragma once

#include "driver/control_file.h"
#include "reader/pass.h"

// Runs the program in the current folder and returns its exit status: 0; 1 after writing a default control file; 2 when
// a file could not be read or written as it should.
int morvex(int argc, char* argv[]);

// Converts a deck in the current folder with these settings, as the program does with a control file of them, but says
// nothing on standard output and asks nothing. True when every output that was asked for is there and whole; each fault
// is told on standard error. A run that is not the first of its process begins with reset_run().
bool convert_here(const ControlFile& control);

// Keywords of families that no section knows are logged as skipped; for docs and tests.
extern const Pass unhandled_keywords;
