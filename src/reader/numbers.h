// Numbers as text: reading the fields of cards, and writing the rows of the bulk files.
//
// The C library's atof and printf define every result. The quick ways below are taken only where they give the same
// bits and bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// ---- reading -------------------------------------------------------------------------------------------------------

// The value of a field's characters as atof gives it: leading white space skipped, decimal and exponent forms,
// hexadecimal, "inf" and "nan"; the number ends at the first character that does not belong to it; 0 for other text.
double field_value(std::string_view field);

// Truncation toward zero to 32 bits; -2147483648 when the value does not fit or is no number.
int to_int(double value);

// Truncation toward zero to 64 bits; -9223372036854775808 when the value does not fit or is no number.
std::int64_t to_int64(double value);

// Single-precision arithmetic whose invalid operations (0/0, inf-inf, 0*inf) give the negative NaN of x86-64, which
// prints as "-nan", on every machine.
float quotient(float dividend, float divisor);
float sum(float a, float b);
float product(float a, float b);

// ---- writing -------------------------------------------------------------------------------------------------------

// Each writes at `to` and returns the end of what it wrote. There must be room for `width` or 32 characters, whichever
// is more.

// "%<width>li"
char* write_integer(char* to, std::int64_t value, int width);

// "%<width>.<digits>e" of a single-precision value; digits is 3, 8 or 13.
template <int digits>
char* write_real(char* to, float value, int width);

// True when the eight characters are just what "%8i" prints for some number: blanks, then digits without a leading
// zero.
bool is_printed_integer(const char* field);
