// Lines that several sections write.
#pragma once

#include <string_view>

#include "reader/output_stream.h"

// The rule of banners: "!" and 48 dashes.
inline constexpr std::string_view rule = "!------------------------------------------------\n";

// The three lines that open a section; title is the text behind "! ".
void banner(OutputStream& stream, std::string_view title);
