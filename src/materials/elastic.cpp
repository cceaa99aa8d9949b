// Elastic, elastic-plastic and rigid materials.
#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"

namespace
{
void warn_of_bulk_modulus(float bulk)
{
    if (bulk == 0.0f) warn("\nWarning: Bulk Modulus set to 0.0!\n");
}
}  // namespace

// *MAT_ELASTIC, also as _TITLE
void matelastic()
{
    const Title title = title_if(keyword_is("*MAT_ELASTIC_TITLE"), "Elastic             ");
    Card card;
    Word mid;
    float ro, e, pr, da, db, k;
    card.first(mid, ro, e, pr, da, db, k);

    write_material(mid, mtyp::elastic, ro, title);
    write_singly({{"e", e}, {"pr", pr}});
    write_blank_slots(4);

    log_recognized();
    log_unused({{"da", da}, {"db", db}, {"k", k}});
}

// *MAT_ISOTROPIC_ELASTIC_FAILURE, also as _TITLE
void matisotropicelasticfail()
{
    const Title title = title_if(keyword_is("*MAT_ISOTROPIC_ELASTIC_FAILURE_TITLE"), "Iso-Elastic-Failure ");
    Card card;
    Word mid;
    float ro, g, sigy, etan, bulk;
    card.first(mid, ro, g, sigy, etan, bulk);
    float epf, prf, rem, trem;
    card.another(epf, prf, rem, trem);
    warn_of_bulk_modulus(bulk);
    const float eflag = epf > 0.0f ? 1.0f : 0.0f;

    write_material(mid, mtyp::isotropic_elastic_failure, ro, title);
    write_group({{"smod", g}, {"sigy", sigy}, {"etan", etan}, {"fs", epf}, {"fp", prf}});
    write_singly({{"bulk", bulk}});
    write_group({{"eflag", eflag}, {"pflag", 0.0f}});
    write_blank_slots(3);

    log_recognized();
    log_unused({{"rem", rem}, {"trem", trem}});
}

// *MAT_ISOTROPIC_ELASTIC_PLASTIC, also as _TITLE
void matisotropicelasticplas()
{
    const Title title = title_if(keyword_is("*MAT_ISOTROPIC_ELASTIC_PLASTIC_TITLE"), "Iso-Elastic-Plastic ");
    Card card;
    Word mid;
    float ro, g, sigy, etan, bulk;
    card.first(mid, ro, g, sigy, etan, bulk);
    warn_of_bulk_modulus(bulk);

    write_material(mid, mtyp::isotropic_elastic_plastic, ro, title);
    write_group({{"smod", g}, {"sigy", sigy}, {"etan", etan}});
    write_singly({{"bulk", bulk}});
    write_blank_slots(4);

    log_recognized();
    log_unused({});
}

// *MAT_PLASTIC_KINEMATIC, also as _TITLE; its failure strain goes into the failure definition
void matplastickinematic()
{
    const Title title = title_if(keyword_is("*MAT_PLASTIC_KINEMATIC_TITLE"), "Kin/Iso-Elas-Plastic");
    Card card;
    Word mid;
    float ro, e, pr, sigy, etan, beta;
    card.first(mid, ro, e, pr, sigy, etan, beta);
    float src, srp, fs, vp;
    card.another(src, srp, fs, vp);

    write_material(mid, mtyp::plastic_kinematic, ro, title);
    write_singly({{"ymod", e}, {"pr", pr}, {"sigy", sigy}, {"etan", etan}, {"beta", beta}});
    write_blank_slots(1);

    log_recognized();
    log_unused({{"src", src}, {"srp", srp}, {"fs", fs}, {"vp", vp}});
}

// *MAT_RIGID, also as _TITLE
void matrigid()
{
    const Title title = title_if(keyword_is("*MAT_RIGID_TITLE"), "Rigid               ");
    Card card;
    Word mid;
    float ro, e, pr, n, couple, m, alias;
    card.first(mid, ro, e, pr, n, couple, m, alias);
    float cmo, con1, con2;
    card.another(cmo, con1, con2);
    float a1, a2, a3, v1, v2, v3;
    card.another(a1, a2, a3, v1, v2, v3);
    const float icopt = con1 != 0.0f || con2 != 0.0f ? 1.0f : 0.0f;

    write_material(mid, mtyp::rigid, ro, title);
    write_singly({{"ymod", e}, {"pr", pr}, {"icopt", icopt}, {"con1", con1}, {"con2", con2}});
    write_blank_slots(1);

    log_recognized();
    log_unused({{"n", n},
                {"couple", couple},
                {"m", m},
                {"alias", alias},
                {"cmo", cmo},
                {"a1", a1},
                {"a2", a2},
                {"a3", a3},
                {"v1", v1},
                {"v2", v2},
                {"v3", v3}});
}
