#include <string_view>

#include "loading/contact_cards.h"
#include "loading/contact_options.h"
#include "loading/loading.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
void log_contact(const ContactCards& cards, bool titled)
{
    log_recognized();
    if (titled) log_ignored_title();
    text(outfile, "ignored optional cards b and c\n");
    log_unused({{"msid", cards.msid},
                {"sstyp", cards.sstyp},
                {"mstyp", cards.mstyp},
                {"sboxid", cards.sboxid},
                {"mboxid", cards.mboxid},
                {"spr", cards.spr},
                {"mpr", cards.mpr},
                {"fs", cards.fs},
                {"fd", cards.fd},
                {"dc", cards.dc},
                {"vc", cards.vc},
                {"vdc", cards.vdc},
                {"penchk", cards.penchk},
                {"bt", cards.bt},
                {"dt", cards.dt}});
    if (cards.soft != 0) log_fields({{"sfs", cards.sfs}});  // otherwise it is the penalty scale factor
    log_fields({{"sfm", cards.sfm},
                {"sst", cards.sst},
                {"mst", cards.mst},
                {"sfmt", cards.sfmt},
                {"fsf", cards.fsf},
                {"vsf", cards.vsf}});
    if (cards.eroding) log_fields({{"isym", cards.isym}, {"erosop", cards.erosop}, {"iadj", cards.iadj}});
    if (!cards.has_a) return;
    if (cards.soft == 0) log_fields({{"sofscl", cards.sofscl}});
    log_fields({{"lcidab", cards.lcidab},
                {"maxpar", cards.maxpar},
                {"sbopt", cards.sbopt},
                {"depth", cards.depth},
                {"frcfrq", cards.frcfrq}});
}

constexpr std::string_view contact_lines =
    "Contact set pair, as a comment; the first one also the global contact options";

constexpr std::string_view contact_limits = "the options of the first for all; each pair as a comment to be filled in";
constexpr std::string_view tied_limits = "tied nodes with `_ID` alone, where `FS` and `FD` get new meanings";

constexpr Condition as_contacts{"with `contflag` 1", [] { return contflag == 1; }};
constexpr Condition as_tied_nodes{"with `contflag` 2", [] { return contflag == 2; }};

// The two automatic contacts that can become tied nodes; sic: other values of the flag silence them, and them alone.
constexpr PassRow contact_rows[] = {
    {"*CONTACT_AUTOMATIC_GENERAL_INTERIOR", skipped},
    {"*CONTACT_AUTOMATIC_GENERAL", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_AUTOMATIC_NODES_TO_SURFACE", handler<contact>, contact_lines, contact_limits, as_contacts},
    {"*CONTACT_AUTOMATIC_NODES_TO_SURFACE", handler<surfcon2tnodes>, "Tied node definition", tied_limits,
     as_tied_nodes},
    {"*CONTACT_AUTOMATIC_NODES_TO_SURFACE", passed_over},
    {{"*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE_TIEBREAK", longest_prefix}, skipped},
    {"*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_AUTOMATIC_SINGLE_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_TIEBREAK", skipped},
    {"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE", handler<contact>, contact_lines, contact_limits, as_contacts},
    {"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE", handler<surfcon2tnodes>, "Tied node definition", tied_limits,
     as_tied_nodes},
    {"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE", passed_over},
    {"*CONTACT_ERODING_NODES_TO_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_ERODING_SINGLE_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_ERODING_SURFACE_TO_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_NODES_TO_SURFACE_INTERFERENCE", skipped},
    {"*CONTACT_NODES_TO_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_ONE_WAY_SURFACE_TO_SURFACE_INTERFERENCE", skipped},
    {"*CONTACT_ONE_WAY_SURFACE_TO_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_SINGLE_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT_SURFACE_TO_SURFACE_CONTRACTION_JOINT", skipped},
    {"*CONTACT_SURFACE_TO_SURFACE_INTERFERENCE", skipped},
    {"*CONTACT_SURFACE_TO_SURFACE", handler<contact>, contact_lines, contact_limits},
    {"*CONTACT", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(contact_rows));
}  // namespace

const Pass contact_keywords{"contact", contact_rows};

// *CONTACT_AUTOMATIC_GENERAL, *CONTACT_AUTOMATIC_NODES_TO_SURFACE, *CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE,
// *CONTACT_AUTOMATIC_SINGLE_SURFACE, *CONTACT_AUTOMATIC_SURFACE_TO_SURFACE, *CONTACT_ERODING_NODES_TO_SURFACE,
// *CONTACT_ERODING_SINGLE_SURFACE, *CONTACT_ERODING_SURFACE_TO_SURFACE, *CONTACT_NODES_TO_SURFACE,
// *CONTACT_ONE_WAY_SURFACE_TO_SURFACE, *CONTACT_SINGLE_SURFACE and *CONTACT_SURFACE_TO_SURFACE: the first contact sets
// the options of all, since the solver has one contact scheme for the whole model; the pair of each is written as an
// inactive line to start from.
void contact()
{
    const bool first = ++counts.contacts == 1;
    const bool titled = keyword_ends_in("ID");
    if (titled) skip_title();
    const ContactCards cards = read_contact_cards();

    float penalty_scale = cards.soft != 0 ? cards.sofscl : cards.sfs;
    if (penalty_scale == 0.0f) penalty_scale = 1.0f;

    constexpr int range_search = 0;
    // A slave side asks for the pairwise scheme 2, which is never written.
    if (cards.ssid != 0 && first)
        warn("\nWarning: Contact Scheme 2 being used. Changing to global contact scheme 0.\n");

    if (first)
        write_contact_options({.scheme = range_search,
                               .searches = cards.bsort,
                               .soft = cards.soft,
                               .penalty_scale = penalty_scale,
                               .shell_thickness = cards.sfst});

    // sic: the same inactive pair for every contact
    print(inpfile, "!Contact set pair                     : %5i %4i %4i %4.1f", 1, 1, 2, 1.0);
    text(inpfile, "   !--- CID  SSID  MSID  PSF\n");

    log_contact(cards, titled);
}

void contact_section()
{
    if (standalone() || comprehensive()) {
        banner(inpfile, "Contact Section");
        text(inpfile, "\n");
    }
    run_pass(contact_keywords);
    if (counts.tied_nodes > 0) text(inpfile, "\n");
    if (counts.contacts == 0) {
        warn("\nWarning: No contact card found - Contact turned off\n");
        if (standalone()) write_default_contact_options();
        if (comprehensive()) write_thermal_and_friction_template();
    }
    if (comprehensive() && contflag != 2) write_tied_node_template();
    text(inpfile, "\n\n");
}
