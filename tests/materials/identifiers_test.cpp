#include <random>
#include <sstream>
#include <vector>

#include "support/material_lines.h"

namespace
{
using Identifiers = FreshRun;

// Identifiers of ten columns: letters of both cases, digits, signs and blanks; every seventh is left-aligned, which
// reads as empty, and every eleventh is blank.
std::vector<std::string> random_identifiers(std::size_t count)
{
    static constexpr std::string_view characters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.+/#% ";
    std::mt19937 random(20240607);
    std::vector<std::string> identifiers;
    while (identifiers.size() < count) {
        std::string identifier(10, ' ');
        const std::size_t length = identifiers.size() % 11 == 10 ? 0 : 1 + random() % 10;
        for (std::size_t i = 0; i < length; ++i) identifier[9 - i] = characters[random() % characters.size()];
        if (identifiers.size() % 7 == 6) identifier = identifier.substr(1) + " ";
        identifiers.push_back(identifier);
    }
    return identifiers;
}

std::vector<std::string> lines_beginning(const std::string& text, std::string_view beginning)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        if (line.starts_with(beginning)) lines.push_back(line);
    return lines;
}

// The part's material and failure columns, the failure line and the material line are the same ten characters.
TEST_F(Identifiers, OfAMaterialAreTheSameTenCharactersWhereverTheyStand)
{
    const std::vector<std::string> identifiers = random_identifiers(220);
    const std::string zeros = "         0         0         0         0         0         0         0\n";
    for (const std::string keyword : {"*MAT_ELASTIC",
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
                                      "*MAT_VISCOELASTIC_TITLE"}) {
        SCOPED_TRACE(keyword);
        std::string deck = "*PART\n";
        for (const std::string& identifier : identifiers)
            deck += "heading\n         1         2" + identifier + "         0\n";
        for (const std::string& identifier : identifiers) {
            deck += keyword + "\n";
            if (keyword.ends_with("_TITLE")) deck += "a title\n";
            deck += identifier + zeros;
            for (int card = 2; card <= 6; ++card) deck += zeros;
        }
        const Written out = convert(part_descriptions, deck + "*END\n");

        const auto parts = lines_beginning(out.deck, " Part definition: ");
        const auto failures = lines_beginning(out.deck, " Failure definition:");
        const auto materials = lines_beginning(out.deck, " Material Definition: ");
        ASSERT_EQ(parts.size(), identifiers.size());
        ASSERT_EQ(failures.size(), identifiers.size());
        ASSERT_EQ(materials.size(), identifiers.size());
        for (std::size_t i = 0; i < identifiers.size(); ++i) {
            const std::string expected = identifiers[i].back() == ' ' ? "         0" : identifiers[i];
            EXPECT_EQ(parts[i].substr(36, 11), " " + expected);
            EXPECT_EQ(parts[i].substr(58, 11), " " + expected);
            EXPECT_EQ(failures[i].substr(20, 11), expected + " ");
            EXPECT_EQ(materials[i].substr(21, 12), " " + expected + " ");
        }
    }
}

// Sections, equations of state and hourglass definitions are named by part lines in the same way.
TEST_F(Identifiers, OfOtherDefinitionsAreThoseOfThePartLine)
{
    for (const std::string& identifier : random_identifiers(40)) {
        const std::string expected = identifier.back() == ' ' ? "         0" : identifier;
        const Written out = convert(part_descriptions, "*PART\nheading\n"
                                                       "         1" +
                                                           identifier + "         3" + identifier + identifier +
                                                           "         0         0         5\n"
                                                           "*SECTION_SOLID\n" +
                                                           identifier +
                                                           "         1\n"
                                                           "*EOS_JWL\n" +
                                                           identifier +
                                                           "         0\n"
                                                           "*HOURGLASS\n" +
                                                           identifier +
                                                           "         1\n"
                                                           "*END\n");
        const std::string line = line_with(out.deck, " Part definition: ");
        EXPECT_EQ(line.substr(25, 11), " " + expected);
        EXPECT_EQ(line.substr(47, 11), " " + expected);
        EXPECT_EQ(line.substr(69, 11), " " + expected);
        EXPECT_EQ(line_with(out.deck, " Element formulation").substr(31, 11), ":" + expected);
        EXPECT_EQ(line_with(out.deck, " EOS definition:").substr(16, 16), "      " + expected);
        EXPECT_EQ(line_with(out.deck, " Hourglass").substr(34, 12), " " + expected + " ");
    }
}
}  // namespace
