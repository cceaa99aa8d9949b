#include "reader/numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <system_error>

namespace
{
// ---- reading -------------------------------------------------------------------------------------------------------

// Powers of ten that a double holds exactly.
constexpr double exact_powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int largest_exact_power = static_cast<int>(std::size(exact_powers)) - 1;
constexpr std::uint64_t largest_exact_integer = std::uint64_t{1} << 53;

constexpr bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

// The value by the C library, for every form that the quick way leaves.
double value_by_atof(std::string_view field)
{
    char terminated[48];
    const std::size_t length = field.copy(terminated, sizeof terminated - 1);
    terminated[length] = '\0';
    return std::atof(terminated);
}

float negative_nan()
{
    return -std::numeric_limits<float>::quiet_NaN();
}

// The result of an operation, with the NaN that it made itself, if it made one, in its x86-64 form.
float as_on_x86(float result, float a, float b)
{
    return std::isnan(result) && !std::isnan(a) && !std::isnan(b) ? negative_nan() : result;
}
}  // namespace

double field_value(std::string_view field)
{
    const char* at = field.data();
    const char* const end = at + field.size();
    while (at < end && *at == ' ') ++at;
    const char* const number = at;
    const bool negative = at < end && *at == '-';
    if (negative) ++at;

    // The digits as one integer, with the place of the point.
    std::uint64_t digits = 0;
    const char* const first_digit = at;
    while (at < end && is_digit(*at)) digits = digits * 10 + static_cast<std::uint64_t>(*at++ - '0');
    std::ptrdiff_t count = at - first_digit;
    int power = 0;
    if (at < end && *at == '.') {
        const char* const fraction = ++at;
        while (at < end && is_digit(*at)) digits = digits * 10 + static_cast<std::uint64_t>(*at++ - '0');
        count += at - fraction;
        power = -static_cast<int>(at - fraction);
    }
    const bool hexadecimal = at < end && (*at == 'x' || *at == 'X');
    if (count == 0 || count > 19 || hexadecimal) return value_by_atof(field);

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
        // Both operands are exact, so the one rounding is the right one.
        const auto integer = static_cast<double>(digits);
        const double value = power < 0 ? integer / exact_powers[-power] : integer * exact_powers[power];
        return negative ? -value : value;
    }
    double value = 0.0;
    if (std::from_chars(number, at, value).ec != std::errc{}) return value_by_atof(field);
    return value;
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

// ---- writing -------------------------------------------------------------------------------------------------------

