// Passes: one scan of infile with an ordered table of keyword prefixes; the first row that matches acts.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "reader/debug_log.h"

enum class Treatment { converted, skipped, passed_over, end_of_pass };

// What a row does with its keyword: how it is treated, what runs for it, and the name of the handler, for people.
struct Action {
    Treatment treatment;
    void (*run)() = nullptr;
    std::string_view procedure = {};
};

// A procedure's name as the compiler knows it, without the namespaces that it stands in.
template <auto procedure>
constexpr std::string_view procedure_name()
{
    // "... [with auto procedure = part; ...]" or "... [procedure = &part]"
    const std::string_view function = __PRETTY_FUNCTION__;
    constexpr std::string_view label = "procedure = ";
    std::string_view name = function.substr(function.find(label) + label.size());
    name = name.substr(0, name.find_first_of(";]"));
    const std::size_t before = name.find_last_of("&:");
    return before == std::string_view::npos ? name : name.substr(before + 1);
}

// A keyword's handler, and its arguments where it takes some: handler<part>, handler<setcard, SetType::node>.
template <auto procedure, auto... arguments>
inline constexpr Action handler{Treatment::converted, [] { procedure(arguments...); }, procedure_name<procedure>()};

inline constexpr Action skipped{Treatment::skipped, log_skipped};    // a line in the debug log
inline constexpr Action passed_over{Treatment::passed_over, [] {}};  // nothing at all
inline constexpr Action end_of_pass{Treatment::end_of_pass};

// What must hold, beside the prefix, for a row to match; in words for people.
struct Condition {
    std::string_view words = {};
    bool (*holds)() = nullptr;  // null: it always holds
};

// One row of a table. The length of `prefix` is the comparison length. The rest is for people: `writes`, which lines
// the handler writes; `limits`, what of the keyword is not converted, or which of many keywords a row for all others
// skips.
struct PassRow {
    std::string_view prefix;
    Action action;
    std::string_view writes = {};
    std::string_view limits = {};
    Condition only_if = {};
};

// A table with a name for people.
struct Pass {
    std::string_view name;
    std::span<const PassRow> rows;
};

// Rewinds infile and acts on each keyword line until a row ends the pass. A keyword that matches no row is passed over.
void run_pass(const Pass& pass);

// The row that a keyword line, upper case, matches first but for its conditions; null when there is none. For tests and
// documents.
const PassRow* first_match(const Pass& pass, std::string_view line);

// What is kept of a keyword line; no prefix is longer.
inline constexpr std::size_t longest_prefix = 49;

// False when a row can never match, because an unconditional row above it is a prefix of it or because it is longer
// than what is kept of a keyword line.
constexpr bool every_row_reachable(std::span<const PassRow> rows)
{
    for (const PassRow& row : rows)
        if (row.prefix.size() > longest_prefix) return false;
    for (std::size_t later = 0; later < rows.size(); ++later)
        for (std::size_t earlier = 0; earlier < later; ++earlier)
            if (rows[earlier].only_if.holds == nullptr && rows[later].prefix.starts_with(rows[earlier].prefix))
                return false;
    return true;
}
