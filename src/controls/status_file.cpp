// The main deck's "Status File Control Section".
#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
struct Switch {
    const char* name;
    int value;
};

constexpr Switch first_switch{"PARTS", 1};

constexpr Switch further_switches[] = {
    {"MVE", 1},   {"EULER", 0},  {"MEMORY", 1},   {"CONTACT", 1},      {"EFFICIENCY", 1},
    {"SPHLM", 1}, {"PARCNT", 1}, {"DELETION", 1}, {"DEACTIVATION", 0}, {"CLE_FORCE", 0},
};
}  // namespace

void status_file()
{
    banner(inpfile, "Status File Control Section");
    text(inpfile, "!--------------------------------- 0=off, 1=on\n");
    print(inpfile, " Status File Switch: %-12s%3i\n", first_switch.name, first_switch.value);
    for (const Switch& further : further_switches)
        print(inpfile, "                     %-12s%3i\n", further.name, further.value);
    text(inpfile, "\n\n");
}
