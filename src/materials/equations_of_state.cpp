// *EOS keywords.
#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/numbers.h"

// *EOS_LINEAR_POLYNOMIAL_TITLE
void eoslinearpoly()
{
    const Title title = title_if(keyword_is("*EOS_LINEAR_POLYNOMIAL_TITLE"), "Linear Polynomial     ");
    Card card;
    Word eosid;
    float c0, c1, c2, c3, c4, c5, c6, e0, v0;
    card.first(eosid, c0, c1, c2, c3, c4, c5, c6);
    card.another(e0, v0);

    write_eos(eosid, 1, title);
    write_group({{"c0", c0}, {"c1", c1}, {"c2", c2}, {"c3", c3}, {"c4", c4}, {"c5", c5}, {"c6", c6}, {"e0", e0}});
    write_singly({{"v0", 1.0f}});  // sic: whatever the card holds

    log_recognized();
    log_unused({});
}

// *EOS_JWL, also as _TITLE
void eosjwl()
{
    const Title title = title_if(keyword_is("*EOS_JWL_TITLE"), "JWL                ");
    Card card;
    Word eosid;
    float a, b, r1, r2, omeg, e0, v0;
    card.first(eosid, a, b, r1, r2, omeg, e0, v0);

    write_eos(eosid, 2, title);
    write_group({{"a", a}, {"b", b}, {"r1", r1}, {"r2", r2}, {"omega", omeg}, {"e0", e0}, {"v0", v0}, blank});

    log_recognized();
    log_unused({});
}

// *EOS_GRUNEISEN, also as _TITLE
void eosmgrun()
{
    const Title title = title_if(keyword_is("*EOS_GRUNEISEN_TITLE"), "Mie Gruneisen     ");
    Card card;
    Word eosid;
    float c, s1, s2, s3, gamao, a, e0, v0;
    card.first(eosid, c, s1, s2, s3, gamao, a, e0);
    card.another(v0);

    write_eos(eosid, 4, title);
    write_group({{"C", c}, {"s1", s1}, {"s2", s2}, {"s3", s3}, {"gamma", gamao}, {"a", a}, {"e0", e0}, {"v0", v0}});

    log_recognized();
    log_unused({});
}

// *EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE, also as _TITLE
void eosigrb()
{
    const Title title = title_if(keyword_is("*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE_TITLE"), "Ignition and Growth");
    Card card;
    Word eosid;
    float a, b, xp1, xp2, frer, g, r1;
    card.first(eosid, a, b, xp1, xp2, frer, g, r1);
    float r2, r3, r5, r6, fmxig, freq, grow1, em;
    card.another(r2, r3, r5, r6, fmxig, freq, grow1, em);
    float ar1, es1, cvp, cvr, eetal, ccrit, enq, tmp0;
    card.another(ar1, es1, cvp, cvr, eetal, ccrit, enq, tmp0);
    float grow2, ar2, es2, en, fmxgr, fmngr;
    card.another(grow2, ar2, es2, en, fmxgr, fmngr);
    // A heat capacity of zero shows as "inf" or "-nan" in the deck.
    const float we = quotient(r3, cvr);
    const float wp = quotient(g, cvp);

    write_eos(eosid, 7, title);
    // unreacted explosive
    write_group({{"ae", r1}, {"be", r2}, {"r1e", r5}, {"r2e", r6}, {"we", we}, {"cve", cvr}, blank, blank});
    // products
    write_group({{"ap", a}, {"bp", b}, {"r1p", xp1}, {"r2p", xp2}, {"wp", wp}, {"cvp", cvp}, blank, blank});
    // ignition
    write_group({{"I", freq}, {"a", ccrit}, {"b", frer}, {"x", eetal}, {"Figmax", fmxig}, blank, blank, blank});
    // first growth term
    write_group({{"G1", grow1}, {"c", es1}, {"d", ar1}, {"y", em}, {"FG1max", fmxgr}, blank, blank, blank});
    // second growth term; sic: the lower limit of growth stands as a maximum
    write_group({{"G2", grow2}, {"e", es2}, {"g", ar2}, {"z", en}, {"FG2max", fmngr}, blank, blank, blank});
    // energy
    write_group({{"enq", enq}, {"temp0", tmp0}, {"switch", 0}, blank, blank, blank, blank, blank});

    log_recognized();
    log_unused({});
}
