// *ELEMENT_SOLID
#include <cstdint>

#include "bulk/bulk.h"
#include "bulk/bulk_card.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/run.h"

namespace
{
void write_heading()
{
    text(geomfile, "\n Solid Element Definition:\n");
    print(geomfile, "!--- eid %8s %8s %8s %8s %8s %8s %8s %8s %8s\n", "pid", "n1", "n2", "n3", "n4", "n5", "n6", "n7",
          "n8");
}

// eid, pid, n1 to n8
void convert(Fields card)
{
    Row row(geomfile);
    for (int i = 0; i < 9; ++i) row.integer<std::int64_t>(card.take(8), 8).blank();
    row.integer<std::int64_t>(card.take(8), 8).end();
}
}  // namespace

void esolid()
{
    if (counts.solids == 0) write_heading();
    for (Card card; card.next(); ++counts.solids) convert(card.columns(80));
    log_recognized();
    log_unused({});
}
