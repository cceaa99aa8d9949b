// *LOAD keywords: air blasts, nodal forces, pressures on segment sets and segments.
#include <cstdio>
#include <cstring>

#include "loading/boundary.h"
#include "loading/loading.h"
#include "loading/vector.h"
#include "reader/card.h"
#include "reader/debug_log.h"
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
        if (Card card; card.next()) {
            segments.ssid = card.integer();
            lcid = card.integer();
        }
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
    if (!blast_segments->found)
        std::printf("\nWarning: No *LOAD_SEGMENT_SET found for *LOAD_BLAST, using segment set 0\n");
    return blast_segments->ssid;
}
}  // namespace

// *LOAD_BLAST.
void loadblast()
{
    for (Card card; card.next();) {
        const float wgt = card.real();
        const Vector charge = read_vector(card);
        const float tbo = card.real();
        const int iunit = card.integer();
        const int isurf = card.integer();
        card.another();
        const float cfm = card.real();
        const float cfl = card.real();
        const float cft = card.real();
        const float cfp = card.real();

        log_recognized();
        log_unused({});
        const int ssid = blast_segment_set();
        text(inpfile, "\n Blast Load (CONWEP) Definition:\n");
        print(inpfile, "!%9s %10s %10s %10s %10s\n", "ssid", "wgt", "xbo", "ybo", "zbo");
        print(inpfile, "%10i %10.3e %10.3e %10.3e %10.3e\n", ssid, wgt, charge.x, charge.y, charge.z);
        print(inpfile, "!%9s %10s\n", "tbo", "isurf");
        print(inpfile, "%10.3e %10i\n", tbo, isurf);
        print(inpfile, "!%9s %10s %10s %10s %10s\n", "iunit", "cfm", "cfl", "cft", "cfp");
        print(inpfile, "%10i %10.3e %10.3e %10.3e %10.3e\n", iunit, cfm, cfl, cft, cfp);
    }
}

namespace
{
struct NodalForces {
    int id, dof, lcid;
    float sf;
    int cid, m1, m2, m3;
};

NodalForces read_nodal_forces(Card& card)
{
    return {card.integer(), card.integer(), card.integer(), card.real(),
            card.integer(), card.integer(), card.integer(), card.integer()};
}

void write_nodal_forces(Target target, const NodalForces& forces)
{
    const bool set = target == Target::set;
    text(inpfile, set ? "\n Nodal forces set:\n" : "\n Nodal forces:\n");
    print(inpfile, "!%9s %10s %10s %10s %10s %10s %10s %10s\n", set ? "nsid" : "nid", "dir", "lcid", "sf", "csid", "m1",
          "m2", "m3");
    print(inpfile, "%10i %10i %10i %10.3e %10i %10i %10i %10i\n", forces.id, forces.dof, forces.lcid, forces.sf,
          forces.cid, forces.m1, forces.m2, forces.m3);
}
}  // namespace

// *LOAD_NODE_POINT and _SET. Any other form is logged alone.
void loadnode()
{
    const bool of_set = keyword_is("*LOAD_NODE_SET");
    const bool of_node = keyword_is("*LOAD_NODE_POINT");

    for (Card card; card.next();) {
        const NodalForces forces = read_nodal_forces(card);

        if (of_node) write_nodal_forces(Target::node, forces);
        if (of_set) write_nodal_forces(Target::set, forces);
        log_recognized();
        log_unused({});
    }
}

// *LOAD_SEGMENT_SET, also with _ID.
void loadsegset()
{
    const bool titled = keyword_is("*LOAD_SEGMENT_SET_ID");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first card behind a title
        const int ssid = card.integer();
        const int lcid = card.integer();
        const float sf = card.real();
        const float at = card.real();
        const float dt = card.real();

        log_recognized();
        if (lcid == blast_curve) {
            text(outfile, "not needed for CONWEP in Kestrune\n");
        } else {
            if (titled) log_ignored_title();
            log_unused({{"dt", dt}});
            text(inpfile, "\n Pressure loads set:\n");
            print(inpfile, "!%9s %10s %10s %10s\n", "ssid", "lcid", "sf", "t0");
            print(inpfile, "%10i %10i %10.3e %10.3e\n", ssid, lcid, sf, at);
        }
    }
}

// *LOAD_SEGMENT, also with _ID.
void loadseg()
{
    const bool titled = keyword_is("*LOAD_SEGMENT_ID");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first card behind a title
        const int lcid = card.integer();
        const float sf = card.real();
        const float at = card.real();
        const int n1 = card.integer();
        const int n2 = card.integer();
        const int n3 = card.integer();
        const int n4 = card.integer();
        const int n5 = card.integer();

        const bool higher_order = n5 != 0;
        int n6 = 0;
        int n7 = 0;
        int n8 = 0;
        if (higher_order) {
            card.another();
            n6 = card.integer();
            n7 = card.integer();
            n8 = card.integer();
        }

        log_recognized();
        if (lcid == blast_curve) {
            text(outfile, "CONWEP only available for segment sets in Kestrune\n");
        } else {
            if (titled) log_ignored_title();
            if (higher_order)
                log_unused({{"n5", n5}, {"n6", n6}, {"n7", n7}, {"n8", n8}});
            else
                log_unused({});
            text(inpfile, "\n Pressure loads:\n");
            print(inpfile, "!%9s %10s %10s %10s %10s %10s %10s %10s %10s %10s\n", "lcid", "n1", "n2", "n3", "n4", "sf",
                  "sf", "sf", "sf", "t0");
            print(inpfile, "%10i %10i %10i %10i %10i %10.3e %10.3e %10.3e %10.3e %10.3e\n", lcid, n1, n2, n3, n4, sf,
                  sf, sf, sf, at);
        }
    }
}
