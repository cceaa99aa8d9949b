// *CONTROL_SPH, and the search for parts that are made of particles.
#include "support/control_lines.h"

using ControlSph = FreshRun;

TEST_F(ControlSph, StoresItsFiveValuesAndLogsTheRest)
{
    const Written written =
        convert_block(csph, "*CONTROL_SPH\n$ card 1\n" + card({"2", "3", "0.5", "4", "150", "6", "0.25", "500.0"}) +
                                card({"9"}) + "*END\n");
    EXPECT_EQ(run_settings.sph_boxid, 3);
    EXPECT_EQ(run_settings.sph_dt, 0.5f);
    EXPECT_EQ(run_settings.sph_memory, 150);
    EXPECT_EQ(run_settings.sph_start, 0.25f);
    EXPECT_EQ(run_settings.sph_maxv, 500.0f);
    EXPECT_EQ(written.log, "\n*CONTROL_SPH . . . recognized keyword\n"
                           "ignore optional card 2\n"
                           "unused variables:\n"
                           "      ncbs:         2\n"
                           "      idim:         4\n"
                           "      form:         6\n");
    EXPECT_EQ(written.terminal, "");
}

TEST_F(ControlSph, BlankFieldsReplaceTheDefaults)
{
    convert_block(csph, "*CONTROL_SPH\n" + card({"1"}) + "*END\n");
    EXPECT_EQ(run_settings.sph_dt, 0.0f);
    EXPECT_EQ(run_settings.sph_memory, 0);
}

TEST_F(ControlSph, ItsPassReadsNothingElse)
{
    EXPECT_EQ(first_log_line(sph_keywords, "*CONTROL_SPH"), "*CONTROL_SPH . . . recognized keyword");
    EXPECT_EQ(first_log_line(sph_keywords, "*CONTROL_SPH_2"), "*CONTROL_SPH_2 . . . recognized keyword");
    for (const std::string keyword : {"*CONTROL_SPG", "*CONTROL_ENERGY", "*SECTION_SPH", "*PART", "*DATABASE"})
        EXPECT_EQ(first_log_line(sph_keywords, keyword), "") << keyword;
}

namespace
{
class SphPart : public FreshRun
{
protected:
    SphPart() { run_settings.sph_memory = 150; }

    static std::string lines_for(const std::string& deck)
    {
        const Written written = convert(sph_part_keywords, deck + "*END\n");
        EXPECT_EQ(written.log, "");
        EXPECT_EQ(written.terminal, "");
        return written.deck;
    }
    static std::string part(const std::string& keyword, const char* pid, const char* secid)
    {
        return keyword + "\nheading\n" + card({pid, secid, "1"});
    }
};
const std::string particle_section = "*SECTION_SPH\n" + card({"2", "1.2"});
const std::string part_7 = " Smoothing length                     :     7  1.5  150   !--- pid; factor; neighbors\n";
const std::string part_8 = " Smoothing length                     :     8  1.5  150   !--- pid; factor; neighbors\n";
}  // namespace

TEST_F(SphPart, OnlyPartsOfASphSectionHaveALine)
{
    EXPECT_EQ(lines_for("*SECTION_SOLID\n" + card({"1", "1"}) + particle_section + part("*PART", "7", "2") +
                        part("*PART", "8", "1")),
              part_7);
}

TEST_F(SphPart, TheSectionMayStandBeforeOrBehindItsPart)
{
    EXPECT_EQ(lines_for(particle_section + part("*PART", "7", "2")), part_7);
    EXPECT_EQ(lines_for(part("*PART", "7", "2") + particle_section), part_7);
}

TEST_F(SphPart, LinesFollowTheOrderOfTheDeck)
{
    EXPECT_EQ(lines_for(part("*PART", "8", "3") + particle_section + part("*PART", "7", "2") + "*SECTION_SPH\n" +
                        card({"3"})),
              part_8 + part_7);
}

TEST_F(SphPart, CommentsAreSkipped)
{
    EXPECT_EQ(
        lines_for("*PART\n$ heading\nheading\n$ card\n" + card({"7", "2"}) + "*SECTION_SPH\n$ card\n" + card({"2"})),
        part_7);
}

