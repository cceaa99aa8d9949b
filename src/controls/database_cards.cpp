// The *DATABASE keywords that fill run_settings.
#include <cstdio>

#include "controls/controls.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/numbers.h"
#include "reader/run.h"

namespace
{
// Counts of cycles are carried as negative numbers.
int negated(int cycles)
{
    return to_int(-static_cast<double>(cycles));
}
}  // namespace

void database()
{
    Card card;
    card.first();
    run_settings.hist_dt = card.real();
    const int binary = card.integer();
    const int lcur = card.integer();
    const int ioopt = card.integer();
    const float dthf = card.real();
    const int binhf = card.integer();
    log_recognized();
    log_unused({{"binary", binary},
                {"lcur", lcur},
                {"ioopt", ioopt},
                {"dthff", dthf},  // sic
                {"binhf", binhf}});
}

void database_dump()
{
    Card card;
    card.first();
    run_settings.dump_cycles = negated(card.integer());
    const int lcdt = card.integer();
    const int beam = card.integer();
    const int npltc = card.integer();
    const int psetid = card.integer();
    log_recognized();
    log_unused({{"lcdt", lcdt}, {"beam", beam}, {"npltc", npltc}, {"psetid", psetid}});
}

void database_plot()
{
    Card card;
    card.first();
    const float dt = card.real();
    const int lcdt = card.integer();
    const int beam = card.integer();
    const int npltc = card.integer();
    const int psetid = card.integer();
    const int ioopt = card.next() ? card.integer() : 0;  // card 2 may be missing

    const bool by_curve = lcdt != 0;
    log_recognized();
    log_unused(
        {by_curve ? Field{"dt", dt} : Field{"lcdt", lcdt}, {"beam", beam}, {"npltc", npltc}, {"psetid", psetid}});
    if (by_curve && ioopt == 2) {
        print(outfile, "%10s:%10i . . . Changed to ioopt=1 for Kestrune input\n", "ioopt", ioopt);
        std::printf("\nWarning: Assuming ioopt=1 for *DATABASE_BINARY_D3PLOT\n");
    }

    run_settings.plot_dt = by_curve ? static_cast<float>(lcdt) : dt;
    if (!by_curve || ioopt == 0)
        run_settings.plot_mode = 0;
    else if (ioopt == 1 || ioopt == 2)
        run_settings.plot_mode = 1;
    else if (ioopt == 3)
        run_settings.plot_mode = 2;
    // sic: with a curve and any other ioopt it stays as it was
}

void database_runrsf()
{
    Card card;
    card.first();
    run_settings.rsf_cycles = negated(card.integer());
    run_settings.rsf_count = card.integer();
    const int beam = card.integer();
    const int npltc = card.integer();
    const int psetid = card.integer();
    log_recognized();
    log_unused({{"beam", beam}, {"npltc", npltc}, {"psetid", psetid}});
}
