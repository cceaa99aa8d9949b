// The generator of random models: what it writes is a deck that the converter reads whole.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/convert.h"
#include "support/models.h"
#include "support/process.h"
#include "support/whole_run.h"

namespace models
{
namespace
{
constexpr std::uint32_t many = 1500;

constexpr std::string_view converted_keywords[] = {
    "*TITLE",
    "*CONTROL_BULK_VISCOSITY",
    "*CONTROL_CONTACT",
    "*CONTROL_HOURGLASS",
    "*CONTROL_SOLUTION",
    "*CONTROL_SPH",
    "*CONTROL_TERMINATION",
    "*CONTROL_TIMESTEP",
    "*DATABASE_BINARY_D3DUMP",
    "*DATABASE_BINARY_D3PLOT",
    "*DATABASE_BINARY_RUNRSF",
    "*DATABASE_HISTORY_NODE",
    "*DATABASE_HISTORY_NODE_SET",
    "*DATABASE_HISTORY_SHELL",
    "*DATABASE_HISTORY_SHELL_SET",
    "*DATABASE_HISTORY_SOLID",
    "*DATABASE_HISTORY_SOLID_SET",
    "*DATABASE_NODOUT",
    "*DATABASE_ELOUT",
    "*CONTACT_AUTOMATIC_GENERAL",
    "*CONTACT_AUTOMATIC_NODES_TO_SURFACE_ID",
    "*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE",
    "*CONTACT_AUTOMATIC_SINGLE_SURFACE_ID",
    "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE",
    "*CONTACT_ERODING_NODES_TO_SURFACE",
    "*CONTACT_ERODING_SINGLE_SURFACE",
    "*CONTACT_ERODING_SURFACE_TO_SURFACE_ID",
    "*CONTACT_NODES_TO_SURFACE",
    "*CONTACT_ONE_WAY_SURFACE_TO_SURFACE",
    "*CONTACT_SINGLE_SURFACE",
    "*CONTACT_SURFACE_TO_SURFACE",
    "*BOUNDARY_NON_REFLECTING",
    "*BOUNDARY_PRESCRIBED_MOTION_NODE",
    "*BOUNDARY_PRESCRIBED_MOTION_NODE_ID",
    "*BOUNDARY_PRESCRIBED_MOTION_SET",
    "*BOUNDARY_PRESCRIBED_MOTION_SET_ID",
    "*BOUNDARY_SPC_NODE",
    "*BOUNDARY_SPC_NODE_ID",
    "*BOUNDARY_SPC_SET",
    "*BOUNDARY_SPC_SET_ID",
    "*BOUNDARY_SPH_SYMMETRY_PLANE",
    "*BOUNDARY_SYMMETRY_FAILURE",
    "*DEFINE_BOX",
    "*DEFINE_BOX_TITLE",
    "*DEFINE_BOX_ADAPTIVE",
    "*DEFINE_BOX_ADAPTIVE_TITLE",
    "*DEFINE_BOX_COARSEN",
    "*DEFINE_BOX_COARSEN_TITLE",
    "*DEFINE_BOX_SPH",
    "*DEFINE_BOX_SPH_TITLE",
    "*DEFINE_COORDINATE_NODES",
    "*DEFINE_COORDINATE_NODES_TITLE",
    "*DEFINE_COORDINATE_SYSTEM",
    "*DEFINE_COORDINATE_SYSTEM_TITLE",
    "*DEFINE_CURVE",
    "*DEFINE_CURVE_TITLE",
    "*INITIAL_DETONATION",
    "*INITIAL_VELOCITY",
    "*INITIAL_VELOCITY_GENERATION",
    "*LOAD_BLAST",
    "*LOAD_NODE_POINT",
    "*LOAD_NODE_SET",
    "*LOAD_SEGMENT",
    "*LOAD_SEGMENT_ID",
    "*LOAD_SEGMENT_SET",
    "*LOAD_SEGMENT_SET_ID",
    "*PART",
    "*SECTION_SOLID",
    "*SECTION_SOLID_TITLE",
    "*SECTION_SHELL",
    "*SECTION_SHELL_TITLE",
    "*SECTION_SPH",
    "*SECTION_SPH_TITLE",
    "*HOURGLASS",
    "*HOURGLASS_TITLE",
    "*EOS_GRUNEISEN",
    "*EOS_GRUNEISEN_TITLE",
    "*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE",
    "*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE_TITLE",
    "*EOS_JWL",
    "*EOS_JWL_TITLE",
    "*EOS_LINEAR_POLYNOMIAL_TITLE",
    "*MAT_ELASTIC",
    "*MAT_ELASTIC_TITLE",
    "*MAT_ELASTIC_PLASTIC_HYDRO",
    "*MAT_ELASTIC_PLASTIC_HYDRO_TITLE",
    "*MAT_ELASTIC_PLASTIC_HYDRO_SPALL",
    "*MAT_ELASTIC_PLASTIC_HYDRO_SPALL_TITLE",
    "*MAT_HIGH_EXPLOSIVE_BURN",
    "*MAT_HIGH_EXPLOSIVE_BURN_TITLE",
    "*MAT_ISOTROPIC_ELASTIC_FAILURE",
    "*MAT_ISOTROPIC_ELASTIC_FAILURE_TITLE",
    "*MAT_ISOTROPIC_ELASTIC_PLASTIC",
    "*MAT_ISOTROPIC_ELASTIC_PLASTIC_TITLE",
    "*MAT_JOHNSON_COOK",
    "*MAT_JOHNSON_COOK_TITLE",
    "*MAT_JOHNSON_HOLMQUIST_CERAMICS",
    "*MAT_MOONEY-RIVLIN_RUBBER",
    "*MAT_MOONEY-RIVLIN_RUBBER_TITLE",
    "*MAT_NULL",
    "*MAT_NULL_TITLE",
    "*MAT_PLASTIC_KINEMATIC",
    "*MAT_PLASTIC_KINEMATIC_TITLE",
    "*MAT_RIGID",
    "*MAT_RIGID_TITLE",
    "*MAT_SIMPLIFIED_JOHNSON_COOK",
    "*MAT_SIMPLIFIED_JOHNSON_COOK_TITLE",
    "*MAT_STEINBERG_TITLE",
    "*MAT_VISCOELASTIC",
    "*MAT_VISCOELASTIC_TITLE",
    "*SET_NODE",
    "*SET_NODE_TITLE",
    "*SET_NODE_LIST",
    "*SET_NODE_LIST_TITLE",
    "*SET_PART",
    "*SET_PART_TITLE",
    "*SET_PART_LIST",
    "*SET_PART_LIST_TITLE",
    "*SET_SEGMENT",
    "*SET_SEGMENT_TITLE",
    "*SET_SHELL",
    "*SET_SHELL_TITLE",
    "*SET_SHELL_LIST",
    "*SET_SHELL_LIST_TITLE",
    "*SET_SOLID",
    "*SET_SOLID_TITLE",
    "*SET_SOLID_LIST",
    "*SET_SOLID_LIST_TITLE",
    "*NODE",
    "*ELEMENT_SHELL",
    "*ELEMENT_SHELL_THICKNESS",
    "*ELEMENT_SHELL_BETA",
    "*ELEMENT_SOLID",
    "*ELEMENT_SPH",
};

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> found;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) found.push_back(line);
    return found;
}

