// Decks and expected lines for the tests of this folder.
#pragma once

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>

#include "controls/controls.h"
#include "support/cards.h"
#include "support/fresh_run.h"

// Lines by a format and its values.
[[gnu::format(printf, 1, 2)]] inline std::string line(const char* format, ...)
{
    char buffer[400];
    std::va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, values);
    va_end(values);
    EXPECT_LT(length, static_cast<int>(sizeof buffer));
    return buffer;
}

inline const std::string section_rule = "!------------------------------------------------\n";

// A banner as most sections have it, with its empty line.
inline std::string opening(const std::string& title)
{
    return section_rule + "! " + title + "\n" + section_rule + "\n";
}

// A deck of each kind: concise or comprehensive, alone or with a standards include file.
struct Flags {
    int defflag;
    int stndflag;
};
inline constexpr Flags all_flags[] = {{0, 0}, {0, 1}, {1, 0}, {1, 1}, {0, 2}, {1, 2}};

inline void set_flags(const Flags& flags)
{
    defflag = flags.defflag;
    stndflag = flags.stndflag;
}

// The first line that the pass logs for a block of this keyword with two empty cards; empty when it logs none.
inline std::string first_log_line(const Pass& pass, const std::string& keyword)
{
    return line_with(convert(pass, keyword + "\n\n\n*END\n").log, keyword);
}
