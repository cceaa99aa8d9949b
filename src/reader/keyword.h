// Finding keyword lines and skipping comment lines.
#pragma once

#include <string_view>

// Moves infile behind its next keyword line and loads that line into cbuffer. A "*" at the present position begins a
// keyword line also in mid-line.
void keyword();

// Given the character c just read from infile: when it is "$", skips to the first line that begins with another
// character. Returns that character and leaves it unread.
char comments(char c);

// Reads a character and passes it to comments: infile stands on the first character that is no comment's.
char skip_comments();

// True when the keyword line begins with the prefix.
bool keyword_is(std::string_view prefix);

// True when the keyword line, as it was kept, ends with the text: a blank or carriage return behind it makes it differ.
bool keyword_ends_in(std::string_view ending);
