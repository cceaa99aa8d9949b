// *NODE
#include <cstdint>
#include <string_view>

#include "bulk/bulk.h"
#include "bulk/bulk_card.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/run.h"

namespace
{
void write_heading()
{
    text(geomfile, "\nNode Definition:\n");
    print(geomfile, "!--- nid %20s %20s %20s %5s %5s\n", "x", "y", "z", "tc", "rc");
}

void convert_card(Card& card)
{
    const std::int64_t nid = card.integer64(8);
    const double x = card.real(16);
    const double y = card.real(16);
    const double z = card.real(16);
    const int tc = card.integer(8);
    const int rc = card.integer(8);
    print(geomfile, "%8li %20.13e %20.13e %20.13e %5i %5i\n", static_cast<long>(nid), x, y, z, tc, rc);
}

void convert_line(std::string_view line)
{
    LineFields fields(line);
    Row row(geomfile);
    row.integer64(fields.take(8), 8);
    for (int i = 0; i < 3; ++i) row.blank().real<13>(fields.real(16), 20);
    for (int i = 0; i < 2; ++i) row.blank().integer(fields.take(8), 5);
    row.end();
}
}  // namespace

void node()
{
    if (counts.nodes == 0) write_heading();
    convert_cards<convert_line, convert_card>(counts.nodes);
    log_recognized();
    log_unused({});
}
