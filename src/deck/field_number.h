// What a field's text means as a number, and what the converter reads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace deck
{

// ---- reading -------------------------------------------------------------------------------------------------------

// A text as the format of decks means it, wherever it stands in its field.
struct FieldNumber {
    enum class Form {
        empty,    // blanks only: the value is 0, or the default
        integer,  // digits with or without a sign
        real,     // with a point, an exponent with E, or both
        fortran,  // a real whose exponent has no letter ("1.5-3") or a D or Q ("1.5D-3")
        none      // no number
    };
    Form form = Form::none;
    double value = 0;
};

// Blanks at the ends do not count; blanks inside make it no number.
FieldNumber standard_number(std::string_view text);

// What the converter reads in a field of that width whose text is `text` (shorter when the line ends in it): 0 when the
// line ends before the last column, or the last column is blank; else what atof makes of it.
double strict_number(std::string_view text, std::size_t width);

// True when the converter reads the field as empty although it holds other characters than blanks.
bool strictly_empty(std::string_view text, std::size_t width);

// ---- writing -------------------------------------------------------------------------------------------------------

// The shortest text of at most `columns` characters that the converter reads as the same single-precision number as
// `value`; nothing when there is none, or the value is beyond single precision. It has a point or an exponent with E
// unless it has no room.
std::optional<std::string> shortest_real(double value, std::size_t columns);

// The digits, when they fit.
std::optional<std::string> shortest_integer(std::int64_t value, std::size_t columns);

// A Fortran form rewritten with E, all else as it stands: "1.5-3" becomes "1.5E-3". Nothing when it is no such form.
std::optional<std::string> with_exponent_letter(std::string_view text);

// The integer that a number is, when it is whole and fits 64 bits.
std::optional<std::int64_t> whole(double value);

// The sum, or the nearest number that 64 bits hold.
std::int64_t saturated_sum(std::int64_t a, std::int64_t b);

}  // namespace deck
