// *TITLE and the *CONTROL keywords that fill run_settings. A blank field of a present card stores 0.
#include <cstddef>
#include <cstdio>
#include <string_view>

#include "controls/controls.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/numbers.h"
#include "reader/observer.h"
#include "reader/run.h"

// *TITLE: the title of the main deck is the line as it stands, cut to 46 characters.
void titlecard()
{
    constexpr std::size_t most = sizeof run_settings.title - 1;
    char* const title = run_settings.title;
    skip_comments();
    const Watched watched;
    std::size_t count = 0;
    while (count < most && (count == 0 || title[count - 1] != '\n')) title[count++] = infile.next();
    title[count] = '\0';
    if (title[count - 1] != '\n')
        infile.skip_line();
    else if (count < most)
        title[count - 1] = '\0';  // sic: a line of 45 characters, 46 with its newline, keeps the newline

    if (std::string_view{title}.starts_with("LS-DYNA"))
        std::snprintf(title, sizeof run_settings.title, "%s", "Kestrune Input Deck");
    log_recognized();
    log_unused({});
}

// *CONTROL_BULK_VISCOSITY
void cviscosity()
{
    Card card;
    card.first(run_settings.q1, run_settings.q2, run_settings.qtype);

    log_recognized();
    if (run_settings.qtype == 1) {
        log_unused({});
        return;
    }
    log_unused_heading();
    print(outfile, "%10s:%10i . . . Changing to 1 in Kestrune input\n", "qtype", run_settings.qtype);
    warn("\nWarning: type %i is not available for bulk viscosity\n"
         "Changing bulk viscosity type to 1\n",
         run_settings.qtype);
    run_settings.qtype = 1;
}

// *CONTROL_HOURGLASS
void chourglass()
{
    constexpr int last_type = 5;  // sic: no check of the other end, negative types pass
    Card card;
    card.first(run_settings.ihq, run_settings.qh);
    if (run_settings.ihq == 0) run_settings.ihq = 1;

    log_recognized();
    if (run_settings.ihq <= last_type) {
        log_unused({});
        return;
    }
    log_unused_heading();
    print(outfile, "%10s:%10i . . . Changing to 1 in Kestrune input\n", "ihq", run_settings.ihq);
    warn("\nWarning: type %i is not available for hourglass\n"
         "Changing hourlgass type to 1\n",  // sic
         run_settings.ihq);
    run_settings.ihq = 1;
}

// *CONTROL_CONTACT
void ccontact()
{
    Card card;
    float rwpnal;
    int islchk, shlthk, penopt, thkchg, orien, enmass;
    card.first(run_settings.slsfac, rwpnal, islchk, shlthk, penopt, thkchg, orien, enmass);
    int usrstr, usrfrc, nsbcs, interm, ssthk, ecdt, tiedprj;
    float xpene;
    card.another(usrstr, usrfrc, nsbcs, interm, xpene, ssthk, ecdt, tiedprj);

    log_recognized();
    text(outfile, "additional options ignored on cards 3 and up\n");
    log_unused({{"rwpnal", rwpnal},
                {"shlthk", shlthk},  // sic: before islchk, which is read first
                {"islchk", islchk},
                {"penopt", penopt},
                {"thkchg", thkchg},
                {"orien", orien},
                {"enmass", enmass},
                {"usrstr", usrstr},
                {"usrfrc", usrfrc},
                {"nsbcs", nsbcs},
                {"interm", interm},
                {"xpene", xpene},
                {"ssthk", ssthk},
                {"ecdt", ecdt},
                {"tiedprj", tiedprj}});
}

// *CONTROL_SOLUTION
void csolution()
{
    Card card;
    int nlq, isnan, lcint;
    card.first(run_settings.soln, nlq, isnan, lcint);

    log_recognized();
    log_unused({{"nlq", nlq}, {"isnan", isnan}, {"lcint", lcint}});
}

// *CONTROL_TERMINATION
void term()
{
    Card card;
    int endcyc;
    float dtmin, endeng, endmas;
    card.first(run_settings.endtim, endcyc, dtmin, endeng, endmas);

    log_recognized();
    log_unused({{"endcyc", endcyc}, {"dtmin", dtmin}, {"endeng", endeng}, {"endmas", endmas}});
}

// *CONTROL_TIMESTEP
void tstep()
{
    Card card;
    int isdo, erode, ms1st;
    float tslimt, dt2ms, lctm;  // sic: LCTM, an identifier, is read as a real
    card.first(run_settings.dtinit, run_settings.tssfac, isdo, tslimt, dt2ms, lctm, erode, ms1st);
    run_settings.lctm = to_int(lctm);
    Card::end_line();

    log_recognized();
    text(outfile, "additional options ignored on card 2\n");
    // sic: the spelling of tslimit and msist
    log_unused({{"isdo", isdo}, {"tslimit", tslimt}, {"dt2ms", dt2ms}, {"erode", erode}, {"msist", ms1st}});
}
