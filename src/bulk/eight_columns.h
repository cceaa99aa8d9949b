// Eight columns of a card at once, in a 64-bit word: what the room of the large files needs to copy integers.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

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
