// Takes the lines of each section apart: the column of every colon, the width of each value, the blanks before a
// comment, and the blanks at the end of a line. The solver finds its settings by these columns.
#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "support/control_lines.h"

using Layout = Controls;

namespace
{
std::vector<std::string> lines_of(const std::string& deck)
{
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < deck.size();) {
        const std::size_t end = deck.find('\n', begin);
        EXPECT_NE(end, std::string::npos) << "the last line has no newline";
        lines.push_back(deck.substr(begin, end - begin));
        begin = end == std::string::npos ? deck.size() : end + 1;
    }
    return lines;
}

// The comprehensive deck without a standards include file has every line that a section can have.
std::string comprehensive(void (*section)(), std::string_view deck = "*END\n")
{
    set_flags({1, 0});
    return convert(section, deck).deck;
}

// Where the comment of a line begins, behind its first column; the line's length when it has none.
std::size_t comment_of(const std::string& line)
{
    const std::size_t at = line.find('!', 1);
    return at == std::string::npos ? line.size() : at;
}

bool has_colon(const std::string& line)
{
    return line.find(':') < comment_of(line) && !line.starts_with("!-");
}

std::vector<std::string> setting_lines(const std::string& deck)
{
    std::vector<std::string> settings = lines_of(deck);
    std::erase_if(settings, [](const std::string& line) { return !has_colon(line); });
    return settings;
}

constexpr int no_comment = -1;

// One setting line. Columns are counted from 0, so that a column is the number of characters to its left.
struct Setting {
    const char* label;        // up to the colon, without the blanks that pad it
    std::size_t colon;        // its column
    std::size_t lead;         // blanks between the colon and the first value's field
    std::vector<int> widths;  // of the values, each right-aligned
    int gap = no_comment;     // blanks between the last value and the "!" of the comment
};

void expect_layout(const std::string& line, const Setting& setting)
{
    SCOPED_TRACE(line);
    ASSERT_EQ(line.find(':'), setting.colon);
    const std::string label = line.substr(0, setting.colon);
    EXPECT_EQ(label.substr(0, label.find_last_not_of(' ') + 1), setting.label);

    std::size_t at = setting.colon + 1;
    EXPECT_EQ(line.substr(at, setting.lead), std::string(setting.lead, ' '));
    at += setting.lead;
    for (const int width : setting.widths) {
        const std::string value = line.substr(std::min(at, line.size()), static_cast<std::size_t>(width));
        ASSERT_EQ(value.size(), static_cast<std::size_t>(width));
        const std::size_t first = value.find_first_not_of(' ');
        ASSERT_NE(first, std::string::npos) << "no value in the field at column " << at;
        EXPECT_EQ(value.find(' ', first), std::string::npos) << "\"" << value << "\" is not one right-aligned value";
        at += value.size();
    }
    if (setting.gap == no_comment) {
        EXPECT_EQ(line.size(), at) << "something stands behind the values";
        return;
    }
    const auto gap = static_cast<std::size_t>(setting.gap);
    EXPECT_EQ(line.substr(at, gap), std::string(gap, ' '));
    EXPECT_EQ(line.substr(at + gap, 1), "!");
}

void expect_settings(const std::string& deck, const std::vector<Setting>& settings)
{
    const std::vector<std::string> lines = setting_lines(deck);
    for (std::size_t i = 0; i < std::min(lines.size(), settings.size()); ++i) expect_layout(lines[i], settings[i]);
    EXPECT_EQ(lines.size(), settings.size());
}

// The columns in which the words of a line end, its comment left out.
std::vector<std::size_t> word_ends(const std::string& line)
{
    std::vector<std::size_t> ends;
    const std::size_t end = comment_of(line);
    for (std::size_t i = 1; i < end; ++i)
        if (line[i] != ' ' && (i + 1 == end || line[i + 1] == ' ')) ends.push_back(i);
    return ends;
}

// Real values of full width stand without a blank between them: their ends follow from their widths.
std::vector<std::size_t> ends_after(std::size_t first, const std::vector<int>& widths)
{
    std::vector<std::size_t> ends;
    for (const int width : widths) ends.push_back((first += static_cast<std::size_t>(width)) - 1);
    return ends;
}

