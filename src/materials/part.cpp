// Parts: which element formulation, material and other definitions a part uses.
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

// *PART, also with options. Identifiers are text, written as they were read, so that they match those of the
// definitions character for character.
void part()
{
    // sic: option cards behind a part's card 2 are taken for the headings and cards of further parts
    for (Card card; card.next();) {
        const Title heading = readtitle();
        int pid, grav, adpopt;
        Word secid, mid, eosid, hgid, tmid;
        card.first(pid, secid, mid, eosid, hgid, grav, adpopt, tmid);

        // The section is the element formulation; each material has a failure definition under its own identifier.
        print(inpfile, " Part definition: %7i%11s%11s%11s%11s%11s%11s%11i   %-81s\n", pid, secid.text, mid.text,
              eosid.text, mid.text, hgid.text, tmid.text, grav, heading.text);

        log_recognized();
        if (keyword_is("*PART_")) text(outfile, "additional options ignored on cards 3 and up\n");
        log_unused({{"adpopt", adpopt}});
    }
}
