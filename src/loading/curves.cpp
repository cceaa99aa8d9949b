#include "loading/loading.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/numbers.h"
#include "reader/run.h"

namespace
{
constexpr char curve_heading[] = "!---------------------------------- LCID    TITLE\n";
constexpr char point_heading[] = "!---------- abscissa ---------- ordinate\n";

Title curve_title()
{
    if (keyword_is("*DEFINE_CURVE_TITLE")) return readtitle();
    return {"load curve"};
}

void log_applied(const char* name, float value)
{
    print(outfile, "%10s:%10.3e . . . Applied to data points\n", name, value);
}

constexpr PassRow curve_rows[] = {
    {"*DEFINE_CURVE_COMPENSATION", skipped},
    {"*DEFINE_CURVE_DRAWBEAD", skipped},
    {"*DEFINE_CURVE_ENTITY", skipped},
    {"*DEFINE_CURVE_FEEDBACK", skipped},
    {"*DEFINE_CURVE_FUNCTION", skipped},
    {"*DEFINE_CURVE_SMOOTH", skipped},
    {"*DEFINE_CURVE_TRIM", skipped},
    {"*DEFINE_CURVE", handler<definecurve>, "Load curve definition", "without `SIDR` and `DATTYP`"},  // and _TITLE
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(curve_rows));
}  // namespace

const Pass curve_keywords{"curves", curve_rows};

// *DEFINE_CURVE, also as _TITLE: a load curve, its points already shifted and scaled. A curve has any number of points,
// so each is written as it is read.
void definecurve()
{
    const Title title = curve_title();
    Card card;
    int lcid, sidr, dattyp;
    float sfa, sfo, offa, offo;
    card.first(lcid, sidr, sfa, sfo, offa, offo, dattyp);
    if (sfa == 0.0f) sfa = 1.0f;
    if (sfo == 0.0f) sfo = 1.0f;

    text(inpfile, "\n");
    text(inpfile, curve_heading);
    print(inpfile, " Load curve definition: %16i    %20s\n", lcid, title.text);
    text(inpfile, point_heading);
    while (card.next()) {
        const float abscissa = card.real(20);
        const float ordinate = card.real(20);
        print(inpfile, "%20.3e%20.3e\n", product(sum(abscissa, offa), sfa), product(sum(ordinate, offo), sfo));
    }

    log_recognized();
    log_unused({{"sidr", sidr}});
    log_applied("sfa", sfa);
    log_applied("sfo", sfo);
    log_applied("offa", offa);
    log_applied("offo", offo);
    log_fields({{"dattyp", dattyp}});
}

void load_curves()
{
    banner(inpfile, "Load Curve Definitions");
    run_pass(curve_keywords);
    text(inpfile, "\n");
    text(inpfile, curve_heading);
    // sic: the number is 1 also when the deck has a curve 1
    text(inpfile, " Load curve definition:                1    Plot Curve\n");
    text(inpfile, point_heading);
    for (int point = 0; point < 6; ++point) print(inpfile, "%20.4e%20.4e\n", 0.0, 0.0);
    text(inpfile, "\n\n");
}
