// SHA-256: what tells one file's content from another's.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace report
{

// 64 hexadecimal digits, lower case.
std::string sha256_of(std::string_view bytes);

// And the size of the file, where it is asked for. Throws deck::Fault when the file cannot be read.
std::string sha256_of_file(const std::filesystem::path& file, std::uint64_t* size = nullptr);

}  // namespace report
