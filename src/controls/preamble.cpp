// The head of the main deck: file header and title.
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string_view>
#include <system_error>

#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
struct Date {
    int month, day, year;
};

// The Gregorian date of a day, counted from 1 January 1970. Eras of 400 years begin on 1 March, so that a leap day is
// the last of its year. False when the year has more than four digits, or is before those of std::tm.
bool set_date(Date& date, std::int64_t day)
{
    constexpr std::int64_t last_year = 9999;
    constexpr std::int64_t first_year = std::int64_t{std::numeric_limits<int>::min()} + 1900;
    constexpr std::int64_t days_before_1970 = 719'468;  // since 1 March of the year 0
    constexpr std::int64_t era_days = 146'097;
    const std::int64_t since = day + days_before_1970;
    const std::int64_t era = (since >= 0 ? since : since - (era_days - 1)) / era_days;
    const std::int64_t in_era = since - era * era_days;
    const std::int64_t year_of_era = (in_era - in_era / 1460 + in_era / 36'524 - in_era / 146'096) / 365;
    const std::int64_t in_year = in_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
    const std::int64_t month = (5 * in_year + 2) / 153;  // 0 is March
    const std::int64_t year = year_of_era + era * 400 + (month >= 10 ? 1 : 0);
    if (year > last_year || year < first_year) return false;
    date.month = static_cast<int>(month < 10 ? month + 3 : month - 9);
    date.day = static_cast<int>(in_year - (153 * month + 2) / 5 + 1);
    date.year = static_cast<int>(year);
    return true;
}

// The day that SOURCE_DATE_EPOCH names, in UTC: a run can then be repeated exactly; false when it holds no such number.
// Computed here, since the C libraries differ in what they refuse.
bool set_given_date(Date& date)
{
    constexpr std::int64_t day_seconds = 86'400;
    const char* const variable = std::getenv("SOURCE_DATE_EPOCH");
    if (variable == nullptr) return false;
    const std::string_view digits = variable;
    std::int64_t seconds = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), seconds);
    if (error != std::errc{} || end != digits.data() + digits.size()) return false;
    const std::int64_t day = seconds / day_seconds - (seconds % day_seconds < 0 ? 1 : 0);
    return set_date(date, day);
}

Date date_of_run()
{
    Date date{1, 0, 1900};  // when even the clock fails
    if (set_given_date(date)) return date;
    const std::time_t now = std::time(nullptr);
    if (const std::tm* const local = std::localtime(&now))
        date = {local->tm_mon + 1, local->tm_mday, local->tm_year + 1900};
    return date;
}
}  // namespace

void header()
{
    const Date date = date_of_run();
    text(inpfile, "!----------------------------------------------------------------------------\n"
                  "!  Kestrune Input Deck\n");
    print(inpfile, "!  Version %5.3f : %d/%d/%d\n", morvex_version, date.month, date.day, date.year);
    text(inpfile, "!\n"
                  "!  Notes:\n"
                  "!     : Use \"!\" in the first column to create a comment line\n"
                  "!     : \"Question\" inputs use the 0=No, 1=Yes notation\n"
                  "!     : Do not change the text to the left of \":\"\n"
                  "!\n"
                  "!----------------------------------------------------------------------------\n"
                  "\n"
                  "\n");
}

void problem_title()
{
    banner(inpfile, "Problem Title and Descriptors");
    text(inpfile, "!   Note: No - allowed in titles\n"
                  "\n");
    print(inpfile, " Title                       : %s\n", run_settings.title);
    text(inpfile, " Subtitle1                   : \n"
                  " Subtitle2                   : \n"
                  "\n"
                  "\n");
}