std::map<std::string, std::size_t> trailing_blanks(const std::string& deck)
{
    std::map<std::string, std::size_t> found;
    for (const std::string& line : lines_of(deck)) {
        const std::size_t end = line.find_last_not_of(' ') + 1;
        if (end < line.size()) found[line.substr(0, end)] = line.size() - end;
    }
    return found;
}
using Blanks = std::map<std::string, std::size_t>;

void (*const sections[])() = {timing_control, status_file,  global_control,  amr_section,
                              sph_control,    plot_options, restart_control, partition};
}  // namespace

TEST_F(Layout, ProblemTitle)
{
    std::snprintf(run_settings.title, sizeof run_settings.title, "Taylor");
    std::vector<std::string> lines = setting_lines(comprehensive(problem_title));
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0].find(':'), 8U);  // the note
    expect_layout(lines[1], {" Title", 29, 1, {6}});
    expect_layout(lines[2], {" Subtitle1", 29, 1, {}});
    expect_layout(lines[3], {" Subtitle2", 29, 1, {}});
}

TEST_F(Layout, TimingAndDataControl)
{
    expect_settings(comprehensive(timing_control), {
                                                       {" Solution Type", 32, 1, {10}, 8},
                                                       {"!SIXDOF input", 32, 5, {10, 10, 10, 10, 10, 10, 10, 10}},
                                                       {"!Global memory size", 32, 1, {10}, 8},
                                                       {" Termination time", 32, 1, {10}},
                                                       {"!Initial time step", 32, 1, {10}},
                                                       {"!Max time step", 32, 1, {10}, 8},
                                                       {"!Minimum time step for termination", 34, 1, {8}, 8},
                                                       {" Time step scale factor", 32, 1, {10, 5}, 3},
                                                       {" Plot state frequency", 32, 1, {10, 5}, 3},
                                                       {" Time history frequency", 32, 1, {10, 5}, 3},
                                                       {" Restart frequency", 32, 1, {10, 5}, 3},
                                                       {" Running restart frequency", 32, 1, {10, 5}},
                                                       {"!Restart file base name", 32, 1, {10}, 8},
                                                       {"!Running restart file base name", 32, 1, {10}},
                                                       {" Number of running restart files", 32, 1, {10}},
                                                       {"!Time step outlier deletion", 32, 1, {10, 10, 10, 10}},
                                                       {" Status report frequency", 32, 1, {10, 5}},
                                                       {"!Standard output option", 32, 3, {1}, 3},
                                                       {"!Node history", 32, 1, {10}, 8},
                                                       {"!Element history", 32, 1, {10}},
                                                       {"!SPH history", 32, 1, {10}},
                                                       {"!Load cell history", 32, 0, {}},
                                                       {"!Binary history file format", 32, 1, {10}, 8},
                                                   });
}

TEST_F(Layout, TimingHeadingsStandOverTheirValues)
{
    const std::string deck = comprehensive(timing_control);
    // "Needed for solution type 6" is the rest of the heading
    std::vector<std::size_t> sixdof = word_ends(line_with(deck, "!------------- "));
    ASSERT_EQ(sixdof.size(), 14U);  // the dashes, eight columns, five words
    EXPECT_EQ(std::vector<std::size_t>(sixdof.begin() + 1, sixdof.begin() + 9),
              ends_after(38, {10, 10, 10, 10, 10, 10, 10, 10}));
    EXPECT_EQ(word_ends(line_with(deck, "!SIXDOF")).back(), sixdof[8]);

    std::vector<std::size_t> outliers = word_ends(line_with(deck, "!-------------------------------- "));
    outliers.erase(outliers.begin());
    EXPECT_EQ(outliers, ends_after(34, {10, 10, 10, 10}));

    EXPECT_EQ(word_ends(line_with(deck, "!---  lcid")),
              (std::vector<std::size_t>{3, 9, 20, 31, 42, 53, 64}));  // the dashes, then 5 and five times 11
    EXPECT_EQ(word_ends(line_with(deck, "!        1          1")), ends_after(1, {9, 11, 11, 11, 11, 11}));
}

