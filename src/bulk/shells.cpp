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

constexpr std::size_t first_later_column = 48;
constexpr std::array later_names = {"n5", "n6", "n7", "n8"};

// ---- plain shells --------------------------------------------------------------------------------------------------

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

void convert_line(std::string_view line)
{
    LineFields fields(line);
    Row row(geomfile);
    for (int i = 0; i < 2; ++i) row.integer64(fields.take(8), 8).blank();
    for (int i = 0; i < 3; ++i) row.integer64(fields.take(8), 10).blank();
    row.integer64(fields.take(8), 10);
    row.text("\n        0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00").end();
}

// ---- shells with thickness -----------------------------------------------------------------------------------------

LaterNodes<int> convert_first_card(Card& card)
{
    const int eid = card.integer(8);
    const int pid = card.integer(8);
    const int n1 = card.integer(8);
    const int n2 = card.integer(8);
    const int n3 = card.integer(8);
    const int n4 = card.integer(8);
    print(geomfile, "%8i %8i %10i %10i %10i %10i\n", eid, pid, n1, n2, n3, n4);
    return {card.integer(8), card.integer(8), card.integer(8), card.integer(8)};
}

void convert_first_line(std::string_view line)
{
    LineFields fields(line);
    Row row(geomfile);
    row.integer(fields.take(8), 8).blank().integer(fields.take(8), 8);
    for (int i = 0; i < 4; ++i) row.blank().integer(fields.take(8), 10);
    row.end();
}

void convert_second_card(Card& card)
{
    const double t1 = card.real(16);
    const double t2 = card.real(16);
    const double t3 = card.real(16);
    const double t4 = card.real(16);
    const double beta = card.real(16);
    print(geomfile, "%6s %10.3e %10.3e %10.3e %10.3e %10.3e\n", " ", t1, t2, t3, t4, beta);
}

void convert_second_line(std::string_view line)
{
    LineFields fields(line);
    Row row(geomfile);
    row.text("      ");
    for (int i = 0; i < 5; ++i) row.blank().real<3>(fields.real(16), 10);
    row.end();
}

// The thicknesses and the angle, on a card of their own.
void convert_thickness(Card& card)
{
    card.another();
    std::string_view line;
    if (card.take_line(line))
        convert_second_line(line);
    else
        convert_second_card(card);
}

// ---- both
// ------------------------------------------------------------------------------------------------------------

void no_further_card(Card&)
{
}

// Converts the elements of a block and returns the later nodes of the last one.
template <class Integer, auto convert_line, auto convert_card, auto convert_further_card>
LaterNodes<Integer> convert_shells()
{
    LaterNodes<Integer> later{};
    LastColumns last(first_later_column);
    bool whole = false;
    for (Card card; card.next(); ++counts.shells) {
        std::string_view line;
        whole = card.take_line(line);
        if (whole) {
            convert_line(line);
            last.keep(line);
        } else {
            later = convert_card(card);
        }
        convert_further_card(card);
    }
    LineFields fields = last.fields();
    for (std::size_t i = 0; whole && i < later.size(); ++i) {
        if constexpr (sizeof(Integer) == 8)
            later[i] = fields.integer64(8);
        else
            later[i] = fields.integer(8);
    }
    return later;
}
}  // namespace

void eshell()
{
    if (counts.shells == 0) write_heading();
    const auto later = convert_shells<std::int64_t, convert_line, convert_card, no_further_card>();
    log_recognized();
    log_unused_heading();
    for (std::size_t i = 0; i < later.size(); ++i)
        print(outfile, "%10s:%10li . . . Not all values printed\n", later_names[i], static_cast<long>(later[i]));
}

void eshellt()
{
    if (counts.shells == 0) write_heading();
    const auto later = convert_shells<int, convert_first_line, convert_first_card, convert_thickness>();
    log_recognized();
    log_unused_heading();
    for (std::size_t i = 0; i < later.size(); ++i)
        print(outfile, "%10s:%10i . . . Not all values printed\n", later_names[i], later[i]);
}
