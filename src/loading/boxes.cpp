// *DEFINE_BOX, also as _ADAPTIVE, _COARSEN and _SPH, each also with _TITLE.
#include "loading/loading.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

void definebox()
{
    const bool adaptive = keyword_is("*DEFINE_BOX_ADAPTIVE");
    const bool coarsen = keyword_is("*DEFINE_BOX_COARSEN");
    const bool sph = keyword_is("*DEFINE_BOX_SPH");
    const bool titled = keyword_is("*DEFINE_BOX_TITLE") || keyword_is("*DEFINE_BOX_ADAPTIVE_TITLE") ||
                        keyword_is("*DEFINE_BOX_COARSEN_TITLE") || keyword_is("*DEFINE_BOX_SPH_TITLE");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first box behind a title
        const int boxid = card.integer();
        const float xmn = card.real();
        const float xmx = card.real();
        const float ymn = card.real();
        const float ymx = card.real();
        const float zmn = card.real();
        const float zmx = card.real();
        const int eighth = card.integer();  // vid of the SPH form, iflag of the coarsen form

        int option1 = 0;  // pid of the adaptive form, lcid of the SPH form
        int option2 = 0;  // level of the adaptive form, vd of the SPH form
        if (adaptive || sph) {
            card.another();
            option1 = card.integer();
            option2 = card.integer();
        }

        text(inpfile, "\n Box definition:\n");
        print(inpfile, "!%9s %10s %10s %10s %10s %10s %10s\n", "bvid", "xmin", "xmax", "ymin", "ymax", "zmin", "zmax");
        print(inpfile, "%10i %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e\n", boxid, xmn, xmx, ymn, ymx, zmn, zmx);

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
