#include "reader/number_writers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

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
    std::memcpy(to, two_digits.data() + 2 * static_cast<std::size_t>(value), 2);
}

// The first two digits of a mantissa, with the point between them.
void put_first_two(char* to, std::uint64_t value)
{
    char digits[2];
    put_two(digits, value);
    to[0] = digits[0];
    to[1] = '.';
    to[2] = digits[1];
}

// The eight digits of a number below 10^8: dividing 32 bits is cheaper than dividing 64.
void put_eight(char* to, std::uint32_t value)
{
    const std::uint32_t high = value / 10000;
    const std::uint32_t low = value % 10000;
    put_two(to, high / 100);
    put_two(to + 2, high % 100);
    put_two(to + 4, low / 100);
    put_two(to + 6, low % 100);
}

// n blanks, or none when n is negative.
char* put_blanks(char* to, int n)
{
    for (; n > 0; n -= 8) {
        std::memset(to, ' ', 8);
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
    if constexpr (digits == 13) {
        const auto first = static_cast<std::uint32_t>(integer / 100000000);  // six digits
        put_first_two(to, first / 10000);
        put_two(to + 3, first / 100 % 100);
        put_two(to + 5, first % 100);
        put_eight(to + 7, static_cast<std::uint32_t>(integer % 100000000));
    } else if constexpr (digits == 8) {
        to[0] = static_cast<char>('0' + integer / 100000000);
        to[1] = '.';
        put_eight(to + 2, static_cast<std::uint32_t>(integer % 100000000));
    } else {
        static_assert(digits == 3);
        put_first_two(to, integer / 100);
        put_two(to + 3, integer % 100);
    }
    to += digits + 2;
    const int row = decimal + largest_exponent;
    std::memcpy(to, exponents[static_cast<std::size_t>(row)].data(), 4);
    return to + 4;
}

template char* write_real<3>(char* to, float value, int width);
template char* write_real<8>(char* to, float value, int width);
template char* write_real<13>(char* to, float value, int width);
