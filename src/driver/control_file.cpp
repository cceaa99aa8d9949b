#include "driver/control_file.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string_view>
#include <system_error>

#include "driver/output_file.h"
#include "driver/system.h"
#include "reader/output_stream.h"

namespace
{
constexpr std::size_t longest_line = 199;  // a longer one goes on as the next line

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// True when the label, upper case, stands for the flag.
bool names(std::string_view label, const ControlFlag& flag)
{
    if (flag.whole_name && label.size() != flag.name.size()) return false;
    return label.size() >= flag.name.size() && std::equal(flag.name.begin(), flag.name.end(), label.begin(),
                                                          [](char lower, char c) { return upper(lower) == c; });
}

// Takes the text's first line up to and including its newline, or its first 199 characters; empty at its end.
std::string_view take_line(std::string_view& text)
{
    const std::string_view line = text.substr(0, std::min(text.find('\n'), longest_line - 1) + 1);
    text.remove_prefix(line.size());
    return line;
}

std::string without_blanks(std::string_view text)
{
    std::string kept(text);
    std::erase(kept, ' ');
    return kept;
}

bool is_space(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// As the "%i" conversion of the C library reads it, which keeps the low 32 bits of a number that is too large; the old
// value when there is no number. C libraries differ in "0x" without a digit behind it, which is 0, and in "0b1".
int read_flag(std::string_view value, int old)
{
    value.remove_prefix(
        static_cast<std::size_t>(std::find_if_not(value.begin(), value.end(), is_space) - value.begin()));
    const bool negative = value.starts_with('-');
    if (negative || value.starts_with('+')) value.remove_prefix(1);
    int base = value.starts_with('0') ? 8 : 10;
    const bool hexadecimal = value.starts_with("0x") || value.starts_with("0X");
    if (hexadecimal && value.size() > 2 && std::isxdigit(static_cast<unsigned char>(value[2])) != 0) {
        base = 16;
        value.remove_prefix(2);
    }
    std::uint64_t magnitude = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), magnitude, base);
    if (error == std::errc::invalid_argument) return old;
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    const std::uint64_t most = largest + (negative ? 1 : 0);
    if (error != std::errc{} || magnitude > most) magnitude = most;
    return static_cast<int>(static_cast<std::uint32_t>(negative ? 0 - magnitude : magnitude));
}

void read_setting(std::string_view line, ControlFile& control)
{
    const std::size_t colon = line.find_first_of(":\n!");
    if (colon == std::string_view::npos || line[colon] != ':') return;
    std::string label = without_blanks(line.substr(0, colon));
    std::transform(label.begin(), label.end(), label.begin(), upper);
    const std::string_view rest = line.substr(colon + 1);
    const std::string_view value = rest.substr(0, rest.find_first_of("\n!"));

    if (label.starts_with("SOURCEFILE")) {
        control.sourcefile = without_blanks(value);
        return;
    }
    for (std::size_t i = 0; i < control_flags.size(); ++i) {
        if (!names(label, control_flags[i])) continue;
        control.values[i] = read_flag(value, control.values[i]);
        return;
    }
}

// The text of the open file; `failure` tells why it could not be read.
std::string whole_text(std::FILE* file, std::string& failure)
{
    std::string text;
    char piece[4096];
    errno = 0;
    for (std::size_t n = 1; n > 0; text.append(piece, n)) n = std::fread(piece, 1, sizeof piece, file);
    if (std::ferror(file) != 0) failure = std::strerror(errno != 0 ? errno : EIO);
    return text;
}

// A byte order mark, or a first character of which one half is zero.
bool is_utf16(std::string_view text)
{
    if (text.size() < 2) return false;
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") || (text[0] == '\0') != (text[1] == '\0');
}

// The text without what editors on other systems add.
std::string as_written_here(std::string_view text)
{
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    std::string kept;
    kept.reserve(text.size());
    for (const char c : text) {
        if (c == '\n' && kept.ends_with('\r')) kept.pop_back();
        kept += c;
    }
    return kept;
}
}  // namespace

ControlFile initial_settings()
{
    ControlFile control;
    control.sourcefile = "kestrune.k";
    std::transform(control_flags.begin(), control_flags.end(), control.values.begin(),
                   [](const ControlFlag& flag) { return flag.initially; });
    return control;
}

ControlFileRead read_settings(std::string_view text)
{
    ControlFileRead result;
    if (is_utf16(text)) {
        result.failure = "it is written in UTF-16: save it as plain text or UTF-8";
        return result;
    }
    const std::string plain = as_written_here(text);
    for (std::string_view rest = plain; !rest.empty();) read_setting(take_line(rest), result.control);
    return result;
}

bool set_flag(ControlFile& control, std::string_view name, int value)
{
    for (std::size_t i = 0; i < control_flags.size(); ++i) {
        if (control_flags[i].name != name) continue;
        control.values[i] = value;
        return true;
    }
    return false;
}

std::string control_file_text(const ControlFile& control)
{
    std::string all;
    OutputStream file;
    file.open(all);
    text(file, "!-------------------------------------------------------------------------------\n");
    text(file, "! input.morvex\n");
    text(file, "!-------------------------------------------------------------------------------\n\n");
    print(file, " sourcefile   :  %10s\n\n", control.sourcefile.c_str());
    for (std::size_t i = 0; i < control_flags.size(); ++i) {
        const ControlFlag& flag = control_flags[i];
        print(file, " %-13s:  %i         !--- ", flag.name.data(), control.values[i]);
        text(file, flag.comment);
        text(file, "\n\n");
    }
    file.close();
    return all;
}

void take_settings(const ControlFile& control)
{
    for (std::size_t i = 0; i < control_flags.size(); ++i) *control_flags[i].variable = control.values[i];
    debflag = 1;
}

ControlFileRead readinputs(const char* name)
{
    ControlFileRead result;
    errno = 0;
    std::FILE* const file = open_file(name, "rb");
    if (file == nullptr) {
        result.missing = errno == ENOENT || errno == ELOOP || errno == ENOTDIR;
        result.failure = std::strerror(errno);
        return result;
    }
    const std::string text = whole_text(file, result.failure);
    std::fclose(file);
    return result.failure.empty() ? read_settings(text) : result;
}

std::string writeinputs(const char* name, const ControlFile& control)
{
    OutputFile output;
    if (!output.create(name)) return output.failure();
    OutputStream file;
    file.open(output.file());
    text(file, control_file_text(control));
    file.close();
    if (!file.failure().empty()) return file.failure();
    return output.put_in_place() ? std::string{} : output.failure();
}
