// Numbers as text: reading the fields of cards, and writing the rows of the bulk files.
//
// The C library's atof and printf define every result. The quick ways below are taken only where they give the same
// bits and bytes.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
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

// Each writes at `to` and returns the end of what it wrote. There must be room for `width` + 7 or 32 characters,
// whichever is more: what stands behind the end is written over, eight characters at a time.

// "%<width>li"
char* write_integer(char* to, std::int64_t value, int width);

// "%<width>.<digits>e" of a single-precision value; digits is 3, 8 or 13.
template <int digits>
char* write_real(char* to, float value, int width);

// Eight characters as one number, the first in its lowest byte, on every machine.
inline std::uint64_t eight_columns(const char* text)
{
    std::uint64_t columns = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&columns, text, sizeof columns);
    } else {
        for (int i = 7; i >= 0; --i) columns = columns << 8 | static_cast<unsigned char>(text[i]);
    }
    return columns;
}

// The other way round.
inline void put_eight_columns(char* to, std::uint64_t columns)
{
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(to, &columns, sizeof columns);
    } else {
        for (int i = 0; i < 8; ++i) to[i] = static_cast<char>(columns >> (8 * i) & 0xff);
    }
}

// True when the eight characters are just what "%8i" prints for some number that is not negative: blanks, then digits
// without a leading zero.
inline bool is_printed_integer(const char* field)
{
    constexpr std::uint64_t each = 0x0101010101010101;
    // All columns at once: a digit becomes 0x00 to 0x09, a blank 0x10; adding 6 carries what is beyond 9 into bit 4.
    const std::uint64_t columns = eight_columns(field) ^ (each * 0x30);
    const std::uint64_t kinds = (columns + each * 0x06) & (each * 0xf0);  // 0x00 digit, 0x10 blank (or : ; < = > ?)
    const std::uint64_t stray = ((columns | kinds) & (each * 0xe0)) | (columns & (kinds - (kinds >> 4)));
    const std::uint64_t digits = ~kinds & (each * 0x10);
    const std::uint64_t first = digits & (~digits + 1);  // bit 4 of the first digit's column
    const bool zero_leads = (columns & ((first >> 4) * 0x0f)) == 0 && first != std::uint64_t{0x10} << 56;
    return stray == 0 && kinds < first && !zero_leads;
}
