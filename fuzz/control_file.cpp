// The control file and the names made from it, against a plain second reading.
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "driver/control_file.h"
#include "driver/file_names.h"
#include "fuzz.h"
#include "reader/run.h"
#include "support/convert.h"

namespace
{
// In the order of their labels' comparison, which is the order of the flags.
struct Label {
    const char* name;
    bool whole;
};
constexpr std::array<Label, ControlFile::flag_count> labels = {{{"CARDFLAG", false},
                                                                {"SETFLAG", false},
                                                                {"GEOMFLAG", false},
                                                                {"DEFFLAG", false},
                                                                {"STNDFLAG", false},
                                                                {"CONTFLAG", false},
                                                                {"ICFLAG", true},
                                                                {"LCFLAG", false},
                                                                {"TRANFLAG", false},
                                                                {"AMRFLAG", false},
                                                                {"SPHFLAG", false},
                                                                {"PLOTFLAG", false},
                                                                {"ACCELFLAG", false}}};

void read_plainly(const std::string& line, ControlFile& control)
{
    std::string label;
    std::size_t at = 0;
    for (;; ++at) {
        if (at == line.size() || line[at] == '\n' || line[at] == '!') return;
        if (line[at] == ':') break;
        if (line[at] != ' ') label += static_cast<char>(std::toupper(static_cast<unsigned char>(line[at])));
    }
    std::string value;
    for (++at; at < line.size() && line[at] != '\n' && line[at] != '!'; ++at) value += line[at];
    if (label.compare(0, 10, "SOURCEFILE") == 0) {
        control.sourcefile.clear();
        for (const char c : value)
            if (c != ' ') control.sourcefile += c;
        return;
    }
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const std::string name = labels[i].name;
        if (labels[i].whole ? label != name : label.compare(0, name.size(), name) != 0) continue;
        int number = 0;
        if (std::sscanf(value.c_str(), "%i", &number) == 1) control.in[i] = number;
        return;
    }
}

ControlFile read_plainly(std::string_view text)
{
    ControlFile control;
    std::string line;
    for (const char c : text) {
        line += c;
        if (c != '\n' && line.size() < 199) continue;
        read_plainly(line, control);
        line.clear();
    }
    if (!line.empty()) read_plainly(line, control);
    return control;
}

std::string base_plainly(const std::string& name)
{
    const std::size_t n = name.size();
    if (n >= 2 && name[n - 2] == '.') return name.substr(0, n - 1);
    if (n >= 3 && name[n - 3] == '.') return name.substr(0, n - 2);
    if (n >= 4 && name[n - 4] == '.') return name.substr(0, n - 3);
    return name + '.';
}

void check_names(const std::string& deck)
{
    const std::string base = base_plainly(deck);
    expect(base_name(deck) == base, "base_name is wrong");
    const bool fits = set_file_names(deck);
    expect(fits == (deck.size() < 80), "set_file_names takes what it should not, or refuses what it should take");
    if (!fits || deck.find('\0') != std::string::npos) return;
    expect(file_names.deck == deck && file_names.card == base + "card" && file_names.geom == base + "geom" &&
               file_names.sets == base + "sets",
           "set_file_names makes wrong names");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TemporaryName folder;
    static const std::string name = (folder.path() / "control").string();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    write_file(name, text);
    const ControlFile control = readinputs(name.c_str());
    const ControlFile expected = read_plainly(text);
    expect(control.sourcefile == expected.sourcefile, "another deck name");
    expect(control.in == expected.in, "another flag");
    check_names(control.sourcefile);
    return 0;
}
