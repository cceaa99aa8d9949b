// Number readers and writers against the C library, bit by bit and byte by byte.
//
// The first byte is a width. The others are fields of that width, the bits of floats, and the bytes of integers.
#include <algorithm>
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "fuzz.h"
#include "reader/numbers.h"

namespace
{
constexpr std::size_t widest = 40;

bool same_bits(double a, double b)
{
    return std::isnan(a) ? std::isnan(b) && std::signbit(a) == std::signbit(b)
                         : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

template <int digits>
void write_one_real(float value, int width)
{
    char expected[400];
    const int length = std::snprintf(expected, sizeof expected, "%*.*e", width, digits, static_cast<double>(value));
    char written[64];
    const char* const end = write_real<digits>(written, value, width);
    expect(std::string_view(written, static_cast<std::size_t>(end - written)) ==
               std::string_view(expected, static_cast<std::size_t>(length)),
           "write_real differs from printf");
}

void write_one_integer(std::int64_t value, int width)
{
    char expected[64];
    const int length = std::snprintf(expected, sizeof expected, "%*" PRId64, width, value);
    char written[64];
    const char* const end = write_integer(written, value, width);
    expect(std::string_view(written, static_cast<std::size_t>(end - written)) ==
               std::string_view(expected, static_cast<std::size_t>(length)),
           "write_integer differs from printf");
}

// Truncation, asked of the wider type; everything that does not fit is the smallest integer.
void truncate(double value)
{
    const double whole = std::trunc(value);
    const bool fits32 = whole >= -2147483648.0 && whole <= 2147483647.0;
    expect(to_int(value) == (fits32 ? static_cast<std::int32_t>(whole) : std::numeric_limits<std::int32_t>::min()),
           "to_int does not truncate");
    const bool fits64 = whole >= -0x1p63 && whole < 0x1p63;
    expect(to_int64(value) == (fits64 ? static_cast<std::int64_t>(whole) : std::numeric_limits<std::int64_t>::min()),
           "to_int64 does not truncate");
}

void read_one(std::string_view field)
{
    // The field in memory of exactly its size, so that reading beyond it shows.
    const std::string exact(field);
    const double value = field_value(exact);
    expect(same_bits(value, std::atof(exact.c_str())), "field_value differs from atof");
    truncate(value);
}

void look_at_eight(std::string_view field)
{
    const std::size_t digits = std::min(field.find_first_not_of(' '), field.size());
    const bool plain = digits < 8 && std::all_of(field.begin() + static_cast<std::ptrdiff_t>(digits), field.end(),
                                                 [](char c) { return c >= '0' && c <= '9'; });
    char printed[32] = "";
    if (plain) std::snprintf(printed, sizeof printed, "%8li", std::atol(std::string(field).c_str()));
    expect(is_printed_integer(field.data()) == (plain && field == printed), "is_printed_integer is wrong");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    const std::size_t width = data[0] % widest + 1;
    const auto columns = static_cast<int>(width);
    std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    for (std::size_t at = 0; at < text.size(); at += width) read_one(text.substr(at, width));
    for (std::size_t at = 0; at + 8 <= text.size(); ++at) look_at_eight(text.substr(at, 8));
    for (std::size_t at = 0; at + sizeof(float) <= text.size(); at += sizeof(float)) {
        float value = 0.0f;
        std::memcpy(&value, text.data() + at, sizeof value);
        write_one_real<3>(value, columns);
        write_one_real<8>(value, columns);
        write_one_real<13>(value, columns);
    }
    for (std::size_t at = 0; at + sizeof(std::int64_t) <= text.size(); at += sizeof(std::int64_t)) {
        std::int64_t value = 0;
        std::memcpy(&value, text.data() + at, sizeof value);
        write_one_integer(value, columns);
        write_one_integer(value >> (value & 63), columns);
        truncate(std::bit_cast<double>(value));
    }
    return 0;
}
