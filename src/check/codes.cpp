#include <algorithm>

#include "check/finding.h"

namespace check
{
namespace
{
using deck::Severity;

constexpr Code table[] = {
    {"MD101", "a number does not reach its field's last column and reads as 0", Severity::error, true},
    {"MD102", "the line ends before the last column of a number's field: it reads as 0", Severity::error, true},
    {"MD103", "a card with commas", Severity::error, true},
    {"MD104", "a field refers to a parameter", Severity::error, true},
    {"MD105", "an exponent without E, or with D", Severity::error, true},
    {"MD106", "no number where a number is read", Severity::error, false},
    {"MD107", "a number across the border of two fields", Severity::error, true},
    {"MD108", "long or ten-column format, read in standard columns", Severity::error, true},
    {"MD109", "a tab in a data line", Severity::error, true},
    {"MD110", "a solid on two lines", Severity::error, true},
    {"MD111", "a keyword line with text behind the keyword, or cut at 49 characters", Severity::error, true},
    {"MD112", "a blank line becomes a card of zeros", Severity::note, true},
    {"MD113", "a carriage return, lower case, blanks behind a keyword, or an irregular end of the deck", Severity::note,
     true},
    {"MD114", "a number that does not survive its field's type or width", Severity::error, false},
    {"MD121", "an include file is not followed", Severity::error, true},
    {"MD122", "an include file cannot be read", Severity::error, false},
    {"MD123", "a parameter or expression without a value", Severity::error, false},
    {"MD124", "an include file with a transformation or offsets", Severity::error, true},
    {"MD201", "a keyword that morvex skips", Severity::warning, false},
    {"MD202", "a keyword that morvex does not know", Severity::warning, false},
    {"MD203", "a keyword is passed over because a setting is off", Severity::warning, false},
    {"MD204", "a keyword stands behind a line that ends its pass", Severity::error, true},
    {"MD205", "a further definition in a block of which only the first is converted", Severity::error, true},
    {"MD206", "a card or columns with values that morvex does not read", Severity::note, false},
    {"MD207", "a card is missing: the next keyword line is read as one", Severity::error, true},
    {"MD208", "an option whose cards are taken for something else", Severity::error, true},
    {"MD209", "a form that converts only with, or only without, a title", Severity::error, true},
    {"MD301", "a value is read and is not in the output", Severity::warning, false},
    {"MD302", "a value is replaced in the output", Severity::warning, false},
    {"MD303", "the main deck fixes a value otherwise", Severity::note, false},
    {"MD401", "a reference to something that is not defined", Severity::error, false},
    {"MD402", "something is defined twice", Severity::error, false},
    {"MD403", "something is defined and never used", Severity::note, false},
    {"MD404", "a reference to something that morvex skips", Severity::error, false},
};
}  // namespace

std::span<const Code> codes()
{
    return table;
}

const Code* find_code(std::string_view code)
{
    const auto* const found =
        std::find_if(std::begin(table), std::end(table), [=](const Code& row) { return row.code == code; });
    return found == std::end(table) ? nullptr : found;
}

Finding finding(std::string_view code, deck::Place place, std::string message)
{
    Finding made;
    made.place = std::move(place);
    made.code = code;
    made.message = std::move(message);
    if (const Code* const row = find_code(code); row != nullptr) {
        made.severity = row->severity;
        made.mended_by_prepare = row->mended_by_prepare;
    }
    return made;
}

Totals totals(const Result& result)
{
    Totals sums;
    for (const Finding& found : result.findings) switch (found.severity) {
        case Severity::error:
            sums.errors += 1 + found.others;
            break;
        case Severity::warning:
            sums.warnings += 1 + found.others;
            break;
        case Severity::note:
            sums.notes += 1 + found.others;
            break;
        }
    return sums;
}

void sort(Result& result)
{
    std::stable_sort(result.findings.begin(), result.findings.end(), [](const Finding& a, const Finding& b) {
        if (a.file_order != b.file_order) return a.file_order < b.file_order;
        if (a.place.line != b.place.line) return a.place.line < b.place.line;
        if (a.place.column != b.place.column) return a.place.column < b.place.column;
        return a.code < b.code;
    });
}
}  // namespace check
