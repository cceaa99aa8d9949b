// A handler leaves the deck where its last field ended, and what stands there may be the next keyword line: these tests
// put one there, and so pin how many fields of which card are read, the unused ones included.
#include "support/material_lines.h"

namespace
{
using StreamPosition = FreshRun;

struct Reads {
    const char* keyword;
    int cards;
    std::size_t columns;  // of the last card
};

// A block of blank fields with `last` behind the columns that are read.
std::string block(const Reads& reads, const std::string& last)
{
    std::string deck = std::string(reads.keyword) + "\n";
    for (int card = 1; card < reads.cards; ++card) deck += std::string(80, ' ') + "\n";
    return deck + std::string(reads.columns, ' ') + last;
}

void expect_to_stop_there(const Pass& pass, const Reads& reads, const std::string& next, const std::string& line)
{
    SCOPED_TRACE(reads.keyword);
    EXPECT_EQ(lines_with(convert(pass, block(reads, next)).deck, line), 1u);
    Reads later = reads;
    ++later.columns;
    EXPECT_EQ(lines_with(convert(pass, block(later, next)).deck, line), 0u);
    Reads earlier = reads;
    --earlier.columns;
    EXPECT_EQ(lines_with(convert(pass, block(earlier, next)).deck, line), 0u);
}

TEST_F(StreamPosition, AfterFailure)
{
    for (const Reads& reads :
         {Reads{"*MAT_ELASTIC", 1, 10}, Reads{"*MAT_PLASTIC_KINEMATIC", 2, 30}, Reads{"*MAT_VISCOELASTIC", 1, 10},
          Reads{"*MAT_HIGH_EXPLOSIVE_BURN", 1, 10}, Reads{"*MAT_NULL", 1, 60},
          Reads{"*MAT_ELASTIC_PLASTIC_HYDRO", 1, 70}, Reads{"*MAT_STEINBERG_TITLE", 2, 60},
          Reads{"*MAT_ISOTROPIC_ELASTIC_PLASTIC", 1, 10}, Reads{"*MAT_ISOTROPIC_ELASTIC_FAILURE", 2, 40},
          Reads{"*MAT_JOHNSON_COOK", 1, 60}, Reads{"*MAT_JOHNSON_HOLMQUIST_CERAMICS", 1, 10},
          Reads{"*MAT_SIMPLIFIED_JOHNSON_COOK", 2, 50}})
        expect_to_stop_there(failure_keywords, reads, "*MAT_RIGID\n        88\n*END\n",
                             " Failure definition:        88");
}

TEST_F(StreamPosition, AfterMaterials)
{
    for (const Reads& reads :
         {Reads{"*MAT_ELASTIC", 1, 70}, Reads{"*MAT_ELASTIC_PLASTIC_HYDRO", 5, 80},
          Reads{"*MAT_ELASTIC_PLASTIC_HYDRO_SPALL", 6, 80}, Reads{"*MAT_HIGH_EXPLOSIVE_BURN", 1, 80},
          Reads{"*MAT_ISOTROPIC_ELASTIC_FAILURE", 2, 40}, Reads{"*MAT_ISOTROPIC_ELASTIC_PLASTIC", 1, 60},
          Reads{"*MAT_JOHNSON_COOK", 4, 20}, Reads{"*MAT_JOHNSON_HOLMQUIST_CERAMICS", 3, 60},
          Reads{"*MAT_MOONEY-RIVLIN_RUBBER", 2, 40}, Reads{"*MAT_NULL", 1, 80}, Reads{"*MAT_PLASTIC_KINEMATIC", 2, 40},
          Reads{"*MAT_RIGID", 3, 60}, Reads{"*MAT_SIMPLIFIED_JOHNSON_COOK", 2, 80},
          Reads{"*MAT_STEINBERG_TITLE", 5, 80}, Reads{"*MAT_VISCOELASTIC", 1, 60}})
        expect_to_stop_there(material_keywords, reads, "*MAT_NULL\n        88\n*END\n",
                             " Material Definition:         88");
}

TEST_F(StreamPosition, AfterEquationsOfState)
{
    for (const Reads& reads :
         {Reads{"*EOS_GRUNEISEN", 2, 10}, Reads{"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE", 4, 60},
          Reads{"*EOS_JWL", 1, 80}, Reads{"*EOS_LINEAR_POLYNOMIAL_TITLE", 3, 20}})
        expect_to_stop_there(eos_keywords, reads, "*EOS_JWL\n        88\n*END\n", " EOS definition:              88");
}

TEST_F(StreamPosition, AfterSections)
{
    for (const Reads& reads :
         {Reads{"*SECTION_SOLID", 1, 30}, Reads{"*SECTION_SHELL", 2, 80}, Reads{"*SECTION_SPH", 1, 70}})
        expect_to_stop_there(section_keywords, reads, "*SECTION_SPH\n        88\n*END\n",
                             " Element formulation definition:        88");
}

TEST_F(StreamPosition, AfterHourglass)
{
    expect_to_stop_there(hourglass_keywords, {"*HOURGLASS", 1, 80}, "*HOURGLASS\n        88\n*END\n",
                         " Hourglass formulation definition:         88");
}
}  // namespace
