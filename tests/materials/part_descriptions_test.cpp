#include <string_view>

#include "reader/run.h"
#include "support/material_lines.h"

namespace
{
using PartDescriptions = FreshRun;
using PassTables = FreshRun;

TEST_F(PartDescriptions, EmptyDeckHasAllHeaders)
{
    const Written out = convert(part_descriptions, "*END\n");
    EXPECT_EQ(out.deck,
              "!------------------------------------------------\n"
              "! Part Descriptions\n"
              "!------------------------------------------------\n"
              "\n"
              "!----------------     PID     FORMID        MID      EOSID     FAILID       HGID       TMID       GRAV"
              "   Title -------------\n"
              "\n"
              "\n"
              "\n"
              "\n"
              "\n"
              "!---------------------- FAILID    FSTRAIN      DTMIN    MINRVOL    MAXRVOL       SKEW     ASPECT"
              "       PMAX     SCALEJ\n"
              "\n"
              "\n"
              "!--------------------------------------- HGID     IHQ      QH     IBQ      Q1      Q2\n"
              "!Hourglass formulation definition:          2       1    0.10       1    1.50    0.06\n"
              "\n"
              "\n"
              "\n");
    EXPECT_EQ(out.log, "");
    EXPECT_EQ(out.terminal, "");
}

// The deck's order differs from the section's.
TEST_F(PartDescriptions, DefinitionsStandInTheOrderOfThePasses)
{
    const Written out = convert(part_descriptions, "*MAT_VISCOELASTIC\n"
                                                   "         3\n"
                                                   "*HOURGLASS\n"
                                                   "         4         1\n"
                                                   "*EOS_JWL\n"
                                                   "         5\n"
                                                   "*MAT_NULL\n"
                                                   "         6\n"
                                                   "*SECTION_SOLID\n"
                                                   "         2         1\n"
                                                   "*PART\n"
                                                   "heading\n"
                                                   "         1         2         3\n"
                                                   "*END\n");
    const std::string_view in_order[] = {
        "! Part Descriptions\n",
        "!----------------     PID",
        " Part definition:       1",
        " Element formulation definition:         2",
        " EOS definition:               5",
        "!---------------------- FAILID",
        " Failure definition:         3",
        " Failure definition:         6",
        "!--------------------------------------- HGID",
        "!Hourglass formulation definition:          2",
        " Hourglass formulation definition:          4",
        " Material Definition:          3",
        " Material Definition:          6",
    };
    std::size_t place = 0;
    for (const std::string_view line : in_order) {
        const std::size_t found = out.deck.find(line, place);
        ASSERT_NE(found, std::string::npos) << line;
        place = found;
    }
    EXPECT_TRUE(out.deck.ends_with("         0\n\n\n"));
}

// What a pass makes of a keyword line.
struct Row {
    const char* keyword;
    const char* line;  // the beginning of the definition line; empty: none
    enum Log { logs_nothing, logs_skipped } log = logs_nothing;
};

// The same short cards behind every keyword. Handlers log keywords as recognized, so only "skipped" is looked for.
void expect_rows(const Pass& pass, std::string_view definition, std::initializer_list<Row> rows)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.keyword);
        std::string deck = std::string(row.keyword) + "\n";
        for (int card = 0; card < 8; ++card) deck += "         7\n";
        const Written out = convert(pass, deck + "*END\n");
        const std::string line = line_with(out.deck, definition);
        EXPECT_EQ(line.substr(0, std::string_view(row.line).size()), row.line);
        if (*row.line == '\0') {
            EXPECT_EQ(out.deck, "");
        }
        EXPECT_EQ(lines_equal(out.log, std::string(row.keyword) + " . . . skipped"),
                  row.log == Row::logs_skipped ? 1u : 0u);
        if (*row.line == '\0' && row.log == Row::logs_nothing) {
            EXPECT_EQ(out.log, "");
        }
    }
}

TEST_F(PassTables, Parts)
{
    expect_rows(part_keywords, " Part definition: ",
                {
                    {"*PART_ADAPTIVE_FAILURE", "", Row::logs_skipped},
                    {"*PART_COMPOSITE", "", Row::logs_skipped},
                    {"*PART_MODES", "", Row::logs_skipped},
                    {"*PART_SENSOR", "", Row::logs_skipped},
                    {"*PART_MOVE", "", Row::logs_skipped},
                    {"*PART", " Part definition:       7"},
                    {"*PARTS", " Part definition:       7"},
                    {"*PART_ADAPTIV", " Part definition:       7"},
                    {"*PART_COMPOSIT", " Part definition:       7"},
                    {"*PART_MODE", " Part definition:       7"},
                    {"*PART_SENSO", " Part definition:       7"},
                    {"*PART_MOV", " Part definition:       7"},
                    {"*PAR", ""},
                });
}

