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

void convert_card(Card& card)
{
    const int nid = card.integer(8);
    const int pid = card.integer(8);
    const double mass = card.real(16);
    print(geomfile, "%8i %8i %16.8e\n", nid, pid, mass);
}

void convert_line(std::string_view line)
{
    LineFields fields(line);
    Row row(geomfile);
    for (int i = 0; i < 2; ++i) row.integer(fields.take(8), 8).blank();
    row.real<8>(fields.real(16), 16).end();
}
}  // namespace

void esph()
{
    if (counts.particles == 0) write_heading();
    convert_cards<convert_line, convert_card>(counts.particles);
    log_recognized();
    log_unused({});
}
