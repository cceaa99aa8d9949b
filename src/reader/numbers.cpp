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
constexpr std::uint64_t integer_powers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
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

namespace
{
// The number of eight digits, each a value of 0 to 9 in a byte of its own, the first in the lowest byte.
std::uint64_t eight_digits(std::uint64_t digits)
{
    digits = digits * 10 + (digits >> 8);  // the value of each pair in every other byte
    constexpr std::uint64_t pairs = 0x000000ff000000ff;
    return ((digits & pairs) * (100 + (std::uint64_t{1000000} << 32)) +
            ((digits >> 16) & pairs) * (1 + (std::uint64_t{10000} << 32))) >>
           32;
}

// Eight columns of a number's text, the first in the lowest byte: a digit becomes 0x00 to 0x09, a blank 0x10, "-" 0x1d.
constexpr std::uint64_t each_column = 0x0101010101010101;

std::uint64_t as_values(std::uint64_t columns)
{
    return columns ^ (each_column * 0x30);
}

// Not 0 in every column that holds no digit.
std::uint64_t no_digits(std::uint64_t values)
{
    return (values | (values + each_column * 0x06)) & (each_column * 0xf0);
}

// The last n columns, 0 in the others.
std::uint64_t last_columns(std::uint64_t columns, int n)
{
    return n == 0 ? 0 : columns >> (8 * (8 - n)) << (8 * (8 - n));
}

// The value of a field of sixteen columns in the forms that pre-processors write: blanks, "-" or none, at most seven
// digits, a point, at most eight decimals, and none or an exponent of two digits, up to the last column. False for
// every other form.
bool sixteen_columns(const char* field, double& value)
{
    int end = 16;  // of the decimals
    int power = 0;
    if ((field[12] | 0x20) == 'e') {
        if ((field[13] != '+' && field[13] != '-') || !is_digit(field[14]) || !is_digit(field[15])) return false;
        power = (field[14] - '0') * 10 + (field[15] - '0');
        if (field[13] == '-') power = -power;
        end = 12;
    }

    std::uint64_t tail = as_values(eight_columns(field + end - 8));
    int decimals = 8;
    const std::uint64_t not_point = tail ^ (each_column * ('.' ^ 0x30));
    if (const std::uint64_t points = (not_point - each_column) & ~not_point & (each_column * 0x80); points != 0)
        decimals = 7 - std::countr_zero(points) / 8;
    else if (field[end - 9] != '.')
        return false;
    tail = last_columns(tail, decimals);
    if (no_digits(tail) != 0) return false;

    // What stands before the point, in the last columns of eight.
    const int before = end - 1 - decimals;
    if (before > 8 && eight_columns(field) << (8 * (16 - before)) != (each_column * ' ') << (8 * (16 - before)))
        return false;
    const std::uint64_t head = before >= 8
                                   ? eight_columns(field + before - 8)
                                   : eight_columns(field) << (8 * (8 - before)) | (each_column * ' ') >> (8 * before);
    const std::uint64_t values = as_values(head);
    const std::uint64_t others = no_digits(values);
    if (others == 0) return false;
    const int digits = std::countl_zero(others) / 8;
    const int first = 8 - digits;  // column of the first digit; the one before it is no digit
    const auto sign = values << (8 * digits) >> 56;
    const bool only_blanks = first == 1 || (values ^ (each_column * 0x10)) << (8 * (digits + 1)) == 0;
    if ((sign != 0x10 && sign != 0x1d) || !only_blanks || digits + decimals == 0) return false;

    power -= decimals;
    if (power < -largest_exact_power || power > largest_exact_power) return false;
    // At most fifteen digits: both operands are exact, so the one rounding is the right one.
    const auto integer =
        static_cast<double>(eight_digits(last_columns(values, digits)) * integer_powers[decimals] + eight_digits(tail));
    value = power < 0 ? integer / exact_powers[-power] : integer * exact_powers[power];
    if (sign == 0x1d) value = -value;
    return true;
}
}  // namespace

