// Expressions over parameters.
//
// Operators + - * / ** and parentheses; functions abs, acos, aint, anint, asin, atan, atan2, cos, cosh, exp, float,
// int, log, log10, max, min, mod, nint, sign, sin, sinh, sqrt, tan, tanh; without regard to case; the constant pi.
// Angles are radians. Arithmetic is real throughout, so that 1/2 is 0.5 also of integers.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace deck
{

// The number of a name, lower case; nothing when it is undefined or is no number.
using NumberOf = std::function<std::optional<double>(std::string_view name)>;

struct ExpressionResult {
    std::optional<double> value;
    std::string why_not;
    std::size_t column = 0;  // of the trouble in the text, from 0
};

// "&" before a name may stand or not. Not computable is, with its reason, what is no expression, names something
// undefined, or has no finite value.
ExpressionResult compute(std::string_view expression, const NumberOf& number_of);

}  // namespace deck
