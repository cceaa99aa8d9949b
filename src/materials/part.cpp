// *PART: which element formulation, material and other definitions a part uses.
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

// Identifiers are text, written as they were read, so that they match those of the definitions character for character.
void part()
{
    // sic: option cards behind a part's card 2 are taken for the headings and cards of further parts
    for (Card card; card.next();) {
        const Title heading = readtitle();
        card.first();
        const int pid = card.integer();
        const Word secid = card.word();
        const Word mid = card.word();
        const Word eosid = card.word();
        const Word hgid = card.word();
        const int grav = card.integer();
        const int adpopt = card.integer();
        const Word tmid = card.word();

        // The section is the element formulation; each material has a failure definition under its own identifier.
        print(inpfile, " Part definition: %7i%11s%11s%11s%11s%11s%11s%11i   %-81s\n", pid, secid.text, mid.text,
              eosid.text, mid.text, hgid.text, tmid.text, grav, heading.text);

        log_recognized();
        if (keyword_is("*PART_")) text(outfile, "additional options ignored on cards 3 and up\n");
        log_unused({{"adpopt", adpopt}});
    }
}
