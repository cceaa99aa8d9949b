// *HOURGLASS: hourglass and bulk viscosity of the parts that name the definition.
#include <cstdio>

#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

void hourglass()
{
    if (keyword_is("*HOURGLASS_TITLE")) skip_title();
    Card card;
    Word hgid;
    int ihq, ibq;
    float qm, q1, q2, qb, qw;
    card.first(hgid, ihq, qm, ibq, q1, q2, qb, qw);

    log_recognized();
    log_ignored_title();  // sic: also when there is no title
    log_unused({{"qb", qb}, {"qw", qw}});

    if (ihq > 5) {
        print(outfile, "%10s:%10i . . . Changing to 1 in Kestrune input\n", "ihq", ihq);
        std::printf("\nWarning: type %i is not available for hourglass\n", ihq);
        std::printf("Changing hourglass type to 1\n");
        ihq = 1;
    }
    if (ibq != 0 && ibq != 1) {
        print(outfile, "%10s:%10i . . . Changing to 1 in Kestrune input\n", "qtype", ibq);
        std::printf("\nWarning: type %i is not available for bulk viscosity\n", ibq);
        std::printf("Changing bulk viscosity type to 1\n");
    }
    ibq = 1;

    print(inpfile, " Hourglass formulation definition: %10s %7i %7.2f %7i %7.2f %7.2f\n", hgid.text, ihq, qm, ibq, q1,
          q2);
}
