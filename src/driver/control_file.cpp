#include "driver/control_file.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "reader/output_stream.h"

namespace
{
constexpr std::size_t longest_line = 199;  // a longer one goes on as the next line

struct Flag {
    std::string_view label;  // compared over its length
    std::string_view name;   // as the default file writes it, padded to its column
    int value;               // in the default file
    std::string_view comment;
};

constexpr Flag flags[ControlFile::flag_count] = {
    {"CARDFLAG", " cardflag     :  ", 1, "         !--- .card file switch 0=don't print, 1=print\n\n"},
    {"SETFLAG", " setflag      :  ", 1, "         !--- .set file switch 0=don't print, 1=print\n\n"},
    {"GEOMFLAG", " geomflag     :  ", 1, "         !--- .geom file switch 0=don't print, 1=print\n\n"},
    {"DEFFLAG", " defflag      :  ", 0,
     "         !--- input deck defaults switch 0=concise output, 1=comprehensive output\n\n"},
    {"STNDFLAG", " stndflag     :  ", 0,
     "         !--- 0=don't use standards file; 1=use orts standards file; 2=use zel standards file\n\n"},
    {"CONTFLAG", " contflag     :  ", 1,
     "         !--- contact section switch 0=don't print, 1=print, 2=print using auto contact to tied node conversion "
     "funtionality\n\n"},
    {"ICFLAG", " icflag       :  ", 1, "         !--- initial conditions section 0=don't print, 1=print\n\n"},
    {"LCFLAG", " lcflag       :  ", 0, "         !--- load curve section 0=don't print, 1=print\n\n"},
    {"TRANFLAG", " tranflag     :  ", 0, "         !--- transformation section 0=don't print, 1=print\n\n"},
    {"AMRFLAG", " amrflag      :  ", 0, "         !--- amr section 0=don't print, 1=print\n\n"},
    {"SPHFLAG", " sphflag      :  ", 1, "         !--- sph section 0=don't print, 1=print\n\n"},
    {"PLOTFLAG", " plotflag     :  ", 1, "         !--- plot section 0=don't print, 1=print\n\n"},
    {"ACCELFLAG", " accelflag    :  ", 0,
     "         !--- plot section 0=don't use accelerometer functionality, 1=convert locally defined coordinate systems "
     "to accelerometer keywords\n\n"},
};

bool names(std::string_view label, const Flag& flag)
{
    if (flag.label == "ICFLAG") return label == flag.label;  // sic: the only one that must match to its end
    return label.starts_with(flag.label);
}

// The line up to and including its newline, or its first 199 characters; empty at the end of the file.
std::string read_line(std::istream& file)
{
    std::string line;
    for (char c = 0; line.size() < longest_line && file.get(c);) {
        line += c;
        if (c == '\n') break;
    }
    return line;
}

std::string without_blanks(std::string_view text)
{
    std::string kept(text);
    std::erase(kept, ' ');
    return kept;
}

// As the "%i" conversion of the C library reads it, which keeps the low 32 bits of a number that is too large; the old
// value when there is no number.
int read_flag(std::string value, int old)
{
    // Newer C libraries read "0b1" as binary. A "b" is a digit behind "0x" alone; anywhere else the number ends at it.
    if (const std::size_t b = value.find_first_of("bB"); b < value.find_first_of("xX")) value.resize(b);
    char* end = nullptr;
    const long long number = std::strtoll(value.c_str(), &end, 0);
    return end == value.c_str() ? old : static_cast<int>(static_cast<std::uint32_t>(number));
}

void read_setting(std::string_view line, ControlFile& control)
{
    const std::size_t colon = line.find_first_of(":\n!");
    if (colon == std::string_view::npos || line[colon] != ':') return;
    std::string label = without_blanks(line.substr(0, colon));
    std::transform(label.begin(), label.end(), label.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    std::string_view rest = line.substr(colon + 1);
    std::string value(rest.substr(0, rest.find_first_of("\n!")));

    if (label.starts_with("SOURCEFILE")) {
        control.sourcefile = without_blanks(value);
        return;
    }
    const auto* flag = std::find_if(std::begin(flags), std::end(flags), [&](const Flag& f) { return names(label, f); });
    if (flag == std::end(flags)) return;
    int& slot = control.in[static_cast<std::size_t>(flag - flags)];
    slot = read_flag(std::move(value), slot);
}
}  // namespace

ControlFile readinputs(const char* name)
{
    ControlFile control;
    std::ifstream file(name, std::ios::binary);
    for (std::string line = read_line(file); !line.empty(); line = read_line(file)) read_setting(line, control);
    return control;
}

std::string writeinputs(const char* name)
{
    OutputStream file;
    if (!file.open(name)) return file.failure();
    text(file, "!-------------------------------------------------------------------------------\n");
    text(file, "! input.morvex\n");
    text(file, "!-------------------------------------------------------------------------------\n\n");
    print(file, " sourcefile   :  %10s\n\n", "kestrune.k");
    for (const Flag& flag : flags) {
        text(file, flag.name);
        print(file, "%i", flag.value);
        text(file, flag.comment);
    }
    file.close();
    if (!file.failure().empty()) {
        std::error_code ignored;  // what a link leads to is removed, and the link stays
        std::filesystem::remove(std::filesystem::canonical(name, ignored), ignored);
    }
    return file.failure();
}
