// What a run needs around it. Nothing here needs GoogleTest: the fuzzers use it, too.
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

#include "reader/run.h"
#include "support/convert.h"

namespace fs = std::filesystem;

namespace
{
// With MORVEX_TEST_WINDOW in the environment, all tests read through a window of that many bytes: no byte may change.
[[maybe_unused]] const bool window_is_set = [] {
    const char* const window = std::getenv("MORVEX_TEST_WINDOW");
    if (window != nullptr) stream_window = static_cast<std::size_t>(std::strtoull(window, nullptr, 10));
    return window != nullptr;
}();
}  // namespace

TemporaryName::TemporaryName()
{
    std::random_device random;
    do path_ = fs::temp_directory_path() / ("morvex-test-" + std::to_string(random()));
    while (!fs::create_directory(path_));
}

TemporaryName::~TemporaryName()
{
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

TemporaryFolder::TemporaryFolder() : before_(fs::current_path())
{
    fs::current_path(path());
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    fs::current_path(before_, ignored);
}

std::string contents(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write_file(const fs::path& file, std::string_view text)
{
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush()) throw std::runtime_error("cannot write " + file.string());
}
