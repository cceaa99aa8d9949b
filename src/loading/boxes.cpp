#include "loading/loading.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

// *DEFINE_BOX, also as *DEFINE_BOX_ADAPTIVE, *DEFINE_BOX_COARSEN and *DEFINE_BOX_SPH, each also as _TITLE.
void definebox()
{
    const bool adaptive = keyword_is("*DEFINE_BOX_ADAPTIVE");
    const bool coarsen = keyword_is("*DEFINE_BOX_COARSEN");
    const bool sph = keyword_is("*DEFINE_BOX_SPH");
    const bool titled = keyword_is("*DEFINE_BOX_TITLE") || keyword_is("*DEFINE_BOX_ADAPTIVE_TITLE") ||
                        keyword_is("*DEFINE_BOX_COARSEN_TITLE") || keyword_is("*DEFINE_BOX_SPH_TITLE");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first box behind a title
        int boxid, eighth;  // the eighth field is vid of the SPH form, iflag of the coarsen form
        float xmn, xmx, ymn, ymx, zmn, zmx;
        card.read(boxid, xmn, xmx, ymn, ymx, zmn, zmx, eighth);

        int option1 = 0;  // pid of the adaptive form, lcid of the SPH form
        int option2 = 0;  // level of the adaptive form, vd of the SPH form
        if (adaptive || sph) card.another(option1, option2);

        text(inpfile, "\n Box definition:\n");
        write_group({{"bvid", boxid},
                     {"xmin", xmn},
                     {"xmax", xmx},
                     {"ymin", ymn},
                     {"ymax", ymx},
                     {"zmin", zmn},
                     {"zmax", zmx}});

        log_recognized();
        if (titled) log_ignored_title();
        if (adaptive)
            log_unused({{"pid", option1}, {"level", option2}});
        else if (coarsen)
            log_unused({{"iflag", eighth}});
        else if (sph)
            log_unused({{"vid", eighth}, {"lcid", option1}, {"vd", option2}});
        else
            log_unused({});
    }
}
