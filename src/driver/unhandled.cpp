// Keywords of families that no section knows.
#include "driver/driver.h"

namespace
{
constexpr PassRow unhandled_rows[] = {
    {"*BOUNDARY", passed_over},
    {"*CONTACT", passed_over},
    {"*CONTROL", passed_over},
    {"*DATABASE", passed_over},
    {{"*DEFINE_BOX", 10}, passed_over},  // sic: compares "*DEFINE_BO"
    {"*DEFINE_COORDINATE", passed_over},
    {{"*DEFINE_CURVE", 12}, passed_over},  // sic: compares "*DEFINE_CURV"
    {"*ELEMENT_SHELL_BETA", passed_over},
    {"*ELEMENT_SHELL_DOF", passed_over},
    {"*ELEMENT_SHELL_MCID", passed_over},
    {"*ELEMENT_SHELL_OFFSET", passed_over},
    {"*ELEMENT_SHELL_THICKNESS", passed_over},
    {"*ELEMENT_SHELL", passed_over},
    {"*ELEMENT_SOLID_ORTHO", passed_over},
    {"*ELEMENT_SOLID_DOF", passed_over},
    {"*ELEMENT_SOLID_TET", passed_over},
    {"*ELEMENT_SOLID", passed_over},
    {"*ELEMENT_SPH", passed_over},
    {"*ELEMENT", skipped},
    {"*END", end_of_pass},
    {"*EOS", passed_over},
    {"*HOURGLASS", passed_over},
    {"*INITIAL", passed_over},
    {"*LOAD", passed_over},
    {"*MAT", passed_over},
    {"*NODE", passed_over},
    {"*PART", passed_over},
    {"*SECTION", passed_over},
    {"*SET", passed_over},
    {"*TITLE", passed_over},
    {"", skipped, "", "among them *INCLUDE, *PARAMETER, *CONSTRAINED, *RIGIDWALL, *AIRBAG"},
};
static_assert(every_row_reachable(unhandled_rows));
}  // namespace

const Pass unhandled_keywords{"unhandled keywords", unhandled_rows};
