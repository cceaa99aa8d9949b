#include "commands/settings.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <system_error>

namespace commands
{
namespace
{
std::pair<std::string, int> setting(const std::string& text)
{
    const std::size_t equals = text.find('=');
    int value = 0;
    const char* const end = text.data() + text.size();
    const std::size_t begin = equals == std::string::npos ? text.size() : equals + 1;
    const auto [behind, error] = std::from_chars(text.data() + begin, end, value);
    if (equals == 0 || error != std::errc{} || behind != end)
        throw CLI::ValidationError("--set", "\"" + text + "\" is no NAME=VALUE");
    return {text.substr(0, equals), value};
}
}  // namespace

std::vector<std::pair<std::string, int>> settings_of(const std::vector<std::string>& texts)
{
    std::vector<std::pair<std::string, int>> settings;
    settings.reserve(texts.size());
    for (const std::string& text : texts) settings.push_back(setting(text));
    return settings;
}

}  // namespace commands
