// The control file input.morvex: the deck's name and thirteen switches.
#pragma once

#include <array>
#include <string>

struct ControlFile {
    static constexpr std::size_t flag_count = 13;

    // The flags in the order of the settings table: cardflag, setflag, geomflag, defflag, stndflag, contflag, icflag,
    // lcflag, tranflag, amrflag, sphflag, plotflag, accelflag. What the file does not name stays 0.
    std::array<int, flag_count> in{};
    std::string sourcefile;  // the keyword deck's name
};

// Reads the file; an unreadable one leaves everything 0 and empty. Never fails on what it holds.
ControlFile readinputs(const char* name);

// Writes a default file for the user to edit, and returns why it could not be written, or nothing. A file that could
// not be written whole is removed.
std::string writeinputs(const char* name);
