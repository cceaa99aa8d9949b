// The materials of Johnson and Cook and of Johnson and Holmquist.
#include <cstdio>
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

// What the solver's material takes, under the solver's labels; the full and the simplified keyword share it.
struct JohnsonCook {
    float smod, a, b, n, c, m, tm, tr;
    float epso, cp, pcut, ispall, iter;
    float d1, d2, d3, d4, d5;
    float ymod, pr, dtf;
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

// *MAT_JOHNSON_COOK
void matjohnsoncook()
{
    const Title title = title_if(keyword_is("*MAT_JOHNSON_COOK_TITLE"), johnson_cook_title);
    Card card;
    Word mid;
    float ro, g, e, pr, dtf, vp, rateop;
    card.first(mid, ro, g, e, pr, dtf, vp, rateop);
    float a, b, n, c, m, tm, tr, epso;
    card.another(a, b, n, c, m, tm, tr, epso);
    float cp, pc, spall, it, d1, d2, d3, d4;
    card.another(cp, pc, spall, it, d1, d2, d3, d4);
    float d5, c2p;
    card.another(d5, c2p);

    write_material(mid, mtyp::johnson_cook, ro, title);
    write_johnson_cook({.smod = g,
                        .a = a,
                        .b = b,
                        .n = n,
                        .c = c,
                        .m = m,
                        .tm = tm,
                        .tr = tr,
                        .epso = epso,
                        .cp = cp,
                        .pcut = pc,
                        .ispall = spall,
                        .iter = it,
                        .d1 = d1,
                        .d2 = d2,
                        .d3 = d3,
                        .d4 = d4,
                        .d5 = d5,
                        .ymod = e,
                        .pr = pr,
                        .dtf = dtf});

    log_recognized();
    log_unused({{"vp", vp}, {"rateop", rateop}, {"c2p", c2p}});
}

// *MAT_SIMPLIFIED_JOHNSON_COOK: the full material, with fixed values for what this keyword does not carry
void matsimpjohnsoncook()
{
    // sic: "transfering simplifed"
    std::printf("\nWarning: Some variables are unavailable when transfering simplifed jc\n");
    std::printf("to the full johnson cook model\n");
    const Title title = title_if(keyword_is("*MAT_SIMPLIFIED_JOHNSON_COOK_TITLE"), johnson_cook_title);
    Card card;
    Word mid;
    float ro, e, pr, vp;
    card.first(mid, ro, e, pr, vp);
    float a, b, n, c, psfail, sigmax, sigsat, epso;
    card.another(a, b, n, c, psfail, sigmax, sigsat, epso);
    const float g = quotient(e, 2.0f * (1.0f + pr));

    write_material(mid, mtyp::johnson_cook, ro, title);
    write_johnson_cook({.smod = g,
                        .a = a,
                        .b = b,
                        .n = n,
                        .c = c,
                        .m = 1.0f,
                        .tm = 1.0e20f,
                        .tr = 298.0f,
                        .epso = epso,
                        .cp = 1.0e10f,
                        .pcut = -1.0e20f,
                        .ispall = 0.0f,
                        .iter = 0.0f,
                        .d1 = psfail,
                        .d2 = 0.0f,
                        .d3 = 0.0f,
                        .d4 = 0.0f,
                        .d5 = 0.0f,
                        .ymod = e,
                        .pr = pr,
                        .dtf = 0.0f});

    log_recognized();
    log_unused({{"smax", sigmax}, {"sigsat", sigsat}, {"vp", vp}});
}

// *MAT_JOHNSON_HOLMQUIST_CERAMICS
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
