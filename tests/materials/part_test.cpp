#include "support/material_lines.h"

namespace
{
using Part = FreshRun;

TEST_F(Part, WritesIdentifiersAsReadAndTheMaterialAlsoAsFailure)
{
    const Written out =
        convert_block(part, "*PART\n"
                            "front bumper\n"
                            "        12     SEC-1   STEEL-A     EOS 2   HG left         3        24      TH-9\n"
                            "*END\n");
    EXPECT_EQ(
        out.deck,
        " Part definition:      12      SEC-1    STEEL-A      EOS 2    STEEL-A    HG left       TH-9          3   front bumper" +
            std::string(81 - 12, ' ') + "\n");
}

TEST_F(Part, BlankIdentifiersBecomeZeros)
{
    const Written out = convert_block(part, "*PART\n"
                                            "wall\n"
                                            "         1         2         3\n"
                                            "*END\n");
    EXPECT_EQ(out.deck, " Part definition:       1          2          3          0          3          0          0"
                        "          0   wall" +
                            std::string(77, ' ') + "\n");
}

TEST_F(Part, LeftAlignedIdentifierIsEmpty)
{
    const Written out = convert_block(part, "*PART\n"
                                            "wall\n"
                                            "         1SEC       STEEL-AND*\n"
                                            "*END\n");
    EXPECT_EQ(line_with(out.deck, " Part").substr(0, 69),
              " Part definition:       1          0 STEEL-AND*          0 STEEL-AND*");
}

TEST_F(Part, HeadingIsCutAtEightyCharacters)
{
    const Written out = convert_block(part, "*PART\n" + std::string(80, 'h') +
                                                "XYZ\n"
                                                "         1         2         3\n"
                                                "*END\n");
    EXPECT_EQ(out.deck, " Part definition:       1          2          3          0          3          0          0"
                        "          0   " +
                            std::string(80, 'h') + " \n");
}

TEST_F(Part, HeadingOfSeventyNineCharactersKeepsItsNewline)
{
    const Written out = convert_block(part, "*PART\n" + std::string(79, 'h') +
                                                "\n"
                                                "         1         2         3\n"
                                                "*END\n");
    EXPECT_EQ(out.deck, " Part definition:       1          2          3          0          3          0          0"
                        "          0   " +
                            std::string(79, 'h') + "\n \n");
}

TEST_F(Part, BlockOfSeveralPartsYieldsALineForEach)
{
    const Written out = convert_block(part, "*PART\n"
                                            "$ a comment before the heading\n"
                                            "left\n"
                                            "$ and one before the card\n"
                                            "         1         2         3\n"
                                            "right\n"
                                            "         4         5         6                                       7\n"
                                            "*END\n");
    EXPECT_EQ(lines_with(out.deck, " Part definition: "), 2u);
    EXPECT_EQ(lines_with(out.deck, " Part definition:       1          2          3"), 1u);
    EXPECT_EQ(lines_with(out.deck, " Part definition:       4          5          6"), 1u);
    EXPECT_EQ(out.log, "\n"
                       "*PART . . . recognized keyword\n"
                       "unused variables:\n"
                       "    adpopt:         0\n"
                       "\n"
                       "*PART . . . recognized keyword\n"
                       "unused variables:\n"
                       "    adpopt:         7\n");
}

TEST_F(Part, EmptyBlockWritesNothing)
{
    const Written out = convert_block(part, "*PART\n*END\n");
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(out.log, "");
}

TEST_F(Part, NumbersAreTruncated)
{
    const Written out = convert_block(part, "*PART\n"
                                            "wall\n"
                                            "      12.9         2         3         4         5      -6.9       7.9\n"
                                            "*END\n");
    EXPECT_EQ(line_with(out.deck, " Part").substr(0, 105),
              " Part definition:      12          2          3          4          3          5          0"
              "         -6   ");
    EXPECT_EQ(lines_equal(out.log, "    adpopt:         7"), 1u);
}

TEST_F(Part, OptionIsNotedInTheLog)
{
    for (const std::string keyword : {"*PART_PRINT", "*PART_INERTIA"}) {
        const Written out = convert_block(part, keyword + "\n"
                                                          "wall\n"
                                                          "         1         2         3\n"
                                                          "*END\n");
        EXPECT_EQ(out.log, "\n" + keyword +
                               " . . . recognized keyword\n"
                               "additional options ignored on cards 3 and up\n"
                               "unused variables:\n"
                               "    adpopt:         0\n");
    }
}

// Two option cards are taken for the heading and card of a part of their own.
TEST_F(Part, OptionCardsGiveSpuriousParts)
{
    const Written out = convert(part_keywords, "*PART_INERTIA\n"
                                               "wall\n"
                                               "         1         2         3\n"
                                               "       0.5       0.6       0.7\n"
                                               "        91        92        93\n"
                                               "*PART\n"
                                               "door\n"
                                               "         4         5         6\n"
                                               "*END\n");
    EXPECT_EQ(lines_with(out.deck, " Part definition: "), 3u);
    EXPECT_EQ(lines_with(out.deck, " Part definition:      91         92         93"), 1u);
    EXPECT_EQ(line_with(out.deck, " Part definition:      91").substr(105, 30), "       0.5       0.6       0.7");
    EXPECT_EQ(lines_with(out.deck, " Part definition:       4"), 1u);
}

// One option card becomes a heading, and the next keyword line the card behind it.
TEST_F(Part, SingleOptionCardSwallowsTheNextKeyword)
{
    const Written out = convert(part_keywords, "*PART_CONTACT\n"
                                               "wall\n"
                                               "         1         2         3\n"
                                               "       0.5       0.6       0.7\n"
                                               "*PART\n"
                                               "*PART\n"
                                               "door\n"
                                               "         4         5         6\n"
                                               "*END\n");
    EXPECT_EQ(lines_with(out.deck, " Part definition: "), 3u);
    EXPECT_EQ(lines_with(out.deck, " Part definition:       0          0          0"), 1u);
    EXPECT_EQ(lines_with(out.log, "*PART_CONTACT . . . recognized keyword"), 2u);
    EXPECT_EQ(lines_with(out.log, "*PART . . . recognized keyword"), 1u);
}
}  // namespace