TEST_F(Layout, StatusFileSwitches)
{
    const std::vector<std::string> lines = lines_of(comprehensive(status_file));
    ASSERT_EQ(lines.size(), 3U + 1U + 11U + 2U);
    for (std::size_t i = 4; i < 15; ++i) {
        SCOPED_TRACE(lines[i]);
        EXPECT_EQ(lines[i].find(':'), i == 4 ? 19U : std::string::npos);
        EXPECT_EQ(lines[i].size(), 21U + 12U + 3U);
        EXPECT_EQ(lines[i][20], ' ');
        EXPECT_NE(lines[i][21], ' ') << "names are left-aligned";
        EXPECT_EQ(lines[i].substr(33, 2), "  ");
        EXPECT_TRUE(lines[i].back() == '0' || lines[i].back() == '1');
    }
}

TEST_F(Layout, GlobalControl)
{
    expect_settings(comprehensive(global_control),
                    {
                        {" Element deletion flag", 39, 1, {10}, 3},
                        {" Particle conversion activation", 39, 1, {5, 5}, 3},
                        {"!Global contact penalty scale factor", 39, 1, {10}, 3},
                        {" Hourglass stabilization method", 39, 1, {10}, 3},
                        {" Hourglass stabilization coefficient", 39, 1, {10}},
                        {" Bulk viscosity type for shock capture", 39, 1, {10}, 8},
                        {" Quadratic bulk viscosity coefficient", 39, 1, {10}},
                        {" Linear bulk viscosity coefficient", 39, 1, {10}},
                        {"!Part specific particle conversion scheme", 41, 1, {5, 5, 5, 5}, 3},
                        {"!Mass proportional Rayleigh damping", 39, 1, {10, 10, 10, 10}, 3},
                        {"!Stiffness proportional Rayleigh damping", 40, 0, {10, 10, 10, 10, 10}, 3},
                    });
}

TEST_F(Layout, GlobalControlCommentsOfTheirOwnLine)
{
    const std::string deck = comprehensive(global_control);
    std::map<std::size_t, int> columns;
    for (const std::string& line : lines_of(deck))
        if (line.starts_with("     ")) ++columns[line.find('!')];
    // 54 blanks behind particle conversion, 59 behind hourglass methods, 43 and 20 and 3 behind part conversion
    EXPECT_EQ(columns, (std::map<std::size_t, int>{{54, 1}, {59, 5}, {66, 2}}));

    std::vector<std::size_t> mass = word_ends(line_with(deck, "!---------------------------------------      fcrit"));
    EXPECT_EQ(mass, (std::vector<std::size_t>{39, 50, 60, 70, 80}));
    std::vector<std::size_t> stiffness =
        word_ends(line_with(deck, "!---------------------------------------         id"));
    EXPECT_EQ(stiffness, (std::vector<std::size_t>{39, 50, 60, 70, 80, 90}));
}

