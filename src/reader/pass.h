// Passes: one scan of infile with an ordered table of keyword prefixes; the first row that matches acts.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

// The length of `prefix` is the comparison length. `only_if`, when there is one, must hold too for the row to match.
struct PassRow {
    std::string_view prefix;
    void (*action)();
    bool (*only_if)() = nullptr;
};

// What an action of a table does, for people: the procedure behind it, and the lines that it writes.
struct Conversion {
    void (*action)();
    std::string_view procedure;
    std::string_view writes;
};

// A table with a name for people.
struct Pass {
    std::string_view name;
    std::span<const PassRow> rows;
    std::span<const Conversion> conversions = {};
};

// Actions that are no handlers.
void skipped();      // the debug log gets "skipped"
void passed_over();  // nothing at all
void end_of_pass();

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
            if (rows[earlier].only_if == nullptr && rows[later].prefix.starts_with(rows[earlier].prefix)) return false;
    return true;
}
