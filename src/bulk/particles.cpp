// *ELEMENT_SPH
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
    text(geomfile, "\n SPH Element Definition:\n");
    print(geomfile, "!--- nid %8s %16s\n", "pid", "mass");
}

void convert(Fields card)
{
    const std::string_view nid = card.take(8);
    const std::string_view pid = card.take(8);
    const float mass = card.real(16);
    Row row(geomfile);
    row.integer<int>(nid, 8).blank().integer<int>(pid, 8).blank().real<8>(mass, 16).end();
}
}  // namespace

void esph()
{
    if (counts.particles == 0) write_heading();
    for (Card card; card.next(); ++counts.particles) convert(card.columns(32));
    log_recognized();
    log_unused({});
}
