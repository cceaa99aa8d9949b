// The materials of Johnson and Cook and of Johnson and Holmquist.
#include <string_view>

#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/numbers.h"
#include "reader/run.h"

namespace
{
constexpr char johnson_cook_title[] = "Johnson Cook        ";

// What the solver's material takes, under the solver's labels. Values stand here where the simplified keyword has none.
struct JohnsonCook {
    float smod, a, b, n, c;
    float m = 1.0f, tm = 1.0e20f, tr = 298.0f;
    float epso;
    float cp = 1.0e10f, pcut = -1.0e20f, ispall = 0.0f, iter = 0.0f;
    float d1, d2 = 0.0f, d3 = 0.0f, d4 = 0.0f, d5 = 0.0f;
    float ymod, pr, dtf = 0.0f;
};

void write_johnson_cook(const JohnsonCook& jc)
{
    write_group({{"smod", jc.smod},
                 {"a", jc.a},
                 {"b", jc.b},
                 {"n", jc.n},
                 {"c", jc.c},
                 {"m", jc.m},
                 {"tm", jc.tm},
                 {"tr", jc.tr}});
    write_group({{"epso", jc.epso},
                 {"cp", jc.cp},
                 {"pcut", jc.pcut},
                 {"ispall", jc.ispall},
                 {"iter", jc.iter},
                 {"sflag", 0.0f}});
    write_group({{"d1", jc.d1}, {"d2", jc.d2}, {"d3", jc.d3}, {"d4", jc.d4}, {"d5", jc.d5}, {"dflag", 1.0f}});
    write_blank_slots(1);
    write_group(
        {{"beta", 0.0f, Form::one_decimal}, {"eta", 0.0f, Form::one_decimal}, {"eps_0", 0.0f, Form::one_decimal}});
    write_group({{"ymod", jc.ymod}, {"pr", jc.pr}, {"dtf", jc.dtf}});
}
}  // namespace

// *MAT_JOHNSON_COOK, also as _TITLE
void matjohnsoncook()
{
    const Title title = title_if(keyword_is("*MAT_JOHNSON_COOK_TITLE"), johnson_cook_title);
    Card card;
    Word mid;
    float ro, vp, rateop, c2p;
    JohnsonCook jc;
    card.first(mid, ro, jc.smod, jc.ymod, jc.pr, jc.dtf, vp, rateop);
    card.another(jc.a, jc.b, jc.n, jc.c, jc.m, jc.tm, jc.tr, jc.epso);
    card.another(jc.cp, jc.pcut, jc.ispall, jc.iter, jc.d1, jc.d2, jc.d3, jc.d4);
    card.another(jc.d5, c2p);

    write_material(mid, mtyp::johnson_cook, ro, title);
    write_johnson_cook(jc);

    log_recognized();
    log_unused({{"vp", vp}, {"rateop", rateop}, {"c2p", c2p}});
}

// *MAT_SIMPLIFIED_JOHNSON_COOK, also as _TITLE: the full material, with fixed values for what this keyword lacks
void matsimpjohnsoncook()
{
    // sic: "transfering simplifed"
    warn("\nWarning: Some variables are unavailable when transfering simplifed jc\n"
         "to the full johnson cook model\n");
    const Title title = title_if(keyword_is("*MAT_SIMPLIFIED_JOHNSON_COOK_TITLE"), johnson_cook_title);
    Card card;
    Word mid;
    float ro, vp, sigmax, sigsat;
    JohnsonCook jc;
    card.first(mid, ro, jc.ymod, jc.pr, vp);
    card.another(jc.a, jc.b, jc.n, jc.c, jc.d1, sigmax, sigsat, jc.epso);  // D1 is PSFAIL
    jc.smod = quotient(jc.ymod, 2.0f * (1.0f + jc.pr));

    write_material(mid, mtyp::johnson_cook, ro, title);
    write_johnson_cook(jc);

    log_recognized();
    log_unused({{"smax", sigmax}, {"sigsat", sigsat}, {"vp", vp}});
}

// *MAT_JOHNSON_HOLMQUIST_CERAMICS, also as _TITLE
void matjohnsonholmquistceramic()
{
    // sic: without the S of the keyword, and compared whole. So the title form gets the default title here, and its
    // title card is read as card 1.
    const bool titled = std::string_view(cbuffer) == "*MAT_JOHNSON_HOLMQUIST_CERAMIC_TITLE";
    const Title title = title_if(titled, "JH Ceramic          ");
    Card card;
    Word mid;
    float ro, g, a, b, c, m, n;
    card.first(mid, ro, g, a, b, c, m, n);
    float epsi, t, sfmax, hel, phel, beta;
    card.another(epsi, t, sfmax, hel, phel, beta);
    float d1, d2, k1, k2, k3, fs;
    card.another(d1, d2, k1, k2, k3, fs);

    write_material(mid, mtyp::johnson_holmquist_ceramics, ro, title);
    write_group({{"g", g}, {"a", a}, {"b", b}, {"c", c}, {"m", m}, {"n", n}});
    write_group({{"epsi", epsi}, {"t", t}, {"sfmax", sfmax}, {"hel", hel}, {"phel", phel}, {"beta", beta}});
    write_group({{"d1", d1}, {"d2", d2}, {"k1", k1}, {"k2", k2}, {"k3", k3}, {"fs", fs}});
    write_group({{"ten_fail", 1.0f, Form::one_decimal}, {"plst_str", 1.0f, Form::one_decimal}});

    log_recognized();
    text(outfile, "no unused variable:\n");  // sic: singular, with a colon
}
