#include "deck/field_number.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

using deck::FieldNumber;
using deck::shortest_real;
using deck::standard_number;
using Form = deck::FieldNumber::Form;

namespace
{
TEST(StandardNumber, ReadsNumbersWhereverTheyStand)
{
    EXPECT_EQ(standard_number("  12  ").form, Form::integer);
    EXPECT_EQ(standard_number("  12  ").value, 12);
    EXPECT_EQ(standard_number("-7").value, -7);
    EXPECT_EQ(standard_number("+.5").value, 0.5);
    EXPECT_EQ(standard_number("5.").form, Form::real);
    EXPECT_EQ(standard_number("1e3").form, Form::real);
    EXPECT_EQ(standard_number("1.5E-3").value, 1.5e-3);
}

TEST(StandardNumber, ReadsExponentsOfFortran)
{
    for (const char* text : {"1.5-3", "1.5D-3", "1.5d-03", "1.5Q-3", "15-4"}) {
        EXPECT_EQ(standard_number(text).form, Form::fortran) << text;
        EXPECT_EQ(standard_number(text).value, 1.5e-3) << text;
    }
    EXPECT_EQ(standard_number("8.90000-3").value, 8.9e-3);
    EXPECT_EQ(standard_number("1.+20").value, 1e20);
}

TEST(StandardNumber, TakesBlanksForEmpty)
{
    EXPECT_EQ(standard_number("      ").form, Form::empty);
    EXPECT_EQ(standard_number("").form, Form::empty);
}

TEST(StandardNumber, RefusesWhatIsNoNumber)
{
    for (const char* text :
         {"1 5", "abc", "-", ".", "1.5E", "1.5E+", "1.2.3", "0x10", "inf", "nan", "1.5X3", "&a", "1-"})
        EXPECT_EQ(standard_number(text).form, Form::none) << text;
}

TEST(StrictNumber, IsEmptyUnlessTheLastColumnIsFilled)
{
    EXPECT_EQ(deck::strict_number("0.5     ", 8), 0);
    EXPECT_EQ(deck::strict_number("     0.5", 8), 0.5);
    EXPECT_EQ(deck::strict_number("   0.5", 8), 0);
    EXPECT_EQ(deck::strict_number("   1.5-3", 8), 1.5);
    EXPECT_TRUE(deck::strictly_empty("0.5     ", 8));
    EXPECT_TRUE(deck::strictly_empty("   0.5", 8));
    EXPECT_FALSE(deck::strictly_empty("        ", 8));
    EXPECT_FALSE(deck::strictly_empty("     0.5", 8));
}

TEST(ShortestReal, DropsWhatTheNumberDoesWithout)
{
    EXPECT_EQ(shortest_real(0.5, 10), ".5");
    EXPECT_EQ(shortest_real(-0.25, 10), "-.25");
    EXPECT_EQ(shortest_real(5.0, 10), "5.");
    EXPECT_EQ(shortest_real(1234.5, 10), "1234.5");
    EXPECT_EQ(shortest_real(1e6, 10), "1E6");
    EXPECT_EQ(shortest_real(1.5e-7, 10), "15E-8");
    EXPECT_EQ(shortest_real(1.0 / 3.0, 10), ".33333334");
}

TEST(ShortestReal, FitsOrIsNothing)
{
    EXPECT_EQ(shortest_real(1.0 / 3.0, 9), ".33333334");
    EXPECT_EQ(shortest_real(1.0 / 3.0, 8), std::nullopt);
    EXPECT_EQ(shortest_real(12, 2), "12");  // no room for the point
    EXPECT_EQ(shortest_real(1e50, 20), std::nullopt);
    EXPECT_EQ(shortest_real(std::numeric_limits<double>::quiet_NaN(), 20), std::nullopt);
}

TEST(ShortestReal, KeepsTheSignOfZero)
{
    EXPECT_EQ(shortest_real(0.0, 10), "0.0");
    EXPECT_EQ(shortest_real(0.0, 1), "0");
    EXPECT_EQ(shortest_real(-0.0, 10), "-0.0");
    EXPECT_EQ(shortest_real(-0.0, 1), std::nullopt);
    EXPECT_EQ(shortest_real(1e-60, 10), "0.0");  // it is 0 in single precision
}

TEST(ShortestReal, IsReadAsTheSameSinglePrecisionNumber)
{
    std::mt19937 random(20260);
    constexpr std::size_t columns = 16;
    for (int i = 0; i < 200000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(value)) continue;
        const auto text = shortest_real(static_cast<double>(value), columns);
        ASSERT_TRUE(text);
        ASSERT_LE(text->size(), columns);
        const std::string field = std::string(columns - text->size(), ' ') + *text;
        const auto read = static_cast<float>(deck::strict_number(field, columns));
        ASSERT_EQ(std::bit_cast<std::uint32_t>(read), std::bit_cast<std::uint32_t>(value)) << *text;
        ASSERT_NE(standard_number(field).form, Form::none) << *text;
        ASSERT_EQ(static_cast<float>(standard_number(field).value), value) << *text;
    }
}

TEST(ShortestInteger, FitsOrIsNothing)
{
    EXPECT_EQ(deck::shortest_integer(-12345, 6), "-12345");
    EXPECT_EQ(deck::shortest_integer(123456789, 8), std::nullopt);
}

TEST(WithExponentLetter, LeavesAllElseAsItStands)
{
    EXPECT_EQ(deck::with_exponent_letter(" 1.50-3 "), "1.50E-3");
    EXPECT_EQ(deck::with_exponent_letter("1.5d+03"), "1.5E+03");
    EXPECT_EQ(deck::with_exponent_letter("1.5E-3"), std::nullopt);
    EXPECT_EQ(deck::with_exponent_letter("abc"), std::nullopt);
}

TEST(Whole, IsAnIntegerOf64Bits)
{
    EXPECT_EQ(deck::whole(-3.0), -3);
    EXPECT_EQ(deck::whole(0.5), std::nullopt);
    EXPECT_EQ(deck::whole(1e30), std::nullopt);
    EXPECT_EQ(deck::whole(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}
}  // namespace
