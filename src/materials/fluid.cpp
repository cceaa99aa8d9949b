// Materials that take their pressure from an equation of state: hydrodynamic, explosive, fluid.
#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

// *MAT_ELASTIC_PLASTIC_HYDRO, also as _SPALL, which has a card more, each also as _TITLE
void matelasticplastichydro()
{
    const Title title =
        title_if(keyword_is("*MAT_ELASTIC_PLASTIC_HYDRO_TITLE") || keyword_is("*MAT_ELASTIC_PLASTIC_HYDRO_SPALL_TITLE"),
                 "Iso-Elas-Plas-Hydro ");
    Card card;
    Word mid;
    float ro, g, sigy, eh, pc, fs, charl;
    card.first(mid, ro, g, sigy, eh, pc, fs, charl);
    float a1 = 0.0f, a2 = 0.0f, spall = 0.0f;
    if (keyword_is("*MAT_ELASTIC_PLASTIC_HYDRO_SPALL")) card.another(a1, a2, spall);
    // The yield curve: each card of eight values is a group of the same eight.
    Labelled curve[4][8] = {
        {"eps1", "eps2", "eps3", "eps4", "eps5", "eps6", "eps7", "eps8"},
        {"eps9", "eps10", "eps11", "eps12", "eps13", "eps14", "eps15", "eps16"},
        {"es1", "es2", "es3", "es4", "es5", "es6", "es7", "es8"},
        {"es9", "es10", "es11", "es12", "es13", "es14", "es15", "es16"},
    };
    for (auto& points : curve) {
        card.another();
        for (Labelled& point : points) card.read(point.real);
    }
    const float epflag = fs > 0.0f ? 1.0f : 0.0f;

    write_material(mid, mtyp::elastic_plastic_hydro, ro, title);
    write_group({{"g", g}, {"sigy", sigy}, {"ep", eh}, {"pc", pc}, {"a1", a1}, {"a2", a2}, {"ispall", spall}, blank});
    write_group({{"fs", fs}, {"epflag", epflag}, {"sflag", 0}, blank, blank, blank, blank, blank});
    for (const auto& points : curve) write_group_blank_ended(points);

    log_recognized();
    log_unused({{"charl", charl}});
}

// *MAT_HIGH_EXPLOSIVE_BURN, also as _TITLE
void matheburn()
{
    const Title title = title_if(keyword_is("*MAT_HIGH_EXPLOSIVE_BURN_TITLE"), "HE Burn             ");
    Card card;
    Word mid;
    float ro, d, pcj, beta, k, g, sigy;
    card.first(mid, ro, d, pcj, beta, k, g, sigy);
    const bool beta_available = beta == 1.0f || beta == 2.0f;
    const float ilopt = beta == 1.0f ? 1.0f : 0.0f;
    if (!beta_available)
        warn("\nWarning: Beta=%f is not an available option in Kestrune.\n"
             "Assuming ilopt=0.0\n",
             beta);

    write_material(mid, mtyp::high_explosive_burn, ro, title);
    write_group({{"d", d}, {"pcj", pcj}, {"ilopt", ilopt}});
    write_blank_slots(5);

    log_recognized();
    log_unused_heading();
    if (!beta_available) print(outfile, "%10s:%10.3e . . . Changed ilopt to 0.0 in Kestrune input\n", "beta", beta);
    log_fields({{"k", k}, {"g", g}, {"sigy", sigy}});
}

// *MAT_NULL, also as _TITLE; its erosion volumes go into the failure definition
void matnull()
{
    const Title title = title_if(keyword_is("*MAT_NULL_TITLE"), "Fluid               ");
    Card card;
    Word mid;
    float ro, pc, mu, terod, cerod, ym, pr;
    card.first(mid, ro, pc, mu, terod, cerod, ym, pr);

    write_material(mid, mtyp::null, ro, title);
    write_group({{"pc", pc}, {"mu", mu}});
    write_blank_slots(5);

    log_recognized();
    log_unused({{"ym", ym}, {"pr", pr}});
}