namespace
{
constexpr std::size_t widest_number = 32;

// "00" to "99", two characters each.
constexpr auto two_digits = [] {
    std::array<char, 200> table{};
    for (std::size_t i = 0; i < 100; ++i) {
        table[2 * i] = static_cast<char>('0' + i / 10);
        table[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return table;
}();

void put_two(char* to, std::uint64_t value)
{
    std::memcpy(to, two_digits.data() + 2 * value, 2);
}

// Writes the text right-aligned in the width, or whole when it is longer.
char* put_padded(char* to, const char* text, std::size_t length, int width)
{
    const auto columns = static_cast<std::size_t>(width);
    if (length < columns) {
        std::memset(to, ' ', columns - length);
        to += columns - length;
    }
    std::memcpy(to, text, length);
    return to + length;
}

// 5^k shifted up to fill 64 bits, and by how much: N x 10^k is N x factor x 2^(k - shift).
struct FiveToThe {
    std::uint64_t factor;
    int shift;
};
constexpr int largest_five = 27;
constexpr auto fives = [] {
    std::array<FiveToThe, largest_five + 1> table{};
    std::uint64_t power = 1;
    for (FiveToThe& five : table) {
        five.shift = std::countl_zero(power);
        five.factor = power << five.shift;
        power *= 5;
    }
    return table;
}();

constexpr std::uint64_t ten_to_the(int power)
{
    return power == 0 ? 1 : 10 * ten_to_the(power - 1);
}

struct Product {
    std::uint64_t high;
    std::uint64_t low;
};

Product multiply(std::uint64_t a, std::uint64_t b)
{
#ifdef __SIZEOF_INT128__
    __extension__ using Wide = unsigned __int128;
    const Wide wide = static_cast<Wide>(a) * b;
    return {static_cast<std::uint64_t>(wide >> 64), static_cast<std::uint64_t>(wide)};
#else
    constexpr std::uint64_t half = 0xffffffffU;
    const std::uint64_t low = (a & half) * (b & half);
    const std::uint64_t middle1 = (a >> 32) * (b & half) + (low >> 32);
    const std::uint64_t middle2 = (a & half) * (b >> 32) + (middle1 & half);
    return {(a >> 32) * (b >> 32) + (middle1 >> 32) + (middle2 >> 32), (middle2 << 32) | (low & half)};
#endif
}

// The value mantissa x 2^exponent with `digits` decimals in scientific form: its digits as one integer and its decimal
// exponent. False when that takes more than one exact 64 x 64 bit product.
template <int digits>
bool scientific(std::uint64_t mantissa, int exponent, std::uint64_t& integer, int& decimal)
{
    // Fewer digits leave less than the mantissa's own bits: the factor then fills fewer of its own.
    constexpr int spare = digits < 8 ? 20 : 0;
    constexpr std::uint64_t limit = ten_to_the(digits + 1);
    decimal = ((exponent + 23) * 78913) >> 18;  // of the smallest mantissa, 2^23: floor(log10(2^(exponent + 23)))
    for (;; ++decimal) {
        const int power = digits - decimal;
        if (power < 0 || power > largest_five) return false;
        const auto [factor, shift] = fives[static_cast<std::size_t>(power)];
        if (shift < spare) return false;
        const int up = exponent + power + 64 - (shift - spare);
        if (up < 0 || up > 40) return false;
        const auto [high, low] = multiply(mantissa << up, factor >> spare);
        if (high >= limit) continue;  // the mantissa is beyond the next power of ten
        constexpr std::uint64_t tie = std::uint64_t{1} << 63;
        integer = high + (low > tie || (low == tie && (high & 1) != 0) ? 1 : 0);
        if (integer == limit) {
            integer /= 10;
            ++decimal;
        }
        return true;
    }
}
}  // namespace

char* write_integer(char* to, std::int64_t value, int width)
{
    char text[widest_number];
    char* const end = text + sizeof text;
    char* begin = end;
    auto rest = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    for (; rest >= 100; rest /= 100) put_two(begin -= 2, rest % 100);
    if (rest >= 10)
        put_two(begin -= 2, rest);
    else
        *--begin = static_cast<char>('0' + rest);
    if (value < 0) *--begin = '-';
    return put_padded(to, begin, static_cast<std::size_t>(end - begin), width);
}

template <int digits>
char* write_real(char* to, float value, int width)
{
    constexpr std::size_t length = digits + 6;  // d.ddde-dd without its sign
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const bool negative = (bits >> 31) != 0;
    const auto biased = static_cast<int>((bits >> 23) & 0xff);
    const std::uint64_t fraction = bits & 0x7fffff;
    std::uint64_t integer = 0;
    int decimal = 0;
    const bool zero = biased == 0 && fraction == 0;
    const bool normal = biased > 0 && biased < 255;
    if (!zero && !(normal && scientific<digits>(fraction | 0x800000, biased - 150, integer, decimal))) {
        if (biased == 255) {
            const char* name = fraction == 0 ? "-inf" : "-nan";
            return put_padded(to, name + (negative ? 0 : 1), negative ? 4 : 3, width);
        }
        char text[widest_number];
        const auto end =
            std::to_chars(text, text + sizeof text, static_cast<double>(value), std::chars_format::scientific, digits);
        return put_padded(to, text, static_cast<std::size_t>(end.ptr - text), width);
    }
    const auto padding = width - static_cast<int>(length) - (negative ? 1 : 0);
    for (int i = 0; i < padding; ++i) *to++ = ' ';
    if (negative) *to++ = '-';
    // d.ddd: the digits from the right, two at a time
    char* at = to + digits + 2;
    for (int left = digits; left >= 2; left -= 2, integer /= 100) put_two(at -= 2, integer % 100);
    if constexpr (digits % 2 != 0) {
        *--at = static_cast<char>('0' + integer % 10);
        integer /= 10;
    }
    *--at = '.';
    *--at = static_cast<char>('0' + integer);
    to += digits + 2;
    *to++ = 'e';
    *to++ = decimal < 0 ? '-' : '+';
    put_two(to, static_cast<std::uint64_t>(decimal < 0 ? -decimal : decimal));
    return to + 2;
}

template char* write_real<3>(char* to, float value, int width);
template char* write_real<8>(char* to, float value, int width);
template char* write_real<13>(char* to, float value, int width);

bool is_printed_integer(const char* field)
{
    if constexpr (std::endian::native == std::endian::little) {
        // All eight characters at once: blanks become 0x00, digits 0x10 to 0x19; the last column is the highest byte.
        constexpr std::uint64_t ones = 0x0101010101010101;
        std::uint64_t columns = 0;
        std::memcpy(&columns, field, sizeof columns);
        columns ^= ones * 0x20;
        const std::uint64_t digit = columns & (ones * 0x10);
        const std::uint64_t low = columns & (ones * 0x0f);
        const bool only_digits = (columns & (ones * 0xe0)) == 0 && ((low + ones * 6) & (ones * 0x10)) == 0;
        const std::uint64_t stray = (low + ones * 0x0f) & (ones * 0x10) & ~digit;  // neither blank nor digit
        const std::uint64_t blank = ~((digit >> 4) * 0xff);                        // 0xff where no digit stands
        if (!only_digits || stray != 0 || digit == 0 || (blank & (blank + 1)) != 0) return false;
        const int first = std::countr_zero(digit) / 8;
        return first == 7 || field[first] != '0';
    } else {
        const char* const end = field + 8;
        const char* at = std::find_if(field, end, [](char c) { return c != ' '; });
        return at != end && std::all_of(at, end, is_digit) && (*at != '0' || at == end - 1);
    }
}
