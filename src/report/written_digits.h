// What a number loses when it is written with a fixed number of digits.
#pragma once

namespace report
{

// Half a unit of the last digit of the value as "%.<digits>e" writes it, and what single precision and reading it back
// may add to that; 0 of 0, and of what is no number.
double half_of_last_digit(double value, int digits);

// True when the value, read back from "%.<digits>e", can be what that writes of a single-precision number. With more
// than eight digits only one number can have written it: a false last digit shows.
bool is_written_single(double value, int digits);

}  // namespace report
