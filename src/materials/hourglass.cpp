// Hourglass and bulk viscosity of the parts that name the definition.
#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
constexpr char changed[] = "%10s:%10i . . . Changing to 1 in Kestrune input\n";
}

// *HOURGLASS, also as _TITLE
void hourglass()
{
    if (keyword_is("*HOURGLASS_TITLE")) skip_title();
    Card card;
    Word hgid;
    int ihq, ibq;
    float qm, q1, q2, qb, qw;
    card.first(hgid, ihq, qm, ibq, q1, q2, qb, qw);

    const bool ihq_available = ihq <= 5;
    const bool ibq_available = ibq == 0 || ibq == 1;
    if (!ihq_available)
        warn("\nWarning: type %i is not available for hourglass\n"
             "Changing hourglass type to 1\n",
             ihq);
    if (!ibq_available)
        warn("\nWarning: type %i is not available for bulk viscosity\n"
             "Changing bulk viscosity type to 1\n",
             ibq);

    print(inpfile, " Hourglass formulation definition: %10s %7i %7.2f %7i %7.2f %7.2f\n", hgid.text,
          ihq_available ? ihq : 1, qm, 1, q1, q2);

    log_recognized();
    log_ignored_title();  // sic: also when there is no title
    log_unused({{"qb", qb}, {"qw", qw}});
    if (!ihq_available) print(outfile, changed, "ihq", ihq);
    if (!ibq_available) print(outfile, changed, "qtype", ibq);
}
