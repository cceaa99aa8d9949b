// "Status File Control Section".
#include "support/control_lines.h"

using StatusFile = FreshRun;

TEST_F(StatusFile, SwitchesStandInTheirOrder)
{
    EXPECT_EQ(convert(status_file, "").deck, "!------------------------------------------------\n"
                                             "! Status File Control Section\n"
                                             "!------------------------------------------------\n"
                                             "!--------------------------------- 0=off, 1=on\n"
                                             " Status File Switch: PARTS         1\n"
                                             "                     MVE           1\n"
                                             "                     EULER         0\n"
                                             "                     MEMORY        1\n"
                                             "                     CONTACT       1\n"
                                             "                     EFFICIENCY    1\n"
                                             "                     SPHLM         1\n"
                                             "                     PARCNT        1\n"
                                             "                     DELETION      1\n"
                                             "                     DEACTIVATION  0\n"
                                             "                     CLE_FORCE     0\n"
                                             "\n"
                                             "\n");
}
