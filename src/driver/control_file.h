// The control file input.morvex: the deck's name and a value for each flag.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "reader/control_flags.h"

struct ControlFile {
    std::array<int, control_flags.size()> values{};  // in the order of control_flags
    std::string sourcefile;                          // the keyword deck's name
};

// The settings of a new control file.
ControlFile initial_settings();

// Gives a flag its value; false when none has this name.
bool set_flag(ControlFile& control, std::string_view name, int value);

// The text of a control file with these settings, explained for the user who edits it.
std::string control_file_text(const ControlFile& control);

// Sets the flags of the run; the debug log is always written.
void take_settings(const ControlFile& control);

// What became of reading a control file.
struct ControlFileRead {
    ControlFile control;
    bool missing = false;
    std::string failure;  // why it cannot be read, in words; empty when it was read
};

// The settings that the text of a control file gives: what it does not name is 0, or empty. What editors on other
// systems add (a byte order mark of UTF-8, a CR before each newline) is no part of the text; text in UTF-16 is refused,
// and nothing else.
ControlFileRead read_settings(std::string_view text);

// Reads the file, opening it once.
ControlFileRead readinputs(const char* name);

// Writes a control file for the user to edit, and returns why it could not be written, or nothing. What was there
// before stays unless all of it was written.
std::string writeinputs(const char* name, const ControlFile& control = initial_settings());
