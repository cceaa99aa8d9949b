#include "loading/loading.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

// Inactive lines to start from; no keyword of the deck is converted here.
void transformations()
{
    banner(inpfile, "Transformation Definitions");
    text(inpfile, "\n");

    print(inpfile, "!--------------------%10s%10s\n", "tsid", "tsid_type");
    print(inpfile, "!Grid Transformation:%10i%10i", 1, 1);
    print(inpfile, "%43s!--entity to be transformed; 0=NSID, 1=PSID, 2=PID\n", " ");
    print(inpfile, "!%19s%11s%10s%10s", " ", "tid1", "tid2", "tid3");
    print(inpfile, "%33s!--transformations in order of operation\n", " ");
    print(inpfile, "!%19s%11s%10s%10s\n\n", " ", "S1", "T1", "R1");

    text(inpfile, "!Scale Transformation Definition:\n");
    print(inpfile, "!%10s%10s%10s%10s%10s%10s%10s\n", "def_id", "X0", "Y0", "Z0", "sx", "sy", "sz");
    print(inpfile, "!%10s%10.3e%10.3e%10.3e%10.1f%10.1f%10.1f", "S1", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    print(inpfile, "%13s!--id; scaling origin; component scale factors\n\n", " ");

    text(inpfile, "!Translation Transformation Definition:\n");
    print(inpfile, "!%10s%10s%10s%10s\n", "def_id", "dx", "dy", "dz");
    print(inpfile, "!%10s%10.1f%10.1f%10.1f", "T1", 0.0, 0.0, 0.0);
    print(inpfile, "%43s!--id; components of translation\n\n", " ");

    text(inpfile, "!Rotation Transformation Definition:\n");
    print(inpfile, "!%10s%10s%10s%10s%10s%10s%10s%10s\n", "def_id", "ang", "X0", "Y0", "Z0", "sx", "sy", "sz");
    print(inpfile, "!%10s%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e%10.3e", "R1", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    print(inpfile, "%3s!--id; rotation angle; define axis of rotation (follows RH rule)\n\n", " ");
}
