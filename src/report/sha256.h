// SHA-256 (FIPS 180-4): what tells one file's content from another's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace report
{

// The digest of a text that comes in pieces.
class Sha256
{
public:
    void add(std::string_view bytes);

    // 64 hexadecimal digits, lower case. Nothing may be added after that.
    std::string digest();

private:
    static constexpr std::size_t block_size = 64;
    void take_block(const unsigned char* block);

    std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                           0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, block_size> waiting_{};
    std::size_t waiting_size_ = 0;
    std::uint64_t size_ = 0;  // bytes that were added
};

std::string sha256_of(std::string_view bytes);

// And the size of the file, where it is asked for. Throws deck::Fault when the file cannot be read.
std::string sha256_of_file(const std::filesystem::path& file, std::uint64_t* size = nullptr);

}  // namespace report