TEST_F(Layout, SphControl)
{
    expect_settings(comprehensive(sph_control, "*PART\nwater\n" + card({"7", "2"}) + "*SECTION_SPH\n" + card({"2"}) +
                                                   "*CONTROL_SPH\n" + card({"", "", "1.0", "", "150"}) + "*END\n"),
                    {
                        {" Smoothing length", 38, 1, {5, 5, 5}, 3},
                        {" Global smoothing length limits", 38, 1, {5, 5}, 8},
                        {" SPH artificial viscosity", 38, 1, {2, 5, 5, 5}, 1},
                        {" SPH formulation", 38, 1, {10}, 8},
                        {" SPH part interaction", 38, 1, {10}, 8},
                        {" SPH particle contact scheme", 38, 1, {10}, 8},
                        {" SPH lagrange multiplier max iteration", 38, 1, {10}},
                        {" Renormalization frequency", 38, 1, {10}, 8},
                        {" SPH velocity gradient renormalization", 38, 1, {10}, 8},
                        {"!SPH multistep scheme", 38, 1, {10}, 8},
                        {"!Smoothing length", 38, 1, {5, 5, 5}, 3},
                        {"!SPH particle contact scale factor", 38, 1, {10}, 8},
                        {"!SPH lagrange multiplier max iteration", 38, 1, {10}},
                        {"!SPH boundary particle unit threshold", 38, 1, {10}, 8},
                        {"!SPH particle thickness factor", 38, 1, {10}, 8},
                        {"!SPH exclude partition direction", 38, 1, {10}, 8},
                        {"!Repartition frequency", 38, 1, {10}},
                        {"!Repartition overlap threshold", 38, 1, {10}},
                        {"!SPH repartition for memory", 38, 1, {10}},
                        {" Reset lonely particles", 38, 1, {10}, 8},
                        {" Initial number of SPH per processor", 38, 1, {10}, 8},
                        {" SPH max number of nearest neighbors", 38, 1, {10}},
                        {" SPH deactivation", 17, 0, {}, 27 + 10 + 3},
                        {" Box Definition", 15, 0, {}},
                        {"!Sphere Definition", 18, 0, {}},
                        {" SPH deactivation velocity", 26, 0, {}, 18 + 10 + 7},
                        {" SPH deactivation timestep", 26, 0, {}, 18 + 10 + 7},
                        {"!SPH deactivation density", 25, 0, {}, 18 + 10 + 8},
                        {"!SPH deactivation pressure", 26, 0, {}, 16 + 9 + 9},
                        {"!SPH deactivation energy", 24, 0, {}, 19 + 9 + 9},
                    });
}

TEST_F(Layout, SphRowsWithoutALabel)
{
    const std::string deck = comprehensive(sph_control);
    EXPECT_EQ(word_ends(line_with(deck, "!---   vid")), (std::vector<std::size_t>{3, 9, 19, 29, 39, 49}));
    EXPECT_EQ(word_ends(line_with(deck, "         1         0")), ends_after(0, {10, 10, 10, 10, 10}));
    EXPECT_EQ(comment_of(line_with(deck, "         1         0")), 58U);
    EXPECT_EQ(word_ends(line_with(deck, "!---  bvid")), (std::vector<std::size_t>{3, 9, 19, 29, 39, 49, 59, 69}));
    EXPECT_EQ(word_ends(line_with(deck, "         1      -100")), ends_after(0, {10, 10, 10, 10, 10, 10, 10}));
    EXPECT_EQ(word_ends(line_with(deck, "!---  svid")), (std::vector<std::size_t>{3, 9, 19, 29, 39, 49}));
    EXPECT_EQ(word_ends(line_with(deck, "!        1         0")), ends_after(1, {9, 10, 10, 10, 10}));
    EXPECT_EQ(word_ends(line_with(deck, "         1   1.000e+06")), ends_after(0, {10, 12, 12, 10, 10}));
    EXPECT_EQ(word_ends(line_with(deck, "         2      -0.5")), ends_after(0, {10, 10, 10, 10}));
    EXPECT_EQ(comment_of(line_with(deck, "         2      -0.5")), 40U + 22U);
    for (const std::string beginning : {"!        1   1.000e+00", "!        1   1.000e+10"}) {
        EXPECT_EQ(word_ends(line_with(deck, beginning)), ends_after(1, {9, 12, 12, 10, 10}));
        EXPECT_EQ(comment_of(line_with(deck, beginning)), 54U + 8U);
    }
    EXPECT_EQ(lines_with(deck, "!        1   1.000e+10   1.000e+20"), 2U);
    std::map<std::size_t, int> columns;
    for (const std::string& line : lines_of(deck))
        if (line.starts_with(std::string(58, ' '))) ++columns[line.find('!')];
    EXPECT_EQ(columns, (std::map<std::size_t, int>{{58, 4}}));
}

