#include <cstring>

#include "loading/loading.h"
#include "reader/card.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
constexpr PassRow accelerometer_rows[] = {
    {"*DEFINE_COORDINATE_NODES", handler<coordnodes2accel>, "Accelerometer history, Node history"},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(accelerometer_rows));
}  // namespace

const Pass accelerometer_keywords{"accelerometers", accelerometer_rows};

// *DEFINE_COORDINATE_NODES, also as _TITLE: three nodes that frame an accelerometer. Its identifier would be CID behind
// the node sets, but no line holds it.
void coordnodes2accel()
{
    const bool titled = keyword_is("*DEFINE_COORDINATE_NODES_TITLE");
    const Title title = titled ? readtitle() : Title{""};
    const auto title_length = static_cast<int>(std::strlen(title.text));
    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first card behind a title
        int cid, n1, n2, n3;
        card.read(cid, n1, n2, n3);  // FLAG and DIR are left unread

        text(accelfile, "\n Accelerometer history        :\n");
        print(accelfile, "!%*s %10s %10s %10s %10s\n", title_length, "ac_id", "nid", "n1", "n2", "n3");
        print(accelfile, " %s %10i %10i %10i %10i\n\n", title.text, n1, n1, n2, n3);
        print(accelfile, " Node history                 : %10i%10i%10i%5s!  %-80s\n\n", n1, n2, n3, " ", title.text);

        print(outfile, "\n%s . . . recognized keyword using accelerometer functionality\n", cbuffer);
        text(outfile, "printed definitions\n");
        text(outfile, "Accelerometer history:\n");
        text(outfile, "Node history:\n");
    }
}

void accelerometers()
{
    banner(accelfile, "Accelerometer Definition");
    text(accelfile, "\n");
    run_pass(accelerometer_keywords);
}