TEST_F(PassTables, Sections)
{
    expect_rows(section_keywords, " Element",
                {
                    {"*SECTION_SOLID_EFG", " Element formulation definition:         7         1"},
                    {"*SECTION_SHELL", " Element formulation definition:         7       100"},
                    {"*SECTION_SPH_USER", " Element formulation definition:         7       200"},
                    {"*SECTION_BEAM", "", Row::logs_skipped},
                    {"*SECTION_SOLI", "", Row::logs_skipped},
                    {"*SECTION_SHEL", "", Row::logs_skipped},
                    {"*SECTION_SP", "", Row::logs_skipped},
                    {"*SECTION", "", Row::logs_skipped},
                    {"*SECTIO", ""},
                });
}

TEST_F(PassTables, EquationsOfState)
{
    expect_rows(eos_keywords, " EOS definition:",
                {
                    {"*EOS_GRUNEISEN", " EOS definition:               7          4"},
                    {"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE", " EOS definition:               7          7"},
                    {"*EOS_JWL", " EOS definition:               7          2"},
                    {"*EOS_LINEAR_POLYNOMIAL_TITLE", " EOS definition:               7          1"},
                    {"*EOS_GRUNEISE", "", Row::logs_skipped},
                    {"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_H", "", Row::logs_skipped},
                    {"*EOS_JW", "", Row::logs_skipped},
                    {"*EOS_LINEAR_POLYNOMIAL", "", Row::logs_skipped},
                    {"*EOS_LINEAR_POLYNOMIAL_TITL", "", Row::logs_skipped},
                    {"*EOS", "", Row::logs_skipped},
                    {"*EO", ""},
                });
}

TEST_F(PassTables, Hourglass)
{
    expect_rows(hourglass_keywords, " Hourglass",
                {
                    {"*HOURGLASS", " Hourglass formulation definition:          7"},
                    {"*HOURGLASS_TITLE", " Hourglass formulation definition:          7"},
                    {"*HOURGLAS", ""},
                });
}

TEST_F(PassTables, Materials)
{
    expect_rows(material_keywords, " Material",
                {
                    {"*MAT_ELASTIC_PLASTIC_HYDRO", " Material Definition:          7         10"},
                    {"*MAT_ELASTIC_FLUID", "", Row::logs_skipped},
                    {"*MAT_ELASTIC_PLASTIC_HYDR", "", Row::logs_skipped},
                    {"*MAT_ELASTIC_TITL", "", Row::logs_skipped},
                    {"*MAT_ELASTIC_TITLE", " Material Definition:          7          1"},
                    {"*MAT_ELASTIC_TITLE_2", " Material Definition:          7          1"},
                    {"*MAT_ELASTIC", " Material Definition:          7          1"},
                    {"*MAT_HIGH_EXPLOSIVE_BURN", " Material Definition:          7          8"},
                    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", " Material Definition:          7         13"},
                    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", " Material Definition:          7         12"},
                    {"*MAT_JOHNSON_COOK", " Material Definition:          7         15"},
                    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", " Material Definition:          7         43"},
                    {"*MAT_MOONEY-RIVLIN_RUBBER", " Material Definition:          7         27"},
                    {"*MAT_NULL", " Material Definition:          7          9"},
                    {"*MAT_PLASTIC_KINEMATIC", " Material Definition:          7          3"},
                    {"*MAT_RIGID", " Material Definition:          7         20"},
                    {"*MAT_SIMPLIFIED_JOHNSON_COOK", " Material Definition:          7         15"},
                    {"*MAT_VISCOELASTIC_THERMAL", "", Row::logs_skipped},
                    {"*MAT_VISCOELASTIC_HILL_FOAM", "", Row::logs_skipped},
                    {"*MAT_VISCOELASTIC", " Material Definition:          7          6"},
                    {"*MAT_VISCOELASTIC_THERMA", " Material Definition:          7          6"},
                    {"*MAT_VISCOELASTIC_HILL_FOA", " Material Definition:          7          6"},
                    {"*MAT_STEINBERG_TITLE", " Material Definition:          7         11"},
                    {"*MAT_ELASTI", "", Row::logs_skipped},
                    {"*MAT_HIGH_EXPLOSIVE_BUR", "", Row::logs_skipped},
                    {"*MAT_ISOTROPIC_ELASTIC_FAILUR", "", Row::logs_skipped},
                    {"*MAT_ISOTROPIC_ELASTIC_PLASTI", "", Row::logs_skipped},
                    {"*MAT_JOHNSON_COO", "", Row::logs_skipped},
                    {"*MAT_JOHNSON_HOLMQUIST_CERAMIC", "", Row::logs_skipped},
                    {"*MAT_MOONEY-RIVLIN_RUBBE", "", Row::logs_skipped},
                    {"*MAT_MOONEY_RIVLIN_RUBBER", "", Row::logs_skipped},
                    {"*MAT_NUL", "", Row::logs_skipped},
                    {"*MAT_PLASTIC_KINEMATI", "", Row::logs_skipped},
                    {"*MAT_RIGI", "", Row::logs_skipped},
                    {"*MAT_SIMPLIFIED_JOHNSON_COO", "", Row::logs_skipped},
                    {"*MAT_VISCOELASTI", "", Row::logs_skipped},
                    {"*MAT_STEINBERG_TITL", "", Row::logs_skipped},
                    {"*MAT_STEINBERG", "", Row::logs_skipped},
                    {"*MAT", "", Row::logs_skipped},
                    {"*MA", ""},
                });
}

