// Number readers and writers against the C library, bit by bit and byte by byte.
//
// The first byte is a width. The others are fields of that width and of the usual ones, as they stand and as characters
// of numbers; the bits of floats; and the bytes of integers.
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
#include <memory>
#include <string>
#include <string_view>

#include "bulk/eight_columns.h"
#include "fuzz.h"
#include "reader/number_writers.h"
#include "reader/numbers.h"

namespace
{
constexpr std::size_t widest = 40;

bool same_bits(double a, double b)
{
    return std::isnan(a) ? std::isnan(b) && std::signbit(a) == std::signbit(b)
                         : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// What a writer writes, into just the room that it asks for.
template <class Writer>
std::string written(Writer&& write, int width)
{
    const auto room = std::make_unique<char[]>(static_cast<std::size_t>(std::max(width + 7, 32)));
    return {room.get(), write(room.get())};
}

template <int digits>
void write_one_real(float value, int width)
{
    char expected[64];
    std::snprintf(expected, sizeof expected, "%*.*e", width, digits, static_cast<double>(value));
    expect(written([=](char* to) { return write_real<digits>(to, value, width); }, width) == expected,
           "write_real differs from printf");
}

void write_one_integer(std::int64_t value, int width)
{
    char expected[64];
    std::snprintf(expected, sizeof expected, "%*" PRId64, width, value);
    expect(written([=](char* to) { return write_integer(to, value, width); }, width) == expected,
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
    const std::string exact(field);
    expect(is_printed_integer(exact.data()) == (plain && field == printed), "is_printed_integer is wrong");
}

void read_all(std::string_view text, std::size_t width)
{
    for (const std::size_t columns : {width, std::size_t{8}, std::size_t{10}, std::size_t{16}})
        for (std::size_t at = 0; at < text.size(); at += columns) read_one(text.substr(at, columns));
    for (std::size_t at = 0; at + 8 <= text.size(); ++at) look_at_eight(text.substr(at, 8));
}

// Each byte as a character of which numbers are made.
std::string as_numbers(std::string_view bytes)
{
    constexpr std::string_view characters = "    0123456789012345678900.-+eE";
    std::string text(bytes);
    for (char& c : text) c = characters[static_cast<unsigned char>(c) % characters.size()];
    return text;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    const std::size_t width = data[0] % widest + 1;
    const auto columns = static_cast<int>(width);
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    read_all(text, width);
    read_all(as_numbers(text), width);
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
