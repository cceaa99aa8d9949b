// The sections of the output files in their fixed order.
#pragma once

// Runs the control pass and writes every section that the flags ask for, opening infile on copy_source or
// deck_source as each one needs it; closes it at the end.
void write_sections();

// "Included Files", the last section of the main deck.
void included_files();
