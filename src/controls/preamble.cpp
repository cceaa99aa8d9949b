// The head of the main deck: file header and title.
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string_view>
#include <system_error>

#include "controls/controls.h"
#include "reader/deck_lines.h"
#include "reader/run.h"

namespace
{
// The day that SOURCE_DATE_EPOCH names, in UTC: a run can then be repeated exactly; false when it holds no number, or a
// day whose year has more than four digits.
bool set_date(std::tm& date)
{
    constexpr int last_year = 9999 - 1900;  // as std::tm counts
    const char* const variable = std::getenv("SOURCE_DATE_EPOCH");
    if (variable == nullptr) return false;
    const std::string_view digits = variable;
    std::int64_t seconds = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), seconds);
    if (error != std::errc{} || end != digits.data() + digits.size()) return false;
    const auto time = static_cast<std::time_t>(seconds);
    const std::tm* const utc = std::gmtime(&time);
    if (utc == nullptr || utc->tm_year > last_year) return false;
    date = *utc;
    return true;
}

std::tm date_of_run()
{
    std::tm date{};
    if (set_date(date)) return date;
    const std::time_t now = std::time(nullptr);
    if (const std::tm* const local = std::localtime(&now)) date = *local;
    return date;
}
}  // namespace

void header()
{
    const std::tm date = date_of_run();
    text(inpfile, "!----------------------------------------------------------------------------\n"
                  "!  Kestrune Input Deck\n");
    print(inpfile, "!  Version %5.3f : %d/%d/%d\n", morvex_version, date.tm_mon + 1, date.tm_mday, date.tm_year + 1900);
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
