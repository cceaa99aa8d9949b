// *BOUNDARY keywords: waves let out, prescribed motions, fixed degrees of freedom, symmetry planes.
#include "loading/boundary.h"

#include <cstdio>

#include "loading/loading.h"
#include "loading/vector.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

// *BOUNDARY_NON_REFLECTING.
void bnonreflect()
{
    for (Card card; card.next();) {
        const int ssid = card.integer();
        const float ad = card.real();
        const float as = card.real();

        log_recognized();
        log_unused({{"ad", ad}, {"as", as}});
        text(inpfile, "\n Non-reflecting boundary set:\n");
        text(inpfile, "!     SSID\n");
        print(inpfile, "%10i\n", ssid);
    }
}

void write_prescribed_motion(Target target, const PrescribedMotion& motion)
{
    const bool set = target == Target::set;
    if (set)
        print(inpfile, "\n!Prescribed motion set:%89s!--- opt: Define type\n", " ");
    else
        print(inpfile, "\n!Prescribed motion:%93s!--- opt: Define type\n", " ");
    print(inpfile, "!--- %5s %10s %10s %10s %10s %10s %10s %10s %10s %10s   !---      0=velocities\n",
          set ? "nsid" : "nid", "opt", "lcid", "dof", "sf", "qx", "qy", "qz", "t_start", "t_end");
    // sic: always this end time, whatever birth and death the keyword has
    print(inpfile, "!%9i %10i %10i %10i %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e   !---      1=accelerations\n",
          motion.id, motion.vad, motion.lcid, motion.dof, motion.sf, 0.0, 0.0, 0.0, 0.0, 0.0002);
}

// *BOUNDARY_PRESCRIBED_MOTION_NODE and _SET, each also with _ID. Any other form is logged alone.
void bprescribedmotion()
{
    const bool of_set = keyword_is("*BOUNDARY_PRESCRIBED_MOTION_SET");
    const bool of_node = keyword_is("*BOUNDARY_PRESCRIBED_MOTION_NODE");
    const bool titled =
        keyword_is("*BOUNDARY_PRESCRIBED_MOTION_SET_ID") || keyword_is("*BOUNDARY_PRESCRIBED_MOTION_NODE_ID");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards);
         card.next();) {  // sic: only the first card behind a title, also when refused
        PrescribedMotion motion{};
        motion.id = card.integer();
        motion.dof = card.integer();
        motion.vad = card.integer();
        motion.lcid = card.integer();
        motion.sf = card.real();
        const int vid = card.integer();
        const float death = card.real();
        const float birth = card.real();

        const bool offset = motion.dof > 8;
        float offset1 = 0.0f;
        float offset2 = 0.0f;
        int mrb = 0;
        int node1 = 0;
        int node2 = 0;
        if (offset || motion.vad >= 4) {
            card.another();
            offset1 = card.real();
            offset2 = card.real();
            mrb = card.integer();
            node1 = card.integer();
            node2 = card.integer();
        }

        if (motion.vad >= 2) {
            std::printf("\nWarning: vad for prescribed motion must be less than 2\n");
            std::printf("Skipping %s\n", cbuffer);
            log_skipped();
        } else {
            log_recognized();
            if (titled) log_ignored_title();
            log_unused({{"vid", vid}, {"death", death}, {"birth", birth}});
            if (offset) {
                log_field({"offset1", offset1});
                log_field({"offset2", offset2});
                log_field({"mrb", mrb});
                log_field({"node1", node1});
                log_field({"node2", node2});
            }
            if (of_set) write_prescribed_motion(Target::set, motion);
            if (of_node) write_prescribed_motion(Target::node, motion);
        }
    }
}

namespace
{
struct Spc {
    int id, cid, dofx, dofy, dofz, dofrx, dofry, dofrz;
};

Spc read_spc(Card& card)
{
    return {card.integer(), card.integer(), card.integer(), card.integer(),
            card.integer(), card.integer(), card.integer(), card.integer()};
}

void write_spc(Target target, const Spc& spc)
{
    const bool set = target == Target::set;
    text(inpfile, set ? "\n Nodal SPC set:\n" : "\n Nodal SPC node:\n");
    print(inpfile, "!%9s %10s %10s %10s %10s %10s %10s %10s\n", set ? "nsid" : "nid", "csid", "tx", "ty", "tz", "rx",
          "ry", "rz");
    print(inpfile, "%10i %10i %10i %10i %10i %10i %10i %10i\n", spc.id, spc.cid, spc.dofx, spc.dofy, spc.dofz,
          spc.dofrx, spc.dofry, spc.dofrz);
}
}  // namespace

// *BOUNDARY_SPC_NODE and _SET, each also with _ID. Any other form is logged alone.
void bspc()
{
    const bool of_set = keyword_is("*BOUNDARY_SPC_SET");
    const bool of_node = keyword_is("*BOUNDARY_SPC_NODE");
    const bool titled = keyword_is("*BOUNDARY_SPC_SET_ID") || keyword_is("*BOUNDARY_SPC_NODE_ID");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first card behind a title
        const Spc spc = read_spc(card);

        log_recognized();
        if (titled) log_ignored_title();
        log_unused({});
        if (of_set) write_spc(Target::set, spc);
        if (of_node) write_spc(Target::node, spc);
    }
}

// *BOUNDARY_SPH_SYMMETRY_PLANE.
void bsphsym()
{
    for (Card card; card.next();) {
        const Vector tail = read_vector(card);
        const Vector head = read_vector(card);

        log_recognized();
        log_unused({});
        text(inpfile, "\n SPH symmetry plane:\n");
        print(inpfile, "!%9s %10s %10s %10s %10s %10s\n", "px", "py", "pz", "qx", "qy", "qz");
        print(inpfile, "%10.3e %10.3e %10.3e %10.3e %10.3e %10.3e\n", tail.x, tail.y, tail.z, head.x, head.y, head.z);
    }
}

// *BOUNDARY_SYMMETRY_FAILURE.
void bsymwfail()
{
    for (Card card; card.next();) {
        const int ssid = card.integer();
        const float failure_stress = card.real();
        const Vector tail = read_vector(card);
        const Vector head = read_vector(card);

        text(inpfile, "\n Symmetry plane with failure set:\n");
        // sic: "sigmfail" here, "sigfail" in the templates
        print(inpfile, "!%9s %10s %10s %10s %10s %10s %10s %10s\n", "ssid", "px", "py", "pz", "qx", "qy", "qz",
              "sigmfail");
        print(inpfile, "%10i %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e\n", ssid, tail.x, tail.y, tail.z, head.x,
              head.y, head.z, failure_stress);
        log_recognized();
        log_unused({});
    }
}
