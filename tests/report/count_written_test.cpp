// What is read back from the written files is the model that was converted.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "report/recorder.h"
#include "support/convert.h"
#include "support/models.h"
#include "support/whole_run.h"

namespace
{
namespace fs = std::filesystem;

// The model's outputs in a folder, read back.
Recorder read_back(std::string_view deck, const RunFlags& flags = every_output)
{
    const TemporaryName folder;
    const RunOutputs outputs = run_whole(deck, flags);
    if (flags[0] == 1) write_file(folder.path() / "model.card", outputs.deck);
    if (flags[1] == 1) write_file(folder.path() / "model.sets", outputs.sets);
    if (flags[2] == 1) write_file(folder.path() / "model.geom", outputs.geometry);
    Recorder recorder;
    report::read_written(folder.path(), "model.k", recorder);
    return recorder;
}

float single(double value)
{
    return static_cast<float>(value);
}

void expect_nodes(const models::Model& model, const Recorder& read)
{
    const auto nodes = models::nodes_of(model);
    ASSERT_EQ(read.nodes.size(), nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        EXPECT_EQ(read.nodes[i].first, nodes[i].id);
        for (std::size_t k = 0; k < 3; ++k) EXPECT_EQ(single(read.nodes[i].second[k]), single(nodes[i].at[k]));
    }
}

// One kind of elements, in the order of the deck.
void expect_elements(const std::vector<models::ElementFact>& facts, const Recorder& read, report::ElementKind kind)
{
    std::size_t at = 0;
    for (const report::Element& element : read.elements) {
        if (element.kind != kind) continue;
        ASSERT_LT(at, facts.size());
        const models::ElementFact& fact = facts[at++];
        EXPECT_EQ(element.id, fact.id);
        EXPECT_EQ(element.part, fact.part);
        ASSERT_LE(static_cast<std::size_t>(element.corners), fact.nodes.size());
        for (int i = 0; i < element.corners; ++i)
            EXPECT_EQ(element.nodes[static_cast<std::size_t>(i)], fact.nodes[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(at, facts.size());
}

void expect_particles(const models::Model& model, const Recorder& read)
{
    std::size_t at = 0;
    const auto facts = models::particles_of(model);
    for (const report::Element& element : read.elements) {
        if (element.kind != report::ElementKind::particle) continue;
        ASSERT_LT(at, facts.size());
        EXPECT_EQ(element.nodes[0], facts[at].node);
        EXPECT_EQ(element.part, facts[at].part);
        EXPECT_FLOAT_EQ(single(element.mass), single(facts[at].mass));
        ++at;
    }
    EXPECT_EQ(at, facts.size());
}

report::SetKind kind_of(models::SetKind kind)
{
    switch (kind) {
    case models::SetKind::node:
        return report::SetKind::node;
    case models::SetKind::part:
        return report::SetKind::part;
    case models::SetKind::shell:
        return report::SetKind::shell;
    case models::SetKind::solid:
        return report::SetKind::solid;
    case models::SetKind::segment:
        return report::SetKind::segment;
    }
    return report::SetKind::other;
}

std::string without_blanks_behind(std::string text)
{
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

void expect_sets(const models::Model& model, const Recorder& read)
{
    const auto facts = models::sets_of(model);
    ASSERT_EQ(read.sets.size(), facts.size());
    for (std::size_t i = 0; i < facts.size(); ++i) {
        const Recorder::Set& set = read.sets[i];
        EXPECT_EQ(set.id, facts[i].id);
        EXPECT_EQ(set.kind, kind_of(facts[i].kind));
        EXPECT_EQ(set.title, without_blanks_behind(facts[i].title));
        if (facts[i].kind == models::SetKind::segment) {
            ASSERT_EQ(set.members.size(), facts[i].segments.size());
            for (std::size_t k = 0; k < set.members.size(); ++k)
                for (std::size_t n = 0; n < 4; ++n) EXPECT_EQ(set.members[k][n], facts[i].segments[k][n]);
        } else {
            ASSERT_EQ(set.members.size(), facts[i].members.size());
            for (std::size_t k = 0; k < set.members.size(); ++k) EXPECT_EQ(set.members[k][0], facts[i].members[k]);
        }
    }
}

void expect_parts(const models::Model& model, const Recorder& read)
{
    const auto facts = models::parts_of(model);
    ASSERT_EQ(read.parts.size(), facts.size());
    for (std::size_t i = 0; i < facts.size(); ++i) {
        EXPECT_EQ(std::to_string(read.parts[i].id), facts[i].id);
        EXPECT_EQ(std::to_string(read.parts[i].section), facts[i].section);
        EXPECT_EQ(std::to_string(read.parts[i].material), facts[i].material);
        EXPECT_EQ(read.parts[i].title, without_blanks_behind(facts[i].title));
    }
}

TEST(ReadWritten, FindsTheWholeModelInWhatWasWritten)
{
    for (std::uint32_t seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const models::Model model = models::random_model(seed);
        const Recorder read = read_back(models::strict(model));
        expect_nodes(model, read);
        expect_elements(models::shells_of(model), read, report::ElementKind::shell);
        expect_elements(models::solids_of(model), read, report::ElementKind::solid);
        expect_particles(model, read);
        expect_sets(model, read);
        expect_parts(model, read);
        if (HasFailure()) return;
    }
}

TEST(ReadWritten, TellsThicknessAndDensityOfAPart)
{
    const Recorder read = read_back("*KEYWORD\n"
                                    "*PART\n"
                                    "wall\n"
                                    "         7         8         9\n"
                                    "*SECTION_SHELL\n"
                                    "         8         2\n"
                                    "     0.125     0.250     0.375     0.500\n"
                                    "*MAT_ELASTIC\n"
                                    "         9   7.85e-9\n"
                                    "*END\n");
    ASSERT_EQ(read.parts.size(), 1U);
    const report::PartCount& part = read.parts.front();
    EXPECT_EQ(part.id, 7);
    EXPECT_EQ(part.title, "wall");
    EXPECT_EQ(part.section, 8);
    EXPECT_EQ(part.material, 9);
    EXPECT_EQ(part.thickness, (std::array<double, 4>{0.125, 0.25, 0.375, 0.5}));
    EXPECT_TRUE(part.has_density);
    EXPECT_DOUBLE_EQ(part.density, 7.85e-9);
}

TEST(ReadWritten, TellsAShellsOwnThickness)
{
    const Recorder read = read_back("*KEYWORD\n"
                                    "*ELEMENT_SHELL_THICKNESS\n"
                                    "       1       7      11      12      13      14\n"
                                    "             0.5            0.25             1.0             2.0            45.0\n"
                                    "*ELEMENT_SHELL\n"
                                    "       2       7      11      12      13      13\n"
                                    "*END\n");
    ASSERT_EQ(read.elements.size(), 2U);
    EXPECT_EQ(read.elements[0].thickness, (std::array<double, 4>{0.5, 0.25, 1.0, 2.0}));
    EXPECT_EQ(read.elements[1].thickness, (std::array<double, 4>{}));
    EXPECT_EQ(read.elements[1].nodes[3], 13);
}

TEST(ReadWritten, ReadsNumbersThatFillTheirColumns)
{
    const Recorder read = read_back("*KEYWORD\n"
                                    "*NODE\n"
                                    "99999999 -1.00000000e-10 -2.00000000e+10               3\n"
                                    "*ELEMENT_SOLID\n"
                                    "9999999888888888777777776666666655555555444444443333333322222222"
                                    "1111111199999999\n"
                                    "*SET_NODE_LIST\n"
                                    "1234567890\n"
                                    "11111111111111111112\n"
                                    "*END\n");
    ASSERT_EQ(read.nodes.size(), 1U);
    EXPECT_EQ(read.nodes[0].first, 99999999);
    EXPECT_EQ(single(read.nodes[0].second[0]), -1.0e-10F);
    ASSERT_EQ(read.elements.size(), 1U);
    EXPECT_EQ(read.elements[0].id, 99999998);
    EXPECT_EQ(read.elements[0].nodes[7], 99999999);
    ASSERT_EQ(read.sets.size(), 1U);
    EXPECT_EQ(read.sets[0].id, 1234567890);
    ASSERT_EQ(read.sets[0].members.size(), 2U);
    EXPECT_EQ(read.sets[0].members[1][0], 1111111112);
}

TEST(ReadWritten, LeavesOutWhatIsNotThere)
{
    RunFlags flags = every_output;
    flags[0] = flags[2] = 0;
    const Recorder read = read_back("*KEYWORD\n"
                                    "*NODE\n"
                                    "       1             1.0             2.0             3.0\n"
                                    "*SET_SHELL_LIST\n"
                                    "         5\n"
                                    "         1         2\n"
                                    "*END\n",
                                    flags);
    EXPECT_TRUE(read.nodes.empty());
    ASSERT_EQ(read.sets.size(), 1U);
    EXPECT_EQ(read.sets[0].kind, report::SetKind::other);  // the main deck would say of which elements
    EXPECT_EQ(read.sets[0].members.size(), 2U);
}
}  // namespace
