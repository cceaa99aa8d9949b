// Numbers as text, against the C library, which defines them.
#include "reader/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

#include "reader/format.h"
#include "reader/number_writers.h"
#include "support/random.h"

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace
{
// ---- reading -------------------------------------------------------------------------------------------------------

// The same bits, but for the payload of a NaN.
bool same_bits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

testing::AssertionResult reads_as_strtod(const std::string& field)
{
    const double value = field_value(field);
    char* end = nullptr;
    const double number = std::strtod(field.c_str(), &end);
    const double expected = end != field.c_str() ? number : 0.0;  // not -0, as some libraries have it
    if (same_bits(value, expected)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "'" << field << "' reads as " << value << ", strtod gives " << expected;
}

// ---- writing -------------------------------------------------------------------------------------------------------

// What the program makes of printf: that of the C library, but for what a library gets wrong.
[[gnu::format(printf, 3, 4)]] int print_to(char* to, std::size_t room, const char* format, ...)
{
    std::va_list values;
    va_start(values, format);
    const int length = format_values(to, room, format, values);
    va_end(values);
    return length;
}

template <int digits>
int formatted(char* to, std::size_t room, float value, int width)
{
    const auto number = static_cast<double>(value);
    if constexpr (digits == 13) return print_to(to, room, "%*.13e", width, number);
    if constexpr (digits == 8) return print_to(to, room, "%*.8e", width, number);
    if constexpr (digits == 3) return print_to(to, room, "%*.3e", width, number);
}

template <int digits>
testing::AssertionResult writes_as_printf(float value, int width)
{
    std::array<char, 64> expected{};
    const int length = formatted<digits>(expected.data(), expected.size(), value, width);
    std::array<char, 32> text{};  // no more room than there must be
    char* const end = write_real<digits>(text.data(), value, width);
    if (end - text.data() == length && std::memcmp(text.data(), expected.data(), static_cast<std::size_t>(length)) == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << std::hex << std::bit_cast<std::uint32_t>(value) << " is written as '"
                                       << std::string(text.data(), end) << "' with " << std::dec << digits
                                       << " digits, printf gives '" << expected.data() << "'";
}

// In all forms that the files have.
void check_real(float value)
{
    ASSERT_TRUE(writes_as_printf<13>(value, 20));
    ASSERT_TRUE(writes_as_printf<8>(value, 16));
    ASSERT_TRUE(writes_as_printf<3>(value, 10));
}

void check_bits(std::uint32_t bits)
{
    check_real(std::bit_cast<float>(bits));
}
}  // namespace

TEST(FieldValue, PlainForms)
{
    EXPECT_EQ(field_value("      12.5"), 12.5);
    EXPECT_EQ(field_value("       -12"), -12.0);
    EXPECT_EQ(field_value("    1.5e-3"), 0.0015);
    EXPECT_EQ(field_value("       .5"), 0.5);
    EXPECT_EQ(field_value("        5."), 5.0);
    EXPECT_EQ(field_value("12345678"), 12345678.0);
    EXPECT_EQ(field_value(""), 0.0);
    EXPECT_EQ(field_value("          "), 0.0);
}

TEST(FieldValue, NumberEndsAtTheFirstCharacterThatDoesNotBelongToIt)
{
    EXPECT_EQ(field_value("     1.5D3"), 1.5);  // a "D" is no exponent
    EXPECT_EQ(field_value("     1.5e "), 1.5);
    EXPECT_EQ(field_value("    1.5e+x"), 1.5);
    EXPECT_EQ(field_value("   1.5.5"), 1.5);
    EXPECT_EQ(field_value("    1 2 3"), 1.0);
    EXPECT_EQ(field_value("    1,5"), 1.0);
    EXPECT_EQ(field_value("     12&"), 12.0);
    EXPECT_EQ(field_value("1-2"), 1.0);
}

TEST(FieldValue, FormsThatOnlyTheCLibraryKnows)
{
    EXPECT_EQ(field_value("      0x10"), 16.0);
    EXPECT_EQ(field_value("   0x1.8p1"), 3.0);
    EXPECT_EQ(field_value("        +5"), 5.0);
    EXPECT_EQ(field_value("\t\v\f\r\n 5"), 5.0);
    EXPECT_EQ(field_value("  infinity"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(field_value("      -INF"), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(field_value("       nan")));
    EXPECT_FALSE(std::signbit(field_value("       nan")));
    EXPECT_TRUE(std::signbit(field_value("      -nan")));
    EXPECT_TRUE(std::isnan(field_value(" nan(1234)")));
}

TEST(FieldValue, TextIsZero)
{
    for (const char* field :
         {"text", "      e5", "       .", "       -", "      +-5", "- 5", "  -.e1", "in", "na", "x10"})
        EXPECT_TRUE(same_bits(field_value(field), 0.0)) << field;
}

TEST(FieldValue, DirectedFormsAreAtofToTheBit)
{
    std::istringstream words(
        "0 -0 -0.0 -0e5 0e99999 0e-99999 -0.e+99999999999999999 00000000000000000000000000000000000000012 "
        // around the largest integers of a double and of 64 bits
        "9007199254740992 9007199254740993 9007199254740994 -9007199254740993 9999999999999999 9223372036854775807 "
        "9223372036854775808 18446744073709551615 18446744073709551616 99999999999999999999 "
        "1000000000000000000000000000000000000000 0.000000000000000000000000000001 0.00000000000000000 "
        // around the powers of ten that a double holds exactly
        "1e22 1e23 1e-22 1e-23 9007199254740991e22 9007199254740993e22 9007199254740991e-22 123456789012345678e22 "
        // overflow, underflow and subnormals
        "1e308 1.7976931348623157e308 1.7976931348623159e308 1e309 -1e309 1e99999 1e-99999 1e2147483648 "
        "1e-2147483649 1e99999999999999999999 1e00000000000000000001 4.9e-324 2.4e-324 2.5e-324 1e-320 "
        "2.2250738585072014e-308 2.2250738585072011e-308 3.4028235e38 1.17549435e-38 16777217 "
        "0.1 0.2 0.3 1.1 +.5 -.5 .5 5. 1E5 1e05 1e+05 "
        // not quite numbers
        "1e 1e+ 1e- 1e5e5 1e5.5 +-5 --5 -+5 ..5 . -. +. e .e5 5.e5 5.e 5$ $5 *5 1_000 1'000 1,5 \xd9\xa1 "
        "0x 0xg 0x.8 0x1p 0x1p-1074 1x 12X5 .5x 0.x "
        "inf INFINITY infinit -infinity nan NaN(x) nan( -nan +nan");
    for (std::string field; words >> field;) EXPECT_TRUE(reads_as_strtod(field));
    for (const char* field : {"1e 5", " \t5", "\t 5", "5\t", "-\t5", "\r5", "5\r", "5\r7", "\v5", "\f5"})
        EXPECT_TRUE(reads_as_strtod(field));
}

TEST(FieldValue, NulCharacterEndsTheField)
{
    EXPECT_EQ(field_value("12\0003"s), 12.0);
    EXPECT_EQ(field_value("\00012"s), 0.0);
    EXPECT_EQ(field_value("1e\0005"s), 1.0);
    EXPECT_EQ(field_value("+5\0007"s), 5.0);
}

TEST(FieldValue, NothingBehindTheFieldIsRead)
{
    const std::string card = "1234567890123456789012345678901234567890";
    EXPECT_EQ(field_value(std::string_view(card).substr(0, 3)), 123.0);
    EXPECT_EQ(field_value(std::string_view("1e5").substr(0, 2)), 1.0);
    EXPECT_EQ(field_value(std::string_view("0x10").substr(0, 1)), 0.0);
    EXPECT_EQ(field_value(std::string_view("+123").substr(0, 2)), 1.0);
    EXPECT_EQ(field_value(card), 1.234567890123456789e39);
}

TEST(FieldValue, RandomTextIsAtofToTheBit)
{
    Random random(11);
    constexpr std::array alphabets = {
        "0123456789",       "0123456789.",  "0123456789.-+eE", "  0123456789.", "00000012345.e-",
        "0123456789.eE+- ", "01.eE+-xX \t", "infNaty INFA",    "nan()0x1pP-.",  " \t\v\f\r\n+-.0159eEdDx$*,",
    };
    for (int i = 0; i < 900000; ++i) {
        const std::string_view alphabet = random.pick(alphabets);
        ASSERT_TRUE(reads_as_strtod(random.text(1 + random.below(20), alphabet)));
    }
}

TEST(FieldValue, RandomNumbersAsDecksWriteThemAreAtofToTheBit)
{
    Random random(12);
    for (int i = 0; i < 700000; ++i) {
        std::string field = random.text(random.below(6), " ");
        if (random.one_in(3)) field += random.one_in(4) ? '+' : '-';
        field += random.text(random.below(9), "0123456789");
        if (!random.one_in(3)) field += '.' + random.text(random.below(12), "0123456789");
        if (random.one_in(2)) {
            field += random.one_in(2) ? 'e' : 'E';
            if (!random.one_in(3)) field += random.one_in(2) ? '+' : '-';
            field += random.text(random.below(4), "0123456789");
        }
        if (random.one_in(10)) field += random.pick("xXdD \t\r.-+e");
        ASSERT_TRUE(reads_as_strtod(field));
    }
}

TEST(FieldValue, RandomDoublesPrintedWithAllKindsOfPrecisionAreAtofToTheBit)
{
    Random random(13);
    std::array<char, 400> text{};
    for (int i = 0; i < 700000; ++i) {
        const std::uint64_t high = random.bits();
        const auto value = std::bit_cast<double>(high << 32 | random.bits());
        const auto single = static_cast<double>(std::bit_cast<float>(random.bits()));
        const auto precision = static_cast<int>(random.below(18));
        switch (random.below(4)) {
        case 0:
            std::snprintf(text.data(), text.size(), "%20.*e", precision, value);
            break;
        case 1:
            std::snprintf(text.data(), text.size(), "%.*g", precision, single);
            break;
        case 2:
            std::snprintf(text.data(), text.size(), "%16.*f", precision % 8,
                          static_cast<double>(static_cast<std::int32_t>(random.bits())) / 1024.0);
            break;
        case 3:
            std::snprintf(text.data(), text.size(), "%.*e", precision, static_cast<double>(high) * 0.001);
            break;
        }
        ASSERT_TRUE(reads_as_strtod(std::string(text.data()).substr(0, 40)));
    }
}

namespace
{
// A number that fills the last columns of sixteen, as pre-processors write it.
std::string coordinate(Random& random, std::size_t digits, std::size_t decimals, bool negative, bool exponent)
{
    std::string number = negative ? "-" : "";
    number += random.text(digits, "0123456789");
    number += '.';
    number += random.text(decimals, "0123456789");
    if (exponent) {
        number += random.pick("eE"sv);
        number += random.pick("+-"sv);
        number += random.text(2, random.one_in(2) ? "01"sv : "0123456789"sv);
    }
    std::string field(number.size() < 16 ? 16 - number.size() : 0, ' ');
    field += number;
    field.resize(16);
    return field;
}
}  // namespace

TEST(FieldValue, CoordinatesOfAllShapesAreAtofToTheBit)
{
    Random random(21);
    for (std::size_t digits = 0; digits <= 15; ++digits) {
        for (std::size_t decimals = 0; decimals <= 15; ++decimals) {
            for (const bool negative : {false, true}) {
                for (const bool exponent : {false, true}) {
                    for (int i = 0; i < 400; ++i)
                        ASSERT_TRUE(reads_as_strtod(coordinate(random, digits, decimals, negative, exponent)));
                }
            }
        }
    }
}

TEST(FieldValue, EveryByteAtEveryPlaceOfACoordinateIsAtofToTheBit)
{
    Random random(22);
    for (std::size_t digits = 0; digits <= 9; ++digits) {
        for (std::size_t decimals = 0; decimals <= 9; ++decimals) {
            const std::string field = coordinate(random, digits, decimals, random.one_in(2), random.one_in(2));
            for (std::size_t place = 0; place < field.size(); ++place) {
                for (int c = 0; c < 256; ++c) {
                    std::string changed = field;
                    changed[place] = static_cast<char>(c);
                    ASSERT_TRUE(reads_as_strtod(changed));
                }
            }
        }
    }
}

TEST(FieldValue, CoordinatesWithAFewOtherCharactersAreAtofToTheBit)
{
    Random random(23);
    constexpr std::array others = {" .-+eE0159xX\t"sv, "\xca\xcf\xfa\xff\x10\x1d/:;?"sv, "nif"sv};
    for (int i = 0; i < 600000; ++i) {
        std::string field = coordinate(random, random.below(9), random.below(10), random.one_in(2), random.one_in(3));
        for (std::size_t changes = 1 + random.below(3); changes > 0; --changes)
            field[random.below(field.size())] = random.pick(random.pick(others));
        ASSERT_TRUE(reads_as_strtod(field));
    }
}

// ---- whole numbers -------------------------------------------------------------------------------------------------

TEST(ToInt, TruncatesTowardZeroUpToItsLimits)
{
    EXPECT_EQ(to_int(2.9), 2);
    EXPECT_EQ(to_int(-2.9), -2);
    EXPECT_EQ(to_int(-0.0), 0);
    EXPECT_EQ(to_int(0.999), 0);
    EXPECT_EQ(to_int(-0.999), 0);
    EXPECT_EQ(to_int(2147483647.0), 2147483647);
    EXPECT_EQ(to_int(2147483647.999), 2147483647);
    EXPECT_EQ(to_int(-2147483648.0), INT32_MIN);
    EXPECT_EQ(to_int(-2147483647.999), -2147483647);
    EXPECT_EQ(to_int(-2147483648.999), INT32_MIN);
}

TEST(ToInt, WhatDoesNotFitIsTheSmallestInteger)
{
    for (const double value : {2147483648.0, -2147483649.0, 1e10, -1e10, 1e300, -1e300, HUGE_VAL, -HUGE_VAL})
        EXPECT_EQ(to_int(value), INT32_MIN) << value;
    EXPECT_EQ(to_int(std::numeric_limits<double>::quiet_NaN()), INT32_MIN);
    EXPECT_EQ(to_int(-std::numeric_limits<double>::quiet_NaN()), INT32_MIN);
}

TEST(ToInt64, TruncatesTowardZeroUpToItsLimits)
{
    EXPECT_EQ(to_int64(2.9), 2);
    EXPECT_EQ(to_int64(-2.9), -2);
    EXPECT_EQ(to_int64(99999999.0), 99999999);
    EXPECT_EQ(to_int64(2147483648.0), 2147483648);
    EXPECT_EQ(to_int64(9007199254740993.0), 9007199254740992);
    EXPECT_EQ(to_int64(9223372036854774784.0), 9223372036854774784);
    EXPECT_EQ(to_int64(-9223372036854775808.0), INT64_MIN);
    EXPECT_EQ(to_int64(-9223372036854774784.0), -9223372036854774784);
}

TEST(ToInt64, WhatDoesNotFitIsTheSmallestInteger)
{
    for (const double value : {9223372036854775808.0, -9223372036854777856.0, 1e19, -1e19, HUGE_VAL, -HUGE_VAL})
        EXPECT_EQ(to_int64(value), INT64_MIN) << value;
    EXPECT_EQ(to_int64(std::numeric_limits<double>::quiet_NaN()), INT64_MIN);
}

TEST(WriteInteger, IsPrintf)
{
    const auto check = [](std::int64_t value, int width) {
        std::array<char, 64> expected{};
        std::snprintf(expected.data(), expected.size(), "%*lli", width, static_cast<long long>(value));
        std::array<char, 32> text{};
        char* const end = write_integer(text.data(), value, width);
        ASSERT_EQ(std::string(text.data(), end), expected.data()) << width;
    };
    Random random(14);
    for (const int width : {1, 5, 8, 10, 20, 30}) {
        for (std::int64_t value = -1100; value <= 1100; ++value) check(value, width);
        for (std::int64_t power = 1; power <= 1000000000000000000; power *= 10) {
            for (const std::int64_t near : {power - 1, power, power + 1, 9 * power}) {
                check(near, width);
                check(-near, width);
            }
            if (power == 1000000000000000000) break;
        }
        for (const std::int64_t limit : {INT64_MAX, INT64_MIN, INT64_MIN + 1, std::int64_t{INT32_MIN},
                                         std::int64_t{INT32_MAX}, std::int64_t{INT32_MAX} + 1})
            check(limit, width);
        for (int i = 0; i < 20000; ++i) {
            const std::uint64_t high = random.bits();
            check(static_cast<std::int64_t>((high << 32 | random.bits()) >> random.below(64)), width);
        }
    }
}

// ---- reals ---------------------------------------------------------------------------------------------------------

TEST(WriteReal, LinesOfTheFiles)
{
    const auto written = []<int digits>(std::integral_constant<int, digits>, float value, int width) {
        std::array<char, 64> text{};
        return std::string(text.data(), write_real<digits>(text.data(), value, width));
    };
    constexpr std::integral_constant<int, 13> coordinate;
    constexpr std::integral_constant<int, 8> mass;
    constexpr std::integral_constant<int, 3> thickness;
    EXPECT_EQ(written(coordinate, 0.1f, 20), " 1.0000000149012e-01");
    EXPECT_EQ(written(coordinate, -0.1f, 20), "-1.0000000149012e-01");
    EXPECT_EQ(written(coordinate, 0.0f, 20), " 0.0000000000000e+00");
    EXPECT_EQ(written(coordinate, -0.0f, 20), "-0.0000000000000e+00");
    EXPECT_EQ(written(mass, 1.5f, 16), "  1.50000000e+00");
    EXPECT_EQ(written(thickness, 0.25f, 10), " 2.500e-01");
    EXPECT_EQ(written(thickness, 9.9996f, 10), " 1.000e+01");
    EXPECT_EQ(written(thickness, std::numeric_limits<float>::infinity(), 10), "       inf");
    EXPECT_EQ(written(thickness, -std::numeric_limits<float>::infinity(), 10), "      -inf");
    EXPECT_EQ(written(thickness, std::numeric_limits<float>::quiet_NaN(), 10), "       nan");
    EXPECT_EQ(written(thickness, -std::numeric_limits<float>::quiet_NaN(), 10), "      -nan");
}

TEST(WriteReal, BordersOfEveryBinaryExponentArePrintf)
{
    for (std::uint32_t sign : {0U, 0x80000000U}) {
        for (std::uint32_t exponent = 0; exponent < 256; ++exponent) {
            const std::uint32_t power = sign | exponent << 23;
            for (std::uint32_t above = 0; above < 40; ++above) check_bits(power + above);
            for (std::uint32_t below = 0; below < 40; ++below) check_bits(power + 0x7fffff - below);
            for (std::uint32_t bit = 0; bit < 23; ++bit) {
                check_bits(power | 1U << bit);
                check_bits(power | (0x7fffffU >> bit));
                check_bits(power | (0x7fffffU ^ 1U << bit));
            }
        }
    }
}

TEST(WriteReal, PowersOfTenAndTheirNeighboursArePrintf)
{
    for (int power = -46; power <= 38; ++power) {
        for (const char* digits : {"1", "9.9995", "9.9996", "9.99999999", "9.999", "5", "2.5", "1.0005", "1.5"}) {
            const float value = std::strtof((digits + "e"s + std::to_string(power)).c_str(), nullptr);
            const auto bits = std::bit_cast<std::uint32_t>(value);
            for (std::uint32_t distance = 0; distance < 20; ++distance) {
                check_bits(bits + distance);
                check_bits((bits - distance) | 0x80000000U);
            }
        }
    }
}

TEST(WriteReal, TiesAreRoundedAsPrintfDoes)
{
    // A value with so many decimals in base two ends in a 5 at that decimal: some stand just behind the last digit.
    Random random(15);
    for (int decimals = 0; decimals <= 40; ++decimals) {
        for (int i = 0; i < 2000; ++i) {
            const std::uint32_t odd = (random.bits() >> (8 + random.below(23))) | 1U;
            check_real(std::ldexp(static_cast<float>(odd), -decimals));
        }
    }
    for (int i = 0; i < 40000; ++i) check_real(static_cast<float>(i) * 0.5f);
    for (int i = 0; i < 20000; ++i) check_real(static_cast<float>(i) * 0.0625f);
    for (int i = 1; i < 20000; ++i) check_real(static_cast<float>(i) * 50.0f);
}

TEST(WriteReal, SubnormalsArePrintf)
{
    Random random(16);
    for (int i = 0; i < 50000; ++i) check_bits(random.bits() >> (9 + random.below(22)));
}

TEST(WriteReal, InfinitiesAndNansArePrintf)
{
    Random random(17);
    for (int i = 0; i < 2000; ++i) check_bits((random.bits() & 0x807fffffU) | 0x7f800000U);
    check_bits(0x7f800000U);
    check_bits(0xff800000U);
}

TEST(WriteReal, OtherWidthsArePrintf)
{
    for (const float value : {0.0f, -0.0f, 1.5f, -1.5f, 1e-30f, -1e30f, HUGE_VALF, -HUGE_VALF}) {
        for (int width = 1; width <= 32; ++width) {
            ASSERT_TRUE(writes_as_printf<13>(value, width));
            ASSERT_TRUE(writes_as_printf<8>(value, width));
            ASSERT_TRUE(writes_as_printf<3>(value, width));
        }
    }
}

TEST(WriteReal, RandomBitPatternsArePrintf)
{
    Random random(18);
    for (int i = 0; i < 2000000; ++i) check_bits(random.bits());
}

TEST(WriteReal, RandomValuesOfCommonSizeArePrintf)
{
    Random random(19);
    for (int i = 0; i < 1000000; ++i) {
        const auto exponent = static_cast<std::uint32_t>(127 - 40 + random.below(88));
        check_bits((random.bits() & 0x807fffffU) | exponent << 23);
    }
}

// ---- arithmetic ----------------------------------------------------------------------------------------------------

namespace
{
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan_read = std::numeric_limits<float>::quiet_NaN();

bool is_negative_nan(float value)
{
    return std::isnan(value) && std::signbit(value);
}
bool is_positive_nan(float value)
{
    return std::isnan(value) && !std::signbit(value);
}
}  // namespace

TEST(Arithmetic, InvalidOperationsGiveTheNegativeNan)
{
    for (const float zero : {0.0f, -0.0f}) {
        EXPECT_TRUE(is_negative_nan(quotient(zero, 0.0f)));
        EXPECT_TRUE(is_negative_nan(quotient(zero, -0.0f)));
        EXPECT_TRUE(is_negative_nan(product(zero, infinity)));
        EXPECT_TRUE(is_negative_nan(product(-infinity, zero)));
    }
    EXPECT_TRUE(is_negative_nan(quotient(infinity, infinity)));
    EXPECT_TRUE(is_negative_nan(quotient(infinity, -infinity)));
    EXPECT_TRUE(is_negative_nan(sum(infinity, -infinity)));
    EXPECT_TRUE(is_negative_nan(sum(-infinity, infinity)));
}

TEST(Arithmetic, NanThatWasReadKeepsItsSign)
{
    for (const float other : {0.0f, 1.0f, infinity}) {
        EXPECT_TRUE(is_positive_nan(quotient(nan_read, other)));
        EXPECT_TRUE(is_positive_nan(quotient(other, nan_read)));
        EXPECT_TRUE(is_positive_nan(sum(nan_read, other)));
        EXPECT_TRUE(is_positive_nan(sum(other, nan_read)));
        EXPECT_TRUE(is_positive_nan(product(nan_read, other)));
        EXPECT_TRUE(is_positive_nan(product(other, nan_read)));
        EXPECT_TRUE(is_negative_nan(quotient(-nan_read, other)));
        EXPECT_TRUE(is_negative_nan(sum(other, -nan_read)));
        EXPECT_TRUE(is_negative_nan(product(-nan_read, other)));
    }
}

TEST(SinglePrecision, OfTwoOperandsThatAreNoNumbersTheFirstPassesThrough)
{
    EXPECT_TRUE(is_negative_nan(sum(-nan_read, nan_read)));
    EXPECT_TRUE(is_positive_nan(sum(nan_read, -nan_read)));
    EXPECT_TRUE(is_negative_nan(product(-nan_read, nan_read)));
    EXPECT_TRUE(is_positive_nan(product(nan_read, -nan_read)));
    EXPECT_TRUE(is_negative_nan(quotient(-nan_read, nan_read)));
    EXPECT_TRUE(is_positive_nan(quotient(nan_read, -nan_read)));
}

TEST(Arithmetic, EverythingElseIsPlainSinglePrecision)
{
    EXPECT_EQ(quotient(1.0f, 3.0f), 1.0f / 3.0f);
    EXPECT_EQ(quotient(-6.0f, 2.0f), -3.0f);
    EXPECT_EQ(quotient(1.0f, 0.0f), infinity);
    EXPECT_EQ(quotient(1.0f, -0.0f), -infinity);
    EXPECT_EQ(quotient(1.0f, infinity), 0.0f);
    EXPECT_EQ(sum(16777216.0f, 1.0f), 16777216.0f);
    EXPECT_EQ(sum(infinity, infinity), infinity);
    EXPECT_EQ(sum(infinity, 1.0f), infinity);
    EXPECT_EQ(product(0.1f, 0.1f), 0.1f * 0.1f);
    EXPECT_EQ(product(1e30f, 1e30f), infinity);
    EXPECT_EQ(product(infinity, -2.0f), -infinity);
    EXPECT_TRUE(std::signbit(product(-0.0f, 5.0f)));
}
