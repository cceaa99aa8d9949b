// Running a section, a pass or a handler on a deck that stands in the test.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "reader/pass.h"

// A folder of its own, removed with all that is in it at the end.
class TemporaryName
{
public:
    TemporaryName();
    ~TemporaryName();
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// The same, and the test runs inside it.
class TemporaryFolder : public TemporaryName
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

private:
    std::filesystem::path before_;
};

// What a section wrote.
struct Written {
    std::string deck;            // main deck
    std::string log;             // debug log
    std::string terminal;        // standard output
    std::string sets;            // set file
    std::string geometry;        // geometry file
    std::string accelerometers;  // accelerometer file
};

// Runs the procedure with infile at the beginning of the deck text and outputs in memory. Flags are the test's to set
// before; run settings and counts stay as they are, and can be looked at afterwards.
Written convert(void (*procedure)(), std::string_view deck);

// The same for one pass over the deck.
Written convert(const Pass& pass, std::string_view deck);

// The same for a handler: the deck's first keyword line is read first, as its pass does.
Written convert_block(void (*handler)(), std::string_view deck);

// How many lines of the text are exactly this, or begin with it.
std::size_t lines_equal(std::string_view text, std::string_view line);
std::size_t lines_with(std::string_view text, std::string_view beginning);

// The first line that begins so, without its newline; empty when there is none.
std::string line_with(std::string_view text, std::string_view beginning);

std::string contents(const std::filesystem::path& file);
void write_file(const std::filesystem::path& file, std::string_view text);
