// "Plot Options".
#include <vector>

#include "support/control_lines.h"

using PlotOptions = FreshRun;

namespace
{
struct Dump {
    bool unless_standards;
    const char* label;
    int value;
};
constexpr bool S = true;
constexpr bool always = false;

const std::vector<Dump> dumps = {
    {S, "Dump node velocity", 1},
    {always, "Dump node acceleration", 1},
    {S, "Dump node mass", 1},
    {always, "Dump node angular momentum", 0},
    {always, "Dump node angular velocity", 0},
    {S, "Dump solid element index", 1},
    {always, "Dump solid element rank", 1},
    {always, "Dump solid element effective strain", 1},
    {always, "Dump solid element yield function", 1},
    {always, "Dump solid element stress tensor", 1},
    {S, "Dump solid element material type", 1},
    {S, "Dump solid element part id", 1},
    {always, "Dump solid element history variables", 0},
    {S, "Dump solid element internal energy", 1},
    {S, "Dump shell element index", 1},
    {S, "Dump solid element material type", 1},
    {S, "Dump solid element part id", 1},
    {always, "Dump shell element rank", 0},
    {always, "Dump shell element effective strain", 0},
    {always, "Dump shell element yield function", 0},
    {always, "Dump shell element stress tensor", 0},
    {always, "Dump shell element history variables", 0},
    {S, "Dump particle velocity", 1},
    {always, "Dump particle acceleration", 0},
    {S, "Dump particle mass", 1},
    {always, "Dump particle rank", 0},
    {always, "Dump SPH rank", 0},
    {always, "Dump SPH number of neighbors", 0},
    {S, "Dump SPH part id", 1},
    {always, "Dump SPH mass", 1},
    {always, "Dump SPH initial density", 0},
    {always, "Dump SPH initial smoothing length", 0},
    {S, "Dump SPH density", 1},
    {always, "Dump SPH smoothing length", 1},
    {S, "Dump SPH velocity", 1},
    {always, "Dump SPH acceleration", 0},
    {always, "Dump SPH stress", 1},
    {always, "Dump SPH effective strain", 1},
    {always, "Dump SPH bulk viscosity", 0},
    {S, "Dump SPH internal energy", 1},
    {always, "Dump SPH failure flag", 0},
    {always, "Dump SPH correction for contact", 0},
    {always, "Dump SPH integral unit", 0},
    {always, "Dump SPH boundary normal", 0},
    {always, "Dump SPH sound speed", 0},
    {always, "Dump SPH history variables", 0},
};

std::string comment(const std::string& label)
{
    if (label == "Dump node velocity") return "       !--- 0=off, 1=on (same for all \"Dump\" options)";
    if (label == "Dump SPH stress") return "       !--- used to derive pressure";
    if (label == "Dump SPH integral unit") return "       !--- used to find boundary particles";
    if (label == "Dump SPH boundary normal") return "       !--- normal vector for boundary particles";
    return "";
}

std::string expected(bool standards)
{
    std::string deck = "!------------------------------------------------\n"
                       "! Plot Options        \n"
                       "!------------------------------------------------\n"
                       "\n";
    if (!standards) {
        deck += line(" Plot file type                       : %10i", 2);
        deck += "       !--- 1=FieldView format, 2=VisIt format, 3=both\n";
    }
    deck += line(" Plot file base name                  : %10s", "kestrune");
    deck += "       !--- Defaults: qarn (Fieldview), kestrune (VisIt)\n";
    for (const Dump& dump : dumps) {
        if (standards && dump.unless_standards) continue;
        std::string label = std::string(" ") + dump.label;
        label.resize(38, ' ');
        deck += label + line(": %10i", dump.value) + comment(dump.label) + "\n";
    }
    return deck + "\n\n";
}
}  // namespace

TEST_F(PlotOptions, EachKindOfDeckHasItsLines)
{
    for (const Flags& flags : all_flags) {
        set_flags(flags);
        EXPECT_EQ(convert(plot_options, "").deck, expected(flags.stndflag != 0)) << flags.defflag << flags.stndflag;
    }
}

TEST_F(PlotOptions, TheFirstSwitchCarriesTheComment)
{
    EXPECT_EQ(lines_equal(convert(plot_options, "").deck,
                          " Dump node velocity                   :          1       !--- "
                          "0=off, 1=on (same for all \"Dump\" options)"),
              1U);
}

TEST_F(PlotOptions, WithStandardsNoSwitchCarriesIt)
{
    stndflag = 1;
    EXPECT_EQ(convert(plot_options, "").deck.find("same for all"), std::string::npos);
}

TEST_F(PlotOptions, SolidLabelsAreRepeatedAmongTheShells)
{
    const std::string deck = convert(plot_options, "").deck;
    EXPECT_EQ(lines_equal(deck, " Dump solid element material type     :          1"), 2U);
    EXPECT_EQ(lines_equal(deck, " Dump solid element part id           :          1"), 2U);
}
