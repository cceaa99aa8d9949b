// *TITLE and the *CONTROL keywords that fill run_settings. A blank field of a present card stores 0.
#include <cstddef>
#include <cstdio>
#include <string_view>

#include "controls/controls.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/numbers.h"
#include "reader/run.h"

// The title of the main deck: the line as it stands, cut to 46 characters.
void titlecard()
{
    constexpr std::size_t most = sizeof run_settings.title - 1;
    char* const title = run_settings.title;
    skip_comments();
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

void cviscosity()
{
    Card card;
    card.first();
    run_settings.q1 = card.real();
    run_settings.q2 = card.real();
    run_settings.qtype = card.integer();
    log_recognized();
    if (run_settings.qtype == 1) {
        log_unused({});
        return;
    }
    log_unused_heading();
    print(outfile, "%10s:%10i . . . Changing to 1 in Kestrune input\n", "qtype", run_settings.qtype);
    std::printf("\nWarning: type %i is not available for bulk viscosity\n", run_settings.qtype);
    std::printf("Changing bulk viscosity type to 1\n");
    run_settings.qtype = 1;
}

void chourglass()
{
    constexpr int last_type = 5;  // sic: no check of the other end, negative types pass
    Card card;
    card.first();
    run_settings.ihq = card.integer();
    run_settings.qh = card.real();
    if (run_settings.ihq == 0) run_settings.ihq = 1;
    log_recognized();
    if (run_settings.ihq <= last_type) {
        log_unused({});
        return;
    }
    log_unused_heading();
    print(outfile, "%10s:%10i . . . Changing to 1 in Kestrune input\n", "ihq", run_settings.ihq);
    std::printf("\nWarning: type %i is not available for hourglass\n", run_settings.ihq);
    std::printf("Changing hourlgass type to 1\n");  // sic
    run_settings.ihq = 1;
}

void ccontact()
{
    Card card;
    card.first();
    run_settings.slsfac = card.real();
    const float rwpnal = card.real();
    const int islchk = card.integer();
    const int shlthk = card.integer();
    const int penopt = card.integer();
    const int thkchg = card.integer();
    const int orien = card.integer();
    const int enmass = card.integer();

    card.another();
    const int usrstr = card.integer();
    const int usrfrc = card.integer();
    const int nsbcs = card.integer();
    const int interm = card.integer();
    const float xpene = card.real();
    const int ssthk = card.integer();
    const int ecdt = card.integer();
    const int tiedprj = card.integer();

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

void csolution()
{
    Card card;
    card.first();
    run_settings.soln = card.integer();
    const int nlq = card.integer();
    const int isnan = card.integer();
    const int lcint = card.integer();
    log_recognized();
    log_unused({{"nlq", nlq}, {"isnan", isnan}, {"lcint", lcint}});
}

void term()
{
    Card card;
    card.first();
    run_settings.endtim = card.real();
    const int endcyc = card.integer();
    const float dtmin = card.real();
    const float endeng = card.real();
    const float endmas = card.real();
    log_recognized();
    log_unused({{"endcyc", endcyc}, {"dtmin", dtmin}, {"endeng", endeng}, {"endmas", endmas}});
}

void tstep()
{
    Card card;
    card.first();
    run_settings.dtinit = card.real();
    run_settings.tssfac = card.real();
    const int isdo = card.integer();
    const float tslimt = card.real();
    const float dt2ms = card.real();
    const float lctm = card.real();  // sic: an identifier, read as a real
    const int erode = card.integer();
    const int ms1st = card.integer();
    run_settings.lctm = to_int(static_cast<double>(lctm));
    Card::end_line();
    log_recognized();
    text(outfile, "additional options ignored on card 2\n");
    // sic: the spelling of tslimit and msist
    log_unused({{"isdo", isdo}, {"tslimit", tslimt}, {"dt2ms", dt2ms}, {"erode", erode}, {"msist", ms1st}});
}
