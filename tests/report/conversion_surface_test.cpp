// What a deck lays upon its mesh is marked in the mesh, and parts know what became of them.
#include "report/conversion_surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/deck_facts.h"
#include "support/convert.h"

namespace
{
using report::SetKind;

constexpr char deck[] = "*KEYWORD\n"                                                      // 1
                        "*PART\n"                                                         // 2
                        "Plate\n"                                                         // 3
                        "         5         1         2\n"                                // 4
                        "*PART\n"                                                         // 5
                        "Ball\n"                                                          // 6
                        "         6         1         3\n"                                // 7
                        "*SECTION_SHELL\n"                                                // 8
                        "         1         2\n"                                          // 9
                        "       0.1       0.1       0.1       0.1\n"                      // 10
                        "*MAT_ELASTIC\n"                                                  // 11
                        "         2    7800.0     2e+11       0.3\n"                      // 12
                        "*MAT_UNHEARD_OF\n"                                               // 13
                        "         3    7800.0     2e+11       0.3\n"                      // 14
                        "*BOUNDARY_SPC_SET\n"                                             // 15
                        "         7         0         1         1         1\n"            // 16
                        "         7         0         0         0         0         1\n"  // 17
                        "*BOUNDARY_SPC_NODE\n"                                            // 18
                        "$ a comment\n"                                                   // 19
                        "         2         0         1         1         1\n"            // 20
                        "        99         0         1         1         1\n"            // 21
                        "*LOAD_SEGMENT_SET\n"                                             // 22
                        "         8         1       1.0\n"                                // 23
                        "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE\n"                         // 24
                        "         9         5         2         3\n"                      // 25
                        "\n"                                                              // 26
                        "\n"                                                              // 27
                        "*END\n";                                                         // 28

class ConversionSurface : public testing::Test
{
protected:
    void SetUp() override
    {
        std::filesystem::create_directory(folder.path());
        write_file(folder.path() / "model.k", deck);
        write_file(folder.path() / "model.geom", "Node Definition:\n"
                                                 "       1  0.0  0.0  0.0  0  0\n"
                                                 "       2  1.0  0.0  0.0  0  0\n"
                                                 "       3  1.0  1.0  0.0  0  0\n"
                                                 "       4  0.0  1.0  0.0  0  0\n"
                                                 "\n Shell Element Definition:\n"
                                                 "       1       5       1       2       3       4\n"
                                                 "  0.0  0.0  0.0  0.0\n"
                                                 "       2       6       1       2       3       3\n"
                                                 "  0.0  0.0  0.0  0.0\n");
        write_file(folder.path() / "model.sets", " Node set definition    :    7           Rim\n"
                                                 "         1         2\n"
                                                 " Part set definition    :    9           Both\n"
                                                 "         5         6\n");
        const std::size_t lines[] = {2, 5, 8, 11, 13, 15, 18, 22, 24};
        for (std::size_t i = 0; i < std::size(lines); ++i) {
            report::Block block;
            block.outcome = lines[i] == 13 ? report::Outcome::not_known : report::Outcome::converted;
            block.prepared_line = lines[i];
            block.prepared_last_line = (i + 1 < std::size(lines) ? lines[i + 1] : 28) - 1;
            ledger.blocks.push_back(block);
        }
        std::reverse(ledger.blocks.begin(), ledger.blocks.end());
        ledger.deck = "model.k";
    }

    const TemporaryName folder;
    report::Ledger ledger;
};

TEST_F(ConversionSurface, MarksWhatConditionsAreLaidUpon)
{
    const report::Surface surface = report::surface_of_conversion(folder.path(), ledger);
    ASSERT_EQ(surface.sets.size(), 6U);
    EXPECT_EQ(surface.sets[0].laid, "");
    EXPECT_EQ(surface.sets[0].title, "Rim");

    const auto& spc = surface.sets[2];  // named twice by its keyword
    EXPECT_EQ(spc.laid, "*BOUNDARY_SPC_SET");
    EXPECT_EQ(spc.title, "Rim");
    EXPECT_EQ(spc.id, 7);
    EXPECT_EQ(spc.first, surface.sets[0].first);
    EXPECT_EQ(spc.count, 2U);

    const auto& nodes = surface.sets[3];
    EXPECT_EQ(nodes.laid, "*BOUNDARY_SPC_NODE");
    EXPECT_EQ(nodes.kind, SetKind::node);
    EXPECT_EQ(nodes.id, 0);
    EXPECT_EQ(nodes.all, 2U);
    ASSERT_EQ(nodes.count, 1U);
    EXPECT_EQ(surface.node_numbers[surface.members[nodes.first]], 2);

    EXPECT_EQ(surface.sets[4].laid, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE");  // the segment set is defined nowhere
    EXPECT_EQ(surface.sets[4].id, 9);
    EXPECT_EQ(surface.sets[4].count, 2U);

    EXPECT_EQ(surface.sets[5].kind, SetKind::part);
    ASSERT_EQ(surface.sets[5].count, 1U);
    EXPECT_EQ(surface.parts[surface.members[surface.sets[5].first]].id, 5);
}

TEST_F(ConversionSurface, TellsWhatBecameOfAPartWithItsSectionAndMaterial)
{
    const report::Surface surface = report::surface_of_conversion(folder.path(), ledger);
    ASSERT_EQ(surface.parts.size(), 2U);
    EXPECT_EQ(surface.parts[0].outcome, "converted");
    EXPECT_EQ(surface.parts[1].outcome, "not known");
}

TEST_F(ConversionSurface, BoundsWhatIsNamedOneByOne)
{
    const report::Surface surface = report::surface_of_conversion(folder.path(), ledger, {.members = 5});
    EXPECT_LE(surface.members.size(), 5U);
}
}  // namespace