TEST_F(Layout, Amr)
{
    expect_settings(comprehensive(amr_section), {
                                                    {"!AMR domain definition", 22, 0, {}},
                                                    {"!AMR background definition", 26, 0, {}},
                                                    {"!AMR minimum cell size definition", 33, 1, {3}},
                                                    {"!AMR flooding definition", 24, 0, {}},
                                                    {"!AMR sphere domain definition", 29, 0, {}},
                                                    {"!AMR box domain definition", 26, 0, {}},
                                                    {"!AMR Ideal gas EOS definition", 29, 0, {}},
                                                    {"!AMR JWL EOS definition", 23, 0, {}},
                                                    {"!AMR SESAME EOS definition", 26, 0, {}},
                                                    {"!AMR HE REFINEMENT DEFINITION", 29, 0, {}},
                                                    {"!AMR Lagrangian Part Conversion", 31, 0, {}},
                                                    {"!AMR boundary condition definition", 34, 0, {}},
                                                    {"!AMR domain boundary definition", 31, 0, {}},
                                                    {"!AMR segment boundary condition", 31, 0, {}},
                                                    {"!AMR eulerian tracer frequency", 39, 1, {10, 10}},
                                                    {"!AMR initial and maximum CFL", 39, 1, {10, 10}, 5},
                                                    {"!AMR maximum solution difference", 39, 1, {10}},
                                                    {"!AMR FIRST-ORDER SCHEME", 39, 1, {10}, 15},
                                                    {" AMR INTERFACE SCHEME", 39, 1, {10}, 15},
                                                    {" AMR LEAST SQUARE PRESSURE INTERPOLATION", 40, 0, {9}, 15},
                                                    {" AMR interface synchronization", 39, 1, {10, 10}, 5},
                                                    {"!AMR interface movement step factor", 39, 1, {10}},
                                                    {" AMR refine derefine criteria", 39, 1, {10, 10}, 5},
                                                    {" AMR output CLE warning", 39, 1, {10}, 15},
                                                    {" AMR plot state frequency", 39, 1, {10, 10}, 5},
                                                    {"!AMR plot file type", 39, 1, {10}, 15},
                                                    {"!AMR plot file base name", 39, 1, {8}},
                                                    {"!AMR termination time", 39, 1, {10}},
                                                    {"!AMR eulerian tracer point definition", 37, 0, {}},
                                                    {"!AMR minimum time step scale factor", 39, 1, {10}, 15},
                                                    {"!SPH drag coefficient", 39, 1, {10}},
                                                    {"!AMR ignored segment set", 39, 1, {10, 10}},
                                                    {"!AMR ignored parts", 39, 1, {10, 10}, 5},
                                                    {"!AMR part history definition", 39, 1, {10, 10}, 5},
                                                    {"!AMR segment history set", 24, 0, {}},
                                                    {"!AMR restart file", 39, 1, {}},
                                                });
}

TEST_F(Layout, AmrHeadingsStandOverTheirValues)
{
    const std::vector<std::string> lines = lines_of(comprehensive(amr_section));
    const std::map<std::string, std::vector<int>> templates = {
        {"!AMR domain definition:", {10, 10, 10, 10, 10, 10}},
        {"!AMR background definition:", {10, 10, 10, 10, 10, 10}},
        {"!AMR flooding definition:", {10, 10, 10, 10, 10, 10, 10, 10}},
        {"!AMR sphere domain definition:", {10, 10, 10, 10, 10, 10, 10, 10, 10}},
        {"!AMR box domain definition:", {10, 10, 10, 10, 10, 10, 10, 10}},
        {"!AMR Ideal gas EOS definition:", {10, 10}},
        {"!AMR JWL EOS definition:", {10, 10, 10, 10, 10, 10, 10}},
        {"!AMR boundary condition definition:", {10, 10, 10, 10, 10, 10, 10}},
        {"!AMR domain boundary definition:", {10, 10, 10, 10, 10, 10}},
        {"!AMR segment boundary condition:", {10, 10, 10, 10}},
        {"!AMR eulerian tracer point definition:", {10, 10, 10, 10}},
        {"!AMR segment history set:", {10, 10, 10, 10, 10}},
    };
    std::size_t found = 0;
    for (std::size_t i = 0; i + 3 < lines.size(); ++i) {
        const auto expected = templates.find(lines[i]);
        if (expected == templates.end()) continue;
        SCOPED_TRACE(lines[i]);
        ++found;
        const std::vector<std::size_t> ends = ends_after(1, expected->second);
        EXPECT_EQ(word_ends(lines[i + 1]), ends);
        EXPECT_EQ(word_ends(lines[i + 2]), ends);
        if (lines[i] == "!AMR box domain definition:") {
            EXPECT_EQ(word_ends(lines[i + 3]), ends_after(1, {10, 10, 10}));
            EXPECT_EQ(word_ends(lines[i + 4]), ends_after(1, {10, 10, 10}));
        } else if (lines[i].ends_with("point definition:") || lines[i].ends_with("history set:")) {
            EXPECT_EQ(word_ends(lines[i + 3]), ends);  // two rows of values
        } else {
            EXPECT_EQ(lines[i + 3], "");
        }
    }
    EXPECT_EQ(found, templates.size());
}

