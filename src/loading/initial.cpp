// Initial conditions: *INITIAL_VELOCITY, *INITIAL_VELOCITY_GENERATION and *INITIAL_DETONATION.
#include <cstdio>

#include "loading/loading.h"
#include "loading/vector.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/run.h"

namespace
{
// The solver's type of a node set; 1 is a part set, 2 a part.
constexpr int node_set = 0;

struct InitialVelocity {
    int id, styp;
    Vector velocity;
    float omega;
    Vector p, q;  // two points on the axis of rotation
};

void write_initial_velocity(const InitialVelocity& initial)
{
    const auto& [id, styp, v, omega, p, q] = initial;
    text(inpfile, "\n Initial velocity definition:\n");
    print(inpfile, "!%9s %10s %10s %10s %10s %10s%7s!--- styp: Define type of ID\n", "id", "styp", "vx", "vy", "vz",
          "omega", " ");
    print(inpfile, "%10i %10i %10.3e %10.3e %10.3e %10.3e%7s!---       0=Node Set ID\n", id, styp, v.x, v.y, v.z, omega,
          " ");
    print(inpfile, "!%9s %10s %10s %10s %10s %10s%7s!---       1=Part Set ID\n", "px", "py", "pz", "qx", "qy", "qz",
          " ");
    print(inpfile, "%10.3e %10.3e %10.3e %10.3e %10.3e %10.3e%7s!---       2=Part ID\n", p.x, p.y, p.z, q.x, q.y, q.z,
          " ");
}
}  // namespace

void ivelocity()
{
    for (Card card; card.next();) {
        const int nsid = card.integer();
        const int nsidex = card.integer();
        const int boxid = card.integer();
        const int irigid = card.integer();
        card.another();
        const Vector velocity = read_vector(card);
        const float vxr = card.real();
        const float vyr = card.real();
        const float vzr = card.real();
        if (nsidex > 0) card.another();  // velocities of the exempted nodes: not converted

        if (boxid != 0 || nsidex != 0 || irigid != 0) {
            std::printf("\nWarning: The boxid, nsidex, and irigid options are not available on the\n");
            std::printf("*INITIAL_VELOCITY card.  This keyword is being skipped.\n");
            log_skipped();
            continue;
        }
        log_recognized();
        log_unused(
            {{"nsidex", nsidex}, {"boxid", boxid}, {"irigid", irigid}, {"vxr", vxr}, {"vyr", vyr}, {"vzr", vzr}});
        // sic: the rotation is dropped
        write_initial_velocity({nsid, node_set, velocity, 0.0f, {}, {}});
    }
}

void ivelogen()
{
    for (Card card; card.next();) {
        InitialVelocity initial{};
        initial.id = card.integer();
        initial.styp = card.integer();
        initial.omega = card.real();
        initial.velocity = read_vector(card);  // the seventh field, ivatn, is not converted
        card.another();
        initial.p = read_vector(card);
        initial.q = read_vector(card);  // sic: the axis' direction as it stands
        const float phase = card.real();

        log_recognized();
        log_unused({{"phase", phase}});
        if (initial.styp == 3) initial.styp = node_set;  // part sets and parts have the solver's numbers
        write_initial_velocity(initial);
    }
}

void idetonat()
{
    for (Card card; card.next();) {
        int pid = card.integer();
        const Vector point = read_vector(card);
        const float lt = card.real();

        if (pid < 0) {
            card.another();
            const float peak = card.real();
            const float decay = card.real();
            const Vector s = read_vector(card);
            const int nid = card.integer();

            log_recognized();
            log_unused_heading();
            print(outfile, "%10s:%10i . . . Changed to 0 for Kestrune input\n", "pid", pid);
            log_field({"peak", peak});
            log_field({"decay", decay});
            log_field({"xs", s.x});
            log_field({"ys", s.y});
            log_field({"zs", s.z});
            log_field({"nid", nid});
            std::printf("\nWarning: pid = %i is not available for detonation point in Kestrune\n", pid);
            std::printf("Changing pid to 0\n");
            pid = 0;
        } else {
            log_recognized();
            log_unused({});
        }

        text(inpfile, "\n Detonation point definition:\n");
        // sic: the part's number stands below "mid"
        print(inpfile, "!%9s %10s %10s %10s %10s\n", "mid", "dx", "dy", "dz", "dtime");
        print(inpfile, "%10i %10.3e %10.3e %10.3e %10.3e\n", pid, point.x, point.y, point.z, lt);
    }
}
