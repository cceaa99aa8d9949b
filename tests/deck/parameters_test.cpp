#include "deck/parameters.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

using deck::Format;
using deck::Parameters;
using deck::Problem;

namespace
{
struct Deck {
    Parameters parameters;
    std::vector<Problem> problems;

    void block(std::string_view keyword, std::initializer_list<std::string_view> lines,
               Format format = Format::standard)
    {
        deck::ParameterBlock block(parameters, keyword, format, "f.k",
                                   [this](const Problem& problem) { problems.push_back(problem); });
        std::size_t number = 1;
        for (const std::string_view line : lines) block.take(line, ++number);
        block.finish();
    }

    // The value as text, or "!" and the reason.
    std::string operator()(std::string_view field) const
    {
        const deck::Evaluation evaluation = parameters.evaluate(field);
        return evaluation.value ? to_string(*evaluation.value) : "!" + evaluation.why_not;
    }
};

TEST(Parameters, StandInColumnsFourPairsToACard)
{
    Deck deck;
    deck.block("*PARAMETER", {"RVAL1      1.0       IVAL2      2         CVAL3      String    RVAL4      4.5-3",
                              "R T_end        5e-4"});
    EXPECT_EQ(deck("&val1"), "1");
    EXPECT_EQ(deck("   &VAL2  "), "2");
    EXPECT_EQ(deck("&val3"), "String");
    EXPECT_EQ(deck("&val4"), "0.0045");
    EXPECT_EQ(deck("&t_end"), "5e-04");
    EXPECT_EQ(deck("-&val1"), "-1");
    EXPECT_TRUE(deck.problems.empty());
}

TEST(Parameters, StandBetweenCommasOrInLongColumns)
{
    Deck deck;
    deck.block("*PARAMETER", {"rterm, 0.2, istaTES, 80 ", "cpaR1, foo"});
    deck.block("*PARAMETER", {"Rlength                            2.5"}, Format::long_fields);
    EXPECT_EQ(deck("&term"), "0.2");
    EXPECT_EQ(deck("&states"), "80");
    EXPECT_EQ(deck("&par1"), "foo");
    EXPECT_EQ(deck("&length"), "2.5");
}

TEST(Parameters, ExpressionsMayGoOverLines)
{
    Deck deck;
    deck.block("*PARAMETER", {"Rterm            0.2Istates           80"});
    deck.block("*PARAMETER_EXPRESSION",
               {"rplot     tErm/(States-30)", "R sum     1.0+", "          2.0", "rm, max(1,2)"});
    EXPECT_EQ(deck("&plot"), "0.004");
    EXPECT_EQ(deck("&sum"), "3");
    EXPECT_EQ(deck("&m"), "2");
    EXPECT_TRUE(deck.problems.empty());
}

TEST(Parameters, FieldsMayHoldExpressions)
{
    Deck deck;
    deck.block("*PARAMETER", {"Ra               2.0Ib                 3"});
    EXPECT_EQ(deck("<&a*b>"), "6");
    EXPECT_EQ(deck("&a*0.5+&b"), "4");
    EXPECT_EQ(deck("-&a"), "-2");
    EXPECT_EQ(deck("<x0><y0>"), "!not an expression");
    EXPECT_EQ(deck("<c>").substr(0, 1), "!");
}

TEST(Parameters, IntegersOfIntegersAreIntegers)
{
    Deck deck;
    deck.block("*PARAMETER", {"Ra               2.0Ib                 3"});
    using Type = deck::Value::Type;
    EXPECT_EQ(deck.parameters.evaluate("<b*1000>").value->type, Type::integer);
    EXPECT_EQ(deck.parameters.evaluate("<b/2>").value->type, Type::real);
    EXPECT_EQ(deck.parameters.evaluate("<a*1000>").value->type, Type::real);
    EXPECT_EQ(deck.parameters.evaluate("-&b").value->type, Type::integer);
}

TEST(Parameters, TextIsPutTogether)
{
    Deck deck;
    deck.block("*PARAMETER", {"Cdir           partsIn                 3"});
    EXPECT_EQ(deck("&dir/mesh_&n"), "parts/mesh_3");
    EXPECT_EQ(deck("-&dir").substr(0, 1), "!");
}

TEST(Parameters, MustBeDefinedBeforeTheyAreUsed)
{
    Deck deck;
    const auto evaluation = deck.parameters.evaluate("    &late");
    EXPECT_FALSE(evaluation.value);
    EXPECT_EQ(evaluation.column, 4u);
    deck.block("*PARAMETER_EXPRESSION", {"R half    late/2.0"});
    ASSERT_EQ(deck.problems.size(), 1u);
    EXPECT_EQ(deck.problems[0].code, "MD123");
    EXPECT_EQ(deck.problems[0].place.line, 2u);
    EXPECT_EQ(deck.problems[0].place.column, 11u);
    EXPECT_EQ(deck("&half"), "!parameter half is not defined");
}

TEST(Parameters, WhatDefinesNoneIsTold)
{
    Deck deck;
    deck.block("*PARAMETER",
               {"Xa               2.0", "R                2.0", "Ra               two", "R b-c            2.0"});
    ASSERT_EQ(deck.problems.size(), 4u);
    for (const Problem& problem : deck.problems) EXPECT_EQ(problem.code, "MD123");
    EXPECT_EQ(deck.problems[2].place.column, 18u);
}

TEST(Parameters, AnIntegerIsWhole)
{
    Deck deck;
    deck.block("*PARAMETER_EXPRESSION", {"I a       7/2", "I b       int(7/2)", "I c       0.1*30", "I d       6/2"});
    ASSERT_EQ(deck.problems.size(), 1u);
    EXPECT_EQ(deck.problems[0].place.line, 2u);
    EXPECT_EQ(deck("&b"), "3");
    EXPECT_EQ(deck("&c"), "3");
    EXPECT_EQ(deck("&d"), "3");
}

TEST(Parameters, OfTwoDefinitionsTheFirstHolds)
{
    Deck deck;
    deck.block("*PARAMETER", {"Ra               1.0"});
    deck.block("*PARAMETER", {"RA               2.0"});
    EXPECT_EQ(deck("&a"), "1");
    ASSERT_EQ(deck.problems.size(), 1u);
    EXPECT_EQ(deck.problems[0].code, "MD402");
    EXPECT_EQ(deck.problems[0].severity, deck::Severity::warning);
}

TEST(Parameters, DuplicationDecidesOtherwise)
{
    Deck deck;
    deck.block("*PARAMETER", {"Ra               1.0"});
    deck.block("*PARAMETER_DUPLICATION", {"         2"});
    deck.block("*PARAMETER", {"Ra               2.0"});
    EXPECT_EQ(deck("&a"), "2");
    deck.block("*PARAMETER_DUPLICATION", {"         3"});
    deck.block("*PARAMETER", {"Ra               3.0"});
    EXPECT_EQ(deck("&a"), "2");
    ASSERT_EQ(deck.problems.size(), 2u);
    EXPECT_EQ(deck.problems[0].severity, deck::Severity::warning);
    EXPECT_EQ(deck.problems[1].severity, deck::Severity::error);
}

TEST(Parameters, MutableOnesTakeTheLast)
{
    Deck deck;
    deck.block("*PARAMETER_MUTABLE", {"Ra               1.0"});
    deck.block("*PARAMETER", {"Ra               2.0"});
    EXPECT_EQ(deck("&a"), "2");
    EXPECT_EQ(deck.problems.size(), 1u);
}

TEST(Parameters, LocalOnesEndWithTheirFile)
{
    Deck deck;
    deck.parameters.begin_file();
    deck.block("*PARAMETER", {"Ra               1.0"});
    deck.parameters.begin_file();
    deck.block("*PARAMETER_LOCAL", {"Ra               2.0Rb               3.0"});
    EXPECT_EQ(deck("&a"), "2");
    deck.parameters.begin_file();
    EXPECT_EQ(deck("&b"), "3");  // a file in that file
    deck.block("*PARAMETER", {"Rc               4.0"});
    deck.parameters.end_file();
    deck.parameters.end_file();
    EXPECT_EQ(deck("&a"), "1");
    EXPECT_EQ(deck("&b").substr(0, 1), "!");
    EXPECT_EQ(deck("&c"), "4");
    EXPECT_TRUE(deck.problems.empty());
}
}  // namespace