double field_value(std::string_view field)
{
    if (double value = 0.0; field.size() == 16 && sixteen_columns(field.data(), value)) return value;
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

// The eight digits of a number below 10^8 as characters, the first in the lowest byte.
std::uint64_t eight_characters(std::uint64_t number)
{
    // Halved three times: two numbers of four digits, four of two, eight of one, each in its share of the bits.
    const std::uint64_t fours = number / 10000 | (number % 10000) << 32;
    const std::uint64_t hundreds = (fours * 10486 >> 20) & 0x0000007f0000007f;
    const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
    const std::uint64_t tens = (twos * 103 >> 10) & 0x000f000f000f000f;
    return (tens | (twos - 10 * tens) << 8) + 0x3030303030303030;
}

// n blanks, or none when n is negative.
char* put_blanks(char* to, int n)
{
    for (; n > 0; n -= 8) {
        put_eight_columns(to, 0x2020202020202020);
        to += std::min(n, 8);
    }
    return to;
}

// Writes the text right-aligned in the width, or whole when it is longer.
char* put_padded(char* to, const char* text, std::size_t length, int width)
{
    to = put_blanks(to, width - static_cast<int>(length));
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

constexpr Product multiply(std::uint64_t a, std::uint64_t b)
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

constexpr std::uint64_t smallest_mantissa = 1U << 23;
constexpr std::uint64_t beyond_mantissas = 1U << 24;

// How single-precision values of one binary exponent become their decimal digits by one exact product. The values reach
// into two powers of ten at most: those from `next_power` on, a mantissa, lie in the upper one.
struct Scale {
    std::uint64_t factor[2];  // the upper half of (mantissa << up) x factor is the digits
    std::uint32_t next_power;
    std::int8_t up[2];
    std::int8_t decimal;  // decimal exponent of the lower values
    bool exact;           // the table serves this binary exponent
};

// One of the two ways of a scale; false when it takes more than one exact 64 x 64 bit product.
constexpr bool set_way(Scale& scale, int way, int digits, int exponent, int decimal)
{
    // Fewer digits leave less than the mantissa's own bits: the factor then fills fewer of its own.
    const int spare = digits < 8 ? 20 : 0;
    const int power = digits - decimal;
    if (power < 0 || power > largest_five) return false;
    const FiveToThe five = fives[static_cast<std::size_t>(power)];
    const int up = exponent + power + 64 - (five.shift - spare);
    if (five.shift < spare || up < 0 || up > 40) return false;
    scale.factor[way] = five.factor >> spare;
    scale.up[way] = static_cast<std::int8_t>(up);
    return true;
}

constexpr Scale scale_for(int digits, int biased_exponent)
{
    Scale scale{};
    const int exponent = biased_exponent - 150;           // the value is mantissa x 2^exponent
    const int decimal = ((exponent + 23) * 78913) >> 18;  // floor(log10(2^(exponent + 23)))
    if (!set_way(scale, 0, digits, exponent, decimal) || !set_way(scale, 1, digits, exponent, decimal + 1))
        return scale;
    scale.decimal = static_cast<std::int8_t>(decimal);
    scale.exact = true;
    std::uint64_t below = smallest_mantissa - 1;
    std::uint64_t next = beyond_mantissas;
    while (next - below > 1) {
        const std::uint64_t middle = (below + next) / 2;
        (multiply(middle << scale.up[0], scale.factor[0]).high < ten_to_the(digits + 1) ? below : next) = middle;
    }
    scale.next_power = static_cast<std::uint32_t>(next);
    return scale;
}

// The scales of all normal numbers, by biased exponent.
template <int digits>
constexpr auto scales = [] {
    std::array<Scale, 256> table{};
    for (int biased = 1; biased < 255; ++biased) table[static_cast<std::size_t>(biased)] = scale_for(digits, biased);
    return table;
}();

// The digits of a mantissa as one integer, rounded half to even, and the decimal exponent.
template <int digits>
void scientific(const Scale& scale, std::uint64_t mantissa, std::uint64_t& integer, int& decimal)
{
    const std::size_t way = mantissa >= scale.next_power ? 1 : 0;
    const auto [high, low] = multiply(mantissa << scale.up[way], scale.factor[way]);
    constexpr std::uint64_t tie = std::uint64_t{1} << 63;
    integer = high + (low > tie - (high & 1) ? 1 : 0);
    decimal = scale.decimal + static_cast<int>(way);
    if (integer == ten_to_the(digits + 1)) {
        integer /= 10;
        ++decimal;
    }
}

// "e-40" to "e+40", four characters each.
constexpr int largest_exponent = 40;
constexpr auto exponents = [] {
    std::array<std::array<char, 4>, 2 * largest_exponent + 1> table{};
    int exponent = -largest_exponent;
    for (auto& text : table) {
        const int digits = exponent < 0 ? -exponent : exponent;
        text = {'e', exponent < 0 ? '-' : '+', static_cast<char>('0' + digits / 10),
                static_cast<char>('0' + digits % 10)};
        ++exponent;
    }
    return table;
}();

// Every form that the quick way leaves: infinities, no numbers, subnormals, magnitudes beyond the scales.
char* write_any_real(char* to, float value, int digits, int width)
{
    const bool negative = std::signbit(value);
    if (!std::isfinite(value)) {
        const char* name = std::isinf(value) ? "-inf" : "-nan";
        return put_padded(to, name + (negative ? 0 : 1), negative ? 4 : 3, width);
    }
    char text[widest_number];
    const auto end =
        std::to_chars(text, text + sizeof text, static_cast<double>(value), std::chars_format::scientific, digits);
    return put_padded(to, text, static_cast<std::size_t>(end.ptr - text), width);
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
    constexpr int length = digits + 6;  // d.ddde-dd without its sign
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const std::uint64_t fraction = bits & 0x7fffff;
    const Scale& scale = scales<digits>[(bits >> 23) & 0xff];
    std::uint64_t integer = 0;
    int decimal = 0;
    if (scale.exact)
        scientific<digits>(scale, fraction | smallest_mantissa, integer, decimal);
    else if (value != 0.0f)
        return write_any_real(to, value, digits, width);

    const bool negative = (bits >> 31) != 0;
    if (width > length) {
        to = put_blanks(to, width - length - 1);
        *to++ = negative ? '-' : ' ';
    } else if (negative) {
        *to++ = '-';
    }
    // d.ddd: the last eight decimals stand behind the others, where there are so many
    if constexpr (digits == 13) {
        const std::uint64_t first = eight_characters(integer / 100000000);  // two zeros and six digits
        put_eight_columns(to, (first >> 16 & 0xff) | '.' << 8 | first >> 24 << 16);
        put_eight_columns(to + 7, eight_characters(integer % 100000000));
    } else if constexpr (digits == 8) {
        *to = static_cast<char>('0' + integer / 100000000);
        to[1] = '.';
        put_eight_columns(to + 2, eight_characters(integer % 100000000));
    } else {
        static_assert(digits == 3);
        const std::uint64_t all = eight_characters(integer);  // four zeros and four digits
        put_eight_columns(to, (all >> 32 & 0xff) | '.' << 8 | all >> 40 << 16);
    }
    to += digits + 2;
    const int row = decimal + largest_exponent;
    std::memcpy(to, exponents[static_cast<std::size_t>(row)].data(), 4);
    return to + 4;
}

template char* write_real<3>(char* to, float value, int width);
template char* write_real<8>(char* to, float value, int width);
template char* write_real<13>(char* to, float value, int width);
