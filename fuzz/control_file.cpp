// The control file and the names made from it, against a plain second reading.
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "driver/control_file.h"
#include "driver/file_names.h"
#include "fuzz.h"
#include "reader/run.h"

namespace
{
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
    for (std::size_t i = 0; i < control_flags.size(); ++i) {
        std::string name(control_flags[i].name);
        for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (name == "ICFLAG" ? label != name : label.compare(0, name.size(), name) != 0) continue;
        int number = 0;
        if (std::sscanf(value.c_str(), "%i", &number) == 1) control.values[i] = number;
        return;
    }
}

ControlFile read_plainly(std::string_view text)
{
    ControlFile control;
    std::string line;
    for (std::size_t at = text.starts_with("\xEF\xBB\xBF") ? 3 : 0; at < text.size(); ++at) {
        if (text.substr(at, 2) == "\r\n") continue;
        line += text[at];
        if (text[at] != '\n' && line.size() < 199) continue;
        read_plainly(line, control);
        line.clear();
    }
    if (!line.empty()) read_plainly(line, control);
    return control;
}

bool utf16_plainly(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return false;
    const int first = data[0] * 256 + data[1];
    return first == 0xFFFE || first == 0xFEFF || (first != 0 && (data[0] == 0 || data[1] == 0));
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
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const ControlFileRead read = read_settings(text);
    expect(read.failure.empty() != utf16_plainly(data, size), "a text in UTF-16 that is read, or another that is not");
    if (!read.failure.empty()) return 0;
    const ControlFile expected = read_plainly(text);
    expect(read.control.sourcefile == expected.sourcefile, "another deck name");
    expect(read.control.values == expected.values, "another flag");
    const ControlFile again = read_settings(control_file_text(expected)).control;
    expect(again.values == expected.values, "settings that do not survive their control file");
    check_names(expected.sourcefile);
    return 0;
}
