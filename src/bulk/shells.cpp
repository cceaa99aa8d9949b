// *ELEMENT_SHELL, *ELEMENT_SHELL_THICKNESS, *ELEMENT_SHELL_BETA
#include <cstddef>
#include <cstdint>
#include <string>
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

constexpr std::string_view no_thickness = "        0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n";

// eid, pid, n1 to n4
template <class Integer>
void convert(Fields card)
{
    Row row(geomfile);
    row.integer<Integer>(card.take(8), 8);
    for (const int width : {8, 10, 10, 10, 10}) row.blank().integer<Integer>(card.take(8), width);
    row.end();
}

// t1 to t4, beta
void convert_thickness(Fields card)
{
    float values[5];
    for (float& value : values) value = card.real(16);
    Row row(geomfile);
    row.text("      ");
    for (const float value : values) row.blank().real<3>(value, 10);
    row.end();
}

constexpr std::size_t first_later_column = 48;  // of nodes 5 to 8, which are dropped

// The nodes 5 to 8 of a block's last element.
template <class Integer>
void log_later_nodes(Fields card)
{
    log_unused_heading();
    for (const char* name : {"n5", "n6", "n7", "n8"})
        print(outfile, "%10s:%10s . . . Not all values printed\n", name,
              std::to_string(integer_of<Integer>(card.take(8))).c_str());
}
}  // namespace

void eshell()
{
    if (counts.shells == 0) write_heading();
    LastFields last(first_later_column, 8);
    for (Card card; card.next(); ++counts.shells) {
        const std::string_view columns = card.columns(80);
        convert<std::int64_t>(columns);
        Row(geomfile).text(no_thickness);
        last.keep(columns);
    }
    log_recognized();
    log_later_nodes<std::int64_t>(last.fields());
}

void eshellt()
{
    if (counts.shells == 0) write_heading();
    LastFields last(first_later_column, 8);
    for (Card card; card.next(); ++counts.shells) {
        const std::string_view columns = card.columns(80);
        convert<int>(columns);
        last.keep(columns);
        card.another();
        convert_thickness(card.columns(80));
    }
    log_recognized();
    log_later_nodes<int>(last.fields());
}
