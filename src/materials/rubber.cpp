// Rubbers and viscoelastic materials.
#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"

// *MAT_MOONEY-RIVLIN_RUBBER, also as _TITLE
void matmooney()
{
    // sic: the default title is two characters wider than its column
    const Title title = title_if(keyword_is("*MAT_MOONEY-RIVLIN_RUBBER_TITLE"), "M-R Rubber            ");
    Card card;
    Word mid;
    float ro, pr, a, b, ref;
    card.first(mid, ro, pr, a, b, ref);
    float sgl, sw, st, lcid;
    card.another(sgl, sw, st, lcid);

    write_material(mid, mtyp::mooney_rivlin_rubber, ro, title);  // sic: its failure definition is made as for type 6
    write_group({{"a", a}, {"b", b}, {"nu", pr}});
    write_blank_slots(5);

    log_recognized();
    log_unused({{"ref", ref}, {"sgl", sgl}, {"sw", sw}, {"st", st}, {"lcid", lcid}});
}

// *MAT_VISCOELASTIC, also as _TITLE
void matviscoelastic()
{
    const Title title = title_if(keyword_is("*MAT_VISCOELASTIC_TITLE"), "Viscoelastic        ");
    Card card;
    Word mid;
    float ro, bulk, g0, gi, beta;
    card.first(mid, ro, bulk, g0, gi, beta);

    write_material(mid, mtyp::viscoelastic, ro, title);
    write_singly({{"bulk", bulk},
                  {"g0", g0},
                  {"ginf", gi},
                  {"beta", beta, Form::two_decimals},
                  {"mflag", 0.0f, Form::one_decimal}});
    write_blank_slots(1);

    log_recognized();
    log_unused({});
}