// The rows behind the heading that begins so, up to the next line that does not begin with a blank and a number.
std::vector<std::vector<double>> rows_behind(const std::vector<std::string>& text, std::string_view heading)
{
    std::vector<std::vector<double>> rows;
    bool inside = false;
    for (const std::string& line : text) {
        if (begins(line, heading))
            inside = true;
        else if (begins(line, "!"))
            continue;
        else if (line.find_first_not_of(" 0123456789.+-e") != std::string::npos)
            inside = false;
        else if (inside && !line.empty()) {
            std::istringstream values(line);
            std::vector<double>& row = rows.emplace_back();
            for (double value = 0.0; values >> value;) row.push_back(value);
        }
    }
    return rows;
}

// Calls the test for many models and what the converter makes of them, and stops at the first failure.
template <class Test>
void for_models(std::uint32_t count, Test&& test)
{
    for (std::uint32_t seed = 0; seed < count; ++seed) {
        const Model model = random_model(seed);
        const std::string deck = strict(model);
        test(model, run_whole(deck));
        if (!testing::Test::HasFailure()) continue;
        ADD_FAILURE() << "the model of seed " << seed << ":\n" << deck;
        return;
    }
}

void expect_elements(const std::vector<std::vector<double>>& rows, const std::vector<ElementFact>& elements)
{
    ASSERT_EQ(rows.size(), elements.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::vector<double> expected = {static_cast<double>(elements[i].id), static_cast<double>(elements[i].part)};
        for (const long node : elements[i].nodes) expected.push_back(static_cast<double>(node));
        EXPECT_EQ(rows[i], expected);
    }
}
}  // namespace

