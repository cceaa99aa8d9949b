// *BOUNDARY keywords: waves let out, prescribed motions, fixed degrees of freedom, symmetry planes.
#include "loading/boundary.h"

#include "loading/loading.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

// *BOUNDARY_NON_REFLECTING: boundaries that let waves out.
void bnonreflect()
{
    for (Card card; card.next();) {
        int ssid;
        float ad, as;
        card.read(ssid, ad, as);

        text(inpfile, "\n Non-reflecting boundary set:\n");
        write_group({{"SSID", ssid}});

        log_recognized();
        log_unused({{"ad", ad}, {"as", as}});
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

// *BOUNDARY_PRESCRIBED_MOTION_NODE and *BOUNDARY_PRESCRIBED_MOTION_SET, each also as _ID. Any other form is logged
// alone.
void bprescribedmotion()
{
    const bool of_set = keyword_is("*BOUNDARY_PRESCRIBED_MOTION_SET");
    const bool of_node = keyword_is("*BOUNDARY_PRESCRIBED_MOTION_NODE");
    const bool titled =
        keyword_is("*BOUNDARY_PRESCRIBED_MOTION_SET_ID") || keyword_is("*BOUNDARY_PRESCRIBED_MOTION_NODE_ID");
    if (titled) skip_title();

    // sic: only the first card behind a title, also when it is refused
    for (Card card(titled ? one_card : all_cards); card.next();) {
        PrescribedMotion motion;
        int vid;
        float death, birth;
        card.read(motion.id, motion.dof, motion.vad, motion.lcid, motion.sf, vid, death, birth);

        const bool offset = motion.dof > 8;
        float offset1 = 0.0f, offset2 = 0.0f;
        int mrb = 0, node1 = 0, node2 = 0;
        if (offset || motion.vad >= 4) card.another(offset1, offset2, mrb, node1, node2);

        if (motion.vad >= 2) {
            warn("\nWarning: vad for prescribed motion must be less than 2\n"
                 "Skipping %s\n",
                 cbuffer);
            log_skipped();
            continue;
        }

        if (of_set) write_prescribed_motion(Target::set, motion);
        if (of_node) write_prescribed_motion(Target::node, motion);

        log_recognized();
        if (titled) log_ignored_title();
        log_unused({{"vid", vid}, {"death", death}, {"birth", birth}});
        if (offset)
            log_fields({{"offset1", offset1}, {"offset2", offset2}, {"mrb", mrb}, {"node1", node1}, {"node2", node2}});
    }
}

// *BOUNDARY_SPC_NODE and *BOUNDARY_SPC_SET, each also as _ID: fixed degrees of freedom. Any other form is logged alone.
void bspc()
{
    const bool of_set = keyword_is("*BOUNDARY_SPC_SET");
    const bool of_node = keyword_is("*BOUNDARY_SPC_NODE");
    const bool titled = keyword_is("*BOUNDARY_SPC_SET_ID") || keyword_is("*BOUNDARY_SPC_NODE_ID");
    if (titled) skip_title();

    for (Card card(titled ? one_card : all_cards); card.next();) {  // sic: only the first card behind a title
        int id, cid, dofx, dofy, dofz, dofrx, dofry, dofrz;
        card.read(id, cid, dofx, dofy, dofz, dofrx, dofry, dofrz);

        if (of_set || of_node) {
            text(inpfile, of_set ? "\n Nodal SPC set:\n" : "\n Nodal SPC node:\n");
            write_group({{of_set ? "nsid" : "nid", id},
                         {"csid", cid},
                         {"tx", dofx},
                         {"ty", dofy},
                         {"tz", dofz},
                         {"rx", dofrx},
                         {"ry", dofry},
                         {"rz", dofrz}});
        }

        log_recognized();
        if (titled) log_ignored_title();
        log_unused({});
    }
}

// *BOUNDARY_SPH_SYMMETRY_PLANE.
void bsphsym()
{
    for (Card card; card.next();) {
        float vtx, vty, vtz, vhx, vhy, vhz;
        card.read(vtx, vty, vtz, vhx, vhy, vhz);

        text(inpfile, "\n SPH symmetry plane:\n");
        write_group({{"px", vtx}, {"py", vty}, {"pz", vtz}, {"qx", vhx}, {"qy", vhy}, {"qz", vhz}});

        log_recognized();
        log_unused({});
    }
}

// *BOUNDARY_SYMMETRY_FAILURE.
void bsymwfail()
{
    for (Card card; card.next();) {
        int ssid;
        float fs, vtx, vty, vtz, vhx, vhy, vhz;
        card.read(ssid, fs, vtx, vty, vtz, vhx, vhy, vhz);

        text(inpfile, "\n Symmetry plane with failure set:\n");
        write_group({{"ssid", ssid},
                     {"px", vtx},
                     {"py", vty},
                     {"pz", vtz},
                     {"qx", vhx},
                     {"qy", vhy},
                     {"qz", vhz},
                     {"sigmfail", fs}});  // sic: "sigmfail" here, "sigfail" in the templates

        log_recognized();
        log_unused({});
    }
}
