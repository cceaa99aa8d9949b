// The conversion driver: from the control file to the summary.
#pragma once

#include "reader/pass.h"

// Runs the program in the current folder and returns its exit status: 0; 1 after writing a default control file; 2 when
// a file could not be read or written as it should.
int morvex(int argc, char* argv[]);

// Keywords of families that no section knows are logged as skipped; for docs and tests.
extern const Pass unhandled_keywords;
