// What prepare changes: one row for each rule.
#pragma once

#include <span>
#include <string_view>

namespace prepare
{

// A rule never guesses: where the meaning is not certain, it leaves the text alone.
struct Rule {
    std::string_view code;       // of the finding that it mends
    std::string_view looks_for;  // and
    std::string_view does;       // about it
    std::string_view file;       // where it is, without ".cpp"
};

std::span<const Rule> rules();

}  // namespace prepare
