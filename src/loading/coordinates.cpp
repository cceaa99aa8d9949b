// Local coordinate systems: *DEFINE_COORDINATE_NODES and *DEFINE_COORDINATE_SYSTEM, each also with _TITLE.
#include "loading/loading.h"
#include "loading/vector.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

void definecoordnodes()
{
    const bool titled = keyword_is("*DEFINE_COORDINATE_NODES_TITLE");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first system behind a title
        const int cid = card.integer();
        const int n1 = card.integer();
        const int n2 = card.integer();
        const int n3 = card.integer();
        const int flag = card.integer();
        const Word dir = card.word();

        text(inpfile, "\n Local coordinate system nodes:\n");
        print(inpfile, "!%9s %10s %10s %10s\n", "csid", "n1", "n2", "n3");
        print(inpfile, "%10i %10i %10i %10i\n", cid, n1, n2, n3);

        log_recognized();
        if (titled) log_ignored_title();
        log_unused({{"flag", flag}});
        print(outfile, "%10s:%10s\n", "dir", dir.text);
    }
}

void definecoordsystem()
{
    const bool titled = keyword_is("*DEFINE_COORDINATE_SYSTEM_TITLE");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first system behind a title
        const int cid = card.integer();
        const Vector origin = read_vector(card);
        const Vector on_x_axis = read_vector(card);
        card.another();
        const Vector in_xy_plane = read_vector(card);

        text(inpfile, "\n Local coordinate system:\n");
        print(inpfile, "!%9s %10s %10s %10s %10s %10s %10s %10s %10s %10s\n", "csid", "ox", "oy", "oz", "px", "py",
              "pz", "qx", "qy", "qz");
        print(inpfile, "%10i %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e\n", cid, origin.x, origin.y,
              origin.z, on_x_axis.x, on_x_axis.y, on_x_axis.z, in_xy_plane.x, in_xy_plane.y, in_xy_plane.z);

        log_recognized();
        if (titled) log_ignored_title();
        log_unused({});
    }
}
