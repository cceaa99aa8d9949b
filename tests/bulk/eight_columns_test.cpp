// Eight columns of a card in one word, against printf.
#include "bulk/eight_columns.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/random.h"

namespace
{
// What printf gives for the field's number, when that is not negative, is the field.
bool printed(const std::string& field)
{
    std::array<char, 64> text{};
    const long long value = std::strtoll(field.c_str(), nullptr, 10);
    std::snprintf(text.data(), text.size(), "%8lli", value);
    return value >= 0 && field == text.data();
}
}  // namespace

TEST(EightColumns, FirstCharacterIsTheLowestByte)
{
    EXPECT_EQ(eight_columns("\x01\x02\x03\x04\x05\x06\x07\xff"), 0xff07060504030201U);
}

TEST(IsPrintedInteger, DirectedForms)
{
    for (const char* field : {"       0", "       7", "      10", "12345678", "99999999", "     100", "      90"})
        EXPECT_TRUE(is_printed_integer(field)) << field;
    for (const char* field :
         {"        ", "      01", "00000000",    "00000001",    "       -",    "      -1",      "      +1", "1       ",
          "      1 ", "     1 2", "     1.0",    "\t      1",   "      1\t",   "      1\r",     "      1:", "      1/",
          "      1p", "      1P", "       \x10", "       \x11", "       \xb1", "      \x01\x31"})
        EXPECT_FALSE(is_printed_integer(field)) << field;
}

TEST(IsPrintedInteger, EveryByteAtEveryPlaceOfEveryNumber)
{
    for (std::size_t length = 0; length <= 8; ++length) {
        for (const char digit : {'0', '1', '9'}) {
            const std::string canonical = std::string(8 - length, ' ') + std::string(length, digit);
            for (std::size_t place = 0; place < 8; ++place) {
                for (int c = 0; c < 256; ++c) {
                    std::string field = canonical;
                    field[place] = static_cast<char>(c);
                    ASSERT_EQ(is_printed_integer(field.c_str()), printed(field)) << field;
                }
            }
        }
    }
}

TEST(IsPrintedInteger, RandomFields)
{
    Random random(20);
    constexpr std::array alphabets = {" 0123456789", "    0001", " 0123456789.-+e\t", "0123456789",
                                      "09 :/\x10\x30\xb0"};
    for (int i = 0; i < 400000; ++i) {
        const std::string field = random.text(8, random.pick(alphabets));
        ASSERT_EQ(is_printed_integer(field.c_str()), printed(field)) << field;
    }
}