TEST_F(Layout, AmrSesameTableNameIsEighteenColumnsWide)
{
    const std::string deck = comprehensive(amr_section);
    std::vector<std::size_t> heading = word_ends(line_with(deck, "!   table file name"));
    ASSERT_EQ(heading.size(), 9U);  // the first column's heading has three words
    heading.erase(heading.begin(), heading.begin() + 2);
    EXPECT_EQ(heading, ends_after(1, {18, 10, 10, 10, 10, 10, 10}));
    EXPECT_EQ(word_ends(line_with(deck, "!    aWater7154.ses")), ends_after(1, {18, 10, 10, 10, 10, 10, 10}));
}

TEST_F(Layout, PlotOptions)
{
    const std::vector<std::string> lines = setting_lines(comprehensive(plot_options));
    EXPECT_EQ(lines.size(), 2U + 46U);
    for (const std::string& line : lines) {
        SCOPED_TRACE(line);
        EXPECT_EQ(line.find(':'), 38U);
        EXPECT_EQ(line[0], ' ');
        EXPECT_NE(line[1], ' ');
        EXPECT_EQ(word_ends(line).back(), 38U + 1U + 10U);
        const std::size_t comment = comment_of(line);
        EXPECT_TRUE(comment == line.size() || comment == 50U + 7U) << comment;
        if (comment == line.size()) {
            EXPECT_EQ(line.size(), 50U);
        }
    }
}

TEST_F(Layout, RestartControl)
{
    expect_settings(comprehensive(restart_control), {
                                                        {"! Restart file", 40, 1, {}},
                                                        {"! AMR Restart file", 40, 1, {}},
                                                        {"! Delete contact definition", 40, 1, {}},
                                                        {"! General contact part removal", 40, 1, {}},
                                                        {"! General contact part set removal", 40, 1, {}},
                                                        {"! Delete part", 40, 1, {}},
                                                        {"! Delete part set", 40, 1, {}},
                                                    });
}

TEST_F(Layout, Partition)
{
    const std::string deck = comprehensive(partition);
    expect_settings(deck, {
                              {"  Repartition for contact calculation", 48, 1, {5}, 5},
                              {"! Overlap element computation with communication", 48, 0, {}, 5},
                              {"! Section size of solid element groups", 48, 1, {}},
                              {"! Section size of shell element groups", 48, 1, {}},
                              {"! Surface partition", 48, 1, {5}},
                              {"! Weight factor of penalty force calculation", 48, 1, {5}},
                              {"! Weight factor of nearest neighbor search", 48, 1, {5}},
                          });
    EXPECT_EQ(lines_with(deck, std::string(60, ' ') + "!---"), 2U);
}

