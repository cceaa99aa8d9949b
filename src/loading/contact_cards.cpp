#include "loading/contact_cards.h"

#include "reader/card.h"
#include "reader/keyword.h"

ContactCards read_contact_cards()
{
    ContactCards cards;
    Card card;
    card.first(cards.ssid, cards.msid, cards.sstyp, cards.mstyp, cards.sboxid, cards.mboxid, cards.spr, cards.mpr);
    card.another(cards.fs, cards.fd, cards.dc, cards.vc, cards.vdc, cards.penchk, cards.bt, cards.dt);
    card.another(cards.sfs, cards.sfm, cards.sst, cards.mst, cards.sfst, cards.sfmt, cards.fsf, cards.vsf);

    cards.eroding = keyword_is("*CONTACT_ERODING");
    if (cards.eroding) card.another(cards.isym, cards.erosop, cards.iadj);

    cards.has_a = card.next();
    if (cards.has_a)  // its blank fields are zeros, not the defaults
        card.read(cards.soft, cards.sofscl, cards.lcidab, cards.maxpar, cards.sbopt, cards.depth, cards.bsort,
                  cards.frcfrq);
    return cards;
}
