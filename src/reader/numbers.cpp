#include "reader/numbers.h"

#include <algorithm>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <system_error>

// Arithmetic in more than the types' own precision would round twice.
static_assert(FLT_EVAL_METHOD == 0, "compile for SSE2 arithmetic, not for the x87's: -msse2 -mfpmath=sse");

namespace
{
// ---- reading -------------------------------------------------------------------------------------------------------

// Powers of ten that a double holds exactly.
constexpr double exact_powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr double signs[] = {1.0, -1.0};  // a factor, since signs of coordinates are hard to foretell for a branch
constexpr int largest_exact_power = static_cast<int>(std::size(exact_powers)) - 1;
constexpr std::uint64_t largest_exact_integer = std::uint64_t{1} << 53;

constexpr bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

// Appends the digits from `at` on to the number; returns where they end.
inline const char* read_digits(const char* at, const char* end, std::uint64_t& number)
{
    std::uint64_t value = number;
    for (; at < end; ++at) {
        const unsigned digit = static_cast<unsigned char>(*at) - unsigned{'0'};
        if (digit > 9) break;
        value = value * 10 + digit;
    }
    number = value;
    return at;
}

// The value by the C library, for every form that the quick way leaves. Out of line, like the next: the quick way would
// pay for the registers that they need.
[[gnu::noinline]] double value_by_strtod(std::string_view field)
{
    char terminated[48];
    const std::size_t length = field.copy(terminated, sizeof terminated - 1);
    terminated[length] = '\0';
    char* end = nullptr;
    const double value = std::strtod(terminated, &end);
    return end == terminated ? 0.0 : value;  // some libraries make -0 of "-" without a number
}

// The value of a decimal number, correctly rounded, with its field.
[[gnu::noinline]] double value_by_from_chars(std::string_view number, std::string_view field)
{
    double value = 0.0;
    const auto end = std::from_chars(number.data(), number.data() + number.size(), value);
    return end.ec == std::errc{} ? value : value_by_strtod(field);
}

float negative_nan()
{
    return -std::numeric_limits<float>::quiet_NaN();
}

// The result of an operation as x86-64 gives it: the first operand that is no number, or the NaN that the operation
// made, in its form there.
float as_on_x86(float result, float a, float b)
{
    if (std::isnan(a)) return a;
    if (std::isnan(b)) return b;
    return std::isnan(result) ? negative_nan() : result;
}
}  // namespace

double field_value(std::string_view field)
{
    const char* at = field.data();
    const char* const end = at + field.size();
    while (at < end && *at == ' ') ++at;
    const char* const number = at;
    const bool negative = at < end && *at == '-';
    at += negative ? 1 : 0;

    // The digits as one integer, with the place of the point.
    std::uint64_t digits = 0;
    const char* const first_digit = at;
    at = read_digits(at, end, digits);
    std::ptrdiff_t count = at - first_digit;
    int power = 0;
    if (at < end && *at == '.') {
        const char* const fraction = ++at;
        at = read_digits(at, end, digits);
        count += at - fraction;
        power = -static_cast<int>(at - fraction);
    }
    const bool hexadecimal = at < end && (*at == 'x' || *at == 'X');
    if (count == 0 || count > 19 || hexadecimal) return value_by_strtod(field);

    if (at < end && (*at == 'e' || *at == 'E')) {
        const char* exponent = at + 1;
        const bool down = exponent < end && *exponent == '-';
        if (exponent < end && (*exponent == '-' || *exponent == '+')) ++exponent;
        if (exponent < end && is_digit(*exponent)) {
            int value = 0;
            for (; exponent < end && is_digit(*exponent); ++exponent)
                value = std::min(value * 10 + (*exponent - '0'), 100000);
            power += down ? -value : value;
            at = exponent;
        }
    }
    if (digits <= largest_exact_integer && power >= -largest_exact_power && power <= largest_exact_power) {
        // Both operands are exact, so the one rounding is the right one. Whole numbers are divided by 1, so that one
        // branch serves nearly all.
        const auto integer = static_cast<double>(digits);
        const double value = power <= 0 ? integer / exact_powers[-power] : integer * exact_powers[power];
        return value * signs[negative ? 1 : 0];
    }
    return value_by_from_chars({number, at}, field);
}

int to_int(double value)
{
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : std::numeric_limits<int>::min();
}

std::int64_t to_int64(double value)
{
    return value >= -9223372036854775808.0 && value < 9223372036854775808.0 ? static_cast<std::int64_t>(value)
                                                                            : std::numeric_limits<std::int64_t>::min();
}

float quotient(float dividend, float divisor)
{
    return as_on_x86(dividend / divisor, dividend, divisor);
}

float sum(float a, float b)
{
    return as_on_x86(a + b, a, b);
}

float product(float a, float b)
{
    return as_on_x86(a * b, a, b);
}
