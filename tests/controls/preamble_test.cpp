// File header and title of the main deck.
#include <cstdlib>
#include <ctime>

#include "support/control_lines.h"
#include "support/environment.h"

namespace
{
class Header : public FreshRun
{
protected:
    Header() { set_variable("SOURCE_DATE_EPOCH", nullptr); }
    ~Header() override
    {
        set_variable("SOURCE_DATE_EPOCH", nullptr);
        set_variable("TZ", nullptr);
        take_time_zone();
    }

    static std::string date_line() { return line_with(convert(header, "").deck, "!  Version "); }

    static std::string line_of_today()
    {
        const std::time_t now = std::time(nullptr);
        const std::tm date = *std::localtime(&now);
        return line("!  Version 2.601 : %d/%d/%d", date.tm_mon + 1, date.tm_mday, date.tm_year + 1900);
    }

    // The header's line is that of the moment before or after.
    static void expect_today()
    {
        const std::string before = line_of_today();
        const std::string written = date_line();
        EXPECT_TRUE(written == before || written == line_of_today()) << written;
    }
};
using ProblemTitle = FreshRun;
}  // namespace

TEST_F(Header, OnAGivenDay)
{
    set_variable("SOURCE_DATE_EPOCH", "1709596800");  // 5 March 2024, 0:00 UTC
    EXPECT_EQ(convert(header, "").deck,
              "!----------------------------------------------------------------------------\n"
              "!  Kestrune Input Deck\n"
              "!  Version 2.601 : 3/5/2024\n"
              "!\n"
              "!  Notes:\n"
              "!     : Use \"!\" in the first column to create a comment line\n"
              "!     : \"Question\" inputs use the 0=No, 1=Yes notation\n"
              "!     : Do not change the text to the left of \":\"\n"
              "!\n"
              "!----------------------------------------------------------------------------\n"
              "\n"
              "\n");
}

TEST_F(Header, ItsRuleIsSeventySixHyphensLong)
{
    const std::string deck = convert(header, "").deck;
    EXPECT_EQ(lines_equal(deck, "!" + std::string(76, '-')), 2U);
}

TEST_F(Header, AGivenDayIsThatOfUtcWhateverTheTimeZone)
{
    for (const char* zone : {"ABC-14", "ABC12"}) {
        set_variable("TZ", zone);
        take_time_zone();
        set_variable("SOURCE_DATE_EPOCH", "1709596800");  // 5 March 2024, 0:00 UTC
        EXPECT_EQ(date_line(), "!  Version 2.601 : 3/5/2024");
        set_variable("SOURCE_DATE_EPOCH", "1709683199");  // 23:59:59 on the same day
        EXPECT_EQ(date_line(), "!  Version 2.601 : 3/5/2024");
        set_variable("SOURCE_DATE_EPOCH", "1709683200");
        EXPECT_EQ(date_line(), "!  Version 2.601 : 3/6/2024");
    }
}

TEST_F(Header, TwoDigitMonthsAndDays)
{
    set_variable("SOURCE_DATE_EPOCH", "1735603200");  // 31 December 2024, 0:00 UTC
    EXPECT_EQ(date_line(), "!  Version 2.601 : 12/31/2024");
    set_variable("SOURCE_DATE_EPOCH", "0");
    EXPECT_EQ(date_line(), "!  Version 2.601 : 1/1/1970");
}

TEST_F(Header, LeapDaysAndDaysBefore1970AndAfter2038)
{
    const std::pair<const char*, const char*> days[] = {{"951782400", "2/29/2000"},  {"4107542399", "2/28/2100"},
                                                        {"4107542400", "3/1/2100"},  {"-1", "12/31/1969"},
                                                        {"-86400", "12/31/1969"},    {"-86401", "12/30/1969"},
                                                        {"-62135596800", "1/1/1"},   {"-62135596801", "12/31/0"},
                                                        {"2147483648", "1/19/2038"}, {"253370764800", "1/1/9999"}};
    for (const auto& [seconds, date] : days) {
        set_variable("SOURCE_DATE_EPOCH", seconds);
        EXPECT_EQ(date_line(), "!  Version 2.601 : " + std::string(date)) << seconds;
    }
}

TEST_F(Header, WithoutAGivenDayItIsTodayInLocalTime)
{
    for (const char* zone : {"ABC-14", "ABC12", "UTC0"}) {
        set_variable("TZ", zone);
        take_time_zone();
        expect_today();
    }
}

TEST_F(Header, WhatIsNoNumberGivesToday)
{
    for (const char* text :
         {"", "today", "17096400x", " 1709596800", "1e9", "99999999999999999999999", "9223372036854775807"}) {
        set_variable("SOURCE_DATE_EPOCH", text);
        expect_today();
    }
}

TEST_F(Header, ADayBehindTheYear9999GivesToday)
{
    set_variable("SOURCE_DATE_EPOCH", "253402300799");  // 31 December 9999, 23:59:59 UTC
    EXPECT_EQ(date_line(), "!  Version 2.601 : 12/31/9999");
    // the second after it, and the last second of the last year that std::tm can hold, beyond int when written out
    for (const char* seconds : {"253402300800", "67768036191676799"}) {
        set_variable("SOURCE_DATE_EPOCH", seconds);
        expect_today();
    }
}

TEST_F(ProblemTitle, StandsBehindItsLabel)
{
    convert_block(titlecard, "*TITLE\n Bar impact\n*END\n");
    EXPECT_EQ(convert(problem_title, "").deck, "!------------------------------------------------\n"
                                               "! Problem Title and Descriptors\n"
                                               "!------------------------------------------------\n"
                                               "!   Note: No - allowed in titles\n"
                                               "\n"
                                               " Title                       :  Bar impact\n"
                                               " Subtitle1                   : \n"
                                               " Subtitle2                   : \n"
                                               "\n"
                                               "\n");
}

TEST_F(ProblemTitle, WithoutATitleItIsOneBlank)
{
    EXPECT_EQ(lines_equal(convert(problem_title, "").deck, " Title                       :  "), 1U);
}

TEST_F(ProblemTitle, A45CharacterTitleLeavesAnEmptyLineBehindIt)
{
    convert_block(titlecard, "*TITLE\n" + std::string(45, 't') + "\n*END\n");
    EXPECT_NE(convert(problem_title, "")
                  .deck.find(" Title                       : " + std::string(45, 't') + "\n\n Subtitle1"),
              std::string::npos);
}

TEST_F(ProblemTitle, PercentSignsAreNoFormat)
{
    convert_block(titlecard, "*TITLE\n50%s and 100%n\n*END\n");
    EXPECT_EQ(lines_equal(convert(problem_title, "").deck, " Title                       : 50%s and 100%n"), 1U);
}
