// *ELEMENT_SOLID
#include <array>
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
    text(geomfile, "\n Solid Element Definition:\n");
    print(geomfile, "!--- eid %8s %8s %8s %8s %8s %8s %8s %8s %8s\n", "pid", "n1", "n2", "n3", "n4", "n5", "n6", "n7",
          "n8");
}

void convert_card(Card& card)
{
    std::array<long, 10> v{};  // eid, pid, n1 to n8
    for (long& value : v) value = static_cast<long>(card.integer64(8));
    print(geomfile, "%8li %8li %8li %8li %8li %8li %8li %8li %8li %8li\n", v[0], v[1], v[2], v[3], v[4], v[5], v[6],
          v[7], v[8], v[9]);
}

void convert_line(std::string_view line)
{
    LineFields fields(line);
    Row row(geomfile);
    for (int i = 0; i < 9; ++i) row.integer64(fields.take(8), 8).blank();
    row.integer64(fields.take(8), 8).end();
}
}  // namespace

void esolid()
{
    if (counts.solids == 0) write_heading();
    convert_cards<convert_line, convert_card>(counts.solids);
    log_recognized();
    log_unused({});
}
