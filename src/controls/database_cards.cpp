// The *DATABASE keywords that fill run_settings.
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

// *DATABASE_NODOUT and *DATABASE_ELOUT
void database()
{
    Card card;
    int binary, lcur, ioopt, binhf;
    float dthf;
    card.first(run_settings.hist_dt, binary, lcur, ioopt, dthf, binhf);

    log_recognized();
    log_unused({{"binary", binary},
                {"lcur", lcur},
                {"ioopt", ioopt},
                {"dthff", dthf},  // sic
                {"binhf", binhf}});
}

// *DATABASE_BINARY_D3DUMP
void database_dump()
{
    Card card;
    int cycles, lcdt, beam, npltc, psetid;
    card.first(cycles, lcdt, beam, npltc, psetid);
    run_settings.dump_cycles = negated(cycles);

    log_recognized();
    log_unused({{"lcdt", lcdt}, {"beam", beam}, {"npltc", npltc}, {"psetid", psetid}});
}

// *DATABASE_BINARY_D3PLOT
void database_plot()
{
    Card card;
    float dt;
    int lcdt, beam, npltc, psetid, ioopt = 0;
    card.first(dt, lcdt, beam, npltc, psetid);
    if (card.next()) card.read(ioopt);  // card 2 may be missing

    const bool by_curve = lcdt != 0;
    run_settings.plot_dt = by_curve ? static_cast<float>(lcdt) : dt;
    if (!by_curve || ioopt == 0)
        run_settings.plot_mode = 0;
    else if (ioopt == 1 || ioopt == 2)
        run_settings.plot_mode = 1;
    else if (ioopt == 3)
        run_settings.plot_mode = 2;
    // sic: with a curve and any other ioopt it stays as it was

    log_recognized();
    log_unused(
        {by_curve ? Field{"dt", dt} : Field{"lcdt", lcdt}, {"beam", beam}, {"npltc", npltc}, {"psetid", psetid}});
    if (by_curve && ioopt == 2) {
        print(outfile, "%10s:%10i . . . Changed to ioopt=1 for Kestrune input\n", "ioopt", ioopt);
        warn("\nWarning: Assuming ioopt=1 for *DATABASE_BINARY_D3PLOT\n");
    }
}

// *DATABASE_BINARY_RUNRSF
void database_runrsf()
{
    Card card;
    int cycles, beam, npltc, psetid;
    card.first(cycles, run_settings.rsf_count, beam, npltc, psetid);
    run_settings.rsf_cycles = negated(cycles);

    log_recognized();
    log_unused({{"beam", beam}, {"npltc", npltc}, {"psetid", psetid}});
}
