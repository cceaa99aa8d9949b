// The last two settings sections of the main deck: "Restart Control Section" and "Partition Section".
#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
constexpr char restart_files[] = "! Restart file                          : \n"
                                 "! AMR Restart file                      : \n"
                                 "! Delete contact definition             : \n"
                                 "! General contact part removal          : \n"
                                 "! General contact part set removal      : \n"
                                 "! Delete part                           : \n"
                                 "! Delete part set                       : \n";

constexpr char repartition[] =
    "  Repartition for contact calculation           :     2     !--- 0=balance for number of surf segments\n"
    "                                                            !--- 1=minimize cost of contact algorithm\n"
    "                                                            !--- 2=balance contact detection and contact algorithm costs\n"
    "\n";

// sic: the spelling of "advaced"
constexpr char partition_defaults[] =
    "! Overlap element computation with communication:     !--- Defaults should only be changed by advaced users\n"
    "! Section size of solid element groups          : \n"
    "! Section size of shell element groups          : \n"
    "! Surface partition                             :     2\n"
    "! Weight factor of penalty force calculation    :   3.0\n"
    "! Weight factor of nearest neighbor search      :   1.0\n";
}  // namespace

void restart_control()
{
    banner(inpfile, "Restart Control Section");
    text(inpfile, "\n");
    text(inpfile, restart_files);
    text(inpfile, "\n\n");
}

void partition()
{
    banner(inpfile, "Partition Section");
    text(inpfile, "\n");
    text(inpfile, repartition);
    if (!standalone()) return;  // sic: without the empty lines that end the other sections
    text(inpfile, partition_defaults);
    text(inpfile, "\n\n");
}