TEST(RandomModels, NoKeywordOfTheirsIsSkipped)
{
    for_models(many, [](const Model&, const RunOutputs& outputs) {
        for (const std::string& line : lines(outputs.log))
            if (ends(line, ". . . skipped")) {
                EXPECT_EQ(line, "*KEYWORD . . . skipped");
            }
    });
}

TEST(RandomModels, EveryKeywordIsRecognized)
{
    for_models(many, [](const Model& model, const RunOutputs& outputs) {
        const std::vector<std::string> log = lines(outputs.log);
        const std::set<std::string> logged(log.begin(), log.end());
        for (const Block& block : model.blocks) {
            if (block.keyword == "*KEYWORD" || block.keyword == "*MAT_STEINBERG_TITLE") continue;  // never logged so
            EXPECT_TRUE(logged.count(block.keyword + " . . . recognized keyword") == 1) << block.keyword;
        }
    });
}

TEST(RandomModels, HoldEveryConvertedKeyword)
{
    std::set<std::string> keywords;
    for (std::uint32_t seed = 0; seed < 2 * many; ++seed)
        for (const Block& block : random_model(seed).blocks) keywords.insert(block.keyword);
    for (const std::string_view keyword : converted_keywords)
        EXPECT_EQ(keywords.count(std::string(keyword)), 1U) << keyword;
}

TEST(RandomModels, AreStrict)
{
    for (std::uint32_t seed = 0; seed < many; ++seed) {
        const std::string deck = strict(random_model(seed));
        EXPECT_TRUE(begins(deck, "*KEYWORD\n"));
        EXPECT_TRUE(ends(deck, "\n*END\n"));
        for (const std::string& line : lines(deck)) {
            EXPECT_LE(line.size(), begins(line, "*") ? 48U : 88U) << line;  // the last eight of nodes: rc
            EXPECT_FALSE(line.empty() || line.back() == ' ' || line.find_first_of("\t\r&<") != std::string::npos)
                << line;
        }
    }
}

TEST(RandomModels, AreTheSameForTheSameSeed)
{
    EXPECT_EQ(strict(random_model(7)), strict(random_model(7)));
    EXPECT_NE(strict(random_model(7)), strict(random_model(8)));
}

TEST(RandomModels, NodesAndElementsAreThoseOfTheGeometryFile)
{
    for_models(many, [](const Model& model, const RunOutputs& outputs) {
        const std::vector<std::string> text = lines(outputs.geometry);
        const std::vector<NodeFact> nodes = nodes_of(model);
        const std::vector<std::vector<double>> rows = rows_behind(text, "Node Definition:");
        ASSERT_EQ(rows.size(), nodes.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ(rows[i][0], static_cast<double>(nodes[i].id));
            for (std::size_t axis = 0; axis < 3; ++axis)
                EXPECT_EQ(static_cast<float>(rows[i][1 + axis]), static_cast<float>(nodes[i].at[axis]));
        }
        std::vector<std::vector<double>> shells = rows_behind(text, " Shell Element Definition:");
        for (std::size_t i = 0; 2 * i < shells.size(); ++i) shells[i] = shells[2 * i];  // without thicknesses
        shells.resize(shells.size() / 2);
        expect_elements(shells, shells_of(model));
        expect_elements(rows_behind(text, " Solid Element Definition:"), solids_of(model));
        const std::vector<std::vector<double>> particles = rows_behind(text, " SPH Element Definition:");
        const std::vector<ParticleFact> expected = particles_of(model);
        ASSERT_EQ(particles.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(particles[i][0], static_cast<double>(expected[i].node));
            EXPECT_EQ(particles[i][1], static_cast<double>(expected[i].part));
            EXPECT_EQ(static_cast<float>(particles[i][2]), static_cast<float>(expected[i].mass));
        }
    });
}