TEST_F(SphPart, ATitledSectionHasAHeading)
{
    EXPECT_EQ(lines_for(part("*PART", "7", "2") + "*SECTION_SPH_TITLE\n$ heading\nwater\n$ card\n" + card({"2"})),
              part_7);
    EXPECT_EQ(lines_for(part("*PART", "7", "2") + "*SECTION_SPH\nwater\n" + card({"2"})), "");
}

TEST_F(SphPart, OtherVariantsOfTheSectionCount)
{
    EXPECT_EQ(lines_for(part("*PART", "7", "2") + "*SECTION_SPH_ELLIPSE\n" + card({"2"})), part_7);
    EXPECT_EQ(lines_for(part("*PART", "7", "2") + "*SECTION_SPG\n" + card({"2"})), "");
}

TEST_F(SphPart, OnlyTheFirstCardOfASectionCounts)
{
    EXPECT_EQ(lines_for(part("*PART", "7", "2") + "*SECTION_SPH\n" + card({"3"}) + card({"2"})), "");
}

TEST_F(SphPart, OnlyTheFirstPartOfABlockCounts)
{
    EXPECT_EQ(lines_for(part("*PART", "7", "2") + "second\n" + card({"8", "2"}) + particle_section), part_7);
}

TEST_F(SphPart, SectionsAreComparedAsText)
{
    EXPECT_EQ(lines_for("*PART\nheading\n" + card({"7", "02"}) + particle_section), "");
    EXPECT_EQ(lines_for("*PART\nheading\n" + card({"7", "sec-a"}) + "*SECTION_SPH\n" + card({"sec-a"})), part_7);
}

TEST_F(SphPart, BlankSectionsAreEqual)
{
    EXPECT_EQ(lines_for("*PART\nheading\n" + card({"7"}) + "*SECTION_SPH\n" + card({""})), part_7);
}

TEST_F(SphPart, ASectionBehindTheEndIsNotFound)
{
    EXPECT_EQ(lines_for(part("*PART", "7", "2") + "*END\n" + particle_section), "");
}

TEST_F(SphPart, SomeVariantsAreNotExamined)
{
    for (const std::string keyword : {"*PART_ADAPTIVE", "*PART_COMPOSITE", "*PART_MODES", "*PART_SENSOR", "*PART_MOVE",
                                      "*PART_ADAPTIVE_FAILURE", "*PART_COMPOSITE_LONG", "*PAR", "*SECTION_SOLID"})
        EXPECT_EQ(lines_for(part(keyword, "7", "2") + particle_section), "") << keyword;
}

TEST_F(SphPart, AllOthersAreReadAsPlainParts)
{
    for (const std::string keyword : {"*PART", "*PART_CONTACT", "*PART_INERTIA", "*PARTS", "*PART_ADAPTIVF",
                                      "*PART_COMPOSITF", "*PART_MODET", "*PART_SENSOS", "*PART_MOVF"})
        EXPECT_EQ(lines_for(part(keyword, "7", "2") + particle_section), part_7) << keyword;
}

TEST_F(SphPart, TheSearchComesBackToItsPlaceInASmallWindow)
{
    const std::string filler = "*MAT_ELASTIC\n" + card({"1", "7.85", "2.1e11", "0.3"});
    std::string deck;
    for (int i = 0; i < 20; ++i) deck += filler;
    deck += part("*PART", "7", "2") + part("*PART", "9", "1") + part("*PART", "8", "2") + filler + particle_section;
    const std::size_t usual = stream_window;
    stream_window = InputStream::smallest_window;
    const std::string lines = lines_for(deck);
    stream_window = usual;
    EXPECT_EQ(lines, part_7 + part_8);
}

TEST_F(SphPart, AnEmptyBlockTakesTheNextLinesForHeadingAndCard)
{
    EXPECT_EQ(lines_for("*PART\n" + part("*PART", "7", "2") + particle_section), "");
    EXPECT_EQ(lines_for("*PART\n" + particle_section + part("*PART", "7", "1.2")), "");
}
