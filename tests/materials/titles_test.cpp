#include "support/material_lines.h"

namespace
{
using Titles = FreshRun;

const std::string cards = "         7\n         0\n         0\n         0\n         0\n         0\n         0\n*END\n";

TEST_F(Titles, MaterialsTakeTheirTitleCard)
{
    const struct {
        const char* keyword;
        void (*handler)();
    } members[] = {
        {"*MAT_ELASTIC_TITLE", matelastic},
        {"*MAT_ELASTIC_PLASTIC_HYDRO_TITLE", matelasticplastichydro},
        {"*MAT_ELASTIC_PLASTIC_HYDRO_SPALL_TITLE", matelasticplastichydro},
        {"*MAT_HIGH_EXPLOSIVE_BURN_TITLE", matheburn},
        {"*MAT_ISOTROPIC_ELASTIC_FAILURE_TITLE", matisotropicelasticfail},
        {"*MAT_ISOTROPIC_ELASTIC_PLASTIC_TITLE", matisotropicelasticplas},
        {"*MAT_JOHNSON_COOK_TITLE", matjohnsoncook},
        {"*MAT_MOONEY-RIVLIN_RUBBER_TITLE", matmooney},
        {"*MAT_NULL_TITLE", matnull},
        {"*MAT_PLASTIC_KINEMATIC_TITLE", matplastickinematic},
        {"*MAT_RIGID_TITLE", matrigid},
        {"*MAT_SIMPLIFIED_JOHNSON_COOK_TITLE", matsimpjohnsoncook},
        {"*MAT_STEINBERG_TITLE", matsteinberg},
        {"*MAT_VISCOELASTIC_TITLE", matviscoelastic},
    };
    for (const auto& member : members) {
        const std::string keyword = member.keyword;
        const Written out = convert_block(member.handler, keyword + "\nWhite rubber\n" + cards);
        const std::string line = line_with(out.deck, " Material Definition: ");
        EXPECT_EQ(line.substr(0, 32), " Material Definition:          7") << keyword;
        EXPECT_EQ(line.substr(43), "  0.000e+00           White rubber") << keyword;

        // one letter less is no title: the title card is read as card 1
        if (member.handler == matsteinberg) continue;
        const Written untitled =
            convert_block(member.handler, keyword.substr(0, keyword.size() - 1) + "\n        99\n" + cards);
        EXPECT_EQ(lines_with(untitled.deck, " Material Definition:         99"), 1u) << keyword;
    }
}

TEST_F(Titles, SteinbergTellsItsTitleByOneLetterLess)
{
    const Written out = convert_block(matsteinberg, "*MAT_STEINBERG_TITL\nWhite copper\n" + cards);
    EXPECT_EQ(line_with(out.deck, " Material"),
              " Material Definition:          7         11  0.000e+00           White copper");
}

TEST_F(Titles, EquationsOfStateTakeTheirTitleCard)
{
    const struct {
        const char* keyword;
        void (*handler)();
    } members[] = {
        {"*EOS_GRUNEISEN_TITLE", eosmgrun},
        {"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE_TITLE", eosigrb},
        {"*EOS_JWL_TITLE", eosjwl},
        {"*EOS_LINEAR_POLYNOMIAL_TITLE", eoslinearpoly},
    };
    for (const auto& member : members) {
        const std::string keyword = member.keyword;
        const Written out = convert_block(member.handler, keyword + "\nheavy\n" + cards);
        const std::string line = line_with(out.deck, " EOS definition:");
        EXPECT_EQ(line.substr(0, 32), " EOS definition:               7") << keyword;
        EXPECT_EQ(line.substr(43), "                    heavy") << keyword;

        const Written untitled =
            convert_block(member.handler, keyword.substr(0, keyword.size() - 1) + "\n        99\n" + cards);
        EXPECT_EQ(lines_with(untitled.deck, " EOS definition:              99"), 1u) << keyword;
    }
}

TEST_F(Titles, LongTitleIsWrittenWholeUpToEightyCharacters)
{
    const std::string title = std::string(70, 'm') + "0123456789";
    const Written out = convert_block(matelastic, "*MAT_ELASTIC_TITLE\n" + title + "beyond\n" + cards);
    EXPECT_EQ(line_with(out.deck, " Material"), " Material Definition:          7          1  0.000e+00   " + title);
}
}  // namespace
