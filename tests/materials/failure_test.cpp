#include "reader/run.h"
#include "support/material_lines.h"

namespace
{
using Failure = FreshRun;

// Columns:                          FAILID    FSTRAIN      DTMIN    MINRVOL    MAXRVOL       SKEW     ASPECT       PMAX
const std::string defaults_of_7 =
    " Failure definition:         7  1.500e+00 -5.000e-01  5.000e-01  5.000e+00  0.000e+00 "
    " 0.000e+00  0.000e+00  1.000e-01\n";
const std::string no_strain_of_7 =
    " Failure definition:         7  0.000e+00 -5.000e-01  5.000e-01  5.000e+00  0.000e+00 "
    " 0.000e+00  0.000e+00  1.000e-01\n";

Written failures(const std::string& deck)
{
    return convert(failure_keywords, deck + "*END\n");
}

TEST_F(Failure, ElasticHasTheDefaultsAndAsksForDeletion)
{
    const Written out = failures("*MAT_ELASTIC\n"
                                 "         7        12        13        14        15        16        17\n");
    EXPECT_EQ(out.deck, defaults_of_7);
    EXPECT_EQ(out.log, "");
    EXPECT_EQ(out.terminal, "");
    EXPECT_EQ(edflag, 1);
}

TEST_F(Failure, MaterialsWithoutFailureFieldsHaveTheDefaults)
{
    for (const std::string keyword :
         {"*MAT_ELASTIC", "*MAT_HIGH_EXPLOSIVE_BURN", "*MAT_ISOTROPIC_ELASTIC_PLASTIC",
          "*MAT_JOHNSON_HOLMQUIST_CERAMICS", "*MAT_MOONEY-RIVLIN_RUBBER", "*MAT_RIGID", "*MAT_VISCOELASTIC"}) {
        const Written out =
            failures(keyword + "\n"
                               "         7        12        13        14        15        16        17        18\n"
                               "        21        22        23        24        25        26        27        28\n"
                               "        31        32        33        34        35        36        37        38\n");
        EXPECT_EQ(out.deck, defaults_of_7) << keyword;
    }
}

TEST_F(Failure, PlasticKinematicTakesItsFailureStrain)
{
    const Written out = failures("*MAT_PLASTIC_KINEMATIC\n"
                                 "         7        12        13        14        15        16        17\n"
                                 "        21        22       0.8        24\n");
    EXPECT_EQ(out.deck, " Failure definition:         7  8.000e-01 -5.000e-01  5.000e-01  5.000e+00  0.000e+00 "
                        " 0.000e+00  0.000e+00  1.000e-01\n");
    EXPECT_EQ(edflag, 1);
}

TEST_F(Failure, PlasticKinematicWithoutFailureStrainLeavesDeletionAsItWas)
{
    const std::string deck = "*MAT_PLASTIC_KINEMATIC\n"
                             "         7        12        13        14        15        16        17\n"
                             "        21        22                  24\n";
    EXPECT_EQ(failures(deck).deck, no_strain_of_7);
    EXPECT_EQ(edflag, 0);
    edflag = 1;
    failures(deck);
    EXPECT_EQ(edflag, 1);
}

TEST_F(Failure, NegativeFailureStrainAsksForDeletionToo)
{
    const Written out = failures("*MAT_PLASTIC_KINEMATIC\n"
                                 "         7\n"
                                 "        21        22      -0.5\n");
    EXPECT_EQ(out.deck, " Failure definition:         7 -5.000e-01 -5.000e-01  5.000e-01  5.000e+00  0.000e+00 "
                        " 0.000e+00  0.000e+00  1.000e-01\n");
    EXPECT_EQ(edflag, 1);
}

TEST_F(Failure, NullTakesItsErosionVolumes)
{
    const Written out = failures("*MAT_NULL\n"
                                 "         7        12        13        14       3.0       0.2        17        18\n");
    EXPECT_EQ(out.deck, " Failure definition:         7  1.500e+00 -5.000e-01  2.000e-01  3.000e+00  0.000e+00 "
                        " 0.000e+00  0.000e+00  1.000e-01\n");
}

TEST_F(Failure, NullWithoutErosionVolumesHasZeros)
{
    const Written out = failures("*MAT_NULL\n"
                                 "         7        12        13        14\n");
    EXPECT_EQ(out.deck, " Failure definition:         7  1.500e+00 -5.000e-01  0.000e+00  0.000e+00  0.000e+00 "
                        " 0.000e+00  0.000e+00  1.000e-01\n");
    EXPECT_EQ(edflag, 1);
}

TEST_F(Failure, HydroHasNoFailureStrainWhateverItsCardHolds)
{
    const Written out = failures("*MAT_ELASTIC_PLASTIC_HYDRO\n"
                                 "         7        12        13        14        15        16       0.9        18\n");
    EXPECT_EQ(out.deck, no_strain_of_7);
    EXPECT_EQ(edflag, 0);
}

TEST_F(Failure, IsotropicElasticFailureHasNoFailureStrainWhateverItsCardHolds)
{
    const Written out = failures("*MAT_ISOTROPIC_ELASTIC_FAILURE\n"
                                 "         7        12        13        14        15        16\n"
                                 "       0.9        22        23        24\n");
    EXPECT_EQ(out.deck, no_strain_of_7);
    EXPECT_EQ(edflag, 0);
}

TEST_F(Failure, JohnsonCookAndSteinbergKeepTheDefaultTimeStep)
{
    EXPECT_EQ(failures("*MAT_JOHNSON_COOK\n"
                       "         7        12        13        14        15    1.0e-9        17        18\n")
                  .deck,
              defaults_of_7);
    EXPECT_EQ(failures("*MAT_STEINBERG_TITLE\n"
                       "copper\n"
                       "         7        12        13        14        15    1.0e-9        17        18\n")
                  .deck,
              defaults_of_7);
}

TEST_F(Failure, SimplifiedJohnsonCookTakesItsFailureStrain)
{
    const Written out = failures("*MAT_SIMPLIFIED_JOHNSON_COOK\n"
                                 "         7        12        13        14        15\n"
                                 "        21        22        23        24      0.25        26        27        28\n");
    EXPECT_EQ(out.deck, " Failure definition:         7  2.500e-01 -5.000e-01  5.000e-01  5.000e+00  0.000e+00 "
                        " 0.000e+00  0.000e+00  1.000e-01\n");
}

TEST_F(Failure, TitleCardIsReadBeforeTheIdentifier)
{
    const Written out = failures("*MAT_ELASTIC_TITLE\n"
                                 "        99\n"
                                 "$ a comment\n"
                                 "         7\n");
    EXPECT_EQ(out.deck, defaults_of_7);
}

// Unlike the material handler, which takes the title card for card 1.
TEST_F(Failure, CeramicsTitleIsRead)
{
    const Written out = failures("*MAT_JOHNSON_HOLMQUIST_CERAMICS_TITLE\n"
                                 "        99\n"
                                 "         7\n");
    EXPECT_EQ(out.deck, defaults_of_7);
}

TEST_F(Failure, TitleIsToldByThreeOfItsLetters)
{
    const std::string cards = "        99\n"
                              "         7\n";
    EXPECT_EQ(failures("*MAT_RIGID_TXXLE\n" + cards).deck, defaults_of_7);
    for (const std::string ending : {"TITLES", "TITLE ", "TITTE", "XITLE"})
        EXPECT_EQ(line_with(failures("*MAT_RIGID_" + ending + "\n" + cards).deck, " Failure").substr(0, 30),
                  " Failure definition:        99")
            << ending;
}

TEST_F(Failure, OnlyTheFirstMaterialOfABlockIsRead)
{
    const Written out = failures("*MAT_ELASTIC\n"
                                 "         7        12\n"
                                 "         8        12\n");
    EXPECT_EQ(out.deck, defaults_of_7);
}
}  // namespace
