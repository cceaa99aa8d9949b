// *ELEMENT_SHELL, *ELEMENT_SHELL_THICKNESS, *ELEMENT_SHELL_BETA
#include <array>
#include <cstdint>
#include <string_view>

#include "bulk/bulk.h"
#include "bulk/bulk_card.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/run.h"

namespace
{
// Both kinds of shells share the heading and the count.
void write_heading()
{
    text(geomfile, "\n Shell Element Definition:\n");
    print(geomfile, "!--- eid %8s %10s %10s %10s %10s\n", "pid", "n1", "n2", "n3", "n4");
    print(geomfile, "!------------- t1 %10s %10s %10s %10s\n", "t2", "t3", "t4", "beta");
}

// Nodes 5 to 8, which are dropped; the log shows those of a block's last element.
template <class Integer>
using LaterNodes = std::array<Integer, 4>;

// ---- plain shells
// ----------------------------------------------------------------------------------------------------

LaterNodes<std::int64_t> convert_card(Card& card)
{
    const auto eid = static_cast<long>(card.integer64(8));
    const auto pid = static_cast<long>(card.integer64(8));
    const auto n1 = static_cast<long>(card.integer64(8));
    const auto n2 = static_cast<long>(card.integer64(8));
    const auto n3 = static_cast<long>(card.integer64(8));
    const auto n4 = static_cast<long>(card.integer64(8));
    print(geomfile, "%8li %8li %10li %10li %10li %10li\n", eid, pid, n1, n2, n3, n4);
    print(geomfile, "%6s %10.3e %10.3e %10.3e %10.3e %10.3e\n", " ", 0.0, 0.0, 0.0, 0.0, 0.0);
    return {card.integer64(8), card.integer64(8), card.integer64(8), card.integer64(8)};
}

LaterNodes<std::int64_t> convert_line(std::string_view line)
{
    LineFields fields(line);
    Row row(geomfile);
    for (int i = 0; i < 2; ++i) row.integer64(fields.take(8), 8).blank();
    for (int i = 0; i < 3; ++i) row.integer64(fields.take(8), 10).blank();
    row.integer64(fields.take(8), 10);
    row.text("\n        0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00").end();
    return {fields.integer64(8), fields.integer64(8), fields.integer64(8), fields.integer64(8)};
}

// ---- shells with thickness
// -------------------------------------------------------------------------------------------

struct Shell {
    int eid, pid, n1, n2, n3, n4;
    LaterNodes<int> later;
};

struct Thickness {
    float t1, t2, t3, t4, beta;
};

template <class Fields>
Shell read_shell(Fields&& card)
{
    return {card.integer(8),
            card.integer(8),
            card.integer(8),
            card.integer(8),
            card.integer(8),
            card.integer(8),
            {card.integer(8), card.integer(8), card.integer(8), card.integer(8)}};
}

template <class Fields>
Thickness read_thickness(Fields&& card)
{
    return {card.real(16), card.real(16), card.real(16), card.real(16), card.real(16)};
}

void write(const Shell& shell, const Thickness& thickness)
{
    const double t1 = thickness.t1;
    const double t2 = thickness.t2;
    const double t3 = thickness.t3;
    const double t4 = thickness.t4;
    const double beta = thickness.beta;
    print(geomfile, "%8i %8i %10i %10i %10i %10i\n", shell.eid, shell.pid, shell.n1, shell.n2, shell.n3, shell.n4);
    print(geomfile, "%6s %10.3e %10.3e %10.3e %10.3e %10.3e\n", " ", t1, t2, t3, t4, beta);
}

void write_quickly(const Shell& shell, const Thickness& thickness)
{
    Row row(geomfile);
    row.integer(shell.eid, 8).blank().integer(shell.pid, 8);
    for (const int n : {shell.n1, shell.n2, shell.n3, shell.n4}) row.blank().integer(n, 10);
    row.text("\n      ");
    for (const float t : {thickness.t1, thickness.t2, thickness.t3, thickness.t4, thickness.beta})
        row.blank().real<3>(t, 10);
    row.end();
}
}  // namespace

void eshell()
{
    if (counts.shells == 0) write_heading();
    LaterNodes<std::int64_t> later{};
    for (Card card; card.next(); ++counts.shells) {
        std::string_view line;
        later = bulk_line(line) ? convert_line(line) : convert_card(card);
    }
    log_recognized();
    log_unused_heading();
    constexpr std::array names = {"n5", "n6", "n7", "n8"};
    for (std::size_t i = 0; i < later.size(); ++i)
        print(outfile, "%10s:%10li . . . Not all values printed\n", names[i], static_cast<long>(later[i]));
}

void eshellt()
{
    if (counts.shells == 0) write_heading();
    LaterNodes<int> later{};
    for (Card card; card.next(); ++counts.shells) {
        std::string_view line;
        const Shell shell = bulk_line(line) ? read_shell(LineFields(line)) : read_shell(card);
        card.another();
        const bool whole = bulk_line(line);
        const Thickness thickness = whole ? read_thickness(LineFields(line)) : read_thickness(card);
        if (whole)
            write_quickly(shell, thickness);
        else
            write(shell, thickness);
        later = shell.later;
    }
    log_recognized();
    log_unused_heading();
    constexpr std::array names = {"n5", "n6", "n7", "n8"};
    for (std::size_t i = 0; i < later.size(); ++i)
        print(outfile, "%10s:%10i . . . Not all values printed\n", names[i], later[i]);
}
