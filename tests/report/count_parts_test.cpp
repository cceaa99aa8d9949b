// Counts of small models: nodes, parts, sets, masses and centres computed by hand.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <string>

#include "report/counted.h"
#include "report/node_table.h"

namespace
{
using report::Count;
using report::PartCount;

std::string node(int id, double x, double y, double z)
{
    char line[64];
    std::snprintf(line, sizeof line, "%8i%16.8g%16.8g%16.8g\n", id, x, y, z);
    return line;
}

// Eight nodes of a box, from number `first` on.
std::string box_nodes(int first, double x, double y, double z, double size)
{
    const double right = x + size, back = y + size, top = z + size;
    return node(first, x, y, z) + node(first + 1, right, y, z) + node(first + 2, right, back, z) +
           node(first + 3, x, back, z) + node(first + 4, x, y, top) + node(first + 5, right, y, top) +
           node(first + 6, right, back, top) + node(first + 7, x, back, top);
}

std::string solid(int id, int part, int first)
{
    char line[128];
    std::snprintf(line, sizeof line, "%8i%8i%8i%8i%8i%8i%8i%8i%8i%8i\n", id, part, first, first + 1, first + 2,
                  first + 3, first + 4, first + 5, first + 6, first + 7);
    return line;
}

constexpr char part_cards[] = "*PART\n"
                              "steel\n"
                              "         7         8         9\n"
                              "*MAT_ELASTIC\n"
                              "         9       2.5\n";

const std::string two_boxes = "*KEYWORD\n" + std::string(part_cards) + "*NODE\n" + box_nodes(1, 0, 0, 0, 1) +
                              box_nodes(11, 4, 0, 0, 2) + "*ELEMENT_SOLID\n" + solid(1, 7, 1) + solid(2, 7, 11) +
                              "*END\n";

void expect_two_boxes(const Count& count)
{
    EXPECT_EQ(count.nodes, 16U);
    EXPECT_EQ(count.solids, 2U);
    EXPECT_EQ(count.box.low, (std::array<double, 3>{0, 0, 0}));
    EXPECT_EQ(count.box.high, (std::array<double, 3>{6, 2, 2}));
    ASSERT_EQ(count.parts.size(), 1U);
    const PartCount& part = count.parts.front();
    EXPECT_EQ(part.id, 7);
    EXPECT_EQ(part.title, "steel");
    EXPECT_EQ(part.solids, 2U);
    EXPECT_DOUBLE_EQ(part.volume, 9);
    EXPECT_DOUBLE_EQ(part.mass, 22.5);
    EXPECT_DOUBLE_EQ(part.centre[0], (0.5 + 8 * 5) / 9);
    EXPECT_DOUBLE_EQ(part.centre[1], (0.5 + 8) / 9);
    EXPECT_EQ(count.smallest_edge, 1);
    EXPECT_EQ(count.smallest_edge_element, 1);
    ASSERT_EQ(count.worst.size(), 2U);
    EXPECT_DOUBLE_EQ(count.worst[0].shape, 1);
}

TEST(Count, OfSolidsOnBothSides)
{
    expect_two_boxes(counted_deck(two_boxes));
    expect_two_boxes(counted_outputs(run_whole(two_boxes)));
}

TEST(Count, OfElementsBeforeTheirNodes)
{
    const std::string deck = "*KEYWORD\n*ELEMENT_SOLID\n" + solid(1, 7, 1) + "*NODE\n" + box_nodes(11, 4, 0, 0, 2) +
                             "*ELEMENT_SOLID\n" + solid(2, 7, 11) + "*NODE\n" + box_nodes(1, 0, 0, 0, 1) + part_cards +
                             "*END\n";
    expect_two_boxes(counted_deck(deck));
    EXPECT_EQ(conversion_differences(deck), "");
}

TEST(Count, OfShellsWithTheThicknessOfTheirSectionOrTheirOwn)
{
    const std::string deck = "*KEYWORD\n" + std::string(part_cards) +
                             "*SECTION_SHELL\n"
                             "         8         2\n"
                             "       0.5\n"
                             "*NODE\n" +
                             box_nodes(1, 0, 0, 0, 2) +
                             "*ELEMENT_SHELL\n"
                             "       1       7       1       2       3       4\n"
                             "       2       7       5       6       7       7\n"
                             "*ELEMENT_SHELL_THICKNESS\n"
                             "       3       7       1       2       6       5\n"
                             "            0.25            0.75             0.0            0.75\n"
                             "*END\n";
    for (const Count& count : {counted_deck(deck), counted_outputs(run_whole(deck))}) {
        EXPECT_EQ(count.shells, 3U);
        const PartCount& part = count.parts.at(0);
        // areas 4, 2 and 4; thicknesses 1/2, 1/2 and (1/4 + 3/4 + 1/2 + 3/4) / 4
        EXPECT_NEAR(part.volume, 2 + 1 + 2.25, 1e-6);
        EXPECT_NEAR(part.mass, 2.5 * 5.25, 1e-6);
        EXPECT_NEAR(part.centre[0], (2 * 1 + 1 * 4.0 / 3 + 2.25 * 1) / 5.25, 1e-6);
        EXPECT_NEAR(part.centre[2], (0 + 1 * 2 + 2.25 * 1) / 5.25, 1e-6);
    }
    EXPECT_EQ(conversion_differences(deck), "");
}

TEST(Count, OfParticlesByTheMassTheyCarry)
{
    const std::string deck = "*KEYWORD\n" + std::string(part_cards) + "*NODE\n" + node(1, 0, 0, 0) + node(2, 3, 0, 0) +
                             "*ELEMENT_SPH\n"
                             "       1       7             1.0\n"
                             "       2       7             0.5\n"
                             "*END\n";
    for (const Count& count : {counted_deck(deck), counted_outputs(run_whole(deck))}) {
        EXPECT_EQ(count.particles, 2U);
        const PartCount& part = count.parts.at(0);
        EXPECT_DOUBLE_EQ(part.mass, 1.5);
        EXPECT_DOUBLE_EQ(part.volume, 0.6);
        EXPECT_DOUBLE_EQ(part.centre[0], 1);
    }
}

TEST(Count, OfAPartWithoutADensityHasTheCentreOfItsVolume)
{
    const std::string deck = "*KEYWORD\n*NODE\n" + box_nodes(1, 0, 0, 0, 1) + box_nodes(11, 4, 0, 0, 1) +
                             "*ELEMENT_SOLID\n" + solid(1, 3, 1) + solid(2, 3, 11) + "*END\n";
    const PartCount part = counted_deck(deck).parts.at(0);
    EXPECT_EQ(part.definitions, 0U);
    EXPECT_FALSE(part.has_density);
    EXPECT_DOUBLE_EQ(part.volume, 2);
    EXPECT_EQ(part.mass, 0);
    EXPECT_DOUBLE_EQ(part.centre[0], 2.5);
}

TEST(Count, LeavesElementsWithoutAllTheirNodesUnmeasured)
{
    const std::string deck = "*KEYWORD\n*NODE\n" + box_nodes(1, 0, 0, 0, 1) + "*ELEMENT_SOLID\n" + solid(1, 3, 1) +
                             solid(2, 3, 5) + "*END\n";
    const Count count = counted_deck(deck);
    EXPECT_EQ(count.solids, 2U);
    EXPECT_DOUBLE_EQ(count.parts.at(0).volume, 1);
    EXPECT_EQ(count.worst.size(), 1U);
}

TEST(Count, TellsTheTenWorstElements)
{
    std::string nodes, solids;
    for (int i = 0; i < 14; ++i) {
        std::string corners = box_nodes(10 * i + 1, 4 * i, 0, 0, 1);
        corners.resize(7 * 57);  // the last corner stands higher from box to box
        nodes += corners + node(10 * i + 8, 4 * i, 1, 1 + 0.125 * i);
        solids += solid(100 - i, 1, 10 * i + 1);
    }
    const Count count = counted_deck("*KEYWORD\n*NODE\n" + nodes + "*ELEMENT_SOLID\n" + solids + "*END\n");
    ASSERT_EQ(count.worst.size(), 10U);
    for (std::size_t i = 0; i < 10; ++i) EXPECT_EQ(count.worst[i].id, 87 + static_cast<std::int64_t>(i));
    EXPECT_LT(count.worst.front().shape, count.worst.back().shape);
}

TEST(Count, OfSetsIsInTheOrderOfKindsAndNumbers)
{
    const std::string deck = "*KEYWORD\n"
                             "*SET_SOLID\n"
                             "         4\n"
                             "         1\n"
                             "*SET_NODE_LIST_TITLE\n"
                             "two\n"
                             "         9\n"
                             "         1         2         0         3\n"
                             "*SET_SEGMENT\n"
                             "         5\n"
                             "         1         2         3         4\n"
                             "         2         3         4         4\n"
                             "*SET_NODE_LIST\n"
                             "         3\n"
                             "         1\n"
                             "*END\n";
    const Count count = counted_deck(deck);
    ASSERT_EQ(count.sets.size(), 4U);
    EXPECT_EQ(count.sets[0].id, 3);
    EXPECT_EQ(count.sets[1].id, 9);
    EXPECT_EQ(count.sets[1].title, "two");
    EXPECT_EQ(count.sets[1].members, 3U);
    EXPECT_EQ(count.sets[2].kind, report::SetKind::segment);
    EXPECT_EQ(count.sets[2].members, 2U);
    EXPECT_EQ(count.sets[3].kind, report::SetKind::solid);
    EXPECT_EQ(conversion_differences(deck), "");
}

// ---- nodes by number -----------------------------------------------------------------------------------------------

TEST(NodeTable, FindsNodesInAnyOrderAndAtAnyDistance)
{
    report::NodeTable nodes;
    for (std::int64_t i = 3000; i > 0; --i) nodes.add(i * i * 400, {static_cast<float>(i), 0, 0});
    nodes.add(7, {-1, 0, 0});
    nodes.seal();
    for (std::int64_t i = 1; i <= 3000; ++i) {
        ASSERT_NE(nodes.find(i * i * 400), nullptr);
        EXPECT_EQ((*nodes.find(i * i * 400))[0], static_cast<float>(i));
        EXPECT_EQ(nodes.find(i * i * 400 + 1), nullptr);
    }
    EXPECT_EQ((*nodes.find(7))[0], -1);
    for (const std::int64_t id : {std::int64_t{0}, std::int64_t{6}, std::int64_t{-7}, std::int64_t{1} << 40})
        EXPECT_EQ(nodes.find(id), nullptr);
}

TEST(NodeTable, FindsTheSameOfTwoNodesInEitherOrder)
{
    for (const bool turned : {false, true}) {
        report::NodeTable nodes;
        nodes.add(5, {turned ? 2.0F : 1.0F, 0, 0});
        nodes.add(5, {turned ? 1.0F : 2.0F, 0, 0});
        nodes.seal();
        EXPECT_EQ((*nodes.find(5))[0], 1.0F);
    }
}
}  // namespace
