// Numbers of cards: fields as values, and the arithmetic on them.
//
// The C library's atof defines every result. The quick way is taken only where it gives the same bits.
#pragma once

#include <cstdint>
#include <string_view>

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
