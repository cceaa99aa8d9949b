// A conversion, from open streams and set flags to finished ones, without a word about where they lead.
#pragma once

// Before it: the flags are set (take_settings), and the names (set_file_names); deck_source is open, so are outfile,
// keyword_of and the outputs that the flags ask for. A run that is not the first of its process begins with
// reset_run(). What is written comes from the deck alone, whether it is a file or text in memory.

// Writes the log's first line.
void begin_conversion();

// Writes the keyword copy, every section, the particle count and the log's last line. The outputs stay open: whoever
// opened them closes them, and sees whether they were written whole.
//
// A deck or a copy that cannot be read is told by report_fault; without a copy cardflag and accelflag are cleared,
// since main deck and accelerometers are made from it.
void convert_deck();
