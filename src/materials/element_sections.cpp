// Element sections: a section becomes an element formulation under the section's identifier.
#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
void write_formulation(const Word& secid, int eform)
{
    text(inpfile, "\n!---------------------------------- FORMID     EFORM\n");
    print(inpfile, " Element formulation definition:%10s%10i\n", secid.text, eform);
}
}  // namespace

// *SECTION_SOLID, also as _TITLE
void sectionsolid()
{
    const bool titled = keyword_is("*SECTION_SOLID_TITLE");
    if (titled) skip_title();
    Card card;
    Word secid;
    int elform, aet;
    card.first(secid, elform, aet);
    const bool available = elform == 1 || elform == 2;
    if (!available)
        warn("\nWarning: Element formulation %i not available\n"
             "Assuming default element form for section solid %s\n",
             elform, secid.text);

    write_formulation(secid, available ? elform : 1);

    log_recognized();
    if (titled)
        log_ignored_title();
    else if (keyword_is("*SECTION_SOLID_"))
        text(outfile, "additional options ignored on cards 2 and up\n");
    log_unused({{"aet", aet}});
    if (!available) print(outfile, "%10s:%10i . . . Changed to 1 for Kestrune input\n", "elform", elform);
}

// *SECTION_SHELL, also as _TITLE
void sectionshell()
{
    const bool titled = keyword_is("*SECTION_SHELL_TITLE");
    if (titled) skip_title();
    Card card;
    Word secid;
    int elform, nip, propt, irid, icomp, setyp;
    float shrf;
    card.first(secid, elform, shrf, nip, propt, irid, icomp, setyp);
    float t1, t2, t3, t4, marea, idof;
    int nloc, edgset;
    card.another(t1, t2, t3, t4, nloc, marea, idof, edgset);
    const bool available = elform >= 0 && elform <= 5;
    if (!available)
        warn("\nWarning: Element formulation %i not available\n"
             "Assuming default element form for section shell %s\n",
             elform, secid.text);

    write_formulation(secid, available ? 100 + elform : 100);
    print(inpfile, "!%11s%10s%10s%10s%10s\n", "shf", "nip", "output", "irid", "refloc");
    print(inpfile, "%12.1f%10i%10i%10i%10i\n", shrf, nip, propt, irid, nloc);
    print(inpfile, "!%11s%10s%10s%10s\n", "t1", "t2", "t3", "t4");
    print(inpfile, "%12.3e%10.3e%10.3e%10.3e\n", t1, t2, t3, t4);

    log_recognized();
    if (titled)
        log_ignored_title();
    else if (keyword_is("*SECTION_SHELL_"))
        text(outfile, "additional options ignored on cards 3 and up\n");
    log_unused({{"icomp", icomp},
                {"settyp", setyp},  // sic: a "t" more than the field's name
                {"marea", marea},
                {"idof", idof},
                {"edgset", edgset}});
    if (!available) print(outfile, "%10s:%10i . . . Changed to 100 for Kestrune input\n", "elform", elform);
}

// *SECTION_SPH, also as _TITLE
void sectionsph()
{
    const bool titled = keyword_is("*SECTION_SPH_TITLE");
    if (titled) skip_title();
    Card card;
    Word secid;
    float cslh, hmin, hmax, sphini, death, start;
    card.first(secid, cslh, hmin, hmax, sphini, death, start);

    write_formulation(secid, 200);

    log_recognized();
    if (titled) log_ignored_title();
    // sic: *SECTION_SPH_TENSOR_TITLE is not known to have a title: its title card is read as card 1
    if (keyword_is("*SECTION_SPH_TENSOR")) text(outfile, "additional options ignored on cards 2 and up\n");
    log_unused(
        {{"cslh", cslh}, {"hmin", hmin}, {"hmax", hmax}, {"sphini", sphini}, {"death", death}, {"start", start}});
}
