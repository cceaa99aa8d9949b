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

void convert(Fields card)
{
    const std::string_view nid = card.take(8);
    const float x = card.real(16);
    const float y = card.real(16);
    const float z = card.real(16);
    const std::string_view tc = card.take(8);
    const std::string_view rc = card.take(8);
    Row row(geomfile);
    row.integer<std::int64_t>(nid, 8);
    row.blank().real<13>(x, 20).blank().real<13>(y, 20).blank().real<13>(z, 20);
    row.blank().integer<int>(tc, 5).blank().integer<int>(rc, 5).end();
}
}  // namespace

void node()
{
    if (counts.nodes == 0) write_heading();
    for (Card card; card.next(); ++counts.nodes) convert(card.columns(72));
    log_recognized();
    log_unused({});
}
