// *DATABASE_HISTORY keywords: the nodes and elements whose history the solver writes.
#include "controls/controls.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
enum class Kind { node, element };  // solids and shells share the element lines

constexpr int ids_per_line = 8;  // of a card and of the main deck

// *DATABASE_HISTORY_NODE, *DATABASE_HISTORY_SOLID, *DATABASE_HISTORY_SHELL: identifiers under a heading, eight a line
// whatever the cards hold.
void histid(Kind kind)
{
    if (kind == Kind::node)
        text(inpfile, " Node history: \n"
                      "!---- NID1       NID2       NID3       NID4       NID5       NID6       NID7       NID8\n");
    else
        text(inpfile, " Element history: \n"
                      "!---- EID1       EID2       EID3       EID4       EID5       EID6       EID7       EID8\n");
    int count = 0;
    for (Card card; card.next();)
        for (int i = 0; i < ids_per_line; ++i)
            if (const int id = card.integer(); id != 0) {
                print(inpfile, "%10i ", id);
                if (++count % ids_per_line == 0) text(inpfile, "\n");
            }
    if (count % ids_per_line != 0) text(inpfile, "\n");
    text(inpfile, "\n");
    log_recognized();
    log_unused({});
}

// *DATABASE_HISTORY_NODE_SET, *DATABASE_HISTORY_SOLID_SET, *DATABASE_HISTORY_SHELL_SET: a line for each set.
void histset(Kind kind)
{
    for (Card card; card.next();)
        for (int i = 0; i < ids_per_line; ++i)
            if (const int id = card.integer(); id != 0) {
                if (kind == Kind::node)
                    print(inpfile, " Node history set               : %10i\n", id);
                else
                    print(inpfile, " Element history set            : %10i\n", id);
            }
    text(inpfile, "\n");
    log_recognized();
    log_unused({});
}

constexpr PassRow history_rows[] = {
    {"*DATABASE_HISTORY_NODE_SET", handler<histset, Kind::node>, "Node history set"},
    {"*DATABASE_HISTORY_SOLID_SET", handler<histset, Kind::element>, "Element history set"},
    {"*DATABASE_HISTORY_SHELL_SET", handler<histset, Kind::element>, "Element history set"},
    {"*DATABASE_HISTORY_NODE", handler<histid, Kind::node>, "Node history", "", without_option},
    {"*DATABASE_HISTORY_SOLID", handler<histid, Kind::element>, "Element history", "", without_option},
    {"*DATABASE_HISTORY_SHELL", handler<histid, Kind::element>, "Element history", "", without_option},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(history_rows));

}  // namespace

const Pass history_keywords{"history", history_rows};

void history()
{
    run_pass(history_keywords);
}
