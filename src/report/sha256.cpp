#include "report/sha256.h"

#include <array>
#include <cstddef>
#include <fstream>
#include <vector>

#include <nettle/sha2.h>

#include "deck/fault.h"

namespace report
{

namespace
{
// The digest of a text that comes in pieces.
class Sum
{
public:
    Sum() { sha256_init(&context_); }

    void add(const char* bytes, std::size_t size)
    {
        sha256_update(&context_, size, reinterpret_cast<const std::uint8_t*>(bytes));
    }

    // Nothing may be added after that.
    std::string digest()
    {
        std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest;
        sha256_digest(&context_, digest.size(), digest.data());
        std::string digits;
        for (const unsigned byte : digest)
            for (const unsigned digit : {byte >> 4, byte & 0xf}) digits.push_back("0123456789abcdef"[digit]);
        return digits;
    }

private:
    sha256_ctx context_;
};
}  // namespace

std::string sha256_of(std::string_view bytes)
{
    Sum sum;
    sum.add(bytes.data(), bytes.size());
    return sum.digest();
}

std::string sha256_of_file(const std::filesystem::path& file, std::uint64_t* size)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw deck::Fault(file.string() + ": it cannot be read");
    Sum sum;
    std::uint64_t read = 0;
    std::vector<char> piece(1 << 16);
    while (stream.read(piece.data(), static_cast<std::streamsize>(piece.size())) || stream.gcount() > 0) {
        sum.add(piece.data(), static_cast<std::size_t>(stream.gcount()));
        read += static_cast<std::uint64_t>(stream.gcount());
    }
    if (stream.bad()) throw deck::Fault(file.string() + ": it cannot be read");
    if (size != nullptr) *size = read;
    return sum.digest();
}

}  // namespace report
