#include <cstdarg>
#include <cstdio>

#include "loading/loading.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
using BoundarySection = FreshRun;
using DiscreteElements = FreshRun;

[[gnu::format(printf, 1, 2)]] std::string formatted(const char* format, ...)
{
    char line[512];
    std::va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(line, sizeof line, format, values);
    va_end(values);
    return {line, static_cast<std::size_t>(length)};
}

const std::string opening = "!------------------------------------------------\n"
                            "! Boundary and Initial Conditions Definition\n"
                            "!------------------------------------------------\n"
                            "\n";

std::string initial_velocity()
{
    std::string lines = "!Initial velocity definition:\n";
    lines += formatted("!%9s%11s%11s%11s%11s%11s", "id", "styp", "vx", "vy", "vz", "omega");
    lines += formatted("%7s!--- styp: Define type of ID\n", " ");
    lines += formatted("!%9.3e%11.3e%11.3e%11.3e%11.3e%11.3e", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    lines += formatted("%7s!---       0=Node Set ID\n", " ");
    lines += formatted("!%9s%11s%11s%11s%11s%11s", "px", "py", "pz", "qx", "qy", "qz");
    lines += formatted("%7s!---       1=Part Set ID\n", " ");
    lines += formatted("!%9.3e%11.3e%11.3e%11.3e%11.3e%11.3e", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    lines += formatted("%7s!---       2=Part ID\n\n", " ");
    return lines;
}

std::string loads()
{
    std::string lines = "!Pressure loads:\n";
    lines += formatted("!%9s%11s%11s%11s%11s%11s%11s%11s%11s%11s", "lcid", "n1", "n2", "n3", "n4", "sf1", "sf2", "sf3",
                       "sf4", "t0");
    lines += formatted("%3s!--- load curve; define nodes of segment\n", " ");
    lines += formatted("!%9i%11i%11i%11i%11i%11.1f%11.1f%11.1f%11.1f%11.1f", 1, 1, 3, 4, 2, 1.0, 1.0, 1.0, 1.0, 0.0);
    lines += formatted("%3s!--- define nodal pressure scale factors; initial time\n", " ");
    lines +=
        formatted("!%9i%11i%11i%11i%11i%11.1f%11.1f%11.1f%11.1f%11.1f\n\n", 1, 5, 7, 8, 6, 1.0, 1.0, 1.0, 1.0, 0.0);

    lines += "!Pressure loads set:\n";
    lines += formatted("!--- %5s%11s%11s%11s\n", "ssid", "lcid", "sf", "t0");
    lines += formatted("!%9i%11i%11.1f%11.1f\n", 1, 1, 1.0, 0.0);

    for (const bool set : {false, true}) {
        lines += set ? "\n!Nodal forces set:\n" : "\n!Nodal forces:\n";
        lines += formatted("!--- %5s %10s %10s %10s %10s %10s %10s %10s\n", set ? "nsid" : "nid", "dir", "lcid", "sf",
                           "csid", "m1", "m2", "m3");
        lines += formatted("!%9i %10i %10i %10.3e %10i %10i %10i %10i\n", 1, 1, 1, 1.0, 0, 0, 0, 0);
    }

    lines += "\n!Nodal forces set auto scale:            \n";
    lines += formatted("!--- %5s%10s                      !--type: 1=force/node count, 2=force*mass_fraction\n", "nsid",
                       "type");
    lines += formatted("!    %5i%10i\n", 1, 2);
    return lines;
}

std::string boundaries()
{
    std::string lines;
    for (const bool set : {false, true}) {
        lines += set ? formatted("\n!Prescribed motion set:%89s!--- opt: Define type\n", " ")
                     : formatted("\n!Prescribed motion:%93s!--- opt: Define type\n", " ");
        lines += formatted("!--- %5s %10s %10s %10s %10s %10s %10s %10s %10s %10s   !---      0=velocities\n",
                           set ? "nsid" : "nid", "opt", "lcid", "dof", "sf", "qx", "qy", "qz", "t_start", "t_end");
        lines +=
            formatted("!%9i %10i %10i %10i %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e   !---      1=accelerations\n", 1,
                      1, 1, 3, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0002);
    }

    constexpr char failure_heads[] = "!--- %5s%11s%11s%11s%11s%11s%11s%11s\n";
    constexpr char failure_values[] = "!%9i%11i%11i%11i%11i%11.1i%11.1i%11.1e\n";
    lines += "\n!Symmetry plane with failure:\n";
    lines += formatted(failure_heads, "nsegs", "px", "py", "pz", "qx", "qy", "qz", "sigfail");
    lines += formatted(failure_values, 2, 0, 0, 0, 0, 0, 0, 1.0e10);
    lines += formatted("!%9s%11s%11s%11s%11s%11s\n", "sid", "n1", "n2", "n3", "n4", "sigfail");
    lines += formatted("!%9i%11i%11i%11i%11i%11.1e\n", 1, 1, 2, 3, 4, 1.0e10);
    lines += formatted("!%9i%11i%11i%11i%11i%11.1e\n", 2, 6, 7, 8, 9, 1.0e10);
    lines += "\n!Symmetry plane with failure set:\n";
    lines += formatted(failure_heads, "ssid", "px", "py", "pz", "qx", "qy", "qz", "sigfail");
    lines += formatted(failure_values, 1, 0, 0, 0, 0, 0, 0, 1.0e10);

    lines += "\n!SPH symmetry plane:\n";
    lines += formatted("!--- %5s%11s%11s%11s%11s%11s\n", "px", "py", "pz", "qx", "qy", "qz");
    lines += formatted("!%9i%11i%11i%11i%11i%11.1i\n", 1, 0, 0, 0, 0, 0);

    constexpr char spc_heads[] = "!--- %5s %10s %10s %10s %10s %10s %10s %10s\n";
    constexpr char spc_values[] = "!%9i %10i %10i %10i %10i %10i %10i %10i\n";
    lines += "\n!Nodal SPC node:\n";
    lines += formatted(spc_heads, "nsid", "csid", "tx", "ty", "tz", "rx", "ry", "rz");
    lines += formatted(spc_values, 3, 0, 1, 0, 0, 0, 0, 0);
    lines += formatted(spc_values, 4, 0, 1, 0, 0, 0, 0, 0);
    lines += "\n!Nodal SPC set:\n";
    lines += formatted(spc_heads, "nsid", "csid", "tx", "ty", "tz", "rx", "ry", "rz");
    lines += formatted(spc_values, 1, 0, 1, 1, 1, 1, 1, 1);
    return lines;
}

std::string systems_and_actions()
{
    constexpr char ten_heads[] = "!--- %5s %10s %10s %10s %10s %10s %10s %10s %10s %10s\n";
    std::string lines = "\n!Local coordinate system:\n";
    lines += formatted(ten_heads, "csid", "ox", "oy", "oz", "px", "py", "pz", "qx", "qy", "qz");
    lines += formatted("!%9i %10.1f %10.1f %10.1f %10.1f %10.1f %10.1f %10.1f %10.1f %10.1f\n", 2, 0.0, 0.0, 0.0, 0.5,
                       0.5, 0.0, 0.0, 0.0, 0.0);
    lines += "\n!Local coordinate system nodes:\n";
    lines += formatted("!--- %5s %10s %10s %10s\n", "csid", "n1", "n2", "n3");
    lines += formatted("!%9i %10i %10i %10i\n", 2, 0, 0, 0);
    lines += "\n!Local coordinate system SPC:\n";
    lines += formatted("!--- %5s %10s %10s %10s %10s %10s %10s\n", "csid", "px", "py", "pz", "qx", "qy", "qz");
    lines += formatted("!%9i %10.1f %10.1f %10.1f %10.1f %10.1f %10.1f\n", 2, 0.5, 0.5, 0.0, 0.0, 0.0, 0.0);
    lines += "\n!Interactive action option:\n";
    lines += formatted(ten_heads, "sid", "stype", "freq", "crit", "param1", "param2", "param3", "param4", "param5",
                       "param6");
    lines += formatted("!%9i %10i %10.1e %10i %10i %10i %10i %10i %10i %10i\n", 2, 2, 2.0e-6, 1, 20, 2000, 0, 1, 0, 1);
    lines += "\n!Non-reflecting boundary:\n";
    lines += formatted("!--- %5s %10s %10s %10s %10s\n", "sid", "n1", "n2", "n3", "n4");
    lines += formatted("!%9i %10i %10i %10i %10i\n", 1, 1, 2, 3, 4);
    lines += "\n!Non-reflecting boundary set:\n";
    lines += formatted("!--- %5s\n", "ssid");
    lines += formatted("!%9i\n", 1);
    lines += "\n!Gravity load definition:\n";
    lines += formatted("!--- %5s %10s %10s %10s", "dir", "lcid", "sf", "lciddr");
    lines += "     !---dir: define gravitation direction 1=x-axis, 2=y-axis, 3=z-axis;\n";
    lines += formatted("!%9i %10i %10.1f %10s", 1, 1, 1.0, " ");
    lines += "     !---lcid; scale factor; place holder\n";
    return lines;
}

std::string explosions()
{
    std::string lines = "\n!Detonation point definition:\n";
    lines += formatted("!--- %5s %10s %10s %10s %10s\n", "pid", "dx", "dy", "dz", "dtime");
    lines += formatted("!%9i %10.1f %10.1f %10.1f %10.1f\n", 1, 0.0, 0.0, 0.0, 0.0);
    lines += "!-------------------------------\n";
    lines += "!             OR                \n";
    lines += "!-------------------------------\n";
    lines += formatted("!Detonation point definition:%10s%10s%10s\n", "pid", "nid", "Dtime");
    lines += "\n!Blast Load (CONWEP) Definition:\n";
    lines += formatted("!--- %5s %10s %10s %10s %10s\n", "ssid", "wgt", "xbo", "ybo", "zbo");
    lines += formatted("!%9i %10.3e %10.1f %10.1f %10.1f\n", 1, 1000.0, 30.0, 0.0, 0.0);
    lines += formatted("!%9s %10s\n", "tbo", "isurf");
    lines += formatted("!%9.3e %10i\n", 5.0e-5, 1);
    lines += formatted("!%9s %10s %10s %10s %10s\n", "iunit", "cfm", "cfl", "cft", "cfp");
    lines += formatted("!%9i %10.3e %10.3e %10.3e %10.3e\n", 5, 0.002205, 0.03281, 1000.0, 1.45e-5);
    return lines;
}

TEST_F(BoundarySection, AConciseDeckHasTheInitialVelocityTemplateAlone)
{
    for (const int flag : {0, 2}) {
        defflag = flag;
        const Written out = convert(boundary_section, "*KEYWORD\n*END\n");
        EXPECT_EQ(out.deck, opening + "\n" + initial_velocity() + "\n\n");
        EXPECT_EQ(out.log + out.terminal, "");
    }
}

TEST_F(BoundarySection, AComprehensiveDeckHasAllTemplates)
{
    defflag = 1;
    const Written out = convert(boundary_section, "*KEYWORD\n*END\n");
    EXPECT_EQ(out.deck, opening + "\n" + initial_velocity() + loads() + boundaries() + systems_and_actions() +
                            explosions() + "\n\n");
}

TEST_F(BoundarySection, TemplatesAreCommentsAndEmptyLines)
{
    defflag = 1;
    const Written out = convert(boundary_section, "*END\n");
    EXPECT_EQ(lines_with(out.deck, "!") + lines_equal(out.deck, ""), lines_with(out.deck, ""));
}

TEST_F(BoundarySection, ConvertedKeywordsStandBetweenBannerAndTemplates)
{
    const Written out = convert(boundary_section, "*BOUNDARY_NON_REFLECTING\n" + card({"12"}) + "*END\n");
    EXPECT_EQ(out.deck, opening + "\n Non-reflecting boundary set:\n!     SSID\n        12\n" + "\n" +
                            initial_velocity() + "\n\n");
}

TEST_F(DiscreteElements, TheSectionIsFixedText)
{
    const std::string blanks(60, ' ');
    const Written out = convert(discrete_elements, "*ELEMENT_DISCRETE\n" + card({"1"}) + "*END\n");
    EXPECT_EQ(out.deck,
              "!------------------------------------------------\n"
              "! Discrete Element Definitions\n"
              "!------------------------------------------------\n"
              "\n"
              "!Discrete element definition:\n"
              "!--- deid     id  type    id  type   dmid      sf     Opt   !deid--discrete elem id; id--elem end "
              "nodes/node sets; type: 0=node 1=node set\n" +
                  blanks + "!dmid--discrete elem mid; sf--scale factor\n" + blanks +
                  "!opt--no current function\n"
                  "\n"
                  "!!*** Linear spring material ***\n"
                  "! Discrete element material definition:\n"
                  "!!---    dmid   type\n"
                  "!           1      1\n"
                  "!!---       k (force/displ.)\n"
                  "!       value\n"
                  "\n"
                  "!!*** Nonlinear spring material ***\n"
                  "! Discrete element material definition:\n"
                  "!!---    dmid   type\n"
                  "!           4      4\n"
                  "!!---    lcid (force/displ.)\n"
                  "!           4\n"
                  "\n"
                  "!!*** Nonlinear damper material ***\n"
                  "! Discrete element material definition:\n"
                  "!!---    dmid   type\n"
                  "!           5      5\n"
                  "!!---    lcid (force/vel.)\n"
                  "!           5\n"
                  "\n\n");
    EXPECT_EQ(out.log + out.terminal, "");
}
}  // namespace