TEST_F(Layout, HistoryIdentifiersAreTenColumnsWideWithABlankBehindThem)
{
    const std::vector<std::string> lines =
        lines_of(comprehensive(history, "*DATABASE_HISTORY_NODE\n" + card({"1", "22", "333", "4", "5", "6", "7", "8"}) +
                                            "*DATABASE_HISTORY_SHELL_SET\n" + card({"3"}) + "*END\n"));
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(lines[0].find(':'), 13U);
    const std::vector<std::size_t> ends = ends_after(0, {10, 11, 11, 11, 11, 11, 11, 11});
    EXPECT_EQ(word_ends(lines[2]), ends);
    std::vector<std::size_t> heading = word_ends(lines[1]);
    heading.erase(heading.begin());  // the dashes
    EXPECT_EQ(heading, ends);
    EXPECT_EQ(lines[2].size(), 88U);
    expect_layout(lines[4], {" Element history set", 32, 1, {10}});
}

TEST_F(Layout, BlanksAtTheEndOfLines)
{
    EXPECT_EQ(trailing_blanks(comprehensive(header)), Blanks{});
    EXPECT_EQ(trailing_blanks(comprehensive(problem_title)), (Blanks{{" Title                       :", 2},
                                                                     {" Subtitle1                   :", 1},
                                                                     {" Subtitle2                   :", 1}}));
    EXPECT_EQ(trailing_blanks(comprehensive(timing_control)), Blanks{});
    EXPECT_EQ(trailing_blanks(comprehensive(status_file)), Blanks{});
    EXPECT_EQ(trailing_blanks(comprehensive(global_control)), (Blanks{{"!" + std::string(48, '-'), 1}}));
    EXPECT_EQ(trailing_blanks(comprehensive(amr_section)), (Blanks{{"!AMR restart file                      :", 1}}));
    EXPECT_EQ(trailing_blanks(comprehensive(sph_control)),
              (Blanks{{" SPH part interaction                 :          1        !--- 0=HE 1=All Others", 1}}));
    EXPECT_EQ(trailing_blanks(comprehensive(plot_options)), (Blanks{{"! Plot Options", 8}}));
    EXPECT_EQ(trailing_blanks(comprehensive(restart_control)),
              (Blanks{{"! Restart file                          :", 1},
                      {"! AMR Restart file                      :", 1},
                      {"! Delete contact definition             :", 1},
                      {"! General contact part removal          :", 1},
                      {"! General contact part set removal      :", 1},
                      {"! Delete part                           :", 1},
                      {"! Delete part set                       :", 1}}));
    EXPECT_EQ(trailing_blanks(comprehensive(partition)),
              (Blanks{{"! Section size of solid element groups          :", 1},
                      {"! Section size of shell element groups          :", 1}}));
    EXPECT_EQ(trailing_blanks(comprehensive(history, "*DATABASE_HISTORY_NODE\n" + card({"1"}) + "*END\n")),
              (Blanks{{" Node history:", 1}, {"         1", 1}}));
}

TEST_F(Layout, OtherKindsOfDeckHaveNoOtherLines)
{
    for (void (*const section)() : sections) {
        const std::vector<std::string> all = lines_of(comprehensive(section));
        for (const Flags& flags : all_flags) {
            set_flags(flags);
            for (const std::string& line : lines_of(convert(section, "*END\n").deck))
                EXPECT_NE(std::find(all.begin(), all.end(), line), all.end()) << line;
        }
    }
}

TEST_F(Layout, EachSectionOpensWithItsBanner)
{
    const std::pair<void (*)(), const char*> titles[] = {
        {problem_title, "! Problem Title and Descriptors"},
        {timing_control, "! Timing and Data Control Section"},
        {status_file, "! Status File Control Section"},
        {global_control, "! Global Contact, Hourglass, & Viscosity Control"},
        {amr_section, "! AMR Section"},
        {sph_control, "! SPH Control Section"},
        {plot_options, "! Plot Options        "},
        {restart_control, "! Restart Control Section"},
        {partition, "! Partition Section"},
    };
    const std::string dashes = "!" + std::string(48, '-');
    for (const auto& [section, title] : titles) {
        const std::vector<std::string> lines = lines_of(comprehensive(section));
        ASSERT_GT(lines.size(), 3U);
        EXPECT_EQ(lines[0], dashes);
        EXPECT_EQ(lines[1], title);
        EXPECT_EQ(lines[2], section == global_control ? dashes + " " : dashes);
    }
}
