#include "deck/expression.h"

#include <cmath>
#include <map>
#include <numbers>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace
{
std::optional<double> known(std::string_view name)
{
    static const std::map<std::string, double, std::less<>> values = {{"a", 3}, {"e", 7}, {"d1", 2}, {"x_2", 5}};
    const auto found = values.find(name);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

double value_of(std::string_view expression)
{
    const deck::ExpressionResult result = deck::compute(expression, known);
    EXPECT_TRUE(result.value) << expression << ": " << result.why_not;
    return result.value.value_or(std::nan(""));
}

TEST(Expression, KnowsTheOperators)
{
    EXPECT_EQ(value_of("1+2*3-4/8"), 6.5);
    EXPECT_EQ(value_of("(1+2)*3"), 9);
    EXPECT_EQ(value_of("2**3**2"), 512);
    EXPECT_EQ(value_of("-2**2"), -4);
    EXPECT_EQ(value_of("7/2"), 3.5);
}

TEST(Expression, KnowsTheFunctions)
{
    EXPECT_EQ(value_of("SQRT(16)"), 4);
    EXPECT_EQ(value_of("max(1,a,2)"), 3);
    EXPECT_EQ(value_of("min(5, 2)"), 2);
    EXPECT_EQ(value_of("mod(7,4)"), 3);
    EXPECT_EQ(value_of("int(-2.7)"), -2);
    EXPECT_EQ(value_of("nint(2.5)"), 3);
    EXPECT_EQ(value_of("abs(-a)"), 3);
    EXPECT_EQ(value_of("sign(2,-1)"), -2);
    EXPECT_EQ(value_of("float(3)/2"), 1.5);
    EXPECT_DOUBLE_EQ(value_of("log(exp(2.0))"), 2);
    EXPECT_DOUBLE_EQ(value_of("log10(1000.)"), 3);
    EXPECT_DOUBLE_EQ(value_of("4*atan(1.)"), std::numbers::pi);
    EXPECT_DOUBLE_EQ(value_of("atan2(1,1)*4"), std::numbers::pi);
    EXPECT_DOUBLE_EQ(value_of("cos(pi)"), -1);
}

TEST(Expression, NamesMayHaveAnAmpersand)
{
    EXPECT_EQ(value_of("&A*0.5+&x_2"), 6.5);
    EXPECT_EQ(value_of("a*x_2"), 15);
}

TEST(Expression, LettersOfExponentsAreNoNames)
{
    EXPECT_EQ(value_of("1.5e3"), 1500);
    EXPECT_EQ(value_of("1.5D-3*1000"), 1.5);
    EXPECT_EQ(value_of("2*e+1"), 15);
    EXPECT_EQ(value_of("2*d1"), 4);
}

TEST(Expression, TellsWhatIsUndefined)
{
    const auto result = deck::compute("a+&nothing", known);
    EXPECT_FALSE(result.value);
    EXPECT_EQ(result.column, 3u);
    EXPECT_NE(result.why_not.find("nothing"), std::string::npos);
}

TEST(Expression, HasAFiniteValueOrNone)
{
    for (const char* text : {"1/0", "1.0/(a-3)", "sqrt(-1)", "log(0)", "1e300*1e300"})
        EXPECT_FALSE(deck::compute(text, known).value) << text;
}

TEST(Expression, RefusesWhatIsNone)
{
    for (const char* text :
         {"", " ", "1+", "a=2", "1<2", "(1", "1)", "a b", "1,2", "sin", "\"x\"", "a?1:2", "{", "&&a", "!a"})
        EXPECT_FALSE(deck::compute(text, known).value) << text;
}

TEST(Expression, ManyBracketsAreNoHarm)
{
    constexpr std::size_t depth = 20000;
    const auto result = deck::compute(std::string(depth, '(') + "1" + std::string(depth, ')'), known);
    if (result.value) {
        EXPECT_EQ(*result.value, 1);
    }
}
}  // namespace
