// SHA-256 against the vectors that its standard publishes.
#include "report/sha256.h"

#include <gtest/gtest.h>

#include <string>

#include "deck/fault.h"
#include "support/convert.h"

namespace
{
using report::sha256_of;

TEST(Sha256, OfNothing)
{
    EXPECT_EQ(sha256_of(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(Sha256, OfOneBlock)
{
    EXPECT_EQ(sha256_of("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Sha256, OfTwoBlocks)
{
    EXPECT_EQ(sha256_of("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(Sha256, OfAMillionLetters)
{
    EXPECT_EQ(sha256_of(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, OfAFileIsThatOfItsBytes)
{
    const TemporaryFolder folder;
    const std::string bytes = std::string(70000, 'y') + '\0' + "\r\n";
    write_file("file", bytes);
    EXPECT_EQ(report::sha256_of_file("file"), sha256_of(bytes));
    EXPECT_THROW(report::sha256_of_file("none"), deck::Fault);
}
}  // namespace
