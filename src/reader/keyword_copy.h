// The keyword copy: the deck without the data lines of its node, element and set blocks.
#pragma once

// Writes the keyword copy to keyword_of from infile_geom, and notes where the keyword lines of deck and copy stand
// (deck_index, copy_index). Both streams are open; infile_geom is read once, from its beginning to its end.
void keyword_writer();

// Skips the data lines of a bulk block in infile_geom: it then stands on the next line that begins with "*".
void keyword_filter();
