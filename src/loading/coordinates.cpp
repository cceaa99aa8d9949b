// Local coordinate systems.
#include "loading/loading.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

// *DEFINE_COORDINATE_NODES, also as _TITLE.
void definecoordnodes()
{
    const bool titled = keyword_is("*DEFINE_COORDINATE_NODES_TITLE");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first system behind a title
        int cid, n1, n2, n3, flag;
        Word dir;
        card.read(cid, n1, n2, n3, flag, dir);

        text(inpfile, "\n Local coordinate system nodes:\n");
        write_group({{"csid", cid}, {"n1", n1}, {"n2", n2}, {"n3", n3}});

        log_recognized();
        if (titled) log_ignored_title();
        log_unused({{"flag", flag}});
        print(outfile, "%10s:%10s\n", "dir", dir.text);
    }
}

// *DEFINE_COORDINATE_SYSTEM, also as _TITLE.
void definecoordsystem()
{
    const bool titled = keyword_is("*DEFINE_COORDINATE_SYSTEM_TITLE");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first system behind a title
        int cid;
        float xo, yo, zo;  // the origin
        float xl, yl, zl;  // a point on the x-axis
        float xp, yp, zp;  // a point in the xy-plane
        card.read(cid, xo, yo, zo, xl, yl, zl);
        card.another(xp, yp, zp);

        text(inpfile, "\n Local coordinate system:\n");
        write_group({{"csid", cid},
                     {"ox", xo},
                     {"oy", yo},
                     {"oz", zo},
                     {"px", xl},
                     {"py", yl},
                     {"pz", zl},
                     {"qx", xp},
                     {"qy", yp},
                     {"qz", zp}});

        log_recognized();
        if (titled) log_ignored_title();
        log_unused({});
    }
}
