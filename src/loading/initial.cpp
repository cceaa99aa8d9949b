// Initial conditions.
#include "loading/loading.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
// The solver's type of a node set; 1 is a part set, 2 a part.
constexpr int node_set = 0;

struct InitialVelocity {
    int id = 0, styp = node_set;
    float vx = 0.0f, vy = 0.0f, vz = 0.0f, omega = 0.0f;
    // two points on the axis of rotation
    float px = 0.0f, py = 0.0f, pz = 0.0f;
    float qx = 0.0f, qy = 0.0f, qz = 0.0f;
};

void write_initial_velocity(const InitialVelocity& initial)
{
    text(inpfile, "\n Initial velocity definition:\n");
    print(inpfile, "!%9s %10s %10s %10s %10s %10s%7s!--- styp: Define type of ID\n",  //
          "id", "styp", "vx", "vy", "vz", "omega", " ");
    print(inpfile, "%10i %10i %10.3e %10.3e %10.3e %10.3e%7s!---       0=Node Set ID\n",  //
          initial.id, initial.styp, initial.vx, initial.vy, initial.vz, initial.omega, " ");
    print(inpfile, "!%9s %10s %10s %10s %10s %10s%7s!---       1=Part Set ID\n",  //
          "px", "py", "pz", "qx", "qy", "qz", " ");
    print(inpfile, "%10.3e %10.3e %10.3e %10.3e %10.3e %10.3e%7s!---       2=Part ID\n",  //
          initial.px, initial.py, initial.pz, initial.qx, initial.qy, initial.qz, " ");
}
}  // namespace

// *INITIAL_VELOCITY of a node set.
void ivelocity()
{
    for (Card card; card.next();) {
        InitialVelocity initial;
        int nsidex, boxid, irigid;
        float vxr, vyr, vzr;
        card.read(initial.id, nsidex, boxid, irigid);
        card.another(initial.vx, initial.vy, initial.vz, vxr, vyr, vzr);
        if (nsidex > 0) card.another();  // velocities of the exempted nodes: not converted

        if (boxid != 0 || nsidex != 0 || irigid != 0) {
            warn("\nWarning: The boxid, nsidex, and irigid options are not available on the\n"
                 "*INITIAL_VELOCITY card.  This keyword is being skipped.\n");
            log_skipped();
            continue;
        }

        write_initial_velocity(initial);  // sic: the rotation is dropped

        log_recognized();
        log_unused(
            {{"nsidex", nsidex}, {"boxid", boxid}, {"irigid", irigid}, {"vxr", vxr}, {"vyr", vyr}, {"vzr", vzr}});
    }
}

// *INITIAL_VELOCITY_GENERATION of a part, a part set or a node set.
void ivelogen()
{
    for (Card card; card.next();) {
        InitialVelocity initial;
        float phase;
        card.read(initial.id, initial.styp, initial.omega, initial.vx, initial.vy, initial.vz);  // IVATN is left unread
        // sic: the axis' direction stands as its second point
        card.another(initial.px, initial.py, initial.pz, initial.qx, initial.qy, initial.qz, phase);

        if (initial.styp == 3) initial.styp = node_set;  // part sets and parts have the solver's numbers
        write_initial_velocity(initial);

        log_recognized();
        log_unused({{"phase", phase}});
    }
}

// *INITIAL_DETONATION.
void idetonat()
{
    for (Card card; card.next();) {
        int pid;
        float x, y, z, lt;
        card.read(pid, x, y, z, lt);

        const bool acoustic = pid < 0;
        float peak, decay, xs, ys, zs;
        int nid;
        if (acoustic) card.another(peak, decay, xs, ys, zs, nid);
        const int mid = acoustic ? 0 : pid;

        text(inpfile, "\n Detonation point definition:\n");
        // sic: the part's number stands below "mid"
        write_group({{"mid", mid}, {"dx", x}, {"dy", y}, {"dz", z}, {"dtime", lt}});

        log_recognized();
        if (!acoustic) {
            log_unused({});
            continue;
        }
        log_unused_heading();
        print(outfile, "%10s:%10i . . . Changed to 0 for Kestrune input\n", "pid", pid);
        log_fields({{"peak", peak}, {"decay", decay}, {"xs", xs}, {"ys", ys}, {"zs", zs}, {"nid", nid}});
        warn("\nWarning: pid = %i is not available for detonation point in Kestrune\n"
             "Changing pid to 0\n",
             pid);
    }
}
