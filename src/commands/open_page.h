// Showing a page to the user.
#pragma once

#include <filesystem>

namespace commands
{

// Hands the file to the program that the user's desktop opens such files with, and does not wait for it; false when
// there is none.
bool open_page(const std::filesystem::path& page);

}  // namespace commands