TEST(RandomModels, SetsAreThoseOfTheSetFile)
{
    for_models(many, [](const Model& model, const RunOutputs& outputs) {
        std::vector<SetFact> sets = sets_of(model);
        const std::vector<std::string> text = lines(outputs.sets);
        std::size_t at = 3;  // behind the banner
        for (const SetFact& set : sets) {
            ASSERT_LT(at + 1, text.size());
            const std::string& heading = text[at + 1];
            EXPECT_EQ(std::atol(heading.substr(heading.find(':') + 1).c_str()), set.id);
            EXPECT_NE(heading.find(set.title), std::string::npos) << set.title;
            std::vector<long> numbers;
            for (at += 2; at < text.size() && !text[at].empty(); ++at) {
                std::istringstream values(text[at]);
                for (long value = 0; values >> value;) numbers.push_back(value);
            }
            std::vector<long> expected = set.members;
            for (const std::array<long, 4>& segment : set.segments)
                expected.insert(expected.end(), segment.begin(), segment.end());
            EXPECT_EQ(numbers, expected);
        }
        EXPECT_EQ(text.size(), at + 2);
    });
}

TEST(RandomModels, PartsAreThoseOfTheMainDeckAndAllTheyNameIsDefined)
{
    for_models(many, [](const Model& model, const RunOutputs& outputs) {
        std::vector<std::vector<std::string>> rows;
        std::set<std::string> defined;
        for (const std::string& line : lines(outputs.deck)) {
            if (line.empty() || line[0] == '!') continue;
            std::istringstream words(line.substr(std::min(line.size(), line.find(':') + 1)));
            std::vector<std::string> values;
            for (std::string word; values.size() < 8 && words >> word;) values.push_back(word);
            if (begins(line, " Part definition:")) rows.push_back(values);
            for (const std::string_view kind : {" Element formulation definition:", " EOS definition:",
                                                " Material Definition:", " Hourglass formulation definition:"})
                if (begins(line, kind)) defined.insert(std::string(kind) + values[0]);
        }
        const std::vector<PartFact> parts = parts_of(model);
        ASSERT_EQ(rows.size(), parts.size());
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const auto is = [&](std::size_t column, const std::string& value, const std::string& kind) {
                EXPECT_EQ(rows[i][column], value.empty() ? "0" : value);
                EXPECT_TRUE(value.empty() || defined.count(kind + value) == 1) << kind << value;
            };
            EXPECT_EQ(rows[i][0], parts[i].id);
            is(1, parts[i].section, " Element formulation definition:");
            is(2, parts[i].material, " Material Definition:");
            is(3, parts[i].equation_of_state, " EOS definition:");
            is(5, parts[i].hourglass, " Hourglass formulation definition:");
        }
    });
}

// The quick run of the tests is the program's.
TEST(WholeRun, WritesWhatTheProgramWrites)
{
    const TemporaryFolder folder;
    std::string settings = " sourcefile : model.k\n";
    for (const char* const flag : {"cardflag", "setflag", "geomflag", "defflag", "contflag", "icflag", "lcflag",
                                   "tranflag", "amrflag", "sphflag", "plotflag"})
        settings += std::string(" ") + flag + " : 1\n";
    write_file("input.morvex", settings);
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        const std::string deck = strict(random_model(seed));
        const RunOutputs outputs = run_whole(deck);
        write_file("model.k", deck);
        EXPECT_EQ(run_command(program(), "yes\n").status, 0);
        EXPECT_EQ(contents("model.card"), outputs.deck);
        EXPECT_EQ(contents("model.geom"), outputs.geometry);
        EXPECT_EQ(contents("model.sets"), outputs.sets);
        EXPECT_EQ(contents("debug.morvex"), outputs.log);
        EXPECT_EQ(contents("keywords.k"), outputs.keyword_copy);
    }
}
}  // namespace models