// Type numbers without criteria of their own look alike from outside.
TEST_F(PassTables, Failures)
{
    const char* const defaults = " Failure definition:         7  1.500e+00 -5.000e-01  5.000e-01  5.000e+00 ";
    const char* const no_strain = " Failure definition:         7  0.000e+00 -5.000e-01  5.000e-01  5.000e+00 ";
    expect_rows(failure_keywords, " Failure",
                {
                    {"*MAT_ELASTIC_PLASTIC_HYDRO", no_strain},
                    {"*MAT_ELASTIC_FLUID", ""},
                    {"*MAT_ELASTIC_PLASTIC_HYDR", ""},
                    {"*MAT_ELASTIC_TITL", ""},
                    {"*MAT_ELASTIC_TITLE", defaults},
                    {"*MAT_ELASTIC_TITLE_2", defaults},
                    {"*MAT_ELASTIC", defaults},
                    {"*MAT_HIGH_EXPLOSIVE_BURN", defaults},
                    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", no_strain},
                    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", defaults},
                    {"*MAT_JOHNSON_COOK", defaults},
                    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", defaults},
                    {"*MAT_MOONEY-RIVLIN_RUBBER", defaults},
                    {"*MAT_NULL", " Failure definition:         7  1.500e+00 -5.000e-01  0.000e+00  0.000e+00 "},
                    {"*MAT_PLASTIC_KINEMATIC", no_strain},
                    {"*MAT_RIGID", defaults},
                    {"*MAT_SIMPLIFIED_JOHNSON_COOK", no_strain},
                    {"*MAT_VISCOELASTIC_THERMAL", ""},
                    {"*MAT_VISCOELASTIC_HILL_FOAM", ""},
                    {"*MAT_VISCOELASTIC", defaults},
                    {"*MAT_VISCOELASTIC_THERMA", defaults},
                    {"*MAT_VISCOELASTIC_HILL_FOA", defaults},
                    {"*MAT_STEINBERG_TITLE", defaults},
                    {"*MAT_ELASTI", ""},
                    {"*MAT_HIGH_EXPLOSIVE_BUR", ""},
                    {"*MAT_ISOTROPIC_ELASTIC_FAILUR", ""},
                    {"*MAT_ISOTROPIC_ELASTIC_PLASTI", ""},
                    {"*MAT_JOHNSON_COO", ""},
                    {"*MAT_JOHNSON_HOLMQUIST_CERAMIC", ""},
                    {"*MAT_MOONEY-RIVLIN_RUBBE", ""},
                    {"*MAT_NUL", ""},
                    {"*MAT_PLASTIC_KINEMATI", ""},
                    {"*MAT_RIGI", ""},
                    {"*MAT_SIMPLIFIED_JOHNSON_COO", ""},
                    {"*MAT_VISCOELASTI", ""},
                    {"*MAT_STEINBERG_TITL", ""},
                    {"*MAT_STEINBERG", ""},
                    {"*MAT", ""},
                });
}

TEST_F(PassTables, EveryPassStopsAtEnd)
{
    EXPECT_EQ(convert(material_keywords, "*ENDTIME\n*MAT_NULL\n         7\n*END\n").deck, "");
    EXPECT_EQ(lines_with(convert(material_keywords, "*EN\n*MAT_NULL\n         7\n*END\n").deck, " Material"), 1u);
}

TEST_F(PassTables, ElasticOptionIsLoggedByTheMaterialPassAlone)
{
    const Written out = convert(part_descriptions, "*MAT_ELASTIC_FLUID\n"
                                                   "         7\n"
                                                   "*END\n");
    EXPECT_EQ(out.log, "\n*MAT_ELASTIC_FLUID . . . skipped\n");
    EXPECT_EQ(lines_with(out.deck, " Failure"), 0u);
    EXPECT_EQ(lines_with(out.deck, " Material"), 0u);
}

TEST_F(PassTables, SimplifiedJohnsonCookWarnsOncePerKeyword)
{
    const Written out = convert(part_descriptions, "*MAT_SIMPLIFIED_JOHNSON_COOK\n"
                                                   "         7\n"
                                                   "         0\n"
                                                   "*MAT_SIMPLIFIED_JOHNSON_COOK\n"
                                                   "         8\n"
                                                   "         0\n"
                                                   "*END\n");
    EXPECT_EQ(lines_equal(out.terminal, "Warning: Some variables are unavailable when transfering simplifed jc"), 2u);
    EXPECT_EQ(lines_equal(out.terminal, "to the full johnson cook model"), 2u);
}
}  // namespace
