// *LOAD keywords: air blasts, nodal forces, pressures on segment sets and segments.
#include <cstring>

#include "loading/loading.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
// The load curve number that marks segments which the blast loads.
constexpr int blast_curve = -2;

// The segment set that the blast loads: of the first *LOAD_SEGMENT_SET block with the blast's curve number, or else of
// the last block of all. Only a block's first card counts. infile returns to where it was.
BlastSegments find_blast_segments()
{
    const Position here = infile.position();
    infile.rewind();
    BlastSegments segments{};
    for (keyword(); !keyword_is("*END"); keyword()) {
        if (!keyword_is("*LOAD_SEGMENT_SET")) continue;
        if (keyword_is("*LOAD_SEGMENT_SET_ID")) skip_title();
        segments.found = true;
        segments.ssid = 0;
        int lcid = 0;
        if (Card card; card.next()) card.read(segments.ssid, lcid);
        if (lcid == blast_curve) break;
    }
    infile.seek(here);
    std::memcpy(segments.stopped_at, cbuffer, sizeof cbuffer);
    return segments;
}

int blast_segment_set()
{
    if (!blast_segments) blast_segments = find_blast_segments();
    // sic: what is logged from here on shows the keyword at which the search stopped
    std::memcpy(cbuffer, blast_segments->stopped_at, sizeof cbuffer);
    if (!blast_segments->found) warn("\nWarning: No *LOAD_SEGMENT_SET found for *LOAD_BLAST, using segment set 0\n");
    return blast_segments->ssid;
}
}  // namespace

// *LOAD_BLAST: an air blast over the segments that a *LOAD_SEGMENT_SET names.
void loadblast()
{
    for (Card card; card.next();) {
        float wgt, xbo, ybo, zbo, tbo;
        int iunit, isurf;
        card.read(wgt, xbo, ybo, zbo, tbo, iunit, isurf);
        float cfm, cfl, cft, cfp;
        card.another(cfm, cfl, cft, cfp);

        // sic: the log comes before the deck, since the look-up leaves another keyword line in cbuffer.
        log_recognized();
        log_unused({});

        const int ssid = blast_segment_set();
        text(inpfile, "\n Blast Load (CONWEP) Definition:\n");
        write_group({{"ssid", ssid}, {"wgt", wgt}, {"xbo", xbo}, {"ybo", ybo}, {"zbo", zbo}});
        write_group({{"tbo", tbo}, {"isurf", isurf}});
        write_group({{"iunit", iunit}, {"cfm", cfm}, {"cfl", cfl}, {"cft", cft}, {"cfp", cfp}});
    }
}

// *LOAD_NODE_POINT and *LOAD_NODE_SET. Any other form is logged alone.
void loadnode()
{
    const bool of_set = keyword_is("*LOAD_NODE_SET");
    const bool of_node = keyword_is("*LOAD_NODE_POINT");

    for (Card card; card.next();) {
        int id, dof, lcid, cid, m1, m2, m3;
        float sf;
        card.read(id, dof, lcid, sf, cid, m1, m2, m3);

        if (of_set || of_node) {
            text(inpfile, of_set ? "\n Nodal forces set:\n" : "\n Nodal forces:\n");
            write_group({{of_set ? "nsid" : "nid", id},
                         {"dir", dof},
                         {"lcid", lcid},
                         {"sf", sf},
                         {"csid", cid},
                         {"m1", m1},
                         {"m2", m2},
                         {"m3", m3}});
        }

        log_recognized();
        log_unused({});
    }
}

// *LOAD_SEGMENT_SET, also as _ID.
void loadsegset()
{
    const bool titled = keyword_is("*LOAD_SEGMENT_SET_ID");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first card behind a title
        int ssid, lcid;
        float sf, at, dt;
        card.read(ssid, lcid, sf, at, dt);

        if (lcid == blast_curve) {
            log_recognized();
            text(outfile, "not needed for CONWEP in Kestrune\n");
            continue;
        }

        text(inpfile, "\n Pressure loads set:\n");
        write_group({{"ssid", ssid}, {"lcid", lcid}, {"sf", sf}, {"t0", at}});

        log_recognized();
        if (titled) log_ignored_title();
        log_unused({{"dt", dt}});
    }
}

// *LOAD_SEGMENT, also as _ID.
void loadseg()
{
    const bool titled = keyword_is("*LOAD_SEGMENT_ID");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first card behind a title
        int lcid, n1, n2, n3, n4, n5;
        float sf, at;
        card.read(lcid, sf, at, n1, n2, n3, n4, n5);

        const bool higher_order = n5 != 0;
        int n6 = 0, n7 = 0, n8 = 0;
        if (higher_order) card.another(n6, n7, n8);

        if (lcid == blast_curve) {
            log_recognized();
            text(outfile, "CONWEP only available for segment sets in Kestrune\n");
            continue;
        }

        text(inpfile, "\n Pressure loads:\n");
        write_group({{"lcid", lcid},
                     {"n1", n1},
                     {"n2", n2},
                     {"n3", n3},
                     {"n4", n4},
                     {"sf", sf},
                     {"sf", sf},
                     {"sf", sf},
                     {"sf", sf},
                     {"t0", at}});

        log_recognized();
        if (titled) log_ignored_title();
        if (higher_order)
            log_unused({{"n5", n5}, {"n6", n6}, {"n7", n7}, {"n8", n8}});
        else
            log_unused({});
    }
}
