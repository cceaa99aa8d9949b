// The report on keywords of families that nobody knows.
#include <gtest/gtest.h>

#include <string>

#include "driver/driver.h"
#include "support/fresh_run.h"

namespace
{
using UnhandledReport = FreshRun;

std::string log_of(const std::string& keyword_line)
{
    return convert(unhandled_keywords, keyword_line + "\n*END\n").log;
}

std::string skipped_line(const std::string& keyword_line)
{
    return "\n" + keyword_line + " . . . skipped\n";
}
}  // namespace

TEST_F(UnhandledReport, KnownFamiliesAreQuiet)
{
    for (const char* keyword : {"*BOUNDARY",
                                "*CONTACT",
                                "*CONTROL",
                                "*DATABASE",
                                "*DEFINE_BO",
                                "*DEFINE_COORDINATE",
                                "*DEFINE_CURV",
                                "*ELEMENT_SHELL_BETA",
                                "*ELEMENT_SHELL_DOF",
                                "*ELEMENT_SHELL_MCID",
                                "*ELEMENT_SHELL_OFFSET",
                                "*ELEMENT_SHELL_THICKNESS",
                                "*ELEMENT_SHELL",
                                "*ELEMENT_SOLID_ORTHO",
                                "*ELEMENT_SOLID_DOF",
                                "*ELEMENT_SOLID_TET",
                                "*ELEMENT_SOLID",
                                "*ELEMENT_SPH",
                                "*EOS",
                                "*HOURGLASS",
                                "*INITIAL",
                                "*LOAD",
                                "*MAT",
                                "*NODE",
                                "*PART",
                                "*SECTION",
                                "*SET",
                                "*TITLE"}) {
        EXPECT_EQ(log_of(keyword), "") << keyword;
        EXPECT_EQ(log_of(std::string(keyword) + "X"), "") << keyword;
        EXPECT_EQ(log_of(std::string(keyword) + "_TITLE"), "") << keyword;
    }
}

TEST_F(UnhandledReport, KeywordOneCharacterOffAFamilyIsLogged)
{
    for (const char* keyword :
         {"*BOUNDARI",    "*CONTACK",       "*CONTROK",       "*DATABASS",    "*DEFINE_BX", "*DEFINE_COORDINATS",
          "*DEFINE_CURB", "*ELEMENT_SHELK", "*ELEMENT_SOLIT", "*ELEMENT_SPI", "*EOT",       "*HOURGLASZ",
          "*INITIAK",     "*LOAF",          "*MAX",           "*NODF",        "*PARS",      "*SECTIOM",
          "*SEU",         "*TITLF"})
        EXPECT_EQ(log_of(keyword), skipped_line(keyword)) << keyword;
}

TEST_F(UnhandledReport, KeywordOneCharacterShortOfAFamilyIsLogged)
{
    for (const char* keyword : {"*BOUNDAR",    "*CONTAC",       "*CONTRO",
                                "*DATABAS",    "*DEFINE_B",     "*DEFINE_COORDINAT",
                                "*DEFINE_CUR", "*ELEMENT_SHEL", "*ELEMENT_SOLI",
                                "*ELEMENT_SP", "*EO",           "*HOURGLAS",
                                "*INITIA",     "*LOA",          "*MA",
                                "*NOD",        "*PAR",          "*SECTIO",
                                "*SE",         "*TITL",         "*"})
        EXPECT_EQ(log_of(keyword), skipped_line(keyword)) << keyword;
}

TEST_F(UnhandledReport, BoxAndCurveAreComparedShorterThanTheirWords)
{
    EXPECT_EQ(log_of("*DEFINE_BOLT"), "");
    EXPECT_EQ(log_of("*DEFINE_CURVATURE"), "");
}

TEST_F(UnhandledReport, OtherElementKindsAreLogged)
{
    for (const char* keyword : {"*ELEMENT_BEAM", "*ELEMENT_DISCRETE", "*ELEMENT_MASS", "*ELEMENT_TSHELL", "*ELEMENT"})
        EXPECT_EQ(log_of(keyword), skipped_line(keyword)) << keyword;
}

TEST_F(UnhandledReport, UnknownFamiliesAreLogged)
{
    for (const char* keyword : {"*KEYWORD", "*DEFINE_TABLE", "*CONSTRAINED_RIGID_BODIES", "*PARAMETER", "*RIGIDWALL"})
        EXPECT_EQ(log_of(keyword), skipped_line(keyword)) << keyword;
}

TEST_F(UnhandledReport, CurveWithATitleAndNodeSetAreQuiet)
{
    EXPECT_EQ(log_of("*DEFINE_CURVE_TITLE"), "");
    EXPECT_EQ(log_of("*SET_NODE_LIST"), "");
}

TEST_F(UnhandledReport, NothingBehindTheEndIsLogged)
{
    EXPECT_EQ(convert(unhandled_keywords, "*AIRBAG\n*END\n*RIGIDWALL\n").log, skipped_line("*AIRBAG"));
    EXPECT_EQ(convert(unhandled_keywords, "*AIRBAG\n*ENDTIM\n*RIGIDWALL\n").log, skipped_line("*AIRBAG"))
        << "four characters are compared";
    EXPECT_EQ(convert(unhandled_keywords, "*EN\n*RIGIDWALL\n*END\n").log,
              skipped_line("*EN") + skipped_line("*RIGIDWALL"));
}

TEST_F(UnhandledReport, EachOccurrenceIsLoggedInUpperCaseInDeckOrder)
{
    EXPECT_EQ(convert(unhandled_keywords, "*rigidwall\n 1\n*NODE\n*Airbag_a\n*AIRBAG_A\n*END\n").log,
              skipped_line("*RIGIDWALL") + skipped_line("*AIRBAG_A") + skipped_line("*AIRBAG_A"));
}

TEST_F(UnhandledReport, OnlyStarsInTheFirstColumnBeginAKeyword)
{
    EXPECT_EQ(convert(unhandled_keywords, " *AIRBAG\n$*AIRBAG\n*END\n").log, "");
}

TEST_F(UnhandledReport, LongKeywordIsCutTo49Characters)
{
    const std::string keyword = "*" + std::string(48, 'K');
    EXPECT_EQ(log_of(keyword), skipped_line(keyword));
    EXPECT_EQ(log_of(keyword + "LMN"), skipped_line(keyword));
}

TEST_F(UnhandledReport, CarriageReturnStaysInTheLine)
{
    EXPECT_EQ(convert(unhandled_keywords, "*AIRBAG\r\n*NODE\r\n*END\r\n").log, skipped_line("*AIRBAG\r"));
}
