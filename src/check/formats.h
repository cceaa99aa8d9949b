// Findings as text for people and editors, as JSON, and as SARIF.
#pragma once

#include <iosfwd>
#include <string_view>

#include "check/finding.h"

namespace check
{

struct TextOptions {
    bool all = false;     // each finding; otherwise one for each code, severity and block
    bool colour = false;  // of severities, for terminals
};

// "model.k:8:9: error: ... [MD101]", a line each, and the totals in a last line.
void write_text(std::ostream& stream, const Result& result, const TextOptions& options);

// One line of it, without its newline; `others` more of the code are in the block.
std::string text_line(const Finding& finding, std::size_t others, bool colour);

// "3 errors, 1 warning, 12 notes; 2 kinds of block not checked"
std::string totals_line(const Result& result);

void write_json(std::ostream& stream, const Result& result);   // our own, schema 1
void write_sarif(std::ostream& stream, const Result& result);  // version 2.1.0

// "note", "warning", "error"
std::string_view word(deck::Severity severity);

// What a code means, and what to do about it; empty when there is no such code.
std::string_view explanation(std::string_view code);

}  // namespace check
