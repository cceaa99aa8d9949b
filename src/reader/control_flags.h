// The flags of the control file, a row for each.
#pragma once

#include <array>
#include <string_view>

#include "reader/run.h"

struct ControlFlag {
    std::string_view name;  // in the control file, there in any case, and in the table on the terminal
    int* variable;
    int initially;             // in a new control file; 0 in one that does not name the flag
    std::string_view comment;  // behind the value in a new control file
    bool whole_name = false;   // a label that goes on behind the name is another one
};

// In the order of the control file and of the table on the terminal, in which labels are compared, too.
inline constexpr std::array control_flags = {
    ControlFlag{"cardflag", &cardflag, 1, ".card file switch 0=don't print, 1=print"},
    ControlFlag{"setflag", &setflag, 1, ".set file switch 0=don't print, 1=print"},
    ControlFlag{"geomflag", &geomflag, 1, ".geom file switch 0=don't print, 1=print"},
    ControlFlag{"defflag", &defflag, 0, "input deck defaults switch 0=concise output, 1=comprehensive output"},
    ControlFlag{"stndflag", &stndflag, 0,
                "0=don't use standards file; 1=use orts standards file; 2=use zel standards file"},
    ControlFlag{"contflag", &contflag, 1,
                "contact section switch 0=don't print, 1=print, 2=print using auto contact to tied node conversion "
                "funtionality"},                                                                   // sic
    ControlFlag{"icflag", &icflag, 1, "initial conditions section 0=don't print, 1=print", true},  // sic: alone in that
    ControlFlag{"lcflag", &lcflag, 0, "load curve section 0=don't print, 1=print"},
    ControlFlag{"tranflag", &tranflag, 0, "transformation section 0=don't print, 1=print"},
    ControlFlag{"amrflag", &amrflag, 0, "amr section 0=don't print, 1=print"},
    ControlFlag{"sphflag", &sphflag, 1, "sph section 0=don't print, 1=print"},
    ControlFlag{"plotflag", &plotflag, 1, "plot section 0=don't print, 1=print"},
    ControlFlag{"accelflag", &accelflag, 0,  // sic: the words of the plot section
                "plot section 0=don't use accelerometer functionality, 1=convert locally defined coordinate systems to "
                "accelerometer keywords"},
};
